// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/EditorProperties.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/HintController.h"
#include "framework/controls/ImageList.h"
#include "framework/controls/LayoutControl.h"
#include "framework/controls/Style.h"
#include "tests/framework/controls/LogFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;

TEST(HintController, ShowsMovesAndHides) {
    THintController Hint;
    TSteps Steps;
    const auto Link = Hint.OnChanged.Connect(
        [&] { Steps.push_back(Hint.IsShown() ? Hint.GetText() + "@" + std::to_string(Hint.GetX()) : "hidden"); });
    Hint.HideHint();
    Hint.ShowHint(10, 20, "X:1");
    Hint.ShowHint(10, 20, "X:1");
    Hint.ShowHint(11, 20, "X:1");
    Hint.ShowHint(11, 20, "X:2", "caption", 0);
    Hint.HideHint();
    Hint.HideHint();
    EXPECT_THAT(Steps, ElementsAre("X:1@10", "X:1@11", "X:2@11", "hidden"));
    EXPECT_EQ(Hint.GetY(), 20);
    EXPECT_EQ(Hint.GetCaption(), "caption");
}

TEST(HintController, FontSizesAreToldWhenTheyChange) {
    THintController Hint;
    int Told = 0;
    const auto Link = Hint.OnChanged.Connect([&] { ++Told; });
    Hint.SetFontSizes(Hint.GetCaptionFontSize(), Hint.GetTextFontSize());
    EXPECT_EQ(Told, 0);
    Hint.SetFontSizes(12, 10);
    EXPECT_EQ(Told, 1);
    EXPECT_EQ(Hint.GetCaptionFontSize(), 12);
    EXPECT_EQ(Hint.GetTextFontSize(), 10);
}

TEST(ImageList, NamesByIndex) {
    const TImageList List({"hint-off", "hint-on"});
    EXPECT_EQ(List.GetCount(), 2);
    EXPECT_EQ(List.GetIconName(1), "hint-on");
    EXPECT_EQ(List.GetIconName(2), "");
    EXPECT_EQ(List.GetIconName(-1), "");
    EXPECT_EQ(TImageList().GetCount(), 0);
}

TEST(PopupControl, TellsWhenItShowsAndHides) {
    TPopupControl Popup;
    TSteps Steps;
    const auto Link = Popup.OnShownChanged.Connect([&] { Steps.push_back(Popup.IsShown() ? "shown" : "hidden"); });
    Popup.Hide();
    Popup.Show();
    Popup.Show();
    Popup.Hide();
    EXPECT_THAT(Steps, ElementsAre("shown", "hidden"));
}

TEST(Style, IsRedUntilSet) {
    TStyle Style;
    int Told = 0;
    const auto Link = Style.OnChanged.Connect([&] { ++Told; });
    EXPECT_EQ(Style.GetColor(), 255);
    EXPECT_EQ(RedOf(Style.GetColor()), 255);
    EXPECT_EQ(BlueOf(Style.GetColor()), 0);
    Style.SetColor(255);
    EXPECT_EQ(Told, 0);
    Style.SetColor(MakeColor(1, 2, 3));
    EXPECT_EQ(Told, 1);
}

TEST(LayoutControl, ATreeOfGroupsAndItems) {
    TControl Edit;
    TLayoutItem Item(&Edit), Spacer;
    TLayoutGroup Row(EDirection::Horizontal), Root(EDirection::Vertical);
    Row.Add(Item);
    Row.Add(Spacer);
    Root.Add(Row);
    EXPECT_THAT(Root.Nodes(), ElementsAre(&Row));
    EXPECT_THAT(Row.Nodes(), ElementsAre(&Item, &Spacer));
    EXPECT_EQ(Item.GetControl(), &Edit);
    EXPECT_EQ(Spacer.GetControl(), nullptr);
    EXPECT_EQ(Row.AsGroup(), &Row);
    EXPECT_EQ(Item.AsGroup(), nullptr);
    int Told = 0;
    const auto Link = Item.OnModelChanged.Connect([&] { ++Told; });
    Item.SetCaption("Down");
    Item.SetCaption("Down");
    Item.SetVisible(false);
    EXPECT_EQ(Told, 2);
    EXPECT_EQ(Item.GetCaption(), "Down");
}

TEST(EditorProperties, KnowTheirKind) {
    EXPECT_EQ(TcxTextEditProperties().GetKind(), EEditorKind::Plain);
    EXPECT_EQ(TcxSpinEditProperties().GetKind(), EEditorKind::Spin);
    EXPECT_EQ(TcxComboBoxProperties().GetKind(), EEditorKind::Combo);
    EXPECT_EQ(TcxPopupEditProperties().GetKind(), EEditorKind::Popup);
}

TEST(Grid, ShowsItsLevelsView) {
    TGridTableView View;
    TGridLevel Level(View);
    TGrid Grid(Level);
    EXPECT_EQ(&Grid.GetLevel().GetGridView(), &View);
}

}  // namespace
}  // namespace fw
