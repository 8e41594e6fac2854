// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>

#include "framework/base/Refusal.h"
#include "framework/controls/GridColumn.h"

namespace fw {

struct TTypedValue;
struct TNumberLimits;

inline constexpr int kKeyUp = 38;
inline constexpr int kKeyDown = 40;

// The editor that is open in a cell; the view owns it from StartEdit to PostEditor or CancelEdit. A handler that closes
// it may still use it until it returns; input to a closed editor does nothing.
class FRAMEWORK_API TCellEditor : public TObject, public std::enable_shared_from_this<TCellEditor> {
public:
    TCellEditor(TGridTableView& View, TGridColumn& Column, int Record, TcxEditProperties* Properties, Variant Value);
    ~TCellEditor() override;

    TGridTableView& GetView() const { return FView; }
    TGridColumn& GetColumn() const { return FColumn; }
    int GetRecord() const { return FRecord; }
    TcxEditProperties* GetProperties() const { return FProperties; }  // null: plain text
    EEditorKind GetKind() const;                                      // no properties: Plain
    bool IsOpen() const { return !FClosed; }
    bool IsSpin() const { return GetKind() == EEditorKind::Spin; }
    bool IsCombo() const { return GetKind() == EEditorKind::Combo; }

    const Variant& GetValue() const { return FValue; }
    // A program replaces the value and what is typed; fires the properties' OnChange when it differs. In numeric
    // editors what is no finite number changes nothing. Bounds hold for users, not for programs.
    void SetValue(const Variant& Value);
    // What the editor shows while it is open: the typed text, else the value's plain text ("" for null; numbers in the
    // current number format, not grouped).
    Text GetText() const;
    bool IsModified() const { return FModified; }
    // Why the typed text is no value of this editor; none while it is one.
    const std::optional<TRefusal>& GetRefusal() const { return FRefusal; }
    bool IsRefused() const { return FRefusal.has_value(); }
    bool IsAmbiguous() const { return FAmbiguous; }  // refused because it can be read in two ways
    void SetCaretToEnd() { FCaretAtEnd = true; }     // until the user types again
    bool IsCaretAtEnd() const { return FCaretAtEnd; }

    // Combos: the editor's own copy of the items.
    const std::vector<Text>& GetItems() const { return FItems; }
    void SetItems(std::vector<Text> Items);
    int GetItemIndex() const { return FItemIndex; }
    void SelectItem(int Index);  // value becomes the item's text; out of range: nothing
    // Combos fire the properties' OnPopup. Popup editors fire OnInitPopup, then show the popup control where there is
    // one; it is hidden when the editor closes.
    void OpenList();

    // User input. Spin editors and plain editors of float columns: a text that is a finite number within the bounds
    // becomes the value at once, an empty one null; anything else only marks the text as refused, and so does a text
    // that can be read in two ways. Fixed lists take typed text only when it is an item (exact, then ignoring case).
    void SetEditText(Text Value);
    // A number in the user's place, whatever the number format: the limits of typing hold. What is refused, by an
    // editor of texts too, changes nothing.
    std::optional<TRefusal> EnterNumber(double Number);
    // Tells the view (OnEditKeyDown, which may change the key; 0: none), then, in a spin editor, Up and Down spin.
    void KeyDown(int Key, int Shift = 0);
    // Buttons and wheel, spin editors only: increments within the bounds, from the last good value; null counts as 0.
    void Spin(int Steps);

    TSignal<> OnChanged;  // value, text or items

private:
    friend class TGridTableView;
    friend class TGridDataController;
    bool IsNumeric() const;  // the value is a float or null
    TTypedValue ReadTyped(const Text& Typed) const;
    TNumberLimits GetLimits() const;
    void Read();                         // takes the typed text, or marks it as refused
    void Replace(const Variant& Value);  // by a value that was not typed
    void ForgetTyping();
    void Doubt();  // what was refused may read otherwise now
    int IndexOfItem(std::string_view Item, bool IgnoreCase = false) const;
    void ChangeValue(const Variant& Value);
    void CellWritten(const Variant& Value);  // the cell got a new value while the editor is open in it
    void HidePopup();
    bool IsPopupShown() const;
    Text EventName(std::string_view What) const;
    TGridTableView& FView;
    TGridColumn& FColumn;
    int FRecord;
    TcxEditProperties* FProperties;  // borrowed
    Variant FValue;
    Text FEditText;
    Variant FTypedOver;  // the value before the user typed
    bool FTyping = false, FModified = false, FCaretAtEnd = false, FClosed = false;
    std::optional<TRefusal> FRefusal;
    bool FAmbiguous = false;
    bool FHeld = false;  // it was posted, and what is typed was refused
    std::vector<Text> FItems;
    int FItemIndex = -1;
};

}  // namespace fw
