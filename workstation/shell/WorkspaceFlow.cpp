// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/WorkspaceFlow.h"

#include <algorithm>

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>

#include "framework/base/FlagGuard.h"
#include "framework/base/Log.h"
#include "framework/services/GlobalChannelManager.h"
#include "workstation/renderers/QtText.h"
#include "workstation/workspace/WorkspaceName.h"

namespace ws {

namespace {

constexpr char kSection[] = "Workspace";  // of the settings: user code -> name
constexpr char kOpening[] = "Opening";    // in the same section: the user whose workspace is being opened
constexpr char kFolder[] = "workspaces";
constexpr char kInMemory[] = ":memory:";
constexpr int kPollMs = 1000;
constexpr int kSettledMs = 15'000;  // the views stand, and their drafts are back

}  // namespace

std::filesystem::path WorkspacesBeside(const TStore& Store) {
    return Store.FileName() == kInMemory ? std::filesystem::path()
                                         : std::filesystem::path(Store.FileName()).parent_path() / kFolder;
}

TWorkspaceFlow::TWorkspaceFlow(TWorkstation& Workstation, const TRenderContext& Context, TDialogs& Dialogs,
                               QMainWindow& Window, TViewDocks& Docks, const TViewCatalog& Catalog, THost Host)
    : FWorkstation(Workstation),
      FContext(Context),
      FDialogs(Dialogs),
      FWindow(Window),
      FDocks(Docks),
      FHost(std::move(Host)),
      FDesk(Window, Docks, Catalog),
      FAutoSave(FHost.Delay),
      FName(kDefaultWorkspace) {
    Docks.MayArrange = [this] { return MayArrange(); };
    Docks.IsKept = [this](const std::string& Key) { return FDesk.Keeps(Key); };
    FSettled.setSingleShot(true);
    QObject::connect(&FSettled, &QTimer::timeout, &Window, [this] { EndOpening(); });
    // A dock under the mouse is on its way: where it goes is seen when the button is let go.
    QObject::connect(&FTimer, &QTimer::timeout, &Window, [this] {
        if (FWindow.isVisible() && QGuiApplication::mouseButtons() == Qt::NoButton)
            Poll(std::chrono::steady_clock::now());
    });
    FTimer.start(kPollMs);
    QObject::connect(qApp, &QGuiApplication::screenRemoved, &FTimer, [this] { FDesk.BringBack(); });
    Begin();
}

TWorkspaceFlow::~TWorkspaceFlow() {
    FDocks.MayArrange = nullptr;
    FDocks.IsKept = nullptr;
}

// --- saving

void TWorkspaceFlow::Poll(TAutoSave::TTime Now) {
    if (FFolder.Keeps() && !FReadOnly && !FBusy && FAutoSave.IsDue(WriteWorkspace(FDesk.Capture()), Now)) Save();
}

bool TWorkspaceFlow::Save() {
    if (!FFolder.Keeps() || FReadOnly) return true;
    const TWorkspaceSections Sections = FDesk.Capture();
    FAutoSave.Settle(WriteWorkspace(Sections));
    try {
        FFolder.Save(FName, Sections);
        FFailed = false;
    } catch (const EWorkspaceError& Error) {
        if (!std::exchange(FFailed, true)) fw::TLog::Error(Error.Reason().Key, Error.Reason().Args);
    }
    return !FFailed;
}

bool TWorkspaceFlow::Leave() {
    EndOpening();
    return Save() || FDialogs.Ask(&FWindow, FContext.Translate("Res_WorkspaceAskUnsaved", {FromQt(Shown(FName))}));
}

// --- opening

// The folder and the name that the user has open.
void TWorkspaceFlow::Begin() {
    FFolder =
        TWorkspaceFolder(FHost.Folder.empty() ? FHost.Folder : FHost.Folder / FileNameOf(FWorkstation.User().Code));
    FName = LastName();
    FReadOnly = FFailed = false;
}

std::string TWorkspaceFlow::LastName() const {
    if (!FFolder.Keeps()) return kDefaultWorkspace;
    const std::string Name = FWorkstation.Store().ReadSetting(kSection, FWorkstation.User().Code).value_or("");
    return FFolder.Has(Name) ? Name : kDefaultWorkspace;
}

void TWorkspaceFlow::Remember() const {
    if (FFolder.Keeps())
        InStore([this] { FWorkstation.Store().WriteSetting(kSection, FWorkstation.User().Code, FName); });
}

bool TWorkspaceFlow::OpenLast() {
    Begin();
    FDesk.Clear();
    OnSwitched(FName);
    bool Found = true;
    {
        const fw::TFlagGuard Busy(FBusy, fw::EGuardEnd::Clear);
        if (MayOpenAgain())
            Found = Restore(FFolder.Load(FName));
        else if (FHost.OpenStart)
            FHost.OpenStart();
    }
    OnChanged();
    return Found;
}

// A view that ended the program while it was opened would do so at every start.
bool TWorkspaceFlow::MayOpenAgain() {
    if (!FFolder.Keeps() || FWorkstation.Store().ReadSetting(kSection, kOpening) != FWorkstation.User().Code) {
        if (FFolder.Keeps() && FFolder.Has(FName)) MarkOpening();
        return true;
    }
    if (FDialogs.Ask(&FWindow, FContext.Translate("Res_WorkspaceAskAgain", {FromQt(Shown(FName))}))) {
        MarkOpening();
        return true;
    }
    EndOpening();
    LeaveAlone();
    return false;
}

// Neither the file nor the drafts of its views: what is opened instead is of no workspace, whose name is empty.
void TWorkspaceFlow::LeaveAlone() {
    FReadOnly = true;
    OnSwitched({});
}

void TWorkspaceFlow::MarkOpening() {
    InStore([this] { FWorkstation.Store().WriteSetting(kSection, kOpening, FWorkstation.User().Code); });
    FSettled.start(kSettledMs);
}

void TWorkspaceFlow::EndOpening() {
    FSettled.stop();
    if (FFolder.Keeps()) InStore([this] { FWorkstation.Store().RemoveSetting(kSection, kOpening); });
}

void TWorkspaceFlow::InStore(const std::function<void()>& Body) {
    try {
        Body();
    } catch (const EStoreError& Error) {
        fw::TLog::Error(Error.Key(), Error.Args());
    }
}

// The views of the former name are still open, and saved.
void TWorkspaceFlow::Enter(const std::string& Name) {
    FDocks.CloseAll();
    FName = Name;
    FReadOnly = FFailed = false;
    FDesk.Clear();
    OnSwitched(FName);
    {
        const fw::TFlagGuard Busy(FBusy, fw::EGuardEnd::Clear);
        if (!Restore(FFolder.Load(FName)) && FHost.OpenStart) FHost.OpenStart();
    }
    Remember();
    Save();
    OnChanged();
}

// True: there was a workspace, though perhaps one without views.
bool TWorkspaceFlow::Restore(TWorkspaceFolder::TFound Found) {
    using enum TWorkspaceFolder::EFound;
    FReadOnly = Found.Kind == Newer || Found.Kind == Unreadable;
    TellFound(Found);
    if (Found.Sections.empty()) {
        if (FReadOnly) LeaveAlone();
        return false;
    }
    const auto Views = std::count_if(Found.Sections.begin(), Found.Sections.end(),
                                     [](const auto& Each) { return Each.Name == kViewSection; });
    FRestoring = true;
    const std::vector<TViewDock*> Opened = FDesk.Restore(std::move(Found.Sections));
    FRestoring = false;
    fw::TCustomGlobalChannelManager::GetInstance().SendData(fw::kChannelLayoutLoaded, nullptr);
    for (TViewDock* Dock : Opened) OnViewRestored(*Dock);
    if (const auto Missing = Views - std::ssize(Opened); Missing > 0)
        fw::TLog::Warning("Res_WorkspaceViewsMissing", {std::to_string(Missing)});
    if (Found.Kind == Whole) FAutoSave.Settle(WriteWorkspace(FDesk.Capture()));
    return true;
}

void TWorkspaceFlow::TellFound(const TWorkspaceFolder::TFound& Found) const {
    using enum TWorkspaceFolder::EFound;
    const fw::Text Name = FromQt(Shown(FName));
    if (Found.Kind == Newer) fw::TLog::Warning("Res_WorkspaceNewer", {Name});
    if (Found.Kind == Unreadable) fw::TLog::Warning("Res_WorkspaceUnreadable", {Name, Found.Reason});
    if (Found.Kind == Backup) fw::TLog::Warning("Res_WorkspaceFromBackup", {Name});
    if (Found.Kind == Lost) fw::TLog::Warning("Res_WorkspaceLost", {Name});
    if (!Found.SetAside.empty()) fw::TLog::Warning("Res_WorkspaceSetAside", {Found.SetAside.string()});
}

// --- what the user asks for

void TWorkspaceFlow::Refuse(const fw::TRefusal& Reason) const {
    fw::TLog::Warning(Reason.Key, Reason.Args);
    FDialogs.Tell(&FWindow, FContext.Translate(Reason.Key.c_str(), Reason.Args));
}

bool TWorkspaceFlow::MayArrange() const {
    if (IsLocked() && FHost.Say) FHost.Say("Res_WorkspaceLockedNow", {});
    return !IsLocked();
}

// Orders that wait for their confirmation stay until they are answered.
bool TWorkspaceFlow::MaySwitch() const {
    const bool Held = FDocks.IsHeld && FDocks.IsHeld();
    if (Held && FHost.Say) FHost.Say("Res_WorkspaceHeld", {});
    return !Held;
}

void TWorkspaceFlow::Switch(const std::string& Name) {
    if (Name == FName) return;
    if (MaySwitch() && Leave()) return Enter(Name);
    OnChanged();  // the menu shows the one that stays
}

void TWorkspaceFlow::SaveAs(const std::string& Name) {
    if (const auto Reason = NameRefusal(Name)) return Refuse(*Reason);
    try {
        FFolder.Save(Name, FDesk.Capture());
    } catch (const EWorkspaceError& Error) {
        return Refuse(Error.Reason());
    }
    const std::string From = std::exchange(FName, Name);
    FReadOnly = FFailed = false;
    Remember();
    if (From != Name) OnCopied(From, Name);
    OnChanged();
}

void TWorkspaceFlow::Remove(const std::string& Name) {
    if (Name == FName) return;
    try {
        FFolder.Remove(Name);
    } catch (const EWorkspaceError& Error) {
        return Refuse(Error.Reason());
    }
    OnRemoved(Name);
    OnChanged();
}

void TWorkspaceFlow::Reset() {
    if (!MayArrange() || !MaySwitch()) return;
    Save();
    FDocks.CloseAll();
    FDesk.Clear();
    if (FHost.OpenStart) FHost.OpenStart();
    OnChanged();
}

void TWorkspaceFlow::SetLocked(bool Locked) {
    FDesk.SetLocked(Locked);
    OnChanged();
}

void TWorkspaceFlow::Export(const std::filesystem::path& File) {
    try {
        WriteWorkspaceFile(File, FDesk.Capture());
        fw::TLog::Info("Res_WorkspaceExported", {FromQt(Shown(FName)), File.string()});
    } catch (const EWorkspaceError& Error) {
        Refuse(Error.Reason());
    }
}

void TWorkspaceFlow::Import(const std::filesystem::path& File, const std::string& Name) {
    using enum TWorkspaceFolder::EFound;
    const TWorkspaceFolder::TFound Found = ReadWorkspaceFile(File);
    if (Found.Kind == Newer) return Refuse({"Res_WorkspaceImportNewer", {File.string()}});
    if (Found.Kind != Whole) return Refuse({"Res_WorkspaceImportNone", {File.string()}});
    if (const auto Reason = NameRefusal(Name)) return Refuse(*Reason);
    if (!MaySwitch() || !Leave()) return;
    try {
        FFolder.Save(Name, Found.Sections);
    } catch (const EWorkspaceError& Error) {
        return Refuse(Error.Reason());
    }
    FDocks.CloseAll();
    OnRemoved(Name);  // what had the name before is gone
    Enter(Name);
}

}  // namespace ws
