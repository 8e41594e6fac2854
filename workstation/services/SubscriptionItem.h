// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <map>
#include <optional>

#include "framework/market/SubItem.h"
#include "workstation/market/MarketRows.h"

namespace ws {

// Fields of one symbol: what the contract states, and its price.
class TSubscriptionItem : public fw::TCustomSubItem {
public:
    explicit TSubscriptionItem(fw::Text Symbol) : FSymbol(std::move(Symbol)) {}

    fw::Text GetSymbol() const override { return FSymbol; }
    int GetState() const override { return FState; }
    fw::Text GetFieldText(int FieldId) const override;
    double GetFieldValue(int FieldId) const override;
    bool HasField(int FieldId) const override { return FFields.count(FieldId) != 0; }

    // Contract and price (none: nothing was quoted) are known: the item is ready.
    void Take(const TProductRow& Product, std::optional<double> Price);
    // The quote behind the price, after Take. At: when it last changed; nothing when the market does not say.
    void TakeQuote(const TQuoteRow& Quote, std::optional<std::chrono::system_clock::time_point> At);
    // The market lists no such contract.
    void TakeNothing();

private:
    void TakeOwnFields(const TProductRow& Product);
    void SetText(int FieldId, const std::string& Value);  // an empty text leaves the field without value
    void SetValue(int FieldId, double Value);

    struct TField {
        fw::Text Shown;
        double Value = 0.0;
    };
    fw::Text FSymbol;
    int FState = fw::kItemUnknown;
    std::map<int, TField> FFields;
};

}  // namespace ws
