// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <vector>

#include "framework/base/Object.h"
#include "framework/base/Signal.h"
#include "framework/base/Variant.h"
#include "framework/controls/PopupControl.h"
#include "framework/data/ColumnInfo.h"

namespace fw {

enum class EEditorKind { Plain, Spin, Combo, Popup };

// How a column's cells are edited. Shared by the column's cells; an open editor takes its own copy of the items.
class FRAMEWORK_API TcxEditProperties : public TObject {
public:
    explicit TcxEditProperties(EEditorKind Kind);
    ~TcxEditProperties() override;
    EEditorKind GetKind() const { return FKind; }

    EAlignment Alignment = EAlignment::Left;
    bool AlwaysShowButton = false;
    Text NullText;          // shown for a null value
    TNotifyEvent OnChange;  // Sender is the open TCellEditor; fires on every change of its value

private:
    EEditorKind FKind;
};

class FRAMEWORK_API TcxTextEditProperties : public TcxEditProperties {
public:
    TcxTextEditProperties();
    ~TcxTextEditProperties() override;
};

class FRAMEWORK_API TcxSpinEditProperties : public TcxEditProperties {
public:
    TcxSpinEditProperties();
    ~TcxSpinEditProperties() override;
    double Increment = 1.0;  // 0 spins by 1
    std::optional<double> MinValue, MaxValue;
    bool ButtonsLeftAndRight = false;
    bool LeftAlignWhileEditing = true;
    bool FloatValues = false;  // false: only whole numbers are taken
};

class FRAMEWORK_API TcxComboBoxProperties : public TcxEditProperties {
public:
    TcxComboBoxProperties();
    ~TcxComboBoxProperties() override;
    std::vector<Text> Items;
    bool FixedList = false;  // no free text
    TNotifyEvent OnPopup;    // before the list opens; Sender is the open TCellEditor
};

class FRAMEWORK_API TcxPopupEditProperties : public TcxEditProperties {
public:
    TcxPopupEditProperties();
    ~TcxPopupEditProperties() override;
    TPopupControl* PopupControl = nullptr;  // borrowed; null opens nothing
    TNotifyEvent OnInitPopup;               // before the popup opens; may set PopupControl
    int PopupWidth = 0, PopupHeight = 0;
    bool ShowErrorIcon = false;
    // Runs when a typed value is posted. Value may be replaced; Error with ErrorText keeps the editor open.
    std::function<void(TObject* Sender, Variant& Value, Text& ErrorText, bool& Error)> OnValidate;
};

}  // namespace fw
