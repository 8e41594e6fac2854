// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "framework/base/Object.h"
#include "framework/base/Variant.h"

namespace fw {

class TGridTableView;

// Cells of an unbound table view. A record is a place in the table, also where a bound view is sorted. Columns
// are positions among the view's columns. Reads out of range give null, writes out of range do nothing.
class FRAMEWORK_API TGridDataController : public TObject {
public:
    explicit TGridDataController(TGridTableView& View) : FView(View) {}
    ~TGridDataController() override;

    int GetRecordCount() const;  // of the data source where the view has one
    // Growing adds records of null cells, shrinking drops the tail (an editor open there is cancelled, the focus moves
    // up to the last record left). Negative, or with a data source: nothing.
    void SetRecordCount(int Count);
    Variant GetValue(int Record, int Column) const;
    // An editor open in the cell takes the value over, unless the user has typed something into it and no popup is
    // shown.
    void SetValue(int Record, int Column, const Variant& Value);
    // Cancels an editor open in the record; focus and an editor in a later record move with their record. The focus of
    // the deleted record goes to the one that takes its place, else to the last.
    void DeleteRecord(int Record);

private:
    friend class TGridTableView;
    // While it lives, one cell reads as another value.
    class TPreview {
    public:
        TPreview(TGridDataController& Data, int Record, int Column, const Variant& Value)
            : FData(Data), FRecord(Record), FColumn(Column), FValue(Value), FOuter(Data.FPreview) {
            Data.FPreview = this;
        }
        ~TPreview() { FData.FPreview = FOuter; }
        TPreview(const TPreview&) = delete;
        TPreview& operator=(const TPreview&) = delete;
        bool IsAt(int Record, int Column) const { return Record == FRecord && Column == FColumn; }
        const Variant& GetValue() const { return FValue; }

    private:
        TGridDataController& FData;
        int FRecord, FColumn;
        const Variant& FValue;
        const TPreview* FOuter;
    };
    TGridTableView& FView;
    const TPreview* FPreview = nullptr;        // the innermost one
    std::vector<std::vector<Variant>> FCells;  // rows; a row is as long as its last written column
};

}  // namespace fw
