// SPDX-License-Identifier: GPL-3.0-or-later
#include <stdexcept>

#include "framework/base/Package.h"

const char* PackageFrameworkVersion() { return fw::kFrameworkVersion; }
void PackageInitialize() { throw std::runtime_error("no licence for today"); }
