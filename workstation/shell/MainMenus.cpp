// SPDX-License-Identifier: GPL-3.0-or-later
// The menus of the main window.
#include <array>

#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>

#include "workstation/renderers/ChartRenderer.h"
#include "workstation/renderers/QtText.h"
#include "workstation/shell/Icons.h"
#include "workstation/shell/MainWindow.h"

namespace ws {

namespace {

struct TNamedSkin {
    const char* Skin;
    const char* TextKey;
};
constexpr std::array kSkins{TNamedSkin{"Light", "Res_SkinLight"}, TNamedSkin{"Dark", "Res_SkinDark"}};

// By language index.
constexpr std::array kLanguages{"Res_LanguageEnglish", "Res_LanguageTraditional", "Res_LanguageSimplified"};

QString MenuText(const fw::Text& Caption) { return ToQt(Caption).replace(QLatin1Char('&'), QLatin1String("&&")); }

QAction* AddChoice(QMenu& Menu, QActionGroup& Group, const QString& Text, bool Chosen) {
    QAction* Choice = Menu.addAction(Text);
    Choice->setCheckable(true);
    Choice->setChecked(Chosen);
    Group.addAction(Choice);
    return Choice;
}

}  // namespace

// Built anew on every change of language, user or packages: the descriptors are asked again. Old actions die in the
// loop, for one of them may be what was just chosen.
void TMainWindow::BuildMenus() {
    for (QAction* Old : menuBar()->actions()) {
        menuBar()->removeAction(Old);
        if (Old->menu()) Old->menu()->deleteLater();
    }
    BuildFileMenu();
    BuildEditMenu();
    for (const TMenuNode& Node : MenuOf(FCatalog)) {
        if (Node.View) {
            connect(menuBar()->addAction(MenuText(Node.Caption)), &QAction::triggered, this,
                    [this, View = Node.View] { FDocks->Open(*View); });
        } else {
            AddNodes(*menuBar()->addMenu(MenuText(Node.Caption)), Node.Children);
        }
    }
    BuildViewMenu();
    QMenu& Help = *menuBar()->addMenu(FContext.Translate("Res_MenuHelp"));
    connect(Help.addAction(FContext.Translate("Res_HelpAbout")), &QAction::triggered, this, [this] { ShowAbout(); });
}

void TMainWindow::AddNodes(QMenu& Menu, const std::vector<TMenuNode>& Nodes) {
    for (size_t i = 0; i < Nodes.size(); ++i) {
        const TMenuNode& Node = Nodes[i];
        if (i > 0 && Node.Group != Nodes[i - 1].Group) Menu.addSeparator();
        if (!Node.View) {
            AddNodes(*Menu.addMenu(MenuText(Node.Caption)), Node.Children);
            continue;
        }
        QAction* Entry = Menu.addAction(MenuText(Node.Caption));
        fw::Text Icon;
        if (Node.View->GetViewIcon(0, Icon)) Entry->setIcon(SkinIcon(ToQt(Icon), FContext.Color("coAccent")));
        connect(Entry, &QAction::triggered, this, [this, View = Node.View] { FDocks->Open(*View); });
    }
}

void TMainWindow::BuildFileMenu() {
    QMenu& File = *menuBar()->addMenu(FContext.Translate("Res_MenuFile"));
    connect(File.addAction(FContext.Translate("Res_FileImport")), &QAction::triggered, this, [this] {
        const QString Chosen =
            FDialogs->AskFile(this, FContext.Translate("Res_ImportTitle"), FContext.Translate("Res_ImportFilter"));
        if (!Chosen.isEmpty()) ImportFile(Chosen);
    });
    connect(File.addAction(FContext.Translate("Res_FileResetMarket")), &QAction::triggered, this,
            [this] { ResetSample(); });
    File.addSeparator();
    QMenu& Users = *File.addMenu(FContext.Translate("Res_MenuUser"));
    auto* Group = new QActionGroup(&Users);
    for (const TUserRow& User : FWorkstation.Users()) {
        const QString Text = MenuText(User.Name.empty() ? User.Code : User.Name);
        connect(AddChoice(Users, *Group, Text, User.Code == FWorkstation.User().Code), &QAction::triggered, this,
                [this, Code = User.Code] { SetUser(Code); });
    }
    File.addSeparator();
    QAction* Exit = File.addAction(FContext.Translate("Res_FileExit"));
    Exit->setShortcut(QKeySequence::Quit);
    connect(Exit, &QAction::triggered, this, [this] { close(); });
}

// The tables take the keys themselves; here they only stand beside the words.
void TMainWindow::BuildEditMenu() {
    QMenu& Edit = *menuBar()->addMenu(FContext.Translate("Res_MenuEdit"));
    const auto Add = [&](const char* Key, QKeySequence::StandardKey Shortcut, void (TClipboardFlow::*Run)()) {
        QAction* Action = Edit.addAction(FContext.Translate(Key));
        Action->setShortcut(Shortcut);
        Action->setShortcutContext(Qt::WidgetShortcut);
        connect(Action, &QAction::triggered, FClipboard.get(), [this, Run] { (FClipboard.get()->*Run)(); });
    };
    Add("Res_EditCopy", QKeySequence::Copy, &TClipboardFlow::CopyFocused);
    Add("Res_EditPasteLegs", QKeySequence::Paste, &TClipboardFlow::PasteFocused);
}

void TMainWindow::BuildViewMenu() {
    QMenu& View = *menuBar()->addMenu(FContext.Translate("Res_MenuView"));
    QMenu& Languages = *View.addMenu(FContext.Translate("Res_MenuLanguage"));
    auto* LanguageGroup = new QActionGroup(&Languages);
    for (size_t i = 0; i < kLanguages.size(); ++i) {
        const int Index = static_cast<int>(i);
        connect(AddChoice(Languages, *LanguageGroup, FContext.Translate(kLanguages[i]),
                          FWorkstation.Language().GetLanguage() == Index),
                &QAction::triggered, this, [this, Index] { SetLanguage(Index); });
    }
    QMenu& Skins = *View.addMenu(FContext.Translate("Res_MenuSkin"));
    auto* SkinGroup = new QActionGroup(&Skins);
    for (const TNamedSkin& Each : kSkins)
        connect(AddChoice(Skins, *SkinGroup, FContext.Translate(Each.TextKey), FContext.GetSkin() == Each.Skin),
                &QAction::triggered, this, [this, Skin = std::string(Each.Skin)] { SetSkin(Skin); });
    View.addSeparator();
    QAction* Messages = View.addAction(FContext.Translate("Res_Messages"));
    Messages->setCheckable(true);
    Messages->setChecked(FPanel->isVisible() || !isVisible());
    connect(Messages, &QAction::triggered, FPanel, [this](bool Shown) { FPanel->setVisible(Shown); });
    connect(&View, &QMenu::aboutToShow, Messages, [this, Messages] { Messages->setChecked(FPanel->isVisible()); });
}

void TMainWindow::ShowAbout() {
    const QString About = FContext.Translate("Res_AboutText", {VENTIQ_VERSION});
    const QString Libraries = FContext.Translate("Res_AboutLibraries", {qVersion(), ChartLibraryVersion()});
    FDialogs->Tell(this, About + QStringLiteral("\n\n") + Libraries);
}

}  // namespace ws
