// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/trading/ClientOrder.h"

namespace fw {

class FRAMEWORK_API TCustomOrderActionManager : public TObject {
public:
    ~TCustomOrderActionManager() override;
    static TCustomOrderActionManager& GetInstance();
    static TCustomOrderActionManager* SetInstance(TCustomOrderActionManager* Service);

    // Whether the order passes the pre-trade checks; the service tells the user why not.
    virtual bool CheckOrder(TCustomClientOrder& Order, int Action, bool Flag) = 0;
    // Sends a copy of the order; failures are the service's to report.
    virtual void TakeAction(TObject* Owner, TCustomClientOrder& Order, int Action, bool Flag) = 0;
};

}  // namespace fw
