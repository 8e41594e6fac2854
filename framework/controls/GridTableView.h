// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "framework/controls/CellEditor.h"
#include "framework/controls/Control.h"
#include "framework/controls/GridDataController.h"
#include "framework/controls/GridOrder.h"
#include "framework/controls/GridSelection.h"
#include "framework/controls/Style.h"
#include "framework/data/GridDataSource.h"

namespace fw {

struct TGridOptions {
    bool Deleting = true;
    bool CellHints = false;
    bool HideSelection = false;
    bool InvertSelection = true;
    bool CellEndEllipsis = false;
    bool HeaderEndEllipsis = false;
    bool ColumnAutoWidth = false;
    bool GroupByBox = true;
    Text NoDataText;
};

// The table of a grid: columns, records, focus and the one open editor. Unbound (cells live in the data controller) or
// bound to a data source (records and values come from its data control, read-only).
class FRAMEWORK_API TGridTableView : public TControl {
public:
    TGridTableView();
    ~TGridTableView() override;

    TGridOptions Options;

    // Columns. Between BeginUpdate and the outermost EndUpdate renderers are told nothing of columns, records and
    // cells; at its end they are told once.
    void BeginUpdate() { ++FUpdating; }
    void EndUpdate();
    void ClearColumns();  // drops the cells, keeps the records; an open editor is cancelled
    TGridColumn& CreateColumn();
    int GetColumnCount() const { return static_cast<int>(FColumns.size()); }
    TGridColumn* GetColumn(int Index) const;  // null out of range
    void MoveColumn(int From, int To);        // cells move with their column; the open editor is posted first

    TGridDataController& GetDataController() { return FData; }
    const TGridDataController& GetDataController() const { return FData; }
    // Borrowed; null unbinds. The view lets go of it when it dies. Columns ask the data control by their tag.
    void SetCustomDataSource(TCustomGridDataSource* Source);
    TCustomDataControl* GetDataControl() const;  // null when unbound

    // Sorting of a bound view. The next order of a column with Sorting on: ascending, descending, as the data come;
    // that of any other column ends. Records are places from then on: kept sorted while the data change, and the
    // selection goes along. More than kMostSorted records stay as the data come, with a warning in the log.
    void SortBy(int Column);
    int GetSortedColumn() const;  // -1: as the data come
    ESortOrder GetSortOrder() const { return FSortOrder; }
    int GetDataRecord(int Record) const { return FOrder.RecordAt(Record); }  // of the data control

    // Of a bound view.
    TGridSelection& GetSelection() { return FSelection; }
    const TGridSelection& GetSelection() const { return FSelection; }
    // The user asks for what stands behind the current record of the selection: a double click, the Enter key.
    void Activate();

    // What a cell shows: the data's text (or the properties' null text; bound: the data control's display value), then
    // the column's OnGetDisplayText. Out of range: "".
    Text GetCellText(int Record, int Column);
    // What the cell would show if it held Value. Nothing is written and nobody told.
    Text GetPreviewText(int Record, int Column, const Variant& Value);
    TStyle* GetCellStyle(int Record, int Column);  // null: default
    Text GetCellHint(int Record, int Column);      // "": none
    TcxEditProperties* GetCellProperties(int Record, int Column);

    // Focus; -1 none. Moving to another cell posts the open editor first, and does not move when a validation error
    // keeps it open. Out of range, or a column without focusing: nothing.
    int GetFocusedRecord() const { return FFocusedRecord; }
    int GetFocusedColumn() const { return FFocusedColumn; }
    void SetFocusedCell(int Record, int Column);

    // Editing. StartEdit takes the focus, focuses the cell, asks OnEditing, then OnGetProperties, and opens the editor;
    // null when refused. Without OnEditing the column's Editing option decides; disabled and bound views refuse. A cell
    // whose editor is open gives that editor. While an editor is being posted no other one opens.
    TCellEditor* StartEdit(int Record, int Column);
    // Focuses nothing, opens nothing: asks OnEditing only. Forms look at the focused record, so ask for that one.
    bool CanEdit(int Record, int Column);
    TCellEditor* GetEditor() const { return FEditor.get(); }
    // Validates and writes the open editor's value into the cell and closes it. A refused text leaves the cell as it
    // was, with one warning in the log; one that can be read in two ways keeps the editor open besides. A validation
    // error keeps the editor open, a validation that throws closes it and leaves the cell as it was. An editor that was
    // not modified only closes. A call from inside the validation does nothing; an editor cancelled there (its record
    // deleted) writes nothing. An editor that stays open keeps the focus of the frame until what is typed is mended or
    // cancelled.
    void PostEditor() override;
    void CancelEdit();
    // The error text of the last refused validation; "" when there is none.
    const Text& GetErrorText() const { return FErrorText; }
    // Why the text of the open editor was refused when it was last posted; until it changes.
    std::optional<TRefusal> GetRefusal() const;

    void Repaint() { OnRepaint(); }

    // Events of the form. Allow comes in as false.
    std::function<void(TGridTableView& View, TGridColumn& Column, bool& Allow)> OnEditing;
    std::function<void(TGridTableView& View, TGridColumn& Column, TCellEditor& Editor, int& Key, int Shift)>
        OnEditKeyDown;
    std::function<TStyle*(int Row, TGridColumn& Column)> OnGetContentStyle;
    std::function<void(TGridTableView& View, int Record)> OnActivate;

    // Signals for renderers.
    TSignal<> OnColumnsChanged;
    TSignal<> OnRecordsChanged;       // count changed, record deleted, or bound data reloaded
    TSignal<int, int> OnCellChanged;  // record, column
    TSignal<> OnFocusChanged;
    TSignal<> OnEditorChanged;  // opened, closed
    TSignal<> OnRepaint;
    // A posted edit: record, column, what was typed (before validation), what stands in the cell now.
    TSignal<int, int, const Variant&, const Variant&> OnEdited;

protected:
    bool KeepsFocus() const override;

private:
    friend class TGridColumn;
    friend class TGridDataController;
    friend class TCellEditor;
    enum class EValidation { Accepted, Refused, Threw };
    void ColumnsChanged();
    void RecordsChanged();
    void CellChanged(int Record, int Column);
    void CellWritten(int Record, int Column, const Variant& Value);
    void RecordDeleted(int Record);
    void RecordCountChanged(int Count);
    void SourceChanged();
    void SortRecords();
    void MoveFocus(int Record, int Column);  // tells when it moved; posts nothing
    bool HasCell(int Record, int Column) const;
    bool AskEditing(TGridColumn& Column);
    EValidation Validate(TCellEditor& Editor, Variant& Value);
    bool HasEditorAt(int Record, int Column) const;
    void Hold(TCellEditor& Editor);
    void CloseEditor();
    Text ColumnEvent(const TGridColumn& Column, std::string_view What) const;

    std::vector<std::unique_ptr<TGridColumn>> FColumns;
    TGridDataController FData;
    TCustomGridDataSource* FSource = nullptr;  // borrowed
    TConnections FSourceLinks, FFormatLinks;
    std::shared_ptr<TCellEditor> FEditor;  // shared only with its own running calls
    bool FPosting = false;
    Text FErrorText;
    int FFocusedRecord = -1, FFocusedColumn = -1;
    TGridOrder FOrder;
    const TGridColumn* FSortedBy = nullptr;  // of FColumns
    ESortOrder FSortOrder = ESortOrder::None;
    TGridSelection FSelection;
    int FUpdating = 0;
    bool FColumnsDirty = false, FRecordsDirty = false;
};

// One level of a grid and the grid around it; each level shows one view.
class FRAMEWORK_API TGridLevel : public TControl {
public:
    explicit TGridLevel(TGridTableView& View) : FView(View) {}
    ~TGridLevel() override;
    TGridTableView& GetGridView() const { return FView; }

private:
    TGridTableView& FView;  // borrowed from the form
};

class FRAMEWORK_API TGrid : public TControl {
public:
    explicit TGrid(TGridLevel& Level) : FLevel(Level) {}
    ~TGrid() override;
    TGridLevel& GetLevel() const { return FLevel; }

private:
    TGridLevel& FLevel;  // borrowed from the form
};

}  // namespace fw
