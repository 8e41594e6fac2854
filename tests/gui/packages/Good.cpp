// SPDX-License-Identifier: GPL-3.0-or-later
// A package of nothing but its entry: counts how often it was initialised.
#include "framework/base/ClassRegistry.h"
#include "framework/base/Log.h"
#include "framework/base/Package.h"

const char* PackageFrameworkVersion() { return fw::kFrameworkVersion; }
void PackageInitialize() { fw::TLog::Info("good package initialised"); }
