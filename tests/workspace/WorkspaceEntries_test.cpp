// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/WorkspaceEntries.h"

#include <gtest/gtest.h>

namespace ws {

namespace {

const TViewEntry kView{620, "620-1", "2", "Exchange=HKFE", "top", "620-2", true, true, {-1200, 40, 700, 500}};

}  // namespace

TEST(WorkspaceEntries, AViewIsReadAsItWasWritten) {
    TWorkspaceSection Section;
    WriteView(Section, kView);
    EXPECT_EQ(ReadView(Section), kView);
}

TEST(WorkspaceEntries, WritingLeavesWhatItDoesNotKnow) {
    TWorkspaceSection Section{kViewSection, {{"colour", "green"}, {"id", "7"}, {"zoom", "3"}}};
    WriteView(Section, kView);
    EXPECT_EQ(Section.Get("colour"), "green");
    EXPECT_EQ(Section.Get("zoom"), "3");
    EXPECT_EQ(Section.Fields[1], (std::pair<std::string, std::string>("id", "620")));
}

TEST(WorkspaceEntries, AnEmptyLayoutTextNeverReplacesOne) {
    TWorkspaceSection Section;
    WriteView(Section, kView);
    TViewEntry Empty = kView;
    Empty.Layout.clear();
    WriteView(Section, Empty);
    EXPECT_EQ(ReadView(Section), kView);
}

TEST(WorkspaceEntries, NonsenseInAFieldIsAsIfItWereMissing) {
    const TWorkspaceSection Section{kViewSection,
                                    {{"id", "620"}, {"place", "1,2,3"}, {"floating", "perhaps"}, {"front", ""}}};
    EXPECT_EQ(ReadView(Section), (TViewEntry{620, "", "", "", "", "", false, false, {}}));
    for (const char* Place : {"", ",", "1,2,-3,4", "1,2,3,4,5", "1,2,3,99999999999", "a,b,c,d", "0,0,0,0"}) {
        const TWorkspaceSections Sections{{kWindowSection, {{"place", Place}}}};
        EXPECT_EQ(ReadWindow(Sections).Place, TRectangle()) << Place;
    }
    for (const char* Id : {"", "x", "6.2", "99999999999"})
        EXPECT_EQ(ReadView({kViewSection, {{"id", Id}}}), std::nullopt) << Id;
    EXPECT_EQ(ReadView({"views", {{"id", "620"}}}), std::nullopt);
}

TEST(WorkspaceEntries, TheWindowStandsInFrontAndKeepsItsPlace) {
    const TWindowEntry Window{{10, 20, 1280, 860}, true, true, "AAAA/w=="};
    TWorkspaceSections Sections{{kViewSection, {{"id", "1"}}}};
    WriteWindow(Sections, Window);
    EXPECT_EQ(Sections.front().Name, kWindowSection);
    EXPECT_EQ(ReadWindow(Sections), Window);
    WriteWindow(Sections, {});
    EXPECT_EQ(Sections.size(), 2u);
    EXPECT_EQ(ReadWindow(Sections), TWindowEntry());
    EXPECT_EQ(ReadWindow({}), TWindowEntry());
}

}  // namespace ws
