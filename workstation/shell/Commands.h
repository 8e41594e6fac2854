// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QAction>
#include <QKeySequence>

#include "workstation/renderers/RenderContext.h"

namespace ws {

// One thing that the program can be told to do.
struct TCommand {
    std::string Id;       // "file.import"; names the command in the store, so it never changes
    std::string TextKey;  // of its caption
    std::string Keys;     // that it ships with, in the portable form ("Ctrl+S"); several apart by "; "
    std::string MenuKey;  // of the caption of the menu in which it stands
    enum class EKeys {
        Window,   // work wherever the focus is
        Focused,  // the focused control answers to them itself; here they only stand beside the words
    };
    EKeys Kind = EKeys::Window;
};

// The commands that ship with the program, in the order of the menus.
const std::vector<TCommand>& ShippedCommands();

// The program's commands, each with one action on the window. Menus, the sheet of shortcuts and the preferences read
// them here. A command that nobody has bound stands nowhere.
class TCommands {
public:
    // ReadKeys: the keys that the user has given to a command, in the portable form; none where the shipped ones stand.
    using TReadKeys = std::function<std::optional<std::string>(const std::string& Id)>;
    TCommands(QWidget& Window, const TRenderContext& Context, TReadKeys ReadKeys);

    // What a command does. While IsEnabled says no it does nothing and is dimmed in the menus; IsChecked makes it one
    // that is on or off.
    void Bind(const std::string& Id, std::function<void()> Run, std::function<bool()> IsEnabled = {},
              std::function<bool()> IsChecked = {});
    // A command beside the shipped ones, replaced when its id is there already. Its caption is asked anew with the
    // language.
    void Add(TCommand Command, std::function<QString()> Caption, std::function<void()> Run);
    void Remove(const std::string& Id);

    // As the user's key does: nothing for an id that is unknown, not bound or not possible now.
    void Run(const std::string& Id);
    QAction* Action(const std::string& Id) const;  // null: unknown or not bound

    struct TShown {
        std::string Id;
        QString Caption;  // without the marks of a menu
        QString Menu;
        QKeySequence Keys;         // the first of them
        QKeySequence DefaultKeys;  // the first that ships
        std::string ShippedKeys;   // all of them, in the portable form
        bool Fixed = false;        // controls answer to them: they cannot be changed
    };
    std::vector<TShown> All() const;  // those that are bound, in the order of the menus

    std::vector<QKeySequence> Keys(const std::string& Id) const;
    void ReloadKeys();    // the user's keys have changed
    void Retranslate();   // the language has changed
    void RefreshState();  // before a menu shows them: what is possible and what is on
    void EnableAll();     // a shortcut asks for itself whether it is possible

private:
    struct TEntry {
        TCommand Command;
        std::function<QString()> Caption;
        std::function<void()> Run;
        std::function<bool()> IsEnabled, IsChecked;
        std::unique_ptr<QAction> Action;  // none: not bound
    };
    TEntry* Find(const std::string& Id);
    const TEntry* Find(const std::string& Id) const;
    void MakeAction(TEntry& Entry);
    void SetKeys(TEntry& Entry);
    QString CaptionOf(const TEntry& Entry) const;

    QWidget& FWindow;                // borrowed
    const TRenderContext& FContext;  // borrowed
    TReadKeys FReadKeys;
    std::vector<std::unique_ptr<TEntry>> FEntries;
};

// A caption without the mark of its menu key: "&Import…" is "Import…", "匯入(&I)…" is "匯入…".
QString PlainCaption(QString Caption);

}  // namespace ws
