// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/BatchReview.h"

#include <gtest/gtest.h>

#include "framework/base/Clock.h"
#include "framework/data/ColumnIds.h"
#include "tests/trading/FakeFacts.h"

namespace ws {

using test::IndexOption;

namespace {

// A batch table and the orders behind it: line id = row + 1.
class TTable : public fw::TCustomDataControl {
public:
    std::vector<std::unique_ptr<fw::TCustomClientOrder>> Orders;
    std::map<int, std::string> OrderTexts;  // other answers for column 5
    double ShownQty = -1;                   // another answer for every quantity
    std::string ShownAccount;               // and for every account

    int32_t GetCount() override { return static_cast<int32_t>(Orders.size()); }
    fw::Variant GetValue(int32_t Row, int32_t Attribute) override {
        const auto& Order = *Orders[static_cast<size_t>(Row)];
        if (Attribute == fw::kColumnSymbol) return Order.GetSymbol();
        if (Attribute == fw::kColumnPrice) return Order.GetPrice();
        if (Attribute == fw::kColumnQuantity) return ShownQty < 0 ? Order.GetQty() : ShownQty;
        if (Attribute == 10) return ShownAccount.empty() ? Order.GetAccount() : ShownAccount;
        if (Attribute != 5) return "";
        return OrderTexts.count(Row) ? OrderTexts[Row] : std::to_string(Row + 1);
    }
};

class BatchReview : public testing::Test {
protected:
    BatchReview() {
        fw::TClock::Fix(fw::TClock::TTimePoint(std::chrono::seconds(1'000'000)));
        for (const char* Symbol : {"C1", "C2", "P1"}) Facts.Contracts[Symbol] = IndexOption();
    }
    ~BatchReview() override { fw::TClock::Fix({}); }

    fw::TCustomClientOrder& Add(const std::string& Symbol, int Side, double Qty, double Price = 100) {
        auto Order = std::make_unique<fw::TCustomClientOrder>();
        Order->SetAccount("A100");
        Order->SetSymbol(Symbol);
        Order->SetSide(Side);
        Order->SetQty(Qty);
        Order->SetPrice(Price);
        Order->SetLineId(static_cast<int64_t>(Table.Orders.size()) + 1);
        Table.Orders.push_back(std::move(Order));
        return *Table.Orders.back();
    }
    TBatchReview Review(std::optional<TSentBatch> LastSent = {}) {
        return TBatchReview(
            Table,
            [this](int64_t Id) -> const fw::TCustomClientOrder* {
                return Id <= static_cast<int64_t>(Table.Orders.size()) ? Table.Orders[static_cast<size_t>(Id - 1)].get()
                                                                       : nullptr;
            },
            Facts, std::move(LastSent));
    }
    static std::string Ticks(const TBatchReview& Of) {
        std::string Result;
        for (const auto& Row : Of.Rows()) Result += Row.Blocked ? '#' : Row.Ticked ? 'x' : '-';
        return Result;
    }
    static std::vector<ERule> Rules(const TReviewRow& Row) {
        std::vector<ERule> Result;
        for (const auto& Each : Row.Findings) Result.push_back(Each.Rule);
        return Result;
    }

    fw::TScopedService<fw::TCustomFormatter> Formatter{std::make_unique<test::TPlainFormatter>()};
    test::TFakeFacts Facts;
    TTable Table;
};

}  // namespace

TEST_F(BatchReview, PlainRowsStartTickedWithoutWarning) {
    Add("C1", 0, 2);
    Add("P1", 1, 3);
    const auto R = Review();
    EXPECT_EQ(Ticks(R), "xx");
    EXPECT_TRUE(R.CanSend());
    EXPECT_FALSE(R.HasWarning());
    EXPECT_EQ(R.RemarkOf(1), std::nullopt);
    EXPECT_EQ(R.Symbols(), (std::set<std::string>{"C1", "P1"}));
}

TEST_F(BatchReview, AnEmptyBatchCannotBeSent) {
    const auto R = Review();
    EXPECT_FALSE(R.CanSend());
    EXPECT_FALSE(R.HasWarning());
    EXPECT_EQ(R.Totals().Rows, 0);
}

TEST_F(BatchReview, LoadedRowsStartUntickedAndBlockedRowsCannotBeTicked) {
    Facts.Positions["A100"] = {{"C1", 2}, {"P1", -3}};
    Add("C1", 0, 2);         // what is held
    Add("P1", 1, 3);         // what is held, short
    Add("P1", 0, 3);         // the other side of it
    Add("C2", 0, 1, 100.5);  // off the steps
    auto R = Review();
    EXPECT_EQ(Ticks(R), "--x#");
    R.SetTicked({0, 3}, true);
    EXPECT_EQ(Ticks(R), "x-x#");
    R.SetTicked({0, 2}, false);
    EXPECT_FALSE(R.CanSend());
    EXPECT_EQ(R.RemarkOf(4)->Key, "Res_BlockStep");
    R.SetTicked({-1, 4}, true);
    EXPECT_EQ(Ticks(R), "---#") << "rows that do not exist";
}

TEST_F(BatchReview, WhatIsTickedAboveCountsForTheRowsBelow) {
    Facts.Positions["A100"] = {{"C1", 5}};
    for (int i = 0; i < 2; ++i) Add("C1", 1, 3).SetOpenClose(2);
    Add("C1", 1, 1).SetAccount("H001");
    auto R = Review();
    EXPECT_EQ(Rules(R.Rows()[0]), (std::vector{ERule::OppositeToHeld, ERule::PositionAfter}));
    // 5 - 3 = 2 are left to close.
    EXPECT_EQ(Rules(R.Rows()[1]), (std::vector{ERule::ClosesTooMuch, ERule::OppositeToHeld, ERule::PositionAfter}));
    EXPECT_EQ(R.Rows()[1].Findings.back().Reason, (TReason{"Res_WarnAfter", {"+5", "-1"}}));
    EXPECT_TRUE(R.Rows()[2].Findings.empty()) << "another account";
    R.SetTicked({0}, false);
    EXPECT_EQ(Rules(R.Rows()[1]), (std::vector{ERule::OppositeToHeld, ERule::PositionAfter}));
    EXPECT_EQ(R.Rows()[1].Findings.back().Reason, (TReason{"Res_WarnAfter", {"+5", "+2"}}));
}

TEST_F(BatchReview, TotalsCountTickedRowsOnly) {
    Facts.Contracts["FUT"] = IndexOption();
    Facts.Contracts["FUT"].ProductType = 2;
    Facts.Contracts["USD"] = IndexOption();
    Facts.Contracts["USD"].Currency = "USD";
    Facts.Contracts["USD"].Multiplier = 100;
    Facts.Contracts["NOM"] = IndexOption();
    Facts.Contracts["NOM"].Multiplier.reset();
    Add("C1", 0, 2, 100);   // pays 2 * 100 * 50 = 10,000
    Add("P1", 1, 3, 90);    // receives 3 * 90 * 50 = 13,500
    Add("FUT", 0, 4, 100);  // a future has no premium
    Add("USD", 0, 1, 99);   // pays 1 * 99 * 100 = 9,900
    Add("NOM", 1, 7, 100);
    Add("C2", 0, 9, 100);
    auto R = Review();
    R.SetTicked({5}, false);
    const auto Totals = R.Totals();
    EXPECT_EQ(Totals.Rows, 6);
    EXPECT_EQ(Totals.Ticked, 5);
    EXPECT_EQ(Totals.BuyQty, 2 + 4 + 1);
    EXPECT_EQ(Totals.SellQty, 3 + 7);
    EXPECT_EQ(Totals.NetPremium, (std::map<std::string, double>{{"HKD", 3'500}, {"USD", -9'900}}));
    EXPECT_EQ(Totals.WithoutPremium, 1);
}

TEST_F(BatchReview, LateMarketDataKeepTheTicksAndUntickWhatTheyBlock) {
    Add("C1", 0, 2);
    Add("C2", 0, 2);
    Add("P1", 0, 2);
    auto R = Review();
    R.SetTicked({1}, false);
    Facts.Contracts["C1"].LastPrice = 200;  // 100 is 50 % away from it
    Facts.Contracts["P1"].Expired = true;
    R.Judge();
    EXPECT_EQ(Ticks(R), "x-#");
    EXPECT_EQ(Rules(R.Rows()[0]), std::vector{ERule::FarInPercent});
    EXPECT_TRUE(R.Rows()[2].UntickedByMarket);
    EXPECT_FALSE(R.Rows()[0].UntickedByMarket);
    EXPECT_TRUE(R.HasWarning());
    Facts.Contracts["P1"].Expired = false;
    R.Judge();
    EXPECT_EQ(Ticks(R), "x--") << "it does not come back by itself";
    R.SetTicked({2}, true);
    EXPECT_FALSE(R.Rows()[2].UntickedByMarket);
}

TEST_F(BatchReview, AWarningOfARowThatIsLeftOutDoesNotStand) {
    Facts.Positions["A100"] = {{"C1", 2}};
    Add("C1", 0, 2);
    Add("P1", 0, 2);
    auto R = Review();
    EXPECT_EQ(Ticks(R), "-x");
    EXPECT_FALSE(R.HasWarning());
    R.SetTicked({0}, true);
    EXPECT_TRUE(R.HasWarning());
}

TEST_F(BatchReview, ABatchEqualToTheLastOneIsTold) {
    Add("C1", 0, 2);
    Add("P1", 1, 3);
    const int64_t Now = 1'000'000'000;
    TSentBatch Last{{TicketOf(*Table.Orders[0]), TicketOf(*Table.Orders[1])}, Now - 12'000};
    Last.Orders[0].Place = 1;
    Last.Orders[0].BatchId = "b";
    auto R = Review(Last);
    EXPECT_EQ(R.BatchWarning(), (TReason{"Res_WarnSameBatch", {"12"}}));
    EXPECT_TRUE(R.HasWarning());
    R.SetTicked({1}, false);
    EXPECT_EQ(R.BatchWarning(), std::nullopt) << "fewer orders";
    R.SetTicked({1}, true);
    fw::TClock::Fix(fw::TClock::TTimePoint(std::chrono::seconds(1'000'000 + 108)));
    EXPECT_NE(R.BatchWarning(), std::nullopt) << "120 s";
    fw::TClock::Fix(fw::TClock::TTimePoint(std::chrono::seconds(1'000'000 + 109)));
    EXPECT_EQ(R.BatchWarning(), std::nullopt) << "121 s";
    fw::TClock::Fix(fw::TClock::TTimePoint(std::chrono::seconds(1'000'000)));
    Table.Orders[1]->SetQty(4);
    EXPECT_EQ(Review(Last).BatchWarning(), std::nullopt) << "another quantity";
    Last.Orders.pop_back();
    EXPECT_EQ(Review(Last).BatchWarning(), std::nullopt) << "more orders";
    EXPECT_EQ(Review(TSentBatch{}).BatchWarning(), std::nullopt);
}

// What cannot be traced to exactly one order that says what the row shows is not sent.
TEST_F(BatchReview, RowsWithoutAnOrderOfTheirOwnAreBlocked) {
    Add("C1", 0, 2);
    Add("C1", 0, 2);
    Add("P1", 0, 2);
    Add("P1", 0, 2);
    Table.OrderTexts = {{1, "1"}, {2, "HKFE HSI"}, {3, "77"}};
    auto R = Review();
    EXPECT_EQ(Ticks(R), "x###");
    EXPECT_EQ(R.Rows()[1].Findings.front().Reason.Key, "Res_BlockUnknownRow");
    Table.ShownQty = 1;
    EXPECT_EQ(Ticks(Review()), "####") << "the row shows another quantity than the order has";
    Table.ShownQty = -1;
    Table.ShownAccount = "H001";
    EXPECT_EQ(Ticks(Review()), "####") << "or another account";
}

TEST_F(BatchReview, AThousandRowsOfOneContractAskForItOnce) {
    for (int i = 0; i < 1000; ++i) Add("C1", i % 2, 1);
    auto R = Review();
    EXPECT_EQ(Facts.Asked, 1);
    EXPECT_EQ(R.Totals().Ticked, 1000);
    EXPECT_EQ(R.Totals().BuyQty, 500);
}

}  // namespace ws
