// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/Player.h"

#include <algorithm>

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

// Enters the step's value into the open editor; why the editor does not take it.
std::optional<fw::TRefusal> Fill(fw::TCellEditor& Editor, const TStep& Step) {
    const bool Chosen = Step.Action == TStep::EAction::CellItem;
    if (!Editor.IsCombo() && !Chosen) {
        Editor.KeyDown(kTypedKey);  // so that the view takes it for typing, not for the wheel
        if (Step.Action == TStep::EAction::CellNumber) return Editor.EnterNumber(Step.Number);
        Editor.SetEditText(Step.Value);
        return Editor.GetRefusal();
    }
    if (Editor.IsCombo()) Editor.OpenList();
    const auto& Items = Editor.GetItems();
    const auto Index = Chosen ? Step.Item : std::find(Items.begin(), Items.end(), Step.Value) - Items.begin();
    if (Index < 0 || Index >= static_cast<std::ptrdiff_t>(Items.size()))
        return fw::TRefusal{"Res_LogChoiceRefused", {Chosen ? std::to_string(Step.Item + 1) : Step.Value}};
    Editor.SelectItem(static_cast<int>(Index));
    return std::nullopt;
}

}  // namespace

bool TPlayer::Play(const TStep& Step) {
    FReason.reset();
    switch (Step.Action) {
        case TStep::EAction::Select: return Select(Step);
        case TStep::EAction::Enter:
        case TStep::EAction::EnterNumber: return Enter(Step);
        case TStep::EAction::Choose: return Choose(Step);
        case TStep::EAction::Cell:
        case TStep::EAction::CellNumber:
        case TStep::EAction::CellItem: return Cell(Step);
        case TStep::EAction::Click: return Click(Step);
    }
    return false;
}

std::vector<TStepFailure> TPlayer::Play(const std::vector<TStep>& Steps) {
    std::vector<TStepFailure> Failures;
    for (size_t i = 0; i < Steps.size(); ++i)
        if (!Play(Steps[i])) Failures.push_back({i, Steps[i], FReason});
    return Failures;
}

bool TPlayer::Refuse(std::optional<fw::TRefusal> Reason) {
    FReason = std::move(Reason);
    return false;
}

bool TPlayer::Select(const TStep& Step) {
    auto* Combo = FFrame.FindControl<fw::TComboBox>(Step.Control);
    if (!Combo || !Combo->IsEnabled()) return false;
    for (int i = 0; i < Combo->GetCount(); ++i)
        if (NamesItem(Combo->GetItem(i), Step.Value)) {
            Combo->SetFocus();
            if (Combo->IsHeldElsewhere()) return false;
            Combo->SetItemIndex(i);
            return Combo->GetItemIndex() == i;
        }
    return false;
}

bool TPlayer::Enter(const TStep& Step) {
    auto* Edit = FFrame.FindControl<fw::TSpinEdit>(Step.Control);
    if (!Edit || !Edit->IsEnabled()) return false;
    Edit->SetFocus();
    if (Edit->IsHeldElsewhere()) return false;
    if (Step.Action == TStep::EAction::EnterNumber) {
        if (auto Reason = Edit->EnterNumber(Step.Number)) return Refuse(std::move(Reason));
    } else {
        Edit->SetEditText(Step.Value);
    }
    Edit->KeyPress(fw::kKeyEnter);
    if (!Edit->GetRefusal()) return true;
    Refuse(Edit->GetRefusal());
    Edit->CancelEdit();
    return false;
}

bool TPlayer::Choose(const TStep& Step) {
    auto* Edit = FFrame.FindControl<fw::TPopupEdit>(Step.Control);
    if (!Edit || !Edit->IsEnabled()) return false;
    const auto& Choices = Edit->GetChoices();
    const auto It = std::find_if(Choices.begin(), Choices.end(), [&](const auto& C) { return C.Code == Step.Value; });
    if (It == Choices.end()) return false;
    if (Edit->IsHeldElsewhere()) return false;
    Edit->Choose(static_cast<int>(It - Choices.begin()));
    return true;
}

bool TPlayer::Cell(const TStep& Step) {
    auto* View = FFrame.FindControl<fw::TGridTableView>(Step.Control);
    if (!View) return false;
    View->SetFocus();
    auto* Editor = View->StartEdit(Step.Row, ColumnWithTag(*View, Step.Column));
    if (!Editor) return false;
    if (auto Reason = Fill(*Editor, Step)) {
        View->CancelEdit();
        return Refuse(std::move(Reason));
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
    return !Button->IsHeldElsewhere();
}

}  // namespace ws
