// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/ColumnWidths.h"

#include <algorithm>

namespace ws {

std::vector<int> ColumnWidths(const fw::TGridTableView& View, const TRenderContext& Context, int Room) {
    const int Count = View.GetColumnCount();
    std::vector<int> Result(static_cast<size_t>(Count), 0);
    std::vector<int> Least(static_cast<size_t>(Count), 0);
    int64_t Wanted = 0;
    int Last = -1;
    for (int i = 0; i < Count; ++i) {
        const fw::TGridColumn& Column = *View.GetColumn(i);
        if (!Column.IsVisible()) continue;
        const auto At = static_cast<size_t>(i);
        Least[At] = Context.Scaled(std::max(Column.MinWidth, 20));
        Result[At] = std::max(Least[At], Context.Scaled(Column.GetWidth()));
        Wanted += Result[At];
        Last = i;
    }
    if (!View.Options.ColumnAutoWidth || Last < 0 || Wanted <= 0) return Result;
    int64_t Taken = 0;
    for (int i = 0; i < Count; ++i) {
        const auto At = static_cast<size_t>(i);
        if (Result[At] == 0) continue;
        Result[At] = std::max(Least[At], static_cast<int>(Result[At] * static_cast<int64_t>(Room) / Wanted));
        Taken += Result[At];
    }
    const auto LastAt = static_cast<size_t>(Last);
    if (Taken < Room) Result[LastAt] += static_cast<int>(Room - Taken);  // what rounding left over
    return Result;
}

}  // namespace ws
