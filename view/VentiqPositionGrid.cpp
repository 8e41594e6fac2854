// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqPositionGrid.h"

#include <algorithm>
#include <utility>

#include "framework/base/KeepList.h"
#include "framework/base/Log.h"
#include "framework/services/Formatter.h"
#include "framework/services/GlobalChannelManager.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

constexpr int kPopupSize = 400;  // pixels at scale 100, both ways
constexpr double kMaxQuantity = 2000000000.0;

// Text that stands for the old one in the current language; null when the dictionary does not know the old text.
Variant TranslatedFlag(const TFlagDictionary& Dictionary, const Text& Old) {
    const auto It =
        std::find_if(Dictionary.begin(), Dictionary.end(), [&](const auto& Entry) { return Entry.second == Old; });
    return It == Dictionary.end() ? Variant() : Variant(GetResourceHeader(It->first));
}

}  // namespace

void TVentiqPositionGrid::InitializeGrid() {
    FColumnInfos = Keep(std::make_unique<TColumnInfoList>());
    FillColumnInfos(*FColumnInfos, kPositionColumns);
    auto& View = FForm.PositionGridView;
    const TViewUpdate Update(View);
    View.ClearColumns();
    for (size_t i = 0; i < kPositionColumns.size(); ++i) BuildColumn(*(*FColumnInfos)[i], kPositionColumns[i].Editor);
}

void TVentiqPositionGrid::BuildColumn(const TColumnInfo& Info, EColumnEditor Editor) {
    auto& Column = CreateColumn(FForm.PositionGridView, Info, GetResourceHeader(Info.CaptionKey));
    Column.OnGetDisplayText = [this](TGridColumn& Of, int Record, Text& Shown) {
        PositionGridColumnGetDisplayText(Of, Record, Shown);
    };
    switch (Editor) {
        case EColumnEditor::Plain: break;
        case EColumnEditor::SymbolPopup: SetUpSymbolEditor(Column); break;
        case EColumnEditor::PerRow: SetUpSideEditor(Column); break;
        case EColumnEditor::Premium: SetUpSpinEditor(Column, OnPriceChange); break;
        case EColumnEditor::Quantity: {
            SetUpSpinEditor(Column, OnQuantityChange);
            auto& Spin = static_cast<TcxSpinEditProperties&>(*Column.GetProperties());
            Spin.MinValue = 0.0;
            Spin.MaxValue = kMaxQuantity;
            break;
        }
        case EColumnEditor::OpenClose: SetUpChoiceEditor(Column, OnOpenCloseChange); break;
        case EColumnEditor::Principal: SetUpChoiceEditor(Column, OnPrincipalChange); break;
    }
}

void TVentiqPositionGrid::SetUpSymbolEditor(TGridColumn& Column) {
    Column.Focusing = true;
    auto& Popup = Column.SetProperties<TcxPopupEditProperties>();
    Popup.AlwaysShowButton = true;
    Popup.ShowErrorIcon = true;
    Popup.PopupWidth = kPopupSize;
    Popup.PopupHeight = kPopupSize;
    Popup.OnValidate = OnSymbolValidate;
    Popup.OnInitPopup = [this, &Popup](TObject*) { RequestSymbolPopup(Popup); };
    RequestSymbolPopup(Popup);
}

// Once a grid: the host's selector is asked for here, and again when the popup opens while nobody has answered yet.
void TVentiqPositionGrid::RequestSymbolPopup(TcxPopupEditProperties& Properties) {
    if (Properties.PopupControl) return;
    TPopupRequestRecord Request;
    Request.Owner = FContext.FOwner;
    Request.OnSelected = [this, Alive = std::weak_ptr<bool>(FAlive)](TObject* Sender, TObject* Data) {
        if (!Alive.expired() && OnSelectSymbol) OnSelectSymbol(Sender, Data);
    };
    Request.OnGetMarket = [this, Alive = std::weak_ptr<bool>(FAlive)] {
        const auto* Control = Alive.expired() ? nullptr : FContext.FMyDataControl.get();
        return Control ? TSelectedMarket{Control->GetExchange(), Control->GetSeries(), Control->GetMonth()}
                       : TSelectedMarket();
    };
    TCustomGlobalChannelManager::GetInstance().SendData(kChannelSymbolPopup, &Request);
    Properties.PopupControl = Request.Control;
}

// Input rows are edited through the form's own list, loaded rows are not edited.
void TVentiqPositionGrid::SetUpSideEditor(TGridColumn& Column) {
    FForm.epiSide.OnChange = OnSideChange;
    FForm.epiSide.OnPopup = OnSidePopup;
    Column.OnGetProperties = [this](TGridColumn& Of, int Row, TcxEditProperties*& Properties) {
        PositionGridGetProperties(Of, Row, Properties);
    };
}

void TVentiqPositionGrid::SetUpSpinEditor(TGridColumn& Column, const TNotifyEvent& OnChange) {
    auto& Spin = Column.SetProperties<TcxSpinEditProperties>();
    Spin.AlwaysShowButton = true;
    Spin.Alignment = EAlignment::Right;
    Spin.ButtonsLeftAndRight = true;
    Spin.FloatValues = true;
    Spin.NullText = "";
    Spin.LeftAlignWhileEditing = false;
    Spin.OnChange = OnChange;
}

void TVentiqPositionGrid::SetUpChoiceEditor(TGridColumn& Column, const TNotifyEvent& OnChange) {
    auto& Combo = Column.SetProperties<TcxComboBoxProperties>();
    Combo.FixedList = true;
    Combo.AlwaysShowButton = true;
    Combo.NullText = "";
    Combo.OnChange = OnChange;
}

TGridColumn* TVentiqPositionGrid::GetGridColumn(int Id) const {
    const auto& View = FForm.PositionGridView;
    for (int i = 0; i < View.GetColumnCount(); ++i)
        if (auto* Column = View.GetColumn(i); Column->Tag == Id) return Column;
    return nullptr;
}

void TVentiqPositionGrid::UpdateGridHeader() {
    RetitleColumns(FForm.PositionGridView, *FColumnInfos, GetResourceHeader);
}

void TVentiqPositionGrid::UpdateGridContent() {
    auto& View = FForm.PositionGridView;
    auto& Data = View.GetDataController();
    const TViewUpdate Update(View);
    for (int Row = 0; Row < Data.GetRecordCount(); ++Row)
        for (int Index = 0; Index < View.GetColumnCount(); ++Index) {
            const Variant Translated = TranslatedCell(View.GetColumn(Index)->Tag, Data.GetValue(Row, Index));
            if (!Translated.IsNull()) Data.SetValue(Row, Index, Translated);
        }
}

// Null: the cell stays as it is.
Variant TVentiqPositionGrid::TranslatedCell(int ColumnId, const Variant& Cell) const {
    if (Cell.IsNull()) return {};
    const Text Old = Trim(Cell.AsText());
    const auto& Sides = FForm.epiSide.Items;
    switch (ColumnId) {
        case kColSide:
            if (!Sides.empty() && Old == Sides[kSideBuy]) return GetResourceHeader("Res_Side_Buy");
            if (Sides.size() > 1 && Old == Sides[kSideSell]) return GetResourceHeader("Res_Side_Sell");
            return {};
        case kColCallPut:
            if (Old == FTexts.FCallRes) return GetResourceHeader("Res_Call");
            if (Old == FTexts.FPutRes) return GetResourceHeader("Res_Put");
            return {};
        case kColOpenClose: return TranslatedFlag(FFlags.FOpenCloseDictionary, Old);
        case kColPrincipal: return TranslatedFlag(FFlags.FPrincipalDictionary, Old);
        default: return {};
    }
}

Variant TVentiqPositionGrid::GetCell(int Record, int Id) const {
    const auto* Column = GetGridColumn(Id);
    return Column ? FForm.PositionGridView.GetDataController().GetValue(Record, Column->GetIndex()) : Variant();
}

void TVentiqPositionGrid::SetCell(int Record, int Id, const Variant& Value) {
    if (const auto* Column = GetGridColumn(Id))
        FForm.PositionGridView.GetDataController().SetValue(Record, Column->GetIndex(), Value);
}

Text TVentiqPositionGrid::GetSymbol(int Record) const { return Trim(GetCell(Record, kColSymbol).AsText()); }

void TVentiqPositionGrid::DeleteRow(int Record) {
    if (Record < 0 || Record >= GetRecordCount()) return;
    FForm.PositionGridView.GetDataController().DeleteRecord(Record);
    if (Record < FirstInputRow) --FirstInputRow;
    if (Record == FPendingDeleteRecordIndex)
        FPendingDeleteRecordIndex = -1;
    else if (Record < FPendingDeleteRecordIndex)
        --FPendingDeleteRecordIndex;
}

// Legs, results, chart and table stay as they are until the next calculation.
void TVentiqPositionGrid::btnClearClick(TObject*) {
    auto& View = FForm.PositionGridView;
    View.CancelEdit();
    FirstInputRow = 0;
    FPendingDeleteRecordIndex = -1;  // the marked row is gone
    SetRecordCount(1);
    for (int Column = 0; Column < View.GetColumnCount(); ++Column) View.GetDataController().SetValue(0, Column, {});
}

void TVentiqPositionGrid::TimerEvent(TObject*) {
    const int Row = std::exchange(FPendingDeleteRecordIndex, -1);
    if (Row < 0 || Row >= GetRecordCount() - 1) return;
    DeleteRow(Row);
    TLog::Info("Res_LogRowRemoved", {std::to_string(Row + 1)});
}

void TVentiqPositionGrid::PositionGridGetProperties(TGridColumn& Column, int Row, TcxEditProperties*& Properties) {
    if (Row >= FirstInputRow && Column.Tag == kColSide) Properties = &FForm.epiSide;
}

void TVentiqPositionGrid::PositionGridColumnGetDisplayText(TGridColumn& Column, int Record, Text& Shown) {
    const int Id = Column.Tag;
    if (Id != kColQty && Id != kColStrike && Id != kColPremium) return;
    const Variant Cell = FForm.PositionGridView.GetDataController().GetValue(Record, Column.GetIndex());
    if (Cell.IsNull()) return;
    const double Value = Cell.AsFloat();
    auto& Formatter = TCustomFormatter::GetInstance();
    if (Id == kColQty) {
        Shown = Formatter.FormatValue(Value, kFormatQuantity, "", true, nullptr);
        return;
    }
    const Text Symbol = GetSymbol(Record);
    // Deliberate: the cell holds display units and the formatter takes real ones, which it writes as the symbol is
    // quoted. A strike comes in real units from the instrument and goes to the formatter as it is.
    Shown = Formatter.FormatValue(Id == kColPremium ? GetRealPriceValue(Value, Symbol) : Value, kFormatPrice, Symbol,
                                  true, nullptr);
}

TStyle* TVentiqPositionGrid::PositionGridViewStylesGetContentStyle(int Row, TGridColumn&) {
    if (Row < 0 || Row < FirstInputRow) return nullptr;
    // A blank that replaced a refused symbol counts as content.
    for (int Index = 0; Index < FForm.PositionGridView.GetColumnCount(); ++Index)
        if (!FForm.PositionGridView.GetDataController().GetValue(Row, Index).AsText().empty()) return &FForm.sInput;
    return nullptr;
}

}  // namespace ventiq
