// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/StrategyFlow.h"

#include <algorithm>

#include "framework/base/Log.h"
#include "workstation/renderers/QtText.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {

TStrategyFlow::TStrategyFlow(TWorkstation& Workstation, const TRenderContext& Context, TDialogs& Dialogs,
                             TViewDocks& Docks, TDraftFlow& Drafts, TCommands& Commands, QWidget& Window,
                             TDraftFlow::TSay Say)
    : FWorkstation(Workstation),
      FContext(Context),
      FDialogs(Dialogs),
      FDocks(Docks),
      FDrafts(Drafts),
      FWindow(Window),
      FSay(std::move(Say)) {
    Commands.Bind("strategy.save", [this] { Save(); });
    Commands.Bind("strategy.open", [this] { Open(); });
}

TViewDock* TStrategyFlow::LegsDock() const {
    return FDocks.LastUsed([this](TViewDock& Dock) { return FDrafts.DraftOf(Dock) != nullptr; });
}

void TStrategyFlow::Save() {
    TViewDock* Dock = LegsDock();
    if (!Dock) return FSay("Res_StrategyNoView", {});
    const auto State = FDrafts.StateOf(*Dock);
    const auto HasSymbol = [](const TRowState& Row) { return !Row.Symbol.empty(); };
    if (!State || std::none_of(State->Rows.begin(), State->Rows.end(), HasSymbol))
        return FSay("Res_StrategyNoLegs", {});
    Show(TStrategyDialog::EMode::Save,
         [this, State = *State](const auto& Name, const auto& Note) { return SaveAs(State, Name, Note); });
}

void TStrategyFlow::Open() {
    TViewDock* Dock = LegsDock();
    if (!Dock) return FSay("Res_StrategyNoView", {});
    if (Load().empty()) return FSay("Res_StrategyNone", {});
    Show(TStrategyDialog::EMode::Open,
         [this, Into = QPointer<TViewDock>(Dock)](const auto& Name, const auto&) { return OpenInto(Into, Name); });
}

void TStrategyFlow::Show(TStrategyDialog::EMode Mode,
                         std::function<bool(const std::string&, const std::string&)> Take) {
    if (FDialog) return;
    FDialog = new TStrategyDialog(
        Mode, {[this] { return Load(); }, std::move(Take), [this](const auto& Name) { Remove(Name); }}, FContext,
        &FWindow);
    FDialog->setAttribute(Qt::WA_DeleteOnClose);
    FDialog->open();
}

std::vector<TStrategyRow> TStrategyFlow::Load() const {
    std::vector<TStrategyRow> Rows;
    Guarded([&] { Rows = FWorkstation.Store().LoadStrategies(FWorkstation.User().Code); });
    return Rows;
}

bool TStrategyFlow::Guarded(const std::function<void()>& Body) const {
    try {
        Body();
        return true;
    } catch (const EStoreError& Error) {
        fw::TLog::Error(Error.Key(), Error.Args());
        FDialogs.Tell(FDialog ? FDialog.data() : &FWindow,
                      ToQt(FWorkstation.Language().Resource(Error.Key(), Error.Args())));
        return false;
    }
}

// Layout and account are the view's and not the strategy's.
bool TStrategyFlow::SaveAs(const TViewState& State, const std::string& Name, const std::string& Note) {
    const auto Rows = Load();
    const bool Taken = std::any_of(Rows.begin(), Rows.end(), [&](const auto& Row) { return Row.Name == Name; });
    if (Taken && !FDialogs.Ask(FDialog, FContext.Translate("Res_StrategyAskReplace", {Name}))) return false;
    TViewState Kept;
    static_cast<TViewInputs&>(Kept) = State.Inputs();
    const auto Now = std::chrono::duration_cast<std::chrono::seconds>(fw::TClock::Now().time_since_epoch());
    const bool Saved = Guarded([&] {
        TStoreTransaction Write(FWorkstation.Store());
        Write.PutStrategy(FWorkstation.User().Code, {Name, Note, Now.count(), TextOfState(Kept)});
        Write.Commit();
    });
    if (Saved) FSay("Res_StrategySaved", {Name});
    return Saved;
}

bool TStrategyFlow::OpenInto(TViewDock* Dock, const std::string& Name) {
    const auto Rows = Load();
    const auto Found = std::find_if(Rows.begin(), Rows.end(), [&](const auto& Row) { return Row.Name == Name; });
    if (!Dock) return FSay("Res_StrategyNoView", {}), true;
    if (Found == Rows.end()) return true;
    FSay("Res_StrategyOpened", {Name});
    FDrafts.OpenState(*Dock, StateOfText(Found->State));
    return true;
}

void TStrategyFlow::Remove(const std::string& Name) {
    if (!FDialogs.Ask(FDialog, FContext.Translate("Res_StrategyAskDelete", {Name}))) return;
    Guarded([&] {
        TStoreTransaction Write(FWorkstation.Store());
        Write.RemoveStrategy(FWorkstation.User().Code, Name);
        Write.Commit();
    });
}

}  // namespace ws
