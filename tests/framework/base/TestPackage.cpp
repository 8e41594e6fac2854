// SPDX-License-Identifier: Apache-2.0
// A package as views are packaged, for the tests of the border: classes of the framework made and errors thrown here.
#include "framework/base/ClassRegistry.h"
#include "framework/base/Errors.h"
#include "framework/base/FormatSettings.h"
#include "framework/base/KeepList.h"
#include "framework/base/Log.h"
#include "framework/base/Package.h"
#include "framework/data/DataControl.h"
#include "framework/services/TimerControl.h"
#include "framework/view/BaseView.h"

namespace {

class TPackageRows : public fw::TCustomDataControl {
public:
    int32_t GetCount() override { throw fw::EListError("rows of the package"); }
    fw::Variant GetValue(int32_t, int32_t) override { return static_cast<int32_t>(fw::StrToDateTime("never").Year); }
    bool GetRowValue(int32_t, void*& Value) override {
        Value = &fw::TCustomTimerControl::GetInstance();
        return true;
    }
    fw::Text GetDisplayValue(int32_t, int32_t) override {
        fw::FormatSettings().DateSeparator = "|";
        fw::TLog::Warning("Res_FromThePackage");
        fw::Keep(std::make_unique<TPackageRows>());
        return fw::FormatSettings().ShortDateFormat;
    }
};

class TPackageView : public fw::TIBaseView {
public:
    fw::Text GetName() override { return "package view"; }
    int64_t OpenNewInstance() override { throw std::runtime_error("no view today"); }
};

}  // namespace

const char* PackageFrameworkVersion() { return fw::kFrameworkVersion; }

void PackageInitialize() {
    fw::TClassRegistry::RegisterClass("test_package.rows", [] { return std::make_unique<TPackageRows>(); });
    fw::TClassRegistry::RegisterClass("test_package.view", [] { return std::make_unique<TPackageView>(); });
}
