// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>

#include "framework/services/PositionAdapter.h"
#include "framework/services/SubscribeAdapter.h"
#include "workstation/store/Store.h"

namespace ws {

class TPositionRecord;

// What the accounts hold, by the store. Records live as long as the service and take their newest row at each list.
class TPositionService : public fw::TCustomPositionAdapter {
public:
    TPositionService(TStore& Store, fw::TCustomSubscribeAdapter& Data);
    ~TPositionService() override;
    void GetPositionList(const fw::Text& Account, fw::TPositionDictionary& Positions) override;

private:
    TStore& FStore;  // both borrowed
    fw::TCustomSubscribeAdapter& FData;
    std::map<std::pair<std::string, std::string>, std::unique_ptr<TPositionRecord>> FRecords;  // by account and symbol
};

}  // namespace ws
