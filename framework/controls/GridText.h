// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/controls/GridTableView.h"

namespace fw {

enum class ETextForm { Tabs, Html, Csv };

// A table as text for other programs, piece by piece: the head, then any records in any order, then the tail. Visible
// columns only. Numbers stand at full precision, not grouped: in Csv, which is a file's form (RFC 4180, lines end with
// CR and LF), with a point before the decimals; in the other forms in the current number format and with one reading
// only, so that they can be pasted again. Texts stand as the cells show them. Holds nothing of the records, so that a
// table of any length can be written.
class FRAMEWORK_API TGridText {
public:
    // Borrows the view, whose columns are taken as they stand now.
    TGridText(TGridTableView& View, ETextForm Form);

    Text Head() const;  // with the columns' captions
    Text Record(int Index) const;
    Text Tail() const;

private:
    Text CellText(int Record, int Column) const;
    template <class TCell>
    Text Row(std::string_view Tag, TCell Cell) const;

    TGridTableView& FView;
    ETextForm FForm;
    std::vector<int> FColumns;
};

// Whether a record has anything in it; a blank text is nothing.
FRAMEWORK_API bool HasContent(const TGridTableView& View, int Record);

}  // namespace fw
