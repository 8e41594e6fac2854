// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Signal.h"
#include "framework/base/Variant.h"
#include "framework/data/ColumnInfo.h"

namespace fw {

// Records behind a grid. RecordIndex outside 0..GetCount()-1 gives the empty result. Attribute is the column's Id.
class FRAMEWORK_API TBaseDataControl : public TObject {
public:
    explicit TBaseDataControl(TObject* Owner = nullptr);
    ~TBaseDataControl() override;

    virtual int32_t GetCount();
    virtual Variant GetValue(int32_t RecordIndex, int32_t Attribute);
    virtual Text GetDisplayValue(int32_t RecordIndex, int32_t Attribute);
    // The record object behind a row; false leaves Value alone.
    virtual bool GetRowValue(int32_t RecordIndex, void*& Value);
    // The object behind a column; false leaves Value alone.
    virtual bool GetColValue(int32_t ItemIndex, void*& Value);
    // The columns that a grid should show; null when the control has none of its own. Borrowed.
    virtual TColumnInfoList* GetColList();

    TObject* GetOwner() const { return FOwner; }

private:
    TObject* FOwner;  // borrowed, never touched
};

class FRAMEWORK_API TCustomDataControl : public TBaseDataControl {
public:
    explicit TCustomDataControl(TObject* Owner = nullptr);
    ~TCustomDataControl() override;

    // Rows changed: bound grids reload.
    void NotifyDataChanged();
    TSignal<> OnChanged;

    // What an empty cell shows; "" unless set.
    const Text& GetEmptyCellText() const { return FEmptyCellText; }
    void SetEmptyCellText(Text Value) { FEmptyCellText = std::move(Value); }

private:
    Text FEmptyCellText;
};

}  // namespace fw
