// SPDX-License-Identifier: Apache-2.0
#include "registration/VentiqInterface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "framework/base/ClassRegistry.h"
#include "framework/controls/Button.h"
#include "tests/support/FakeHost.h"

namespace ventiq {
namespace {

class Descriptor : public testing::Test {
protected:
    support::TFakeHost Host;
    TIVentiq View;
};

TEST_F(Descriptor, TellsItsPlaceInTheMenu) {
    const struct {
        int Level, Id, Index;
        const char* Caption;
    } Cases[] = {{0, 103, 3100, "Res_Account"}, {1, 620, 3950, "Res_Ventiq"}, {2, 0, -1, ""}, {-1, 0, -1, ""}};
    EXPECT_EQ(View.GetMenuLevel(), 2);
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Level);
        EXPECT_EQ(View.GetMenuID(Case.Level), Case.Id);
        EXPECT_EQ(View.GetMenuIndex(Case.Level), Case.Index);
        EXPECT_EQ(View.GetMenuCaption(Case.Level), Case.Caption);
        EXPECT_EQ(View.GetMenuGroupIndex(Case.Level), 0);
    }
}

TEST_F(Descriptor, ItsIdItsMenuEntryAndItsNameCarryOneNumber) {
    EXPECT_EQ(View.GetViewID(), 620);
    EXPECT_EQ(View.GetMenuID(1), View.GetViewID());
    EXPECT_EQ(View.GetName(), "Ventiq_620");
}

TEST_F(Descriptor, KnowsItsSizeAndItsCaption) {
    int Width = 0, Height = 0;
    EXPECT_TRUE(View.GetDefaultSize(Width, Height));
    EXPECT_EQ(Width, 1000);
    EXPECT_EQ(Height, 600);
    Host.Language.SetText("Res_Ventiq", "Payoff");
    Text Caption;
    EXPECT_TRUE(View.GetDefaultCaption(Caption));
    EXPECT_EQ(Caption, "Payoff");
}

TEST_F(Descriptor, IsVisibleToUsersWithTheFunction) {
    EXPECT_TRUE(View.GetIsVisible());
    Host.Profile.Functions.clear();
    EXPECT_FALSE(View.GetIsVisible());
}

TEST_F(Descriptor, OpensFramesOfTheirOwn) {
    Host.FailOnLeftovers = true;
    const int64_t First = View.OpenNewInstance(), Second = View.OpenNewInstance();
    EXPECT_NE(First, Second);
    EXPECT_EQ(View.OpenViews(), (std::vector<int64_t>{First, Second}));
    View.SetGroupID(First, "G1");
    Text Group = "x";
    EXPECT_TRUE(View.GetGroupID(Second, Group));
    EXPECT_EQ(Group, "");
    TCaptionButtonList Buttons;
    EXPECT_TRUE(View.GetViewCaptionButtons(First, Buttons));
    ASSERT_EQ(Buttons.size(), 2u);
    EXPECT_TRUE(View.HandleCaptionButtonClick(First, 0));
    EXPECT_EQ(Buttons[0]->State, 1);
    EXPECT_TRUE(View.CloseInstance(First));
    EXPECT_FALSE(View.ContainView(First));
    EXPECT_TRUE(View.ContainView(Second));
    EXPECT_TRUE(View.CloseInstance(Second));
}

TEST_F(Descriptor, EveryButtonOfTheFormDoesSomething) {
    auto* Frame = View.FindView(View.OpenNewInstance());
    ASSERT_NE(Frame, nullptr);
    for (const char* Name : {"btnCalc", "btnClear", "btnLoad", "btnSubmit"})
        EXPECT_TRUE(Frame->FindControl<TButton>(Name)->CanClick()) << Name;
}

TEST_F(Descriptor, AFrameThatCannotBeBuiltIsNotRecordedAndItsErrorArrives) {
    Host.FailOnLeftovers = true;
    Host.Journal.OnLine = [](const Text& Line) {
        if (Line == "Channels.Subscribe(104)") throw std::runtime_error("no channel");
    };
    EXPECT_THROW(View.OpenNewInstance(), std::runtime_error);
    Host.Journal.OnLine = nullptr;
    EXPECT_TRUE(View.OpenViews().empty());
    EXPECT_TRUE(Host.Leftovers().empty());
}

TEST_F(Descriptor, IsRegisteredOnceHoweverOftenTheUnitIsInitialised) {
    const auto Count = [] {
        const auto Names = TClassRegistry::ClassNames();
        return std::count(Names.begin(), Names.end(), "TIVentiq");
    };
    Host.Profile.Functions.clear();  // a descriptor that is not visible is registered all the same
    InitializeVentiqInterface();
    EXPECT_EQ(Count(), 1);
    InitializeVentiqInterface();
    FinalizeVentiqInterface();
    EXPECT_EQ(Count(), 1);
    const auto Made = TClassRegistry::Create("TIVentiq");
    auto* Base = dynamic_cast<TIBaseView*>(Made.get());
    ASSERT_NE(Base, nullptr);
    EXPECT_EQ(Base->GetViewID(), 620);
    FinalizeVentiqInterface();
    EXPECT_EQ(Count(), 1);
}

}  // namespace
}  // namespace ventiq
