// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "framework/base/NumberFormat.h"
#include "framework/base/Variant.h"
#include "framework/controls/Control.h"
#include "framework/controls/NumberInput.h"
#include "framework/data/ColumnInfo.h"

namespace fw {

inline constexpr char kKeyEnter = 13;

// Numeric editor with spin buttons; the value is a float or null (empty). Shows and reads the current number format.
// Typing goes to an edit text; the value follows when it is posted (leaving, Enter, a click elsewhere).
class FRAMEWORK_API TSpinEdit : public TControl {
public:
    TSpinEdit();
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
    void SetMinValue(std::optional<double> Value) { FLimits.Min = Value; }
    void SetMaxValue(std::optional<double> Value) { FLimits.Max = Value; }
    std::optional<double> GetMinValue() const { return FLimits.Min; }
    std::optional<double> GetMaxValue() const { return FLimits.Max; }
    void SetAlignment(EAlignment Value) { FAlignment = Value; }
    EAlignment GetAlignment() const { return FAlignment; }

    // What the control shows: the edit text while one is typed, else the value by the display format.
    Text GetText() const;
    bool IsModified() const { return FModified; }

    void SetEditText(Text Value);  // the user types; the text already shown changes nothing
    // Applies the edit text: empty gives null; a finite number within the bounds becomes the value. A text that can be
    // read in two ways stays, keeps the focus and is told as the refusal; anything else is dropped, the previous value
    // stays. Each refused text gives one warning in the log.
    void PostEditor() override;
    // Why the text posted last was refused; until another one is typed. While IsModified, it is the one shown.
    const std::optional<TRefusal>& GetRefusal() const { return FRefusal; }
    void CancelEdit();  // drops the edit text
    // A number in the user's place, whatever the number format: the bounds hold. What is refused changes nothing.
    std::optional<TRefusal> EnterNumber(double Number);
    // Posts first where Key is Enter, then fires OnKeyPress, unless the edit text was refused and stays.
    void KeyPress(char Key);
    // Posts, then moves by Steps increments within the bounds; null counts as 0. Nothing while a refused text stays.
    void Spin(int Steps);
    // Posts and fires OnExit, as leaving the control does; for programs that "send the exit notification". Nothing
    // while a refused text stays.
    void Exit();

    TNotifyEvent OnExit;
    std::function<void(TObject* Sender, char& Key)> OnKeyPress;
    TNotifyEvent OnChange;  // the value changed, whoever changed it

    TSignal<> OnValueChanged;  // value, edit text or refusal

protected:
    void DoExit() override;
    bool KeepsFocus() const override { return FModified && FRefusal; }

private:
    Text ShownText(double Value) const;
    void DropEditText();
    void ChangeValue(const Variant& Value);
    Variant FValue;
    Text FDisplayFormat;
    Text FEditText;
    bool FModified = false;
    std::optional<TRefusal> FRefusal;
    double FIncrement = 1.0;
    TNumberLimits FLimits;
    EAlignment FAlignment = EAlignment::Left;
    TConnections FFormatLinks;
};

}  // namespace fw
