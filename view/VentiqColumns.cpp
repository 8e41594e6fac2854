// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqColumns.h"

#include <algorithm>

namespace ventiq {

void FillColumnInfos(TColumnInfoList& Infos, std::span<const TColumnSpec> Specs) {
    for (const auto& Spec : Specs) {
        auto Info = TColumnInfo::AddColumn(Spec.Id, Spec.Caption, Spec.Width, "", Spec.Numeric);
        Info->Editable = Spec.Editable;
        Infos.push_back(std::move(Info));
    }
}

TGridColumn& CreateColumn(TGridTableView& View, const TColumnInfo& Info, const Text& Caption) {
    auto& Column = View.CreateColumn();
    Column.SetCaption(Caption);
    Column.Tag = Info.Id;
    Column.Editing = Info.Editable;
    Column.Sorting = false;
    Column.Filtering = false;
    Column.HeaderAlignment = Info.HeaderAlignment;
    Column.SetVisible(Info.Visible);
    Column.SetWidth(Info.Width);
    if (Info.MinWidth > 0) Column.MinWidth = Info.MinWidth;
    Column.ValueType = Info.Numeric ? EValueType::Float : EValueType::String;
    if (Info.RightAlignedText) Column.SetProperties<TcxTextEditProperties>().Alignment = EAlignment::Right;
    return Column;
}

void RetitleColumns(TGridTableView& View, const TColumnInfoList& Infos, Text (*CaptionOf)(const Text& Key)) {
    const TViewUpdate Update(View);
    for (int i = 0; i < View.GetColumnCount(); ++i) {
        auto* Column = View.GetColumn(i);
        const auto Info =
            std::find_if(Infos.begin(), Infos.end(), [&](const auto& Entry) { return Entry->Id == Column->Tag; });
        if (Info != Infos.end()) Column->SetCaption(CaptionOf((*Info)->CaptionKey));
    }
}

}  // namespace ventiq
