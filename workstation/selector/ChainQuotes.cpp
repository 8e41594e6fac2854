// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/selector/ChainQuotes.h"

#include <algorithm>
#include <array>
#include <climits>
#include <set>

#include "framework/base/Clock.h"
#include "framework/services/SubscribeAdapter.h"

namespace ws {

namespace {

struct TUnit {
    double Below;  // seconds
    double Size;
    const char* Key;
};
constexpr std::array kUnits{TUnit{60, 1, "Res_AgeSeconds"}, TUnit{3600, 60, "Res_AgeMinutes"},
                            TUnit{86400, 3600, "Res_AgeHours"}, TUnit{0, 86400, "Res_AgeDays"}};

std::optional<double> FieldOf(const fw::TCustomSubItem& Item, int Field) {
    return Item.HasField(Field) ? std::optional(Item.GetFieldValue(Field)) : std::nullopt;
}

}  // namespace

TChainAge ShownAge(double Seconds) {
    const auto Unit = std::find_if(kUnits.begin(), kUnits.end() - 1, [&](const TUnit& U) { return Seconds < U.Below; });
    return {Unit->Key, static_cast<int>(std::clamp(Seconds / Unit->Size, 0.0, static_cast<double>(INT_MAX)))};
}

std::optional<double> TChainQuote::Middle() const { return Bid && Ask ? std::optional(*Bid / 2 + *Ask / 2) : Last; }

TChainQuotes::~TChainQuotes() { Watch({}); }

void TChainQuotes::Watch(const std::vector<fw::Text>& Symbols) {
    auto& Service = fw::TCustomSubscribeAdapter::GetInstance();
    const std::set<fw::Text> Wanted(Symbols.begin(), Symbols.end());
    std::erase_if(FItems, [&](const auto& Entry) {
        if (Wanted.contains(Entry.first)) return false;
        Service.Unsubscribe(Entry.second, this);
        return true;
    });
    for (const fw::Text& Symbol : Wanted) {
        if (FItems.contains(Symbol)) continue;
        fw::TCustomSubItem* Item = Service.GetSubItem(Symbol, fw::kPriceDataKind, 0);
        FItems[Symbol] = Item;
        Service.Subscribe(
            Item, [this](fw::TObject*, fw::TObject*) { OnChanged(); }, this);
    }
}

TChainQuote TChainQuotes::Of(const fw::Text& Symbol) const {
    const auto Found = FItems.find(Symbol);
    if (Found == FItems.end() || Found->second->GetState() != fw::kItemReady) return {};
    const fw::TCustomSubItem& Item = *Found->second;
    TChainQuote Quote{FieldOf(Item, fw::kFieldBid), FieldOf(Item, fw::kFieldAsk), FieldOf(Item, fw::kFieldLast), {}};
    if (const auto At = FieldOf(Item, fw::kFieldQuoteTime)) {
        const std::chrono::duration<double> Now = fw::TClock::Now().time_since_epoch();
        Quote.AgeSeconds = std::max(0.0, Now.count() - *At);
    }
    return Quote;
}

}  // namespace ws
