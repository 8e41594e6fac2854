// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include <QPainter>

#include "framework/services/Formatter.h"
#include "workstation/renderers/QtText.h"
#include "workstation/selector/ChainView.h"

namespace ws {

namespace {

constexpr int kPadding = 4;
constexpr double kStaleSeconds = 60;

const QString& Missing() {
    static const QString Dash(QChar(0x2013));
    return Dash;
}

QRect Half(const QRect& Room, bool Right, bool Lower) {
    const int Wide = Room.width() / 2, High = Room.height() / 2;
    return QRect(Room.left() + (Right ? Room.width() - Wide : 0), Room.top() + (Lower ? Room.height() - High : 0), Wide,
                 High)
        .adjusted(0, 0, -kPadding, 0);
}

constexpr int kToTheRight = Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine;
constexpr int kToTheMiddle = Qt::AlignCenter | Qt::TextSingleLine;

}  // namespace

QString TChainView::Price(const std::optional<double>& Value, const fw::Text& Symbol) const {
    if (!Value) return Missing();
    return ToQt(fw::TCustomFormatter::GetInstance().FormatValue(*Value, fw::kFormatPrice, Symbol));
}

QString TChainView::Age(const TChainQuote& Quote) const {
    if (!Quote.AgeSeconds) return Missing();
    const TChainAge Age = ShownAge(*Quote.AgeSeconds);
    return FContext.Translate(Age.Key, {std::to_string(Age.Count)});
}

QString TChainView::Describe(TChainCell Cell) const {
    const fw::Text Symbol = FSelector.SymbolAt(Cell);
    if (Symbol.empty()) return {};
    QStringList Parts{ToQt(Symbol)};
    if (Cell.Row >= 0) {
        const TChainStrike& Strike = FSelector.Strike(Cell.Row);
        Parts << FContext.Translate(Cell.Side == ECallPut::Call ? "Res_Call" : "Res_Put") + QChar(' ') +
                     ToQt(Strike.Shown)
              << ToQt(Strike.Expiry);
    } else {
        Parts << ToQt(FSelector.Future(Cell.Row).Expiry);
    }
    return Parts.join(QStringLiteral(" \u00B7 "));
}

bool TChainView::IsCurrent(TChainCell Cell) const {
    const auto Current = FSelector.Current();
    return Current && Current->Row == Cell.Row && (Cell.Row < 0 || Current->Side == Cell.Side);
}

void TChainView::PaintHeads(QPainter& Painter) const {
    const auto Fill = [&](int Y) {
        Painter.fillRect(QRect(0, Y, viewport()->width(), LineHeight()), FContext.Color("coHeader"));
        Painter.setPen(FContext.Color("coBorder"));
        Painter.drawLine(0, Y + LineHeight() - 1, viewport()->width(), Y + LineHeight() - 1);
        Painter.setPen(FContext.Color("coHeaderText"));
    };
    Fill(0);
    const bool HasStrikes = !FSelector.Chain().Strikes.empty();
    for (const ECallPut Side : {ECallPut::Call, ECallPut::Put}) {
        if (Side == ECallPut::Call && !HasStrikes) continue;
        const QRect Room = SideRect(Side, 0, 2 * LineHeight());
        Painter.drawText(Half(Room, false, false), kToTheRight, FContext.Translate("Res_ChainBidLast"));
        Painter.drawText(Half(Room, true, false), kToTheRight, FContext.Translate("Res_ChainAskAge"));
    }
    if (!HasStrikes) return;
    const int Y = StrikesTop() - LineHeight();
    Fill(Y);
    Painter.drawText(SideRect(ECallPut::Call, Y, LineHeight()), kToTheMiddle, FContext.Translate("Res_Call"));
    Painter.drawText(QRect(0, Y, viewport()->width(), LineHeight()), kToTheMiddle,
                     FContext.Translate("Res_StrikePrice"));
    Painter.drawText(SideRect(ECallPut::Put, Y, LineHeight()), kToTheMiddle, FContext.Translate("Res_Put"));
}

// Bid and ask over last and age. A quote that has not changed for a while, and a contract that cannot be chosen, are
// dimmed.
void TChainView::PaintContract(QPainter& Painter, TChainCell Cell, const QRect& Room) const {
    const fw::Text Symbol = FSelector.SymbolAt(Cell);
    if (Symbol.empty()) return;
    const TChainQuote Quote = FSelector.QuoteOf(Cell);
    const bool Current = IsCurrent(Cell);
    const bool Fresh = FSelector.CanChoose(Cell) && Quote.AgeSeconds.value_or(0) < kStaleSeconds;
    const QColor Dimmed = FContext.Color("coPlaceholderText");
    const QColor Ink = Current ? FContext.Color("coHighlightedText") : Fresh ? FContext.Color("coText") : Dimmed;
    Painter.setPen(Ink);
    Painter.drawText(Half(Room, false, false), kToTheRight, Price(Quote.Bid, Symbol));
    Painter.drawText(Half(Room, true, false), kToTheRight, Price(Quote.Ask, Symbol));
    Painter.drawText(Half(Room, false, true), kToTheRight, Price(Quote.Last, Symbol));
    Painter.setPen(Current ? Ink : Dimmed);
    Painter.drawText(Half(Room, true, true), kToTheRight, Age(Quote));
}

void TChainView::PaintFuture(QPainter& Painter, int Row, int Y) const {
    const TChainFuture& Future = FSelector.Future(Row);
    const TChainCell Cell{Row, ECallPut::Put};
    if (IsCurrent(Cell)) Painter.fillRect(QRect(0, Y, viewport()->width(), RowHeight()), FContext.Color("coHighlight"));
    // The columns of the puts, made wider to the left where a future's price is longer than those of its options.
    const TChainQuote Quote = FSelector.QuoteOf(Cell);
    QRect Room = SideRect(ECallPut::Put, Y, RowHeight());
    for (const auto& Value : {Quote.Bid, Quote.Ask, Quote.Last})
        Room.setLeft(
            std::min(Room.left(),
                     Room.right() - 2 * (fontMetrics().horizontalAdvance(Price(Value, Future.Symbol)) + 2 * kPadding)));
    PaintContract(Painter, Cell, Room);
    const QRect Name = SideRect(ECallPut::Call, Y, RowHeight()).adjusted(kPadding, 0, StrikeWidth(), 0);
    const QColor Dimmed = FContext.Color("coPlaceholderText");
    const QColor Ink = IsCurrent(Cell)             ? FContext.Color("coHighlightedText")
                       : FSelector.CanChoose(Cell) ? FContext.Color("coText")
                                                   : Dimmed;
    Painter.setPen(Ink);
    Painter.drawText(Name.adjusted(0, 0, 0, -Name.height() / 2), Qt::AlignLeft | Qt::AlignVCenter, ToQt(Future.Symbol));
    Painter.setPen(IsCurrent(Cell) ? Ink : Dimmed);
    Painter.drawText(Name.adjusted(0, Name.height() / 2, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, ToQt(Future.Expiry));
}

void TChainView::PaintStrike(QPainter& Painter, int Row, int Y) const {
    const TChainStrike& Strike = FSelector.Strike(Row);
    const QRect Line(0, Y, viewport()->width(), RowHeight());
    const bool AtTheMoney = FSelector.IsAtTheMoney(Strike);
    if (AtTheMoney) Painter.fillRect(Line, FContext.Color("coAtTheMoney"));
    for (const ECallPut Side : {ECallPut::Call, ECallPut::Put}) {
        const QRect Room = SideRect(Side, Y, RowHeight());
        if (IsCurrent({Row, Side})) Painter.fillRect(Room, FContext.Color("coHighlight"));
        PaintContract(Painter, {Row, Side}, Room);
    }
    const auto& Chain = FSelector.Chain();
    QStringList Below;
    if (Chain.HasSeveralRoots) Below << ToQt(Strike.Root);
    if (Chain.HasSeveralExpiries) Below << ToQt(Strike.Expiry).mid(5);
    const int Edge = SideRect(ECallPut::Call, Y, RowHeight()).width();
    const QRect Middle(Edge, Y, viewport()->width() - 2 * Edge, RowHeight());
    QFont Bold = font();
    Bold.setBold(AtTheMoney);
    Painter.setFont(Bold);
    Painter.setPen(FContext.Color("coText"));
    Painter.drawText(Below.isEmpty() ? Middle : Middle.adjusted(0, 0, 0, -RowHeight() / 2), kToTheMiddle,
                     ToQt(Strike.Shown));
    Painter.setFont(font());
    Painter.setPen(FContext.Color("coPlaceholderText"));
    Painter.drawText(Middle.adjusted(0, RowHeight() / 2, 0, 0), kToTheMiddle, Below.join(QChar(' ')));
    Painter.setPen(FContext.Color("coGridLine"));
    Painter.drawLine(Line.bottomLeft(), Line.bottomRight());
    Painter.drawLine(Middle.topLeft(), Middle.bottomLeft());
    Painter.drawLine(Middle.topRight(), Middle.bottomRight());
}

void TChainView::PaintSentence(QPainter& Painter) const {
    const fw::TSelectedMarket& Market = FSelector.Market();
    QString Sentence;
    switch (FSelector.State()) {
        case EChainState::Rows: return;
        case EChainState::NoMarket: Sentence = FContext.Translate("Res_HintChooseMarket"); break;
        case EChainState::NothingListed:
            Sentence = FContext.Translate("Res_ChainNothing", {Market.Exchange, Market.Series, Market.Month});
            break;
        case EChainState::NoMatch: Sentence = FContext.Translate("Res_ChainNoMatch"); break;
    }
    Painter.setPen(FContext.Color("coText"));
    Painter.drawText(viewport()->rect().adjusted(2 * kPadding, StrikesTop(), -2 * kPadding, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, Sentence);
}

void TChainView::paintEvent(QPaintEvent*) {
    QPainter Painter(viewport());
    for (int i = 0; i < ShownFutures(); ++i) PaintFuture(Painter, FirstFuture() + i, FuturesTop() + i * RowHeight());
    for (int i = 0; i < VisibleRows(); ++i) PaintStrike(Painter, FirstRow() + i, StrikesTop() + i * RowHeight());
    PaintHeads(Painter);
    PaintSentence(Painter);
}

}  // namespace ws
