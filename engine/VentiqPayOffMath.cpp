// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqPayOffMath.h"

#include <algorithm>
#include <array>

#include "engine/VentiqMarketData.h"
#include "framework/base/Numbers.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

constexpr std::array kCallCodes{1, 6, 10, 12, 20, 22, 24, 62, 64};
constexpr std::array kPutCodes{2, 7, 11, 13, 21, 23, 25, 63, 65};

template <class TCodes>
bool Holds(const TCodes& Codes, int32_t Code) {
    return std::find(Codes.begin(), Codes.end(), Code) != Codes.end();
}

// No tolerance, and every side but a sale is a purchase: that is how futures count here, unlike options.
double FutureBase(const TLegTerms& Leg, double Price) {
    return Leg.Side == kSideSell ? Leg.Premium - Price : Price - Leg.Premium;
}

// Within the tolerance of the strike an option is out of the money, so that its result there is exactly the premium.
double OptionBase(const TLegTerms& Leg, double Price) {
    if (!IsOptionHeld(Leg)) return 0.0;
    const double Distance = Price - Leg.Strike;
    const double Gain = Leg.CallPut == kCall ? Distance : -Distance;
    const bool InTheMoney = Leg.CallPut == kCall ? Distance > kPayOffTolerance : Distance < -kPayOffTolerance;
    if (!InTheMoney) return Leg.Side == kSideBuy ? -Leg.Premium : Leg.Premium;
    return Leg.Side == kSideBuy ? Gain - Leg.Premium : -(Gain - Leg.Premium);
}

}  // namespace

double TCustomPayOffData::CalculatePL(double Price) const {
    return LegPL(LegTerms(*this, ReadContractTerms(*PriceDataItem(FSymbol))), Price);
}

int32_t GetCallPut(const TCustomSubItem& Item) {
    const Text Code = Item.GetFieldText(kFieldCallPut);
    if (const auto Number = TextToInt(Code)) {
        if (Holds(kCallCodes, *Number)) return kCall;
        return Holds(kPutCodes, *Number) ? kPut : kCallPutUnknown;
    }
    if (Code.empty()) return kCallPutUnknown;
    if (Code[0] == 'c' || Code[0] == 'C') return kCall;
    return Code[0] == 'p' || Code[0] == 'P' ? kPut : kCallPutUnknown;
}

TContractTerms ReadContractTerms(const TCustomSubItem& Item) {
    TContractTerms Result;
    Result.ProductType = TextToInt(Item.GetFieldText(kFieldProductType));
    if (!Result.ProductType) return Result;
    Result.Strike = Item.GetFieldValue(kFieldStrike);
    Result.CallPut = GetCallPut(Item);
    if (Item.HasField(kFieldMultiplier)) Result.Multiplier = Item.GetFieldValue(kFieldMultiplier);
    return Result;
}

TLegTerms LegTerms(const TCustomPayOffData& Leg, const TContractTerms& Contract) {
    return {Contract, Leg.FSide, Leg.FPremium, Leg.FQty};
}

double LegPL(const TLegTerms& Leg, double Price) {
    if (!Leg.ProductType) return 0.0;
    double Base = 0.0;
    if (*Leg.ProductType == kProductFuture) Base = FutureBase(Leg, Price);
    if (*Leg.ProductType == kProductOption) Base = OptionBase(Leg, Price);
    return (Base * Leg.Qty) * Leg.Multiplier;
}

bool IsOptionHeld(const TLegTerms& Leg) {
    const bool Known = Leg.CallPut == kCall || Leg.CallPut == kPut;
    return Leg.ProductType == kProductOption && Known && (Leg.Side == kSideBuy || Leg.Side == kSideSell);
}

bool HasUsableTerms(const TLegTerms& Leg) {
    if (Leg.ProductType == kProductOption) return Leg.CallPut != kCallPutUnknown;
    return Leg.ProductType == kProductFuture;
}

}  // namespace ventiq
