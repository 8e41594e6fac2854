// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/ComboBox.h"

namespace fw {

TComboBox::~TComboBox() = default;

const Text& TComboBox::GetItem(int Index) const {
    static const Text Nothing;
    return Index >= 0 && Index < GetCount() ? FItems[static_cast<size_t>(Index)] : Nothing;
}

void TComboBox::AddItem(Text Item) {
    FItems.push_back(std::move(Item));
    ItemsChanged();
}

void TComboBox::SetItem(int Index, Text Item) {
    if (Index < 0 || Index >= GetCount()) return;
    FItems[static_cast<size_t>(Index)] = std::move(Item);
    ItemsChanged();
}

void TComboBox::ClearItems() {
    if (FItems.empty()) return;  // nothing can be selected then
    FItems.clear();
    const bool Selected = FItemIndex >= 0;
    FItemIndex = -1;  // before anybody is told: no listener sees an index without its item
    ItemsChanged();
    if (Selected) IndexChanged();
}

void TComboBox::SetItemIndex(int Index) {
    if (Index < -1 || Index >= GetCount() || Index == FItemIndex) return;
    FItemIndex = Index;
    IndexChanged();
}

void TComboBox::EndUpdate() {
    if (FUpdating == 0 || --FUpdating > 0) return;
    if (std::exchange(FItemsDirty, false)) OnItemsChanged();
    if (std::exchange(FIndexDirty, false)) OnIndexChanged();
}

void TComboBox::ItemsChanged() {
    if (FUpdating > 0)
        FItemsDirty = true;
    else
        OnItemsChanged();
}

void TComboBox::IndexChanged() {
    if (FUpdating > 0)
        FIndexDirty = true;
    else
        OnIndexChanged();
    FireNotify(OnChange, "OnChange");
}

}  // namespace fw
