// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include <QDockWidget>

#include "workstation/renderers/FrameRenderer.h"
#include "workstation/shell/DockTitleBar.h"

namespace ws {

// One open instance of a view on the screen. Owns what draws the frame; closing is asked for, never done here, because
// the request may come from a handler of the frame itself.
class TViewDock : public QDockWidget {
public:
    TViewDock(fw::TIBaseView& View, int64_t Handle, TRenderContext& Context, QWidget* Parent);
    ~TViewDock() override;  // before the frame is closed

    fw::TIBaseView& View() const { return FView; }
    int64_t Handle() const { return FHandle; }
    fw::TFrame& Frame() const { return *FView.FindView(FHandle); }
    TDockTitleBar& TitleBar() const { return *FTitleBar; }

    void Retranslate();  // caption and caption buttons

    std::function<void(TViewDock& Dock)> OnCloseRequested;

protected:
    void closeEvent(QCloseEvent* Event) override;

private:
    fw::TIBaseView& FView;  // borrowed
    int64_t FHandle;
    TDockTitleBar* FTitleBar;
    fw::TConnections FLinks;
};

}  // namespace ws
