// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridText.h"

#include "framework/base/NumberFormat.h"
#include "framework/base/Numbers.h"

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

Text Quoted(const Text& Shown) {
    if (Shown.find_first_of(",\"\n\r") == Text::npos) return Shown;
    Text Result = "\"";
    for (const char Letter : Shown) Result.append(Letter == '"' ? "\"\"" : Text(1, Letter));
    return Result + '"';
}

// How the cells of a row stand in a form; Cell gets "th" or "td".
struct TRowForm {
    const char *Open, *Between, *Close;
    Text (*Cell)(std::string_view Tag, const Text& Shown);
    const char *Head, *Tail;
};

Text Marked(std::string_view Tag, const Text& Shown) {
    Text Result;
    return Result.append("<").append(Tag).append(">").append(Escaped(Shown)).append("</").append(Tag).append(">");
}

constexpr TRowForm kRowForms[] = {
    {"", "\t", "\n", [](std::string_view, const Text& Shown) { return OneLine(Shown); }, "", ""},
    {"<tr>", "", "</tr>\n", [](std::string_view Tag, const Text& Shown) { return Marked(Tag, OneLine(Shown)); },
     "<table>\n", "</table>\n"},
    {"", ",", "\r\n", [](std::string_view, const Text& Shown) { return Quoted(Shown); }, "", ""},
};

const TRowForm& RowForm(ETextForm Form) { return kRowForms[static_cast<size_t>(Form)]; }

}  // namespace

TGridText::TGridText(TGridTableView& View, ETextForm Form) : FView(View), FForm(Form) {
    for (int Column = 0; Column < View.GetColumnCount(); ++Column)
        if (View.GetColumn(Column)->IsVisible()) FColumns.push_back(Column);
}

Text TGridText::Head() const {
    return RowForm(FForm).Head + Row("th", [this](int Column) { return FView.GetColumn(Column)->GetCaption(); });
}

Text TGridText::Record(int Index) const {
    return Row("td", [&](int Column) { return CellText(Index, Column); });
}

Text TGridText::Tail() const { return RowForm(FForm).Tail; }

Text TGridText::CellText(int Record, int Column) const {
    const Variant Value = FView.GetDataController().GetValue(Record, Column);
    if (Value.IsNull()) return {};
    if (Value.IsText()) return FView.GetCellText(Record, Column);
    return FForm == ETextForm::Csv ? FloatToShortestText(Value.AsFloat()) : FormatUnmistakably(Value.AsFloat());
}

template <class TCell>
Text TGridText::Row(std::string_view Tag, TCell Cell) const {
    const TRowForm& Form = RowForm(FForm);
    Text Result = Form.Open;
    for (size_t i = 0; i < FColumns.size(); ++i)
        Result.append(i > 0 ? Form.Between : "").append(Form.Cell(Tag, Cell(FColumns[i])));
    return Result.append(Form.Close);
}

bool HasContent(const TGridTableView& View, int Record) {
    for (int Column = 0; Column < View.GetColumnCount(); ++Column)
        if (!Trim(View.GetDataController().GetValue(Record, Column).AsText()).empty()) return true;
    return false;
}

}  // namespace fw
