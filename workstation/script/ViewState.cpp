// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/ViewState.h"

#include <algorithm>
#include <array>

#include "framework/base/Numbers.h"
#include "framework/base/StringList.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/PopupEdit.h"
#include "framework/controls/SpinEdit.h"
#include "framework/data/ColumnIds.h"
#include "framework/services/LanguageManager.h"
#include "workstation/resources/Texts.h"

namespace ws {

namespace {

struct TChoice {
    int Column;
    std::string_view Code;
    const char* Key;
};
constexpr std::array kChoices{TChoice{fw::kColumnSide, "buy", "Res_Side_Buy"},
                              TChoice{fw::kColumnSide, "sell", "Res_Side_Sell"},
                              TChoice{fw::kColumnOpenClose, "free", "Res_OpenClose_N"},
                              TChoice{fw::kColumnOpenClose, "open", "Res_OrderOpen"},
                              TChoice{fw::kColumnOpenClose, "close", "Res_OrderClose"},
                              TChoice{fw::kColumnPrincipal, "any", "Res_Principal_N"},
                              TChoice{fw::kColumnPrincipal, "client", "Res_Principal_C"},
                              TChoice{fw::kColumnPrincipal, "house", "Res_Principal_H"},
                              TChoice{fw::kColumnPrincipal, "rt", "Res_Principal_RT"}};

// An editor that was open during a language switch may have left a text of the former language.
std::string CodeOfChoice(int Column, const std::string& Shown) {
    for (const TChoice& Choice : kChoices)
        for (int Language = 0; Choice.Column == Column && Language < kLanguageCount; ++Language)
            if (TTextTable::Embedded().Lookup(kTagResource, Choice.Key, Language) == Shown)
                return std::string(Choice.Code);
    return {};
}

std::optional<double> NumberOf(const fw::Variant& Cell) {
    return Cell.IsNull() || Cell.AsText().empty() ? std::nullopt : std::optional(Cell.AsFloat());
}

TRowState RowOf(const fw::TGridTableView& View, int Record) {
    TRowState Row;
    for (int i = 0; i < View.GetColumnCount(); ++i) {
        const int Tag = View.GetColumn(i)->Tag;
        const fw::Variant Cell = View.GetDataController().GetValue(Record, i);
        switch (Tag) {
            case fw::kColumnSymbol: Row.Symbol = fw::Trim(Cell.AsText()); break;
            case fw::kColumnSide: Row.Side = CodeOfChoice(Tag, Cell.AsText()); break;
            case fw::kColumnOpenClose: Row.OpenClose = CodeOfChoice(Tag, Cell.AsText()); break;
            case fw::kColumnPrincipal: Row.Principal = CodeOfChoice(Tag, Cell.AsText()); break;
            case fw::kColumnPremium: Row.Premium = NumberOf(Cell); break;
            case fw::kColumnQuantity: Row.Qty = NumberOf(Cell); break;
            default: break;
        }
    }
    return Row;
}

// A row that lost its symbol in the middle of the legs is none any more.
std::vector<TRowState> RowsOf(const fw::TGridTableView& View) {
    std::vector<TRowState> Rows;
    const int Count = View.GetDataController().GetRecordCount();
    for (int Record = 0; Record < Count; ++Record) {
        TRowState Row = RowOf(View, Record);
        if (!Row.Symbol.empty() || (Record == Count - 1 && Row != TRowState())) Rows.push_back(std::move(Row));
    }
    return Rows;
}

// Items read "code(name)".
std::string CodeOf(const fw::TComboBox& Combo) { return Combo.GetText().substr(0, Combo.GetText().find('(')); }

std::optional<double> ValueOf(const fw::TFrame& Frame, const char* Editor) {
    const auto& Value = Frame.FindControl<fw::TSpinEdit>(Editor)->GetValue();
    return Value.IsNull() ? std::nullopt : std::optional(Value.AsFloat());
}

// --- text

template <class TState>
struct TTextField {
    const char* Name;
    std::string TState::*Field;
};
template <class TState>
struct TNumberField {
    const char* Name;
    std::optional<double> TState::*Field;
};
constexpr TTextField<TViewState> kStateTexts[] = {{"Layout", &TViewState::Layout},
                                                  {"Account", &TViewState::Account},
                                                  {"Exchange", &TViewState::Exchange},
                                                  {"Series", &TViewState::Series},
                                                  {"Month", &TViewState::Month}};
constexpr TNumberField<TViewState> kStateNumbers[] = {
    {"Down", &TViewState::Down}, {"Up", &TViewState::Up}, {"Interval", &TViewState::Interval}};
constexpr TTextField<TRowState> kRowTexts[] = {{"Symbol", &TRowState::Symbol},
                                               {"Side", &TRowState::Side},
                                               {"OpenClose", &TRowState::OpenClose},
                                               {"Principal", &TRowState::Principal}};
constexpr TNumberField<TRowState> kRowNumbers[] = {{"Premium", &TRowState::Premium}, {"Qty", &TRowState::Qty}};
constexpr std::string_view kRow = "Row", kCalculated = "Calculated";

void Put(fw::TStringList& Pairs, std::string_view Name, const std::string& Value) {
    if (!Value.empty()) Pairs.Add(std::string(Name) + '=' + Value);
}

template <class TState, class TTexts, class TNumbers>
void PutFields(fw::TStringList& Pairs, const TState& State, const TTexts& Texts, const TNumbers& Numbers) {
    for (const auto& [Name, Field] : Texts) Put(Pairs, Name, State.*Field);
    for (const auto& [Name, Field] : Numbers)
        if (State.*Field) Put(Pairs, Name, fw::FloatToShortestText(*(State.*Field)));
}

template <class TState, class TTexts, class TNumbers>
void TakeField(TState& State, std::string_view Name, std::string_view Value, const TTexts& Texts,
               const TNumbers& Numbers) {
    for (const auto& [Known, Field] : Texts)
        if (Name == Known) State.*Field = std::string(Value);
    for (const auto& [Known, Field] : Numbers)
        if (Name == Known) State.*Field = fw::TextToFloat(Value);
}

template <class TTake>
void EachPair(std::string_view Text, const TTake& Take) {
    fw::TStringList Pairs;
    Pairs.SetCommaText(Text);
    for (const std::string_view Pair : Pairs.Items())
        if (const auto Equals = Pair.find('='); Equals != std::string_view::npos)
            Take(Pair.substr(0, Equals), Pair.substr(Equals + 1));
}

TRowState RowOfText(std::string_view Text) {
    TRowState Row;
    EachPair(Text, [&](auto Name, auto Value) { TakeField(Row, Name, Value, kRowTexts, kRowNumbers); });
    return Row;
}

}  // namespace

bool HasViewState(const fw::TFrame& Frame) {
    const auto Has = [&Frame]<class TControl>(const auto& Names, std::type_identity<TControl>) {
        return std::all_of(std::begin(Names), std::end(Names),
                           [&](const char* Name) { return Frame.FindControl<TControl>(Name) != nullptr; });
    };
    return Has(kMarketCombos, std::type_identity<fw::TComboBox>()) &&
           Has(kRangeEditors, std::type_identity<fw::TSpinEdit>()) && Frame.FindControl<fw::TGridTableView>(kLegsView);
}

std::optional<TViewState> CaptureView(fw::TFrame& Frame) {
    if (!HasViewState(Frame)) return std::nullopt;
    const auto Combo = [&Frame](int Level) -> const auto& {
        return *Frame.FindControl<fw::TComboBox>(kMarketCombos[Level]);
    };
    if (Combo(0).GetCount() == 0) return std::nullopt;
    TViewState State;
    State.Exchange = CodeOf(Combo(0));
    State.Series = CodeOf(Combo(1));
    State.Month = CodeOf(Combo(2));
    State.Down = ValueOf(Frame, kRangeEditors[0]);
    State.Up = ValueOf(Frame, kRangeEditors[1]);
    State.Interval = ValueOf(Frame, kRangeEditors[2]);
    State.Rows = RowsOf(*Frame.FindControl<fw::TGridTableView>(kLegsView));
    State.Layout = Frame.GetLayoutData();
    if (const auto* Account = Frame.FindControl<fw::TPopupEdit>(kAccountEditor)) State.Account = Account->GetHint();
    const auto* Results = Frame.FindControl<fw::TGridTableView>(kResultsView);
    State.Calculated = Results && Results->GetDataController().GetRecordCount() > 0 && !Frame.GetStaleSince();
    return State;
}

bool IsTyping(const fw::TFrame& Frame) {
    const auto* View = Frame.FindControl<fw::TGridTableView>(kLegsView);
    if (View && View->GetEditor() && View->GetEditor()->IsModified()) return true;
    return std::any_of(std::begin(kRangeEditors), std::end(kRangeEditors), [&Frame](const char* Name) {
        const auto* Editor = Frame.FindControl<fw::TSpinEdit>(Name);
        return Editor && Editor->IsModified();
    });
}

std::string ChoiceText(std::string_view Code) {
    fw::Text Shown;
    for (const TChoice& Choice : kChoices)
        if (Choice.Code == Code)
            fw::TCustomLanguageManager::GetInstance().GetResourceString(Shown, Const::ResourceStringTag, Choice.Key);
    return Shown;
}

std::string TextOfState(const TViewState& State) {
    fw::TStringList Pairs;
    PutFields(Pairs, State, kStateTexts, kStateNumbers);
    if (State.Calculated) Put(Pairs, kCalculated, "1");
    for (const TRowState& Row : State.Rows) {
        fw::TStringList Cells;
        PutFields(Cells, Row, kRowTexts, kRowNumbers);
        Put(Pairs, kRow, Cells.GetCommaText());
    }
    return Pairs.GetCommaText();
}

TViewState StateOfText(std::string_view Text) {
    TViewState State;
    EachPair(Text, [&State](auto Name, auto Value) {
        if (Name == kRow)
            State.Rows.push_back(RowOfText(Value));
        else if (Name == kCalculated)
            State.Calculated = Value == "1";
        else
            TakeField(State, Name, Value, kStateTexts, kStateNumbers);
    });
    return State;
}

}  // namespace ws
