// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "framework/market/SubItem.h"

namespace ventiq {

using namespace fw;

// One strategy leg. Prices in real price units, never display units.
class TCustomPayOffData : public TObject {
public:
    Text FSymbol;            // key of the market-data item
    int32_t FSide = 0;       // 0 buy, 1 sell; other sides: an option is worth 0, a future counts as bought
    double FPremium = 0.0;   // option: premium per unit; future: entry price; order leg: order price
    double FQty = 0.0;       // contracts, sign included
    int32_t FOpenClose = 0;  // order legs only
    int32_t FPrincipal = 0;  // order legs only

    // P/L at expiry of this leg if the underlying settles at Price, times quantity and multiplier, never rounded. Reads
    // the market data as they stand. An unreadable product type: 0.0.
    double CalculatePL(double Price) const;
};

// Owned; list order = order of entry.
using TPayOffDataList = std::vector<std::unique_ptr<TCustomPayOffData>>;

// What a leg's P/L takes from the market data.
struct TContractTerms {
    std::optional<int32_t> ProductType;  // none: unreadable, the leg is worth 0
    double Strike = 0.0;
    int32_t CallPut = -1;
    double Multiplier = 1.0;
};

// What a leg's P/L depends on, read once for a calculation.
struct TLegTerms : TContractTerms {
    int32_t Side = 0;
    double Premium = 0.0;
    double Qty = 0.0;
};
using TLegTermsList = std::vector<TLegTerms>;

// 0 call, 1 put, -1 unknown, by field 28: a whole number decides by the listed codes only, another text by its first
// letter.
int32_t GetCallPut(const TCustomSubItem& Item);

TContractTerms ReadContractTerms(const TCustomSubItem& Item);
TLegTerms LegTerms(const TCustomPayOffData& Leg, const TContractTerms& Contract);

// (base * quantity) * multiplier, in this order: another order changes the last bit.
double LegPL(const TLegTerms& Leg, double Price);

// An option of a known kind that is bought or sold; any other one is worth 0.
bool IsOptionHeld(const TLegTerms& Leg);

// Whether the market data can make the leg count at any price: a future, or an option whose kind is known.
bool HasUsableTerms(const TLegTerms& Leg);

}  // namespace ventiq
