// SPDX-License-Identifier: Apache-2.0
#include "framework/base/KeepList.h"

#include <vector>

namespace fw {

namespace {

// Never destroyed, like what it holds.
std::vector<std::shared_ptr<void>>& Kept() {
    static auto* const List = new std::vector<std::shared_ptr<void>>;
    return *List;
}

}  // namespace

void detail::KeepErased(std::shared_ptr<void> Object) { Kept().push_back(std::move(Object)); }

int KeptCount() { return static_cast<int>(Kept().size()); }

}  // namespace fw
