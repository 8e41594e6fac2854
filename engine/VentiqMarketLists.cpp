// SPDX-License-Identifier: Apache-2.0
// Exchange, series and month lists, the selection, and what the unit knows about derivatives exchanges.
#include "engine/VentiqDataControl.h"
#include "framework/base/FormatSettings.h"
#include "framework/services/ListComparers.h"
#include "framework/services/MarketAdapter.h"

namespace ventiq {

std::map<Text, Text> DerivativeExchangeCache;
bool ExchangeListReady = false;
int ExchangeUpdateState = 0;

namespace {

TUnitCounter DataControlCounter;

bool IsDerivative(const TCustomProduct& Product) {
    const int Type = Product.GetProductType();
    return Type == kProductOption || Type == kProductFuture;
}

bool ListsDerivative(TCustomMarketAdapter& Market, const Text& Exchange, const Text& Series) {
    const int Count = Market.GetProductCount(Exchange, Series);
    for (int I = 0; I < Count; ++I) {
        const auto* Product = Market.GetProduct(Exchange, Series, I);
        if (Product && IsDerivative(*Product)) return true;
    }
    return false;
}

}  // namespace

void InitializeVentiqDataControl() {
    if (!DataControlCounter.Enter()) return;
    ExchangeListReady = false;
    ExchangeUpdateState = 0;
    DerivativeExchangeCache.clear();
}

void FinalizeVentiqDataControl() { DataControlCounter.Leave(); }

void TCustomVentiqDataControl::GetExchangeList(TStringList* List) {
    if (List) {
        if (ExchangeUpdateState == 1) {
            ExchangeListReady = false;
            ExchangeUpdateState = 2;
            DerivativeExchangeCache.clear();
        }
        auto& Market = TCustomMarketAdapter::GetInstance();
        const int Count = Market.GetExchangeCount();
        for (int I = 0; I < Count; ++I) {
            const Text Code = Market.GetExchangeCode(I);
            if (!Code.empty() && Market.IsExchangeSupported(Code)) List->Add(Code);
        }
        ExchangeListReady = true;
    }
    // Also without a list: the host's comparer is asked in any case.
    TCustomExchangeListComparer::GetInstance().Sort(List);
}

void TCustomVentiqDataControl::GetSeriesList(TStringList* List) {
    if (!List || FExchange.empty()) return;
    auto& Market = TCustomMarketAdapter::GetInstance();
    const int Count = Market.GetSeriesCount(FExchange);
    for (int I = 0; I < Count; ++I) {
        const Text Code = Market.GetSeriesCode(FExchange, I);
        if (!Code.empty()) List->Add(Code);
    }
    TCustomSeriesComparer::GetInstance().Sort(FExchange, List);
}

void TCustomVentiqDataControl::GetMonthList(TStringList* List) {
    if (!List || FSeries.empty()) return;
    WalkMonthProducts([&](TCustomProduct&, const Text& MonthCode) {
        if (!MonthCode.empty() && !List->Contains(MonthCode)) List->Add(MonthCode);
    });
    List->Sort(*FMonthComparer);
}

// Futures and options of the selected series with their month codes. The weekly tag is carried over: a product of
// another exchange keeps the tag of the one before it. Meant so, in the list and in the strike scan alike.
void TCustomVentiqDataControl::WalkMonthProducts(const std::function<void(TCustomProduct&, const Text&)>& Visit) {
    auto& Market = TCustomMarketAdapter::GetInstance();
    Text WeeklyTag;
    const int Count = Market.GetProductCount(FExchange, FSeries);
    for (int I = 0; I < Count; ++I) {
        auto* Product = Market.GetProduct(FExchange, FSeries, I);
        if (!Product || !IsDerivative(*Product)) continue;
        if (SameText(Product->GetExchange(), kWeeklyExchange))
            WeeklyTag = Trim(Product->GetAttribute(kWeeklyAttribute));
        Visit(*Product, GetMonthCode(Product->GetExpiryDate(), WeeklyTag));
    }
}

Text TCustomVentiqDataControl::GetMonthCode(const Text& ExpiryDate, const Text& WeeklyTag) {
    FormatSettings() = {kExpiryDateFormat, kExpiryDateSeparator};
    const TDateTime Expiry = StrToDateTime(ExpiryDate);
    FormatSettings() = {kMonthCodeFormat, kMonthCodeSeparator};
    const Text YearMonth = FormatDate(Expiry, FormatSettings().ShortDateFormat);
    return WeeklyTag.empty() ? YearMonth : FormatText("%s-%s", {YearMonth, WeeklyTag});
}

void TCustomVentiqDataControl::SetExchange(const Text& Value) {
    if (Value == FExchange) return;
    FExchange = Value;
    FSeries.clear();
    FMonth.clear();
}

void TCustomVentiqDataControl::SetSeries(const Text& Value) {
    if (Value == FSeries) return;
    FSeries = Value;
    FMonth.clear();
}

void TCustomVentiqDataControl::SetAccount(const Text& Value) { FAccount = Value; }

bool TCustomVentiqDataControl::DetectIsDerivativeExchange(const Text& Exchange) {
    auto& Market = TCustomMarketAdapter::GetInstance();
    const int Count = Market.GetSeriesCount(Exchange);
    for (int I = 0; I < Count; ++I) {
        if (!ListsDerivative(Market, Exchange, Market.GetSeriesCode(Exchange, I))) continue;
        DerivativeExchangeCache.try_emplace(Exchange, Exchange);
        return true;
    }
    return false;
}

bool TCustomVentiqDataControl::IsDerivativeExchange(const Text& Exchange) {
    return ExchangeListReady ? DerivativeExchangeCache.contains(Exchange) : DetectIsDerivativeExchange(Exchange);
}

void TCustomVentiqDataControl::MarketExchangeUpdate(TObject*, TObject*) {
    // One shot: the cache is reset at most once in the package's life.
    if (ExchangeUpdateState == 0) ExchangeUpdateState = 1;
    if (FOnMarketListUpdate) FOnMarketListUpdate(this);
}

}  // namespace ventiq
