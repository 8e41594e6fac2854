// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridText.h"

#include "framework/base/NumberFormat.h"

namespace fw {

namespace {

// A cell stays one cell of one line.
Text OneLine(Text Shown) {
    for (char& Letter : Shown)
        if (Letter == '\t' || Letter == '\n' || Letter == '\r') Letter = ' ';
    return Shown;
}

Text Escaped(const Text& Shown) {
    Text Result;
    for (const char Letter : Shown) switch (Letter) {
            case '&': Result += "&amp;"; break;
            case '<': Result += "&lt;"; break;
            case '>': Result += "&gt;"; break;
            case '"': Result += "&quot;"; break;
            default: Result += Letter;
        }
    return Result;
}

}  // namespace

TGridText::TGridText(TGridTableView& View, ETextForm Form) : FView(View), FForm(Form) {
    for (int Column = 0; Column < View.GetColumnCount(); ++Column)
        if (View.GetColumn(Column)->IsVisible()) FColumns.push_back(Column);
}

Text TGridText::Head() const {
    const auto Caption = [this](int Column) { return FView.GetColumn(Column)->GetCaption(); };
    return FForm == ETextForm::Tabs ? Row("", Caption) : "<table>\n" + Row("th", Caption);
}

Text TGridText::Record(int Index) const {
    return Row("td", [&](int Column) { return CellText(Index, Column); });
}

Text TGridText::Tail() const { return FForm == ETextForm::Tabs ? "" : "</table>\n"; }

Text TGridText::CellText(int Record, int Column) const {
    const Variant Value = FView.GetDataController().GetValue(Record, Column);
    if (Value.IsNull()) return {};
    return Value.IsText() ? FView.GetCellText(Record, Column) : FormatUnmistakably(Value.AsFloat());
}

template <class TCell>
Text TGridText::Row(std::string_view Tag, TCell Cell) const {
    const bool Html = FForm == ETextForm::Html;
    Text Result = Html ? "<tr>" : "";
    for (size_t i = 0; i < FColumns.size(); ++i) {
        const Text Shown = OneLine(Cell(FColumns[i]));
        if (Html)
            Result.append("<").append(Tag).append(">").append(Escaped(Shown)).append("</").append(Tag).append(">");
        else
            Result.append(i > 0 ? "\t" : "").append(Shown);
    }
    return Result.append(Html ? "</tr>\n" : "\n");
}

bool HasContent(const TGridTableView& View, int Record) {
    for (int Column = 0; Column < View.GetColumnCount(); ++Column)
        if (!Trim(View.GetDataController().GetValue(Record, Column).AsText()).empty()) return true;
    return false;
}

}  // namespace fw
