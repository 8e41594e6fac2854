// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqContext.h"
#include "view/VentiqForm.h"
#include "view/VentiqOrderFlags.h"

namespace ventiq {

// Submit: hands the grid's legs to the data control as order legs and has them submitted. Every row that is a leg goes
// along, loaded positions as well as typed rows; the confirmation of the batch is where the trader decides.
class TVentiqOrderCollector {
public:
    TVentiqOrderCollector(TVentiqForm& Form, TVentiqContext& Context, TVentiqOrderFlags& Flags)
        : FForm(Form), FContext(Context), FFlags(Flags) {}

    // Does nothing while a submission is under way: its confirmation runs a loop of its own.
    void btnSubmitClick(TObject* Sender);

private:
    TVentiqForm& FForm;  // all borrowed from the frame
    TVentiqContext& FContext;
    TVentiqOrderFlags& FFlags;
    bool FSubmitting = false;
};

}  // namespace ventiq
