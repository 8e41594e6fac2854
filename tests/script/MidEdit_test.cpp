// SPDX-License-Identifier: GPL-3.0-or-later
// What happens around an editor that is open: the edit ends as its rule says, and nothing else in the grid is touched.
#include "tests/script/TwoLegs.h"

namespace ws {

using ventiq::kColOpenClose;
using ventiq::kColPremium;
using ventiq::kColPrincipal;
using ventiq::kColQty;
using ventiq::kColSide;
using ventiq::kColSymbol;

using TMidEdit = TTwoLegs;

TEST_F(TMidEdit, DataThatComeWhileACellIsOpenLeaveWhatIsTyped) {
    const struct {
        const char* Why;
        int Column;
        const char* Typed;
        fw::Variant Posted;
    } Cases[] = {{"premium typed", kColPremium, "5", 5.0},
                 {"premium opened only", kColPremium, nullptr, {}},
                 {"quantity", kColQty, "7", 7.0},
                 {"symbol typed again", kColSymbol, "hhi10400l6", "HHI10400L6"}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        OpenView();
        ASSERT_TRUE(Choose("HKFE", "HHI", "2026-12"));
        ASSERT_TRUE(Type(0, kColSymbol, "HHI10400L6"));
        EXPECT_TRUE(CellOf(0, kColPremium).IsNull());
        auto* Editor = Case.Typed ? Edit(0, Case.Column, Case.Typed) : Edit(0, Case.Column);
        ASSERT_TRUE(Editor);
        Run(6);
        ASSERT_TRUE(Legs().GetEditor());
        const fw::Variant Premium = CellOf(0, kColPremium);
        EXPECT_TRUE(Premium.IsFloat()) << "the data came";
        EXPECT_EQ(CellOf(0, ventiq::kColExpiry), fw::Variant("2026/12/30"));
        EXPECT_EQ(Editor->GetText(), Case.Typed ? Case.Typed : Premium.AsText());
        TGridCells Expected = Cells();
        if (Case.Typed) Expected[0][static_cast<size_t>(ColumnOf(Case.Column))] = Case.Posted;
        Legs().PostEditor();
        EXPECT_EQ(Cells(), Expected);
    }
}

TEST_F(TMidEdit, ForeignDataThatComeWhileTheCellIsOpenEndItWithItsRow) {
    ASSERT_TRUE(Type(1, kColSymbol, "HSIF7"));
    ASSERT_TRUE(Edit(1, kColSymbol, "HSI27200L6"));
    Run(1);
    EXPECT_EQ(Legs().GetEditor(), nullptr);
    EXPECT_EQ(Cells(), BeforeWithout(1));
}

TEST_F(TMidEdit, ForeignDataThatComeWhileALaterRowIsOpenMoveItsEditorAlong) {
    ASSERT_TRUE(Type(0, kColSymbol, "HSIF7"));
    ASSERT_TRUE(Edit(1, kColPremium, "17"));
    Run(1);
    ASSERT_TRUE(Legs().GetEditor());
    EXPECT_EQ(Legs().GetEditor()->GetRecord(), 0);
    Legs().PostEditor();
    TGridCells Expected = BeforeWithout(0);
    Expected[0][static_cast<size_t>(ColumnOf(kColPremium))] = 17.0;
    EXPECT_EQ(Cells(), Expected);
}

TEST_F(TMidEdit, ARowThatIsDeletedTakesItsOpenEditorAlong) {
    ASSERT_TRUE(Type(1, kColSymbol, ""));
    ASSERT_TRUE(Edit(1, kColQty, "99"));
    Run(1);
    EXPECT_EQ(Legs().GetEditor(), nullptr);
    EXPECT_EQ(Cells(), BeforeWithout(1));
}

TEST_F(TMidEdit, ARowThatIsDeletedAboveAnOpenEditorMovesIt) {
    ASSERT_TRUE(Type(0, kColSymbol, ""));
    ASSERT_TRUE(Edit(1, kColQty, "99"));
    Run(1);
    ASSERT_TRUE(Legs().GetEditor());
    Legs().PostEditor();
    TGridCells Expected = BeforeWithout(0);
    Expected[0][static_cast<size_t>(ColumnOf(kColQty))] = 99.0;
    EXPECT_EQ(Cells(), Expected);
}

TEST_F(TMidEdit, AMarketListReportLeavesTheOpenEditorAlone) {
    const auto Report = [this] { Station->Market().NotifyListsChanged(); };
    const auto Reset = [this] { Station->ResetSample(); };
    for (const std::function<void()>& Happens : {std::function<void()>(Report), std::function<void()>(Reset)}) {
        ASSERT_TRUE(Edit(0, kColPremium, "12"));
        Happens();
        Run(1);
        ASSERT_TRUE(Legs().GetEditor());
        EXPECT_EQ(Legs().GetEditor()->GetText(), "12");
        EXPECT_EQ(Cells(), Before);
        Legs().PostEditor();
        EXPECT_EQ(Cells(), BeforeWith(0, kColPremium, 12.0));

        ASSERT_TRUE(Edit(1, kColSymbol, "HSI27000l6"));
        Happens();
        ASSERT_TRUE(Legs().GetEditor());
        Legs().PostEditor();
        Run(1);
        EXPECT_EQ(Cells(), BeforeWith(0, kColPremium, 12.0));
        ASSERT_TRUE(Type(0, kColPremium, "650"));
    }
}

// The cells that hold translated texts follow; nothing else but the posted cell changes.
TEST_F(TMidEdit, ALanguageSwitchPostsTheOpenEditor) {
    const std::pair<int, const char*> Translated[] = {{kColSide, "Res_Side_Buy"},
                                                      {ventiq::kColCallPut, "Res_Call"},
                                                      {kColOpenClose, "Res_OrderOpen"},
                                                      {kColPrincipal, "Res_Principal_H"}};
    for (const int Language : {kLanguageTraditional, kLanguageSimplified, kLanguageEnglish}) {
        SCOPED_TRACE(Language);
        ASSERT_TRUE(Edit(0, kColPremium, std::to_string(Language + 10)));
        SetLanguage(Language);
        EXPECT_EQ(Legs().GetEditor(), nullptr);
        TGridCells Expected = BeforeWith(0, kColPremium, Language + 10.0);
        for (const size_t Row : {0, 1})
            for (const auto& [Column, Key] : Translated)
                Expected[Row][static_cast<size_t>(ColumnOf(Column))] = Res(Key);
        Expected[1][static_cast<size_t>(ColumnOf(kColSide))] = Res("Res_Side_Sell");
        EXPECT_EQ(Cells(), Expected);
    }
}

TEST_F(TMidEdit, ALanguageSwitchInAListKeepsTheChoiceOrTheFormerOne) {
    auto* Editor = Edit(0, kColSide);
    ASSERT_TRUE(Editor);
    Editor->SelectItem(1);
    SetLanguage(kLanguageTraditional);
    EXPECT_EQ(CellOf(0, kColSide).AsText(), Res("Res_Side_Sell"));
    ASSERT_TRUE(Edit(0, kColSide, "Sell"));
    SetLanguage(kLanguageSimplified);
    EXPECT_EQ(Legs().GetEditor(), nullptr);
    EXPECT_EQ(CellOf(0, kColSide).AsText(), Res("Res_Side_Sell"));
    EXPECT_EQ(TakeLogged("Res_LogChoiceRefused"), std::vector<fw::Text>{"Sell"});
    SetLanguage(kLanguageEnglish);
    EXPECT_EQ(Cells(), BeforeWith(0, kColSide, "Sell"));
}

TEST_F(TMidEdit, ALanguageSwitchInASymbolValidatesIt) {
    ASSERT_TRUE(Edit(2, kColSymbol, "hsi27"));
    SetLanguage(kLanguageTraditional);
    EXPECT_EQ(Legs().GetEditor(), nullptr);
    EXPECT_EQ(Rows(), 4);
    EXPECT_EQ(CellOf(2, kColSymbol), fw::Variant("HSI27"));
    Run(1);
    SetLanguage(kLanguageEnglish);
    EXPECT_EQ(Cells(), Before);
}

}  // namespace ws
