// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqDataControl.h"

#include <algorithm>
#include <set>

#include "engine/VentiqMarketData.h"
#include "framework/base/Dispatch.h"
#include "framework/base/Log.h"
#include "framework/base/Numbers.h"
#include "framework/services/MarketAdapter.h"
#include "framework/services/SubscribeAdapter.h"

namespace ventiq {

// What a calculation takes from the legs' market data.
struct TCustomVentiqDataControl::TReading {
    TLegTermsList Terms;
    Text Currency;                // the first leg's that has one
    std::vector<double> Strikes;  // of the options, where they are numbers
};

TCustomVentiqDataControl::TCustomVentiqDataControl(TObject* Owner)
    : TCustomDataControl(Owner),
      FMonthComparer(std::make_shared<TCustomMonthComparer>()),
      FPriceDataComparer(
          std::make_shared<TCustomComparer>([this](const Text& A, const Text& B) { return ComparePrice(A, B); })) {
    TCustomMarketAdapter::GetInstance().AddExchangeUpdateHandler(
        [this](TObject* Sender, TObject* Data) { MarketExchangeUpdate(Sender, Data); }, this);
}

TCustomVentiqDataControl::~TCustomVentiqDataControl() {
    Dispatch("~TCustomVentiqDataControl",
             [this] { TCustomMarketAdapter::GetInstance().RemoveExchangeUpdateHandler(this); });
    // Each on its own: a subscription that stayed would call a control that is gone.
    for (const auto& Entry : FSubscribedList)
        Dispatch("~TCustomVentiqDataControl",
                 [&] { TCustomSubscribeAdapter::GetInstance().Unsubscribe(Entry.second, this); });
    ClearPayOffData();
    ClearPayOffOrderData();
    ClearOMSOrder();
}

int32_t TCustomVentiqDataControl::GetCount() { return FDataList.GetCount(); }

Variant TCustomVentiqDataControl::GetValue(int32_t, int32_t) { return Text(); }

Text TCustomVentiqDataControl::GetDisplayValue(int32_t, int32_t) { return {}; }

bool TCustomVentiqDataControl::GetRowValue(int32_t, void*&) { return false; }

bool TCustomVentiqDataControl::GetColValue(int32_t, void*&) { return false; }

void TCustomVentiqDataControl::AddRecord(const Text& Symbol, int32_t Side, double Premium, double Qty) {
    auto& Leg = *FPayOffDataList.emplace_back(std::make_unique<TCustomPayOffData>());
    Leg.FSymbol = Symbol;
    Leg.FSide = Side;
    Leg.FPremium = Premium;
    Leg.FQty = Qty;
}

void TCustomVentiqDataControl::AddOrderRecord(const Text& Symbol, int32_t Side, double Premium, double Qty,
                                              int32_t OpenClose, int32_t Principal) {
    auto& Leg = *FPayOffOrderDataList.emplace_back(std::make_unique<TCustomPayOffData>());
    Leg.FSymbol = Symbol;
    Leg.FSide = Side;
    Leg.FPremium = Premium;
    Leg.FQty = Qty;
    Leg.FOpenClose = OpenClose;
    Leg.FPrincipal = Principal;
}

void TCustomVentiqDataControl::ClearPayOffData() { FPayOffDataList.clear(); }

void TCustomVentiqDataControl::ClearPayOffOrderData() { FPayOffOrderDataList.clear(); }

void TCustomVentiqDataControl::ResetOrderList() { ClearPayOffOrderData(); }

void TCustomVentiqDataControl::ClearOMSOrder() { FOrderList.clear(); }

void TCustomVentiqDataControl::Reset() {
    if (FDetailControl) FDetailControl->Reset();
    ClearPayOffData();
    FDataList.Clear();
    FDataDictionary.clear();
}

// Each symbol's market data are read once, however many legs name it.
TCustomVentiqDataControl::TReading TCustomVentiqDataControl::ReadLegs() const {
    TReading Result;
    Result.Terms.reserve(FPayOffDataList.size());
    std::unordered_map<std::string_view, TContractTerms> Contracts;
    for (const auto& Leg : FPayOffDataList) {
        const auto [Contract, First] = Contracts.try_emplace(Leg->FSymbol);
        if (First) {
            const auto* Item = PriceDataItem(Leg->FSymbol);
            Contract->second = ReadContractTerms(*Item);
            if (Result.Currency.empty()) Result.Currency = Item->GetFieldText(kFieldCurrency);
            const bool Option = Contract->second.ProductType == kProductOption;
            const auto Strike = Option ? TextToFloat(Item->GetFieldText(kFieldStrike)) : std::nullopt;
            if (Strike) Result.Strikes.push_back(*Strike);
        }
        Result.Terms.push_back(LegTerms(*Leg, Contract->second));
    }
    return Result;
}

std::shared_ptr<const TLegSums> TCustomVentiqDataControl::GetLegSums() const {
    return FLegSums ? FLegSums : std::make_shared<const TLegSums>(ReadLegs().Terms);
}

void TCustomVentiqDataControl::Calculate() {
    FCurrency.clear();
    FShowAlertLine = false;
    FDataList.Clear();
    FDataDictionary.clear();

    const auto Reading = ReadLegs();
    WarnOfUnusable(Reading.Terms);
    const auto Legs = std::make_shared<const TLegSums>(Reading.Terms);
    if (FDetailControl) {
        // The table takes the same reading; nobody else sees it.
        struct TLend {
            std::shared_ptr<const TLegSums>& Place;
            ~TLend() { Place.reset(); }
        } Lent{FLegSums};
        FLegSums = Legs;
        FDetailControl->Calculate();
    }

    if (!Reading.Terms.empty()) {
        FCurrency = Reading.Currency;
        AddKeyPrice(FDownLimit);
        AddKeyPrice(FUpLimit);
        for (const double Strike : Reading.Strikes) AddKeyPrice(Strike);
        FDataList.Sort(*FPriceDataComparer);
        SumKeyPrices(*Legs);
    }
    if (FOnDataUpdate) FOnDataUpdate(this);
}

// Each symbol once.
void TCustomVentiqDataControl::WarnOfUnusable(const TLegTermsList& Terms) const {
    std::set<Text> Named;
    for (size_t I = 0; I < Terms.size(); ++I) {
        const Text& Symbol = FPayOffDataList[I]->FSymbol;
        if (!HasUsableTerms(Terms[I]) && Named.insert(Symbol).second) TLog::Warning("Res_LogLegWithoutData", {Symbol});
    }
}

void TCustomVentiqDataControl::AddKeyPrice(double Price) {
    Text Key = PriceKey(Price);
    if (FDataDictionary.try_emplace(Key, 0.0).second) FDataList.Add(std::move(Key));
}

void TCustomVentiqDataControl::SumKeyPrices(const TLegSums& Legs) {
    std::vector<double> Prices, Sums(FDataList.Items().size());
    for (const auto& Key : FDataList.Items()) Prices.push_back(TextToFloatDef(Key, 0.0));
    Legs.At(Prices, Sums);

    // Both start at 0: a strategy that only gains or only loses gets no alert line.
    double Max = 0.0, Min = 0.0;
    for (size_t I = 0; I < Sums.size(); ++I) {
        Max = std::max(Max, Sums[I]);
        Min = std::min(Min, Sums[I]);
        FDataDictionary[FDataList.Items()[I]] = Sums[I];
    }
    FShowAlertLine = Max > kPriceTolerance && Min < -kPriceTolerance;
}

bool TCustomVentiqDataControl::GetPrice(int32_t RecordIndex, double& Price) const {
    if (RecordIndex < 0 || RecordIndex >= FDataList.GetCount()) return false;
    Price = TextToFloatDef(FDataList.At(RecordIndex), 0.0);
    return true;
}

bool TCustomVentiqDataControl::GetPL(int32_t RecordIndex, double& PL) const {
    if (RecordIndex < 0 || RecordIndex >= FDataList.GetCount()) return false;
    const auto Found = FDataDictionary.find(FDataList.At(RecordIndex));
    if (Found == FDataDictionary.end()) return false;
    PL = Found->second;
    return true;
}

int32_t TCustomVentiqDataControl::ComparePrice(const Text& A, const Text& B) const {
    const double PriceA = TextToFloatDef(A, 0.0), PriceB = TextToFloatDef(B, 0.0);
    if (PriceA - PriceB > kPriceTolerance) return 1;
    return PriceB - PriceA > kPriceTolerance ? -1 : 0;
}

void TCustomVentiqDataControl::SetUpLimit(double Value) {
    FUpLimit = FDefaultUpPrice = Value;
    if (FDetailControl) FDetailControl->SetUpLimit(Value);
}

void TCustomVentiqDataControl::SetDownLimit(double Value) {
    FDownLimit = FDefaultDownPrice = Value;
    if (FDetailControl) FDetailControl->SetDownLimit(Value);
}

void TCustomVentiqDataControl::SetInterval(double Value) {
    FInterval = FDefaultInterval = Value;
    if (FDetailControl) FDetailControl->SetInterval(Value);
}

void TCustomVentiqDataControl::SetDetailControl(TCustomVentiqDetailDataControl* Value) {
    FDetailControl = Value;
    if (Value) Value->SetMasterControl(this);
}

}  // namespace ventiq
