// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "framework/base/Refusal.h"
#include "framework/view/Frame.h"

namespace ws {

// One thing a user does to a view, named by the control's form name.
struct TStep {
    enum class EAction {
        Select,       // combo: the item whose text is Value, or begins with Value and "("
        Enter,        // spin editor: types Value, in the current number format, and presses Enter
        EnterNumber,  // spin editor: enters Number, whatever the number format, and presses Enter
        Choose,       // popup editor: the choice with code Value
        Cell,         // grid view: types Value into the cell (Row, Column) and leaves it; a combo cell takes the item
                      // with that text
        CellNumber,   // grid view: enters Number into the cell (Row, Column), whatever the number format, and leaves it
        CellItem,     // grid view: takes item number Item of a combo cell
        Click,        // button
    };
    EAction Action = EAction::Click;
    std::string Control;
    std::string Value;
    int Row = 0;
    int Column = 0;  // tag of the grid column
    int Item = 0;
    double Number = 0.0;

    static TStep Select(std::string Control, std::string Value) {
        return {EAction::Select, std::move(Control), std::move(Value)};
    }
    static TStep Enter(std::string Control, std::string Value) {
        return {EAction::Enter, std::move(Control), std::move(Value)};
    }
    static TStep EnterNumber(std::string Control, double Number) {
        return {EAction::EnterNumber, std::move(Control), {}, 0, 0, 0, Number};
    }
    static TStep Choose(std::string Control, std::string Value) {
        return {EAction::Choose, std::move(Control), std::move(Value)};
    }
    static TStep Cell(std::string Control, int Row, int Column, std::string Value) {
        return {EAction::Cell, std::move(Control), std::move(Value), Row, Column};
    }
    static TStep CellNumber(std::string Control, int Row, int Column, double Number) {
        return {EAction::CellNumber, std::move(Control), {}, Row, Column, 0, Number};
    }
    static TStep CellItem(std::string Control, int Row, int Column, int Item) {
        return {EAction::CellItem, std::move(Control), {}, Row, Column, Item};
    }
    static TStep Click(std::string Control) { return {EAction::Click, std::move(Control), {}}; }
};

// A step that had no effect: the control is not there, refuses, or has no such item.
struct TStepFailure {
    size_t Index = 0;  // among the steps played
    TStep Step;
    std::optional<fw::TRefusal> Reason;  // of an editor that did not take the value
};

// Performs steps on a view through its control models, the way a user would. Steps that fail are reported and passed
// over. Whatever the workstation does to a view by itself goes through here.
class TPlayer {
public:
    explicit TPlayer(fw::TFrame& Frame) : FFrame(Frame) {}

    // False when the step had no effect.
    bool Play(const TStep& Step);
    // Why an editor did not take the value of the step that was played last; none where no editor was asked.
    const std::optional<fw::TRefusal>& GetReason() const { return FReason; }
    std::vector<TStepFailure> Play(const std::vector<TStep>& Steps);

private:
    bool Select(const TStep& Step);
    bool Enter(const TStep& Step);
    bool Refuse(std::optional<fw::TRefusal> Reason);
    bool Choose(const TStep& Step);
    bool Cell(const TStep& Step);
    bool Click(const TStep& Step);

    fw::TFrame& FFrame;  // borrowed
    std::optional<fw::TRefusal> FReason;
};

}  // namespace ws
