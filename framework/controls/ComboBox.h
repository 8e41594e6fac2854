// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "framework/controls/Control.h"

namespace fw {

// Fixed-list combo box. OnChange ("properties change") fires whenever the item index changes, whoever changed it.
class FRAMEWORK_API TComboBox : public TControl {
public:
    ~TComboBox() override;

    int GetCount() const { return static_cast<int>(FItems.size()); }
    const Text& GetItem(int Index) const;  // "" out of range
    void AddItem(Text Item);
    void SetItem(int Index, Text Item);  // rewrites the text and keeps the index; out of range: nothing
    // Sets the index to -1, firing a change when an item was selected.
    void ClearItems();

    int GetItemIndex() const { return FItemIndex; }  // -1: none
    // The index it already has fires nothing; an index that no item has changes nothing; -1 selects none.
    void SetItemIndex(int Index);
    const Text& GetText() const { return GetItem(FItemIndex); }

    // Renderers reload once at the end of the outermost update; OnChange does not wait for it.
    void BeginUpdate() { ++FUpdating; }
    void EndUpdate();

    TNotifyEvent OnChange;

    TSignal<> OnItemsChanged;
    TSignal<> OnIndexChanged;

private:
    void ItemsChanged();
    void IndexChanged();
    std::vector<Text> FItems;
    int FItemIndex = -1;
    int FUpdating = 0;
    bool FItemsDirty = false, FIndexDirty = false;
};

}  // namespace fw
