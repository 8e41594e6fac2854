// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/views/OrdersData.h"

#include <algorithm>
#include <array>

#include "framework/services/Formatter.h"
#include "workstation/market/MarketDay.h"
#include "workstation/views/TradingFrame.h"

namespace ws {

namespace {

using fw::Text;
using fw::Variant;

// By EOrderState.
constexpr std::array kStates{"Res_OrderStateNew",    "Res_OrderStateAccepted",  "Res_OrderStatePartlyFilled",
                             "Res_OrderStateFilled", "Res_OrderStateCancelled", "Res_OrderStateRejected",
                             "Res_OrderStateUnknown"};

Text Padded(int64_t Number, size_t Digits) {
    const Text Plain = std::to_string(Number);
    return Text(Digits > Plain.size() ? Digits - Plain.size() : 0, '0') + Plain;
}

// A text that sorts as the moments do.
Text SortableTime(int64_t Time) {
    const fw::TClock::TTimePoint At{std::chrono::milliseconds(Time)};
    return MarketTimeText(At, 0) + "." + Padded(Time % 1000, 3);
}

Text Format(double Value, uint8_t Kind, const Text& Symbol = {}) {
    return fw::TCustomFormatter::GetInstance().FormatValue(Value, Kind, Symbol);
}
Variant Worded(const Text& Words) { return Words.empty() ? Variant() : Variant(Words); }

using TWords = const TLanguageService&;
using TOrder = const TOrderRow&;

Text SideWord(TOrder Row, TWords Words) {
    return Row.Side == 0 ? Words.Resource("Res_Side_Buy") : Words.Resource("Res_Side_Sell");
}
Text StateWord(TOrder Row, TWords Words) { return Words.Resource(kStates[static_cast<size_t>(Row.State)]); }
Text ReasonText(TOrder Row, TWords Words) {
    return Row.Reason.Key.empty() ? Text() : Words.Resource(Row.Reason.Key, Row.Reason.Args);
}
Text BatchPlace(TOrder Row, TWords Words) {
    if (Row.BatchId.empty()) return {};
    return Words.Resource("Res_OrderBatchPlace", {std::to_string(Row.Place), std::to_string(Row.BatchSize)});
}

struct TCell {
    int Column;
    Variant (*Value)(TOrder Row, TWords Words);
    Text (*Shown)(TOrder Row, TWords Words);  // null: the value's own text
};
constexpr std::array kCells{
    TCell{kColumnTime, [](TOrder Row, TWords) { return Variant(SortableTime(Row.Created)); },
          [](TOrder Row, TWords) { return WallTime(Row.Created); }},
    TCell{kColumnAccount, [](TOrder Row, TWords) { return Variant(Row.Account); }, nullptr},
    TCell{fw::kColumnSymbol, [](TOrder Row, TWords) { return Variant(Row.Symbol); }, nullptr},
    TCell{fw::kColumnSide, [](TOrder Row, TWords Words) { return Variant(SideWord(Row, Words)); }, nullptr},
    TCell{fw::kColumnPrice, [](TOrder Row, TWords) { return Variant(Row.Price); },
          [](TOrder Row, TWords) { return Format(Row.Price, fw::kFormatPrice, Row.Symbol); }},
    TCell{fw::kColumnQuantity, [](TOrder Row, TWords) { return Variant(Row.Qty); },
          [](TOrder Row, TWords) { return Format(Row.Qty, fw::kFormatQuantity); }},
    TCell{kColumnFilled, [](TOrder Row, TWords) { return Variant(Row.FilledQty); },
          [](TOrder Row, TWords) { return Format(Row.FilledQty, fw::kFormatQuantity); }},
    TCell{kColumnAverage, [](TOrder Row, TWords) { return Row.FilledQty > 0 ? Variant(Row.AvgFillPrice) : Variant(); },
          [](TOrder Row, TWords) {
              return Row.FilledQty > 0 ? Format(Row.AvgFillPrice, fw::kFormatPrice, Row.Symbol) : Text();
          }},
    TCell{kColumnState, [](TOrder Row, TWords Words) { return Variant(StateWord(Row, Words)); }, nullptr},
    TCell{kColumnReason, [](TOrder Row, TWords Words) { return Worded(ReasonText(Row, Words)); }, nullptr},
    TCell{kColumnOrderId, [](TOrder Row, TWords) { return Variant(Row.Id); }, nullptr},
    TCell{kColumnBatchPlace,
          [](TOrder Row, TWords) {
              return Row.BatchId.empty() ? Variant() : Variant(Row.BatchId + "/" + Padded(Row.Place, 6));
          },
          BatchPlace},
};

const TCell* CellOf(int Column) {
    const auto* It =
        std::find_if(kCells.begin(), kCells.end(), [&](const TCell& Cell) { return Cell.Column == Column; });
    return It == kCells.end() ? nullptr : It;
}

}  // namespace

TOrdersData::TOrdersData(const TTradingDesk& Desk) : FDesk(Desk) { Update(); }

void TOrdersData::Update() {
    const auto& Orders = FDesk.Orders.Orders();
    const bool Goes = FSeen <= Orders.size() && (FSeen == 0 || Orders[FSeen - 1].Id == FLastId);
    if (!Goes) FRows.clear(), FSeen = 0;
    for (; FSeen < Orders.size(); ++FSeen) {
        const TOrderRow& Order = Orders[FSeen];
        if (FDesk.ShowsAccount(Order.Account)) FRows.push_back({&*FIds.insert(Order.Id).first, FSeen});
    }
    if (FSeen > 0) FLastId = Orders[FSeen - 1].Id;
    NotifyDataChanged();
}

const TOrdersData::TRow* TOrdersData::RowAt(int Record) const {
    if (Record < 0 || static_cast<size_t>(Record) >= FRows.size()) return nullptr;
    return &FRows[FRows.size() - 1 - static_cast<size_t>(Record)];
}

const TOrderRow* TOrdersData::OrderAt(int Record) const {
    const TRow* Row = RowAt(Record);
    const auto& Orders = FDesk.Orders.Orders();
    return Row && Row->Index < Orders.size() && Orders[Row->Index].Id == *Row->Id ? &Orders[Row->Index] : nullptr;
}

std::string TOrdersData::IdAt(int Record) const {
    const TRow* Row = RowAt(Record);
    return Row ? *Row->Id : std::string();
}

Variant TOrdersData::GetValue(int32_t Record, int32_t Column) {
    const TOrderRow* Order = OrderAt(Record);
    const TCell* Cell = CellOf(Column);
    return Order && Cell ? Cell->Value(*Order, FDesk.Language) : Variant();
}

Text TOrdersData::GetDisplayValue(int32_t Record, int32_t Column) {
    const TOrderRow* Order = OrderAt(Record);
    const TCell* Cell = CellOf(Column);
    if (!Order || !Cell) return GetEmptyCellText();
    return Cell->Shown ? Cell->Shown(*Order, FDesk.Language) : Cell->Value(*Order, FDesk.Language).AsText();
}

bool TOrdersData::GetRowValue(int32_t Record, void*& Value) {
    const TRow* Row = RowAt(Record);
    if (Row) Value = const_cast<std::string*>(Row->Id);
    return Row != nullptr;
}

}  // namespace ws
