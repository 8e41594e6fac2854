// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QDockWidget>

#include "framework/view/BaseView.h"
#include "workstation/renderers/FrameRenderer.h"
#include "workstation/shell/LinkGroups.h"

class QHBoxLayout;
class QLabel;
class QToolButton;

namespace ws {

// Link group, caption, the view's own buttons, float and close. Dragging it moves the dock.
class TDockTitleBar : public QWidget {
public:
    TDockTitleBar(QDockWidget& Dock, TRenderContext& Context, std::function<void()> OnClose);

    void SetCaption(const QString& Caption);
    // Icons by name and hints as the view gives them; a click goes to OnButton.
    void SetButtons(const fw::TCaptionButtonList& Buttons, const fw::TImageList* Images,
                    const std::function<void(int Index)>& OnButton);
    void Retranslate();
    const std::vector<QToolButton*>& Buttons() const { return FButtons; }  // the view's, in its order
    TLinkGroupButton& GroupButton() { return *FGroup; }                    // hidden for a view that takes no group
    QToolButton& FloatButton() { return *FFloat; }
    QToolButton& CloseButton() { return *FClose; }
    QLabel& Caption() { return *FCaption; }

private:
    QToolButton* AddButton();

    TRenderContext& FContext;
    QHBoxLayout* FRow;
    TLinkGroupButton* FGroup;
    QLabel* FCaption;
    QToolButton* FFloat;
    QToolButton* FClose;
    std::vector<QToolButton*> FButtons;
    fw::TConnections FLinks;
};

// One open instance of a view.
class TViewDock : public QDockWidget {
public:
    // OnClose: the user wants it closed; the owner does so when control is back in the loop.
    TViewDock(fw::TIBaseView& View, int64_t Handle, const std::string& Key, TRenderContext& Context, QWidget* Parent,
              std::function<void(TViewDock& Dock)> OnClose);
    ~TViewDock() override;

    fw::TIBaseView& View() const { return FView; }
    int64_t Handle() const { return FHandle; }
    // What the instance is called in files: the view's id and a number, "620-1". Its object name is "view-" and this.
    const std::string& Key() const { return FKey; }
    fw::TFrame* Frame() const { return FView.FindView(FHandle); }
    TDockTitleBar& TitleBar() const { return *FTitle; }
    TFrameRenderer* Renderer() const { return FRenderer; }

    // The view's link group by its id; "": none. False, and nothing changes, for an id of no group and for a view that
    // takes none.
    fw::Text GetGroup() const;
    bool SetGroup(const fw::Text& Group);

    void UpdateCaption();
    void UpdateButtons();
    void Retranslate();
    // Takes the widgets down, then the instance.
    void CloseInstance();

protected:
    void closeEvent(QCloseEvent* Event) override;

private:
    fw::TIBaseView& FView;  // borrowed; outlives the docks
    int64_t FHandle;
    std::string FKey;
    TRenderContext& FContext;
    std::function<void(TViewDock&)> FOnClose;
    TDockTitleBar* FTitle;
    TFrameRenderer* FRenderer = nullptr;
    QSize FDefaultSize;  // at scale 100
    fw::TConnections FLinks;
};

}  // namespace ws
