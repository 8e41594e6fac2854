// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/Commands.h"

#include <algorithm>

#include <QRegularExpression>
#include <QWidget>

#include "framework/base/Dispatch.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

QList<QKeySequence> ParseKeys(const std::string& Portable) {
    QList<QKeySequence> Result = QKeySequence::listFromString(ToQt(Portable), QKeySequence::PortableText);
    Result.removeIf([](const QKeySequence& Each) { return Each.isEmpty() || Each[0].key() == Qt::Key_unknown; });
    return Result;
}

}  // namespace

QString PlainCaption(QString Caption) {
    static const QRegularExpression kBracketed(QStringLiteral("\\(&.\\)"));
    Caption.remove(kBracketed);
    return Caption.replace(QLatin1String("&&"), QLatin1String("\x01"))
        .remove(QLatin1Char('&'))
        .replace(QLatin1Char('\x01'), QLatin1Char('&'));
}

TCommands::TCommands(QWidget& Window, const TRenderContext& Context, TReadKeys ReadKeys)
    : FWindow(Window), FContext(Context), FReadKeys(std::move(ReadKeys)) {
    for (const TCommand& Each : ShippedCommands()) {
        FEntries.push_back(std::make_unique<TEntry>());
        FEntries.back()->Command = Each;
    }
}

TCommands::TEntry* TCommands::Find(const std::string& Id) { return const_cast<TEntry*>(std::as_const(*this).Find(Id)); }

const TCommands::TEntry* TCommands::Find(const std::string& Id) const {
    const auto Found =
        std::find_if(FEntries.begin(), FEntries.end(), [&](const auto& Each) { return Each->Command.Id == Id; });
    return Found == FEntries.end() ? nullptr : Found->get();
}

void TCommands::Bind(const std::string& Id, std::function<void()> Run, std::function<bool()> IsEnabled,
                     std::function<bool()> IsChecked) {
    TEntry* Entry = Find(Id);
    if (!Entry) return;
    Entry->Run = std::move(Run);
    Entry->IsEnabled = std::move(IsEnabled);
    Entry->IsChecked = std::move(IsChecked);
    MakeAction(*Entry);
}

void TCommands::Add(TCommand Command, std::function<QString()> Caption, std::function<void()> Run) {
    Remove(Command.Id);
    FEntries.push_back(std::make_unique<TEntry>());
    TEntry& Entry = *FEntries.back();
    Entry.Command = std::move(Command);
    Entry.Caption = std::move(Caption);
    Entry.Run = std::move(Run);
    MakeAction(Entry);
}

// The action may be what is running just now.
void TCommands::Remove(const std::string& Id) {
    std::erase_if(FEntries, [&](const auto& Each) {
        if (Each->Command.Id != Id) return false;
        if (Each->Action) {
            FWindow.removeAction(Each->Action.get());
            Each->Action.release()->deleteLater();
        }
        return true;
    });
}

void TCommands::MakeAction(TEntry& Entry) {
    if (!Entry.Action) {
        Entry.Action = std::make_unique<QAction>();
        QObject::connect(Entry.Action.get(), &QAction::triggered, &FWindow, [this, Id = Entry.Command.Id] { Run(Id); });
        if (Entry.Command.Kind == TCommand::EKeys::Window) FWindow.addAction(Entry.Action.get());
    }
    Entry.Action->setObjectName(ToQt(Entry.Command.Id));
    Entry.Action->setCheckable(Entry.IsChecked != nullptr);
    Entry.Action->setText(CaptionOf(Entry));
    Entry.Action->setShortcutContext(Entry.Command.Kind == TCommand::EKeys::Window ? Qt::WindowShortcut
                                                                                   : Qt::WidgetShortcut);
    SetKeys(Entry);
}

void TCommands::SetKeys(TEntry& Entry) {
    const std::optional<std::string> Given = FReadKeys ? FReadKeys(Entry.Command.Id) : std::nullopt;
    Entry.Action->setShortcuts(ParseKeys(Given ? *Given : Entry.Command.Keys));
}

QString TCommands::CaptionOf(const TEntry& Entry) const {
    return Entry.Caption ? Entry.Caption() : FContext.Translate(Entry.Command.TextKey.c_str());
}

void TCommands::Run(const std::string& Id) {
    const TEntry* Entry = Find(Id);
    if (!Entry || !Entry->Run || (Entry->IsEnabled && !Entry->IsEnabled())) return;
    const auto Do = Entry->Run;  // what it does may replace the entry
    fw::Dispatch(Id.c_str(), Do);
}

QAction* TCommands::Action(const std::string& Id) const {
    const TEntry* Entry = Find(Id);
    return Entry ? Entry->Action.get() : nullptr;
}

std::vector<QKeySequence> TCommands::Keys(const std::string& Id) const {
    const QAction* Found = Action(Id);
    if (!Found) return {};
    const QList<QKeySequence> Keys = Found->shortcuts();
    return {Keys.begin(), Keys.end()};
}

std::vector<TCommands::TShown> TCommands::All() const {
    std::vector<TShown> Result;
    for (const auto& Each : FEntries) {
        if (!Each->Action) continue;
        const QList<QKeySequence> Shipped = ParseKeys(Each->Command.Keys);
        Result.push_back({Each->Command.Id, PlainCaption(CaptionOf(*Each)),
                          PlainCaption(FContext.Translate(Each->Command.MenuKey.c_str())), Each->Action->shortcut(),
                          Shipped.isEmpty() ? QKeySequence() : Shipped.first(), Each->Command.Keys,
                          Each->Command.Kind == TCommand::EKeys::Focused});
    }
    return Result;
}

void TCommands::ReloadKeys() {
    for (const auto& Each : FEntries)
        if (Each->Action) SetKeys(*Each);
}

void TCommands::Retranslate() {
    for (const auto& Each : FEntries)
        if (Each->Action) Each->Action->setText(CaptionOf(*Each));
}

void TCommands::RefreshState() {
    for (const auto& Each : FEntries) {
        if (!Each->Action) continue;
        Each->Action->setEnabled(!Each->IsEnabled || Each->IsEnabled());
        if (Each->IsChecked) Each->Action->setChecked(Each->IsChecked());
    }
}

void TCommands::EnableAll() {
    for (const auto& Each : FEntries)
        if (Each->Action) Each->Action->setEnabled(true);
}

}  // namespace ws
