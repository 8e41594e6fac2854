// SPDX-License-Identifier: GPL-3.0-or-later
// What the commands of the main window do.
#include <QActionGroup>
#include <QMenu>

#include "workstation/renderers/ChartRenderer.h"
#include "workstation/renderers/QtText.h"
#include "workstation/shell/MainWindow.h"
#include "workstation/shell/PanelWalk.h"
#include "workstation/shell/ShortcutSheet.h"

namespace ws {

void TMainWindow::BindCommands() {
    FCommands->Bind("file.import", [this] {
        const QString Chosen =
            FDialogs->AskFile(this, FContext.Translate("Res_ImportTitle"), FContext.Translate("Res_ImportFilter"));
        if (!Chosen.isEmpty()) ImportFile(Chosen);
    });
    FCommands->Bind("file.reset-market", [this] { ResetSample(); });
    FCommands->Bind("file.preferences", [this] { FPreferences->Open(); });
    FCommands->Bind("file.exit", [this] { close(); });
    FCommands->Bind("edit.copy", [this] { FClipboard->CopyFocused(); });
    FCommands->Bind("edit.paste", [this] { FClipboard->PasteFocused(); });
    FCommands->Bind("panel.next", [this] { WalkPanels(*this, 1); });
    FCommands->Bind("panel.previous", [this] { WalkPanels(*this, -1); });
    FCommands->Bind(
        "view.messages", [this] { FPanel->setVisible(!FPanel->isVisible()); }, {},
        [this] { return FPanel->isVisible(); });
    for (int Index = 0; Index < kLanguageCount; ++Index)
        FCommands->Bind(
            "language." + std::to_string(Index), [this, Index] { SetLanguage(Index); }, {},
            [this, Index] { return FWorkstation.Language().GetLanguage() == Index; });
    for (const std::string& Skin : TSkinTable::Embedded().Skins())
        FCommands->Bind(
            "skin." + Skin, [this, Skin] { SetSkin(Skin); }, {}, [this, Skin] { return FContext.GetSkin() == Skin; });
    FCommands->Bind("help.shortcuts", [this] { ShowShortcutSheet(*FCommands, FContext, this); });
    FCommands->Bind("help.about", [this] { ShowAbout(); });
    FMenus->Fill("users", [this](QMenu& Menu) { FillUsers(Menu); });
}

void TMainWindow::MakeWorkspaces() {
    TWorkspaceFlow::THost Host;
    Host.Folder = WorkspacesBeside(FWorkstation.Store());
    Host.OpenStart = [this] { OpenFirstView(); };
    Host.Say = [this](const auto& Key, const auto& Args) { Say(Key, Args); };
    FWorkspaces =
        std::make_unique<TWorkspaceFlow>(FWorkstation, FContext, *FDialogs, *this, *FDocks, FCatalog, std::move(Host));
    FWorkspaces->Bind(*FCommands, *FMenus);
    FLinks += FWorkspaces->OnChanged.Connect([this] {
        setWindowTitle(FWorkspaces->Title());
        BuildMenus();
    });
    // Two users may call a workspace alike.
    const auto Journals = [this](const std::string& Name) { return FWorkstation.User().Code + '/' + Name; };
    FLinks += FWorkspaces->OnSwitched.Connect(
        [this, Journals](const std::string& Name) { FDrafts->SetWorkspace(Journals(Name)); });
    FLinks += FWorkspaces->OnCopied.Connect([this, Journals](const std::string& From, const std::string& To) {
        FDrafts->CopyJournals(Journals(From), Journals(To));
        FDrafts->SetWorkspace(Journals(To));
    });
    FLinks += FWorkspaces->OnRemoved.Connect(
        [this, Journals](const std::string& Name) { FDrafts->RemoveJournals(Journals(Name)); });
    FLinks += FWorkspaces->OnViewRestored.Connect(
        [this](TViewDock& Dock) { FDrafts->RestoreView(Dock, !FWorkspaces->Desk().BroughtLayout(Dock)); });
    FDrafts->IsPaused = [this] { return FWorkspaces->IsBusy(); };
    setWindowTitle(FWorkspaces->Title());
}

void TMainWindow::BuildMenus() {
    if (!FMenus) return;
    FMenus->Build();
    FPreferences->SetCommands(*FCommands);
}

void TMainWindow::FillUsers(QMenu& Menu) {
    auto* Group = new QActionGroup(&Menu);
    for (const TUserRow& User : FWorkstation.Users()) {
        QAction* Choice = Menu.addAction(
            ToQt(User.Name.empty() ? User.Code : User.Name).replace(QLatin1Char('&'), QLatin1String("&&")));
        Choice->setCheckable(true);
        Choice->setChecked(User.Code == FWorkstation.User().Code);
        Group->addAction(Choice);
        connect(Choice, &QAction::triggered, this, [this, Code = User.Code] { SetUser(Code); });
    }
}

void TMainWindow::ShowAbout() {
    const QString About = FContext.Translate("Res_AboutText", {VENTIQ_VERSION});
    const QString Libraries = FContext.Translate("Res_AboutLibraries", {qVersion(), ChartLibraryVersion()});
    FDialogs->Tell(this, About + QStringLiteral("\n\n") + Libraries);
}

}  // namespace ws
