// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/StoreLock.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <memory>

#include "workstation/store/Store.h"

namespace ws {

namespace fs = std::filesystem;

class StoreLockTest : public testing::Test {
protected:
    ~StoreLockTest() override { fs::remove_all(Folder); }
    fs::path Folder = fs::temp_directory_path() / ("lock-" + std::to_string(::getpid()));
    fs::path Store = Folder / "deep" / "store.db";
};

TEST_F(StoreLockTest, ASecondWorkstationIsRefusedUntilTheFirstHasEnded) {
    auto First = std::make_unique<TStoreLock>(Store);
    try {
        const TStoreLock Second(Store);
        FAIL();
    } catch (const EStoreError& Error) {
        EXPECT_STREQ(Error.Key().c_str(), "Res_StoreInUse");
        EXPECT_EQ(Error.Args(), std::vector<std::string>{Store.string()});
    }
    const TStoreLock Other(Folder / "other.db");
    First.reset();
    const TStoreLock Third(Store);
}

TEST_F(StoreLockTest, AKilledWorkstationHoldsNothing) {
    int Ready[2];
    ASSERT_EQ(::pipe(Ready), 0);
    const pid_t Child = ::fork();
    if (Child == 0) {
        const TStoreLock Lock(Store);
        if (::write(Ready[1], "x", 1) != 1) ::_exit(1);
        for (;;) ::pause();
    }
    char Byte;
    ASSERT_EQ(::read(Ready[0], &Byte, 1), 1);
    EXPECT_THROW(TStoreLock{Store}, EStoreError);
    ::kill(Child, SIGKILL);
    ::waitpid(Child, nullptr, 0);
    EXPECT_NO_THROW(TStoreLock{Store});
    ::close(Ready[0]);
    ::close(Ready[1]);
}

// The headless job and the import work beside a window, as the database's own locks allow.
TEST_F(StoreLockTest, TheStoreItselfIsNotLocked) {
    const TStoreLock Lock(Store);
    EXPECT_NO_THROW(TStore::OpenFile(Store, "2026/11/21 09:00:00"));
    EXPECT_NO_THROW(TStore::InMemoryCopyOf(Store));
}

TEST_F(StoreLockTest, AFolderThatCannotBeMadeIsTheStoresToTell) {
    fs::create_directories(Folder);
    fs::create_directories(Folder / "plain.lock");
    EXPECT_NO_THROW(TStoreLock{Folder / "plain"});
    EXPECT_NO_THROW(TStoreLock{fs::path("/dev/null/store.db")});
}

}  // namespace ws
