// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QScreen>

#include "framework/base/Log.h"
#include "workstation/renderers/QtText.h"
#include "workstation/script/FirstStart.h"
#include "workstation/shell/Icons.h"
#include "workstation/shell/ImportFlow.h"
#include "workstation/shell/MissingHint.h"
#include "workstation/views/TradingViews.h"

namespace ws {

namespace {

constexpr int kRunPollMs = 50;
constexpr int kHintMs = 300;
constexpr std::chrono::seconds kRunPatience{10};
constexpr QSize kWindowSize(1280, 860);
constexpr int kMessagesHeight = 110;
constexpr char kSettingSection[] = "Shell";
constexpr char kSettingStarted[] = "FirstStartDone";
constexpr char kShowHintIcon[] = "show-hint";

void LogNotice(const TStoreNotice& Notice) {
    fw::TLog::Write(Notice.Warning ? fw::ELogLevel::Warning : fw::ELogLevel::Info, Notice.Key, Notice.Args);
}

}  // namespace

TMainWindow::TMainWindow(TWorkstation& Workstation, TRenderContext& Context, std::unique_ptr<TDialogs> Dialogs)
    : FWorkstation(Workstation),
      FContext(Context),
      FDialogs(std::move(Dialogs)),
      FPopups(Context,
              [this](const fw::TSelectedMarket& M) { return FWorkstation.UnderlyingOf(M.Exchange, M.Series); }),
      FConfirmation(
          {Workstation.OrderFacts(), Workstation.OrderService(), Workstation.OrderActions(), Workstation.Language()},
          Context, this),
      FTrading(Workstation, Context, *FDialogs, *this) {
    const auto Sentence = [this](const fw::TLogEntry& Entry) {
        return FWorkstation.Language().Resource(Entry.Key, Entry.Args);
    };
    FPreferences = std::make_unique<TPreferencesFlow>(Workstation, Context, *this);
    FPreferences->OnLanguage = [this] { Retranslate(); };
    FPreferences->OnLook = [this] { BuildMenus(); };
    FMessages = new TMessageList(Context, Sentence, this);
    FPanel = new TMessagesPanel(*FMessages, Context, this);
    FStatus = new TStatusLine(*FMessages, Context, this);
    setStatusBar(FStatus);
    setDockNestingEnabled(true);
    setDockOptions(QMainWindow::AllowNestedDocks | QMainWindow::AllowTabbedDocks | QMainWindow::AnimatedDocks);
    addDockWidget(Qt::BottomDockWidgetArea, FPanel);
    resize(QSize(Context.Scaled(kWindowSize.width()), Context.Scaled(kWindowSize.height()))
               .boundedTo(screen()->availableSize()));
    FDocks = std::make_unique<TViewDocks>(*this, FCatalog, Context, *FDialogs);
    FDocks->IsHeld = [this] { return FConfirmation.IsOpen(); };
    FTrading.SetPlaces(FStatus, FDocks.get());
    FStatus->OnProblemClicked = [this] {
        FPanel->show();
        FPanel->raise();
        FMessages->MarkSeen();
    };
    FLinks += FDocks->OnFrameGoes.Connect([this](fw::TFrame& Frame) {
        FPopups.Forget(Frame);
        if (FRunFrame == &Frame) FRun.reset(), FRunFrame = nullptr;
    });
    FLinks += FDocks->OnChanged.Connect([this] {
        UpdateHint();
        if (FDocks->Docks().size() == 1 && !FWorkspaces->IsRestoring()) GiveRoomToViews();
    });
    FContext.MakePopupContent = [this](fw::TPopupControl& Popup, QWidget* Parent) {
        return FPopups.MakeContent(Popup, Parent);
    };
    FContext.OnEditRefused = [this](fw::TGridTableView& Grid) {
        TViewDock* Dock = FDocks->Current();
        if (fw::TFrame* Frame = Dock ? Dock->Frame() : nullptr) Say(RefusedHint(*Frame, Grid), {});
    };
    FContext.OnEditKept = [this](const QString& Reason) { FStatus->Say([Reason] { return Reason; }); };
    const auto SayHere = [this](const auto& Key, const auto& Args) { Say(Key, Args); };
    FClipboard = std::make_unique<TClipboardFlow>(Context, *FDialogs, *FDocks, *this, SayHere);
    FWorkstation.MessageBox().OnShow = [this](const fw::Text& Message) { FDialogs->Tell(this, ToQt(Message)); };
    // Work of the services waits for the loop; the tick drives market and views.
    FWorkstation.SetOnWork([this] { PumpLater(); });
    PumpLater();
    connect(&FTick, &QTimer::timeout, this, [this] {
        FWorkstation.Tick();
        FTrading.Tick();
    });
    FTick.start(kTimerPeriodMs);
    connect(&FRunTimer, &QTimer::timeout, this, [this] { PollRun(); });
    connect(&FHintTimer, &QTimer::timeout, this, [this] { UpdateHint(); });
    FHintTimer.start(kHintMs);
    for (const TStoreNotice& Notice : Workstation.Notices()) LogNotice(Notice);
    setWindowIcon(PlainIcon(QStringLiteral("workstation")));
    FCommands = std::make_unique<TCommands>(*this, FContext,
                                            [this](const auto& Id) { return FPreferences->Keys().KeysOf(Id); });
    FMenus = std::make_unique<TMainMenus>(*menuBar(), *FCommands, FCatalog, FContext, [this](fw::TIBaseView& View) {
        if (FDocks->CanArrange()) FDocks->Open(View);
    });
    FViewCommands = std::make_unique<TViewCommands>(*FCommands, *FDocks, SayHere);
    FExport = std::make_unique<TExportFlow>(TExportFlow::TPlaces{FContext, *FDialogs, *FDocks, *FClipboard, *this},
                                            *FCommands, SayHere);
    FDrafts = std::make_unique<TDraftFlow>(Workstation, *FDocks, *FCommands, SayHere);
    FDrafts->IsHeld = [this] { return IsPlaying(); };
    FStrategies =
        std::make_unique<TStrategyFlow>(Workstation, Context, *FDialogs, *FDocks, *FDrafts, *FCommands, *this, SayHere);
    BindCommands();
    MakeWorkspaces();
    BuildMenus();
}

TMainWindow::~TMainWindow() {
    FTick.stop();
    FPreferences->OnLanguage = FPreferences->OnLook = nullptr;
    FRun.reset();
    FDocks->CloseAll();
    FWorkspaces.reset();
    FTrading.SetPlaces(nullptr, nullptr);
    FClipboard.reset();
    FStrategies.reset();
    FDrafts.reset();
    FDocks.reset();
    FWorkstation.SetOnWork({});
    FWorkstation.MessageBox().OnShow = nullptr;
    FContext.MakePopupContent = nullptr;
    FContext.OnEditRefused = nullptr;
    FContext.OnEditKept = nullptr;
}

void TMainWindow::PumpLater() {
    if (std::exchange(FPumping, true)) return;
    QTimer::singleShot(0, this, [this] {
        FPumping = false;
        FWorkstation.Pump();
    });
}

void TMainWindow::ReloadViews() {
    FCatalog.Reload();
    BuildMenus();
}

// --- views

// The workstation's own views take no strategy: what is opened by itself is a package's.
fw::TIBaseView* TMainWindow::FirstVisibleView() const {
    for (const auto& View : FCatalog.Views())
        if (!dynamic_cast<TTradingView*>(View.get()) &&
            fw::DispatchValue("GetIsVisible", false, [&] { return View->GetIsVisible(); }))
            return View.get();
    return nullptr;
}

void TMainWindow::OpenStartView() {
    if (!FWorkstation.Store().ReadSetting(kSettingSection, kSettingStarted)) {
        PlayFirstStart();
        return;
    }
    fw::TIBaseView* View = FirstVisibleView();
    if (TViewDock* Dock = View ? FDocks->Open(*View) : nullptr) FDrafts->RestoreView(*Dock);
}

void TMainWindow::OpenFirstView() {
    if (fw::TIBaseView* View = FirstVisibleView()) FDocks->Open(*View);
}

TViewDock* TMainWindow::PlayFirstStart() {
    fw::TIBaseView* View = FirstVisibleView();
    TViewDock* Dock = View ? FDocks->Open(*View) : nullptr;
    fw::TFrame* Frame = Dock ? Dock->Frame() : nullptr;
    const TStrategy Strategy = FirstStartStrategy(FWorkstation.Store());
    if (!Frame || Strategy.Legs.empty()) return Dock;
    FRunFrame = Frame;
    FRunBegan = QDateTime::currentMSecsSinceEpoch();
    FRun = std::make_unique<TStrategyRun>(*Frame, FWorkstation.Market(), Strategy, kRunPatience);
    PressCaptionButton(*Dock, {kShowHintIcon});
    FRunTimer.start(kRunPollMs);
    return Dock;
}

void TMainWindow::PollRun() {
    if (!FRun) return FRunTimer.stop();
    const auto Elapsed = std::chrono::milliseconds(QDateTime::currentMSecsSinceEpoch() - FRunBegan);
    auto State = TStrategyRun::EState::Failed;
    fw::Dispatch("first start", [&] { State = FRun->Poll(Elapsed); });
    if (!FRun || State == TStrategyRun::EState::Waiting) return;
    for (const auto& Problem : FRun->Problems()) fw::TLog::Warning(Problem.Key, Problem.Args);
    FRunTimer.stop();
    FRun.reset();
    FRunFrame = nullptr;
    if (State != TStrategyRun::EState::Done) return;
    try {
        FWorkstation.Store().WriteSetting(kSettingSection, kSettingStarted, "1");
    } catch (const EStoreError& Error) {
        fw::TLog::Error(Error.Key(), Error.Args());
    }
}

// The view whose orders wait for their confirmation stays until it is answered.
void TMainWindow::closeEvent(QCloseEvent* Event) {
    Event->setAccepted(!FConfirmation.IsOpen() && FWorkspaces->Leave() && LeaveDrafts());
    if (!Event->isAccepted()) return;
    // They ask their owner before they close, and would keep the program alive.
    for (TViewDock* Dock : FDocks->Docks())
        if (Dock->isFloating()) Dock->hide();
}

// False: the store does not take what was typed, and the user would rather stay.
bool TMainWindow::LeaveDrafts() {
    FDrafts->Flush();
    return !FDrafts->HasUnwritten() || FDialogs->Ask(this, FContext.Translate("Res_DraftsAskUnsaved"));
}

// The first view gets what the messages do not need; from then on the border is the user's.
void TMainWindow::GiveRoomToViews() {
    TViewDock* First = FDocks->Docks().front();
    const int Messages = FContext.Scaled(kMessagesHeight);
    resizeDocks({First, FPanel}, {std::max(Messages, height() - Messages), Messages}, Qt::Vertical);
}

void TMainWindow::showEvent(QShowEvent* Event) {
    QMainWindow::showEvent(Event);
    if (std::exchange(FShown, true)) return;
    // When the views that open with it stand in it.
    QTimer::singleShot(0, this, [this] { FWorkstation.Channels().SendData(fw::kChannelMainFormShow, nullptr); });
}

void TMainWindow::Say(const fw::Text& Key, const std::vector<fw::Text>& Args) {
    FStatus->Say([this, Key, Args] { return ToQt(FWorkstation.Language().Resource(Key, Args)); });
}

void TMainWindow::UpdateHint() {
    TViewDock* Dock = FDocks->Current();
    fw::TFrame* Frame = Dock ? Dock->Frame() : nullptr;
    FStatus->ShowHint(Frame ? MissingHint(*Frame) : nullptr);
}

// --- language, skin, user, market

void TMainWindow::SetLanguage(int Language) {
    Remember([&] { FWorkstation.SetLanguage(Language); });
}

void TMainWindow::SetSkin(const std::string& Skin) {
    Remember([&] { FWorkstation.SetSkin(Skin); });
}

// What is chosen holds from where it is stored.
void TMainWindow::Remember(const std::function<void()>& Choice) {
    try {
        Choice();
    } catch (const EStoreError& Error) {
        fw::TLog::Error(Error.Key(), Error.Args());
    }
}

void TMainWindow::Retranslate() {
    FDocks->SetLanguage(FWorkstation.Language().GetLanguage());
    setWindowTitle(FWorkspaces->Title());
    FMessages->Retranslate();
    FPanel->Retranslate();
    FStatus->Retranslate();
    FPopups.Retranslate();
    FConfirmation.Retranslate();
    BuildMenus();
}

bool TMainWindow::SetUser(const std::string& Code) {
    if (Code == FWorkstation.User().Code) return true;
    if (FConfirmation.IsOpen()) return false;
    if (!FDocks->Docks().empty() && !FDialogs->Ask(this, FContext.Translate("Res_UserAskSwitch"))) {
        BuildMenus();
        return false;
    }
    if (!FWorkspaces->Leave() || !LeaveDrafts()) {
        BuildMenus();
        return false;
    }
    FDocks->CloseAll();
    Remember([&] { FWorkstation.SetUser(Code); });
    const bool Known = FWorkstation.User().Code == Code;
    if (Known) fw::TLog::Info("Res_UserNow", {FWorkstation.User().Name.empty() ? Code : FWorkstation.User().Name});
    BuildMenus();
    if (!FWorkspaces->OpenLast()) OpenFirstView();
    return Known;
}

// The progress bar runs the loop: the market stands still meanwhile.
void TMainWindow::ImportFile(const QString& File) {
    FTick.stop();
    fw::Dispatch("import", [&] { TImportFlow(FWorkstation, FContext, *FDialogs, this).Run(File); });
    FTick.start();
}

void TMainWindow::ResetSample() {
    if (!FDialogs->Ask(this, FContext.Translate("Res_ResetMarketAsk"))) return;
    try {
        for (const TStoreNotice& Notice : FWorkstation.ResetSample()) LogNotice(Notice);
        fw::TLog::Info("Res_ResetMarketDone");
    } catch (const EStoreError& Error) {
        fw::TLog::Error(Error.Key(), Error.Args());
        FDialogs->Tell(this, ToQt(FWorkstation.Language().Resource(Error.Key(), Error.Args())));
    } catch (const EMarketRefusal& Refusal) {
        fw::TLog::Error(Refusal.Reason().Key, Refusal.Reason().Args);
        FDialogs->Tell(this, ToQt(FWorkstation.Language().Resource(Refusal.Reason().Key, Refusal.Reason().Args)));
    }
    BuildMenus();
}

}  // namespace ws
