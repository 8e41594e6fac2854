// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/selector/OptionChain.h"

#include <algorithm>
#include <tuple>

#include "framework/base/NumberFormat.h"
#include "framework/base/Numbers.h"
#include "framework/services/Formatter.h"
#include "framework/services/MarketAdapter.h"
#include "workstation/market/MonthCode.h"

namespace ws {

namespace {

constexpr int kFuture = 2;
constexpr int kOption = 3;

struct TListedOption {
    TChainStrike Place;
    ECallPut Side;
    fw::Text Symbol;

    auto Line() const { return std::tie(Place.Expiry, Place.Value, Place.Root); }
};

fw::Text WithoutGroups(fw::Text Number) {
    const fw::Text& Group = fw::NumberFormat().Group;
    for (size_t At = 0; !Group.empty() && (At = Number.find(Group, At)) != fw::Text::npos;)
        Number.erase(At, Group.size());
    return Number;
}

fw::Text RootOf(const fw::Text& Symbol) {
    const auto End = std::find_if(Symbol.begin(), Symbol.end(), [](char C) { return C >= '0' && C <= '9'; });
    return {Symbol.begin(), End};
}

void ReadOption(const fw::TCustomProduct& Product, std::vector<TListedOption>& Options) {
    const auto Side = CallOrPut(Product.GetCallPutCode());
    const auto Strike = fw::TextToFloat(Product.GetStrikePrice());
    if (!Side || !Strike) return;
    const fw::Text Symbol = Product.GetSymbol();
    Options.push_back(
        {{*Strike, Product.GetExpiryDate(), RootOf(Symbol), Product.GetStrikePrice(), {}, {}, {}}, *Side, Symbol});
}

// Options in their order; calls and puts of one line meet, what is left over gets lines of its own.
void BuildStrikes(std::vector<TListedOption>& Options, std::vector<TChainStrike>& Strikes) {
    std::sort(Options.begin(), Options.end(), [](const TListedOption& A, const TListedOption& B) {
        return std::tuple_cat(A.Line(), std::tie(A.Symbol)) < std::tuple_cat(B.Line(), std::tie(B.Symbol));
    });
    auto& Formatter = fw::TCustomFormatter::GetInstance();
    for (auto First = Options.begin(); First != Options.end();) {
        const size_t Begin = Strikes.size();
        std::array<size_t, 2> Next{Begin, Begin};  // of each side the line that takes its next contract
        const fw::Text Shown = Formatter.FormatValue(First->Place.Value, fw::kFormatPrice, First->Symbol);
        const fw::Text Plain = WithoutGroups(Shown);
        auto Each = First;
        for (; Each != Options.end() && Each->Line() == First->Line(); ++Each) {
            const auto Side = static_cast<size_t>(Each->Side);
            if (Next[Side] == Strikes.size()) {
                Strikes.push_back(Each->Place);
                Strikes.back().Shown = Shown;
                Strikes.back().Plain = Plain;
            }
            Strikes[Next[Side]++].Symbols[Side] = Each->Symbol;
        }
        First = Each;
    }
}

// A week has no future of its own; its options are priced by the first one that outlives them.
void KeepFutures(std::vector<TChainFuture>& Futures, const fw::Text& Expiry) {
    std::sort(Futures.begin(), Futures.end(), [](const TChainFuture& A, const TChainFuture& B) {
        return std::tie(A.Expiry, A.Symbol) < std::tie(B.Expiry, B.Symbol);
    });
    const auto IsOther = [](const TChainFuture& F) { return !F.IsOfMonth; };
    if (!std::all_of(Futures.begin(), Futures.end(), IsOther)) {
        std::erase_if(Futures, IsOther);
        return;
    }
    const auto Outlives =
        std::find_if(Futures.begin(), Futures.end(), [&](const TChainFuture& F) { return F.Expiry >= Expiry; });
    Futures = Outlives == Futures.end() ? std::vector<TChainFuture>() : std::vector{*Outlives};
}

}  // namespace

bool TOptionChain::IsEmpty() const {
    return Strikes.empty() &&
           std::none_of(Futures.begin(), Futures.end(), [](const TChainFuture& F) { return F.IsOfMonth; });
}

TOptionChain ReadOptionChain(const fw::TSelectedMarket& Market) {
    TOptionChain Chain;
    if (!Market.IsChosen()) return Chain;
    auto& Lists = fw::TCustomMarketAdapter::GetInstance();
    const int Count = Lists.GetProductCount(Market.Exchange, Market.Series);
    std::vector<TListedOption> Options;
    for (int i = 0; i < Count; ++i) {
        const fw::TCustomProduct* Product = Lists.GetProduct(Market.Exchange, Market.Series, i);
        if (!Product) continue;
        const bool OfMonth = MonthCodeOf(*Product) == Market.Month;
        if (Product->GetProductType() == kFuture)
            Chain.Futures.push_back({Product->GetSymbol(), Product->GetExpiryDate(), OfMonth});
        else if (OfMonth && Product->GetProductType() == kOption)
            ReadOption(*Product, Options);
    }
    BuildStrikes(Options, Chain.Strikes);
    KeepFutures(Chain.Futures, Chain.Strikes.empty() ? fw::Text() : Chain.Strikes.front().Expiry);
    for (const TChainStrike& Strike : Chain.Strikes) {
        Chain.HasSeveralExpiries |= Strike.Expiry != Chain.Strikes.front().Expiry;
        Chain.HasSeveralRoots |= Strike.Root != Chain.Strikes.front().Root;
    }
    return Chain;
}

}  // namespace ws
