// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/VentiqDataControl.h"
#include "tests/support/FakeHost.h"

namespace bench {

inline constexpr int kTableRows = 10000;
inline constexpr double kDownLimit = 10000.0;

// A host and a payoff of so many legs over a table of 10,000 rows: calls and puts in turn, bought and sold, each at a
// strike of its own inside the range, every tenth leg a future.
class TStrategy {
public:
    explicit TStrategy(int Legs) {
        Control.SetDetailControl(&Detail);
        Control.SetDownLimit(kDownLimit);
        Control.SetUpLimit(kDownLimit + kTableRows - 1);
        Control.SetInterval(1.0);
        for (int I = 0; I < Legs; ++I) AddLeg(I);
    }

    support::TFakeHost Host;  // first: outlives what it serves
    ventiq::TCustomVentiqDetailDataControl Detail;
    ventiq::TCustomVentiqDataControl Control;

private:
    void AddLeg(int I) {
        const fw::Text Symbol = "LEG" + std::to_string(I);
        if (I % 10 == 9)
            Host.Subscriptions.AddFuture(Symbol, 50.0);
        else
            Host.Subscriptions.AddOption(Symbol, kDownLimit + 24.5 * I, I % 2 == 0 ? "C" : "P", 50.0);
        Control.AddRecord(Symbol, I / 2 % 2, 12.25 + 0.5 * I, 1.0 + I % 5);
    }
};

}  // namespace bench
