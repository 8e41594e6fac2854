// SPDX-License-Identifier: GPL-3.0-or-later
// Menus of the main window.
#include <QActionGroup>
#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>

#include "workstation/renderers/QtText.h"
#include "workstation/resources/Skins.h"
#include "workstation/shell/ImportDialog.h"
#include "workstation/shell/MainWindow.h"

namespace ws {

namespace {

struct TLanguageEntry {
    const char* Key;
    int Index;
};

constexpr TLanguageEntry kLanguages[] = {
    {"Res_LanguageEnglish", kLanguageEnglish}, {"Res_LanguageTraditional", kLanguageTraditional}, {"Res_LanguageSimplified", kLanguageSimplified}};

QAction* AddChoice(QMenu& Menu, QActionGroup& Group, const QString& Caption, bool Checked) {
    auto* Action = Menu.addAction(Caption);
    Action->setCheckable(true);
    Action->setChecked(Checked);
    Group.addAction(Action);
    return Action;
}

}  // namespace

void TMainWindow::BuildMenus() {
    auto* Bar = new QMenuBar(this);
    AddFileMenu(*Bar);
    AddViewMenus(*Bar);
    AddViewMenu(*Bar);
    AddHelpMenu(*Bar);
    setMenuBar(Bar);  // deletes the former one later
}

void TMainWindow::AddViewMenus(QMenuBar& Bar) {
    for (const auto& Entry : BuildMenuTree(FViews.Views())) {
        auto* Menu = Bar.addMenu(ToQt(Entry.Caption));
        Menu->setObjectName("menu" + QString::number(Entry.Id));
        AddEntries(*Menu, Entry.View ? std::vector<TMenuEntry>{Entry} : Entry.Entries);
    }
}

void TMainWindow::AddEntries(QMenu& Menu, const std::vector<TMenuEntry>& Entries) {
    for (size_t i = 0; i < Entries.size(); ++i) {
        const auto& Entry = Entries[i];
        if (i > 0 && Entry.Group != Entries[i - 1].Group) Menu.addSeparator();
        if (!Entry.View) {
            AddEntries(*Menu.addMenu(ToQt(Entry.Caption)), Entry.Entries);
            continue;
        }
        auto* Action = Menu.addAction(ToQt(Entry.Caption));
        Action->setObjectName("view" + QString::number(Entry.Id));
        connect(Action, &QAction::triggered, this, [this, View = Entry.View] { OpenView(*View); });
    }
}

void TMainWindow::AddFileMenu(QMenuBar& Bar) {
    auto* File = Bar.addMenu(FContext.Translate("Res_MenuFile"));
    connect(File->addAction(FContext.Translate("Res_FileImport")), &QAction::triggered, this, [this] { ImportWithDialog(FWorkstation, FContext, this); });
    connect(File->addAction(FContext.Translate("Res_FileResetMarket")), &QAction::triggered, this, [this] { ResetSample(); });
    AddUserMenu(*File);
    File->addSeparator();
    connect(File->addAction(FContext.Translate("Res_FileExit")), &QAction::triggered, this, [this] { close(); });
}

void TMainWindow::AddUserMenu(QMenu& File) {
    auto* Menu = File.addMenu(FContext.Translate("Res_MenuUser"));
    auto* Group = new QActionGroup(Menu);
    for (const auto& User : FWorkstation.Users()) {
        auto* Action = AddChoice(*Menu, *Group, ToQt(User.Code + " – " + User.Name), User.Code == FWorkstation.User().Code);
        connect(Action, &QAction::triggered, this, [this, Code = User.Code] { QTimer::singleShot(0, this, [this, Code] { SwitchUser(Code); }); });
    }
}

void TMainWindow::AddViewMenu(QMenuBar& Bar) {
    auto* View = Bar.addMenu(FContext.Translate("Res_MenuView"));
    auto* Languages = View->addMenu(FContext.Translate("Res_MenuLanguage"));
    auto* LanguageGroup = new QActionGroup(Languages);
    for (const auto& [Key, Index] : kLanguages) {
        auto* Action = AddChoice(*Languages, *LanguageGroup, FContext.Translate(Key), Index == FWorkstation.Language().GetLanguage());
        connect(Action, &QAction::triggered, this, [this, Language = Index] { QTimer::singleShot(0, this, [this, Language] { SwitchLanguage(Language); }); });
    }
    auto* Skins = View->addMenu(FContext.Translate("Res_MenuSkin"));
    auto* SkinGroup = new QActionGroup(Skins);
    for (const auto& Skin : TSkinTable::Embedded().Skins()) {
        auto* Action = AddChoice(*Skins, *SkinGroup, FContext.Translate(("Res_Skin" + Skin).c_str()), Skin == FWorkstation.LookAndFeel().GetSkinName());
        connect(Action, &QAction::triggered, this, [this, Skin] { QTimer::singleShot(0, this, [this, Skin] { SwitchSkin(Skin); }); });
    }
    View->addSeparator();
    View->addAction(FMessages->toggleViewAction());
}

void TMainWindow::AddHelpMenu(QMenuBar& Bar) {
    auto* Help = Bar.addMenu(FContext.Translate("Res_MenuHelp"));
    connect(Help->addAction(FContext.Translate("Res_HelpAbout")), &QAction::triggered, this, [this] { ShowAbout(); });
}

void TMainWindow::ResetSample() {
    QMessageBox Box(QMessageBox::Question, windowTitle(), FContext.Translate("Res_ResetQuestion"), QMessageBox::NoButton, this);
    auto* Reset = Box.addButton(FContext.Translate("Res_ResetConfirm"), QMessageBox::AcceptRole);
    Box.setDefaultButton(Box.addButton(FContext.Translate("Res_Cancel"), QMessageBox::RejectRole));
    Box.exec();
    if (Box.clickedButton() != Reset) return;
    try {
        for (const auto& Notice : FWorkstation.ResetSample()) fw::TLog::Info(Notice.Key, Notice.Args);
        fw::TLog::Info("Res_ResetDone");
    } catch (const EStoreError& Error) {
        fw::TLog::Error(Error.Key(), Error.Args());
        ShowMessageBox(FWorkstation.Language().Resource(Error.Key(), Error.Args()));
    }
    BuildMenus();
}

void TMainWindow::ShowAbout() {
    QMessageBox::about(this, FContext.Translate("Res_AboutTitle"), FContext.Translate("Res_AboutText", {QApplication::applicationVersion().toStdString()}));
}

}  // namespace ws
