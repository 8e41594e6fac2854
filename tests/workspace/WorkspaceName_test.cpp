// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/WorkspaceName.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace ws {

RC_GTEST_PROP(WorkspaceName, AnyNameComesBackFromItsFile, (const std::string& Name)) {
    const std::string File = FileNameOf(Name);
    RC_ASSERT(NameOfFile(File) == Name);
    RC_ASSERT(File.find_first_of(std::string("/\\.:*?\"<>|\0", 11)) == std::string::npos);
}

TEST(WorkspaceName, NamesThatPeopleGiveStayReadable) {
    EXPECT_EQ(FileNameOf("Morning (2)"), "Morning (2)");
    EXPECT_EQ(FileNameOf("早市"), "早市");
    EXPECT_EQ(FileNameOf("../a"), "%2E%2E%2Fa");
    EXPECT_EQ(NameOfFile("100%"), "100%");
    EXPECT_EQ(NameOfFile("%zz"), "%zz");
}

TEST(WorkspaceName, AnEmptyOrTooLongNameIsRefused) {
    EXPECT_EQ(NameRefusal("")->Key, "Res_WorkspaceNameEmpty");
    EXPECT_EQ(NameRefusal(" \t")->Key, "Res_WorkspaceNameEmpty");
    EXPECT_EQ(NameRefusal(std::string(121, 'a'))->Key, "Res_WorkspaceNameLong");
    EXPECT_EQ(NameRefusal(std::string(100, '/'))->Key, "Res_WorkspaceNameLong") << "its file's name would be";
    EXPECT_EQ(NameRefusal(std::string(120, 'a')), std::nullopt);
    EXPECT_EQ(NameRefusal("/"), std::nullopt);
}

}  // namespace ws
