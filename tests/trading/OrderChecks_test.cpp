// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/OrderChecks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "framework/base/Log.h"
#include "tests/trading/FakeFacts.h"

namespace ws {

using test::IndexOption;
using test::Ticket;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Buy 2 at the last price, an order about which there is nothing to say; each case changes one thing.
struct TSetting {
    TOrderTicket Order = Ticket("HSI26400L6", 0, 2, 100);
    TContractFacts Contract = IndexOption();
    TTraderFacts Trader{{"A100"}, {"OEOpenC", "OEPrin"}};
    TTradingLimits Limits;
    double Held = 0, Before = 0;
    test::TPlainFormatter Formatter;

    void Hold(double Qty) { Held = Before = Qty; }
    TOrderCase Case() { return {Order, Contract, Trader, Limits, Held, Before, Formatter}; }
};
using TChange = std::function<void(TSetting&)>;

}  // namespace

TEST(OrderChecks, NothingIsSaidOfAPlainOrder) {
    TSetting Setting;
    EXPECT_EQ(FindRefusal(Setting.Case()), std::nullopt);
    EXPECT_TRUE(JudgeOrder(Setting.Case()).empty());
}

TEST(OrderChecks, WhatNoTraderCanMeanIsRefused) {
    const struct {
        const char* Why;
        TChange Change;
        ERule Rule;
        TReason Reason;
    } Cases[] = {
        {"another's account",
         [](TSetting& S) { S.Order.Account = "B1"; },
         ERule::AccountKnown,
         {"Res_RefuseAccount", {"B1"}}},
        {"no account", [](TSetting& S) { S.Order.Account = ""; }, ERule::AccountKnown, {"Res_RefuseAccount", {""}}},
        {"not listed", [](TSetting& S) { S.Contract = {}; }, ERule::SymbolListed, {"Res_RefuseSymbol", {"HSI26400L6"}}},
        {"exchange closed to the account",
         [](TSetting& S) { S.Limits.ExchangesOfAccount["A100"] = {"SEHK"}; },
         ERule::AccountOnExchange,
         {"Res_RefuseExchange", {"A100", "HKFE"}}},
        {"quantity 0", [](TSetting& S) { S.Order.Qty = 0; }, ERule::QtyAboveZero, {"Res_RefuseQty", {"0"}}},
        {"quantity below 0", [](TSetting& S) { S.Order.Qty = -3; }, ERule::QtyAboveZero, {"Res_RefuseQty", {"-3"}}},
        {"quantity endless",
         [](TSetting& S) { S.Order.Qty = kInfinity; },
         ERule::QtyAboveZero,
         {"Res_RefuseQty", {"inf"}}},
        {"quantity no number",
         [](TSetting& S) { S.Order.Qty = kNan; },
         ERule::QtyAboveZero,
         {"Res_RefuseQty", {"nan"}}},
        {"price no number",
         [](TSetting& S) { S.Order.Price = kNan; },
         ERule::PriceFinite,
         {"Res_RefusePrice", {"nan"}}},
        {"price endless",
         [](TSetting& S) { S.Order.Price = -kInfinity; },
         ERule::PriceFinite,
         {"Res_RefusePrice", {"-inf"}}},
        {"side -1", [](TSetting& S) { S.Order.Side = -1; }, ERule::SideKnown, {"Res_RefuseSide", {"-1"}}},
        {"side 2", [](TSetting& S) { S.Order.Side = 2; }, ERule::SideKnown, {"Res_RefuseSide", {"2"}}},
        {"the exchange knows no RT",
         [](TSetting& S) { S.Order.Principal = 13; },
         ERule::FlagOffered,
         {"Res_RefuseFlag", {"Res_Principal_RT", "HKFE"}}},
        {"a flag nobody knows",
         [](TSetting& S) { S.Order.OpenClose = 7; },
         ERule::FlagOffered,
         {"Res_RefuseFlag", {"7", "HKFE"}}},
        {"no right to open/close",
         [](TSetting& S) { S.Order.OpenClose = 1, S.Trader.Rights = {"OEPrin"}; },
         ERule::FlagRight,
         {"Res_RefuseRight", {"Res_OrderOpen"}}},
        {"no right to the principal",
         [](TSetting& S) { S.Order.Principal = 12, S.Trader.Rights = {"OEOpenC"}; },
         ERule::FlagRight,
         {"Res_RefuseRight", {"Res_Principal_H"}}},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        TSetting Setting;
        Case.Change(Setting);
        const TFinding Expected{Case.Rule, EStrength::Refuse, Case.Reason};
        EXPECT_EQ(FindRefusal(Setting.Case()), Expected);
        EXPECT_EQ(JudgeOrder(Setting.Case()), std::vector{Expected}) << "a refusal stands alone";
    }
}

TEST(OrderChecks, WhatALoadedRowMayBreakIsNotRefused) {
    TSetting Setting;
    Setting.Order = Ticket("HSI26400L6", 1, 1e18, 100.5);
    Setting.Order.OpenClose = 2;
    Setting.Contract.Expired = true;
    Setting.Contract.LastPrice.reset();
    EXPECT_EQ(FindRefusal(Setting.Case()), std::nullopt);
}

TEST(OrderChecks, AnAccountWithoutAListOfExchangesTradesEverywhere) {
    TSetting Setting;
    Setting.Limits.ExchangesOfAccount["OTHER"] = {"SEHK"};
    EXPECT_EQ(FindRefusal(Setting.Case()), std::nullopt);
    Setting.Limits.ExchangesOfAccount["A100"] = {"SEHK", "HKFE"};
    EXPECT_EQ(FindRefusal(Setting.Case()), std::nullopt);
}

TEST(OrderChecks, EachRuleOfTheConfirmationFindsItsCase) {
    const struct {
        const char* Why;
        TChange Change;
        std::vector<TFinding> Findings;
    } Cases[] = {
        {"expired",
         [](TSetting& S) { S.Contract.Expired = true; },
         {{ERule::Expired, EStrength::Block, {"Res_BlockExpired", {"2026/12/30"}}}}},
        {"between two steps",
         [](TSetting& S) { S.Order.Price = 100.5; },
         {{ERule::PriceStep, EStrength::Block, {"Res_BlockStep", {"100.5", "100", "101"}}}}},
        {"half a lot",
         [](TSetting& S) { S.Contract.LotSize = 4; },
         {{ERule::Lot, EStrength::Block, {"Res_BlockLot", {"2", "4"}}}}},
        // 10,001 contracts at 100 are 10,001 * 100 * 50 = 50,005,000.
        {"above both limits of quantity and the soft one of value",
         [](TSetting& S) { S.Order.Qty = 10'001; },
         {{ERule::HardQty, EStrength::Block, {"Res_BlockQty", {"10,001", "10,000"}}},
          {ERule::SoftQty, EStrength::Warn, {"Res_WarnQty", {"10,001", "500"}}},
          {ERule::SoftValue, EStrength::Warn, {"Res_WarnValue", {"HKD 50,005,000.00", "HKD 20,000,000.00"}}}}},
        {"above the hard limit of value",
         [](TSetting& S) { S.Limits.HardValue = 9'999, S.Limits.SoftValue = 0; },
         {{ERule::HardValue, EStrength::Block, {"Res_BlockValue", {"HKD 10,000.00", "HKD 9,999.00"}}}}},
        {"equal to what is held long",
         [](TSetting& S) { S.Hold(2); },
         {{ERule::EqualsHeld, EStrength::StartsUnticked, {"Res_UntickedHeld", {"+2"}}},
          {ERule::PositionAfter, EStrength::Warn, {"Res_WarnAfter", {"+2", "+4"}}}}},
        {"equal to what is held short",
         [](TSetting& S) { S.Order.Side = 1, S.Hold(-2); },
         {{ERule::EqualsHeld, EStrength::StartsUnticked, {"Res_UntickedHeld", {"-2"}}},
          {ERule::PositionAfter, EStrength::Warn, {"Res_WarnAfter", {"-2", "-4"}}}}},
        {"more of the same",
         [](TSetting& S) {
             S.Order.Qty = 5, S.Hold(5), S.Held = 6;
             S.Before = 6;
         },
         {{ERule::PositionAfter, EStrength::Warn, {"Res_WarnAfter", {"+6", "+11"}}}}},
        {"against what is held",
         [](TSetting& S) { S.Hold(-3); },
         {{ERule::OppositeToHeld, EStrength::Warn, {"Res_WarnOpposite", {"-3"}}},
          {ERule::PositionAfter, EStrength::Warn, {"Res_WarnAfter", {"-3", "-1"}}}}},
        {"closes all of it",
         [](TSetting& S) { S.Order.OpenClose = 2, S.Hold(-2); },
         {{ERule::OppositeToHeld, EStrength::Warn, {"Res_WarnOpposite", {"-2"}}},
          {ERule::PositionAfter, EStrength::Warn, {"Res_WarnAfter", {"-2", "0"}}}}},
        {"closes more than is held",
         [](TSetting& S) { S.Order.OpenClose = 2, S.Hold(-1); },
         {{ERule::ClosesTooMuch, EStrength::Warn, {"Res_WarnClose", {"2", "1"}}},
          {ERule::OppositeToHeld, EStrength::Warn, {"Res_WarnOpposite", {"-1"}}},
          {ERule::PositionAfter, EStrength::Warn, {"Res_WarnAfter", {"-1", "+1"}}}}},
        {"closes on the wrong side",
         [](TSetting& S) { S.Order.OpenClose = 2, S.Hold(5); },
         {{ERule::ClosesTooMuch, EStrength::Warn, {"Res_WarnClose", {"2", "0"}}},
          {ERule::PositionAfter, EStrength::Warn, {"Res_WarnAfter", {"+5", "+7"}}}}},
        {"closes what an earlier row has closed",
         [](TSetting& S) { S.Order.OpenClose = 2, S.Held = -2, S.Before = 0; },
         {{ERule::ClosesTooMuch, EStrength::Warn, {"Res_WarnClose", {"2", "0"}}},
          {ERule::PositionAfter, EStrength::Warn, {"Res_WarnAfter", {"-2", "+2"}}}}},
        {"price 0",
         [](TSetting& S) { S.Order.Price = 0; },
         {{ERule::PriceZero, EStrength::Warn, {"Res_WarnZero", {}}}}},
        {"21 % above the last price",
         [](TSetting& S) { S.Order.Price = 121; },
         {{ERule::FarInPercent, EStrength::Warn, {"Res_WarnFar", {"21", "100"}}}}},
        {"21 % below it",
         [](TSetting& S) { S.Order.Price = 79; },
         {{ERule::FarInPercent, EStrength::Warn, {"Res_WarnFar", {"21", "100"}}}}},
        {"31 steps from it",
         [](TSetting& S) { S.Limits.LastSteps = 30, S.Contract.LastPrice = 1000, S.Order.Price = 1031; },
         {{ERule::FarInSteps, EStrength::Warn, {"Res_WarnFarSteps", {"31", "1,000"}}}}},
        {"no price",
         [](TSetting& S) { S.Contract.LastPrice.reset(); },
         {{ERule::NoPrice, EStrength::Warn, {"Res_WarnNoPrice", {}}}}},
        {"an old price",
         [](TSetting& S) { S.Contract.Stale = true; },
         {{ERule::StalePrice, EStrength::Warn, {"Res_WarnStale", {"2026/12/01 10:00:00"}}}}},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        TSetting Setting;
        Case.Change(Setting);
        EXPECT_EQ(JudgeOrder(Setting.Case()), Case.Findings);
    }
}

TEST(OrderChecks, OnTheEdgeNothingIsSaid) {
    const struct {
        const char* Why;
        TChange Change;
    } Cases[] = {
        {"exactly 20 %", [](TSetting& S) { S.Order.Price = 120; }},
        {"exactly 500 steps", [](TSetting& S) { S.Limits.LastPercent = 0, S.Order.Price = 600; }},
        {"exactly the soft quantity", [](TSetting& S) { S.Order.Qty = 500; }},
        // 400 * 1,000 * 50 = 20,000,000
        {"exactly the soft value",
         [](TSetting& S) { S.Order.Qty = 400, S.Order.Price = 1000, S.Contract.LastPrice = 1000; }},
        {"a limit of 0 is off",
         [](TSetting& S) {
             S.Order.Qty = 1e9, S.Limits = {}, S.Limits.SoftQty = 0;
             S.Limits.HardQty = 0;
             S.Limits.SoftValue = 0;
             S.Limits.HardValue = 0;
         }},
        {"no multiplier: no value", [](TSetting& S) { S.Contract.Multiplier.reset(), S.Limits.HardValue = 1; }},
        {"no lot size", [](TSetting& S) { S.Contract.LotSize = 0, S.Order.Qty = 2.5; }},
        {"no table of steps", [](TSetting& S) { S.Contract.Steps = nullptr, S.Order.Price = 100.123; }},
        {"the last price is 0", [](TSetting& S) { S.Contract.LastPrice = 0.0; }},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        TSetting Setting;
        Case.Change(Setting);
        EXPECT_TRUE(JudgeOrder(Setting.Case()).empty());
    }
}

TEST(OrderChecks, PricesOnEverySortOfStepAreTold) {
    const test::TEvenSteps Ticks(0.05), Halves(1.0 / 64), OtherKind(0.5, 2);
    const struct {
        const fw::TCustomSpreadTable* Table;
        double Price;
        bool Off;
    } Cases[] = {{&Ticks, 0.0, false},         {&Ticks, 0.05, false}, {&Ticks, 0.3, false},
                 {&Ticks, 0.1 + 0.2, false},   {&Ticks, 0.07, true},  {&Ticks, -0.05, true},
                 {&Halves, 1.046875, false},   {&Halves, 1.05, true}, {&OtherKind, 0.3, false},
                 {&Ticks, 1'000'000.05, false}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Price);
        TSetting Setting;
        Setting.Contract.Steps = Case.Table;
        Setting.Order.Price = Case.Price;
        const auto Found = JudgeOrder(Setting.Case());
        EXPECT_EQ(!Found.empty() && Found.front().Rule == ERule::PriceStep, Case.Off);
    }
}

TEST(TradingLimits, ConfigurationReplacesTheDefaultsAndBadTextsAreNamed) {
    std::vector<fw::Text> Logged;
    const auto Link = fw::TLog::Entries().Connect([&](const fw::TLogEntry& Entry) {
        Logged.push_back(Entry.Key);
        for (const auto& Arg : Entry.Args) Logged.push_back(Arg);
    });
    const std::map<std::string, std::string> Set{{"SoftQty", "12.5"},
                                                 {"HardQty", "-1"},
                                                 {"SoftValue", "many"},
                                                 {"LastPercent", "0"},
                                                 {"Exchanges.A100", " HKFE  SEHK "}};
    const auto Read = [&](const std::string& Key) { return Set.count(Key) ? Set.at(Key) : std::string(); };
    const auto Limits = ReadTradingLimits(Read, {"A100", "A200"});
    EXPECT_EQ(Limits.SoftQty, 12.5);
    EXPECT_EQ(Limits.HardQty, TTradingLimits().HardQty);
    EXPECT_EQ(Limits.SoftValue, TTradingLimits().SoftValue);
    EXPECT_EQ(Limits.LastPercent, 0);
    EXPECT_TRUE(Limits.MayTrade("A100", "SEHK"));
    EXPECT_FALSE(Limits.MayTrade("A100", "XDER"));
    EXPECT_TRUE(Limits.MayTrade("A200", "XDER"));
    EXPECT_EQ(Logged, (std::vector<fw::Text>{"Res_LogTradingLimit", "HardQty", "-1", "Res_LogTradingLimit", "SoftValue",
                                             "many"}));
}

}  // namespace ws
