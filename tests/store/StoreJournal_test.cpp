// SPDX-License-Identifier: GPL-3.0-or-later
#include <random>

#include "tests/store/StoreFixture.h"
#include "workstation/store/StoreTransaction.h"

namespace ws::test {
namespace {

const TJournalKey kView{"Day", "620-1"};
const TJournalKey kOther{"Day", "620-2"};

void Change(TStore& Store, const TJournalKey& Key, const TJournalChange& Changed) {
    TStoreTransaction Write(Store);
    Write.ChangeJournal(Key, Changed);
    Write.Commit();
}

std::vector<std::string> StatesOf(const TStore& Store, const TJournalKey& Key) { return Store.LoadJournal(Key).States; }
using TStates = std::vector<std::string>;

TEST(StoreJournal, AJournalThatIsNotThereHasNoStates) {
    const auto Store = TStore::CreateInMemory();
    EXPECT_TRUE(Store->LoadJournal(kView).States.empty());
    EXPECT_EQ(Store->LoadJournal(kView).First, 1);
}

TEST(StoreJournal, StatesStandUnderTheirNumbersAndOutliveTheProgram) {
    const TTempFolder Folder;
    {
        const auto Store = TStore::OpenFile(Folder / "store.db", kNow).Store;
        Change(*Store, kView, {1, 3, 2, {{1, "a"}, {2, "b"}, {3, "c,\"\n\xE6\x9C\x88"}}});
        Change(*Store, kOther, {1, 1, 1, {{1, "other"}}});
    }
    const auto Store = TStore::OpenFile(Folder / "store.db", kNow).Store;
    const auto Rows = Store->LoadJournal(kView);
    EXPECT_EQ(Rows.First, 1);
    EXPECT_EQ(Rows.Current, 2);
    EXPECT_EQ(Rows.States, (TStates{"a", "b", "c,\"\n\xE6\x9C\x88"}));
    EXPECT_EQ(StatesOf(*Store, kOther), TStates{"other"});
}

TEST(StoreJournal, AChangeReplacesStatesAndDropsThoseOutside) {
    const auto Store = TStore::CreateInMemory();
    Change(*Store, kView, {1, 4, 4, {{1, "a"}, {2, "b"}, {3, "c"}, {4, "d"}}});
    Change(*Store, kView, {2, 3, 3, {{3, "C"}}});
    const auto Rows = Store->LoadJournal(kView);
    EXPECT_EQ(Rows.First, 2);
    EXPECT_EQ(Rows.Current, 3);
    EXPECT_EQ(Rows.States, (TStates{"b", "C"}));
}

TEST(StoreJournal, AWorkspaceIsCopiedOverAnotherAndRemoved) {
    const auto Store = TStore::CreateInMemory();
    const TJournalKey Copy{"Night", "620-1"}, Gone{"Night", "620-9"};
    Change(*Store, kView, {5, 6, 5, {{5, "a"}, {6, "b"}}});
    Change(*Store, Gone, {1, 1, 1, {{1, "gone"}}});
    {
        TStoreTransaction Write(*Store);
        Write.CopyJournals("Day", "Night");
        Write.CopyJournals("Day", "Day");
        Write.Commit();
    }
    EXPECT_EQ(StatesOf(*Store, Copy), (TStates{"a", "b"}));
    EXPECT_EQ(Store->LoadJournal(Copy).Current, 5);
    EXPECT_TRUE(StatesOf(*Store, Gone).empty());
    Change(*Store, Copy, {5, 5, 5, {{5, "own"}}});
    EXPECT_EQ(StatesOf(*Store, kView), (TStates{"a", "b"}));
    {
        TStoreTransaction Write(*Store);
        Write.RemoveJournals("Day");
        Write.Commit();
    }
    EXPECT_TRUE(StatesOf(*Store, kView).empty());
    EXPECT_EQ(StatesOf(*Store, Copy), TStates{"own"});
    {
        TStoreTransaction Write(*Store);
        Write.RemoveJournal(Copy);
        Write.Commit();
    }
    EXPECT_TRUE(StatesOf(*Store, Copy).empty());
}

TEST(StoreJournal, WhatIsNotCommittedIsNotThere) {
    const auto Store = TStore::CreateInMemory();
    Change(*Store, kView, {1, 1, 1, {{1, "a"}}});
    {
        TStoreTransaction Write(*Store);
        Write.ChangeJournal(kView, {1, 2, 2, {{2, "b"}}});
        Write.PutStrategy("trader", {"Condor", "", 0, "s"});
    }
    EXPECT_EQ(StatesOf(*Store, kView), TStates{"a"});
    EXPECT_EQ(Store->LoadJournal(kView).Current, 1);
    EXPECT_TRUE(Store->LoadStrategies("trader").empty());
}

TEST(StoreJournal, StrategiesAreEachUsersOwn) {
    const auto Store = TStore::CreateInMemory();
    {
        TStoreTransaction Write(*Store);
        Write.PutStrategy("trader", {"Straddle", "for the numbers", 100, "s1"});
        Write.PutStrategy("trader", {"Condor", "", 101, "s2"});
        Write.PutStrategy("other", {"Condor", "mine", 102, "s3"});
        Write.PutStrategy("trader", {"Condor", "wider", 103, "s4"});
        Write.Commit();
    }
    auto Rows = Store->LoadStrategies("trader");
    ASSERT_EQ(Rows.size(), 2u);
    EXPECT_EQ(Rows[0].Name, "Condor");
    EXPECT_EQ(Rows[0].Note, "wider");
    EXPECT_EQ(Rows[0].Changed, 103);
    EXPECT_EQ(Rows[0].State, "s4");
    EXPECT_EQ(Rows[1].Name, "Straddle");
    {
        TStoreTransaction Write(*Store);
        Write.RemoveStrategy("trader", "Condor");
        Write.RemoveStrategy("trader", "none of that name");
        Write.Commit();
    }
    Rows = Store->LoadStrategies("trader");
    ASSERT_EQ(Rows.size(), 1u);
    EXPECT_EQ(Rows[0].Name, "Straddle");
    EXPECT_EQ(Store->LoadStrategies("other").size(), 1u);
}

TEST(StoreJournal, AFileThatAnotherProgramHoldsIsLockedAndKeepsWhatItHas) {
    const TTempFolder Folder;
    const auto Store = TStore::OpenFile(Folder / "store.db", kNow).Store;
    Change(*Store, kView, {1, 1, 1, {{1, "a"}}});
    const auto Holder = TStore::OpenFile(Folder / "store.db", kNow).Store;
    {
        TStoreTransaction Held(*Holder);
        EXPECT_EQ(ErrorKeyOf([&] { Change(*Store, kView, {1, 2, 2, {{2, "b"}}}); }), kStoreLocked);
    }
    EXPECT_EQ(StatesOf(*Store, kView), TStates{"a"});
    Change(*Store, kView, {1, 2, 2, {{2, "b"}}});
    EXPECT_EQ(StatesOf(*Store, kView), (TStates{"a", "b"}));
}

}  // namespace
}  // namespace ws::test
