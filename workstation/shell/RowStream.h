// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QString>

#include "framework/controls/GridTableView.h"

class QWidget;

namespace ws {

enum class ERowsEnd {
    Done,
    Stopped,  // the user cancelled, or Take wanted no more
    Changed,  // rows or columns changed meanwhile, or the table is gone
};

// Hands Count rows from First on to Take, one by one, while the loop runs and a bar shows how far it is. For tables of
// any length; not from inside a handler of the table, which may be closed meanwhile.
ERowsEnd StreamRows(fw::TGridTableView& View, int First, int64_t Count, const QString& Label, const QString& Cancel,
                    QWidget& Window, const std::function<bool(int Record)>& Take);

}  // namespace ws
