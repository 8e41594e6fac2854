// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/VentiqPriceConversion.h"
#include "view/VentiqColumns.h"
#include "view/VentiqContext.h"
#include "view/VentiqForm.h"
#include "view/VentiqOrderFlags.h"
#include "view/VentiqTexts.h"

namespace ventiq {

// The editable grid of legs: its columns, its rows and what they look like. Owns the division of the rows and the mark
// of a row that waits for removal.
class TVentiqPositionGrid {
public:
    TVentiqPositionGrid(TVentiqForm& Form, TVentiqContext& Context, TVentiqTexts& Texts, TVentiqOrderFlags& Flags)
        : FForm(Form), FContext(Context), FTexts(Texts), FFlags(Flags) {}

    // Rows before it are loaded positions, rows from it on are typed by the user.
    int FirstInputRow = 0;
    // Row to delete on the next timer tick; -1 none.
    int FPendingDeleteRecordIndex = -1;

    // Events of the symbol column and of the flag columns, set before InitializeGrid by the frame.
    std::function<void(TObject* Sender, Variant& Value, Text& ErrorText, bool& Error)> OnSymbolValidate;
    TDataEvent OnSelectSymbol;  // a symbol was chosen in the popup; Data is a TCustomMarketData
    TNotifyEvent OnSideChange, OnSidePopup, OnPriceChange, OnQuantityChange, OnOpenCloseChange, OnPrincipalChange;

    // Makes the column list, builds the columns from it and asks the host for the symbol popup.
    void InitializeGrid();
    // Goes to the host for good: the process keeps it, nobody frees it. Null before InitializeGrid.
    TColumnInfoList* GetColumnInfos() const { return FColumnInfos; }

    // First column whose tag equals Id; null when there is none.
    TGridColumn* GetGridColumn(int Id) const;
    void UpdateGridHeader();
    // Rewrites the translated texts that cells hold, while the old texts are still known to Texts, Flags and epiSide.
    void UpdateGridContent();

    // Cell access by column id; an unknown id reads null and writes nothing.
    Variant GetCell(int Record, int Id) const;
    void SetCell(int Record, int Id, const Variant& Value);
    Text GetSymbol(int Record) const;  // trimmed; "" when null
    int GetRecordCount() const { return FForm.PositionGridView.GetDataController().GetRecordCount(); }
    void SetRecordCount(int Count) { FForm.PositionGridView.GetDataController().SetRecordCount(Count); }
    // Deletes a record and keeps the row division and the removal mark pointing at the same rows.
    void DeleteRow(int Record);

    void btnClearClick(TObject* Sender);
    // Deletes the row that waits for removal, unless it is the last or the only one, and says so in the log; forgets
    // the mark in every case.
    void TimerEvent(TObject* Sender);

    void PositionGridGetProperties(TGridColumn& Column, int Row, TcxEditProperties*& Properties);
    void PositionGridColumnGetDisplayText(TGridColumn& Column, int Record, Text& Shown);
    TStyle* PositionGridViewStylesGetContentStyle(int Row, TGridColumn& Column);

private:
    void BuildColumn(const TColumnInfo& Info, EColumnEditor Editor);
    void SetUpSymbolEditor(TGridColumn& Column);
    void SetUpSideEditor(TGridColumn& Column);
    void SetUpSpinEditor(TGridColumn& Column, const TNotifyEvent& OnChange);
    void SetUpChoiceEditor(TGridColumn& Column, const TNotifyEvent& OnChange);
    void RequestSymbolPopup(TcxPopupEditProperties& Properties);
    Variant TranslatedCell(int ColumnId, const Variant& Cell) const;

    TVentiqForm& FForm;  // the four are borrowed from the frame and outlive the part
    TVentiqContext& FContext;
    TVentiqTexts& FTexts;
    TVentiqOrderFlags& FFlags;
    TColumnInfoList* FColumnInfos = nullptr;                      // kept by the process
    std::shared_ptr<bool> FAlive = std::make_shared<bool>(true);  // the host's popup may outlive the grid
};

}  // namespace ventiq
