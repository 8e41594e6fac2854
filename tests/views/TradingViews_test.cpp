// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/base/ClassRegistry.h"
#include "tests/views/ViewsFixture.h"

namespace ws::test {

class TradingViewsTest : public TViewsFixture {};

TEST_F(TradingViewsTest, BothAreRegisteredLikeAPackagesViews) {
    SetTradingDesk(&Desk);
    for (const char* Name : {"TOrdersView", "TPositionsView"}) {
        const auto Made = fw::TClassRegistry::Create(Name);
        auto* Each = dynamic_cast<fw::TIBaseView*>(Made.get());
        ASSERT_NE(Each, nullptr) << Name;
        EXPECT_EQ(Each->GetMenuLevel(), 2);
        EXPECT_EQ(Each->GetMenuID(0), 104);
        EXPECT_EQ(Each->GetMenuCaption(0), "Trading");
        EXPECT_EQ(Each->GetMenuID(1), Each->GetViewID());
        EXPECT_EQ(Each->GetMenuIndex(2), -1);
        EXPECT_EQ(Each->GetMenuCaption(2), "");
        EXPECT_TRUE(Each->GetIsVisible());
        fw::Text Caption, Icon;
        EXPECT_TRUE(Each->GetDefaultCaption(Caption));
        EXPECT_EQ(Caption, Each->GetMenuCaption(1));
        EXPECT_TRUE(Each->GetViewIcon(0, Icon));
        EXPECT_FALSE(Icon.empty());
        const int64_t Opened = Each->OpenNewInstance();
        EXPECT_NE(Each->FindView(Opened), nullptr);
    }
    SetTradingDesk(nullptr);
    EXPECT_EQ(fw::TClassRegistry::Create("TOrdersView"), nullptr) << "there is no desk to stand at";
}

}  // namespace ws::test
