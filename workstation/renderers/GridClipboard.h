// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/controls/GridTableView.h"

namespace ws {

// A table whose rows go to and come from the clipboard; menus find it among the parents of the focused widget.
class TGridClipboard {
public:
    virtual ~TGridClipboard() = default;
    virtual fw::TGridTableView* GetTable() const = 0;  // null: it is gone
    virtual void CopyRows() = 0;
    virtual void PasteRows() {}  // tables that only show take none
};

}  // namespace ws
