// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "framework/base/Dispatch.h"
#include "framework/base/Object.h"

namespace fw {

// Handlers keyed by their owner, for the services. Registering an owner again replaces its handler. Nothing is
// called back after Remove returns, also when it is called from a handler of the same round; a handler that was
// added during the round waits for the next. What a handler throws is caught and logged, the round goes on.
template <class... Args>
class TOwnerRegistrations {
public:
    using THandler = std::function<void(Args...)>;

    TOwnerRegistrations() = default;
    ~TOwnerRegistrations() {
        for (auto& E : FEntries) E->Live = false;  // a round under way ends with the list
    }
    TOwnerRegistrations(const TOwnerRegistrations&) = delete;
    TOwnerRegistrations& operator=(const TOwnerRegistrations&) = delete;

    void Add(const TObject* Owner, THandler Handler) {
        Remove(Owner);
        FEntries.push_back(std::make_shared<TEntry>(TEntry{Owner, std::move(Handler), true}));
    }

    // No entry of that owner: nothing happens.
    void Remove(const TObject* Owner) {
        for (auto& E : FEntries)
            if (E->Owner == Owner) E->Live = false;
        FEntries.erase(std::remove_if(FEntries.begin(), FEntries.end(), [](const auto& E) { return !E->Live; }),
                       FEntries.end());
    }

    void Notify(std::string_view Where, Args... Values) const {
        const auto Round = FEntries;
        for (const auto& E : Round)
            if (E->Live) Dispatch(Where, [&] { E->Handler(Values...); });
    }

    bool Contains(const TObject* Owner) const {
        return std::any_of(FEntries.begin(), FEntries.end(), [&](const auto& E) { return E->Owner == Owner; });
    }
    bool IsEmpty() const { return FEntries.empty(); }
    size_t GetCount() const { return FEntries.size(); }

private:
    struct TEntry {
        const TObject* Owner;
        THandler Handler;
        bool Live;
    };
    std::vector<std::shared_ptr<TEntry>> FEntries;
};

}  // namespace fw
