// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Clock.h"

#include <mutex>

namespace fw {

namespace {

struct TState {
    std::mutex Lock;  // importers ask for the time on threads of their own
    std::optional<TClock::TTimePoint> Fixed;
};

TState& State() {
    static auto* const S = new TState;  // never destroyed: asked up to the end of the process
    return *S;
}

}  // namespace

TClock::TTimePoint TClock::Now() {
    auto& S = State();
    const std::lock_guard Guard(S.Lock);
    return S.Fixed.value_or(std::chrono::system_clock::now());
}

void TClock::Fix(std::optional<TTimePoint> Time) {
    auto& S = State();
    const std::lock_guard Guard(S.Lock);
    S.Fixed = Time;
}

bool TClock::IsFixed() {
    auto& S = State();
    const std::lock_guard Guard(S.Lock);
    return S.Fixed.has_value();
}

}  // namespace fw
