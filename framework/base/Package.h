// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Export.h"

// What a package must export. The host loads the file, compares the version text with its own
// (kFrameworkVersion) and only then calls PackageInitialize, once. A package is never unloaded.

namespace fw {
inline constexpr const char* kFrameworkVersion = "0.1";  // major and minor version of the project
inline constexpr const char* kPackageVersionSymbol = "PackageFrameworkVersion";
inline constexpr const char* kPackageInitializeSymbol = "PackageInitialize";
}  // namespace fw

extern "C" {
FRAMEWORK_API const char* PackageFrameworkVersion();
FRAMEWORK_API void PackageInitialize();
}
