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

// What a calculation takes from one leg's market data.
struct TCustomVentiqDataControl::TLegReading {
    TLegTerms Terms;
    Text Currency;
    std::optional<double> KeyStrike;  // an option's strike, where it is a number
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

std::vector<TCustomVentiqDataControl::TLegReading> TCustomVentiqDataControl::ReadLegs() const {
    std::vector<TLegReading> Result;
    Result.reserve(FPayOffDataList.size());
    for (const auto& Leg : FPayOffDataList) {
        const auto* Item = PriceDataItem(Leg->FSymbol);
        auto& Reading =
            Result.emplace_back(TLegReading{ReadLegTerms(*Leg, *Item), Item->GetFieldText(kFieldCurrency), {}});
        if (Reading.Terms.ProductType == kProductOption)
            Reading.KeyStrike = TextToFloat(Item->GetFieldText(kFieldStrike));
    }
    return Result;
}

std::shared_ptr<const TLegTermsList> TCustomVentiqDataControl::GetLegTerms() const {
    if (FTerms) return FTerms;
    auto Terms = std::make_shared<TLegTermsList>();
    for (auto& Reading : ReadLegs()) Terms->push_back(Reading.Terms);
    return Terms;
}

void TCustomVentiqDataControl::Calculate() {
    FCurrency.clear();
    FShowAlertLine = false;
    FDataList.Clear();
    FDataDictionary.clear();

    const auto Readings = ReadLegs();
    auto Terms = std::make_shared<TLegTermsList>();
    std::set<Text> Named;
    for (size_t I = 0; I < Readings.size(); ++I) {
        Terms->push_back(Readings[I].Terms);
        const Text& Symbol = FPayOffDataList[I]->FSymbol;
        if (!HasUsableTerms(Readings[I].Terms) && Named.insert(Symbol).second)
            TLog::Warning("Res_LogLegWithoutData", {Symbol});
    }

    if (FDetailControl) {
        // The table takes the same reading; nobody else sees it.
        struct TLend {
            std::shared_ptr<const TLegTermsList>& Place;
            ~TLend() { Place.reset(); }
        } Lent{FTerms};
        FTerms = Terms;
        FDetailControl->Calculate();
    }

    if (!Readings.empty()) {
        AddKeyPrice(FDownLimit);
        AddKeyPrice(FUpLimit);
        for (const auto& Reading : Readings) {
            if (FCurrency.empty()) FCurrency = Reading.Currency;
            if (Reading.KeyStrike) AddKeyPrice(*Reading.KeyStrike);
        }
        FDataList.Sort(*FPriceDataComparer);
        SumKeyPrices(*Terms);
    }
    if (FOnDataUpdate) FOnDataUpdate(this);
}

void TCustomVentiqDataControl::AddKeyPrice(double Price) {
    Text Key = PriceKey(Price);
    if (FDataDictionary.try_emplace(Key, 0.0).second) FDataList.Add(std::move(Key));
}

void TCustomVentiqDataControl::SumKeyPrices(const TLegTermsList& Terms) {
    // Both start at 0: a strategy that only gains or only loses gets no alert line.
    double Max = 0.0, Min = 0.0;
    for (const auto& Key : FDataList.Items()) {
        const double Sum = SumPL(Terms, TextToFloatDef(Key, 0.0));
        Max = std::max(Max, Sum);
        Min = std::min(Min, Sum);
        FDataDictionary[Key] = Sum;
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
