// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Comparer.h"

namespace fw {

TCustomComparer::TCustomComparer(TFunction Function) : FFunction(std::move(Function)) {}
TCustomComparer::~TCustomComparer() = default;

int32_t TCustomComparer::Compare(const Text& A, const Text& B) const { return FFunction(A, B); }

namespace {

int32_t CompareBytes(const Text& A, const Text& B) {
    const int Order = A.compare(B);
    return Order < 0 ? -1 : Order > 0 ? 1 : 0;
}

}  // namespace

TCustomMonthComparer::TCustomMonthComparer() : TCustomComparer(CompareBytes) {}
TCustomMonthComparer::~TCustomMonthComparer() = default;

}  // namespace fw
