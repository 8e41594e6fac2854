// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "framework/base/Errors.h"
#include "framework/services/ConfigManager.h"
#include "framework/services/EditorManager.h"
#include "framework/services/Formatter.h"
#include "framework/services/GlobalChannelManager.h"
#include "framework/services/LanguageManager.h"
#include "framework/services/ListComparers.h"
#include "framework/services/LookAndFeelService.h"
#include "framework/services/MarketAdapter.h"
#include "framework/services/MessageBoxCtrl.h"
#include "framework/services/OrderActionManager.h"
#include "framework/services/OrderAdapter.h"
#include "framework/services/PositionAdapter.h"
#include "framework/services/ScopedService.h"
#include "framework/services/SubscribeAdapter.h"
#include "framework/services/TimerControl.h"
#include "framework/services/UserAppProfile.h"

namespace fw {
namespace {

template <class T>
class EveryService : public testing::Test {};

using TServices = testing::Types<TCustomConfigManager, TEditorManager, TCustomFormatter, TCustomGlobalChannelManager,
                                 TCustomLanguageManager, TCustomExchangeListComparer, TCustomSeriesComparer,
                                 TCustomLookAndFeelService, TCustomMarketAdapter, TCustomMessageBoxCtrl,
                                 TCustomOrderActionManager, TCustomOrderAdapter, TCustomPositionAdapter,
                                 TCustomSubscribeAdapter, TCustomTimerControl, TCustomUserAppProfile>;
TYPED_TEST_SUITE(EveryService, TServices);

TYPED_TEST(EveryService, IsMissingUntilInstalled) {
    EXPECT_THROW(TypeParam::GetInstance(), EServiceMissing);
    EXPECT_EQ(TypeParam::SetInstance(nullptr), nullptr);
}

class TQuietTimer : public TCustomTimerControl {
public:
    explicit TQuietTimer(bool* Destroyed = nullptr) : FDestroyed(Destroyed) {}
    ~TQuietTimer() override {
        if (FDestroyed) *FDestroyed = true;
    }
    void AddTimerEvent(TObject*, TNotifyEvent) override {}
    void RemoveTimerEvent(TObject*) override {}

private:
    bool* FDestroyed;
};

TEST(Services, ErrorNamesTheMissingOne) {
    try {
        TCustomTimerControl::GetInstance();
        FAIL();
    } catch (const EServiceMissing& E) {
        EXPECT_NE(Text(E.what()).find("TCustomTimerControl"), Text::npos);
    }
}

TEST(Services, InstallingGivesBackTheFormerOne) {
    TQuietTimer A, B;
    EXPECT_EQ(TCustomTimerControl::SetInstance(&A), nullptr);
    EXPECT_EQ(&TCustomTimerControl::GetInstance(), &A);
    EXPECT_EQ(TCustomTimerControl::SetInstance(&B), &A);
    EXPECT_EQ(TCustomTimerControl::SetInstance(nullptr), &B);
    EXPECT_THROW(TCustomTimerControl::GetInstance(), EServiceMissing);
}

TEST(Services, EachClassHasItsOwnDoor) {
    const TScopedService<TCustomTimerControl> Timer(std::make_unique<TQuietTimer>());
    EXPECT_THROW(TCustomFormatter::GetInstance(), EServiceMissing);
    EXPECT_THROW(TCustomUserAppProfile::GetInstance(), EServiceMissing);
}

TEST(ScopedService, PutsTheFormerOneBack) {
    bool OuterDestroyed = false, InnerDestroyed = false;
    {
        const TScopedService<TCustomTimerControl> Outer(std::make_unique<TQuietTimer>(&OuterDestroyed));
        auto* const OuterTimer = &TCustomTimerControl::GetInstance();
        {
            const TScopedService<TCustomTimerControl> Inner(std::make_unique<TQuietTimer>(&InnerDestroyed));
            EXPECT_NE(&TCustomTimerControl::GetInstance(), OuterTimer);
        }
        EXPECT_TRUE(InnerDestroyed);
        EXPECT_FALSE(OuterDestroyed);
        EXPECT_EQ(&TCustomTimerControl::GetInstance(), OuterTimer);
    }
    EXPECT_TRUE(OuterDestroyed);
    EXPECT_THROW(TCustomTimerControl::GetInstance(), EServiceMissing);
}

}  // namespace
}  // namespace fw
