// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqCaptionButtons.h"

#include <optional>

#include "framework/base/KeepList.h"
#include "framework/view/BaseView.h"
#include "tests/support/FakeHost.h"

#include <gtest/gtest.h>

namespace ventiq {
namespace {

class CaptionButtons : public testing::Test {
protected:
    support::TFakeHost Host;
    TVentiqForm Form;
    TFrame View;
    std::optional<TVentiqCaptionButtons> Part;
    std::vector<std::pair<TFrame*, int>> Notified;
    TConnection Link =
        Baseview::Notifications().Connect([this](TFrame* V, int Code) { Notified.emplace_back(V, Code); });

    CaptionButtons() {
        Part.emplace(Form, View);
        Part->CreateList();
        Part->CreateButtons();
        Part->UpdateCaptionButtons();
    }
};

TEST_F(CaptionButtons, BothStartInStateZeroWithEverythingShown) {
    ASSERT_EQ(*Part->GetList(), (TCaptionButtonList{Part->GetShowHideButton(), Part->GetHintButton()}));
    EXPECT_EQ(Part->GetShowHideButton()->State, 0);
    EXPECT_EQ(Part->GetShowHideButton()->ImageIndex, 0);
    EXPECT_EQ(Part->GetShowHideButton()->Hint, "Res_Less");
    EXPECT_EQ(Part->GetHintButton()->State, 0);
    EXPECT_EQ(Part->GetHintButton()->ImageIndex, 2);
    EXPECT_EQ(Part->GetHintButton()->Hint, "Res_ShowHint");
    EXPECT_TRUE(Form.PositionGroup.IsVisible() && Form.liDetailGrid.IsVisible());
    EXPECT_FALSE(Part->IsHintOn());
}

TEST_F(CaptionButtons, ShowHideTwiceReturnsAndTellsTheHostTwice) {
    Part->GetShowHideButton()->OnClick(nullptr);
    EXPECT_EQ(Part->GetShowHideButton()->State, 1);
    EXPECT_EQ(Part->GetShowHideButton()->ImageIndex, 1);
    EXPECT_EQ(Part->GetShowHideButton()->Hint, "Res_More");
    EXPECT_FALSE(Form.PositionGroup.IsVisible() || Form.liDetailGrid.IsVisible());
    Part->GetShowHideButton()->OnClick(nullptr);
    EXPECT_EQ(Part->GetShowHideButton()->State, 0);
    EXPECT_TRUE(Form.PositionGroup.IsVisible() && Form.liDetailGrid.IsVisible());
    EXPECT_EQ(Notified, (std::vector<std::pair<TFrame*, int>>{{&View, 1026}, {&View, 1026}}));
}

TEST_F(CaptionButtons, TheHintButtonSwitchesTheHintAndHidesNothing) {
    Part->GetHintButton()->OnClick(nullptr);
    EXPECT_TRUE(Part->IsHintOn());
    EXPECT_EQ(Part->GetHintButton()->ImageIndex, 3);
    EXPECT_EQ(Part->GetHintButton()->Hint, "Res_HideHint");
    EXPECT_TRUE(Form.PositionGroup.IsVisible());
    Part->GetHintButton()->OnClick(nullptr);
    EXPECT_FALSE(Part->IsHintOn());
    EXPECT_EQ(Notified.size(), 2u);
}

TEST_F(CaptionButtons, AnotherStateLooksPressedAndAClickReturnsToZero) {
    Part->GetShowHideButton()->State = 5;
    Part->GetHintButton()->State = 5;
    Part->UpdateCaptionButtons();
    EXPECT_EQ(Part->GetShowHideButton()->ImageIndex, 1);
    EXPECT_EQ(Part->GetHintButton()->ImageIndex, 3);
    EXPECT_FALSE(Form.PositionGroup.IsVisible());
    EXPECT_FALSE(Part->IsHintOn());
    Part->btnShowHideClick(nullptr);
    Part->btnShowHideHintClick(nullptr);
    EXPECT_EQ(Part->GetShowHideButton()->State, 0);
    EXPECT_EQ(Part->GetHintButton()->State, 0);
}

TEST_F(CaptionButtons, TheListAndItsButtonsStayWithTheHostForGood) {
    auto* List = Part->GetList();
    const int Kept = KeptCount();
    Part.reset();
    EXPECT_EQ(KeptCount(), Kept);
    ASSERT_EQ(List->size(), 2u);
    EXPECT_EQ((*List)[0]->Hint, "Res_Less");
    // A click that comes too late finds nobody.
    EXPECT_FALSE((*List)[0]->OnClick);
    EXPECT_FALSE((*List)[1]->OnClick);
}

}  // namespace
}  // namespace ventiq
