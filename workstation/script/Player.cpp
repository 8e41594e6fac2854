// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/Player.h"

#include <algorithm>

#include "framework/base/Numbers.h"
#include "framework/controls/Button.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/PopupEdit.h"
#include "framework/controls/SpinEdit.h"

namespace ws {

namespace {

constexpr int kTypedKey = 0;  // any key but those that spin

bool NamesItem(const fw::Text& Item, const std::string& Value) {
    return Item == Value || Item.starts_with(Value + "(");
}

int ColumnWithTag(const fw::TGridTableView& View, int Tag) {
    for (int i = 0; i < View.GetColumnCount(); ++i)
        if (View.GetColumn(i)->Tag == Tag) return i;
    return -1;
}

// Types into the open editor; false when the editor does not take the value.
bool Fill(fw::TCellEditor& Editor, const TStep& Step) {
    if (Step.Action == TStep::EAction::Cell && !Editor.IsCombo()) {
        Editor.KeyDown(kTypedKey);  // so that the view takes it for typing, not for the wheel
        Editor.SetEditText(Step.Value);
        return !Editor.IsRefused();
    }
    if (!Editor.IsCombo()) return false;
    Editor.OpenList();
    const auto& Items = Editor.GetItems();
    const int Index = Step.Action == TStep::EAction::CellItem
                          ? Step.Item
                          : static_cast<int>(std::find(Items.begin(), Items.end(), Step.Value) - Items.begin());
    if (Index < 0 || Index >= static_cast<int>(Items.size())) return false;
    Editor.SelectItem(Index);
    return true;
}

}  // namespace

bool TPlayer::Play(const TStep& Step) {
    switch (Step.Action) {
        case TStep::EAction::Select: return Select(Step);
        case TStep::EAction::Enter: return Enter(Step);
        case TStep::EAction::Choose: return Choose(Step);
        case TStep::EAction::Cell:
        case TStep::EAction::CellItem: return Cell(Step);
        case TStep::EAction::Click: return Click(Step);
    }
    return false;
}

std::vector<TStepFailure> TPlayer::Play(const std::vector<TStep>& Steps) {
    std::vector<TStepFailure> Failures;
    for (size_t i = 0; i < Steps.size(); ++i)
        if (!Play(Steps[i])) Failures.push_back({i, Steps[i]});
    return Failures;
}

bool TPlayer::Select(const TStep& Step) {
    auto* Combo = FFrame.FindControl<fw::TComboBox>(Step.Control);
    if (!Combo || !Combo->IsEnabled()) return false;
    for (int i = 0; i < Combo->GetCount(); ++i)
        if (NamesItem(Combo->GetItem(i), Step.Value)) {
            Combo->SetFocus();
            Combo->SetItemIndex(i);
            return Combo->GetItemIndex() == i;
        }
    return false;
}

bool TPlayer::Enter(const TStep& Step) {
    auto* Edit = FFrame.FindControl<fw::TSpinEdit>(Step.Control);
    if (!Edit || !Edit->IsEnabled()) return false;
    Edit->SetFocus();
    Edit->SetEditText(Step.Value);
    Edit->KeyPress(fw::kKeyEnter);
    const auto Typed = fw::GroupedTextToFloat(Step.Value);
    return Typed ? !Edit->GetValue().IsNull() && Edit->GetFloat() == *Typed
                 : Step.Value.empty() && Edit->GetValue().IsNull();
}

bool TPlayer::Choose(const TStep& Step) {
    auto* Edit = FFrame.FindControl<fw::TPopupEdit>(Step.Control);
    if (!Edit || !Edit->IsEnabled()) return false;
    const auto& Choices = Edit->GetChoices();
    const auto It = std::find_if(Choices.begin(), Choices.end(), [&](const auto& C) { return C.Code == Step.Value; });
    if (It == Choices.end()) return false;
    Edit->SetFocus();
    Edit->Choose(static_cast<int>(It - Choices.begin()));
    return true;
}

bool TPlayer::Cell(const TStep& Step) {
    auto* View = FFrame.FindControl<fw::TGridTableView>(Step.Control);
    if (!View) return false;
    View->SetFocus();
    auto* Editor = View->StartEdit(Step.Row, ColumnWithTag(*View, Step.Column));
    if (!Editor) return false;
    if (!Fill(*Editor, Step)) {
        View->CancelEdit();
        return false;
    }
    View->PostEditor();
    if (!View->GetEditor()) return true;
    View->CancelEdit();  // the validation keeps it open
    return false;
}

bool TPlayer::Click(const TStep& Step) {
    auto* Button = FFrame.FindControl<fw::TButton>(Step.Control);
    if (!Button || !Button->CanClick()) return false;
    Button->Click();
    return true;
}

}  // namespace ws
