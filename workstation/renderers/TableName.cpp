// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/TableName.h"

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {
constexpr int kNamedColumns = 3;
}

QString NameOfTable(const fw::TGridTableView& View, const TRenderContext& Context) {
    QStringList Captions;
    for (int i = 0; i < View.GetColumnCount() && Captions.size() < kNamedColumns; ++i)
        if (View.GetColumn(i)->IsVisible()) Captions << ToQt(View.GetColumn(i)->GetCaption());
    return Context.Translate("Res_TableOf", {FromQt(Captions.join(QStringLiteral(", ")))});
}

}  // namespace ws
