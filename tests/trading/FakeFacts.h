// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/base/Numbers.h"
#include "framework/services/Formatter.h"
#include "framework/services/ScopedService.h"
#include "workstation/services/MarketRecords.h"
#include "workstation/trading/OrderChecks.h"

namespace ws::test {

// Grouped numbers, amounts with two decimals.
class TPlainFormatter : public fw::TCustomFormatter {
public:
    fw::Text FormatValue(double Value, uint8_t Kind, const fw::Text&, bool, void*) override {
        return Kind == fw::kFormatAmount ? fw::FloatToText(Value, 2, true, 2) : fw::FloatToText(Value, 8, true);
    }
    fw::Text FormatPrice(double Value, uint8_t, bool) override { return fw::FloatToText(Value, 8, true); }
};

// Steps of Step from 0.
class TEvenSteps : public TListedSpreadTable {
public:
    explicit TEvenSteps(double Step, int Kind = 1)
        : TListedSpreadTable(TSpreadTable(std::vector<TSpreadBandRow>{{"T", Kind, 0.0, Step}})) {}
};

// What tests write is what the checks know.
class TFakeFacts : public IOrderFacts {
public:
    TTraderFacts User{{"A100", "H001"}, {"OEOpenC", "OEPrin"}};
    TTradingLimits Limit;
    std::map<std::string, TContractFacts> Contracts;
    std::map<std::string, THeldQuantities> Positions;  // by account
    int Asked = 0;                                     // contracts asked for

    TTraderFacts Trader() override { return User; }
    TTradingLimits Limits() override { return Limit; }
    TContractFacts Contract(const std::string& Symbol, const TTradingLimits&) override {
        ++Asked;
        return Contracts.count(Symbol) ? Contracts.at(Symbol) : TContractFacts{};
    }
    THeldQuantities Held(const std::string& Account) override { return Positions[Account]; }
};

inline TEvenSteps WholePoints{1.0};

// An option on an index at 100 points of 50 dollars, steps of 1.
inline TContractFacts IndexOption() {
    TContractFacts Facts;
    Facts.Listed = true;
    Facts.Exchange = "HKFE";
    Facts.Currency = "HKD";
    Facts.ProductType = 3;
    Facts.ExpiryDate = "2026/12/30";
    Facts.LotSize = 1;
    Facts.Multiplier = 50;
    Facts.Steps = &WholePoints;
    Facts.OrderOptions = {"Open", "Close", "Client", "House"};
    Facts.LastPrice = 100;
    Facts.PriceTime = "2026/12/01 10:00:00";
    return Facts;
}

inline TOrderTicket Ticket(const std::string& Symbol, int Side, double Qty, double Price) {
    TOrderTicket Order;
    Order.Account = "A100";
    Order.Symbol = Symbol;
    Order.Side = Side;
    Order.Qty = Qty;
    Order.Price = Price;
    return Order;
}

}  // namespace ws::test
