// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/VentiqPriceRows.h"
#include "framework/data/DataControl.h"

namespace ventiq {

class TCustomVentiqDataControl;

// The table behind the detail grid: the master's strategy P/L at evenly spaced prices from the down limit to the up
// limit. Owns no legs; the master sets its limits and runs its calculation. A calculation costs O(legs) whatever the
// interval; cells are computed when they are asked for.
class TCustomVentiqDetailDataControl : public TCustomDataControl {
public:
    explicit TCustomVentiqDetailDataControl(TObject* Owner = nullptr);
    ~TCustomVentiqDetailDataControl() override;

    // Real price units; only stored. The rows stay those of the last calculation.
    virtual void SetUpLimit(double Value) { FUpLimit = Value; }
    virtual void SetDownLimit(double Value) { FDownLimit = Value; }
    virtual void SetInterval(double Value) { FInterval = Value; }
    double GetUpLimit() const { return FUpLimit; }
    double GetDownLimit() const { return FDownLimit; }
    double GetInterval() const { return FInterval; }

    // Deliberately nothing: the grid keeps showing the last table until the next calculation.
    virtual void Reset();
    // Takes the master's terms and the range as they stand and tells bound grids, also of an empty table. No master or
    // no legs: empty. A range that asks for more rows than 32 bits count, or for no number of rows (interval 0): empty,
    // with one warning in the log that says how many were asked for.
    virtual void Calculate();

    // Attribute 3: price, 607: P/L.
    int32_t GetCount() override;
    Variant GetValue(int32_t RecordIndex, int32_t Attribute) override;
    Text GetDisplayValue(int32_t RecordIndex, int32_t Attribute) override;
    bool GetRowValue(int32_t RecordIndex, void*& Value) override;
    bool GetColValue(int32_t ItemIndex, void*& Value) override;

    const TPriceSumDictionary& GetDataDictionary() const { return FDataDictionary; }
    const TPriceTextList& GetDataList() const { return FDataList; }
    const TPriceRows& GetRows() const { return FRows; }  // for readers of many rows; until the next calculation

    // Set by the master's SetDetailControl; borrowed, read in Calculate only.
    void SetMasterControl(TCustomVentiqDataControl* Value) { FMasterControl = Value; }
    TCustomVentiqDataControl* GetMasterControl() const { return FMasterControl; }

private:
    bool IsRow(int32_t Index) const { return Index >= 0 && Index < FRows.GetCount(); }
    TPriceRows RowsOfRange() const;

    TPriceRows FRows;  // what the list and the dictionary read
    TPriceSumDictionary FDataDictionary{FRows};
    TPriceTextList FDataList{FRows};
    double FUpLimit = 0.0;
    double FDownLimit = 0.0;
    double FInterval = 0.0;
    TCustomVentiqDataControl* FMasterControl = nullptr;
};

}  // namespace ventiq
