// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqMarketData.h"

#include "tests/engine/EngineFixture.h"

namespace ventiq {

TEST_F(TEngineTest, MarketDataAreLookedUpBySymbol) {
    Host.Market.AddProduct("XDER", "S", "FUT", kProductFuture, "2024/03/28");
    EXPECT_EQ(ListedProduct("FUT")->GetSymbol(), "FUT");
    EXPECT_EQ(ListedProduct("fut"), nullptr);
    EXPECT_EQ(PriceDataItem("NOBODY")->GetSymbol(), "NOBODY") << "never null";
    Host.Journal.RecordReads = true;
    Host.Journal.Clear();
    PriceDataItem("FUT");
    EXPECT_EQ(Host.Journal.Take(), (std::vector<Text>{"Subscriptions.GetSubItem(FUT, PRCDDS, 0)"}));
}

TEST_F(TEngineTest, ASymbolBeginsWithItsSeries) {
    struct {
        const char *Symbol, *Expected;
    } const Cases[] = {{"HSIH4", "HSI"},
                       {"HSI", "HSI"},
                       {"HS", "HS"},
                       {"", ""},
                       {"\u65E5\u7D4C\u5E73\u5747H4", "\u65E5\u7D4C\u5E73"},
                       {"a\u00E4b\u00E4", "a\u00E4b"}};
    for (const auto& C : Cases) EXPECT_EQ(SeriesPrefix(C.Symbol), C.Expected) << C.Symbol;
}

}  // namespace ventiq
