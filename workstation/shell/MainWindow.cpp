// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/MainWindow.h"

#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>

#include <algorithm>
#include <exception>

#include "workstation/renderers/QtText.h"
#include "workstation/shell/Appearance.h"
#include "workstation/shell/StatusHint.h"

namespace ws {

namespace {

constexpr int kPollMs = 200;
constexpr TStrategyRun::TWait kRunPatience{15000};

}  // namespace

TMainWindow::TMainWindow(TWorkstation& Workstation, const TViewRegistry& Views, TMessageLog& Log, TRenderContext& Context)
    : FWorkstation(Workstation), FViews(Views), FContext(Context), FMessages(new TMessagesPanel(Log, Workstation.Language(), Context, this)),
      FHint(new QLabel(this)), FAlert(new QLabel(this)) {
    setDockNestingEnabled(true);
    setDockOptions(dockOptions() | QMainWindow::AllowTabbedDocks | QMainWindow::AllowNestedDocks | QMainWindow::GroupedDragging);
    addDockWidget(Qt::BottomDockWidgetArea, FMessages);
    statusBar()->addWidget(FHint, 1);
    statusBar()->addPermanentWidget(FAlert, 2);
    FAlert->setTextFormat(Qt::PlainText);
    FWorkstation.MessageBox().OnShow = [this](const fw::Text& Message) { ShowMessageBox(Message); };
    FContext.OnEditRefused = [this](fw::TGridTableView& View) {
        for (auto* Dock : FDocks)
            if (Dock->Frame().FindControl<fw::TGridTableView>(View.GetName()) == &View)
                FHint->setText(FContext.Translate(EditRefusedHintOf(Dock->Frame())));
    };
    FLinks += Log.OnAdded.Connect([this](const TMessage& Message) { ShowAlert(Message); });
    connect(&FPolling, &QTimer::timeout, this, [this] { Poll(); });
    FPolling.start(kPollMs);
    Retranslate();
}

TMainWindow::~TMainWindow() {
    FRun.reset();
    while (!FDocks.empty()) CloseDock(*FDocks.back());
    FContext.OnEditRefused = nullptr;
    FWorkstation.MessageBox().OnShow = nullptr;
}

TViewDock* TMainWindow::OpenView(fw::TIBaseView& View) {
    int64_t Handle = 0;
    std::string Reason;
    try {
        Handle = View.OpenNewInstance();
    } catch (const std::exception& Error) {
        Reason = Error.what();
    } catch (...) {
        Reason = "?";
    }
    if (!View.FindView(Handle)) {
        const auto Name = fw::DispatchValue("GetName", fw::Text(), [&] { return View.GetName(); });
        fw::TLog::Error("Res_ViewOpenFailed", {Name, Reason});
        ShowMessageBox(FWorkstation.Language().Resource("Res_ViewOpenFailed", {Name, Reason}));
        return nullptr;
    }

    auto* Dock = new TViewDock(View, Handle, FContext, this);
    Dock->OnCloseRequested = [this](TViewDock& Which) { RequestClose(Which); };
    if (FDocks.empty())
        addDockWidget(Qt::TopDockWidgetArea, Dock);
    else
        tabifyDockWidget(FDocks.back(), Dock);
    FDocks.push_back(Dock);
    int Width = 0, Height = 0;
    if (View.GetDefaultSize(Width, Height) && FDocks.size() == 1)
        resizeDocks({Dock, FMessages}, {FContext.Scaled(Height), std::max(60, height() - FContext.Scaled(Height))}, Qt::Vertical);
    Dock->show();
    Dock->raise();
    return Dock;
}

// From the event loop: the wish may come out of a handler of the frame that is to go.
void TMainWindow::RequestClose(TViewDock& Dock) {
    QTimer::singleShot(0, this, [this, Wanted = &Dock] {
        if (std::find(FDocks.begin(), FDocks.end(), Wanted) != FDocks.end()) CloseDock(*Wanted);
    });
}

void TMainWindow::CloseDock(TViewDock& Dock) {
    if (&Dock == FRunDock) {
        FRun.reset();
        FRunDock = nullptr;
    }
    FDocks.erase(std::remove(FDocks.begin(), FDocks.end(), &Dock), FDocks.end());
    auto& View = Dock.View();
    const int64_t Handle = Dock.Handle();
    delete &Dock;
    View.CloseInstance(Handle);
}

void TMainWindow::closeEvent(QCloseEvent* Event) {
    FPolling.stop();
    FRun.reset();
    while (!FDocks.empty()) CloseDock(*FDocks.back());
    QMainWindow::closeEvent(Event);
}

void TMainWindow::PlayStrategy(TViewDock& Dock, TStrategy Strategy) {
    FRun = std::make_unique<TStrategyRun>(Dock.Frame(), FWorkstation.Market(), std::move(Strategy), kRunPatience);
    FRunDock = &Dock;
    FRunTime.start();
}

void TMainWindow::Poll() {
    ShowHint();
    if (!FRun) return;
    if (FRun->Poll(TStrategyRun::TWait(FRunTime.elapsed())) == TStrategyRun::EState::Waiting) return;
    const auto Run = std::move(FRun);
    FRunDock = nullptr;
    for (const auto& Problem : Run->Problems()) fw::TLog::Warning(Problem.Key, Problem.Args);
}

TViewDock* TMainWindow::ActiveDock() const {
    for (auto* Dock : FDocks)
        if (Dock->isAncestorOf(QApplication::focusWidget())) return Dock;
    return FDocks.empty() ? nullptr : FDocks.front();
}

void TMainWindow::ShowHint() {
    const auto* Dock = ActiveDock();
    const char* Key = Dock ? StatusHintOf(Dock->Frame()) : "";
    FHint->setText(*Key ? FContext.Translate(Key) : QString());
}

void TMainWindow::ShowAlert(const TMessage& Message) {
    if (Message.Entry.Level == fw::ELogLevel::Info) return;
    FAlert->setText(FContext.Translate(LevelKey(Message.Entry.Level)) + ": " + ToQt(FWorkstation.Language().Resource(Message.Entry.Key, Message.Entry.Args)));
    FAlert->setToolTip(FAlert->text());
}

void TMainWindow::ShowMessageBox(const fw::Text& Message) { QMessageBox::warning(this, windowTitle(), ToQt(Message)); }

void TMainWindow::SwitchLanguage(int Language) {
    FWorkstation.SetLanguage(Language);
    for (const auto& View : FViews.Views())
        for (const auto Handle : View->OpenViews()) View->SetLanguage(Handle, Language);
    Retranslate();
}

void TMainWindow::SwitchSkin(const std::string& Skin) {
    ApplySkin(Skin);
    FWorkstation.SetSkin(Skin);
    FContext.SetSkin(Skin);
    BuildMenus();
}

void TMainWindow::SwitchUser(const std::string& Code) {
    FWorkstation.SetUser(Code);
    CloseInvisible();
    BuildMenus();
}

// Views that the new user may not see are closed.
void TMainWindow::CloseInvisible() {
    const auto Docks = FDocks;
    for (auto* Dock : Docks)
        if (!fw::DispatchValue("GetIsVisible", false, [&] { return Dock->View().GetIsVisible(); })) CloseDock(*Dock);
}

void TMainWindow::Retranslate() {
    setWindowTitle(FContext.Translate("Res_AppTitle"));
    FMessages->Retranslate();
    for (auto* Dock : FDocks) Dock->Retranslate();
    FAlert->clear();
    BuildMenus();
    ShowHint();
}

}  // namespace ws
