// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/PaperExchange.h"

#include <gtest/gtest.h>

#include <map>

#include "framework/base/Numbers.h"

namespace ws {
namespace {

// Everything that the exchange told, as text, and the market that it trades on.
class TPaperExchangeTest : public testing::Test, public IOrderEvents {
protected:
    std::map<std::string, TPaperContract> Contracts;
    std::map<std::string, TQuoteRow> Quotes;
    std::vector<std::function<void()>> Posted;
    std::map<std::string, std::vector<std::string>> Told;  // by order id
    std::map<std::string, double> Filled;
    std::unique_ptr<TPaperExchange> Exchange;

    TPaperExchangeTest() {
        Quote("X", 99, 101);
        Open({.Seed = 1, .RejectOneIn = 0});
    }
    void Open(TPaperRules Rules) {
        Posted.clear();
        Exchange = std::make_unique<TPaperExchange>(
            [this](const std::string& Symbol) -> std::optional<TPaperContract> {
                const auto It = Contracts.find(Symbol);
                return It == Contracts.end() ? std::nullopt : std::optional(It->second);
            },
            [this](std::function<void()> Task) { Posted.push_back(std::move(Task)); }, Rules);
        Exchange->SetEvents(this);
    }
    void Quote(const std::string& Symbol, std::optional<double> Bid, std::optional<double> Ask) {
        auto& Row = Quotes[Symbol];
        Row.Symbol = Symbol;
        Row.Bid = Bid;
        Row.Ask = Ask;
        Row.Time = "2026/11/21 09:30:00";
        Contracts[Symbol].Quote = &Row;
    }
    void Send(const std::string& Id, int Side, double Price, double Qty = 1, const std::string& Symbol = "X") {
        TOrderRow Row;
        Row.Id = Id;
        Row.Symbol = Symbol;
        Row.Side = Side;
        Row.Price = Price;
        Row.Qty = Qty;
        Exchange->Send(Row);
    }
    void Run(int Ticks = 100) {
        for (int i = 0; i < Ticks; ++i) {
            Exchange->Tick();
            for (auto& Task : std::exchange(Posted, {})) Task();
        }
    }
    using TLines = std::vector<std::string>;

    void OrderAccepted(const std::string& Id) override { Told[Id].push_back("accepted"); }
    void OrderRejected(const std::string& Id, const TReason& Reason) override { Told[Id].push_back(Reason.Key); }
    void OrderCancelled(const std::string& Id) override { Told[Id].push_back("cancelled"); }
    void OrderFilled(const std::string& Id, const std::string& Execution, double Qty, double Price) override {
        Told[Id].push_back(Execution + " " + fw::FloatToShortestText(Qty) + "@" + fw::FloatToShortestText(Price));
        Filled[Id] += Qty;
    }
};

TEST_F(TPaperExchangeTest, FillsAtTheQuoteWhereTheLimitAllows) {
    const struct {
        const char* Id;
        int Side;
        double Price;
        TLines Expected;
    } Cases[] = {
        {"buy at the ask", 0, 101, {"accepted", "buy at the ask/1 1@101"}},
        {"buy above the ask", 0, 120, {"accepted", "buy above the ask/1 1@101"}},
        {"buy below the ask", 0, 100.5, {"accepted"}},
        {"buy at 0", 0, 0, {"accepted"}},
        {"sell at the bid", 1, 99, {"accepted", "sell at the bid/1 1@99"}},
        {"sell below the bid", 1, 50, {"accepted", "sell below the bid/1 1@99"}},
        {"sell above the bid", 1, 99.5, {"accepted"}},
        {"sell at 0", 1, 0, {"accepted", "sell at 0/1 1@99"}},
    };
    for (const auto& Case : Cases) Send(Case.Id, Case.Side, Case.Price);
    Run();
    for (const auto& Case : Cases) EXPECT_EQ(Told[Case.Id], Case.Expected) << Case.Id;
}

TEST_F(TPaperExchangeTest, AWaitingOrderFillsWhenTheQuoteComes) {
    Send("A", 0, 100);
    Run();
    EXPECT_EQ(Told["A"], TLines{"accepted"});
    Quote("X", 97, 98);
    Run();
    EXPECT_EQ(Told["A"], (TLines{"accepted", "A/1 1@98"}));
}

TEST_F(TPaperExchangeTest, WithoutDataAnOrderWaits) {
    Contracts["SILENT"] = {};
    Quote("EMPTY", 1, 2);
    Quotes["EMPTY"].Time.clear();
    Quote("NOASK", 1, std::nullopt);
    for (const char* Symbol : {"SILENT", "EMPTY", "NOASK"}) Send(Symbol, 0, 1000, 1, Symbol);
    Run();
    for (const char* Symbol : {"SILENT", "EMPTY", "NOASK"}) EXPECT_EQ(Told[Symbol], TLines{"accepted"}) << Symbol;
}

TEST_F(TPaperExchangeTest, NothingIsToldFromInsideSendOrCancel) {
    Send("A", 0, 200);
    Exchange->Cancel("A");
    Exchange->Cancel("nobody's");
    EXPECT_TRUE(Told.empty());
    Exchange->Tick();
    EXPECT_TRUE(Told.empty());
}

TEST_F(TPaperExchangeTest, UnlistedAndExpiredAreRefused) {
    Quote("OLD", 1, 2);
    Contracts["OLD"].Expired = true;
    Send("A", 0, 100, 1, "NONE");
    Send("B", 0, 100, 1, "OLD");
    Run();
    EXPECT_EQ(Told["A"], TLines{"Res_PaperNotListed"});
    EXPECT_EQ(Told["B"], TLines{"Res_PaperExpired"});
}

TEST_F(TPaperExchangeTest, AWaitingOrderEndsWithItsContract) {
    Send("A", 0, 1);
    Quote("Y", 99, 101);
    Send("B", 0, 1, 1, "Y");
    Run();
    Contracts["X"].Expired = true;
    Contracts.erase("Y");
    Run();
    EXPECT_EQ(Told["A"], (TLines{"accepted", "cancelled"}));
    EXPECT_EQ(Told["B"], (TLines{"accepted", "cancelled"}));
}

TEST_F(TPaperExchangeTest, CancelEndsAWaitingOrderOnce) {
    Send("A", 0, 1);
    Exchange->Cancel("A");  // before it is accepted
    Run();
    EXPECT_EQ(Told["A"], (TLines{"accepted", "cancelled"}));
    Exchange->Cancel("A");
    Run();
    EXPECT_EQ(Told["A"].size(), 2u);
}

TEST_F(TPaperExchangeTest, CancelOfAnOrderOfAnEarlierRunIsAnswered) {
    Exchange->Cancel("old");
    Run();
    EXPECT_EQ(Told["old"], TLines{"Res_PaperUnknown"});
}

TEST_F(TPaperExchangeTest, TheSameOrderTwiceIsOne) {
    Send("A", 0, 200);
    Send("A", 0, 200);
    Run();
    Send("A", 0, 200);
    Run();
    EXPECT_EQ(Told["A"], (TLines{"accepted", "A/1 1@101"}));
}

// Over many orders: each fills to its quantity and not beyond, in multiples of the lot, many in parts, and some cancels
// lose against a fill.
TEST_F(TPaperExchangeTest, PartsAddUpToTheOrder) {
    Contracts["X"].Lot = 5;
    int InParts = 0, Raced = 0;
    for (int i = 0; i < 200; ++i) {
        const std::string Id = "F" + std::to_string(i);
        Send(Id, i % 2, i % 2 ? 0 : 500, 50);
    }
    for (int i = 0; i < 200; ++i) Send("C" + std::to_string(i), 0, 500, 50);
    Run(3);
    for (int i = 0; i < 200; ++i) Exchange->Cancel("C" + std::to_string(i));
    Run(400);
    for (int i = 0; i < 200; ++i) {
        const std::string Id = "F" + std::to_string(i), Cancelled = "C" + std::to_string(i);
        EXPECT_EQ(Filled[Id], 50) << Id;
        if (Told[Id].size() > 2) ++InParts;
        EXPECT_LE(Filled[Cancelled], 50);
        EXPECT_EQ(Filled[Cancelled] < 50, Told[Cancelled].back() == "cancelled") << Cancelled;
        if (Filled[Cancelled] > 0 && Filled[Cancelled] < 50) ++Raced;
        EXPECT_EQ(std::fmod(Filled[Cancelled], 5), 0);
    }
    EXPECT_GT(InParts, 20);
    EXPECT_LT(InParts, 180);
    EXPECT_GT(Raced, 0);
}

TEST_F(TPaperExchangeTest, RefusesNowAndThen) {
    Open({.Seed = 3, .RejectOneIn = 10});
    for (int i = 0; i < 1000; ++i) Send(std::to_string(i), 0, 1);
    Run();
    int Refused = 0;
    for (const auto& [Id, Lines] : Told) Refused += Lines == TLines{"Res_PaperRefused"} ? 1 : 0;
    EXPECT_EQ(Told.size(), 1000u);
    EXPECT_GT(Refused, 50);
    EXPECT_LT(Refused, 200);
}

TEST_F(TPaperExchangeTest, TheSameSeedAndStepsTellTheSame) {
    const auto Play = [this](std::uint64_t Seed) {
        Told.clear();
        Open({.Seed = Seed, .RejectOneIn = 5});
        for (int i = 0; i < 60; ++i) {
            Send(std::to_string(i), i % 2, i % 3 ? (i % 2 ? 0 : 500) : 100, 1 + i);
            if (i % 7 == 0) Exchange->Cancel(std::to_string(i / 2));
            Run(3);
        }
        Run();
        return Told;
    };
    const auto First = Play(11);
    EXPECT_EQ(Play(11), First);
    EXPECT_NE(Play(12), First);
}

}  // namespace
}  // namespace ws
