// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqSymbolEntry.h"

#include "engine/VentiqMarketData.h"
#include "framework/base/Log.h"
#include "framework/base/Numbers.h"
#include "framework/services/EditorManager.h"
#include "registration/VentiqConstDef.h"
#include "view/VentiqSymbolText.h"

namespace ventiq {

namespace {

constexpr const char* kBlankSymbol = " ";

bool IsEmptyCell(const Variant& Value) { return Value.IsNull() || (Value.IsText() && Value.AsText().empty()); }

// Strike of an option as a float. Deliberate: anything else keeps the cell, so a row that turns from an option into a
// future goes on showing the old strike beside an empty call/put.
Variant StrikeCell(const Variant& Current, const Text& Symbol) {
    int Type = 0;
    double Strike = 0.0;
    if (const auto* Product = ListedProduct(Symbol)) {
        Type = Product->GetProductType();
        Strike = TextToFloatDef(Product->GetStrikePrice(), 0.0);
    } else {
        const auto* Item = PriceDataItem(Symbol);
        Type = TextToIntDef(Item->GetFieldText(kFieldProductType), 0);
        Strike = Item->GetFieldValue(kFieldStrike);
    }
    return Type == kProductOption ? Variant(Strike) : Current;
}

Variant PremiumCell(const Variant& Current, const Text& Symbol) {
    const auto* Item = PriceDataItem(Symbol);
    if (!IsEmptyCell(Current) || !Item->HasField(kFieldReferencePrice)) return Current;
    return GetDisplayPriceValue(Item->GetFieldValue(kFieldReferencePrice), Symbol);
}

}  // namespace

void TVentiqSymbolEntry::SymbolOnValidate(TObject*, Variant& Value, Text&, bool&) {
    ValidateSymbolAt(FForm.PositionGridView.GetFocusedRecord(), Value);
}

void TVentiqSymbolEntry::ValidateSymbolAt(int Row, Variant& Value) {
    const Text Typed = Trim(Value.AsText());
    if (Typed.empty()) return EmptySymbolAt(Row);

    const Text Symbol = TEditorManager::GetInstance().GetConvertSymbol(NormalizeSymbolText(Typed));
    Value = Symbol;
    // The host's form drops more blanks than ours (the wide ones of an input method); nothing is left, nothing was
    // typed.
    if (Symbol.empty()) return EmptySymbolAt(Row);
    if (!FCheck.IsValidSymbol(Symbol)) {
        if (PriceDataItem(Symbol)->GetState() != kItemUnknown) {
            Value = kBlankSymbol;
            return ReportForeign(Typed, Symbol);
        }
        // Nothing is known yet: the symbol stays and is checked again when its data arrive.
        FSubscriptions.CheckSymbolState(Symbol);
        return AcceptSymbolAt(Row);
    }
    if (PriceDataItem(Symbol)->GetState() == kItemUnknown) FSubscriptions.CheckSymbolState(Symbol);
    AcceptSymbolAt(Row);
    FillRow(Row, Symbol);
}

// The row goes on the next timer tick, outside the editing event; the last row is the input row and stays.
void TVentiqSymbolEntry::EmptySymbolAt(int Row) {
    const int Count = FGrid.GetRecordCount();
    if (Row != Count - 1 && Count > 1) FGrid.FPendingDeleteRecordIndex = Row;
}

// An empty row always follows the legs, and a row that has a symbol again is not removed any more.
void TVentiqSymbolEntry::AcceptSymbolAt(int Row) {
    if (Row == FGrid.FPendingDeleteRecordIndex) FGrid.FPendingDeleteRecordIndex = -1;
    const int Count = FGrid.GetRecordCount();
    if (Row == Count - 1) FGrid.SetRecordCount(Count + 1);
}

void TVentiqSymbolEntry::FillRow(int Row, const Text& Symbol) {
    auto& View = FForm.PositionGridView;
    for (int Column = 0; Column < View.GetColumnCount(); ++Column) {
        const int Id = View.GetColumn(Column)->Tag;
        if (Id == kColSymbol) continue;
        const Variant Current = View.GetDataController().GetValue(Row, Column);
        const Variant Filled = FilledCell(Id, Current, Symbol);
        if (!(Filled == Current)) View.GetDataController().SetValue(Row, Column, Filled);
    }
}

// What the instrument decides is rewritten, what the trader decides is only proposed where nothing stands.
Variant TVentiqSymbolEntry::FilledCell(int ColumnId, const Variant& Current, const Text& Symbol) {
    const bool Empty = IsEmptyCell(Current);
    switch (ColumnId) {
        case kColQty: return Empty ? Variant(1) : Current;
        case kColSide: return Empty ? Variant(GetResourceHeader("Res_Side_Buy")) : Current;
        case kColOpenClose:
            return Empty || FFlags.CheckSymbolOpenCloseValidation(Symbol, Current.AsText()) ? Current : Variant("");
        case kColPrincipal:
            return Empty || FFlags.CheckSymbolPrincipalValidation(Symbol, Current.AsText()) ? Current : Variant("");
        case kColStrike: return StrikeCell(Current, Symbol);
        case kColCallPut: return CallPutText(Symbol);
        case kColExpiry: return PriceDataItem(Symbol)->GetFieldText(kFieldExpiry);
        case kColPremium: return PremiumCell(Current, Symbol);
        default: return Current;
    }
}

// Deliberate: the first character of the product's own code decides here, while P/L and loaded positions go by the
// market data's code; the two rules are not the same.
Text TVentiqSymbolEntry::CallPutText(const Text& Symbol) const {
    const auto* Product = ListedProduct(Symbol);
    const Text Code = Product ? Product->GetCallPutCode() : Text();
    const char First = Code.empty() ? '\0' : Code.front();
    if (First == '1' || First == '6' || First == 'C') return FTexts.FCallRes;
    if (First == '2' || First == '7' || First == 'P') return FTexts.FPutRes;
    switch (GetCallPut(*PriceDataItem(Symbol))) {
        case kCall: return FTexts.FCallRes;
        case kPut: return FTexts.FPutRes;
        default: return "";
    }
}

void TVentiqSymbolEntry::ReCheckSymbol(const Text& Symbol) {
    if (!FGrid.GetGridColumn(kColSymbol)) return;
    const int Count = FGrid.GetRecordCount();
    int Row = 0;
    while (Row < Count && (FGrid.GetCell(Row, kColSymbol).IsNull() || FGrid.GetSymbol(Row) != Symbol)) ++Row;
    if (Row == Count) return;

    if (FCheck.IsValidSymbol(Symbol)) {
        Variant Value = FGrid.GetCell(Row, kColSymbol);
        ValidateSymbolAt(Row, Value);  // fills the row; the cell keeps the symbol as it stands
        return;
    }
    // Every pending symbol is looked at on every update: one whose own data have not come goes on waiting.
    if (PriceDataItem(Symbol)->GetState() == kItemUnknown) return;
    ReportForeign(Symbol, Symbol);
    if (Row != Count - 1 && Count > 1)
        FGrid.DeleteRow(Row);
    else
        FGrid.SetCell(Row, kColSymbol, "");
}

void TVentiqSymbolEntry::HandleSelectSymbol(TObject*, TObject* Data) {
    // Hidden in every case, also when validation raises.
    struct TFinally {
        TVentiqSymbolEntry& Part;
        ~TFinally() { Part.HidePopup(); }
    } Finally{*this};

    const auto* MarketData = dynamic_cast<const TCustomMarketData*>(Data);
    const Text Symbol = MarketData ? MarketData->GetSymbol() : Text();
    const int Row = FForm.PositionGridView.GetFocusedRecord();
    if (Symbol.empty() || Row < 0 || !FGrid.GetGridColumn(kColSymbol)) return;
    Variant Value = Symbol;
    ValidateSymbolAt(Row, Value);
    const Text Result = Trim(Value.AsText());
    if (!Result.empty()) FGrid.SetCell(Row, kColSymbol, Result);
}

void TVentiqSymbolEntry::HidePopup() {
    const auto* Column = FGrid.GetGridColumn(kColSymbol);
    const auto* Properties = Column ? dynamic_cast<const TcxPopupEditProperties*>(Column->GetProperties()) : nullptr;
    if (Properties && Properties->PopupControl) Properties->PopupControl->Hide();
}

// The rule says nothing to the trader; the log names the typed text and the reason.
void TVentiqSymbolEntry::ReportForeign(const Text& Typed, const Text& Symbol) const {
    if (!FContext.FMyDataControl) return;
    if (!ListedProduct(Symbol) && PriceDataItem(Symbol)->GetState() == kItemNoData)
        return TLog::Warning("Res_LogSymbolUnknown", {Typed});
    const TSymbolPlace Place = PlaceOfSymbol(Symbol);
    const auto& Control = *FContext.FMyDataControl;
    TLog::Warning("Res_LogSymbolForeign", {Typed, Place.Exchange, Place.Series, Place.ExpiryDate, Control.GetExchange(),
                                           Control.GetSeries(), Control.GetMonth()});
}

}  // namespace ventiq
