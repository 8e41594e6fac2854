// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ViewDocks.h"

#include <algorithm>

#include <QApplication>
#include <QThread>
#include <QTimer>

#include "framework/base/Const.h"
#include "framework/base/Dispatch.h"
#include "framework/base/Log.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {
constexpr int kNestedLoopMs = 50;  // until the next look whether the inner loop has ended
}

TViewDocks::TViewDocks(QMainWindow& Window, TViewCatalog& Catalog, TRenderContext& Context, TDialogs& Dialogs)
    : FWindow(Window), FCatalog(Catalog), FContext(Context), FDialogs(Dialogs), FGuard(std::make_unique<QObject>()) {
    FNotifyLink = fw::Baseview::Notifications().Connect([this](fw::TFrame* Frame, int Code) {
        TViewDock* Dock = Frame && Code == fw::kViewNotifyCaptionButtons ? DockOf(*Frame) : nullptr;
        if (Dock) Dock->UpdateButtons();
    });
    QObject::connect(qApp, &QApplication::focusChanged, FGuard.get(), [this](QWidget*, QWidget* Now) {
        for (TViewDock* Dock : FDocks)
            if (Now && Dock->isAncestorOf(Now)) Use(*Dock);
    });
}

TViewDocks::~TViewDocks() { CloseAll(); }

std::string TViewDocks::FreeKey(fw::TIBaseView& View) const {
    const int Id = fw::DispatchValue("GetViewID", 0, [&] { return View.GetViewID(); });
    for (int Number = 1;; ++Number) {
        std::string Key = std::to_string(Id) + "-" + std::to_string(Number);
        if (!DockOf(Key) && !(IsKept && IsKept(Key))) return Key;
    }
}

TViewDock* TViewDocks::Open(fw::TIBaseView& View, std::string Key) {
    int64_t Handle = 0;
    fw::Text Reason;
    try {
        Handle = View.OpenNewInstance();
    } catch (const std::exception& Error) {
        Reason = Error.what();
    } catch (...) {
        Reason = View.GetName();
    }
    if (Handle == 0 || !View.FindView(Handle)) {
        fw::Text Caption;
        if (!View.GetDefaultCaption(Caption)) Caption = View.GetName();
        fw::TLog::Error("Res_ViewOpenFailed", {Caption, Reason});
        FDialogs.Tell(&FWindow, FContext.Translate("Res_ViewOpenFailed", {Caption, Reason}));
        return nullptr;
    }
    if (Key.empty() || DockOf(Key)) Key = FreeKey(View);
    auto* Dock =
        new TViewDock(View, Handle, Key, FContext, &FWindow, [this](TViewDock& Closed) { CloseLater(Closed); });
    TViewDock* Beside = Current();
    FWindow.addDockWidget(Qt::TopDockWidgetArea, Dock);
    if (Beside && !Beside->isFloating()) FWindow.tabifyDockWidget(Beside, Dock);
    FDocks.push_back(Dock);
    Use(*Dock);
    Dock->show();
    Dock->raise();
    View.ActiveView(Handle);
    OnOpened(*Dock);
    OnChanged();
    return Dock;
}

// Not from inside a loop within the loop either: a message box that a handler of the instance shows runs one.
void TViewDocks::CloseLater(TViewDock& Dock) {
    if (!CanArrange()) return;
    QTimer::singleShot(0, FGuard.get(), [this, Wanted = &Dock] {
        if (std::find(FDocks.begin(), FDocks.end(), Wanted) == FDocks.end()) return;
        const bool Held = IsHeld && IsHeld();
        if (!Held && QThread::currentThread()->loopLevel() <= 1) return Close(*Wanted);
        QTimer::singleShot(kNestedLoopMs, FGuard.get(), [this, Wanted] {
            if (std::find(FDocks.begin(), FDocks.end(), Wanted) != FDocks.end()) CloseLater(*Wanted);
        });
    });
}

void TViewDocks::Close(TViewDock& Dock) {
    if (fw::TFrame* Frame = Dock.Frame()) OnFrameGoes(*Frame);
    std::erase(FDocks, &Dock);
    std::erase(FUsed, &Dock);
    delete &Dock;
    OnChanged();
}

void TViewDocks::CloseAll() {
    while (!FDocks.empty()) Close(*FDocks.back());
}

TViewDock* TViewDocks::DockOf(const fw::TFrame& Frame) const {
    for (TViewDock* Dock : FDocks)
        if (Dock->Handle() == Frame.GetHandle()) return Dock;
    return nullptr;
}

TViewDock* TViewDocks::DockOf(const std::string& Key) const {
    const auto Found = std::find_if(FDocks.begin(), FDocks.end(), [&](TViewDock* Dock) { return Dock->Key() == Key; });
    return Found == FDocks.end() ? nullptr : *Found;
}

TViewDock* TViewDocks::Current() const { return FUsed.empty() ? nullptr : FUsed.front(); }

TViewDock* TViewDocks::LastUsed(const std::function<bool(TViewDock&)>& Fits) const {
    const auto Found = std::find_if(FUsed.begin(), FUsed.end(), [&](TViewDock* Dock) { return Fits(*Dock); });
    return Found == FUsed.end() ? nullptr : *Found;
}

void TViewDocks::Use(TViewDock& Dock) {
    std::erase(FUsed, &Dock);
    FUsed.insert(FUsed.begin(), &Dock);
}

void TViewDocks::SetLanguage(int Language) {
    for (TViewDock* Dock : FDocks) {
        Dock->View().SetLanguage(Dock->Handle(), Language);
        Dock->Retranslate();
    }
}

}  // namespace ws
