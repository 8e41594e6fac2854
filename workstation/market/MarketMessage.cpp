// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/MarketMessage.h"

#include <utility>

namespace ws {

EMarketRefusal::EMarketRefusal(TMarketMessage Reason) : FReason(std::move(Reason)), FWhat(FReason.Key) {
    for (const std::string& Arg : FReason.Args) FWhat += " | " + Arg;
}

EMarketRefusal::~EMarketRefusal() = default;

const char* EMarketRefusal::what() const noexcept { return FWhat.c_str(); }

}  // namespace ws
