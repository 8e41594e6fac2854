// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "framework/base/Comparer.h"

namespace fw {

// An ordered list of texts. Reads by index raise EListError out of range.
class FRAMEWORK_API TStringList {
public:
    TStringList() = default;
    TStringList(std::initializer_list<Text> Items) : FItems(Items) {}

    int GetCount() const { return static_cast<int>(FItems.size()); }
    bool IsEmpty() const { return FItems.empty(); }
    void Clear() { FItems.clear(); }
    void Add(Text Item) { FItems.push_back(std::move(Item)); }
    void Insert(int Index, Text Item);  // Index is clamped to 0..count
    const Text& At(int Index) const;
    // Position of the first item that equals Item exactly; -1 when there is none.
    int IndexOf(std::string_view Item) const;
    bool Contains(std::string_view Item) const { return IndexOf(Item) >= 0; }

    // Stable, and in bounds even with a comparer that is no strict order (prices that are equal within a tolerance).
    void Sort(const TCustomComparer& Comparer);

    // Comma text: items separated by commas (outside quotes also by blanks); an item with a blank, comma, quote or
    // control character stands in double quotes with inner quotes doubled. Text after an unbalanced quote runs to
    // the end. Writing and reading again gives the same list, line breaks included.
    Text GetCommaText() const;
    void SetCommaText(std::string_view CommaText);

    // Items of the form Name=Value. Names compare without regard to case, the first one wins; items without '=' are
    // no pairs. A missing name reads as "".
    Text GetValue(std::string_view Name) const;
    int IndexOfName(std::string_view Name) const;
    void SetValue(std::string_view Name, std::string_view Value);

    const std::vector<Text>& Items() const { return FItems; }
    friend bool operator==(const TStringList&, const TStringList&) = default;

private:
    std::vector<Text> FItems;
};

}  // namespace fw
