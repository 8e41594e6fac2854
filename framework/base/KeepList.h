// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "framework/base/Export.h"

namespace fw {

namespace detail {
FRAMEWORK_API void KeepErased(std::shared_ptr<void> Object);
}

// Hands an object to the process for good: it is never freed, and stays reachable so that leak checkers know it.
// Returns the object, borrowed.
template <class T>
T* Keep(std::unique_ptr<T> Object) {
    T* Borrowed = Object.get();
    detail::KeepErased(std::shared_ptr<void>(std::shared_ptr<T>(std::move(Object))));
    return Borrowed;
}

// How many objects are kept; for tests.
FRAMEWORK_API int KeptCount();

}  // namespace fw
