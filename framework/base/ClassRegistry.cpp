// SPDX-License-Identifier: Apache-2.0
#include "framework/base/ClassRegistry.h"

#include <algorithm>

namespace fw {

namespace {

struct TEntry {
    Text Name;
    TClassRegistry::TFactory Factory;
};

// Never destroyed: factories live in packages, which stay to the end of the process and beyond its statics.
std::vector<TEntry>& Entries() {
    static auto* const List = new std::vector<TEntry>;
    return *List;
}

const TEntry* Find(const Text& Name) {
    const auto& List = Entries();
    const auto It = std::find_if(List.begin(), List.end(), [&](const TEntry& E) { return E.Name == Name; });
    return It == List.end() ? nullptr : &*It;
}

}  // namespace

bool TClassRegistry::RegisterClass(const Text& Name, TFactory Factory) {
    if (Find(Name)) return false;
    Entries().push_back({Name, std::move(Factory)});
    return true;
}

std::vector<Text> TClassRegistry::ClassNames() {
    std::vector<Text> Names;
    for (const auto& E : Entries()) Names.push_back(E.Name);
    return Names;
}

std::unique_ptr<TObject> TClassRegistry::Create(const Text& Name) {
    const TEntry* Entry = Find(Name);
    if (!Entry || !Entry->Factory) return nullptr;
    // A copy: the factory may register further classes, which moves the entries.
    const TFactory Factory = Entry->Factory;
    return Factory();
}

}  // namespace fw
