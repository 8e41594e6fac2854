// SPDX-License-Identifier: GPL-3.0-or-later
// Bad input at the real view: each ends as its rule says, and nothing else in the grid is touched.
#include "tests/script/TwoLegs.h"

namespace ws {

using ventiq::kColOpenClose;
using ventiq::kColPremium;
using ventiq::kColPrincipal;
using ventiq::kColQty;
using ventiq::kColSide;
using ventiq::kColSymbol;

using TBadInput = TTwoLegs;

TEST_F(TBadInput, AnUnknownSymbolStaysUntilTheMarketAnswersAndThenItsRowGoes) {
    ASSERT_TRUE(Type(2, kColSymbol, " nobody "));
    EXPECT_EQ(Cells(), Plus(BeforeWith(2, kColSymbol, "NOBODY"), 1));
    Run(1);
    EXPECT_EQ(Cells(), Before);
    EXPECT_EQ(TakeLogged("Res_LogSymbolUnknown"), std::vector<fw::Text>{"NOBODY"});

    ASSERT_TRUE(Type(1, kColSymbol, "nobody"));
    EXPECT_EQ(Cells(), BeforeWith(1, kColSymbol, " "))
        << "known to be nothing now: a blank, and the rest of the leg stays";
    EXPECT_EQ(TakeLogged("Res_LogSymbolUnknown"), std::vector<fw::Text>{"nobody"});
}

TEST_F(TBadInput, ASymbolOfAnotherMarketGoesWithItsRowAndIsABlankTheNextTime) {
    for (const char* Foreign : {"HSIF7", "hhi9400l6", "00016", "OILF27", "HSI26400L6W11"}) {
        SCOPED_TRACE(Foreign);
        ASSERT_TRUE(Type(2, kColSymbol, Foreign));
        const fw::Text Symbol = CellOf(2, kColSymbol).AsText();
        EXPECT_EQ(Cells(), Plus(BeforeWith(2, kColSymbol, Symbol), 1));
        Run(1);
        EXPECT_EQ(Cells(), Before);
        EXPECT_EQ(TakeLogged("Res_LogSymbolForeign"), std::vector<fw::Text>{Symbol});
        ASSERT_TRUE(Type(2, kColSymbol, Foreign));
        EXPECT_EQ(Cells(), BeforeWith(2, kColSymbol, " "));
        EXPECT_EQ(TakeLogged("Res_LogSymbolForeign"), std::vector<fw::Text>{Foreign});
        ASSERT_TRUE(Type(2, kColSymbol, ""));
        EXPECT_EQ(Cells(), BeforeWith(2, kColSymbol, ""));
        Legs().GetDataController().SetValue(2, ColumnOf(kColSymbol), {});
    }
    ASSERT_TRUE(Type(0, kColSymbol, "MHIZ6"));
    EXPECT_EQ(Cells(), BeforeWith(0, kColSymbol, "MHIZ6"));
    Run(1);
    EXPECT_EQ(Cells(), BeforeWithout(0)) << "a full leg goes too: its symbol is another market's";
}

TEST_F(TBadInput, ASymbolWhoseDataNeverComeIsFilledFromTheContractAndWaits) {
    Play(TStep::Click("btnClear"));
    ASSERT_TRUE(Choose("HKFE", "HHI", "2026-12"));
    ASSERT_TRUE(Type(0, kColSymbol, "HHI10500L6"));
    const TGridCells Filled = Cells();
    ASSERT_EQ(Filled.size(), 2u);
    EXPECT_EQ(CellOf(0, ventiq::kColStrike), fw::Variant(10500.0));
    EXPECT_TRUE(CellOf(0, kColPremium).IsNull());
    Run(30);
    EXPECT_EQ(Cells(), Filled);
    EXPECT_EQ(Station->Subscriptions().Pending(), std::vector<std::string>{"HHI10500L6"});
    EXPECT_TRUE(Entries.empty());
}

TEST_F(TBadInput, MonstrousSymbolsAreSymbolsThatNobodyKnows) {
    std::string Faces, Wide;
    for (int i = 0; i < 2500; ++i) Faces += "\xF0\x9F\x98\x80";
    for (int i = 0; i < 3334; ++i) Wide += "\xEF\xBC\xA1";
    const struct {
        const char* Why;
        std::string Typed, Cell;
    } Cases[] = {
        {"10,000 letters", std::string(10000, 'x'), std::string(10000, 'X')},
        {"10,000 digits", std::string(10000, '7'), std::string(10000, '7')},
        {"emoji", Faces, Faces},
        {"wide letters", Wide, std::string(3334, 'A')},
        {"a character cut in two", "HSI\xF0\x9F", "HSI\xF0\x9F"},
        {"a character that ends no text", std::string("HSI\0X", 5), "HSIX"},
        {"one emoji", "\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        ASSERT_TRUE(Type(2, kColSymbol, Case.Typed));
        EXPECT_EQ(Cells(), Plus(BeforeWith(2, kColSymbol, Case.Cell), 1));
        Run(1);
        EXPECT_EQ(Cells(), Before);
        EXPECT_EQ(TakeLogged("Res_LogSymbolUnknown").size(), 1u);
    }
}

// Seen: wide blanks were accepted as a symbol of no characters, with a row of its own and a subscription to nothing.
TEST_F(TBadInput, BlanksAndControlCharactersAloneAreAnEmptySymbol) {
    for (const std::string& Typed : {std::string(10000, ' '), std::string("\t\r\n"), std::string("\x01\x02", 2),
                                     std::string(1, '\0'), std::string("\xE3\x80\x80\xC2\xA0")}) {
        SCOPED_TRACE(testing::PrintToString(Typed.substr(0, 5)));
        ASSERT_TRUE(Type(2, kColSymbol, Typed));
        TGridCells Now = Cells();
        EXPECT_EQ(fw::Trim(Now.at(2).at(0).AsText()), "") << "no leg without a symbol";
        Now.at(2).at(0) = {};
        EXPECT_EQ(Now, Before);
        EXPECT_TRUE(Station->Subscriptions().Pending().empty());
        Legs().GetDataController().SetValue(2, ColumnOf(kColSymbol), {});
    }
    ASSERT_TRUE(Type(1, kColSymbol, "\xE3\x80\x80"));
    Run(1);
    EXPECT_EQ(Cells(), BeforeWithout(1)) << "marked and removed as with any emptied symbol";
}

TEST_F(TBadInput, ControlCharactersWithinASymbolAreLeftOut) {
    ASSERT_TRUE(Type(1, kColSymbol, "hsi\t27200\x01\x1Fl6\r\n"));
    Run(1);
    EXPECT_EQ(CellOf(1, kColSymbol), fw::Variant("HSI27200L6"));
    TGridCells Expected = BeforeWith(1, kColSymbol, "HSI27200L6");
    Expected[1][static_cast<size_t>(ColumnOf(ventiq::kColStrike))] = 27200.0;
    EXPECT_EQ(Cells(), Expected);
}

TEST_F(TBadInput, ATextOfAnotherLanguageIsNoEntryOfTheList) {
    Station->Language().SetLanguage(kLanguageTraditional);
    const fw::Text Buy = Res("Res_Side_Buy"), Open = Res("Res_OrderOpen"), House = Res("Res_Principal_H");
    Station->Language().SetLanguage(kLanguageEnglish);
    for (const auto& [Column, Typed] : {std::pair(kColSide, Buy), {kColOpenClose, Open}, {kColPrincipal, House}}) {
        auto* Editor = Edit(1, Column, Typed);
        ASSERT_TRUE(Editor);
        EXPECT_TRUE(Editor->IsRefused());
        Legs().PostEditor();
        EXPECT_EQ(Cells(), Before);
        EXPECT_EQ(TakeLogged("Res_LogChoiceRefused"), std::vector<fw::Text>{Typed});
    }
}

TEST_F(TBadInput, AQuantityBeyondTheEditorIsRefused) {
    for (const char* Typed : {"1e18", "1000000000000000000", "2000000001", "-1", "1e999", "nan", "three"}) {
        SCOPED_TRACE(Typed);
        ASSERT_TRUE(Edit(0, kColQty, Typed));
        Legs().PostEditor();
        EXPECT_EQ(Cells(), Before);
        EXPECT_EQ(TakeLogged("Res_LogNumberRefused"), std::vector<fw::Text>{Typed});
    }
    auto* Editor = Edit(0, kColQty, "2000000000");
    Editor->Spin(1);
    Legs().PostEditor();
    EXPECT_EQ(Cells(), BeforeWith(0, kColQty, 2000000000.0)) << "spinning stops at the bound";
}

}  // namespace ws
