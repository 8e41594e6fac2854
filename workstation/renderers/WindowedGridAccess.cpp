// SPDX-License-Identifier: GPL-3.0-or-later
// The long table as screen readers ask for it.
#include "framework/base/Dispatch.h"
#include "workstation/renderers/QtText.h"
#include "workstation/renderers/TableName.h"
#include "workstation/renderers/WindowedGridRenderer.h"

namespace ws {

std::vector<int> TWindowedGridRenderer::ShownColumns() const {
    std::vector<int> Result;
    for (int i = 0; FView && i < FView->GetColumnCount(); ++i)
        if (FView->GetColumn(i)->IsVisible()) Result.push_back(i);
    return Result;
}

QString TWindowedGridRenderer::TableName() const { return FView ? NameOfTable(*FView.Get(), FContext) : QString(); }

int TWindowedGridRenderer::TableColumns() const { return static_cast<int>(ShownColumns().size()); }

QString TWindowedGridRenderer::HeadText(int Column) const {
    return ToQt(FView->GetColumn(ColumnOf(Column))->GetCaption());
}

QString TWindowedGridRenderer::HeadNote(int Column) const {
    if (FView->GetSortedColumn() != ColumnOf(Column)) return {};
    return FContext.Translate(FView->GetSortOrder() == fw::ESortOrder::Ascending ? "Res_SortedUp" : "Res_SortedDown");
}

QString TWindowedGridRenderer::TextAt(TPlace Place) const { return CellText(Place.Row, ColumnOf(Place.Column)); }

// The user moves by rows: the first cell of each tells the whole.
QString TWindowedGridRenderer::NoteAt(TPlace Place) const {
    if (Place.Column == 0) return RowText(Place.Row);
    const int Column = ColumnOf(Place.Column);
    const QString Hint =
        ToQt(fw::DispatchValue<fw::Text>("GetCellHint", {}, [&] { return FView->GetCellHint(Place.Row, Column); }));
    return Hint == TextAt(Place) ? QString() : Hint;
}

QString TWindowedGridRenderer::RowText(int Row) const {
    QStringList Parts;
    for (const int Column : ShownColumns())
        if (const QString Text = CellText(Row, Column).trimmed(); !Text.isEmpty())
            Parts << ToQt(FView->GetColumn(Column)->GetCaption()) + QLatin1Char(' ') + Text;
    return Parts.join(QStringLiteral(", "));
}

QRect TWindowedGridRenderer::HeadRect(int Column) const { return HeaderRect(ColumnOf(Column)); }

std::vector<int> TWindowedGridRenderer::SeenRows() const {
    std::vector<int> Result;
    const int64_t First = GetTopRow(), End = std::min<int64_t>(GetRowCount(), First + SeenLines());
    for (int64_t Row = First; Row < End; ++Row) Result.push_back(static_cast<int>(Row));
    return Result;
}

std::optional<TPaintedTable::TPlace> TWindowedGridRenderer::CurrentPlace() const {
    if (GetCurrentRow() < 0) return std::nullopt;
    return TPlace{GetCurrentRow(), 0};
}

bool TWindowedGridRenderer::IsSelectedAt(TPlace Place) const {
    return FView && FView->GetSelection().Contains(Place.Row);
}

void TWindowedGridRenderer::ChooseAt(TPlace Place) {
    if (FView) SetCurrent(Place.Row, false);
}

void TWindowedGridRenderer::TakeAt(TPlace Place) {
    ChooseAt(Place);
    if (FView) FView->Activate();
}

}  // namespace ws
