// SPDX-License-Identifier: Apache-2.0
// A number that can be read in two ways: the editor stays, the focus stays, nothing else in the frame is done.
#include "framework/base/NumberFormat.h"
#include "framework/controls/PopupEdit.h"
#include "framework/controls/SpinEdit.h"
#include "tests/framework/controls/GridFixture.h"
#include "tests/support/NumberFormatGuard.h"

namespace fw {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AmbiguousNumbersTest : public TGridFixture {
protected:
    AmbiguousNumbersTest() {
        Scope.Attach("edit", Edit);
        Scope.Attach("account", Account);
        Edit.SetDisplayFormat("#,##0.########");
        Button.OnClick = [this](TObject*) { ++Clicks; };
        View.GetColumn(kPremium)->OnGetDisplayText = [](TGridColumn& Column, int Record, Text& Shown) {
            const Variant Cell = Column.GetView().GetDataController().GetValue(Record, Column.GetIndex());
            if (!Cell.IsNull()) Shown = FormatNumber(Cell.AsFloat(), 8, true, 2);
        };
    }

    TScopedNumberFormat Format{"de_DE"};
    TSpinEdit Edit;
    TPopupEdit Account;
    int Clicks = 0;
};

TEST_F(AmbiguousNumbersTest, ACellKeepsItsEditorAndNamesBothReadings) {
    Data.SetValue(0, kPremium, 7.0);
    TCellEditor& Editor = Type(0, kPremium, "1.234");
    EXPECT_TRUE(Editor.IsAmbiguous());
    EXPECT_EQ(View.GetRefusal(), std::nullopt) << "not while it is being typed";
    int Told = 0;
    Links += Editor.OnChanged.Connect([&] { ++Told; });
    View.PostEditor();
    EXPECT_EQ(View.GetEditor(), &Editor);
    EXPECT_EQ(Editor.GetText(), "1.234");
    EXPECT_EQ(Cell(0, kPremium), Variant(7.0));
    EXPECT_EQ(Told, 1);
    EXPECT_EQ(View.GetRefusal(), (TRefusal{"Res_LogNumberAmbiguous", {"1.234", "1234", "1,2340"}}));
    View.PostEditor();
    EXPECT_THAT(TakeLog(), ElementsAre("W Res_LogNumberAmbiguous|1.234|1234|1,2340")) << "told once";
    EXPECT_THAT(Edits, IsEmpty());

    Editor.SetEditText("1.234,00");
    EXPECT_EQ(View.GetRefusal(), std::nullopt);
    View.PostEditor();
    EXPECT_EQ(View.GetEditor(), nullptr);
    EXPECT_EQ(Cell(0, kPremium), Variant(1234.0));
}

TEST_F(AmbiguousNumbersTest, TheTextThatTheCellWouldShowIsTaken) {
    const struct {
        int Column;
        const char* Typed;
        double Value;
    } Cases[] = {{kPremium, "1,234", 1.234}, {kStrike, "1,234", 1.234}, {kPremium, "1.234,00", 1234.0}};
    for (const auto& Case : Cases) {
        Type(0, Case.Column, Case.Typed);
        View.PostEditor();
        EXPECT_EQ(View.GetEditor(), nullptr) << Case.Typed;
        EXPECT_EQ(Cell(0, Case.Column), Variant(Case.Value));
    }
}

TEST_F(AmbiguousNumbersTest, TheTextThatTheEditorShowedIsTypedBackUndoubted) {
    View.GetColumn(kPremium)->OnGetDisplayText = [](TGridColumn&, int, Text& Shown) { Shown += "00 EUR"; };
    Data.SetValue(0, kPremium, 1.125);
    TCellEditor& Editor = *View.StartEdit(0, kPremium);
    EXPECT_EQ(Editor.GetText(), "1,125");
    for (const char* Typed : {"1,12", "1,125"}) Editor.SetEditText(Typed);
    View.PostEditor();
    EXPECT_EQ(View.GetEditor(), nullptr);
    EXPECT_EQ(Cell(0, kPremium), Variant(1.125));
}

TEST_F(AmbiguousNumbersTest, ThePreviewAsksTheFormAndChangesNothing) {
    Data.SetValue(0, kPremium, 7.0);
    int Told = 0;
    Links += View.OnCellChanged.Connect([&](int, int) { ++Told; });
    EXPECT_EQ(View.GetPreviewText(0, kPremium, 1234.5), "1.234,50");
    EXPECT_EQ(View.GetPreviewText(0, kPremium, Variant()), "");
    EXPECT_EQ(View.GetPreviewText(0, kMemo, "note"), "note");
    EXPECT_EQ(View.GetPreviewText(9, kPremium, 1.0), "");
    EXPECT_EQ(View.GetCellText(0, kPremium), "7,00");
    EXPECT_EQ(Cell(0, kPremium), Variant(7.0));
    EXPECT_EQ(Told, 0);
}

// Each: what a user does elsewhere in the frame while a cell refuses what is typed.
TEST_F(AmbiguousNumbersTest, NothingElseIsDoneBeforeItIsMended) {
    Account.SetChoices({{"A1", "Account 1"}});
    const std::pair<const char*, std::function<void()>> Cases[] = {
        {"another control", [this] { Edit.SetFocus(); }},
        {"typing elsewhere", [this] { Edit.SetEditText("5"); }},
        {"spinning elsewhere", [this] { Edit.Spin(1); }},
        {"a key elsewhere", [this] { Edit.KeyPress(kKeyEnter); }},
        {"a button", [this] { Button.Click(); }},
        {"another cell", [this] { View.SetFocusedCell(1, kMemo); }},
        {"editing another cell", [this] { EXPECT_EQ(View.StartEdit(1, kMemo), nullptr); }},
        {"a choice", [this] { Account.Choose(0); }},
    };
    for (const auto& [Why, Act] : Cases) {
        SCOPED_TRACE(Why);
        TCellEditor& Editor = Type(0, kPremium, "1.234");
        int Asked = 0;
        const auto Link = View.OnFocusRequested.Connect([&] { ++Asked; });
        Act();
        EXPECT_EQ(View.GetEditor(), &Editor);
        EXPECT_TRUE(View.HasFocus());
        EXPECT_EQ(View.GetFocusedRecord(), 0);
        EXPECT_EQ(Clicks, 0);
        EXPECT_TRUE(Edit.GetValue().IsNull());
        EXPECT_EQ(Edit.GetText(), "");
        EXPECT_EQ(Account.GetText(), "");
        View.CancelEdit();
        TakeLog();
    }
    Button.Click();
    EXPECT_EQ(Clicks, 1) << "cancelling lets go";
}

TEST_F(AmbiguousNumbersTest, TheRendererOfTheHolderIsToldThatTheFocusWasAskedFor) {
    Type(0, kPremium, "1.234");
    int Kept = 0, Given = 0;
    Links += View.OnFocusRequested.Connect([&] { ++Kept; });
    Links += Edit.OnFocusRequested.Connect([&] { ++Given; });
    Edit.SetFocus();
    EXPECT_EQ(Kept, 1);
    EXPECT_EQ(Given, 0);
    EXPECT_TRUE(Edit.IsHeldElsewhere());
    EXPECT_FALSE(View.IsHeldElsewhere());
    TakeLog();
}

TEST_F(AmbiguousNumbersTest, AValidationErrorHoldsTheFrameTheSameWay) {
    Popup->OnValidate = [](TObject*, Variant&, Text& ErrorText, bool& Error) {
        ErrorText = "no such symbol";
        Error = true;
    };
    Type(0, kSymbol, "bad");
    Button.Click();
    EXPECT_EQ(Clicks, 0);
    EXPECT_TRUE(View.HasFocus());
    EXPECT_EQ(View.GetRefusal(), std::nullopt) << "it has an error text";
    EXPECT_EQ(View.GetErrorText(), "no such symbol");
    View.CancelEdit();
    Button.Click();
    EXPECT_EQ(Clicks, 1);
}

TEST_F(AmbiguousNumbersTest, GarbageIsRefusedOnLeavingAndHoldsNobody) {
    Data.SetValue(0, kPremium, 7.0);
    Type(0, kPremium, "abc");
    Button.Click();
    EXPECT_EQ(Clicks, 1);
    EXPECT_EQ(View.GetEditor(), nullptr);
    EXPECT_EQ(Cell(0, kPremium), Variant(7.0));
    EXPECT_THAT(TakeLog(), ElementsAre("W Res_LogNumberRefused|abc"));
}

TEST_F(AmbiguousNumbersTest, AFormEditorKeepsTextAndFocusToo) {
    int Exits = 0, Keys = 0;
    Edit.OnExit = [&](TObject*) { ++Exits; };
    Edit.OnKeyPress = [&](TObject*, char&) { ++Keys; };
    Edit.SetValue(5.0);
    Edit.SetEditText("1,500");
    Button.Click();
    Edit.KeyPress(kKeyEnter);
    Edit.Spin(1);
    Edit.Exit();
    EXPECT_TRUE(Edit.HasFocus());
    EXPECT_EQ(Edit.GetText(), "1,500");
    EXPECT_EQ(Edit.GetValue(), Variant(5.0));
    EXPECT_EQ(Clicks + Exits + Keys, 0);
    EXPECT_EQ(Edit.GetRefusal(), (TRefusal{"Res_LogNumberAmbiguous", {"1,500", "1,5", "1500"}}));
    EXPECT_THAT(TakeLog(), ElementsAre("W Res_LogNumberAmbiguous|1,500|1,5|1500"));
    EXPECT_EQ(View.StartEdit(0, kMemo), nullptr);

    Edit.CancelEdit();
    EXPECT_EQ(Edit.GetText(), "5");
    EXPECT_EQ(Edit.GetRefusal(), std::nullopt);
    Button.Click();
    EXPECT_EQ(Clicks, 1);
    EXPECT_EQ(Exits, 1);
}

TEST_F(AmbiguousNumbersTest, AFormEditorTakesItsOwnGroups) {
    Edit.SetEditText("25.000");
    Edit.PostEditor();
    EXPECT_EQ(Edit.GetValue(), Variant(25000.0));
    EXPECT_EQ(Edit.GetText(), "25.000");
    Edit.SetEditText("25.000,125");
    Edit.PostEditor();
    EXPECT_EQ(Edit.GetValue(), Variant(25000.125));
}

TEST_F(AmbiguousNumbersTest, AProgramsValueEndsTheRefusal) {
    Edit.SetEditText("1,500");
    Edit.PostEditor();
    Edit.SetValue(9.0);
    EXPECT_EQ(Edit.GetRefusal(), std::nullopt);
    Button.Click();
    EXPECT_EQ(Clicks, 1);
    TakeLog();
}

TEST_F(AmbiguousNumbersTest, AControlThatCannotBeReachedHoldsNobody) {
    const std::pair<const char*, std::function<void(bool)>> Cases[] = {
        {"disabled", [this](bool On) { Edit.SetEnabled(On); }}, {"hidden", [this](bool On) { Edit.SetVisible(On); }}};
    for (const auto& [Why, Reach] : Cases) {
        SCOPED_TRACE(Why);
        Clicks = 0;
        Edit.SetEditText("1,500");
        Edit.PostEditor();
        Reach(false);
        Button.Click();
        EXPECT_EQ(Clicks, 1);
        Reach(true);
        Button.Click();
        EXPECT_EQ(Clicks, 1) << "what is refused is still there";
        Edit.CancelEdit();
        TakeLog();
    }
}

TEST_F(AmbiguousNumbersTest, NumbersEnteredForTheUserHaveOneReading) {
    EXPECT_EQ(Edit.EnterNumber(1.234), std::nullopt);
    EXPECT_EQ(Edit.GetValue(), Variant(1.234));
    Edit.SetMaxValue(10.0);
    EXPECT_EQ(Edit.EnterNumber(10.5), (TRefusal{"Res_LogNumberRefused", {"10,5"}}));
    EXPECT_EQ(Edit.GetValue(), Variant(1.234));

    TCellEditor& Editor = *View.StartEdit(0, kQuantity);
    EXPECT_EQ(Editor.EnterNumber(1000.5), (TRefusal{"Res_LogNumberRefused", {"1000,5"}}));
    EXPECT_FALSE(Editor.IsModified());
    EXPECT_EQ(Editor.EnterNumber(1.234), std::nullopt);
    EXPECT_TRUE(Editor.IsModified());
    View.PostEditor();
    EXPECT_EQ(Cell(0, kQuantity), Variant(1.234));
    EXPECT_NE(View.StartEdit(0, kMemo)->EnterNumber(1.0), std::nullopt) << "an editor of texts";
}

TEST_F(AmbiguousNumbersTest, WhatWasTypedInAFormatIsReadInIt) {
    Edit.SetEditText("1,25");
    SetNumberFormat({".", ","});
    EXPECT_EQ(Edit.GetValue(), Variant(1.25));
    EXPECT_EQ(Edit.GetText(), "1.25");

    Type(0, kPremium, "2,5");
    SetNumberFormat({",", "."});
    EXPECT_FALSE(View.GetEditor());
    EXPECT_EQ(Cell(0, kPremium), Variant(2.5));
    EXPECT_EQ(View.GetCellText(0, kPremium), "2,50");
}

TEST_F(AmbiguousNumbersTest, ANewFormatReadsARefusedTextAnew) {
    Edit.SetEditText("1,500");
    Edit.PostEditor();
    TakeLog();
    SetNumberFormat({".", ","});
    EXPECT_EQ(Edit.GetRefusal(), std::nullopt);
    EXPECT_EQ(Edit.GetText(), "1,500");
    Edit.PostEditor();
    EXPECT_EQ(Edit.GetValue(), Variant(1500.0));

    SetNumberFormat({",", "."});
    TCellEditor& Editor = Type(0, kPremium, "1.234");
    View.PostEditor();
    TakeLog();
    int Told = 0;
    Links += Editor.OnChanged.Connect([&] { ++Told; });
    SetNumberFormat({".", ","});
    EXPECT_EQ(View.GetEditor(), &Editor);
    EXPECT_EQ(Told, 1);
    EXPECT_EQ(View.GetRefusal(), std::nullopt);
    View.PostEditor();
    EXPECT_EQ(Cell(0, kPremium), Variant(1.234));
}

TEST_F(AmbiguousNumbersTest, ANewFormatIsDrawn) {
    Edit.SetValue(1234.5);
    int Drawn = 0, Shown = 0;
    Links += View.OnRepaint.Connect([&] { ++Drawn; });
    Links += Edit.OnValueChanged.Connect([&] { ++Shown; });
    SetNumberFormat({".", ","});
    EXPECT_EQ(Drawn, 1);
    EXPECT_GE(Shown, 1);
    EXPECT_EQ(Edit.GetText(), "1,234.5");
}

}  // namespace
}  // namespace fw
