// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/views/PositionsData.h"

#include <cmath>

#include "framework/services/Formatter.h"
#include "framework/services/SubscribeAdapter.h"
#include "workstation/views/OrdersData.h"

namespace ws {

namespace {

using fw::Text;
using fw::Variant;

// What it last traded at; a contract that never traded, its reference price.
Variant PriceOf(const fw::TCustomSubItem& Item) {
    for (int Field : {fw::kFieldLast, fw::kFieldReferencePrice})
        if (Item.HasField(Field)) return Variant(Item.GetFieldValue(Field));
    return {};
}

// In the contract's currency; in price units where the market states no multiplier.
Variant ProfitOf(const fw::TCustomSubItem& Item, double Qty, double Average) {
    const Variant Price = PriceOf(Item);
    if (Price.IsNull()) return {};
    const double Multiplier = Item.HasField(fw::kFieldMultiplier) ? Item.GetFieldValue(fw::kFieldMultiplier) : 1.0;
    return Variant((Price.AsFloat() - Average) * Qty * Multiplier);
}

Text Format(const Variant& Value, uint8_t Kind, const Text& Symbol = {}) {
    return Value.IsNull() ? Text() : fw::TCustomFormatter::GetInstance().FormatValue(Value.AsFloat(), Kind, Symbol);
}

bool IsAverage(int Column) { return Column >= kColumnAverageOfMode && Column < kColumnAverageOfMode + kAverageModes; }

}  // namespace

TPositionsData::TPositionsData(const TTradingDesk& Desk) : FDesk(Desk) {}
TPositionsData::~TPositionsData() { Watch({}); }

void TPositionsData::SetMode(int Mode) { FMode = Mode >= 0 && Mode < kAverageModes ? Mode : 0; }

void TPositionsData::Update() {
    FRows.clear();
    std::set<std::string> Symbols;
    for (THolding& Holding : FDesk.Orders.AllHoldings()) {
        if (!FDesk.ShowsAccount(Holding.Account)) continue;
        Symbols.insert(Holding.Symbol);
        TLine& Line = FLines[{Holding.Account, Holding.Symbol}];
        Line.Holding = std::move(Holding);
        FRows.push_back(&Line);
    }
    Watch(Symbols);
    for (TLine* Line : FRows) Line->Item = FWatched.at(Line->Holding.Symbol);
    NotifyDataChanged();
}

void TPositionsData::Watch(const std::set<std::string>& Symbols) {
    if (Symbols.empty() && FWatched.empty()) return;
    auto& Market = fw::TCustomSubscribeAdapter::GetInstance();
    std::erase_if(FWatched, [&](const auto& Each) {
        if (Symbols.contains(Each.first)) return false;
        Market.Unsubscribe(Each.second, this);
        return true;
    });
    for (const std::string& Symbol : Symbols) {
        fw::TCustomSubItem*& Item = FWatched[Symbol];
        if (Item) continue;
        Item = Market.GetSubItem(Symbol, fw::kPriceDataKind, 0);
        Market.Subscribe(
            Item,
            [this](fw::TObject*, fw::TObject*) {
                if (OnQuote) OnQuote();
            },
            this);
    }
}

TPositionsData::TLine* TPositionsData::LineAt(int Record) const {
    return Record >= 0 && static_cast<size_t>(Record) < FRows.size() ? FRows[static_cast<size_t>(Record)] : nullptr;
}

double TPositionsData::AverageOf(const THolding& Holding, int Mode) const {
    constexpr double THolding::*kOfMode[] = {&THolding::AverageCost, &THolding::FirstInFirstOut,
                                             &THolding::OvernightSettled};
    return Holding.*kOfMode[Mode];
}

Variant TPositionsData::GetValue(int32_t Record, int32_t Column) {
    const TLine* Line = LineAt(Record);
    if (!Line) return {};
    if (IsAverage(Column)) return Variant(AverageOf(Line->Holding, Column - kColumnAverageOfMode));
    switch (Column) {
        case kColumnAccount: return Variant(Line->Holding.Account);
        case fw::kColumnSymbol: return Variant(Line->Holding.Symbol);
        case fw::kColumnQuantity: return Variant(Line->Holding.Qty);
        case kColumnLast: return PriceOf(*Line->Item);
        case fw::kColumnProfitLoss: return ProfitOf(*Line->Item, Line->Holding.Qty, AverageOf(Line->Holding, FMode));
        case kColumnCurrency: return Variant(Line->Item->GetFieldText(fw::kFieldCurrency));
        default: return {};
    }
}

Text TPositionsData::GetDisplayValue(int32_t Record, int32_t Column) {
    const Variant Value = GetValue(Record, Column);
    if (Value.IsNull()) return GetEmptyCellText();
    if (Value.IsText()) return Value.AsText();
    if (Column == fw::kColumnQuantity) return Format(Value, fw::kFormatQuantity);
    if (Column == fw::kColumnProfitLoss) return Format(Value, fw::kFormatAmount);
    return Format(Value, fw::kFormatPrice, LineAt(Record)->Holding.Symbol);
}

bool TPositionsData::GetRowValue(int32_t Record, void*& Value) {
    TLine* Line = LineAt(Record);
    if (Line) Value = Line;
    return Line != nullptr;
}

}  // namespace ws
