// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/ComboRenderer.h"

#include <QAbstractItemView>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "workstation/renderers/FocusBridge.h"
#include "workstation/renderers/QtText.h"

namespace ws {

TComboRenderer::TComboRenderer(fw::TComboBox& Model, TRenderContext& Context, QWidget* Parent)
    : QComboBox(Parent), FModel(Model) {
    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    view()->setTextElideMode(Qt::ElideNone);
    new TFocusBridge(Model, *this);
    FLinks += Model.OnItemsChanged.Connect([this] { ReloadItems(); });
    FLinks += Model.OnIndexChanged.Connect([this] { ReloadIndex(); });
    FLinks += Model.OnModelChanged.Connect([this] { ReloadItems(); });
    FLinks += Context.OnMetricsChanged.Connect([this] { WidenList(); });
    connect(this, &QComboBox::activated, this, [this](int Index) {
        if (!FModel) return;
        FModel->SetItemIndex(Index);
        if (FModel) ReloadIndex();  // the model may have refused, or its own handlers chosen otherwise
    });
    ReloadItems();
}

void TComboRenderer::showPopup() {
    view()->setAccessibleName(accessibleName());
    QComboBox::showPopup();
}

void TComboRenderer::ReloadItems() {
    const QSignalBlocker Silent(this);
    clear();
    for (int i = 0; i < FModel->GetCount(); ++i) addItem(ToQt(FModel->GetItem(i)));
    WidenList();
    setEnabled(FModel->IsEnabled());
    setVisible(FModel->IsVisible());
    ReloadIndex();
}

void TComboRenderer::WidenList() {
    int Widest = 0;
    for (int i = 0; i < count(); ++i) Widest = std::max(Widest, fontMetrics().horizontalAdvance(itemText(i)));
    view()->setMinimumWidth(Widest + 4 * fontMetrics().averageCharWidth());
}

void TComboRenderer::ReloadIndex() {
    const QSignalBlocker Silent(this);
    setCurrentIndex(FModel->GetItemIndex());
    setToolTip(currentText());
}

void TComboRenderer::wheelEvent(QWheelEvent* Event) {
    if (hasFocus())
        QComboBox::wheelEvent(Event);
    else
        Event->ignore();
}

}  // namespace ws
