// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdlib>

#include "framework/base/Package.h"

const char* PackageFrameworkVersion() { return "0.9"; }
void PackageInitialize() { std::abort(); }  // never called: the version is not ours
