// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/CallPut.h"

#include <algorithm>
#include <array>

#include "framework/base/Numbers.h"

namespace ws {

namespace {
constexpr std::array kCallCodes{1, 6, 10, 12, 20, 22, 24, 62, 64};
constexpr std::array kPutCodes{2, 7, 11, 13, 21, 23, 25, 63, 65};
}  // namespace

std::optional<ECallPut> CallOrPut(std::string_view Code) {
    if (Code.starts_with('C') || Code.starts_with('c')) return ECallPut::Call;
    if (Code.starts_with('P') || Code.starts_with('p')) return ECallPut::Put;
    const auto Number = fw::TextToInt(Code);
    if (!Number) return std::nullopt;
    if (std::find(kCallCodes.begin(), kCallCodes.end(), *Number) != kCallCodes.end()) return ECallPut::Call;
    if (std::find(kPutCodes.begin(), kPutCodes.end(), *Number) != kPutCodes.end()) return ECallPut::Put;
    return std::nullopt;
}

}  // namespace ws
