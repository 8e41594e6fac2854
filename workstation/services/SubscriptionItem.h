// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>

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

    // Contract and price are known: the item is ready.
    void Take(const TProductRow& Product, const TQuoteRow& Quote);
    // The market lists no such contract.
    void TakeNothing();

private:
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

// Last price, else the middle of bid and ask, else the one that is there, else yesterday's settlement.
std::optional<double> ReferencePrice(const TQuoteRow& Quote);

}  // namespace ws
