// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>

#include "workstation/selector/ChainFilter.h"
#include "workstation/selector/ChainQuotes.h"

namespace ws {

// A contract's place: futures are rows -FutureCount() to -1, the strikes that fit the filter rows 0 to StrikeCount()-1.
struct TChainCell {
    int Row = 0;
    ECallPut Side = ECallPut::Call;  // of no meaning for a future
    bool operator==(const TChainCell&) const = default;
};

enum class EChainState { Rows, NoMarket, NothingListed, NoMatch };

// The symbol selector without its window: the chain of one market, the filter, the contract under the cursor, the
// strikes at the money, and the quotes of the rows that are looked at. The filter never asks the market.
class TChainSelector : public fw::TObject {
public:
    using TUnderlying = std::function<std::optional<double>(const fw::TSelectedMarket& Market)>;

    // Underlying: what the market's underlying costs, for months without a future that is quoted; may be left out.
    explicit TChainSelector(TUnderlying Underlying = {});
    ~TChainSelector() override;

    // Lists the market, under the filter that stands. Read again when the market's lists change.
    void SetMarket(fw::TSelectedMarket Market);
    void SetFilter(std::string_view Typed);
    EChainState State() const;
    const fw::TSelectedMarket& Market() const { return FMarket; }
    const TOptionChain& Chain() const { return FChain; }

    int FutureCount() const { return static_cast<int>(FChain.Futures.size()); }
    int StrikeCount() const { return static_cast<int>(FShown.size()); }
    const TChainFuture& Future(int Row) const { return FChain.Futures[static_cast<size_t>(Row + FutureCount())]; }
    const TChainStrike& Strike(int Row) const { return FChain.Strikes[FShown[static_cast<size_t>(Row)]]; }
    fw::Text SymbolAt(TChainCell Cell) const;  // "" where nothing is listed or no row is
    bool CanChoose(TChainCell Cell) const;     // listed in the month and fitting the filter

    // The contract under the cursor; none where nothing can be chosen.
    std::optional<TChainCell> Current() const { return FCurrent; }
    void SetCurrent(TChainCell Cell);  // one that cannot be chosen: nothing happens
    void MoveRow(int By);              // over what cannot be chosen, to the other side where only that is listed
    void MoveSide(ECallPut Side);

    // Nearest to the price of the first future, else of the underlying; of every expiry one strike, the lower of two.
    bool IsAtTheMoney(const TChainStrike& Strike) const;
    std::optional<int> MoneyRow() const;  // the first such row that is shown

    // The rows that are on the screen: their quotes and those of the futures are asked for, all others dropped.
    void Look(int FirstRow, int Count);
    void LookAway();
    TChainQuote QuoteOf(TChainCell Cell) const { return FQuotes.Of(SymbolAt(Cell)); }
    const TChainQuotes& Quotes() const { return FQuotes; }

    fw::TSignal<> OnRowsChanged;    // other rows, and the cursor brought to the best of them
    fw::TSignal<> OnCursorMoved;    // by the user
    fw::TSignal<> OnQuotesChanged;  // also which strike is at the money

private:
    void Filter();
    void PlaceCursor();
    bool Take(int Row);
    bool FindMoney();
    void QuotesChanged();

    TUnderlying FUnderlying;
    fw::TSelectedMarket FMarket;
    TOptionChain FChain;
    TChainFilter FFilter;
    std::vector<size_t> FShown;  // of the chain's strikes
    std::optional<TChainCell> FCurrent;
    bool FMoved = false;                // the user has moved the cursor
    std::optional<double> FMoneyPrice;  // of which FMoney is made
    std::map<fw::Text, double> FMoney;  // expiry -> strike
    TChainQuotes FQuotes;
    fw::TConnection FQuotesLink;
};

}  // namespace ws
