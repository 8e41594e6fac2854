// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "framework/base/Log.h"
#include "framework/base/Package.h"
#include "workstation/shell/PackageLoader.h"

namespace gui {

namespace fs = std::filesystem;

class PackageLoaderTest : public testing::Test {
protected:
    PackageLoaderTest() {
        Folder = fs::temp_directory_path() / ("packages-" + std::to_string(::getpid()));
        fs::remove_all(Folder);
        fs::create_directories(Folder);
        Link = fw::TLog::Entries().Connect([this](const fw::TLogEntry& Entry) { Log.push_back(Entry); });
    }
    ~PackageLoaderTest() override { fs::remove_all(Folder); }

    fs::path Put(const char* Module) {
        const fs::path File = fs::path(TEST_PACKAGE_FOLDER) / Module;
        fs::copy_file(File, Folder / Module);
        return Folder / Module;
    }

    fs::path Folder;
    std::vector<fw::TLogEntry> Log;
    fw::TConnection Link;
};

TEST_F(PackageLoaderTest, APackageOfThisVersionIsInitialisedOnce) {
    const fs::path File = fs::path(TEST_PACKAGE_FOLDER) / "package_good.so";  // the one path that no other test loads
    EXPECT_TRUE(ws::LoadPackage(File));
    EXPECT_TRUE(ws::LoadPackage(File));
    ASSERT_EQ(Log.size(), 1u);
    EXPECT_EQ(Log[0].Key, "good package initialised");
}

TEST_F(PackageLoaderTest, EveryFaultIsSaidWithTheFileAndTheReason) {
    std::ofstream(Folder / "text.so") << "not a library at all\n";
    Put("package_other_version.so");
    Put("package_no_entry.so");
    Put("package_throwing.so");
    fs::create_symlink(Folder / "nowhere", Folder / "gone.so");
    struct TCase {
        const char* File;
        const char* Key;
        const char* Reason;  // found in one of the further arguments
    };
    const TCase Cases[] = {{"text.so", "Res_PackageNotPackage", ""},
                           {"package_other_version.so", "Res_PackageWrongVersion", "0.9"},
                           {"package_no_entry.so", "Res_PackageNotPackage", ""},
                           {"package_throwing.so", "Res_PackageFailed", "no licence for today"},
                           {"gone.so", "Res_PackageMissing", nullptr},
                           {"never-there.so", "Res_PackageMissing", nullptr}};
    for (const TCase& Case : Cases) {
        SCOPED_TRACE(Case.File);
        Log.clear();
        EXPECT_FALSE(ws::LoadPackage(Folder / Case.File));
        ASSERT_EQ(Log.size(), 1u);
        EXPECT_EQ(Log[0].Level, fw::ELogLevel::Error);
        EXPECT_EQ(Log[0].Key, Case.Key);
        ASSERT_FALSE(Log[0].Args.empty());
        EXPECT_EQ(Log[0].Args[0], (Folder / Case.File).string());
        if (!Case.Reason) continue;
        ASSERT_GE(Log[0].Args.size(), 2u);
        EXPECT_NE(Log[0].Args[1].find(Case.Reason), fw::Text::npos);
        EXPECT_FALSE(Log[0].Args[1].empty());
    }
}

TEST_F(PackageLoaderTest, AFolderGoesOnPastWhatCannotBeLoaded) {
    std::ofstream(Folder / "a-text.so") << "not a library";
    std::ofstream(Folder / "readme.txt") << "left alone";
    Put("package_good.so");
    EXPECT_EQ(ws::LoadPackages(Folder), 1);  // whether it is initialised now or was in a test before
    std::erase_if(Log, [](const fw::TLogEntry& Entry) { return Entry.Key == "good package initialised"; });
    ASSERT_EQ(Log.size(), 1u);
    EXPECT_EQ(Log[0].Key, "Res_PackageNotPackage");
}

// A variable of the environment for the length of a test; null: unset.
class TEnvironment {
public:
    TEnvironment(const char* Name, const char* Value) : FName(Name) {
        if (const char* Former = std::getenv(Name)) FFormer = Former;
        Set(Value);
    }
    ~TEnvironment() { Set(FFormer ? FFormer->c_str() : nullptr); }
    TEnvironment(const TEnvironment&) = delete;
    TEnvironment& operator=(const TEnvironment&) = delete;

private:
    void Set(const char* Value) { Value ? setenv(FName, Value, 1) : unsetenv(FName); }
    const char* FName;
    std::optional<std::string> FFormer;
};

TEST_F(PackageLoaderTest, TheUsersOwnFolderComesBesideTheInstallationsAndNeedHoldNothing) {
    const TEnvironment Data("XDG_DATA_HOME", Folder.c_str());
    const TEnvironment Given("VENTIQ_PACKAGES", nullptr);
    const fs::path Own = Folder / "ventiq-workstation" / "packages";
    const int Installed = ws::LoadPackages();
    EXPECT_EQ(Installed, 1);
    fs::create_directories(Own);
    EXPECT_EQ(ws::LoadPackages(), Installed);
    EXPECT_TRUE(Log.empty());
    fs::copy_file(fs::path(TEST_PACKAGE_FOLDER) / "package_good.so", Own / "mine.so");
    EXPECT_EQ(ws::LoadPackages(), Installed + 1);
}

TEST_F(PackageLoaderTest, AFolderThatIsNamedTakesThePlaceOfTheUsersOwn) {
    const TEnvironment Data("XDG_DATA_HOME", Folder.c_str());
    const TEnvironment Given("VENTIQ_PACKAGES", Folder.c_str());
    fs::create_directories(Folder / "ventiq-workstation" / "packages");
    std::ofstream(Folder / "ventiq-workstation" / "packages" / "stale.so") << "not a library";
    EXPECT_EQ(ws::LoadPackages(), 1);
    ASSERT_EQ(Log.size(), 1u);
    EXPECT_EQ(Log[0].Key, "Res_PackageMissing");
    Put("package_good.so");
    Log.clear();
    EXPECT_EQ(ws::LoadPackages(), 2);
}

TEST_F(PackageLoaderTest, AFolderWithoutPackagesIsSaid) {
    EXPECT_EQ(ws::LoadPackages(Folder / "nowhere"), 0);
    ASSERT_EQ(Log.size(), 1u);
    EXPECT_EQ(Log[0].Key, "Res_PackageMissing");
}

}  // namespace gui
