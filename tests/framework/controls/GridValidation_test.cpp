// SPDX-License-Identifier: Apache-2.0
// Validation of what is posted into a cell, and what it may do meanwhile.
#include "tests/framework/controls/GridFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridValidationTest : public TGridFixture {};

TEST_F(GridValidationTest, ValidationMayReplaceTheValue) {
    Popup->OnValidate = [this](TObject* Sender, Variant& Value, Text&, bool&) {
        EXPECT_EQ(Sender, View.GetEditor());
        Value = Value.AsText() == "5" ? Variant("00005") : Variant(" ");
    };
    Type(0, kSymbol, "5");
    View.PostEditor();
    Type(1, kSymbol, "XYZ");
    View.PostEditor();
    EXPECT_EQ(Cell(0, kSymbol), Variant("00005"));
    EXPECT_EQ(Cell(1, kSymbol), Variant(" "));
    EXPECT_THAT(Edits, ElementsAre("0,0: 5 > 00005", "1,0: XYZ >  "));
}

TEST_F(GridValidationTest, AValidationErrorKeepsTheEditorOpenAndTheFocusInItsCell) {
    bool Refuse = true;
    Popup->OnValidate = [&](TObject*, Variant& Value, Text& ErrorText, bool& Error) {
        Value = "changed";
        ErrorText = "no such symbol";
        Error = Refuse;
    };
    Data.SetValue(0, kSymbol, "old");
    TCellEditor& Editor = Type(0, kSymbol, "bad");
    int Told = 0;
    Links += Editor.OnChanged.Connect([&] { ++Told; });
    View.PostEditor();
    EXPECT_EQ(View.GetEditor(), &Editor);
    EXPECT_EQ(View.GetErrorText(), "no such symbol");
    EXPECT_EQ(Told, 1);
    EXPECT_EQ(Editor.GetText(), "bad");
    EXPECT_EQ(Cell(0, kSymbol), Variant("old"));
    View.SetFocusedCell(1, kMemo);
    EXPECT_EQ(View.GetFocusedRecord(), 0);
    EXPECT_EQ(View.StartEdit(1, kMemo), nullptr);
    EXPECT_EQ(View.GetEditor(), &Editor);
    EXPECT_THAT(Edits, IsEmpty());
    Refuse = false;
    View.PostEditor();
    EXPECT_EQ(Cell(0, kSymbol), Variant("changed"));
    EXPECT_EQ(View.GetErrorText(), "");
    EXPECT_EQ(View.GetEditor(), nullptr);
}

TEST_F(GridValidationTest, CancellingForgetsTheError) {
    Popup->OnValidate = [](TObject*, Variant&, Text& ErrorText, bool& Error) {
        ErrorText = "no";
        Error = true;
    };
    Type(0, kSymbol, "bad");
    View.PostEditor();
    View.CancelEdit();
    EXPECT_EQ(View.GetErrorText(), "");
}

TEST_F(GridValidationTest, AValidationThatThrowsClosesAndLeavesTheCell) {
    Data.SetValue(0, kSymbol, "old");
    Popup->OnValidate = [](TObject*, Variant& Value, Text&, bool&) {
        Value = "half";
        throw std::runtime_error("malformed expiry");
    };
    Type(0, kSymbol, "new");
    View.PostEditor();
    EXPECT_EQ(View.GetEditor(), nullptr);
    EXPECT_EQ(Cell(0, kSymbol), Variant("old"));
    EXPECT_THAT(Edits, IsEmpty());
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|grid.0.OnValidate|malformed expiry"));
    Popup->OnValidate = nullptr;
    Type(0, kSymbol, "new");
    View.PostEditor();
    EXPECT_EQ(Cell(0, kSymbol), Variant("new")) << "the guard was reset";
}

TEST_F(GridValidationTest, ValidationMayAddRecordsAndFillTheRow) {
    Popup->OnValidate = [this](TObject*, Variant&, Text&, bool&) {
        Data.SetRecordCount(Data.GetRecordCount() + 1);
        Data.SetValue(2, kQuantity, 1);
        Data.SetValue(2, kSide, "Buy");
    };
    Type(2, kSymbol, "HSI");
    View.PostEditor();
    EXPECT_EQ(Data.GetRecordCount(), 4);
    EXPECT_EQ(Cell(2, kSymbol), Variant("HSI"));
    EXPECT_EQ(Cell(2, kQuantity), Variant(1));
    EXPECT_TRUE(Cell(3, kSymbol).IsNull());
}

TEST_F(GridValidationTest, ValidationThatPostsMovesOrOpensDoesNotPostTwice) {
    int Validations = 0;
    Popup->OnValidate = [&](TObject*, Variant&, Text&, bool&) {
        ++Validations;
        View.PostEditor();
        View.SetFocusedCell(1, kMemo);
        EXPECT_EQ(View.StartEdit(2, kMemo), nullptr);
        Button.SetFocus();
    };
    Type(0, kSymbol, "HSI");
    View.PostEditor();
    EXPECT_EQ(Validations, 1);
    EXPECT_EQ(Cell(0, kSymbol), Variant("HSI"));
    EXPECT_EQ(View.GetFocusedRecord(), 1);
    EXPECT_EQ(View.GetFocusedColumn(), kMemo);
    EXPECT_TRUE(Button.HasFocus());
    EXPECT_THAT(Edits, ElementsAre("0,0: HSI > HSI"));
    EXPECT_NE(View.StartEdit(2, kMemo), nullptr);
}

TEST_F(GridValidationTest, ValidationThatTakesTheCellAwayWritesNothing) {
    const std::pair<const char*, std::function<void()>> Cases[] = {
        {"its record deleted", [this] { Data.DeleteRecord(1); }},
        {"its record dropped", [this] { Data.SetRecordCount(1); }},
        {"cancelled", [this] { View.CancelEdit(); }},
        {"its column gone", [this] { View.ClearColumns(); }},
    };
    for (const auto& [Why, Act] : Cases) {
        SCOPED_TRACE(Why);
        Data.SetRecordCount(3);
        Edits.clear();
        Popup->OnValidate = [&](TObject*, Variant&, Text&, bool&) { Act(); };
        Type(1, kSymbol, "HSI");
        View.PostEditor();
        EXPECT_EQ(View.GetEditor(), nullptr);
        for (int Record = 0; Record < Data.GetRecordCount(); ++Record) EXPECT_TRUE(Cell(Record, kSymbol).IsNull());
        EXPECT_THAT(Edits, IsEmpty());
    }
}

TEST_F(GridValidationTest, ValidationThatDeletesAnEarlierRecordStillWritesIntoItsOwn) {
    Popup->OnValidate = [this](TObject*, Variant&, Text&, bool&) { Data.DeleteRecord(0); };
    Type(2, kSymbol, "HSI");
    View.PostEditor();
    EXPECT_EQ(Data.GetRecordCount(), 2);
    EXPECT_EQ(Cell(1, kSymbol), Variant("HSI"));
    EXPECT_THAT(Edits, ElementsAre("1,0: HSI > HSI"));
}

}  // namespace
}  // namespace fw
