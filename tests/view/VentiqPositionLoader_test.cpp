// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqPositionLoader.h"

#include "tests/view/DisplayFixture.h"

namespace ventiq {
namespace {

class PositionLoader : public TDisplayFixture {
protected:
    TVentiqPositionLoader Loader{Form, Context, Grid, Texts, Config, Check, Subscriptions};

    PositionLoader() {
        Form.btnLoad.OnClick = [this](TObject* Sender) { Loader.btnLoadClick(Sender); };
        Host.Language.SetText("Res_LoadPayOffPositionFailed", "choose first");
        Control().SetAccount("A100");
        for (const char* Symbol : {"HSIC100", "HSIP100", "HSIC110", "HSIP120"})
            Host.Subscriptions.Item(Symbol).Set(kFieldExpiry, "2026/12/30").Set(kFieldProductType, 3.0);
        Host.Subscriptions.Item("HSIZ6").Set(kFieldExpiry, "2026/12/30").Set(kFieldProductType, 2.0);
    }
    support::TFakePosition& Hold(const Text& Symbol, double Qty, double AvgPrice = 5.0) {
        return Host.Positions.Add("A100", Symbol, Qty, AvgPrice, &Host.Subscriptions.Item(Symbol));
    }
    void Load() { Form.btnLoad.Click(); }
    std::vector<Text> Symbols() {
        std::vector<Text> Result;
        for (int Row = 0; Row < Grid.GetRecordCount(); ++Row) Result.push_back(Grid.GetSymbol(Row));
        return Result;
    }
};

TEST_F(PositionLoader, FillsARowForEachPositionAndLeavesAnInputRow) {
    Hold("HSIC110", 3, 7.5);
    Hold("HSIP100", -5, 2.25);
    Load();
    ASSERT_EQ(Symbols(), (std::vector<Text>{"HSIC110", "HSIP100", ""}));
    EXPECT_EQ(Grid.FirstInputRow, 2);
    const std::pair<int, Variant> Call[] = {{kColQty, 3.0},
                                            {kColSide, "Buy"},
                                            {kColStrike, 110.0},
                                            {kColCallPut, "Call"},
                                            {kColExpiry, "2026/12/30"},
                                            {kColPremium, 7.5},
                                            {kColOpenClose, Variant()},
                                            {kColPrincipal, Variant()}};
    for (const auto& [Id, Cell] : Call) EXPECT_EQ(Grid.GetCell(0, Id), Cell) << Id;
    EXPECT_EQ(Grid.GetCell(1, kColSide), Variant("Sell")) << "short by its sign";
    EXPECT_EQ(Grid.GetCell(1, kColQty), Variant(5.0));
    EXPECT_EQ(Grid.GetCell(1, kColCallPut), Variant("Put"));
    for (int Column = 0; Column < Form.PositionGridView.GetColumnCount(); ++Column)
        EXPECT_TRUE(Form.PositionGridView.GetDataController().GetValue(2, Column).IsNull()) << Column;
    EXPECT_EQ(Form.PositionGridView.StartEdit(0, ColumnIndex(kColQty)), nullptr);
    EXPECT_NE(Form.PositionGridView.StartEdit(2, ColumnIndex(kColSymbol)), nullptr);
}

TEST_F(PositionLoader, WithoutMarketOrAccountItSaysSoAndKeepsTheGrid) {
    Hold("HSIC110", 3);
    AddLeg("HSIC100", "Buy", 5.0, 1);
    const std::function<void()> Missing[] = {[&] { Control().SetAccount(""); }, [&] { Control().SetMonth(""); },
                                             [&] { Control().SetSeries(""); }, [&] { Control().SetExchange(""); }};
    for (const auto& Remove : Missing) {
        Control().SetAccount("A100");
        Remove();
        Host.MessageBox.Messages.clear();
        Load();
        ASSERT_EQ(Host.MessageBox.Messages.size(), 1u);
        EXPECT_EQ(Host.MessageBox.Messages[0].Message, "choose first");
        EXPECT_EQ(Symbols(), (std::vector<Text>{"HSIC100", ""}));
        EXPECT_EQ(Host.Journal.Count("Positions.GetPositionList(A100)"), 0);
    }
    Context.FMyDataControl.reset();
    Host.MessageBox.Messages.clear();
    Load();
    EXPECT_TRUE(Host.MessageBox.Messages.empty());
}

TEST_F(PositionLoader, WithoutPositionsOneEmptyInputRowIsLeft) {
    AddLeg("HSIC100", "Buy", 5.0, 1);
    Grid.FirstInputRow = 1;
    Load();
    EXPECT_EQ(Symbols(), std::vector<Text>{""});
    EXPECT_EQ(Grid.FirstInputRow, 0);
}

TEST_F(PositionLoader, FlatAndForeignPositionsStayOut) {
    Host.Subscriptions.AddOption("DEFC10", 10, "C");
    Host.Subscriptions.AddOption("HSJC100", 100, "C");
    Hold("HSIC100", 1e-7);
    Hold("HSIP120", 1.1e-7);
    Hold("DEFC10", 4);
    Hold("HSJC100", 4);
    Host.Positions.Add("A200", "HSIC110", 9, 5, &Host.Subscriptions.Item("HSIC110"));
    Load();
    EXPECT_EQ(Symbols(), (std::vector<Text>{"HSIP120", ""}));
}

TEST_F(PositionLoader, TheSideFollowsItsKind) {
    struct TCase {
        int Kind;
        double Qty;
        Variant Side;
    };
    const TCase Cases[] = {{0, 5, "Buy"}, {0, -5, "Sell"}, {1, -5, "Buy"}, {2, 5, "Sell"}, {3, 5, {}}, {-1, -5, {}}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Kind);
        auto& Position = Hold("HSIC110", Case.Qty);
        Position.SideKind = Case.Kind;
        Load();
        EXPECT_EQ(Grid.GetCell(0, kColSide), Case.Side);
        EXPECT_EQ(Grid.GetCell(0, kColQty), Variant(5.0));
    }
}

TEST_F(PositionLoader, AFutureHasNoStrikeAndNoCallPut) {
    Hold("HSIZ6", 2, 26000);
    Load();
    EXPECT_TRUE(Grid.GetCell(0, kColStrike).IsNull());
    EXPECT_EQ(Grid.GetCell(0, kColCallPut), Variant(""));
    EXPECT_EQ(Grid.GetCell(0, kColPremium), Variant(26000.0));
}

TEST_F(PositionLoader, TheAveragePriceFollowsTheModeAndIsShownInDisplayUnits) {
    auto& Position = Hold("HSIC110", 3, 1.0);
    Position.AvgPriceMode1 = 2.0;
    Position.AvgPriceMode2 = 3.0;
    const std::pair<int, double> Modes[] = {{0, 1.0}, {1, 2.0}, {2, 3.0}, {3, 1.0}, {-1, 1.0}};
    for (const auto& [Mode, Price] : Modes) {
        Config.FAvgPriceMode = Mode;
        Load();
        EXPECT_EQ(Grid.GetCell(0, kColPremium), Variant(Price)) << Mode;
    }
    Host.Subscriptions.Item("HSIC110").Set(kFieldDisplayFactor, 100.0);
    Load();
    EXPECT_EQ(Grid.GetCell(0, kColPremium), Variant(100.0));
}

TEST_F(PositionLoader, OnlyWhatNobodyAskedForYetIsSubscribed) {
    Host.Subscriptions.Item("HSIC110").State = kItemUnknown;
    Host.Subscriptions.Item("HSIP120").State = kItemNoData;
    Hold("HSIC110", 1);
    Hold("HSIP120", 1);
    Hold("HSIC100", 1);
    Load();
    EXPECT_EQ(Host.Subscriptions.Subscribed(), std::vector<Text>{"HSIC110"});
    EXPECT_EQ(Symbols(), (std::vector<Text>{"HSIC100", "HSIC110", "HSIP120", ""}))
        << "their product records place them all the same";
    Host.Subscriptions.Item("NEWC100");
    Hold("NEWC100", 1);
    Load();
    EXPECT_EQ(Symbols(), (std::vector<Text>{"HSIC100", "HSIC110", "HSIP120", ""})) << "nobody can place it yet";
    EXPECT_EQ(Host.Subscriptions.Subscribed(), (std::vector<Text>{"HSIC110", "NEWC100"}));
}

TEST_F(PositionLoader, APositionWithAMalformedExpiryLeavesAnEmptyGridAndALogEntry) {
    Host.Market.AddProduct("HKFE", "HSI", "HSIBAD", kProductOption, "30.12.2026", "100", "C");
    Hold("HSIC110", 1);
    Hold("HSIBAD", 1);
    AddLeg("HSIC100", "Buy", 5.0, 1);
    Load();
    EXPECT_EQ(Symbols(), std::vector<Text>{""});
    EXPECT_EQ(Grid.FirstInputRow, 0);
    EXPECT_TRUE(Host.MessageBox.Messages.empty());
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
}

TEST_F(PositionLoader, LegsOfTheLastCalculationStay) {
    AddLeg("HSIC100", "Buy", 5.0, 1);
    Calculate(90, 110, 5);
    Hold("HSIC110", 1);
    Load();
    EXPECT_EQ(Control().GetPayOffData().size(), 1u);
    AddLeg("HSIC100", "Buy", 5.0, 1);
}

}  // namespace
}  // namespace ventiq
