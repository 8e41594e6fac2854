// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/PositionService.h"

namespace ws {

// A net position opened by one shipped execution: its three average prices are that execution's price.
class TPositionRecord : public fw::TCustomPositionData {
public:
    fw::Text GetSymbol() const override { return Row.Symbol; }
    double GetQty() const override { return Row.Qty; }
    fw::TCustomSubItem* GetSubItem() const override { return Item; }
    int GetSideKind() const override { return 0; }  // by the sign of the quantity
    double GetAvgPrice() const override { return Row.AvgPrice; }
    double GetAvgPriceMode1() const override { return Row.AvgPrice; }
    double GetAvgPriceMode2() const override { return Row.AvgPrice; }

    TPositionRow Row;
    fw::TCustomSubItem* Item = nullptr;  // borrowed from the subscription service
};

TPositionService::TPositionService(TStore& Store, fw::TCustomSubscribeAdapter& Data) : FStore(Store), FData(Data) {}
TPositionService::~TPositionService() = default;

void TPositionService::GetPositionList(const fw::Text& Account, fw::TPositionDictionary& Positions) {
    for (auto& Row : FStore.LoadPositions(Account)) {
        auto& Record = FRecords[{Account, Row.Symbol}];
        if (!Record) Record = std::make_unique<TPositionRecord>();
        Record->Item = FData.GetSubItem(Row.Symbol, fw::kPriceDataKind, 0);
        Record->Row = std::move(Row);
        Positions[Record->Row.Symbol] = Record.get();
    }
}

}  // namespace ws
