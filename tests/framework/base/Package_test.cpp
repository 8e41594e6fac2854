// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Package.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include "framework/base/ClassRegistry.h"
#include "framework/base/Errors.h"
#include "framework/base/FormatSettings.h"
#include "framework/base/KeepList.h"
#include "framework/data/DataControl.h"
#include "framework/services/ScopedService.h"
#include "framework/services/TimerControl.h"
#include "framework/view/BaseView.h"
#include "tests/framework/base/LogRecorder.h"

namespace fw {
namespace {

// Loads the package once, as a host does: bound at once, its symbols its own, never unloaded.
class Package : public testing::Test {
protected:
    void SetUp() override {
        static void* const Handle = dlopen(TEST_PACKAGE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(Handle, nullptr) << dlerror();
        Version = reinterpret_cast<const char* (*)()>(dlsym(Handle, kPackageVersionSymbol));
        Initialize = reinterpret_cast<void (*)()>(dlsym(Handle, kPackageInitializeSymbol));
        ASSERT_NE(Version, nullptr);
        ASSERT_NE(Initialize, nullptr);
        Initialize();
        Object = TClassRegistry::Create("test_package.rows");
        Rows = dynamic_cast<TCustomDataControl*>(Object.get());
        ASSERT_NE(Rows, nullptr) << "the type is the same on both sides";
    }
    void TearDown() override { FormatSettings() = TFormatSettings(); }

    const char* (*Version)() = nullptr;
    void (*Initialize)() = nullptr;
    std::unique_ptr<TObject> Object;
    TCustomDataControl* Rows = nullptr;
};

TEST_F(Package, TellsTheFrameworkItWasBuiltFor) { EXPECT_STREQ(Version(), kFrameworkVersion); }

TEST_F(Package, InitializingAgainRegistersNothingNew) {
    const auto Before = TClassRegistry::ClassNames();
    Initialize();
    EXPECT_EQ(TClassRegistry::ClassNames(), Before);
}

TEST_F(Package, ErrorsCrossTheBorderAsWhatTheyAre) {
    EXPECT_THROW(Rows->GetCount(), EListError);
    EXPECT_THROW(Rows->GetCount(), std::out_of_range);
    EXPECT_THROW(Rows->GetValue(0, 0), EConvertError) << "thrown by the framework on behalf of the package";
}

TEST_F(Package, DispatcherOfTheProgramCatchesThem) {
    TLogRecorder Log;
    EXPECT_EQ(DispatchValue("Rows.GetCount", -1, [&] { return Rows->GetCount(); }), -1);
    ASSERT_EQ(Log.Entries.size(), 1u);
    EXPECT_EQ(Log.Entries[0].Args.at(1), "rows of the package");
}

class TQuietTimer : public TCustomTimerControl {
public:
    void AddTimerEvent(TObject*, TNotifyEvent) override {}
    void RemoveTimerEvent(TObject*) override {}
};

TEST_F(Package, SeesTheServicesOfTheProgram) {
    void* Seen = nullptr;
    EXPECT_THROW(Rows->GetRowValue(0, Seen), EServiceMissing);
    const TScopedService<TCustomTimerControl> Timer(std::make_unique<TQuietTimer>());
    EXPECT_TRUE(Rows->GetRowValue(0, Seen));
    EXPECT_EQ(Seen, &TCustomTimerControl::GetInstance());
}

TEST_F(Package, SharesSettingsLogAndKeepList) {
    TLogRecorder Log;
    FormatSettings().ShortDateFormat = "set by the program";
    const int Kept = KeptCount();
    EXPECT_EQ(Rows->GetDisplayValue(0, 0), "set by the program");
    EXPECT_EQ(FormatSettings().DateSeparator, "|");
    EXPECT_EQ(KeptCount(), Kept + 1);
    ASSERT_EQ(Log.Entries.size(), 1u);
    EXPECT_EQ(Log.Entries[0].Key, "Res_FromThePackage");
}

TEST_F(Package, RowsTellTheirListenersInTheProgram) {
    int Calls = 0;
    const auto Link = Rows->OnChanged.Connect([&] { ++Calls; });
    Rows->NotifyDataChanged();
    EXPECT_EQ(Calls, 1);
}

TEST_F(Package, DescriptorIsFoundByClassAndItsOpeningErrorReachesTheProgram) {
    const auto Made = TClassRegistry::Create("test_package.view");
    auto* View = dynamic_cast<TIBaseView*>(Made.get());
    ASSERT_NE(View, nullptr);
    EXPECT_EQ(View->GetName(), "package view");
    EXPECT_THROW(View->OpenNewInstance(), std::runtime_error);
    EXPECT_EQ(dynamic_cast<TCustomDataControl*>(Made.get()), nullptr);
}

}  // namespace
}  // namespace fw
