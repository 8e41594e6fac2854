// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/Control.h"

#include <optional>

#include "tests/framework/controls/LogFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TProbe : public TControl {
public:
    explicit TProbe(TSteps& Steps) : FSteps(Steps) {}
    void PostEditor() override {
        FSteps.push_back("post " + GetName());
        if (DuringPost) DuringPost();
    }
    void Fire(const TNotifyEvent& Event) { FireNotify(Event, "OnProbe"); }
    using TControl::EnsureFocus;
    std::function<void()> DuringPost, DuringExit;

protected:
    void DoExit() override {
        FSteps.push_back("exit " + GetName());
        if (DuringExit) DuringExit();
    }

private:
    TSteps& FSteps;
};

class ControlTest : public TLogFixture {
protected:
    ControlTest() {
        Scope.Attach("a", A);
        Scope.Attach("b", B);
        Scope.Attach("c", C);
    }
    TSteps Steps;
    TFocusScope Scope;
    TProbe A{Steps}, B{Steps}, C{Steps};
};

TEST_F(ControlTest, AFrameFindsItsControlsByName) {
    EXPECT_EQ(Scope.Find("b"), &B);
    EXPECT_EQ(Scope.Find("B"), nullptr);
    EXPECT_EQ(Scope.Find(""), nullptr);
    EXPECT_THAT(Scope.Controls(), ElementsAre(&A, &B, &C));
}

TEST_F(ControlTest, ASecondControlOfANameReplacesTheFirst) {
    TProbe Other(Steps);
    Scope.Attach("b", Other);
    EXPECT_EQ(Scope.Find("b"), &Other);
    EXPECT_THAT(Scope.Controls(), ElementsAre(&A, &C, &Other));
    B.SetFocus();
    EXPECT_FALSE(B.HasFocus());
}

TEST_F(ControlTest, AttachingAgainRenames) {
    Scope.Attach("z", B);
    EXPECT_EQ(Scope.Find("b"), nullptr);
    EXPECT_EQ(Scope.Find("z"), &B);
    EXPECT_EQ(Scope.Controls().size(), 3u);
}

TEST_F(ControlTest, AControlBelongsToOneFrame) {
    TFocusScope Other;
    Other.Attach("b", B);
    EXPECT_EQ(Scope.Find("b"), nullptr);
    EXPECT_EQ(Other.Find("b"), &B);
}

TEST_F(ControlTest, LeavingPostsThenExitsOnce) {
    A.SetFocus();
    EXPECT_THAT(Steps, IsEmpty());
    A.SetFocus();
    EXPECT_THAT(Steps, IsEmpty());
    B.SetFocus();
    EXPECT_THAT(Steps, ElementsAre("post a", "exit a"));
    EXPECT_TRUE(B.HasFocus());
    EXPECT_FALSE(A.HasFocus());
}

TEST_F(ControlTest, AFocusAskedForWhileLeavingGoesToTheLastAndLeavesNobodyTwice) {
    const std::pair<const char*, std::function<void()>*> Cases[] = {{"from its posting", &A.DuringPost},
                                                                    {"from its exit", &A.DuringExit}};
    for (const auto& [Why, Hook] : Cases) {
        SCOPED_TRACE(Why);
        A.DuringPost = A.DuringExit = nullptr;
        A.SetFocus();
        Steps.clear();
        *Hook = [this] { C.SetFocus(); };
        B.SetFocus();
        EXPECT_THAT(Steps, ElementsAre("post a", "exit a"));
        EXPECT_EQ(Scope.GetFocused(), &C);
    }
}

TEST_F(ControlTest, DisabledControlsAndControlsOutsideAFrameTakeNoFocus) {
    A.SetFocus();
    B.SetEnabled(false);
    B.SetFocus();
    EXPECT_TRUE(A.HasFocus());
    TProbe Alone(Steps);
    Alone.SetFocus();
    EXPECT_FALSE(Alone.HasFocus());
    EXPECT_THAT(Steps, IsEmpty());
}

TEST_F(ControlTest, AProgramsFocusIsToldToTheRendererEachTimeItIsAskedFor) {
    int Requests = 0;
    const auto Link = A.OnFocusRequested.Connect([&] { ++Requests; });
    A.SetFocus();
    A.SetFocus();
    EXPECT_EQ(Requests, 2);
    A.EnsureFocus();
    EXPECT_EQ(Requests, 2);
}

TEST_F(ControlTest, AControlThatDiesLeavesTheFrame) {
    std::optional<TProbe> Dying(std::in_place, Steps);
    Scope.Attach("d", *Dying);
    Dying->SetFocus();
    Dying.reset();
    EXPECT_EQ(Scope.GetFocused(), nullptr);
    EXPECT_EQ(Scope.Find("d"), nullptr);
    A.SetFocus();
    EXPECT_THAT(Steps, IsEmpty());
}

TEST_F(ControlTest, AControlMayDieWhileItIsPosted) {
    std::optional<TProbe> Dying(std::in_place, Steps);
    Scope.Attach("d", *Dying);
    Dying->SetFocus();
    Dying->DuringPost = [&] { Scope.Detach(*Dying); };
    A.SetFocus();
    EXPECT_THAT(Steps, ElementsAre("post d"));
    EXPECT_TRUE(A.HasFocus());
}

TEST_F(ControlTest, AControlOutlivesItsFrame) {
    TProbe Survivor(Steps);
    {
        TFocusScope Brief;
        Brief.Attach("s", Survivor);
        Survivor.SetFocus();
    }
    EXPECT_FALSE(Survivor.HasFocus());
    Survivor.SetFocus();
}

TEST_F(ControlTest, PostEditorsReachesEveryControlThatIsStillThere) {
    A.DuringPost = [this] { Scope.Detach(B); };
    Scope.PostEditors();
    EXPECT_THAT(Steps, ElementsAre("post a", "post c"));
}

TEST_F(ControlTest, AFailingHandlerIsLoggedUnderTheControlsName) {
    A.Fire([](TObject*) { throw std::runtime_error("broken"); });
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|a.OnProbe|broken"));
    TProbe Nameless(Steps);
    Nameless.Fire([](TObject*) { throw std::runtime_error("broken"); });
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|OnProbe|broken"));
    A.Fire(nullptr);
}

TEST_F(ControlTest, AHandlerMayReplaceItselfWhileItRuns) {
    TNotifyEvent Event;
    int Sum = 0;
    const Text Long(100, 'x');
    Event = [&, Long](TObject*) {
        Event = nullptr;
        Sum += static_cast<int>(Long.size());
    };
    A.Fire(Event);
    EXPECT_EQ(Sum, 100);
}

TEST_F(ControlTest, StateIsToldOnlyWhenItChanges) {
    int Told = 0;
    const auto Link = A.OnModelChanged.Connect([&] { ++Told; });
    A.SetEnabled(true);
    A.SetVisible(true);
    EXPECT_EQ(Told, 0);
    A.SetEnabled(false);
    A.SetVisible(false);
    EXPECT_EQ(Told, 2);
}

TEST_F(ControlTest, PointsAreMappedByTheRenderer) {
    EXPECT_EQ(A.ClientToScreen({3, 4}).X, 3);
    A.SetScreenMapper([](TPoint P) { return TPoint{P.X + 100, P.Y + 200}; });
    EXPECT_EQ(A.ClientToScreen({3, 4}).X, 103);
    EXPECT_EQ(A.ClientToScreen({3, 4}).Y, 204);
}

}  // namespace
}  // namespace fw
