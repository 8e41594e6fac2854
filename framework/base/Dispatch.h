// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <utility>

#include "framework/base/Text.h"

namespace fw {

// Runs Body; whatever it throws ends here and becomes one log line at error level (key "Res_LogHandlerFailed",
// arguments: Where and the error's own text; for objects that are no std::exception the name of their type). True when
// Body came to its end.
FRAMEWORK_API bool Dispatch(std::string_view Where, const std::function<void()>& Body) noexcept;

// The same for a call with a result: Default when Body throws.
template <class T, class F>
T DispatchValue(std::string_view Where, T Default, F&& Body) noexcept {
    T Result = std::move(Default);
    Dispatch(Where, [&] { Result = Body(); });
    return Result;
}

}  // namespace fw
