// SPDX-License-Identifier: Apache-2.0
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "framework/base/ClassRegistry.h"
#include "framework/base/Package.h"
#include "framework/controls/ComboBox.h"
#include "framework/view/BaseView.h"
#include "tests/support/FakeHost.h"

namespace ventiq {
namespace {

template <class T>
T* Symbol(void* Package, const char* Name) {
    return reinterpret_cast<T*>(dlsym(Package, Name));
}

// Loaded as the host loads it; never unloaded, like there.
TEST(Package, TellsItsFrameworkAndOffersItsOneClass) {
    support::TFakeHost Host;
    Host.FailOnLeftovers = true;
    void* Package = dlopen(VENTIQ_PACKAGE_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(Package, nullptr) << dlerror();
    auto* Version = Symbol<const char*()>(Package, fw::kPackageVersionSymbol);
    auto* Initialize = Symbol<void()>(Package, fw::kPackageInitializeSymbol);
    ASSERT_NE(Version, nullptr);
    ASSERT_NE(Initialize, nullptr);
    EXPECT_STREQ(Version(), fw::kFrameworkVersion);

    const auto Before = fw::TClassRegistry::ClassNames();
    Initialize();
    Initialize();
    auto Names = fw::TClassRegistry::ClassNames();
    EXPECT_EQ(std::count(Names.begin(), Names.end(), "TIVentiq"), 1);
    EXPECT_LE(Names.size(), Before.size() + 1);

    const auto Made = fw::TClassRegistry::Create("TIVentiq");
    auto* View = dynamic_cast<fw::TIBaseView*>(Made.get());
    ASSERT_NE(View, nullptr);
    EXPECT_EQ(View->GetName(), "Ventiq_620");
    const auto Handle = View->OpenNewInstance();
    ASSERT_NE(View->FindView(Handle), nullptr);
    EXPECT_NE(View->FindView(Handle)->FindControl<fw::TComboBox>("cmbExchange"), nullptr);
    EXPECT_TRUE(View->CloseInstance(Handle));
}

}  // namespace
}  // namespace ventiq
