// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "framework/services/GlobalChannelManager.h"
#include "workstation/market/CallPut.h"

namespace ws {

struct TChainFuture {
    fw::Text Symbol;
    fw::Text Expiry;         // "yyyy/MM/dd"
    bool IsOfMonth = false;  // false: stands there for its price only, a view on this month refuses it
};

struct TChainStrike {
    double Value = 0.0;               // real price units
    fw::Text Expiry;                  // "yyyy/MM/dd"
    fw::Text Root;                    // letters that begin its symbols; tells contracts of one strike and expiry apart
    fw::Text Stated;                  // the strike as the exchange states it
    fw::Text Shown;                   // the strike as the workstation writes it
    fw::Text Plain;                   // the same without what groups its thousands
    std::array<fw::Text, 2> Symbols;  // by ECallPut; "" where that side is not listed

    const fw::Text& Symbol(ECallPut Side) const { return Symbols[static_cast<size_t>(Side)]; }
};

// Everything listed in one month of a series.
struct TOptionChain {
    std::vector<TChainFuture> Futures;  // by expiry; without one of the month the first that outlives its options
    std::vector<TChainStrike> Strikes;  // by expiry, strike and root
    bool HasSeveralExpiries = false;
    bool HasSeveralRoots = false;

    bool IsEmpty() const;  // nothing that could be chosen
};

// Reads the market service's lists. An option whose strike or side cannot be read, and what is neither option nor
// future, stays out. A call and a put share a line when expiry, strike and root agree; no contract hides another.
TOptionChain ReadOptionChain(const fw::TSelectedMarket& Market);

}  // namespace ws
