// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <set>

#include "framework/base/Export.h"
#include "framework/base/Signal.h"

namespace fw {

class TGridTableView;

// Which records of a bound table view are selected: those between the current one and the anchor, where selecting
// began. Where the data control knows the object behind a row, the rows that were selected stay it, and no others join
// them, when records come, go and change their places; else the range of record numbers stays.
class FRAMEWORK_API TGridSelection {
public:
    explicit TGridSelection(const TGridTableView& View) : FView(View) {}

    bool IsEmpty() const { return FCurrent < 0; }
    bool Contains(int Record) const;
    int GetCurrent() const { return FCurrent; }  // -1 none
    int GetFirst() const { return FFirst; }      // no record before it or behind GetLast is selected; -1 none
    int GetLast() const { return FLast; }

    // The nearest record where there is none of that number. Extend: the anchor stays.
    void Select(int Record, bool Extend = false);
    void SelectAll();
    void Clear();
    // The view's records changed. Without any of the selected rows nothing is selected any more.
    void Follow();

    TSignal<> OnChanged;

private:
    void Take(int Anchor, int Current);
    const void* RowOf(int Record) const;  // null: the data control knows none

    const TGridTableView& FView;
    int FCurrent = -1, FAnchor = -1, FFirst = -1, FLast = -1;
    std::set<const void*> FRows;  // of the selected records, where they are known
    const void* FCurrentRow = nullptr;
    const void* FAnchorRow = nullptr;
};

}  // namespace fw
