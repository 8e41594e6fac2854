// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/PositionService.h"

namespace ws {

class TPositionRecord : public fw::TCustomPositionData {
public:
    fw::Text GetSymbol() const override { return Holding.Symbol; }
    double GetQty() const override { return Holding.Qty; }
    fw::TCustomSubItem* GetSubItem() const override { return Item; }
    int GetSideKind() const override { return 0; }  // by the sign of the quantity
    double GetAvgPrice() const override { return Holding.AverageCost; }
    double GetAvgPriceMode1() const override { return Holding.FirstInFirstOut; }
    double GetAvgPriceMode2() const override { return Holding.OvernightSettled; }

    THolding Holding;
    fw::TCustomSubItem* Item = nullptr;  // borrowed from the subscription service
};

TPositionService::TPositionService(const TOrderSystem& Orders, fw::TCustomSubscribeAdapter& Data)
    : FOrders(Orders), FData(Data) {}
TPositionService::~TPositionService() = default;

void TPositionService::GetPositionList(const fw::Text& Account, fw::TPositionDictionary& Positions) {
    for (auto& Holding : FOrders.Holdings(Account)) {
        auto& Record = FRecords[{Account, Holding.Symbol}];
        if (!Record) Record = std::make_unique<TPositionRecord>();
        Record->Item = FData.GetSubItem(Holding.Symbol, fw::kPriceDataKind, 0);
        Record->Holding = std::move(Holding);
        Positions[Record->Holding.Symbol] = Record.get();
    }
}

}  // namespace ws
