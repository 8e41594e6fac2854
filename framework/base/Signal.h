// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace fw {

// One connection of a signal; ends when destroyed. Outliving the signal is harmless.
class TConnection {
public:
    TConnection() = default;
    explicit TConnection(std::weak_ptr<bool> Alive) : FAlive(std::move(Alive)) {}
    TConnection(TConnection&& Other) noexcept : FAlive(std::exchange(Other.FAlive, {})) {}
    TConnection& operator=(TConnection&& Other) noexcept {
        if (this != &Other) {
            Disconnect();
            FAlive = std::exchange(Other.FAlive, {});
        }
        return *this;
    }
    ~TConnection() { Disconnect(); }

    void Disconnect() {
        if (auto Alive = FAlive.lock()) *Alive = false;
        FAlive.reset();
    }

private:
    std::weak_ptr<bool> FAlive;
};

// A bunch of connections that end together: Links += Model.OnItems.Connect(...).
class TConnections {
public:
    TConnections& operator+=(TConnection C) {
        FList.push_back(std::move(C));
        return *this;
    }
    void Clear() { FList.clear(); }

private:
    std::vector<TConnection> FList;
};

// Tells any number of listeners that something changed. Listeners may connect, disconnect and even destroy the
// signal's owner's other listeners while it fires; one that was disconnected is not called any more, one that
// was connected during the round is first called in the next. Same thread only. Listeners must not throw.
template <class... Args>
class TSignal {
public:
    [[nodiscard]] TConnection Connect(std::function<void(Args...)> Listener) {
        auto Alive = std::make_shared<bool>(true);
        TConnection Result{Alive};
        DropEnded();
        FSlots.push_back({std::move(Alive), std::make_shared<std::function<void(Args...)>>(std::move(Listener))});
        return Result;
    }

    void operator()(Args... Values) const {
        const auto Round = FSlots;
        for (const auto& Slot : Round)
            if (*Slot.Alive) (*Slot.Listener)(Values...);
        DropEnded();
    }

    bool HasListeners() const {
        return std::any_of(FSlots.begin(), FSlots.end(), [](const TSlot& S) { return *S.Alive; });
    }

private:
    struct TSlot {
        std::shared_ptr<bool> Alive;
        std::shared_ptr<std::function<void(Args...)>> Listener;
    };

    void DropEnded() const {
        std::erase_if(FSlots, [](const TSlot& S) { return !*S.Alive; });
    }

    mutable std::vector<TSlot> FSlots;
};

}  // namespace fw
