// SPDX-License-Identifier: GPL-3.0-or-later
// Opening the store where everything is well, and where it is not.
#include <SQLiteCpp/SQLiteCpp.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <functional>

#include "tests/store/StoreFixture.h"
#include "workstation/store/StoreSchema.h"
#include "workstation/store/StoreTransaction.h"

namespace fs = std::filesystem;

namespace ws::test {
namespace {

const int kWrite = SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE;

void MakeStore(const fs::path& File, const std::string& Value = "dark") {
    TStore::OpenFile(File, kNow).Store->WriteSetting("Shell", "Skin", Value);
}

std::string SkinOf(const TStore& Store) { return Store.ReadSetting("Shell", "Skin").value_or("(none)"); }

TEST(StoreOpen, FirstStartCreatesFoldersAndFile) {
    const TTempFolder Folder;
    const fs::path File = Folder / "a" / "b" / "store.db";
    const auto Opened = TStore::OpenFile(File, kNow);
    EXPECT_TRUE(fs::exists(File));
    EXPECT_TRUE(Opened.Notices.empty());
    EXPECT_EQ(Opened.Store->FileName(), File.string());
    EXPECT_TRUE(Opened.Store->LoadMarket().Products.empty());
}

TEST(StoreOpen, WhatWasWrittenIsThereAtTheNextStart) {
    const TTempFolder Folder;
    MakeStore(Folder / "store.db");
    EXPECT_EQ(SkinOf(*TStore::OpenFile(Folder / "store.db", kNow).Store), "dark");
}

TEST(StoreOpen, FileIsKeptWithLogFullSyncAndVersion) {
    const TTempFolder Folder;
    MakeStore(Folder / "store.db");
    SQLite::Database Db((Folder / "store.db").string());
    EXPECT_EQ(Db.execAndGet("PRAGMA journal_mode").getString(), "wal");
    EXPECT_EQ(Db.execAndGet("PRAGMA user_version").getInt(), kSchemaVersion);
    EXPECT_EQ(Db.execAndGet("PRAGMA application_id").getInt(), kApplicationId);
    EXPECT_EQ(
        Db.execAndGet("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND sql NOT LIKE '%STRICT%'").getInt(),
        0);
}

TEST(StoreOpen, TwoWorkstationsMayShareTheFile) {
    const TTempFolder Folder;
    const auto A = TStore::OpenFile(Folder / "store.db", kNow);
    const auto B = TStore::OpenFile(Folder / "store.db", kNow);
    A.Store->WriteSetting("Shell", "Skin", "light");
    EXPECT_EQ(SkinOf(*B.Store), "light");
}

TEST(StoreOpen, ForeignExclusiveLockIsNamed) {
    const TTempFolder Folder;
    const fs::path File = Folder / "store.db";
    MakeStore(File);
    SQLite::Database Other(File.string(), kWrite);
    Other.exec("PRAGMA locking_mode = EXCLUSIVE");
    Other.exec("BEGIN EXCLUSIVE");
    Other.exec("UPDATE setting SET value = 'x'");
    try {
        TStore::OpenFile(File, kNow);
        FAIL() << "a locked store was opened";
    } catch (const EStoreError& Error) {
        EXPECT_EQ(Error.Key(), kStoreLocked);
        ASSERT_EQ(Error.Args().size(), 1u);
        EXPECT_EQ(Error.Args()[0], File.string());
    }
    Other.exec("ROLLBACK");
}

TEST(StoreOpen, WriteLockHeldByAnotherProgramIsFoundAtOpening) {
    const TTempFolder Folder;
    MakeStore(Folder / "store.db");
    SQLite::Database Other((Folder / "store.db").string(), kWrite);
    Other.exec("BEGIN IMMEDIATE");
    EXPECT_EQ(ErrorKeyOf([&] { TStore::OpenFile(Folder / "store.db", kNow); }), kStoreLocked);
    Other.exec("ROLLBACK");
    EXPECT_EQ(ErrorKeyOf([&] { TStore::OpenFile(Folder / "store.db", kNow); }), "");
}

TEST(StoreOpen, WriteLockTakenLaterFailsTheTransactionOnly) {
    const TTempFolder Folder;
    const auto Mine = TStore::OpenFile(Folder / "store.db", kNow);
    SQLite::Database Other((Folder / "store.db").string(), kWrite);
    Other.exec("BEGIN IMMEDIATE");
    EXPECT_EQ(ErrorKeyOf([&] { TStoreTransaction Write(*Mine.Store); }), kStoreLocked);
    EXPECT_EQ(ErrorKeyOf([&] { Mine.Store->WriteSetting("Shell", "Skin", "x"); }), kStoreLocked);
    Other.exec("ROLLBACK");
    Mine.Store->WriteSetting("Shell", "Skin", "light");
    EXPECT_EQ(SkinOf(*Mine.Store), "light");
}

TEST(StoreOpen, NewerSchemaIsRefusedAndUntouched) {
    const TTempFolder Folder;
    const fs::path File = Folder / "store.db";
    MakeStore(File);
    SQLite::Database(File.string(), kWrite).exec("PRAGMA user_version = 99");
    const std::string Before = ReadFile(File);
    try {
        TStore::OpenFile(File, kNow);
        FAIL() << "a newer store was opened";
    } catch (const EStoreError& Error) {
        EXPECT_EQ(Error.Key(), kStoreNewer);
        EXPECT_EQ(Error.Args(), (std::vector<std::string>{File.string(), "99", std::to_string(kSchemaVersion)}));
    }
    EXPECT_EQ(ReadFile(File), Before);
    EXPECT_EQ(ErrorKeyOf([&] { TStore::InMemoryCopyOf(File); }), kStoreNewer);
}

TEST(StoreOpen, SomebodyElsesDatabaseIsRefusedAndUntouched) {
    const TTempFolder Folder;
    const fs::path File = Folder / "photos.db";
    SQLite::Database(File.string(), kWrite).exec("CREATE TABLE photo (name TEXT)");
    const std::string Before = ReadFile(File);
    EXPECT_EQ(ErrorKeyOf([&] { TStore::OpenFile(File, kNow); }), kStoreForeign);
    EXPECT_EQ(ReadFile(File), Before);
}

TEST(StoreOpen, FolderThatCannotBeCreatedIsNamed) {
    const TTempFolder Folder;
    WriteFile(Folder / "file", "not a folder");
    EXPECT_EQ(ErrorKeyOf([&] { TStore::OpenFile(Folder / "file" / "store.db", kNow); }), kStoreCannotOpen);
    fs::create_directory(Folder / "store.db");
    EXPECT_EQ(ErrorKeyOf([&] { TStore::OpenFile(Folder / "store.db", kNow); }), kStoreCannotOpen);
}

struct TDamage {
    const char* Why;
    std::function<void(const fs::path&)> Do;
};

// A page in the middle overwritten: the header is sound, the content is not.
void OverwriteLaterPages(const fs::path& File) {
    std::fstream Out(File, std::ios::in | std::ios::out | std::ios::binary);
    Out.seekp(4096);
    const std::string Junk(8192, '\xA5');
    Out.write(Junk.data(), static_cast<std::streamsize>(Junk.size()));
}

TEST(StoreOpen, DamagedFileIsSetAsideUnchangedAndAFreshOneStarts) {
    const TDamage Cases[] = {
        {"words instead of a database", [](const fs::path& File) { WriteFile(File, "hello, I am not a database\n"); }},
        {"long junk", [](const fs::path& File) { WriteFile(File, std::string(20000, 'x')); }},
        {"one byte", [](const fs::path& File) { WriteFile(File, "S"); }},
        {"damaged header",
         [](const fs::path& File) {
             auto T = ReadFile(File);
             T[3] = '?';
             WriteFile(File, T);
         }},
        {"overwritten pages", OverwriteLaterPages},
        {"cut short", [](const fs::path& File) { fs::resize_file(File, 6000); }},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        const TTempFolder Folder;
        const fs::path File = Folder / "store.db";
        MakeStore(File);
        Case.Do(File);
        const std::string Damaged = ReadFile(File);
        const auto Opened = TStore::OpenFile(File, kNow);
        const std::string Aside = File.string() + ".corrupt-20261121-090507";
        ASSERT_EQ(Opened.Notices.size(), 1u);
        EXPECT_EQ(Opened.Notices[0].Key, kStoreSetAside);
        EXPECT_EQ(Opened.Notices[0].Args, (std::vector<std::string>{File.string(), Aside}));
        EXPECT_EQ(ReadFile(Aside), Damaged);
        EXPECT_EQ(SkinOf(*Opened.Store), "(none)");
        Opened.Store->WriteSetting("Shell", "Skin", "light");
    }
}

TEST(StoreOpen, SetAsideFilesAreNeverOverwritten) {
    const TTempFolder Folder;
    const fs::path File = Folder / "store.db";
    const std::string Aside = File.string() + ".corrupt-20261121-090507";
    for (const char* Text : {"first wreck, long enough to be read", "second wreck", "third wreck"}) {
        WriteFile(File, Text);
        TStore::OpenFile(File, kNow);
        for (const char* Tail : {"", "-wal", "-shm"}) fs::remove(File.string() + Tail);
    }
    EXPECT_EQ(ReadFile(Aside), "first wreck, long enough to be read");
    EXPECT_EQ(ReadFile(Aside + "-2"), "second wreck");
    EXPECT_EQ(ReadFile(Aside + "-3"), "third wreck");
}

// As after a crash: changes that only the log holds, beside a file that was damaged since. Closing the file must not
// write the log into it, or the wreck would not be what the disk left.
TEST(StoreOpen, LogOfADamagedFileGoesWithItUnchanged) {
    const TDamage Cases[] = {
        {"too short to be a database", [](const fs::path& File) { WriteFile(File, "wreck"); }},
        {"no database", [](const fs::path& File) { WriteFile(File, std::string(20000, 'w')); }},
        {"found by the check only", OverwriteLaterPages},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        const TTempFolder Folder;
        const fs::path File = Folder / "store.db";
        {
            MakeStore(Folder / "live.db", "light");
            const auto Running = TStore::OpenFile(Folder / "live.db", kNow);
            Running.Store->WriteSetting("Shell", "Skin", "dark");
            WriteFile(File, ReadFile(Folder / "live.db"));
            WriteFile(Folder / "store.db-wal", ReadFile(Folder / "live.db-wal"));
        }
        Case.Do(File);
        const std::string Damaged = ReadFile(File);
        const std::string Log = ReadFile(Folder / "store.db-wal");
        ASSERT_GT(Log.size(), 1000u);
        const auto Opened = TStore::OpenFile(File, kNow);
        ASSERT_EQ(Opened.Notices.size(), 1u);
        EXPECT_TRUE(ReadFile(Opened.Notices[0].Args[1]) == Damaged);
        EXPECT_TRUE(ReadFile(Opened.Notices[0].Args[1] + "-wal") == Log);
        EXPECT_EQ(SkinOf(*Opened.Store), "(none)");
    }
}

TEST(StoreOpen, EmptyFileIsAFreshStore) {
    const TTempFolder Folder;
    WriteFile(Folder / "store.db", "");
    EXPECT_TRUE(TStore::OpenFile(Folder / "store.db", kNow).Notices.empty());
}

TEST(StoreCopy, HasTheContentAndWritesNothingToDisk) {
    const TTempFolder Folder;
    const fs::path File = Folder / "store %41?#.db";  // characters that mean something in an address
    MakeStore(File);
    const auto Before = Folder.Content();
    const auto Written = fs::last_write_time(File);
    {
        const auto Copy = TStore::InMemoryCopyOf(File);
        EXPECT_TRUE(Copy.Notices.empty());
        EXPECT_EQ(SkinOf(*Copy.Store), "dark");
        Copy.Store->WriteSetting("Shell", "Skin", "light");
        EXPECT_EQ(SkinOf(*Copy.Store), "light");
        EXPECT_EQ(Folder.Content(), Before);
    }
    EXPECT_EQ(Folder.Content(), Before);
    EXPECT_EQ(fs::last_write_time(File), Written);
    EXPECT_EQ(SkinOf(*TStore::OpenFile(File, kNow).Store), "dark");
}

TEST(StoreCopy, SeesWhatARunningWorkstationHasCommitted) {
    const TTempFolder Folder;
    const auto Running = TStore::OpenFile(Folder / "store.db", kNow);
    Running.Store->WriteSetting("Shell", "Skin", "just now");
    const auto Before = Folder.Content().size();
    EXPECT_EQ(SkinOf(*TStore::InMemoryCopyOf(Folder / "store.db").Store), "just now");
    EXPECT_EQ(Folder.Content().size(), Before);
}

TEST(StoreCopy, WithoutAFileItIsEmptyAndCreatesNone) {
    const TTempFolder Folder;
    const auto Copy = TStore::InMemoryCopyOf(Folder / "none" / "store.db");
    EXPECT_TRUE(Copy.Notices.empty());
    EXPECT_TRUE(Copy.Store->LoadMarket().Exchanges.empty());
    EXPECT_TRUE(Folder.Content().empty());
}

TEST(StoreCopy, DamagedFileGivesAnEmptyCopyANoticeAndStaysWhereItIs) {
    const TTempFolder Folder;
    for (const char* Why : {"junk", "pages"}) {
        SCOPED_TRACE(Why);
        const fs::path File = Folder / (std::string(Why) + ".db");
        MakeStore(File);
        if (std::string(Why) == "junk")
            WriteFile(File, std::string(5000, 'j'));
        else
            OverwriteLaterPages(File);
        const auto Before = Folder.Content();
        const auto Copy = TStore::InMemoryCopyOf(File);
        ASSERT_EQ(Copy.Notices.size(), 1u);
        EXPECT_EQ(Copy.Notices[0].Key, kStoreCopyDamaged);
        EXPECT_EQ(SkinOf(*Copy.Store), "(none)");
        EXPECT_EQ(Folder.Content(), Before);
    }
}

// Runs Work in a child that has no more rights than a stranger; its answer, or "?" where such a child cannot even
// read Folder. Root may write everywhere, so permissions are tested from a child that is not root.
std::string AsStranger(const fs::path& Folder, const std::function<std::string()>& Work) {
    int Pipe[2];
    if (pipe(Pipe) != 0) return "?";
    const pid_t Child = fork();
    if (Child == 0) {
        constexpr unsigned kNobody = 65534;
        if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(1);
        const std::string Answer = access(Folder.c_str(), R_OK | X_OK) == 0 ? Work() : "?";
        const auto Written = write(Pipe[1], Answer.data(), Answer.size());
        _exit(Written < 0 ? 1 : 0);
    }
    close(Pipe[1]);
    std::string Answer;
    char Buffer[256];
    for (ssize_t Size; (Size = read(Pipe[0], Buffer, sizeof Buffer)) > 0;)
        Answer.append(Buffer, static_cast<std::size_t>(Size));
    close(Pipe[0]);
    waitpid(Child, nullptr, 0);
    return Answer.empty() ? "(nothing)" : Answer;
}

std::string OpenAsStranger(const fs::path& Folder, const fs::path& File) {
    return AsStranger(Folder, [&] {
        const std::string Key = ErrorKeyOf([&] { TStore::OpenFile(File, kNow); });
        return Key.empty() ? std::string("opened") : Key;
    });
}

TEST(StoreOpen, FileWithoutWritePermissionIsReadOnly) {
    const TTempFolder Folder;
    const fs::path File = Folder / "store.db";
    MakeStore(File);
    chmod(Folder.Path().c_str(), 0777);
    chmod(File.c_str(), 0444);
    const std::string Answer = OpenAsStranger(Folder.Path(), File);
    if (Answer == "?") GTEST_SKIP() << "an unprivileged child cannot read the temporary folder";
    EXPECT_EQ(Answer, kStoreReadOnly);
    EXPECT_EQ(AsStranger(Folder.Path(), [&] { return SkinOf(*TStore::InMemoryCopyOf(File).Store); }), "dark");
}

TEST(StoreOpen, FolderWithoutWritePermissionIsReadOnly) {
    const TTempFolder Folder;
    const fs::path File = Folder / "store.db";
    MakeStore(File);
    chmod(File.c_str(), 0666);
    chmod(Folder.Path().c_str(), 0555);
    const std::string Answer = OpenAsStranger(Folder.Path(), File);
    const std::string Copied = AsStranger(Folder.Path(), [&] { return SkinOf(*TStore::InMemoryCopyOf(File).Store); });
    const std::string Missing = OpenAsStranger(Folder.Path(), Folder / "new.db");
    chmod(Folder.Path().c_str(), 0777);
    if (Answer == "?") GTEST_SKIP() << "an unprivileged child cannot read the temporary folder";
    EXPECT_EQ(Answer, kStoreReadOnly);
    EXPECT_EQ(Copied, "dark");
    EXPECT_EQ(Missing, kStoreCannotOpen);
}

TEST(StoreOpen, DamagedFileThatCannotBeMovedIsNamed) {
    const TTempFolder Folder;
    const fs::path File = Folder / "store.db";
    WriteFile(File, "wreck");
    chmod(File.c_str(), 0666);
    chmod(Folder.Path().c_str(), 0555);
    const std::string Answer = OpenAsStranger(Folder.Path(), File);
    chmod(Folder.Path().c_str(), 0777);
    if (Answer == "?") GTEST_SKIP() << "an unprivileged child cannot read the temporary folder";
    EXPECT_EQ(Answer, kStoreDamaged);
    EXPECT_EQ(ReadFile(File), "wreck");
}

// A child commits 1, 2, 3, ... and says so after each commit, until it is killed in the middle of it.
TEST(StoreOpen, WhatWasCommittedSurvivesAKill) {
    const TTempFolder Folder;
    const fs::path File = Folder / "store.db";
    int Pipe[2];
    ASSERT_EQ(pipe(Pipe), 0);
    const pid_t Child = fork();
    if (Child == 0) {
        const auto Opened = TStore::OpenFile(File, kNow);
        for (int i = 1;; ++i) {
            TStoreTransaction Write(*Opened.Store);
            Write.WriteSetting("Test", "Last", std::to_string(i));
            Write.WriteMeta("Last", std::to_string(i));
            Write.Commit();
            if (write(Pipe[1], &i, sizeof i) < 0) _exit(1);
        }
    }
    close(Pipe[1]);
    int Told = 0;
    int Last = 0;
    while (Last < 50 && read(Pipe[0], &Told, sizeof Told) == sizeof Told) Last = Told;
    kill(Child, SIGKILL);
    while (read(Pipe[0], &Told, sizeof Told) == sizeof Told) Last = Told;
    waitpid(Child, nullptr, 0);
    close(Pipe[0]);
    ASSERT_GE(Last, 50);
    const auto Opened = TStore::OpenFile(File, kNow);
    EXPECT_TRUE(Opened.Notices.empty());
    const std::string Setting = Opened.Store->ReadSetting("Test", "Last").value_or("0");
    EXPECT_GE(std::stoi(Setting), Last);
    EXPECT_EQ(Opened.Store->ReadMeta("Last"), Setting);  // both of a transaction, or neither
}

TEST(StorePath, FollowsTheDataFolderOfTheDesktop) {
    const auto With = [](const char* Data, const char* Home) {
        const std::string OldData = std::getenv("XDG_DATA_HOME") ? std::getenv("XDG_DATA_HOME") : "";
        const std::string OldHome = std::getenv("HOME") ? std::getenv("HOME") : "";
        setenv("XDG_DATA_HOME", Data, 1);
        setenv("HOME", Home, 1);
        const std::string Path = DefaultStorePath().string();
        if (OldData.empty())
            unsetenv("XDG_DATA_HOME");
        else
            setenv("XDG_DATA_HOME", OldData.c_str(), 1);
        setenv("HOME", OldHome.c_str(), 1);
        return Path;
    };
    EXPECT_EQ(With("/data", "/home/t"), "/data/ventiq-workstation/store.db");
    EXPECT_EQ(With("", "/home/t"), "/home/t/.local/share/ventiq-workstation/store.db");
    EXPECT_EQ(With("relative", "/home/t"), "/home/t/.local/share/ventiq-workstation/store.db");
}

}  // namespace
}  // namespace ws::test
