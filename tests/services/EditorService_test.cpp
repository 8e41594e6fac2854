// SPDX-License-Identifier: GPL-3.0-or-later
// Link groups: editors of one group share an account.
#include "workstation/services/EditorService.h"

#include <gtest/gtest.h>

#include "workstation/services/LoopQueue.h"

namespace ws {
namespace {

struct TView {
    fw::TPopupEdit Editor;
    std::vector<fw::Text> Taken;  // the account at each exit, as a view takes it

    TView() {
        Editor.OnExit = [this](fw::TObject*) { Taken.push_back(Editor.GetHint()); };
    }
};

class LinkGroups : public testing::Test {
protected:
    LinkGroups() { Service.SetAccounts(Accounts, "A"); }

    void Join(TView& View, const char* Group) { Service.RegisterAccountEditor(&View.Editor, Group, false, true); }
    // Opened, shown and put into the group, as a window is.
    void Open(TView& View, const char* Group) {
        Join(View, "");
        Join(View, Group);
        Queue.Pump();
    }
    void Choose(TView& View, int Index) {
        View.Editor.Choose(Index);
        Queue.Pump();
    }
    static fw::Text AccountOf(const TView& View) { return View.Editor.GetHint(); }

    std::vector<TAccountRow> Accounts{{"A", "Alpha"}, {"B", "Beta"}, {"C", ""}};
    TLoopQueue Queue;
    TEditorService Service{[](const fw::Text& Typed) { return Typed; },
                           [this](std::function<void()> Task) { Queue.Post(std::move(Task)); }};
    TView One, Two, Three;
};

TEST_F(LinkGroups, WhatIsChosenInOneIsTakenByTheOthersOfTheGroupAsIfChosenThere) {
    Open(One, "1");
    Open(Two, "1");
    Open(Three, "2");
    Two.Taken.clear();
    One.Editor.Choose(1);
    EXPECT_EQ(AccountOf(Two), "A") << "not from inside the choice";
    Queue.Pump();
    EXPECT_EQ(AccountOf(Two), "B");
    EXPECT_EQ(Two.Editor.GetText(), "B Beta");
    EXPECT_EQ(Two.Taken, std::vector<fw::Text>{"B"});
    EXPECT_EQ(AccountOf(Three), "A") << "another group";
    Choose(Two, 2);
    EXPECT_EQ(AccountOf(One), "C");
    EXPECT_EQ(One.Editor.GetText(), "C");
    EXPECT_TRUE(Queue.IsEmpty());
}

TEST_F(LinkGroups, WhoJoinsOrOpensLaterGetsTheGroupsAccountAfterTheRegistration) {
    Open(One, "1");
    Choose(One, 1);
    Join(Two, "");
    Two.Taken.clear();
    Join(Two, "1");
    EXPECT_EQ(AccountOf(Two), "A") << "a registration keeps the account";
    EXPECT_TRUE(Two.Taken.empty()) << "and calls nothing back";
    Queue.Pump();
    EXPECT_EQ(AccountOf(Two), "B");
    EXPECT_EQ(AccountOf(One), "B") << "the group's account is not the newcomer's";
    Join(Three, "1");  // its first registration, default account included
    Queue.Pump();
    EXPECT_EQ(AccountOf(Three), "B");
    EXPECT_EQ(AccountOf(One), "B");
}

TEST_F(LinkGroups, TheAccountIsRememberedWhileNoWindowOfTheGroupIsOpen) {
    Open(One, "1");
    Choose(One, 2);
    Service.RemoveAccountEditor(&One.Editor);
    EXPECT_FALSE(Service.HasEditors());
    Open(Two, "1");
    EXPECT_EQ(AccountOf(Two), "C");
}

TEST_F(LinkGroups, WhoLeavesKeepsItsAccountAndIsNotFollowedAnyMore) {
    Open(One, "1");
    Open(Two, "1");
    Choose(One, 1);
    Join(Two, "");
    Choose(Two, 2);
    EXPECT_EQ(AccountOf(One), "B");
    Choose(One, 0);
    EXPECT_EQ(AccountOf(Two), "C");
    Join(Two, "2");  // the first of its group brings its own
    Queue.Pump();
    EXPECT_EQ(AccountOf(Two), "C");
    Join(One, "2");
    Queue.Pump();
    EXPECT_EQ(AccountOf(One), "C");
}

TEST_F(LinkGroups, WhatAProgramOrALayoutPutsInIsSharedToo) {
    Open(One, "1");
    Open(Two, "1");
    Service.SetAccountLayoutAccount(&One.Editor, "B");
    Queue.Pump();
    EXPECT_EQ(AccountOf(Two), "B");
    Two.Editor.SetText("C");  // as an order is pushed
    Two.Editor.SetHint("C");
    Queue.Pump();
    EXPECT_EQ(AccountOf(One), "C");
}

TEST_F(LinkGroups, AnAccountThatTheUserDoesNotHaveGoesNowhere) {
    Open(One, "1");
    Open(Two, "1");
    One.Editor.SetText("X9");
    One.Editor.SetHint("X9");
    Queue.Pump();
    EXPECT_EQ(AccountOf(Two), "A");
    Choose(One, 1);
    Service.RemoveAccountEditor(&One.Editor);
    Service.RemoveAccountEditor(&Two.Editor);
    Service.SetAccounts({{"A", ""}, {"C", ""}}, "C");  // another user
    Open(Three, "1");
    EXPECT_EQ(AccountOf(Three), "C");
}

TEST_F(LinkGroups, EditorsThatAreDisabledOrWithoutAGroupAreLeftAlone) {
    TView Alone;
    Join(Alone, "");
    Open(One, "1");
    Open(Two, "1");
    Two.Editor.SetEnabled(false);
    Choose(One, 1);
    EXPECT_EQ(AccountOf(Two), "A");
    EXPECT_EQ(AccountOf(Alone), "A");
}

TEST_F(LinkGroups, AnEditorThatIsRemovedBeforeTheLoopComesIsNotCalled) {
    Open(One, "1");
    Open(Two, "1");
    One.Editor.Choose(1);
    Two.Taken.clear();
    Service.RemoveAccountEditor(&Two.Editor);
    Queue.Pump();
    EXPECT_TRUE(Two.Taken.empty());
    EXPECT_EQ(AccountOf(Two), "A");
}

TEST_F(LinkGroups, AViewThatClosesAnotherWhileItTakesTheAccountIsHarmless) {
    Open(One, "1");
    Open(Two, "1");
    Open(Three, "1");
    const auto CloseOther = [this](TView& Other) {
        return [this, &Other](fw::TObject*) { Service.RemoveAccountEditor(&Other.Editor); };
    };
    Two.Editor.OnExit = CloseOther(Three);
    Three.Editor.OnExit = CloseOther(Two);
    Choose(One, 1);
    EXPECT_NE(AccountOf(Two) == "B", AccountOf(Three) == "B") << "whoever was first closed the other";
}

// Two views that each insist on an account of their own end the exchange at once.
TEST_F(LinkGroups, ViewsOfDifferentMindsDoNotChaseEachOther) {
    Open(One, "1");
    Open(Two, "1");
    int Rounds = 0;
    const auto Insist = [&Rounds](TView& View, const char* Account) {
        View.Editor.OnExit = [&Rounds, &View, Account](fw::TObject*) {
            ++Rounds;
            View.Editor.SetHint(Account);
        };
    };
    Insist(One, "B");
    Insist(Two, "C");
    One.Editor.Choose(0);
    for (int i = 0; i < 10; ++i) Queue.Pump();
    EXPECT_TRUE(Queue.IsEmpty());
    EXPECT_LE(Rounds, 4);
}

}  // namespace
}  // namespace ws
