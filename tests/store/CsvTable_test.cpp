// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/CsvTable.h"

#include "tests/store/StoreFixture.h"

namespace ws::test {
namespace {

struct TRead {
    TCsvTable Table;
    std::vector<TLineProblem> Problems;
};

TRead Read(const std::string& Text) {
    const TTempFolder Folder;
    WriteFile(Folder / "t.csv", Text);
    TRead R;
    R.Table = ReadCsv(Folder / "t.csv", R.Problems);
    return R;
}

TEST(CsvTable, ReadsWhatSpreadsheetsWrite) {
    const TRead R = Read(
        "\xEF\xBB\xBF"
        "A,B\r\n1,\"x, \"\"y\"\"\"\r\n 2 ,\r\n");
    EXPECT_TRUE(R.Problems.empty());
    EXPECT_EQ(R.Table.Header, (std::vector<std::string>{"A", "B"}));
    ASSERT_EQ(R.Table.Rows.size(), 2u);
    EXPECT_EQ(R.Table.Rows[0].Cells, (std::vector<std::string>{"1", "x, \"y\""}));
    EXPECT_EQ(R.Table.Rows[1].Cells, (std::vector<std::string>{"2", ""}));
}

TEST(CsvTable, KnowsTheLineOfEveryRow) {
    const TRead R = Read("# remark\n\nA,B\n1,2\n# another\n\n3,\"four\n# not a remark\nlines\"\n5,6");
    EXPECT_TRUE(R.Problems.empty());
    EXPECT_EQ(R.Table.HeaderLine, 3);
    ASSERT_EQ(R.Table.Rows.size(), 3u);
    EXPECT_EQ(R.Table.Rows[0].Line, 4);
    EXPECT_EQ(R.Table.Rows[1].Line, 7);
    EXPECT_EQ(R.Table.Rows[1].Cells[1], "four\n# not a remark\nlines");
    EXPECT_EQ(R.Table.Rows[2].Line, 10);
}

TEST(CsvTable, RowsOfAnotherWidthAreReportedAndLeftOut) {
    const TRead R = Read("A,B\n1\n2,3\n4,5,6\n");
    ASSERT_EQ(R.Table.Rows.size(), 1u);
    EXPECT_EQ(R.Table.Rows[0].Line, 3);
    ASSERT_EQ(R.Problems.size(), 2u);
    EXPECT_EQ(R.Problems[0].Line, 2);
    EXPECT_EQ(R.Problems[0].Key, kLineCellCount);
    EXPECT_EQ(R.Problems[0].Args, (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(R.Problems[1].Line, 4);
}

TEST(CsvTable, BrokenQuotesAreReported) {
    for (const char* Text : {"A,B\n1,2\n3,\"x\"y\n", "A,B\n1,2\n3,\"never closed\n5,6\n"}) {
        SCOPED_TRACE(Text);
        const TRead R = Read(Text);
        ASSERT_EQ(R.Problems.size(), 1u);
        EXPECT_EQ(R.Problems[0].Line, 3);
        EXPECT_EQ(R.Problems[0].Key, kLineBrokenQuote);
        EXPECT_EQ(R.Table.Rows.size(), 1u);
    }
}

TEST(CsvTable, MissingFileIsReported) {
    std::vector<TLineProblem> Problems;
    EXPECT_TRUE(ReadCsv("/nowhere/t.csv", Problems).Rows.empty());
    ASSERT_EQ(Problems.size(), 1u);
    EXPECT_EQ(Problems[0].File, "t.csv");
    EXPECT_EQ(Problems[0].Key, kLineNoFile);
}

}  // namespace
}  // namespace ws::test
