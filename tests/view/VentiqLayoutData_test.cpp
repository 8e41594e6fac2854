// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqLayoutData.h"

#include "tests/view/PartsFixture.h"

namespace ventiq {
namespace {

class LayoutData : public TPartsFixture {
protected:
    TVentiqLayoutData Part{Form, Grid};
    const Text Applied = "Editors.SetGridColumnLayout(0,100)";
};

TEST_F(LayoutData, APendingColumnLayoutIsAppliedOnceWhereLayoutsAreKept) {
    Host.Config.KeepColumnLayout = true;
    Part.FPendingColumnLayout = "0,100";
    Part.LoadLayoutComp(nullptr, nullptr);
    EXPECT_EQ(Host.Journal.Count(Applied), 1);
    EXPECT_EQ(Part.FPendingColumnLayout, "");
    Part.MainFormShow(nullptr, nullptr);
    EXPECT_EQ(Host.Journal.Count(Applied), 1);
}

TEST_F(LayoutData, WithoutTheOptionTheLayoutGoesOnWaiting) {
    Part.FPendingColumnLayout = "0,100";
    Part.MainFormShow(nullptr, nullptr);
    EXPECT_EQ(Host.Journal.Count(Applied), 0);
    EXPECT_EQ(Part.FPendingColumnLayout, "0,100");
    Host.Config.KeepColumnLayout = true;
    Part.MainFormShow(nullptr, nullptr);
    EXPECT_EQ(Host.Journal.Count(Applied), 1);
}

TEST_F(LayoutData, NothingPendingNothingDone) {
    Host.Config.KeepColumnLayout = true;
    Host.Journal.Clear();
    Part.AdjustLayout();
    EXPECT_TRUE(Host.Journal.Lines().empty());
}

}  // namespace
}  // namespace ventiq
