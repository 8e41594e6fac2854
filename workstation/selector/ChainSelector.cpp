// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/selector/ChainSelector.h"

#include <algorithm>
#include <cmath>

#include "framework/services/MarketAdapter.h"

namespace ws {

namespace {
constexpr ECallPut Other(ECallPut Side) { return Side == ECallPut::Call ? ECallPut::Put : ECallPut::Call; }
}  // namespace

TChainSelector::TChainSelector(TUnderlying Underlying) : FUnderlying(std::move(Underlying)) {
    FQuotesLink = FQuotes.OnChanged.Connect([this] { QuotesChanged(); });
    fw::TCustomMarketAdapter::GetInstance().AddExchangeUpdateHandler(
        [this](fw::TObject*, fw::TObject*) { SetMarket(FMarket); }, this);
}

TChainSelector::~TChainSelector() { fw::TCustomMarketAdapter::GetInstance().RemoveExchangeUpdateHandler(this); }

void TChainSelector::SetMarket(fw::TSelectedMarket Market) {
    FMarket = std::move(Market);
    FChain = ReadOptionChain(FMarket);
    FMoney.clear();
    FindMoney();
    Filter();
}

void TChainSelector::SetFilter(std::string_view Typed) {
    FFilter = TChainFilter(Typed);
    Filter();
}

void TChainSelector::Filter() {
    FShown.clear();
    for (size_t i = 0; i < FChain.Strikes.size(); ++i)
        if (FFilter.Fits(FChain.Strikes[i], ECallPut::Call) || FFilter.Fits(FChain.Strikes[i], ECallPut::Put))
            FShown.push_back(i);
    FMoved = !FFilter.IsEmpty();
    PlaceCursor();
    OnRowsChanged();
}

// The strike that was typed in full, else the one at the money, else the first that fits.
void TChainSelector::PlaceCursor() {
    if (!FCurrent) FCurrent = TChainCell{};
    int Row = 0;
    while (!FFilter.IsEmpty() && Row < StrikeCount() && !FFilter.IsExactly(Strike(Row))) ++Row;
    if (FFilter.IsEmpty() || Row == StrikeCount()) Row = MoneyRow().value_or(0);
    if (Row < StrikeCount() && Take(Row)) return;
    for (int i = -FutureCount(); i < StrikeCount(); ++i)
        if (Take(i)) return;
    FCurrent.reset();
}

EChainState TChainSelector::State() const {
    if (!FMarket.IsChosen()) return EChainState::NoMarket;
    if (FChain.IsEmpty()) return EChainState::NothingListed;
    return FCurrent ? EChainState::Rows : EChainState::NoMatch;
}

fw::Text TChainSelector::SymbolAt(TChainCell Cell) const {
    if (Cell.Row < -FutureCount() || Cell.Row >= StrikeCount()) return {};
    return Cell.Row < 0 ? Future(Cell.Row).Symbol : Strike(Cell.Row).Symbol(Cell.Side);
}

bool TChainSelector::CanChoose(TChainCell Cell) const {
    if (SymbolAt(Cell).empty()) return false;
    if (Cell.Row >= 0) return FFilter.Fits(Strike(Cell.Row), Cell.Side);
    return Future(Cell.Row).IsOfMonth && FFilter.Fits(Future(Cell.Row));
}

bool TChainSelector::Take(int Row) {
    const ECallPut Side = FCurrent->Side;
    for (const ECallPut Each : {Side, Other(Side)}) {
        if (!CanChoose({Row, Each})) continue;
        FCurrent = TChainCell{Row, Row < 0 ? Side : Each};
        return true;
    }
    return false;
}

void TChainSelector::SetCurrent(TChainCell Cell) {
    if (!CanChoose(Cell)) return;
    FCurrent = Cell;
    FMoved = true;
    OnCursorMoved();
}

void TChainSelector::MoveRow(int By) {
    if (!FCurrent || By == 0) return;
    const int From = FCurrent->Row, Way = By > 0 ? 1 : -1;
    const int Target = std::clamp(From + By, -FutureCount(), StrikeCount() - 1);
    bool Taken = false;
    for (int Row = Target; !Taken && Row >= -FutureCount() && Row < StrikeCount(); Row += Way) Taken = Take(Row);
    for (int Row = Target; !Taken && Row != From; Row -= Way) Taken = Take(Row);
    FMoved = true;
    OnCursorMoved();
}

void TChainSelector::MoveSide(ECallPut Side) {
    if (FCurrent && FCurrent->Row >= 0) SetCurrent({FCurrent->Row, Side});
}

// --- at the money

bool TChainSelector::IsAtTheMoney(const TChainStrike& Strike) const {
    const auto Found = FMoney.find(Strike.Expiry);
    return Found != FMoney.end() && Found->second == Strike.Value;
}

std::optional<int> TChainSelector::MoneyRow() const {
    for (int Row = 0; Row < StrikeCount(); ++Row)
        if (IsAtTheMoney(Strike(Row))) return Row;
    return std::nullopt;
}

// True: the strikes at the money are others now.
bool TChainSelector::FindMoney() {
    std::optional<double> Price;
    if (!FChain.Futures.empty()) Price = FQuotes.Of(FChain.Futures.front().Symbol).Middle();
    if (!Price && FUnderlying && FMarket.IsChosen()) Price = FUnderlying(FMarket);
    if (Price == FMoneyPrice && !FMoney.empty()) return false;
    FMoneyPrice = Price;
    std::map<fw::Text, double> Money;
    if (Price)
        for (const TChainStrike& Each : FChain.Strikes) {
            const auto [Nearest, New] = Money.try_emplace(Each.Expiry, Each.Value);
            if (!New && std::abs(Each.Value - *Price) < std::abs(Nearest->second - *Price))
                Nearest->second = Each.Value;
        }
    if (Money == FMoney) return false;
    FMoney = std::move(Money);
    return true;
}

// --- quotes

void TChainSelector::Look(int FirstRow, int Count) {
    std::vector<fw::Text> Symbols;
    for (const TChainFuture& Each : FChain.Futures) Symbols.push_back(Each.Symbol);
    const int End = std::min(FirstRow + Count, StrikeCount());
    for (int Row = std::max(FirstRow, 0); Row < End; ++Row)
        for (const fw::Text& Symbol : Strike(Row).Symbols)
            if (!Symbol.empty()) Symbols.push_back(Symbol);
    FQuotes.Watch(Symbols);
}

void TChainSelector::LookAway() { FQuotes.Watch({}); }

// A price that comes after the opening brings the cursor to the money, unless the user was faster.
void TChainSelector::QuotesChanged() {
    const bool First = FMoney.empty();
    if (FindMoney() && First && !FMoved && !FMoney.empty()) {
        PlaceCursor();
        OnRowsChanged();
    }
    OnQuotesChanged();
}

}  // namespace ws
