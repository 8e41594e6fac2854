// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "framework/trading/ClientOrder.h"

namespace fw {

class FRAMEWORK_API TCustomOrderAdapter : public TObject {
public:
    ~TCustomOrderAdapter() override;
    static TCustomOrderAdapter& GetInstance();
    static TCustomOrderAdapter* SetInstance(TCustomOrderAdapter* Service);

    virtual std::unique_ptr<TCustomClientOrder> CreateClientOrder() = 0;
    // Order options that an exchange supports: "Open", "Close", "Client", "House", "RT", ...
    virtual int GetOrderOptionCount(const Text& Exchange) = 0;
    virtual Text GetOrderOption(const Text& Exchange, int Index) = 0;
    virtual Text GetSideText(const TCustomClientOrder& Order, bool Short) = 0;
    virtual Text GetRemarkText(const TCustomClientOrder& Order) = 0;
    virtual Text GetOrderText(const TCustomClientOrder& Order) = 0;  // text of column 5
};

}  // namespace fw
