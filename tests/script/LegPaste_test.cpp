// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/LegPaste.h"

#include "framework/data/ColumnIds.h"
#include "tests/script/JobFixture.h"

namespace ws {

using TLines = std::vector<std::vector<std::string>>;

TEST(PastedCells, AreReadAsSpreadsheetsWriteThem) {
    const struct {
        const char* Why;
        const char* Pasted;
        TLines Lines;
    } Cases[] = {
        {"nothing", "", {}},
        {"one cell", "A", {{"A"}}},
        {"line ends of either kind", "A\tB\r\nC\nD\n", {{"A", "B"}, {"C"}, {"D"}}},
        {"a blank line is a line", "A\n\nB", {{"A"}, {""}, {"B"}}},
        {"empty cells", "\tA\t\t", {{"", "A", "", ""}}},
        {"quotes around separators", "\"A\tB\nC\"\tD", {{"A B C", "D"}}},
        {"doubled quotes", "\"say \"\"it\"\"\"\tB", {{"say \"it\"", "B"}}},
        {"a lone quote is a letter", "\"A\tB\nC", {{"\"A", "B"}, {"C"}}},
        {"a quote within a cell is a letter", "5\"\t\"A\"B", {{"5\"", "\"A\"B"}}},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        EXPECT_EQ(ReadPastedCells(Case.Pasted), Case.Lines);
    }
}

// Legs pasted into the real view on the sample market.
class TLegPasteTest : public TJobFixture {
protected:
    TLegPasteTest() {
        Handle = View.OpenNewInstance();
        Frame = View.FindView(Handle);
        Grid = Frame->FindControl<fw::TGridTableView>("PositionGridView");
        Run(1);
    }
    ~TLegPasteTest() override { View.CloseInstance(Handle); }

    void ChooseMarket() {
        TPlayer Player(*Frame);
        ASSERT_TRUE(Player.Play(TStep::Select("cmbExchange", "HKFE")));
        ASSERT_TRUE(Player.Play(TStep::Select("cmbSeries", "HSI")));
        ASSERT_TRUE(Player.Play(TStep::Select("cmbMonth", "2026-12")));
        Run(1);
    }
    // Data of a foreign symbol have come before, so that it is refused at once.
    void Know(const std::string& Symbol) {
        Paste(Symbol);
        Run(2);
        ASSERT_EQ(Leg(0), "|||||") << "the row went with its data";
    }
    std::string Cell(int Row, int Tag) {
        for (int i = 0; i < Grid->GetColumnCount(); ++i)
            if (Grid->GetColumn(i)->Tag == Tag) return Grid->GetDataController().GetValue(Row, i).AsText();
        return "no such column";
    }
    std::string Leg(int Row) {
        std::string Result;
        for (const int Tag : {fw::kColumnSymbol, fw::kColumnSide, fw::kColumnPremium, fw::kColumnQuantity,
                              fw::kColumnOpenClose, fw::kColumnPrincipal})
            Result += (Tag == fw::kColumnSymbol ? "" : "|") + Cell(Row, Tag);
        return Result;
    }
    int Rows() { return Grid->GetDataController().GetRecordCount(); }
    TPasteReport Paste(const std::string& Text) { return PasteLegs(*Frame, *Grid, Text); }
    // "line caption typed: reason" of each refusal.
    std::vector<std::string> Refused(const TPasteReport& Report) {
        std::vector<std::string> Result;
        for (const auto& Each : Report.Refused)
            Result.push_back(std::to_string(Each.Line) + " " + Each.Caption + " " + Each.Typed + ": " + Each.Reason);
        return Result;
    }

    int64_t Handle = 0;
    fw::TFrame* Frame = nullptr;
    fw::TGridTableView* Grid = nullptr;
};

TEST_F(TLegPasteTest, LegsStandAsTyped) {
    ChooseMarket();
    const auto Report = Paste("hsi25600x6\tSell\t100.5\t2\tOpen\tClient\r\nHSI26400L6\t\t7\r\n\r\nHSI27400L6\r\n");
    EXPECT_EQ(Report.Rows, 3);
    EXPECT_EQ(Report.Taken, 3);
    EXPECT_EQ(Refused(Report), std::vector<std::string>{});
    ASSERT_EQ(Rows(), 4);
    EXPECT_EQ(Leg(0), "HSI25600X6|Sell|100.5|2|Open|Client");
    EXPECT_EQ(Leg(1), "HSI26400L6|Buy|7|1||");
    EXPECT_EQ(Cell(2, fw::kColumnSymbol), "HSI27400L6");
    EXPECT_EQ(Leg(3), "|||||");
    EXPECT_EQ(Grid->GetFocusedRecord(), 3) << "the next leg goes below";
}

TEST_F(TLegPasteTest, EachCellThatIsNotTakenIsNamedWithItsReason) {
    ChooseMarket();
    Know("OILF27");
    const auto Report = Paste(
        "HSI25600X6\tVerkauf\tabc\t1e18\tNever\tNobody\n"
        "OILF27\tBuy\t1\t1\n"
        "NOSUCH1\tBuy\t1\t1\n"
        "\tSell\t1\n"
        "HSI26400L6\tSell\t5\t3");
    EXPECT_EQ(Report.Rows, 5);
    EXPECT_EQ(Report.Taken, 3);
    EXPECT_EQ(Refused(Report), (std::vector<std::string>{
                                   "1 Res_Side Verkauf: Res_LogChoiceRefused",
                                   "1 Res_PayOffPremium abc: Res_LogNumberRefused",
                                   "1 Res_OrderQty 1e18: Res_LogNumberRefused",
                                   "1 Res_OpenClose Never: Res_LogChoiceRefused",
                                   "1 Res_Principal Nobody: Res_LogChoiceRefused",
                                   "2 Res_Symbol OILF27: Res_LogSymbolForeign",
                                   "4 Res_Symbol : Res_PasteNoSymbol",
                               }));
    EXPECT_EQ(Report.Refused[5].ReasonArgs[0], "OILF27");
    EXPECT_EQ(Cell(0, fw::kColumnSymbol), "HSI25600X6");
    EXPECT_EQ(Cell(0, fw::kColumnSide), "Buy");
    EXPECT_EQ(Cell(0, fw::kColumnQuantity), "1");
    EXPECT_EQ(Leg(1), "NOSUCH1|Buy|1|1||") << "nothing is known of it yet, so it waits with the rest of its row";
    EXPECT_EQ(Leg(2), "HSI26400L6|Sell|5|3||");
    EXPECT_EQ(Rows(), 4);
}

TEST_F(TLegPasteTest, TextsOfAnotherLanguageAreRefused) {
    ChooseMarket();
    const auto Report = Paste("HSI25600X6\t賣出");
    EXPECT_EQ(Refused(Report), std::vector<std::string>{"1 Res_Side 賣出: Res_LogChoiceRefused"});
    EXPECT_EQ(Cell(0, fw::kColumnSide), "Buy");
}

TEST_F(TLegPasteTest, AHeaderInAnyLanguageIsPassedOverAndOrdersTheColumns) {
    const struct {
        const char* Why;
        const char* Pasted;
    } Cases[] = {
        {"none", "HSI25600X6\tSell\t3"},
        {"english", "Symbol\tSide\tPremium\nHSI25600X6\tSell\t3"},
        {"simplified, other order", "权利金\t代码\t买卖\n3\tHSI25600X6\tSell"},
        {"as the grid is copied", "Symbol\tSide\tCall/Put\tExpiry\tStrike\tPremium\nHSI25600X6\tSell\tCall\tx\t9\t3"},
        {"words of the user's own", "Symbol\tSide\tPrice\nHSI25600X6\tSell\t3"},
    };
    ChooseMarket();
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        ASSERT_TRUE(TPlayer(*Frame).Play(TStep::Click("btnClear")));
        const auto Report = Paste(Case.Pasted);
        EXPECT_EQ(Refused(Report), std::vector<std::string>{});
        EXPECT_EQ(Report.Rows, 1);
        EXPECT_EQ(Leg(0), "HSI25600X6|Sell|3|1||");
        EXPECT_EQ(Rows(), 2);
    }
}

TEST_F(TLegPasteTest, PastingBeginsAtTheFocusedRowAndARefusedLineLeavesItsRow) {
    ChooseMarket();
    Know("OILF27");
    Paste("HSI25600X6\tSell\t1\nHSI26400L6\tSell\t2\nHSI27400L6\tSell\t3");
    Grid->SetFocusedCell(1, 0);
    const auto Report = Paste("OILF27\tBuy\t8\nHSI28000L6\tBuy\t9");
    EXPECT_EQ(Report.Taken, 1);
    EXPECT_EQ(Leg(0), "HSI25600X6|Sell|1|1||");
    EXPECT_EQ(Leg(1), "HSI26400L6|Sell|2|1||");
    EXPECT_EQ(Leg(2), "HSI28000L6|Buy|9|1||");
    EXPECT_EQ(Rows(), 4);
}

TEST_F(TLegPasteTest, OddSymbolsEndAsTypedOnesAndTouchNothingElse) {
    ChooseMarket();
    Paste("HSI25600X6\tSell\t1");
    const std::string Before = Leg(0);
    const auto Report = Paste(std::string(10000, 'A') + "\tBuy\n\x01\x02\tBuy\n\xF0\x9F\x98\x80\tBuy");
    EXPECT_EQ(Report.Rows, 3);
    EXPECT_EQ(Leg(0), Before);
    EXPECT_EQ(Rows(), 2 + Report.Taken);
    for (const auto& Each : Report.Refused) EXPECT_LE(Each.Typed.size(), 200u);
}

TEST_F(TLegPasteTest, ATableThatTakesNoLegIsLeftAlone) {
    Grid->SetEnabled(false);
    const auto Report = Paste("HSI25600X6\tSell\t1");
    EXPECT_TRUE(Report.Locked);
    EXPECT_EQ(Report.Rows, 0);
    EXPECT_EQ(Leg(0), "|||||");
}

TEST_F(TLegPasteTest, MoreLegsThanAnyStrategyAreRefusedByName) {
    ChooseMarket();
    std::string Many;
    for (int i = 0; i < kMostPastedLegs + 2; ++i) Many += "HSI25600X6\n";
    const auto Report = Paste(Many);
    EXPECT_EQ(Report.Taken, kMostPastedLegs);
    ASSERT_EQ(Report.Refused.size(), 2u);
    EXPECT_EQ(Report.Refused[0].Reason, "Res_PasteTooMany");
    EXPECT_EQ(Report.Refused[0].Args(),
              (std::vector<std::string>{"1001", "Res_Symbol", "HSI25600X6", "Res_PasteTooMany", "1000"}));
}

}  // namespace ws
