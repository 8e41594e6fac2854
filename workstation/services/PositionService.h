// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>

#include "framework/services/PositionAdapter.h"
#include "framework/services/SubscribeAdapter.h"
#include "workstation/trading/OrderSystem.h"

namespace ws {

class TPositionRecord;

// What the accounts hold, by the order system. Records live as long as the service and take their newest holding at
// each list; one that an account holds no more is listed no more.
class TPositionService : public fw::TCustomPositionAdapter {
public:
    TPositionService(const TOrderSystem& Orders, fw::TCustomSubscribeAdapter& Data);
    ~TPositionService() override;
    void GetPositionList(const fw::Text& Account, fw::TPositionDictionary& Positions) override;

private:
    const TOrderSystem& FOrders;  // both borrowed
    fw::TCustomSubscribeAdapter& FData;
    std::map<std::pair<std::string, std::string>, std::unique_ptr<TPositionRecord>> FRecords;  // by account and symbol
};

}  // namespace ws
