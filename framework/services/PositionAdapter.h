// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/trading/PositionData.h"

namespace fw {

class FRAMEWORK_API TCustomPositionAdapter : public TObject {
public:
    ~TCustomPositionAdapter() override;
    static TCustomPositionAdapter& GetInstance();
    static TCustomPositionAdapter* SetInstance(TCustomPositionAdapter* Service);

    // Adds the account's positions to Positions.
    virtual void GetPositionList(const Text& Account, TPositionDictionary& Positions) = 0;
};

}  // namespace fw
