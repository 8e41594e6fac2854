// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/WorkspaceText.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace ws {

namespace {

const TWorkspaceSections kSample{
    {"window", {{"place", "0,0,1280,860"}, {"locked", "0"}}},
    {"view", {{"id", "620"}, {"key", "620-1"}, {"layout", "Exchange=HKFE,\"ColList=a b\""}}},
    {"later", {{"thing", "kept"}}}};

}  // namespace

TEST(WorkspaceText, IsReadableLineByLine) {
    const std::string Text = WriteWorkspace({{"view", {{"key", "620-1"}, {"layout", "a=b\\c\nd"}}}});
    EXPECT_TRUE(Text.starts_with("ventiq-workspace=1\n[view]\nkey=620-1\nlayout=a=b\\\\c\\nd\nend=")) << Text;
    EXPECT_TRUE(Text.ends_with('\n'));
}

RC_GTEST_PROP(WorkspaceText, WhatIsWrittenReadsAsTheSame, ()) {
    TWorkspaceSections Sections;
    for (const auto& [Name, Fields] :
         *rc::gen::arbitrary<std::vector<std::pair<std::string, std::vector<std::pair<std::string, std::string>>>>>())
        Sections.push_back({Name, Fields});
    const TWorkspaceRead Read = ReadWorkspace(WriteWorkspace(Sections));
    RC_ASSERT(Read.State == EWorkspaceState::Whole);
    RC_ASSERT(Read.Sections == Sections);
}

TEST(WorkspaceText, EveryByteSurvivesInNamesAndValues) {
    std::string All;
    for (int Byte = 0; Byte < 256; ++Byte) All += static_cast<char>(Byte);
    const TWorkspaceSections Sections{{All, {{All, All}, {"", ""}, {"[x]", "=\\n"}}}, {"", {}}, {"]", {}}};
    EXPECT_EQ(ReadWorkspace(WriteWorkspace(Sections)).Sections, Sections);
}

TEST(WorkspaceText, ACutTextIsNoWholeOneWhereverItIsCut) {
    const std::string Text = WriteWorkspace(kSample);
    for (size_t Length = 0; Length + 1 < Text.size(); ++Length)
        EXPECT_EQ(ReadWorkspace(Text.substr(0, Length)).State, EWorkspaceState::Damaged) << Length;
    EXPECT_EQ(ReadWorkspace(Text.substr(0, Text.size() - 1)).Sections, kSample) << "only the last line break is gone";
}

TEST(WorkspaceText, AChangedByteIsSeen) {
    const std::string Text = WriteWorkspace(kSample);
    for (size_t At = 0; At + 1 < Text.size(); ++At) {
        std::string Changed = Text;
        Changed[At] = Changed[At] == 'x' ? 'y' : 'x';
        EXPECT_NE(ReadWorkspace(Changed).State, EWorkspaceState::Whole) << At;
    }
}

TEST(WorkspaceText, AFileThatWentThroughAnotherSystemIsWhole) {
    std::string Text;
    for (const char C : WriteWorkspace(kSample)) Text += C == '\n' ? std::string("\r\n") : std::string(1, C);
    EXPECT_EQ(ReadWorkspace(Text).Sections, kSample);
}

TEST(WorkspaceText, WhatIsNoWorkspaceIsDamaged) {
    for (const std::string& Text :
         {std::string(), std::string("\n\n"),
          std::string("\x7f"
                      "ELF\0\0\1\2",
                      8),
          std::string(1 << 20, '\0'), std::string(1 << 20, '['), std::string("ventiq-workspace=\nend=0"),
          std::string("ventiq-workspace=0\n"), std::string("ventiq-workspace=-1\n"),
          std::string("ventiq-workspace=1x\n"), std::string("[view]\nid=1\n")})
        EXPECT_EQ(ReadWorkspace(Text).State, EWorkspaceState::Damaged) << Text.substr(0, 20);
}

TEST(WorkspaceText, AMegabyteOfLayoutTextIsRead) {
    const TWorkspaceSections Large{{"view", {{"layout", std::string(1 << 20, '\\')}}}};
    EXPECT_EQ(ReadWorkspace(WriteWorkspace(Large)).Sections, Large);
}

TEST(WorkspaceText, ALaterFormatIsToldFromDamage) {
    const TWorkspaceRead Read = ReadWorkspace("ventiq-workspace=2\n[view]\nid=620\nnew thing\nend=other sum\n");
    EXPECT_EQ(Read.State, EWorkspaceState::Newer);
    EXPECT_EQ(Read.Sections, (TWorkspaceSections{{"view", {{"id", "620"}, {"new thing", ""}}}}));
    EXPECT_EQ(ReadWorkspace("ventiq-workspace=99999999999999999999\n").State, EWorkspaceState::Newer);
}

TEST(WorkspaceText, AFieldIsSetAtItsPlace) {
    TWorkspaceSection Section{"view", {{"a", "1"}, {"b", "2"}, {"a", "3"}}};
    Section.Set("a", "4");
    Section.Set("c", "5");
    EXPECT_EQ(Section, (TWorkspaceSection{"view", {{"a", "4"}, {"b", "2"}, {"a", "3"}, {"c", "5"}}}));
    EXPECT_EQ(Section.Get("a"), "4");
    EXPECT_EQ(Section.Get("d"), "");
}

}  // namespace ws
