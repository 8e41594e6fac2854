// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/StoreError.h"

#include <utility>

namespace ws {

EStoreError::EStoreError(std::string Key, std::vector<std::string> Args)
    : FKey(std::move(Key)), FArgs(std::move(Args)), FWhat(FKey) {
    for (const auto& Arg : FArgs) FWhat += " [" + Arg + "]";
}

EStoreError::~EStoreError() = default;

const char* EStoreError::what() const noexcept { return FWhat.c_str(); }

}  // namespace ws
