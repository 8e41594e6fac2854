// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/WorkspaceFolder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <sstream>

namespace ws {

namespace fs = std::filesystem;
using EFound = TWorkspaceFolder::EFound;

class WorkspaceFolderTest : public testing::Test {
protected:
    WorkspaceFolderTest() { fs::remove_all(Top); }
    ~WorkspaceFolderTest() override { fs::remove_all(Top); }

    static TWorkspaceSections State(int Number) {
        return {{"view", {{"id", std::to_string(Number)}, {"layout", std::string(200, 'x')}}}};
    }
    fs::path File(const std::string& Ending = "") const { return Folder / ("day.workspace" + Ending); }
    static std::string Text(const fs::path& Path) {
        std::ostringstream Result;
        Result << std::ifstream(Path, std::ios::binary).rdbuf();
        return Result.str();
    }
    static void Put(const fs::path& Path, const std::string& Text) { std::ofstream(Path, std::ios::binary) << Text; }
    std::vector<std::string> Files() const {
        std::vector<std::string> Names;
        for (const auto& Each : fs::directory_iterator(Folder)) Names.push_back(Each.path().filename().string());
        std::sort(Names.begin(), Names.end());
        return Names;
    }

    fs::path Top = fs::temp_directory_path() / ("workspaces-" + std::to_string(::getpid()));
    fs::path Folder = Top / "deep" / "user";
    TWorkspaceFolder Workspaces{Folder};
};

TEST_F(WorkspaceFolderTest, WhatIsSavedIsLoaded) {
    EXPECT_EQ(Workspaces.Load("day").Kind, EFound::Nothing);
    EXPECT_FALSE(Workspaces.Has("day"));
    EXPECT_TRUE(Workspaces.Names().empty());
    EXPECT_TRUE(Workspaces.Save("day", State(1)));
    EXPECT_TRUE(Workspaces.Save("../早市 50%", State(2)));
    EXPECT_EQ(Workspaces.Load("day").Kind, EFound::Whole);
    EXPECT_EQ(Workspaces.Load("day").Sections, State(1));
    EXPECT_EQ(Workspaces.Load("../早市 50%").Sections, State(2));
    EXPECT_EQ(Workspaces.Names(), (std::vector<std::string>{"../早市 50%", "day"}));
    EXPECT_EQ(Files().size(), 2u) << "nothing else is left behind";
    EXPECT_TRUE(Workspaces.Has("day"));
}

TEST_F(WorkspaceFolderTest, TheLastTenTextsAreKept) {
    for (int Number = 0; Number <= 14; ++Number) EXPECT_TRUE(Workspaces.Save("day", State(Number)));
    EXPECT_FALSE(Workspaces.Save("day", State(14))) << "the same text is not written again";
    EXPECT_EQ(Files().size(), 11u);
    for (int Number = 1; Number <= 10; ++Number)
        EXPECT_EQ(ReadWorkspaceFile(File("." + std::to_string(Number))).Sections, State(14 - Number));
}

TEST_F(WorkspaceFolderTest, AGapInTheBackupsCostsNone) {
    for (int Number = 0; Number <= 14; ++Number) Workspaces.Save("day", State(Number));
    fs::remove(File(".3"));
    Workspaces.Save("day", State(15));
    for (const auto& [Ending, Number] : {std::pair(".1", 14), {".2", 13}, {".3", 12}, {".4", 10}, {".10", 4}})
        EXPECT_EQ(ReadWorkspaceFile(File(Ending)).Sections, State(Number)) << Ending;
}

TEST_F(WorkspaceFolderTest, ADamagedFileGivesWayToTheYoungestGoodBackup) {
    for (int Number = 1; Number <= 4; ++Number) Workspaces.Save("day", State(Number));
    const std::string Whole = Text(File());
    int Damaged = 0;
    for (const std::string& Bad : {std::string(), Whole.substr(0, Whole.size() / 2), std::string("\0\1\2", 3),
                                   std::string(1 << 20, 'x'), std::string((8 << 20) + 1, '\n')}) {
        Put(File(), Bad);
        const auto Found = Workspaces.Load("day");
        EXPECT_EQ(Found.Kind, EFound::Backup);
        EXPECT_EQ(Found.Sections, State(3));
        EXPECT_EQ(Found.SetAside, File(".damaged-" + std::to_string(++Damaged)));
        EXPECT_EQ(Text(Found.SetAside), Bad) << "it is kept as it was";
        EXPECT_FALSE(fs::exists(File()));
    }
    Put(File(".1"), "cut");
    EXPECT_EQ(Workspaces.Load("day").Sections, State(2)) << "a file that is gone, and a damaged backup";
    EXPECT_EQ(Workspaces.Load("day").SetAside, "");
    EXPECT_EQ(Workspaces.Names(), std::vector<std::string>{"day"});
    EXPECT_TRUE(Workspaces.Has("day"));
    EXPECT_TRUE(Workspaces.Save("day", State(5)));
    EXPECT_EQ(Workspaces.Load("day").Sections, State(5));
}

TEST_F(WorkspaceFolderTest, WithoutAGoodBackupItIsLostButKept) {
    Workspaces.Save("day", State(1));
    Put(File(), "cut");
    const auto Found = Workspaces.Load("day");
    EXPECT_EQ(Found.Kind, EFound::Lost);
    EXPECT_EQ(Text(Found.SetAside), "cut");
    EXPECT_EQ(Workspaces.Load("day").Kind, EFound::Nothing);
}

TEST_F(WorkspaceFolderTest, ATextOfALaterFormatIsNotWrittenOver) {
    Workspaces.Save("day", State(1));
    const std::string Later = "ventiq-workspace=2\n[view]\nid=1\n";
    Put(File(), Later);
    EXPECT_EQ(Workspaces.Load("day").Kind, EFound::Newer);
    EXPECT_EQ(Workspaces.Load("day").Sections.size(), 1u);
    try {
        Workspaces.Save("day", State(2));
        FAIL();
    } catch (const EWorkspaceError& Error) {
        EXPECT_EQ(Error.Reason(), (fw::TRefusal{"Res_WorkspaceNewer", {"day"}}));
    }
    EXPECT_EQ(Text(File()), Later);
    EXPECT_EQ(Files().size(), 1u);
}

TEST_F(WorkspaceFolderTest, WhatCannotBeReadIsNotWrittenOver) {
    fs::create_directories(File() / "inside");  // whoever the test runs as: reading it fails
    EXPECT_EQ(Workspaces.Load("day").Kind, EFound::Unreadable);
    EXPECT_FALSE(Workspaces.Load("day").Reason.empty());
    EXPECT_THROW(Workspaces.Save("day", State(1)), EWorkspaceError);
    EXPECT_TRUE(fs::exists(File() / "inside"));
}

TEST_F(WorkspaceFolderTest, AFailedSaveNamesTheFileAndChangesNothing) {
    Workspaces.Save("day", State(1));
    Workspaces.Save("day", State(2));
    fs::create_directories(File(".new") / "inside");  // the new text has no place
    try {
        Workspaces.Save("day", State(3));
        FAIL();
    } catch (const EWorkspaceError& Error) {
        EXPECT_EQ(Error.Reason().Key, "Res_WorkspaceNotSaved");
        ASSERT_EQ(Error.Reason().Args.size(), 2u);
        EXPECT_EQ(Error.Reason().Args[0], File().string());
    }
    EXPECT_EQ(Workspaces.Load("day").Sections, State(2));
    EXPECT_EQ(ReadWorkspaceFile(File(".1")).Sections, State(1));
}

// As a full disk: no file may grow beyond some bytes.
TEST_F(WorkspaceFolderTest, ATextThatDoesNotFitLeavesTheOldOne) {
    Workspaces.Save("day", State(1));
    rlimit Before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &Before), 0);
    const auto Handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit Tight{100, Before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &Tight), 0);
    EXPECT_THROW(Workspaces.Save("day", State(2)), EWorkspaceError);
    ::setrlimit(RLIMIT_FSIZE, &Before);
    std::signal(SIGXFSZ, Handler);
    EXPECT_EQ(Workspaces.Load("day").Sections, State(1));
    EXPECT_EQ(Files(), std::vector<std::string>{"day.workspace"});
    EXPECT_TRUE(Workspaces.Save("day", State(2))) << "and it works again";
}

TEST_F(WorkspaceFolderTest, RemovingTakesTheBackupsToo) {
    for (int Number = 1; Number <= 3; ++Number) Workspaces.Save("day", State(Number));
    Workspaces.Save("night", State(1));
    Workspaces.Remove("day");
    EXPECT_FALSE(Workspaces.Has("day"));
    EXPECT_EQ(Files(), std::vector<std::string>{"night.workspace"});
}

TEST_F(WorkspaceFolderTest, WithoutAFolderNothingIsWritten) {
    const TWorkspaceFolder None;
    EXPECT_FALSE(None.Keeps());
    EXPECT_FALSE(None.Save("day", State(1)));
    EXPECT_EQ(None.Load("day").Kind, EFound::Nothing);
    EXPECT_TRUE(None.Names().empty());
    EXPECT_FALSE(None.Has("day"));
    None.Remove("day");
}

TEST_F(WorkspaceFolderTest, AFileOfTheUsersChoiceIsWrittenAndRead) {
    fs::create_directories(Folder);
    WriteWorkspaceFile(Folder / "mine.txt", State(7));
    EXPECT_EQ(ReadWorkspaceFile(Folder / "mine.txt").Sections, State(7));
    EXPECT_EQ(ReadWorkspaceFile(Folder / "none.txt").Kind, EFound::Nothing);
    EXPECT_EQ(ReadWorkspaceFile(Folder).Kind, EFound::Unreadable);
    Put(Folder / "other.txt", "dear diary");
    EXPECT_EQ(ReadWorkspaceFile(Folder / "other.txt").Kind, EFound::Lost);
    EXPECT_EQ(Text(Folder / "other.txt"), "dear diary");
    EXPECT_THROW(WriteWorkspaceFile(Folder / "no" / "such" / "folder.txt", State(1)), EWorkspaceError);
}

}  // namespace ws
