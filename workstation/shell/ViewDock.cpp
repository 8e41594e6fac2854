// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ViewDock.h"

#include <QCloseEvent>

namespace ws {

TViewDock::TViewDock(fw::TIBaseView& View, int64_t Handle, TRenderContext& Context, QWidget* Parent)
    : QDockWidget(Parent), FView(View), FHandle(Handle), FTitleBar(new TDockTitleBar(View, Handle, Context, this)) {
    setObjectName("View" + QString::number(View.GetViewID()) + "_" + QString::number(Handle));
    setTitleBarWidget(FTitleBar);
    setWidget(new TFrameRenderer(Frame(), Context, this));
    FTitleBar->OnFloat = [this] { setFloating(!isFloating()); };
    FTitleBar->OnClose = [this] { close(); };
    FLinks += fw::Baseview::Notifications().Connect([this](fw::TFrame* Sender, int Code) {
        if (Sender == FView.FindView(FHandle) && Code == fw::kViewNotifyCaptionButtons) FTitleBar->Refresh();
    });
    FLinks += Context.OnSkinChanged.Connect([this] { FTitleBar->Refresh(); });
    Retranslate();
}

TViewDock::~TViewDock() { delete widget(); }

void TViewDock::Retranslate() {
    FTitleBar->Refresh();
    setWindowTitle(FTitleBar->Caption());
}

void TViewDock::closeEvent(QCloseEvent* Event) {
    Event->ignore();
    if (OnCloseRequested) OnCloseRequested(*this);
}

}  // namespace ws
