// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/DraftFlow.h"

#include <algorithm>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QThread>

#include "framework/base/Log.h"
#include "workstation/preferences/PreferenceTable.h"
#include "workstation/renderers/FrameRenderer.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {

namespace {

constexpr int kPollMs = 100;
constexpr qint64 kRetryMs = 10'000;  // a try may wait a second for another program's lock

// A view in which the user does not work is brought back without taking the focus from where he works: widgets that are
// disabled take none.
class TFocusStays {
public:
    explicit TFocusStays(TViewDock& Dock) {
        const QWidget* Focused = QApplication::focusWidget();
        if (Dock.Renderer() && Dock.Renderer()->isEnabled() && !(Focused && Dock.isAncestorOf(Focused)))
            FDisabled = Dock.Renderer();
        if (FDisabled) FDisabled->setEnabled(false);
    }
    ~TFocusStays() {
        if (FDisabled) FDisabled->setEnabled(true);
    }
    TFocusStays(const TFocusStays&) = delete;
    TFocusStays& operator=(const TFocusStays&) = delete;

private:
    QWidget* FDisabled = nullptr;
};

bool HasOwnStep(const QLineEdit& Line, bool Back) { return Back ? Line.isUndoAvailable() : Line.isRedoAvailable(); }

}  // namespace

TDraftFlow::TDraftFlow(TWorkstation& Workstation, TViewDocks& Docks, TCommands& Commands, TSay Say)
    : FWorkstation(Workstation), FDocks(Docks), FCommands(Commands), FSay(std::move(Say)) {
    FLinks += Docks.OnOpened.Connect([this](TViewDock& Dock) { Follow(Dock); });
    FLinks += Docks.OnFrameGoes.Connect([this](fw::TFrame& Frame) { Leave(Frame); });
    const auto HasDraft = [this] { return FDocks.Current() && DraftOf(*FDocks.Current()); };
    Commands.Bind(
        "edit.undo", [this] { Undo(); }, HasDraft);
    Commands.Bind(
        "edit.redo", [this] { Redo(); }, HasDraft);
    qApp->installEventFilter(this);
    FClock.start();
    connect(&FPoll, &QTimer::timeout, this, [this] { Poll(); });
    FPoll.start(kPollMs);
}

TDraftFlow::~TDraftFlow() { Flush(); }

// --- following

void TDraftFlow::Follow(TViewDock& Dock) {
    fw::TFrame* Frame = Dock.Frame();
    if (!Frame || !HasViewState(*Frame)) return;
    try {
        TStateJournal Journal(FWorkstation.Store().LoadJournal({FWorkspace, Dock.Key()}));
        auto Draft = std::make_unique<TViewDraft>(*Frame, FWorkstation.Market(), FWorkstation.Subscriptions(),
                                                  std::move(Journal));
        Draft->OnRestored = [this, &Dock](auto, const auto& Problems) { TellRestored(Dock, Problems); };
        FFollowed[Frame] = {&Dock, std::move(Draft)};
        QTimer::singleShot(0, this, [this] { Poll(); });  // a new view's first state, before anything is done to it
    } catch (const EStoreError& Error) {
        fw::TLog::Error(Error.Key(), Error.Args());
    }
}

void TDraftFlow::Leave(const fw::TFrame& Frame) {
    const auto Found = FFollowed.find(&Frame);
    if (Found == FFollowed.end()) return;
    fw::Dispatch("draft", [&] { Found->second.Draft->Capture(); });
    FNextTry = 0;
    Write();
    FFollowed.erase(Found);
}

TViewDraft* TDraftFlow::DraftOf(const TViewDock& Dock) const {
    const auto Found = FFollowed.find(Dock.Frame());
    return Found == FFollowed.end() ? nullptr : Found->second.Draft.get();
}

// Not while a handler of a view waits for an answer: the view must not change under it.
void TDraftFlow::Poll() {
    const auto Says = [](const std::function<bool()>& Held) { return Held && Held(); };
    if (Says(IsPaused) || Says(FDocks.IsHeld) || QThread::currentThread()->loopLevel() > 1) return;
    for (auto& [Frame, Followed] : FFollowed) {
        if (Says(IsHeld) && !Followed.Draft->IsNew()) continue;
        const TViewDraft::TWait Now(FClock.elapsed());
        std::optional<TFocusStays> Focus;
        if (Followed.Draft->MayPerform(Now)) Focus.emplace(*Followed.Dock);
        fw::Dispatch("draft", [&] { Followed.Draft->Poll(Now); });
    }
    Write();
}

void TDraftFlow::Flush() {
    for (auto& [Frame, Followed] : FFollowed) fw::Dispatch("draft", [&] { Followed.Draft->Capture(); });
    FNextTry = 0;
    Write();
}

// --- the store

bool TDraftFlow::HasUnwritten() const {
    return std::any_of(FFollowed.begin(), FFollowed.end(),
                       [](const auto& Each) { return Each.second.Draft->Journal().HasChanges(); });
}

void TDraftFlow::Write() {
    if (FClock.elapsed() < FNextTry || !HasUnwritten()) return;
    try {
        TStoreTransaction Write(FWorkstation.Store());
        for (const auto& [Frame, Followed] : FFollowed)
            if (Followed.Draft->Journal().HasChanges())
                Write.ChangeJournal({FWorkspace, Followed.Dock->Key()}, Followed.Draft->Journal().Changes());
        Write.Commit();
        for (const auto& [Frame, Followed] : FFollowed) Followed.Draft->Journal().Written();
        if (std::exchange(FFailing, false)) fw::TLog::Info("Res_DraftsWrittenAgain");
    } catch (const EStoreError& Error) {
        FNextTry = FClock.elapsed() + kRetryMs;
        if (std::exchange(FFailing, true)) return;
        std::vector<fw::Text> Args{Error.Key()};
        Args.insert(Args.end(), Error.Args().begin(), Error.Args().end());
        fw::TLog::Error("Res_DraftsNotWritten", Args);
    }
}

bool TDraftFlow::InStore(const std::function<void(TStoreTransaction& Write)>& Body) {
    try {
        TStoreTransaction Write(FWorkstation.Store());
        Body(Write);
        Write.Commit();
        return true;
    } catch (const EStoreError& Error) {
        fw::TLog::Error(Error.Key(), Error.Args());
        return false;
    }
}

void TDraftFlow::SetWorkspace(const std::string& Name) {
    if (Name == FWorkspace) return;
    Flush();
    FWorkspace = Name;
    for (auto& [Frame, Followed] : FFollowed) Followed.Draft->Journal().Forgotten();
}

bool TDraftFlow::CopyJournals(const std::string& From, const std::string& To) {
    Flush();
    return InStore([&](TStoreTransaction& Write) { Write.CopyJournals(From, To); });
}

bool TDraftFlow::RemoveJournals(const std::string& Workspace) {
    if (!InStore([&](TStoreTransaction& Write) { Write.RemoveJournals(Workspace); })) return false;
    if (Workspace == FWorkspace)
        for (auto& [Frame, Followed] : FFollowed) Followed.Draft->Journal().Forgotten();
    return true;
}

// --- bringing back

void TDraftFlow::RestoreView(TViewDock& Dock, bool WithLayout) {
    TViewDraft* Draft = DraftOf(Dock);
    if (!Draft || FWorkstation.Config().ReadString(kWorkstationSection, kPreferenceRestoreDrafts) == "0") return;
    const TFocusStays Focus(Dock);
    fw::Dispatch("restore", [&] { Draft->RestoreLast(WithLayout); });
}

bool TDraftFlow::OpenState(TViewDock& Dock, TViewState State) {
    TViewDraft* Draft = DraftOf(Dock);
    if (!Draft) return false;
    fw::Dispatch("open", [&] { Draft->Open(std::move(State)); });
    return true;
}

std::optional<TViewState> TDraftFlow::StateOf(TViewDock& Dock) {
    fw::TFrame* Frame = DraftOf(Dock) ? Dock.Frame() : nullptr;
    if (!Frame) return std::nullopt;
    Frame->Controls().PostEditors();
    return CaptureView(*Frame);
}

void TDraftFlow::Step(bool Back) {
    if (auto* Line = qobject_cast<QLineEdit*>(QApplication::focusWidget()); Line && HasOwnStep(*Line, Back))
        return Back ? Line->undo() : Line->redo();
    TViewDock* Dock = FDocks.Current();
    TViewDraft* Draft = Dock ? DraftOf(*Dock) : nullptr;
    bool Done = false;
    fw::Dispatch(Back ? "undo" : "redo", [&] { Done = Draft && (Back ? Draft->Undo() : Draft->Redo()); });
    if (Done) return;
    if (Draft && IsTyping(*Dock->Frame())) return FSay("Res_UndoTyping", {});
    FSay(Back ? "Res_UndoNothing" : "Res_RedoNothing", {});
}

// A line takes the keys of undo for itself even when it has nothing to undo: they go to the view then.
bool TDraftFlow::eventFilter(QObject* Watched, QEvent* Event) {
    if (Event->type() != QEvent::ShortcutOverride) return false;
    const auto* Line = qobject_cast<QLineEdit*>(Watched);
    const TViewDock* Dock = Line ? FDocks.Current() : nullptr;
    if (!Dock || !Dock->isAncestorOf(Line)) return false;
    const QKeySequence Pressed(static_cast<QKeyEvent*>(Event)->keyCombination());
    for (const bool Back : {true, false}) {
        const auto Keys = FCommands.Keys(Back ? "edit.undo" : "edit.redo");
        if (std::find(Keys.begin(), Keys.end(), Pressed) == Keys.end() || HasOwnStep(*Line, Back)) continue;
        Event->ignore();
        return true;
    }
    return false;
}

void TDraftFlow::TellRestored(TViewDock& Dock, const std::vector<fw::TRefusal>& Problems) {
    if (Problems.empty()) return;
    fw::Text Caption;
    if (!Dock.View().GetViewCaption(Dock.Handle(), Caption) || Caption.empty()) Dock.View().GetDefaultCaption(Caption);
    const auto ArgsOf = [&Caption](const fw::TRefusal& Problem) {
        std::vector<fw::Text> Args{Caption};
        Args.insert(Args.end(), Problem.Args.begin(), Problem.Args.end());
        return Args;
    };
    for (const auto& Problem : Problems) fw::TLog::Warning(Problem.Key, ArgsOf(Problem));
    if (Problems.size() == 1) return FSay(Problems.front().Key, ArgsOf(Problems.front()));
    FSay("Res_RestoreSome", {Caption, std::to_string(Problems.size())});
}

}  // namespace ws
