// SPDX-License-Identifier: Apache-2.0
#include "framework/base/StringList.h"

#include <algorithm>
#include <numeric>

#include "framework/base/Errors.h"

namespace fw {

namespace {

// Blanks and control characters alike.
bool IsBlank(char C) { return static_cast<unsigned char>(C) <= 0x20; }

bool NeedsQuotes(std::string_view Item) {
    return std::any_of(Item.begin(), Item.end(),
                       [](char C) { return IsBlank(C) || C == ',' || C == '"' || C == 0x7F; });
}

Text Quoted(std::string_view Item) {
    Text Result = "\"";
    for (const char C : Item) {
        if (C == '"') Result += C;
        Result += C;
    }
    return Result += '"';
}

// Reads one comma text from front to end.
class TCommaReader {
public:
    explicit TCommaReader(std::string_view S) : FRest(S) {}

    std::vector<Text> ReadAll() {
        std::vector<Text> Items;
        SkipBlanks();
        while (!FRest.empty()) {
            Items.push_back(FRest.front() == '"' ? ReadQuoted() : ReadPlain());
            SkipBlanks();
            if (!FRest.starts_with(',')) continue;
            FRest.remove_prefix(1);
            SkipBlanks();
            if (FRest.empty()) Items.emplace_back();  // "a," has a second, empty item
        }
        return Items;
    }

private:
    void SkipBlanks() {
        while (!FRest.empty() && IsBlank(FRest.front())) FRest.remove_prefix(1);
    }

    Text ReadQuoted() {
        Text Item;
        FRest.remove_prefix(1);
        while (!FRest.empty()) {
            const bool Quote = FRest.front() == '"';
            if (Quote) {
                FRest.remove_prefix(1);
                if (!FRest.starts_with('"')) break;
            }
            Item += FRest.front();
            FRest.remove_prefix(1);
        }
        return Item;
    }

    Text ReadPlain() {
        size_t End = 0;
        while (End < FRest.size() && FRest[End] != ',' && !IsBlank(FRest[End])) ++End;
        Text Item(FRest.substr(0, End));
        FRest.remove_prefix(End);
        return Item;
    }

    std::string_view FRest;
};

// Merges the two sorted runs [First, Middle) and [Middle, Last) of Order through Scratch. Every index is bounded by
// its run, whatever the comparer answers; items that it calls equal keep their order.
void Merge(std::vector<size_t>& Order, std::vector<size_t>& Scratch, size_t First, size_t Middle, size_t Last,
           const std::vector<Text>& Items, const TCustomComparer& Comparer) {
    size_t Left = First, Right = Middle;
    for (size_t Out = First; Out < Last; ++Out) {
        const bool TakeLeft =
            Left < Middle && (Right >= Last || Comparer.Compare(Items[Order[Left]], Items[Order[Right]]) <= 0);
        Scratch[Out] = TakeLeft ? Order[Left++] : Order[Right++];
    }
}

}  // namespace

void TStringList::Insert(int Index, Text Item) {
    FItems.insert(FItems.begin() + std::clamp(Index, 0, GetCount()), std::move(Item));
}

const Text& TStringList::At(int Index) const {
    if (Index < 0 || Index >= GetCount()) throw EListError("List index out of range: " + std::to_string(Index));
    return FItems[static_cast<size_t>(Index)];
}

int TStringList::IndexOf(std::string_view Item) const {
    const auto It = std::find(FItems.begin(), FItems.end(), Item);
    return It == FItems.end() ? -1 : static_cast<int>(It - FItems.begin());
}

// Sorts positions, so that a comparer that raises leaves the list as it was.
void TStringList::Sort(const TCustomComparer& Comparer) {
    const size_t Count = FItems.size();
    std::vector<size_t> Order(Count), Scratch(Count);
    std::iota(Order.begin(), Order.end(), size_t{0});
    for (size_t Width = 1; Width < Count; Width *= 2) {
        for (size_t First = 0; First < Count; First += 2 * Width)
            Merge(Order, Scratch, First, std::min(First + Width, Count), std::min(First + 2 * Width, Count), FItems,
                  Comparer);
        Order.swap(Scratch);
    }
    std::vector<Text> Sorted;
    Sorted.reserve(Count);
    for (const size_t Position : Order) Sorted.push_back(std::move(FItems[Position]));
    FItems = std::move(Sorted);
}

Text TStringList::GetCommaText() const {
    // A lone empty item would read back as no item.
    if (FItems.size() == 1 && FItems.front().empty()) return Quoted({});
    Text Result;
    for (size_t I = 0; I < FItems.size(); ++I) {
        if (I > 0) Result += ',';
        Result += NeedsQuotes(FItems[I]) ? Quoted(FItems[I]) : FItems[I];
    }
    return Result;
}

void TStringList::SetCommaText(std::string_view CommaText) { FItems = TCommaReader(CommaText).ReadAll(); }

Text TStringList::GetValue(std::string_view Name) const {
    const int Index = IndexOfName(Name);
    return Index < 0 ? Text() : At(Index).substr(Name.size() + 1);
}

int TStringList::IndexOfName(std::string_view Name) const {
    const auto It = std::find_if(FItems.begin(), FItems.end(), [&](std::string_view Item) {
        const size_t Equals = Item.find('=');
        return Equals != std::string_view::npos && SameText(Item.substr(0, Equals), Name);
    });
    return It == FItems.end() ? -1 : static_cast<int>(It - FItems.begin());
}

void TStringList::SetValue(std::string_view Name, std::string_view Value) {
    Text Pair = Text(Name) + "=" + Text(Value);
    const int Index = IndexOfName(Name);
    if (Index < 0)
        Add(std::move(Pair));
    else
        FItems[static_cast<size_t>(Index)] = std::move(Pair);
}

}  // namespace fw
