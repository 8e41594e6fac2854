// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/MainMenus.h"

#include <algorithm>

#include <QMenu>
#include <QMenuBar>

#include "framework/base/Dispatch.h"
#include "workstation/renderers/QtText.h"
#include "workstation/shell/Icons.h"

namespace ws {

namespace {

// What stands in the menus, from left to right and top to bottom: a command's id, "-" a separator, "@" and the place
// that a filler fills. A line with a submenu stands in that.
struct TLine {
    const char* Menu;
    const char* Submenu;
    const char* Item;
};

constexpr char kFile[] = "Res_MenuFile", kEdit[] = "Res_MenuEdit", kStrategy[] = "Res_MenuStrategy",
               kView[] = "Res_MenuView", kWorkspace[] = "Res_MenuWorkspace", kHelp[] = "Res_MenuHelp";
constexpr char kStrategies[] = "Res_MenuStrategies", kUsers[] = "Res_MenuUser", kLanguages[] = "Res_MenuLanguage",
               kSkins[] = "Res_MenuSkin", kWorkspaces[] = "Res_MenuWorkspaces";

constexpr TLine kLines[] = {
    {kFile, kStrategies, "strategy.open"},
    {kFile, kStrategies, "strategy.save"},
    {kFile, "", "-"},
    {kFile, "", "file.import"},
    {kFile, "", "file.reset-market"},
    {kFile, "", "-"},
    {kFile, "", "file.export-chart"},
    {kFile, "", "file.export-table"},
    {kFile, "", "file.print"},
    {kFile, "", "-"},
    {kFile, kUsers, "@users"},
    {kFile, "", "file.preferences"},
    {kFile, "", "-"},
    {kFile, "", "file.exit"},
    {kEdit, "", "edit.undo"},
    {kEdit, "", "edit.redo"},
    {kEdit, "", "-"},
    {kEdit, "", "edit.copy"},
    {kEdit, "", "edit.paste"},
    {kStrategy, "", "view.calculate"},
    {kStrategy, "", "view.load"},
    {kStrategy, "", "view.clear"},
    {kStrategy, "", "view.submit"},
    {kStrategy, "", "-"},
    {kStrategy, "", "view.panels"},
    {kStrategy, "", "view.hint"},
    {nullptr, "", "@views"},
    {kView, kLanguages, "language.0"},
    {kView, kLanguages, "language.1"},
    {kView, kLanguages, "language.2"},
    {kView, kSkins, "skin.Light"},
    {kView, kSkins, "skin.Dark"},
    {kView, kSkins, "skin.HighContrast"},
    {kView, "", "-"},
    {kView, "", "panel.next"},
    {kView, "", "panel.previous"},
    {kView, "", "view.next"},
    {kView, "", "view.previous"},
    {kView, "", "-"},
    {kView, "", "view.group"},
    {kView, "", "view.float"},
    {kView, "", "view.close"},
    {kView, "", "-"},
    {kView, "", "view.messages"},
    {kWorkspace, kWorkspaces, "@workspaces"},
    {kWorkspace, "", "workspace.open"},
    {kWorkspace, "", "workspace.save-as"},
    {kWorkspace, "", "workspace.delete"},
    {kWorkspace, "", "workspace.lock"},
    {kWorkspace, "", "workspace.reset"},
    {kWorkspace, "", "-"},
    {kWorkspace, "", "workspace.export"},
    {kWorkspace, "", "workspace.import"},
    {kHelp, "", "help.shortcuts"},
    {kHelp, "", "help.about"},
};

constexpr int kViewKeys = 9;  // Ctrl+1 to Ctrl+9 open the first views

QString MenuText(const fw::Text& Caption) { return ToQt(Caption).replace(QLatin1Char('&'), QLatin1String("&&")); }

// Commands that nobody has bound leave menus without an entry behind.
void DropEmpty(QMenu& Menu) {
    for (QAction* Each : Menu.actions()) {
        if (!Each->menu()) continue;
        DropEmpty(*Each->menu());
        if (Each->menu()->isEmpty()) Menu.removeAction(Each);
    }
}

}  // namespace

TMainMenus::TMainMenus(QMenuBar& Bar, TCommands& Commands, const TViewCatalog& Catalog, const TRenderContext& Context,
                       std::function<void(fw::TIBaseView&)> Open)
    : FBar(Bar), FCommands(Commands), FCatalog(Catalog), FContext(Context), FOpen(std::move(Open)) {}

// Old menus die in the loop, for one of their entries may be what was just chosen.
void TMainMenus::Build() {
    for (QAction* Old : FBar.actions()) {
        FBar.removeAction(Old);
        if (Old->menu()) Old->menu()->deleteLater();
    }
    FCommands.Retranslate();
    std::map<std::string, QMenu*> Menus;
    for (const TLine& Line : kLines) {
        if (!Line.Menu) {
            AddViews();
            continue;
        }
        QMenu*& Top = Menus[Line.Menu];
        if (!Top) {
            Top = FBar.addMenu(FContext.Translate(Line.Menu));
            QObject::connect(Top, &QMenu::aboutToShow, &FBar, [this] { FCommands.RefreshState(); });
            // After the entry that was chosen has run.
            QObject::connect(
                Top, &QMenu::aboutToHide, &FBar, [this] { FCommands.EnableAll(); }, Qt::QueuedConnection);
        }
        if (!*Line.Submenu) {
            AddLine(*Top, Line.Item);
            continue;
        }
        QMenu*& Inner = Menus[Line.Submenu];
        if (!Inner) Inner = Top->addMenu(FContext.Translate(Line.Submenu));
        AddLine(*Inner, Line.Item);
    }
    for (QAction* Each : FBar.actions()) {
        if (!Each->menu()) continue;
        DropEmpty(*Each->menu());
        if (Each->menu()->isEmpty()) FBar.removeAction(Each);
    }
}

void TMainMenus::AddLine(QMenu& Menu, const std::string& Item) {
    if (Item == "-") {
        if (!Menu.isEmpty()) Menu.addSeparator();
    } else if (Item.front() == '@') {
        const auto Found = FFillers.find(Item.substr(1));
        if (Found != FFillers.end()) Found->second(Menu);
    } else if (QAction* Action = FCommands.Action(Item)) {
        Menu.addAction(Action);
    }
}

// --- views

void TMainMenus::AddViews() {
    FViewKey = 0;
    for (const auto& Each : FCommands.All())
        if (Each.Id.starts_with("open.")) FCommands.Remove(Each.Id);
    for (const TMenuNode& Node : MenuOf(FCatalog)) {
        if (Node.View)
            FBar.addAction(ViewAction(Node));
        else
            AddNodes(*FBar.addMenu(MenuText(Node.Caption)), Node.Children);
    }
}

QAction* TMainMenus::ViewAction(const TMenuNode& Node) {
    const std::string Id =
        "open." + std::to_string(fw::DispatchValue("GetViewID", 0, [&] { return Node.View->GetViewID(); }));
    const std::string Keys = ++FViewKey <= kViewKeys ? "Ctrl+" + std::to_string(FViewKey) : "";
    FCommands.Add(
        {Id, "", Keys, "Res_MenuViews"}, [Caption = MenuText(Node.Caption)] { return Caption; },
        [this, View = Node.View] { FOpen(*View); });
    return FCommands.Action(Id);
}

void TMainMenus::AddNodes(QMenu& Menu, const std::vector<TMenuNode>& Nodes) {
    for (size_t i = 0; i < Nodes.size(); ++i) {
        const TMenuNode& Node = Nodes[i];
        if (i > 0 && Node.Group != Nodes[i - 1].Group) Menu.addSeparator();
        if (!Node.View) {
            AddNodes(*Menu.addMenu(MenuText(Node.Caption)), Node.Children);
            continue;
        }
        QAction* Entry = ViewAction(Node);
        fw::Text Icon;
        if (Node.View->GetViewIcon(0, Icon)) Entry->setIcon(SkinIcon(ToQt(Icon), FContext.Color("coAccent")));
        Menu.addAction(Entry);
    }
}

}  // namespace ws
