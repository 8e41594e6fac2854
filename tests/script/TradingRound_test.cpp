// SPDX-License-Identifier: GPL-3.0-or-later
// A trader's round: load what is held, add a leg, submit, see it filled, load again.
#include "framework/base/Const.h"
#include "framework/data/ColumnIds.h"
#include "framework/trading/OrderTakeActionRecord.h"
#include "tests/script/TraderFixture.h"
#include "workstation/trading/BatchReview.h"

namespace ws {
namespace {

// Stands for the confirmation's window: judges the batch as it does and answers with the ticks as they stand.
class TTradingRound : public TTraderFixture {
protected:
    fw::TObject Trader;
    std::vector<TReviewRow> Shown;
    bool Answer = true;

    void ListenForBatches() {
        fw::TCustomGlobalChannelManager::GetInstance().Subscribe(
            fw::kChannelBatchConfirm,
            [this](fw::TObject*, fw::TObject* Data) {
                auto& Request = dynamic_cast<fw::TOrderTakeActionRecord&>(*Data);
                const std::unique_ptr<fw::TCustomDataControl> Table(Request.DataControl);
                const TBatchReview Review(
                    *Table, [this](int64_t LineId) { return Station->OrderService().FindOrder(LineId); },
                    Station->OrderFacts(), Station->OrderActions().LastSent());
                Shown = Review.Rows();
                Request.Result = Answer && Review.CanSend();
                Station->OrderActions().Confirmed(Request.Result ? Shown : std::vector<TReviewRow>());
            },
            &Trader);
    }
    void StopListening() {
        fw::TCustomGlobalChannelManager::GetInstance().Unsubscribe(fw::kChannelBatchConfirm, &Trader);
    }
    std::vector<fw::Text> Symbols() {
        std::vector<fw::Text> Result;
        for (int Row = 0; Row < Rows(); ++Row) Result.push_back(CellOf(Row, ventiq::kColSymbol).AsText());
        return Result;
    }
    int RowOf(const fw::Text& Symbol) {
        const auto All = Symbols();
        return static_cast<int>(std::find(All.begin(), All.end(), Symbol) - All.begin());
    }
};

TEST_F(TTradingRound, WhatIsLoadedAfterAFillIsWhatArithmeticSays) {
    OpenView("trader");
    ListenForBatches();
    ASSERT_TRUE(Choose("HKFE", "HSI", "2026-12"));
    ASSERT_TRUE(Play(TStep::Click("btnLoad")));
    const std::vector<fw::Text> Held{"HSI26000X6", "HSI27000L6", "HSI28000L6", "HSIZ6", ""};
    ASSERT_EQ(Symbols(), Held);
    EXPECT_FALSE(Type(0, ventiq::kColQty, "7")) << "a loaded row is not edited";

    // Two more of the call at 28000, at a limit far above its price of about 160.
    Run(5);
    ASSERT_TRUE(Type(4, ventiq::kColSymbol, "hsi28000l6"));
    ASSERT_TRUE(Type(4, ventiq::kColPremium, "400"));
    ASSERT_TRUE(Type(4, ventiq::kColQty, "2"));
    ASSERT_TRUE(Play(TStep::Click("btnSubmit")));
    ASSERT_EQ(Shown.size(), 5u) << "loaded rows are offered, too";
    for (size_t Row = 0; Row < 4; ++Row) EXPECT_FALSE(Shown[Row].Ticked) << "as held: " << Shown[Row].Order.Symbol;
    EXPECT_TRUE(Shown[4].Ticked);

    Run(30);
    ASSERT_EQ(Station->Orders().Orders().size(), 1u) << "one order was ticked, one order was sent";
    const TOrderRow Order = Station->Orders().Orders().front();
    ASSERT_EQ(Order.State, EOrderState::Filled) << Order.Reason.Key;
    EXPECT_EQ(Order.FilledQty, 2);
    EXPECT_GT(Order.AvgFillPrice, 100);
    EXPECT_LT(Order.AvgFillPrice, 250) << "at the market, not at the limit";

    ASSERT_TRUE(Play(TStep::Click("btnLoad")));
    ASSERT_EQ(Symbols(), Held);
    // Held before: 3 at 118. With 2 at F it is 5 at (3 * 118 + 2 * F) / 5; at F = 163: (354 + 326) / 5 = 136.
    const double Average = (3 * 118 + 2 * Order.AvgFillPrice) / 5;
    EXPECT_EQ(CellOf(RowOf("HSI28000L6"), ventiq::kColQty), fw::Variant(5.0));
    EXPECT_DOUBLE_EQ(CellOf(RowOf("HSI28000L6"), ventiq::kColPremium).AsFloat(0), Average);
    EXPECT_EQ(CellOf(RowOf("HSI27000L6"), ventiq::kColQty), fw::Variant(3.0));
    EXPECT_EQ(CellOf(RowOf("HSI27000L6"), ventiq::kColSide), fw::Variant(Res("Res_Side_Sell")));

    // At 24000, 50 a point: the put at 26000 is worth 2000, both calls nothing, the future lost 2310.
    //   3 * (2000 - 318) + 3 * 352 - 5 * Average + 2 * (24000 - 26310) = 5046 + 1056 - 4620 - 5 * Average
    //   at an average of 136: (1482 - 680) * 50 = 40100
    ASSERT_TRUE(Play(TStep::EnterNumber("edtDown", 24000)));
    ASSERT_TRUE(Play(TStep::EnterNumber("edtUp", 30000)));
    ASSERT_TRUE(Play(TStep::EnterNumber("edtInterval", 1000)));
    ASSERT_TRUE(Play(TStep::Click("btnCalc")));
    auto& Table = *Frame().FindControl<fw::TGridTableView>("DetailGridView")->GetDataControl();
    ASSERT_EQ(Table.GetCount(), 7);
    EXPECT_NEAR(Table.GetValue(0, fw::kColumnProfitLoss).AsFloat(0), (1482 - 5 * Average) * 50, 1e-6);
    // At 30000: 3 * -318 - 3 * (3000 - 352) + 5 * (2000 - Average) + 2 * (30000 - 26310)
    //   = -954 - 7944 + 10000 + 7380 - 5 * Average = 8482 - 5 * Average
    EXPECT_NEAR(Table.GetValue(6, fw::kColumnProfitLoss).AsFloat(0), (8482 - 5 * Average) * 50, 1e-6);
    StopListening();
}

TEST_F(TTradingRound, ACancelledBatchLeavesNothingBehind) {
    OpenView("trader");
    ListenForBatches();
    Answer = false;
    ASSERT_TRUE(Choose("HKFE", "HSI", "2026-12"));
    Run(5);
    ASSERT_TRUE(Type(0, ventiq::kColSymbol, "HSI28000L6"));
    Run(5);  // its data come
    const auto Before = Cells();
    ASSERT_TRUE(Play(TStep::Click("btnSubmit")));
    EXPECT_EQ(Shown.size(), 1u);
    Run(10);
    EXPECT_TRUE(Station->Orders().Orders().empty());
    EXPECT_EQ(Cells(), Before);
    StopListening();
}

}  // namespace
}  // namespace ws
