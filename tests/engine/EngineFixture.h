// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <bit>

#include "engine/VentiqDataControl.h"
#include "tests/support/FakeHost.h"

namespace ventiq {

// A host, a payoff data control and its table; the unit's state as after start-up.
class TEngineTest : public testing::Test {
protected:
    TEngineTest() {
        Host.FailOnLeftovers = true;
        DerivativeExchangeCache.clear();
        ExchangeListReady = false;
        ExchangeUpdateState = 0;
        Control = std::make_unique<TCustomVentiqDataControl>();
        Control->SetDetailControl(&Detail);
        Control->SetOnDataUpdate([this](TObject* Sender) { DataUpdates += Sender == Control.get(); });
        Control->SetOnUpdateDefaultPrice([this](TObject* Sender) { RangeUpdates += Sender == Control.get(); });
        Control->SetOnMarketListUpdate([this](TObject* Sender) { ListUpdates += Sender == Control.get(); });
    }

    void SetRange(double Down, double Up, double Interval) {
        Control->SetDownLimit(Down);
        Control->SetUpLimit(Up);
        Control->SetInterval(Interval);
    }

    void Select(const Text& Exchange, const Text& Series) {
        Control->SetExchange(Exchange);
        Control->SetSeries(Series);
    }

    // "down up interval" of the default range.
    Text Defaults() {
        return FloatToShortestText(Control->GetDefaultDownPrice()) + " " +
               FloatToShortestText(Control->GetDefaultUpPrice()) + " " +
               FloatToShortestText(Control->GetDefaultInterval());
    }

    std::vector<Text> KeyPrices() const {
        std::vector<Text> Result;
        double Price = 0.0;
        for (int32_t I = 0; Control->GetPrice(I, Price); ++I) Result.push_back(PriceKey(Price));
        return Result;
    }

    std::vector<Text> Rows() const {
        std::vector<Text> Result;
        for (int32_t I = 0; I < Detail.GetDataList().GetCount(); ++I) Result.push_back(Detail.GetDataList().At(I));
        return Result;
    }

    double RowPL(int32_t Row) { return Detail.GetValue(Row, kColPL).AsFloat(-1e300); }

    support::TFakeHost Host;
    TCustomVentiqDetailDataControl Detail;
    std::unique_ptr<TCustomVentiqDataControl> Control;
    int DataUpdates = 0, RangeUpdates = 0, ListUpdates = 0;
};

inline uint64_t Bits(double Value) { return std::bit_cast<uint64_t>(Value); }

}  // namespace ventiq
