// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/controls/GridColumn.h"

namespace fw {

inline constexpr int kKeyUp = 38;
inline constexpr int kKeyDown = 40;

// The editor that is open in a cell; the view owns it from StartEdit to PostEditor or CancelEdit.
class FRAMEWORK_API TCellEditor : public TObject {
public:
    TCellEditor(TGridTableView& View, TGridColumn& Column, int Record, TcxEditProperties* Properties, Variant Value);
    ~TCellEditor() override;

    TGridTableView& GetView() const { return FView; }
    TGridColumn& GetColumn() const { return FColumn; }
    int GetRecord() const { return FRecord; }
    TcxEditProperties* GetProperties() const { return FProperties; }  // null: plain text
    EEditorKind GetKind() const;
    bool IsSpin() const { return GetKind() == EEditorKind::Spin; }
    bool IsCombo() const { return GetKind() == EEditorKind::Combo; }

    const Variant& GetValue() const { return FValue; }
    // A program replaces the value; fires the properties' OnChange when it differs.
    void SetValue(const Variant& Value);
    Text GetText() const;              // what the editor shows while it is open
    bool IsModified() const { return FModified; }
    bool IsRefused() const { return FRefused; }  // the typed text is no value of this editor
    void SetCaretToEnd() { FCaretAtEnd = true; }
    bool IsCaretAtEnd() const { return FCaretAtEnd; }

    // Combos: the editor's own copy of the items.
    const std::vector<Text>& GetItems() const { return FItems; }
    void SetItems(std::vector<Text> Items);
    int GetItemIndex() const { return FItemIndex; }
    void SelectItem(int Index);        // value becomes the item's text; out of range: nothing
    void OpenList();                   // fires the properties' OnPopup

    // User input. Spin editors: a text that is a finite number becomes the value at once, an empty one null; anything
    // else only marks the text as refused. Fixed lists take typed text only when it is an item (exact, then ignoring case).
    void SetEditText(Text Value);
    // Tells the view (OnEditKeyDown), then, in a spin editor, Up and Down spin.
    void KeyDown(int Key, int Shift = 0);
    void Spin(int Steps);              // buttons and wheel: increments within the bounds; null counts as 0

    TSignal<> OnChanged;               // value, text or items

private:
    friend class TGridTableView;
    friend class TGridDataController;
    void ChangeValue(const Variant& Value);
    TGridTableView& FView;
    TGridColumn& FColumn;
    int FRecord;
    TcxEditProperties* FProperties;    // borrowed
    Variant FValue;
    Text FEditText;
    bool FTyping = false, FModified = false, FRefused = false, FCaretAtEnd = false;
    std::vector<Text> FItems;
    int FItemIndex = -1;
};

}  // namespace fw
