// SPDX-License-Identifier: Apache-2.0
// The package entry: what the host calls after it has loaded the file.
#include "engine/VentiqDataControl.h"
#include "framework/base/Package.h"
#include "registration/VentiqConstDef.h"
#include "registration/VentiqInterface.h"
#include "view/VentiqView.h"

const char* PackageFrameworkVersion() { return fw::kFrameworkVersion; }

// Units in the order in which they build on each other. Nothing is freed at the end: the package is never unloaded.
void PackageInitialize() {
    ventiq::InitializeVentiqConstDef();
    ventiq::InitializeVentiqDataControl();
    ventiq::InitializeVentiqView();
    ventiq::InitializeVentiqInterface();
}
