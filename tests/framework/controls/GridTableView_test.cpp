// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridTableView.h"

#include "tests/framework/controls/GridFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridTableViewTest : public TGridFixture {};

TEST_F(GridTableViewTest, ACellShowsItsValuesPlainText) {
    struct TCase {
        const char* Why;
        Variant Value;
        Text Shown;
    };
    const TCase Cases[] = {
        {"text", "abc", "abc"},
        {"blank", " ", " "},
        {"whole number", 5, "5"},
        {"float", 1.5, "1.5"},
        {"a whole float", 100.0, "100"},
        {"no noise", 0.1, "0.1"},
        {"large", 1e15, "1000000000000000"},
        {"null", Variant(), ""},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Why);
        Data.SetValue(0, kStrike, c.Value);
        EXPECT_EQ(View.GetCellText(0, kStrike), c.Shown);
    }
    for (const auto& [Record, Column] : {std::pair(-1, 0), {3, 0}, {0, -1}, {0, 6}})
        EXPECT_EQ(View.GetCellText(Record, Column), "");
}

TEST_F(GridTableViewTest, ANullCellShowsTheNullTextOfItsRowsEditor) {
    Premium->NullText = "none";
    EXPECT_EQ(View.GetCellText(0, kPremium), "none");
    TcxTextEditProperties Other;
    Other.NullText = "other";
    View.GetColumn(kPremium)->OnGetProperties = [&](TGridColumn&, int Row, TcxEditProperties*& Chosen) {
        EXPECT_EQ(Chosen, Premium) << "comes in as the column's own";
        if (Row == 1) Chosen = &Other;
    };
    EXPECT_EQ(View.GetCellText(0, kPremium), "none");
    EXPECT_EQ(View.GetCellText(1, kPremium), "other");
    EXPECT_EQ(View.GetCellProperties(1, kPremium), &Other);
    EXPECT_EQ(View.GetCellProperties(1, kMemo), nullptr);
    EXPECT_EQ(View.GetCellProperties(3, kPremium), nullptr);
}

TEST_F(GridTableViewTest, TheFormMayReplaceTheShownText) {
    Data.SetValue(1, kStrike, 2.0);
    View.GetColumn(kStrike)->OnGetDisplayText = [&](TGridColumn& Column, int Record, Text& Shown) {
        EXPECT_EQ(&Column, View.GetColumn(kStrike));
        if (Record == 2) {
            Shown = "half";
            throw std::runtime_error("format");
        }
        Shown = "<" + Shown + ">";
    };
    EXPECT_EQ(View.GetCellText(1, kStrike), "<2>");
    EXPECT_EQ(View.GetCellText(0, kStrike), "<>");
    EXPECT_EQ(View.GetCellText(2, kStrike), "") << "what a handler left half done is not shown";
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|grid.27.OnGetDisplayText|format"));
}

TEST_F(GridTableViewTest, StylesComeFromTheForm) {
    TStyle Input;
    EXPECT_EQ(View.GetCellStyle(0, 0), nullptr);
    View.OnGetContentStyle = [&](int Row, TGridColumn&) -> TStyle* {
        if (Row == 1) throw std::runtime_error("style");
        return &Input;
    };
    EXPECT_EQ(View.GetCellStyle(0, 0), &Input);
    EXPECT_EQ(View.GetCellStyle(3, 0), nullptr);
    EXPECT_EQ(View.GetCellStyle(1, 0), nullptr);
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|grid.OnGetContentStyle|style"));
}

TEST_F(GridTableViewTest, PropertiesThatFailToBeChosenAreTheColumnsOwn) {
    View.GetColumn(kSide)->OnGetProperties = [](TGridColumn&, int, TcxEditProperties*& Chosen) {
        Chosen = nullptr;
        throw std::runtime_error("choice");
    };
    EXPECT_EQ(View.GetCellProperties(0, kSide), Combo);
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|grid.11.OnGetProperties|choice"));
}

TEST_F(GridTableViewTest, TheFocusedCell) {
    int Told = 0;
    Links += View.OnFocusChanged.Connect([&] { ++Told; });
    EXPECT_EQ(View.GetFocusedRecord(), -1);
    EXPECT_EQ(View.GetFocusedColumn(), -1);
    View.SetFocusedCell(1, 2);
    View.SetFocusedCell(1, 2);
    EXPECT_EQ(Told, 1);
    View.GetColumn(kMemo)->Focusing = false;
    for (const auto& [Record, Column] : {std::pair(-1, 0), {3, 0}, {0, -1}, {0, 6}, {0, static_cast<int>(kMemo)}}) {
        View.SetFocusedCell(Record, Column);
        EXPECT_EQ(View.GetFocusedRecord(), 1);
        EXPECT_EQ(View.GetFocusedColumn(), 2);
    }
    EXPECT_EQ(Told, 1);
}

TEST_F(GridTableViewTest, MovingTheFocusPostsTheEditor) {
    Type(0, kMemo, "text");
    View.SetFocusedCell(1, kMemo);
    EXPECT_EQ(View.GetEditor(), nullptr);
    EXPECT_EQ(Cell(0, kMemo), Variant("text"));
    EXPECT_EQ(View.GetFocusedRecord(), 1);
}

TEST_F(GridTableViewTest, RepaintReachesTheRenderer) {
    int Told = 0;
    Links += View.OnRepaint.Connect([&] { ++Told; });
    View.Repaint();
    EXPECT_EQ(Told, 1);
    EXPECT_THAT(Editors, IsEmpty());
}

}  // namespace
}  // namespace fw
