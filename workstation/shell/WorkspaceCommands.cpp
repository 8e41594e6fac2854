// SPDX-License-Identifier: GPL-3.0-or-later
// Menu entries of the workspaces and what they ask.
#include <algorithm>

#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>

#include "workstation/renderers/QtText.h"
#include "workstation/shell/WorkspaceFlow.h"
#include "workstation/workspace/WorkspaceName.h"

namespace ws {

namespace {
constexpr char kExportEnding[] = ".workspace";
}  // namespace

QString TWorkspaceFlow::Shown(const std::string& Name) const {
    return Name == kDefaultWorkspace ? FContext.Translate("Res_WorkspaceDefault") : ToQt(Name);
}

QString TWorkspaceFlow::Title() const {
    const QString Program = FContext.Translate("Res_AppTitle");
    if (IsLocked()) return FContext.Translate("Res_WorkspaceTitleLocked", {FromQt(Shown(FName)), FromQt(Program)});
    return FFolder.Keeps() ? FContext.Translate("Res_WorkspaceTitle", {FromQt(Shown(FName)), FromQt(Program)})
                           : Program;
}

// The one that is open stands among them before it is saved for the first time.
std::vector<std::string> TWorkspaceFlow::Names() const {
    std::vector<std::string> Names = FFolder.Names();
    if (std::find(Names.begin(), Names.end(), FName) == Names.end()) Names.push_back(FName);
    return Names;
}

void TWorkspaceFlow::Bind(TCommands& Commands, TMainMenus& Menus) {
    const auto Keeps = [this] { return FFolder.Keeps(); };
    Commands.Bind(
        "workspace.open", [this] { AskOpen(); }, Keeps);
    Commands.Bind(
        "workspace.save-as", [this] { AskSaveAs(); }, Keeps);
    Commands.Bind(
        "workspace.delete", [this] { AskRemove(); }, Keeps);
    Commands.Bind(
        "workspace.lock", [this] { SetLocked(!IsLocked()); }, {}, [this] { return IsLocked(); });
    Commands.Bind("workspace.reset", [this] { AskReset(); });
    Commands.Bind("workspace.export", [this] { AskExport(); });
    Commands.Bind(
        "workspace.import", [this] { AskImport(); }, Keeps);
    Menus.Fill("workspaces", [this](QMenu& Menu) {
        if (!FFolder.Keeps()) return;
        auto* Group = new QActionGroup(&Menu);
        for (const std::string& Each : Names()) {
            QAction* Choice = Menu.addAction(Shown(Each).replace(QLatin1Char('&'), QLatin1String("&&")));
            Choice->setCheckable(true);
            Choice->setChecked(Each == FName);
            Group->addAction(Choice);
            QObject::connect(Choice, &QAction::triggered, &FWindow, [this, Each] { Switch(Each); });
        }
    });
}

void TWorkspaceFlow::AskOpen() {
    const std::vector<std::string> All = Names();
    QStringList Items;
    for (const std::string& Each : All) Items << Shown(Each);
    const auto Now = std::find(All.begin(), All.end(), FName) - All.begin();
    const int Chosen =
        FDialogs.Pick(&FWindow, FContext.Translate("Res_WorkspaceAskOpen"), Items, static_cast<int>(Now));
    if (Chosen >= 0) Switch(All[static_cast<size_t>(Chosen)]);
}

// Blanks around a name are not part of it, and an existing one is only taken when the user says so.
std::optional<std::string> TWorkspaceFlow::AskName(const QString& Question, const std::string& Proposed, bool AskOpen) {
    const std::optional<QString> Typed = FDialogs.AskText(&FWindow, Question, Shown(Proposed));
    if (!Typed) return std::nullopt;
    std::string Name = fw::Trim(FromQt(*Typed));
    if (Name == FromQt(Shown(kDefaultWorkspace))) Name = kDefaultWorkspace;
    const bool Replaces = Name == FName ? AskOpen : FFolder.Has(Name);
    if (Replaces && !FDialogs.Ask(&FWindow, FContext.Translate("Res_WorkspaceAskReplace", {FromQt(Shown(Name))})))
        return std::nullopt;
    return Name;
}

void TWorkspaceFlow::AskSaveAs() {
    const auto Name =
        AskName(FContext.Translate("Res_WorkspaceAskName"), FName == kDefaultWorkspace ? "" : FName, FReadOnly);
    if (Name) SaveAs(*Name);
}

void TWorkspaceFlow::AskRemove() {
    std::vector<std::string> Others = Names();
    std::erase(Others, FName);
    if (Others.empty()) return FDialogs.Tell(&FWindow, FContext.Translate("Res_WorkspaceNoOther"));
    QStringList Items;
    for (const std::string& Each : Others) Items << Shown(Each);
    const int Chosen = FDialogs.Pick(&FWindow, FContext.Translate("Res_WorkspaceAskDelete"), Items, 0);
    if (Chosen < 0) return;
    const std::string& Name = Others[static_cast<size_t>(Chosen)];
    if (FDialogs.Ask(&FWindow, FContext.Translate("Res_WorkspaceAskDeleteSure", {FromQt(Shown(Name))}))) Remove(Name);
}

void TWorkspaceFlow::AskReset() {
    if (!MayArrange() || !MaySwitch()) return;
    if (FDialogs.Ask(&FWindow, FContext.Translate("Res_WorkspaceAskReset", {FromQt(Shown(FName))}))) Reset();
}

void TWorkspaceFlow::AskExport() {
    const QString File =
        FDialogs.AskSaveFile(&FWindow, FContext.Translate("Res_WorkspaceExportTitle"),
                             ToQt(FileNameOf(FName) + kExportEnding), FContext.Translate("Res_WorkspaceFilter"));
    if (!File.isEmpty()) Export(FromQt(File));
}

void TWorkspaceFlow::AskImport() {
    const QString File = FDialogs.AskFile(&FWindow, FContext.Translate("Res_WorkspaceImportTitle"),
                                          FContext.Translate("Res_WorkspaceFilter"));
    if (File.isEmpty()) return;
    std::string Proposed = std::filesystem::path(FromQt(File)).filename().string();
    Proposed.resize(std::min(Proposed.size(), Proposed.find('.')));
    if (const auto Name = AskName(FContext.Translate("Res_WorkspaceAskName"), NameOfFile(Proposed), true))
        Import(FromQt(File), *Name);
}

}  // namespace ws
