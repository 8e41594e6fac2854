// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "framework/view/Frame.h"
#include "view/VentiqContext.h"
#include "view/VentiqLegRows.h"

namespace ventiq {

// Chart and table keep the last calculation until the next one. While legs, range or market differ from those that were
// calculated, the view's title says so, with the time of the calculation.
class TVentiqResultNote {
public:
    TVentiqResultNote(TVentiqForm& Form, TVentiqContext& Context, TFrame& View);

    // Right after a calculation: what is in the form now is what the results show.
    void Calculated();
    // On every tick; looks at the form only when something in it changed since.
    void Check();

private:
    struct TInputs {
        std::vector<TLeg> Legs;
        Text Exchange, Series, Month;
        double Down = 0.0, Up = 0.0, Interval = 0.0;
        bool operator==(const TInputs&) const = default;
    };
    TInputs Read() const;

    TVentiqForm& FForm;  // all borrowed from the frame, outlive the part
    TVentiqContext& FContext;
    TFrame& FView;
    std::optional<TInputs> FCalculated;  // none before the first calculation
    TClock::TTimePoint FTime;            // of that calculation
    bool FChanged = false;               // something in the form did since the last look
    TConnections FLinks;
};

}  // namespace ventiq
