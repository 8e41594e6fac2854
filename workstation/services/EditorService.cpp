// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/EditorService.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "framework/base/Numbers.h"

namespace ws {

namespace {

fw::Text ShownAccount(const TAccountRow& Row) { return Row.Name.empty() ? Row.Code : Row.Code + " " + Row.Name; }

int ColumnWithTag(const fw::TGridTableView& View, int Tag) {
    for (int i = 0; i < View.GetColumnCount(); ++i)
        if (View.GetColumn(i)->Tag == Tag) return i;
    return -1;
}

}  // namespace

void TEditorService::RegisterAccountEditor(fw::TPopupEdit* Editor, const fw::Text& GroupId, bool, bool) {
    FEditors[Editor].Group.clear();  // what it is served with is no choice of the group
    Editor->SetEnabled(true);
    Serve(*Editor);
    Join(*Editor, GroupId);
}

void TEditorService::RemoveAccountEditor(fw::TPopupEdit* Editor) {
    if (FEditors.erase(Editor) == 0) return;
    Editor->SetChoices({});
    Editor->SetEnabled(false);
}

void TEditorService::SetAccountLayoutAccount(fw::TPopupEdit* Editor, const fw::Text& Account) {
    if (FEditors.count(Editor)) Editor->Choose(IndexOfAccount(Account));
}

// A registered editor keeps its account while the user has it; else the user's default or only account comes in.
void TEditorService::Serve(fw::TPopupEdit& Editor) {
    std::vector<fw::TPopupChoice> Choices;
    for (const auto& Row : FAccounts) Choices.push_back({Row.Code, ShownAccount(Row)});
    Editor.SetChoices(std::move(Choices));
    if (!Editor.GetHint().empty() && IndexOfAccount(Editor.GetHint()) >= 0) return;
    const int Default = FAccounts.size() == 1 ? 0 : IndexOfAccount(FDefaultAccount);
    if (Default >= 0) return Editor.Choose(Default);
    if (Editor.GetHint().empty()) return;
    Editor.SetText("");
    Editor.SetHint("");
    Editor.Exit();
}

// The registration itself keeps the account: the group's comes from the loop. The first of a group brings its own.
void TEditorService::Join(fw::TPopupEdit& Editor, const fw::Text& Group) {
    const auto Found = FEditors.find(&Editor);
    if (Found == FEditors.end()) return;
    TRegistered& Entry = Found->second;
    Entry.Group = Group;
    Entry.Account = Editor.GetHint();
    Entry.Link = Editor.OnModelChanged.Connect([this, &Editor] { Follow(Editor); });
    if (Group.empty()) return;
    if (IndexOfAccount(Entry.Account) >= 0) FGroupAccounts.try_emplace(Group, Entry.Account);
    ShareLater();
}

// An editor has changed; when its account has, that is the group's from now on.
void TEditorService::Follow(fw::TPopupEdit& Editor) {
    TRegistered& Entry = FEditors.at(&Editor);
    if (Editor.GetHint() == Entry.Account) return;
    Entry.Account = Editor.GetHint();
    if (&Editor == FGiven || Entry.Group.empty() || IndexOfAccount(Entry.Account) < 0) return;
    FGroupAccounts[Entry.Group] = Entry.Account;
    ShareLater();
}

void TEditorService::ShareLater() {
    if (std::exchange(FShareWaits, true)) return;
    FPost([this] {
        FShareWaits = false;
        Share();
    });
}

void TEditorService::Share() {
    std::vector<fw::TPopupEdit*> Editors;
    for (const auto& [Editor, Entry] : FEditors) Editors.push_back(Editor);
    for (fw::TPopupEdit* Editor : Editors) {
        const auto Entry = FEditors.find(Editor);  // what an exit does may take others away
        if (Entry == FEditors.end() || Entry->second.Group.empty() || !Editor->IsEnabled()) continue;
        const auto Shared = FGroupAccounts.find(Entry->second.Group);
        const int Index = Shared == FGroupAccounts.end() ? -1 : IndexOfAccount(Shared->second);
        if (Index >= 0 && Editor->GetHint() != Shared->second) Give(*Editor, FAccounts[static_cast<size_t>(Index)]);
    }
}

// As the user's choice, but without the focus: it stays where the user works. What the view makes of it is its own
// affair and not the group's, so that two views of different minds do not chase each other.
void TEditorService::Give(fw::TPopupEdit& Editor, const TAccountRow& Account) {
    const TAccountRow Given = Account;  // an exit may bring other accounts
    const auto* Outer = std::exchange(FGiven, &Editor);
    Editor.SetHint(Given.Code);
    Editor.SetText(ShownAccount(Given));
    Editor.Exit();
    FGiven = Outer;
}

int TEditorService::IndexOfAccount(const std::string& Account) const {
    const auto It = std::find_if(FAccounts.begin(), FAccounts.end(), [&](const auto& R) { return R.Code == Account; });
    return It == FAccounts.end() ? -1 : static_cast<int>(It - FAccounts.begin());
}

void TEditorService::SetAccounts(std::vector<TAccountRow> Accounts, std::string DefaultAccount) {
    FAccounts = std::move(Accounts);
    FDefaultAccount = std::move(DefaultAccount);
    std::erase_if(FGroupAccounts, [this](const auto& Each) { return IndexOfAccount(Each.second) < 0; });
    for (const auto& [Editor, Entry] : FEditors) Serve(*Editor);
}

fw::Text TEditorService::GetGridColumnLayout(fw::TGridTableView* View, const fw::TColumnInfoList*) {
    fw::Text Result;
    for (int i = 0; i < View->GetColumnCount(); ++i) {
        const auto* Column = View->GetColumn(i);
        if (!Result.empty()) Result += ';';
        Result += std::to_string(Column->Tag) + ',' + std::to_string(Column->GetWidth()) + ',' +
                  (Column->IsVisible() ? '1' : '0');
    }
    return Result;
}

void TEditorService::SetGridColumnLayout(fw::TGridTableView* View, const fw::Text& Layout, const fw::TColumnInfoList*) {
    View->BeginUpdate();
    std::istringstream Entries(Layout);
    int Position = 0;
    for (std::string Entry; std::getline(Entries, Entry, ';');) {
        std::istringstream Parts(Entry);
        std::string Tag, Width, Visible;
        std::getline(Parts, Tag, ',');
        std::getline(Parts, Width, ',');
        std::getline(Parts, Visible, ',');
        const auto Id = fw::TextToInt(Tag);
        const int From = Id ? ColumnWithTag(*View, *Id) : -1;
        if (From < Position) continue;  // unknown, or named before: columns that were placed stand in front
        View->MoveColumn(From, Position);
        auto* Column = View->GetColumn(Position++);
        if (const auto W = fw::TextToInt(Width); W && *W > 0) Column->SetWidth(*W);
        Column->SetVisible(Visible != "0");
    }
    View->EndUpdate();
}

}  // namespace ws
