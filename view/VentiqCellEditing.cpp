// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqCellEditing.h"

#include "engine/VentiqMarketData.h"
#include "framework/base/FlagGuard.h"
#include "framework/base/Numbers.h"
#include "framework/services/MarketAdapter.h"
#include "registration/VentiqConstDef.h"
#include "view/VentiqPriceStepping.h"

namespace ventiq {

namespace {

constexpr double kDefaultStep = 1.0;
constexpr int kBandTable = 1;

// Deliberate: a known product's lot counts even when it states none (1 then); market data only without a product.
double LotOf(const Text& Symbol) {
    const auto* Product = ListedProduct(Symbol);
    return TextToFloatDef(Product ? Product->GetLotSize() : PriceDataItem(Symbol)->GetFieldText(kFieldLotSize),
                          kDefaultStep);
}

// The table of price bands that the symbol trades on; null when it has none or one of another kind.
const TCustomSpreadTable* BandTableOf(const Text& Symbol) {
    const auto* Product = ListedProduct(Symbol);
    Text Code = Product ? Product->GetSpreadCode() : Text();
    if (Code.empty()) Code = PriceDataItem(Symbol)->GetFieldText(kFieldSpreadCode);
    if (Code.empty()) return nullptr;
    const auto* Table = TCustomMarketAdapter::GetInstance().GetSpreadTable(Code);
    return Table && Table->GetKind() == kBandTable ? Table : nullptr;
}

}  // namespace

template <class T>
T* TVentiqCellEditing::PropertiesOf(int ColumnId) const {
    const auto* Column = FGrid.GetGridColumn(ColumnId);
    return Column ? dynamic_cast<T*>(Column->GetProperties()) : nullptr;
}

bool TVentiqCellEditing::MayEdit(const TGridTableView& View, const TGridColumn& Column) const {
    const auto* Control = FContext.FMyDataControl.get();
    if (!Control || Control->GetExchange().empty() || Control->GetSeries().empty() || Control->GetMonth().empty())
        return false;
    const int Row = View.GetFocusedRecord();
    return Row >= 0 && Row >= FGrid.FirstInputRow && Column.Editing;
}

void TVentiqCellEditing::PositionGridViewEditing(TGridTableView& View, TGridColumn& Column, bool& Allow) {
    Allow = MayEdit(View, Column);
    if (!Allow) return;
    const int Row = View.GetFocusedRecord();
    const Text Symbol = FGrid.GetSymbol(Row);
    switch (Column.Tag) {
        case kColQty: return PrepareQuantity(Symbol);
        case kColOpenClose: return PrepareChoices(kColOpenClose, Symbol, &TVentiqOrderFlags::InitOpenClose);
        case kColPrincipal: return PrepareChoices(kColPrincipal, Symbol, &TVentiqOrderFlags::InitPrincipal);
        case kColPremium: return PreparePremium(Row, Symbol);
        default: return;
    }
}

void TVentiqCellEditing::PrepareQuantity(const Text& Symbol) {
    if (auto* Spin = PropertiesOf<TcxSpinEditProperties>(kColQty))
        Spin->Increment = Symbol.empty() ? kDefaultStep : LotOf(Symbol);
}

// The column's properties serve every row, so the step starts anew for each edit.
void TVentiqCellEditing::PreparePremium(int Row, const Text& Symbol) {
    const double Premium = RealPremium(Row, Symbol);
    double Step = kDefaultStep;
    if (const auto* Table = Symbol.empty() ? nullptr : BandTableOf(Symbol)) {
        double Upper = 0.0, Lower = 0.0;
        Step = GetDisplayPriceValue(Table->StepUp(Premium, Upper, Lower), Symbol);
        FPriceBandUpper[Row] = Upper;
        FPriceBandLower[Row] = Lower;
    }
    if (auto* Spin = PropertiesOf<TcxSpinEditProperties>(kColPremium)) Spin->Increment = Step;
    FLastPrice[Row] = Premium;
}

void TVentiqCellEditing::PrepareChoices(int ColumnId, const Text& Symbol,
                                        void (TVentiqOrderFlags::*Init)(const Text&)) {
    // Without a symbol there is nothing to choose from.
    FFlags.FFlagKeys.Clear();
    if (!Symbol.empty()) (FFlags.*Init)(Symbol);
    auto* Combo = PropertiesOf<TcxComboBoxProperties>(ColumnId);
    if (!Combo) return;
    Combo->Items.clear();
    for (const auto& Key : FFlags.FFlagKeys.Items()) Combo->Items.push_back(GetResourceHeader(Key));
}

void TVentiqCellEditing::PositionGridViewEditKeyDown(TGridTableView&, TGridColumn& Column, TCellEditor&, int& Key,
                                                     int) {
    const bool Arrow = Key == kKeyUp || Key == kKeyDown;
    if (Column.Tag == kColQty) {
        FQtyKeyTyped = true;
        if (Arrow) FQtyArrowKey = true;
    } else if (Column.Tag == kColPremium) {
        FPriceKeyTyped = true;
        if (Arrow) FPriceArrowKey = true;
    }
}

void TVentiqCellEditing::QuantityChange(TObject* Sender) {
    auto* Editor = dynamic_cast<TCellEditor*>(Sender);
    const bool Spun = FQtyArrowKey || !FQtyKeyTyped;
    FQtyKeyTyped = false;
    if (Spun && !FQtyUpdating && Editor && Editor->IsSpin()) {
        FQtyArrowKey = false;
        CutQuantity(*Editor);
    }
}

void TVentiqCellEditing::CutQuantity(TCellEditor& Editor) {
    const int Row = FForm.PositionGridView.GetFocusedRecord();
    if (Editor.GetValue().IsNull() || Row < 0 || FGrid.GetCell(Row, kColSymbol).IsNull()) return;
    if (const auto Cut = CutToLots(Editor.GetValue().AsFloat(0.0), LotOf(FGrid.GetSymbol(Row))))
        Correct(Editor, FQtyUpdating, Row, kColQty, *Cut);
}

void TVentiqCellEditing::PriceChange(TObject* Sender) {
    auto* Editor = dynamic_cast<TCellEditor*>(Sender);
    if (!Editor || !Editor->IsSpin() || FPriceUpdating) return;
    const bool Spun = FPriceArrowKey || !FPriceKeyTyped;
    FPriceArrowKey = FPriceKeyTyped = false;
    const int Row = FForm.PositionGridView.GetFocusedRecord();
    if (Row >= 0) MovePremium(*Editor, Row, Spun);
}

void TVentiqCellEditing::MovePremium(TCellEditor& Editor, int Row, bool Spun) {
    const auto Known = [Row](const std::map<int, double>& Prices) {
        const auto Found = Prices.find(Row);
        return Found == Prices.end() ? std::nullopt : std::optional(Found->second);
    };
    const Text Symbol = FGrid.GetSymbol(Row);
    const TPriceMoved Moved =
        MovePrice({GetRealPriceValue(Editor.GetValue().AsFloat(0.0), Symbol), Spun, Known(FPriceBandUpper),
                   Known(FPriceBandLower), Known(FLastPrice), Symbol.empty() ? nullptr : BandTableOf(Symbol)});
    if (Moved.NewBand) {
        if (auto* Spin = PropertiesOf<TcxSpinEditProperties>(kColPremium))
            Spin->Increment = GetDisplayPriceValue(Moved.NewBand->Step, Symbol);
        FPriceBandUpper[Row] = Moved.NewBand->Upper;
        FPriceBandLower[Row] = Moved.NewBand->Lower;
    }
    if (Moved.Corrected) Correct(Editor, FPriceUpdating, Row, kColPremium, GetDisplayPriceValue(Moved.Price, Symbol));
    FLastPrice[Row] = Moved.Price;
}

void TVentiqCellEditing::Correct(TCellEditor& Editor, bool& Updating, int Row, int ColumnId, double Value) {
    {
        const TFlagGuard Guard(Updating, EGuardEnd::Clear);
        Editor.SetValue(Value);
        Editor.SetCaretToEnd();
    }
    FGrid.SetCell(Row, ColumnId, Value);
}

double TVentiqCellEditing::RealPremium(int Row, const Text& Symbol) const {
    return GetRealPriceValue(FGrid.GetCell(Row, kColPremium).AsFloat(0.0), Symbol);
}

void TVentiqCellEditing::WriteChoice(TObject* Sender, int ColumnId) {
    const auto* Editor = dynamic_cast<const TCellEditor*>(Sender);
    if (!Editor || !Editor->IsCombo() || Editor->GetItemIndex() < 0) return;
    const auto& Items = Editor->GetItems();
    const auto Index = static_cast<size_t>(Editor->GetItemIndex());
    const Text Chosen = Index < Items.size() ? Items[Index] : Text();
    const int Row = FForm.PositionGridView.GetFocusedRecord();
    if (!Chosen.empty() && Row >= 0 && Row < FGrid.GetRecordCount()) FGrid.SetCell(Row, ColumnId, Chosen);
}

void TVentiqCellEditing::epiSidePropertiesChange(TObject* Sender) { WriteChoice(Sender, kColSide); }
void TVentiqCellEditing::OpenCloseChange(TObject* Sender) { WriteChoice(Sender, kColOpenClose); }
void TVentiqCellEditing::PrincipalChange(TObject* Sender) { WriteChoice(Sender, kColPrincipal); }

void TVentiqCellEditing::epiSidePropertiesPopup(TObject* Sender) {
    auto* Editor = dynamic_cast<TCellEditor*>(Sender);
    if (!Editor || !Editor->IsCombo()) return;
    const auto& Own = Editor->GetItems();
    const auto& Current = FForm.epiSide.Items;
    if (Own.size() == Current.size() && !Own.empty() && Own.front() != Current.front()) Editor->SetItems(Current);
}

}  // namespace ventiq
