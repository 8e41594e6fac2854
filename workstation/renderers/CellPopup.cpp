// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/CellPopup.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

#include "framework/base/Dispatch.h"

namespace ws {

namespace {

class TPopupWindow : public QWidget {
public:
    explicit TPopupWindow(QWidget& Anchor) : QWidget(&Anchor, Qt::Popup) {}
    std::function<void()> OnHidden;

protected:
    void hideEvent(QHideEvent* Event) override {
        QWidget::hideEvent(Event);
        if (OnHidden) OnHidden();
    }
};

}  // namespace

TCellPopup::TCellPopup(fw::TGridTableView& View, TRenderContext& Context, QWidget& Anchor)
    : FView(View), FContext(Context), FAnchor(Anchor) {}

TCellPopup::~TCellPopup() { Hidden(); }

// The window went, or the editor goes: the control hears of it once.
void TCellPopup::Hidden() {
    FLink.Disconnect();
    if (FWindow) {
        static_cast<TPopupWindow*>(FWindow.data())->OnHidden = nullptr;
        FWindow->hide();
        FWindow->deleteLater();
        FWindow = nullptr;
    }
    fw::TPopupControl* Control = std::exchange(FControl, nullptr);
    if (Control && FView && Control->IsShown()) Control->Hide();
}

void TCellPopup::Open() {
    fw::TCellEditor* Editor = FView ? FView->GetEditor() : nullptr;
    auto* Properties = Editor ? dynamic_cast<fw::TcxPopupEditProperties*>(Editor->GetProperties()) : nullptr;
    if (!Properties || FWindow) return;
    if (Properties->OnInitPopup) fw::Dispatch("OnInitPopup", [&] { Properties->OnInitPopup(Editor); });
    if (!FView || FView->GetEditor() != Editor || !Properties->PopupControl || !FContext.MakePopupContent) return;
    fw::TPopupControl& Control = *Properties->PopupControl;
    auto* Window = new TPopupWindow(FAnchor);
    auto* Box = new QVBoxLayout(Window);
    Box->setContentsMargins(1, 1, 1, 1);
    QWidget* Content = FContext.MakePopupContent(Control, Window);
    if (!Content) {
        delete Window;
        return;
    }
    Box->addWidget(Content);
    Window->setFocusProxy(Content);
    Window->resize(FContext.Scaled(Properties->PopupWidth), FContext.Scaled(Properties->PopupHeight));
    QPoint At = FAnchor.mapToGlobal(QPoint(0, FAnchor.height()));
    if (const QScreen* Screen = FAnchor.screen()) {
        const QRect Area = Screen->availableGeometry();
        if (At.y() + Window->height() > Area.bottom())
            At.setY(std::max(Area.top(), FAnchor.mapToGlobal(QPoint(0, 0)).y() - Window->height()));
        At.setX(std::max(Area.left(), std::min(At.x(), Area.right() - Window->width())));
    }
    Window->move(At);
    FWindow = Window;
    FControl = &Control;
    Control.Show();
    FLink = Control.OnShownChanged.Connect([this] {
        if (FControl && !FControl->IsShown()) Hidden();
    });
    Window->OnHidden = [this] { Hidden(); };
    Window->show();
    Content->setFocus();
}

}  // namespace ws
