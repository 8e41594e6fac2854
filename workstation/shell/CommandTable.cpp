// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/Commands.h"

namespace ws {

const std::vector<TCommand>& ShippedCommands() {
    using enum TCommand::EKeys;
    static const std::vector<TCommand> Commands{
        {"strategy.open", "Res_CommandStrategyOpen", "Ctrl+O", "Res_MenuFile", Window},
        {"strategy.save", "Res_CommandStrategySave", "Ctrl+S", "Res_MenuFile", Window},
        {"file.import", "Res_FileImport", "Ctrl+I", "Res_MenuFile", Window},
        {"file.reset-market", "Res_FileResetMarket", "Ctrl+Shift+I", "Res_MenuFile", Window},
        {"file.export-chart", "Res_CommandExportChart", "Ctrl+E", "Res_MenuFile", Window},
        {"file.export-table", "Res_CommandExportTable", "Ctrl+Shift+E", "Res_MenuFile", Window},
        {"file.print", "Res_CommandPrint", "Ctrl+P", "Res_MenuFile", Window},
        {"file.preferences", "Res_CommandPreferences", "Ctrl+,", "Res_MenuFile", Window},
        {"file.exit", "Res_FileExit", "Ctrl+Q", "Res_MenuFile", Window},

        {"edit.undo", "Res_CommandUndo", "Ctrl+Z", "Res_MenuEdit", Window},
        {"edit.redo", "Res_CommandRedo", "Ctrl+Shift+Z; Ctrl+Y", "Res_MenuEdit", Window},
        {"edit.copy", "Res_EditCopy", "Ctrl+C", "Res_MenuEdit", Focused},
        {"edit.paste", "Res_EditPasteLegs", "Ctrl+V", "Res_MenuEdit", Focused},

        {"view.calculate", "Res_CommandCalculate", "F9", "Res_MenuStrategy", Window},
        {"view.load", "Res_CommandLoad", "F8", "Res_MenuStrategy", Window},
        {"view.clear", "Res_CommandClear", "Ctrl+Shift+Del", "Res_MenuStrategy", Window},
        {"view.submit", "Res_CommandSubmit", "Ctrl+Shift+Return; Ctrl+Shift+Enter", "Res_MenuStrategy", Window},
        {"view.panels", "Res_CommandPanels", "Ctrl+M", "Res_MenuStrategy", Window},
        {"view.hint", "Res_CommandHint", "Ctrl+H", "Res_MenuStrategy", Window},

        {"panel.next", "Res_CommandPanelNext", "F6", "Res_MenuView", Window},
        {"panel.previous", "Res_CommandPanelPrevious", "Shift+F6", "Res_MenuView", Window},
        {"view.next", "Res_CommandViewNext", "Ctrl+Tab", "Res_MenuView", Window},
        {"view.previous", "Res_CommandViewPrevious", "Ctrl+Shift+Tab", "Res_MenuView", Window},
        {"view.group", "Res_CommandViewGroup", "Ctrl+G", "Res_MenuView", Window},
        {"view.float", "Res_CommandViewFloat", "Ctrl+Shift+F", "Res_MenuView", Window},
        {"view.close", "Res_CommandViewClose", "Ctrl+W", "Res_MenuView", Window},
        {"view.messages", "Res_Messages", "Ctrl+Shift+M", "Res_MenuView", Window},
        {"language.0", "Res_LanguageEnglish", "Ctrl+Alt+1", "Res_MenuView", Window},
        {"language.1", "Res_LanguageTraditional", "Ctrl+Alt+2", "Res_MenuView", Window},
        {"language.2", "Res_LanguageSimplified", "Ctrl+Alt+3", "Res_MenuView", Window},
        {"skin.Light", "Res_SkinLight", "Ctrl+Alt+7", "Res_MenuView", Window},
        {"skin.Dark", "Res_SkinDark", "Ctrl+Alt+8", "Res_MenuView", Window},
        {"skin.HighContrast", "Res_SkinHighContrast", "Ctrl+Alt+9", "Res_MenuView", Window},

        {"workspace.open", "Res_CommandWorkspaceOpen", "Ctrl+Shift+O", "Res_MenuWorkspace", Window},
        {"workspace.save-as", "Res_CommandWorkspaceSaveAs", "Ctrl+Shift+S", "Res_MenuWorkspace", Window},
        {"workspace.delete", "Res_CommandWorkspaceDelete", "Ctrl+Shift+D", "Res_MenuWorkspace", Window},
        {"workspace.lock", "Res_CommandWorkspaceLock", "Ctrl+L", "Res_MenuWorkspace", Window},
        {"workspace.reset", "Res_CommandWorkspaceReset", "Ctrl+Shift+R", "Res_MenuWorkspace", Window},
        {"workspace.export", "Res_CommandWorkspaceExport", "Ctrl+Shift+X", "Res_MenuWorkspace", Window},
        {"workspace.import", "Res_CommandWorkspaceImport", "Ctrl+Shift+P", "Res_MenuWorkspace", Window},

        {"help.shortcuts", "Res_CommandShortcuts", "F1", "Res_MenuHelp", Window},
        {"help.about", "Res_HelpAbout", "Shift+F1", "Res_MenuHelp", Window},
    };
    return Commands;
}

}  // namespace ws
