// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/StrategyRun.h"

#include <algorithm>

#include "framework/base/NumberFormat.h"
#include "framework/base/Text.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/data/ColumnIds.h"
#include "framework/services/EditorManager.h"
#include "framework/services/SubscribeAdapter.h"
#include "workstation/market/MonthCode.h"

namespace ws {

namespace {

constexpr const char* kGrid = "PositionGridView";
constexpr const char* kDetail = "DetailGridView";

int StateOf(const std::string& Symbol) {
    return fw::TCustomSubscribeAdapter::GetInstance().GetSubItem(Symbol, fw::kPriceDataKind, 0)->GetState();
}

// Text of the symbol cell of a row; "" when there is none.
std::string SymbolAt(const fw::TGridTableView& View, int Row) {
    for (int i = 0; i < View.GetColumnCount(); ++i)
        if (View.GetColumn(i)->Tag == fw::kColumnSymbol)
            return fw::Trim(View.GetDataController().GetValue(Row, i).AsText());
    return {};
}

}  // namespace

TStrategyRun::TStrategyRun(fw::TFrame& Frame, const TMarketService& Market, TStrategy Strategy, TWait Patience)
    : FFrame(Frame), FMarket(Market), FStrategy(std::move(Strategy)), FPatience(Patience), FPlayer(Frame) {}

TStrategyRun::EState TStrategyRun::Poll(TWait Elapsed) {
    if (!FTyped) {
        FTyped = true;
        if (SelectMarket()) TypeSymbols();
        if (!FProblems.empty()) return EState::Failed;
    }
    if (!DataArrived() && Elapsed < FPatience) return EState::Waiting;
    NameLegsWithoutRow();
    if (FProblems.empty()) TypeLegs();
    if (FProblems.empty()) TypeRange();
    if (FProblems.empty()) Calculate();
    return FProblems.empty() ? EState::Done : EState::Failed;
}

// What is not stated comes from the first leg's contract.
bool TStrategyRun::SelectMarket() {
    auto& S = FStrategy;
    if (!S.Legs.empty() && (S.Exchange.empty() || S.Series.empty() || S.Month.empty())) {
        const auto First = fw::TEditorManager::GetInstance().GetConvertSymbol(S.Legs.front().Symbol);
        const auto* Product = FMarket.FindProduct(First);
        if (!Product) {
            Report("Res_ScriptSymbolUnknown", {S.Legs.front().Symbol});
            return false;
        }
        if (S.Exchange.empty()) S.Exchange = Product->Exchange;
        if (S.Series.empty()) S.Series = Product->Series;
        if (S.Month.empty()) S.Month = MonthCodeOf(*Product);
    }
    const TStep Steps[] = {TStep::Select("cmbExchange", S.Exchange), TStep::Select("cmbSeries", S.Series),
                           TStep::Select("cmbMonth", S.Month)};
    for (const auto& Step : Steps)
        if (!FPlayer.Play(Step)) {
            Report("Res_ScriptMarketUnknown", {Step.Value, S.Exchange, S.Series, S.Month});
            return false;
        }
    return true;
}

void TStrategyRun::TypeSymbols() {
    auto* View = FFrame.FindControl<fw::TGridTableView>(kGrid);
    for (const auto& Leg : FStrategy.Legs) {
        const int Row = View ? View->GetDataController().GetRecordCount() - 1 : -1;
        const bool Taken = FPlayer.Play(TStep::Cell(kGrid, Row, fw::kColumnSymbol, Leg.Symbol));
        FSymbols.push_back(Taken ? SymbolAt(*View, Row) : std::string());
        if (!FSymbols.back().empty()) continue;
        Report(FMarket.FindProduct(fw::TEditorManager::GetInstance().GetConvertSymbol(Leg.Symbol))
                   ? "Res_ScriptSymbolForeign"
                   : "Res_ScriptSymbolUnknown",
               {Leg.Symbol, FStrategy.Exchange, FStrategy.Series, FStrategy.Month});
    }
}

bool TStrategyRun::DataArrived() const {
    return std::all_of(FSymbols.begin(), FSymbols.end(),
                       [](const auto& Symbol) { return StateOf(Symbol) != fw::kItemUnknown; });
}

// A symbol that turned out to be foreign or unknown has lost its row by now; one without data still has it.
void TStrategyRun::NameLegsWithoutRow() {
    auto* View = FFrame.FindControl<fw::TGridTableView>(kGrid);
    int Row = 0;
    for (size_t i = 0; i < FSymbols.size(); ++i) {
        const auto& Typed = FStrategy.Legs[i].Symbol;
        const std::vector<std::string> Args{Typed, FStrategy.Exchange, FStrategy.Series, FStrategy.Month};
        const bool HasRow = SymbolAt(*View, Row) == FSymbols[i];
        if (HasRow) ++Row;
        if (StateOf(FSymbols[i]) == fw::kItemNoData)
            Report("Res_ScriptSymbolUnknown", Args);
        else if (StateOf(FSymbols[i]) == fw::kItemUnknown)
            Report("Res_ScriptSymbolNoData", Args);
        else if (!HasRow)
            Report("Res_ScriptSymbolForeign", Args);
    }
}

void TStrategyRun::TypeLegs() {
    for (size_t i = 0; i < FStrategy.Legs.size(); ++i) {
        const auto& Leg = FStrategy.Legs[i];
        const int Row = static_cast<int>(i);
        if (!FPlayer.Play(TStep::CellItem(kGrid, Row, fw::kColumnSide, Leg.Side == ELegSide::Buy ? 0 : 1)))
            Report("Res_ScriptCellRefused", {Leg.Symbol, Leg.Side == ELegSide::Buy ? "buy" : "sell"});
        if (Leg.Premium && !FPlayer.Play(TStep::CellNumber(kGrid, Row, fw::kColumnPremium, *Leg.Premium)))
            Report("Res_ScriptCellRefused", {Leg.Symbol, fw::FormatShortest(*Leg.Premium)});
        if (!FPlayer.Play(TStep::CellNumber(kGrid, Row, fw::kColumnQuantity, Leg.Qty)))
            Report("Res_ScriptCellRefused", {Leg.Symbol, fw::FormatShortest(Leg.Qty)});
    }
}

void TStrategyRun::TypeRange() {
    const std::pair<const char*, std::optional<double>> Bounds[] = {
        {"edtDown", FStrategy.Down}, {"edtUp", FStrategy.Up}, {"edtInterval", FStrategy.Interval}};
    for (const auto& [Control, Value] : Bounds)
        if (Value && !FPlayer.Play(TStep::EnterNumber(Control, *Value)))
            Report("Res_ScriptRangeRefused", {fw::FormatShortest(*Value)});
}

// The view refuses a range by leaving its table as it was, and the view is new: no rows, no calculation.
void TStrategyRun::Calculate() {
    const auto* Detail = FFrame.FindControl<fw::TGridTableView>(kDetail);
    const bool Clicked = FPlayer.Play(TStep::Click("btnCalc"));
    if (!Clicked || !Detail || Detail->GetDataController().GetRecordCount() == 0) Report("Res_ScriptNotCalculated", {});
}

}  // namespace ws
