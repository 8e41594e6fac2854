// SPDX-License-Identifier: GPL-3.0-or-later
// The option chain as screen readers ask for it.
#include <array>

#include "workstation/renderers/QtText.h"
#include "workstation/selector/ChainView.h"

namespace ws {

namespace {
enum EColumn { kCalls, kStrikes, kPuts };
constexpr std::array kHeads{"Res_Call", "Res_StrikePrice", "Res_Put"};
}  // namespace

int TChainView::TableColumns() const { return static_cast<int>(kHeads.size()); }

QString TChainView::HeadText(int Column) const { return FContext.Translate(kHeads[static_cast<size_t>(Column)]); }

// None for a strike's own cell and beside a future.
std::optional<TChainCell> TChainView::ContractAt(TPlace Place) const {
    const TChainCell Cell{Place.Row - FSelector.FutureCount(), Place.Column == kPuts ? ECallPut::Put : ECallPut::Call};
    const bool HasContract = Cell.Row < 0 ? Place.Column == kCalls : Place.Column != kStrikes;
    return HasContract ? std::optional(Cell) : std::nullopt;
}

QString TChainView::TextAt(TPlace Place) const {
    const auto Cell = ContractAt(Place);
    const int Row = Place.Row - FSelector.FutureCount();
    if (!Cell) {
        if (Row < 0) return {};
        const TChainStrike& Strike = FSelector.Strike(Row);
        const fw::Text Text = Strike.Shown + ", " + Strike.Expiry;
        return FSelector.IsAtTheMoney(Strike) ? FContext.Translate("Res_ChainAtTheMoney", {Text}) : ToQt(Text);
    }
    const fw::Text Symbol = FSelector.SymbolAt(*Cell);
    if (Symbol.empty()) return {};
    const TChainQuote Quote = FSelector.QuoteOf(*Cell);
    // A dash is not read.
    const fw::Text None = FromQt(FContext.Translate("Res_BatchNone"));
    const auto Told = [&](const auto& Value) { return Value ? FromQt(Price(Value, Symbol)) : None; };
    return FContext.Translate("Res_ChainReads", {FromQt(Describe(*Cell)), Told(Quote.Bid), Told(Quote.Ask),
                                                 Told(Quote.Last), Quote.AgeSeconds ? FromQt(Age(Quote)) : None});
}

QString TChainView::RowText(int Row) const { return TextAt({Row, Row < FSelector.FutureCount() ? kCalls : kStrikes}); }

QRect TChainView::HeadRect(int Column) const {
    const int Y = std::max(0, StrikesTop() - LineHeight());
    if (Column != kStrikes) return SideRect(Column == kCalls ? ECallPut::Call : ECallPut::Put, Y, LineHeight());
    const int Edge = SideRect(ECallPut::Call, Y, LineHeight()).width();
    return {Edge, Y, viewport()->width() - 2 * Edge, LineHeight()};
}

QRect TChainView::RectAt(TPlace Place) const {
    if (const auto Cell = ContractAt(Place)) return CellRect(*Cell);
    const QRect Beside = CellRect({Place.Row - FSelector.FutureCount(), ECallPut::Call});
    if (Place.Row < FSelector.FutureCount() || Beside.isEmpty()) return {};
    return {Beside.right() + 1, Beside.top(), viewport()->width() - 2 * Beside.width(), Beside.height()};
}

std::vector<int> TChainView::SeenRows() const {
    std::vector<int> Result;
    const int Futures = FSelector.FutureCount();
    for (int i = 0; i < ShownFutures(); ++i) Result.push_back(Futures + FirstFuture() + i);
    for (int i = 0; i < VisibleRows(); ++i) Result.push_back(Futures + FirstRow() + i);
    return Result;
}

std::optional<TPaintedTable::TPlace> TChainView::CurrentPlace() const {
    const auto Current = FSelector.Current();
    if (!Current) return std::nullopt;
    return TPlace{Current->Row + FSelector.FutureCount(),
                  Current->Row >= 0 && Current->Side == ECallPut::Put ? kPuts : kCalls};
}

bool TChainView::IsEnabledAt(TPlace Place) const {
    const auto Cell = ContractAt(Place);
    return !Cell || FSelector.CanChoose(*Cell);
}

void TChainView::ChooseAt(TPlace Place) {
    if (const auto Cell = ContractAt(Place)) FSelector.SetCurrent(*Cell);
}

void TChainView::TakeAt(TPlace Place) {
    const auto Cell = ContractAt(Place);
    if (!Cell || !FSelector.CanChoose(*Cell)) return;
    FSelector.SetCurrent(*Cell);
    if (OnTaken) OnTaken();
}

}  // namespace ws
