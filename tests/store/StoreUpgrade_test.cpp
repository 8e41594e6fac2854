// SPDX-License-Identifier: GPL-3.0-or-later
// Files of earlier workstations, made by the very steps that made them.
#include <SQLiteCpp/SQLiteCpp.h>

#include "tests/store/StoreFixture.h"
#include "workstation/store/StoreSchema.h"
#include "workstation/store/StoreTransaction.h"

namespace fs = std::filesystem;

namespace ws::test {
namespace {

void MakeVersion1(const fs::path& File) {
    SQLite::Database Db(File.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    UpgradeSchema(Db, 1);
    Db.exec(
        "INSERT INTO position (account, symbol, qty, avg_price) VALUES ('A2', 'HSIZ6', -2, 26310.5),"
        " ('A1', 'HSIZ6', 5, 0.1), ('A1', 'FLAT', 0, 7)");
    Db.exec("INSERT INTO setting (section, key, value) VALUES ('Shell', 'Skin', 'dark')");
    Db.exec("INSERT INTO meta (key, value) VALUES ('SampleMonths', '3')");
}

int VersionOf(const fs::path& File) {
    return SQLite::Database(File.string()).execAndGet("PRAGMA user_version").getInt();
}

void ExpectUpgraded(const TStore& Store) {
    const auto Rows = Store.LoadExecutions();
    ASSERT_EQ(Rows.size(), 3u);
    EXPECT_EQ(Rows[0].Account, "A2");
    EXPECT_EQ(Rows[0].Symbol, "HSIZ6");
    EXPECT_EQ(Rows[0].Qty, -2);
    EXPECT_EQ(Rows[0].Price, 26310.5);
    EXPECT_EQ(Rows[0].Id + Rows[0].OrderId + Rows[0].Day, "");
    EXPECT_EQ(Rows[1].Account, "A1");
    EXPECT_EQ(Rows[1].Price, 0.1);
    EXPECT_EQ(Store.HeldSymbols(), std::set<std::string>{"HSIZ6"});
    EXPECT_EQ(Store.LoadTrading().Positions.size(), 3u);
    EXPECT_EQ(Store.ReadSetting("Shell", "Skin"), "dark");
    EXPECT_EQ(Store.ReadMeta("SampleMonths"), "3");
}

TEST(StoreUpgrade, PositionsOfVersion1BecomeOpeningExecutions) {
    const TTempFolder Folder;
    MakeVersion1(Folder / "store.db");
    ASSERT_EQ(VersionOf(Folder / "store.db"), 1);
    ExpectUpgraded(*TStore::OpenFile(Folder / "store.db", kNow).Store);
    EXPECT_EQ(VersionOf(Folder / "store.db"), kSchemaVersion);
    ExpectUpgraded(*TStore::OpenFile(Folder / "store.db", kNow).Store);  // and only once
}

TEST(StoreUpgrade, ACopyInMemoryLeavesTheOldFile) {
    const TTempFolder Folder;
    MakeVersion1(Folder / "store.db");
    ExpectUpgraded(*TStore::InMemoryCopyOf(Folder / "store.db").Store);
    EXPECT_EQ(VersionOf(Folder / "store.db"), 1);
}

TEST(StoreUpgrade, AStepThatFailsLeavesTheFileAsItWas) {
    const TTempFolder Folder;
    const auto File = Folder / "store.db";
    MakeVersion1(File);
    SQLite::Database(File.string(), SQLite::OPEN_READWRITE).exec("CREATE TABLE execution (in_the_way TEXT) STRICT");
    EXPECT_EQ(ErrorKeyOf([&] { TStore::OpenFile(File, kNow); }), kStoreFailed);
    EXPECT_EQ(VersionOf(File), 1);
    EXPECT_EQ(SQLite::Database(File.string()).execAndGet("SELECT count(*) FROM position").getInt(), 3);
}

// A file of version 2: what a trader left in it stays, and it takes journals and strategies from now on.
TEST(StoreUpgrade, AFileOfVersion2TakesJournals) {
    const TTempFolder Folder;
    const auto File = Folder / "store.db";
    {
        SQLite::Database Db(File.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        UpgradeSchema(Db, 2);
        Db.exec("INSERT INTO execution (account, symbol, qty, price, day, time) VALUES ('A1', 'HSIZ6', 5, 0.1, '', 0)");
        Db.exec(
            "INSERT INTO client_order VALUES (1, 'tag-1', 'A1', 'HSIZ6', 0, 26310.5, 2, 1, 0, 'b', 1, 1, 'filled', 2,"
            " 26310, '', '', 10, 20)");
        Db.exec("INSERT INTO setting (section, key, value) VALUES ('Shell', 'Skin', 'dark')");
    }
    ASSERT_EQ(VersionOf(File), 2);
    const TJournalKey Key{"Day", "620-1"};
    {
        const auto Store = TStore::OpenFile(File, kNow).Store;
        EXPECT_TRUE(Store->LoadJournal(Key).States.empty());
        TStoreTransaction Write(*Store);
        Write.ChangeJournal(Key, {1, 1, 1, {{1, "state"}}});
        Write.PutStrategy("trader", {"Condor", "", 7, "state"});
        Write.Commit();
    }
    EXPECT_EQ(VersionOf(File), kSchemaVersion);
    const auto Store = TStore::OpenFile(File, kNow).Store;
    EXPECT_EQ(Store->LoadJournal(Key).States, std::vector<std::string>{"state"});
    ASSERT_EQ(Store->LoadOrders().size(), 1u);
    EXPECT_EQ(Store->LoadOrders().front().Id, "tag-1");
    EXPECT_EQ(Store->LoadExecutions().size(), 1u);
    EXPECT_EQ(Store->LoadStrategies("trader").size(), 1u);
    EXPECT_EQ(Store->ReadSetting("Shell", "Skin"), "dark");
}

}  // namespace
}  // namespace ws::test
