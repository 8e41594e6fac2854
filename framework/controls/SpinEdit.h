// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "framework/base/Variant.h"
#include "framework/controls/Control.h"
#include "framework/data/ColumnInfo.h"

namespace fw {

inline constexpr char kKeyEnter = 13;

// Numeric editor with spin buttons; the value is a float or null (empty).
// Typing goes to an edit text; the value follows when it is posted (leaving, Enter, a click elsewhere).
class FRAMEWORK_API TSpinEdit : public TControl {
public:
    ~TSpinEdit() override;

    const Variant& GetValue() const { return FValue; }
    // Replaces value and edit text. Whole numbers and numeric texts become floats; what is no finite number changes
    // nothing. Bounds hold for users, not for programs.
    void SetValue(const Variant& Value);
    double GetFloat() const { return FValue.AsFloat(0.0); }

    // Only the pattern "#,##0.########" and the empty pattern (shortest text) are known.
    void SetDisplayFormat(Text Pattern);
    const Text& GetDisplayFormat() const { return FDisplayFormat; }
    void SetIncrement(double Value) { FIncrement = Value; }
    double GetIncrement() const { return FIncrement; }  // an increment of 0 spins by 1
    void SetMinValue(std::optional<double> Value) { FMinValue = Value; }
    void SetMaxValue(std::optional<double> Value) { FMaxValue = Value; }
    std::optional<double> GetMinValue() const { return FMinValue; }
    std::optional<double> GetMaxValue() const { return FMaxValue; }
    void SetAlignment(EAlignment Value) { FAlignment = Value; }
    EAlignment GetAlignment() const { return FAlignment; }

    // What the control shows: the edit text while one is typed, else the value by the display format.
    Text GetText() const;
    bool IsModified() const { return FModified; }

    void SetEditText(Text Value);  // the user types; the text already shown changes nothing
    // Applies the edit text: empty gives null; a finite number within the bounds becomes the value; anything else is
    // refused, the previous value stays and one warning ("Res_LogNumberRefused", typed text) is logged.
    void PostEditor() override;
    void CancelEdit();  // drops the edit text
    // Posts first where Key is Enter, then fires OnKeyPress.
    void KeyPress(char Key);
    // Posts, then moves by Steps increments within the bounds; null counts as 0.
    void Spin(int Steps);
    // Posts and fires OnExit, as leaving the control does; for programs that "send the exit notification".
    void Exit();

    TNotifyEvent OnExit;
    std::function<void(TObject* Sender, char& Key)> OnKeyPress;
    TNotifyEvent OnChange;  // the value changed, whoever changed it

    TSignal<> OnValueChanged;  // value or edit text

protected:
    void DoExit() override;

private:
    void ChangeValue(const Variant& Value);
    Variant FValue;
    Text FDisplayFormat;
    Text FEditText;
    bool FModified = false;
    double FIncrement = 1.0;
    std::optional<double> FMinValue, FMaxValue;
    EAlignment FAlignment = EAlignment::Left;
};

}  // namespace fw
