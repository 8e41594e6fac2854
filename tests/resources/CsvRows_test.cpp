// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/resources/CsvRows.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace ws {
namespace {

TEST(CsvRows, QuotedFieldsHoldCommasQuotesAndLineBreaks) {
    const auto Rows = ReadCsvRows("a,b\n\"x, y\",\"say \"\"hi\"\"\"\n\"two\nlines\",\n", "t.csv");
    ASSERT_EQ(Rows.size(), 3u);
    EXPECT_EQ(Rows[1].FFields, (std::vector<std::string>{"x, y", "say \"hi\""}));
    EXPECT_EQ(Rows[2].FFields, (std::vector<std::string>{"two\nlines", ""}));
}

TEST(CsvRows, BlankLinesGiveNoRowAndLinesAreCounted) {
    const auto Rows = ReadCsvRows("a\r\n\r\nb\n", "t.csv");
    ASSERT_EQ(Rows.size(), 2u);
    EXPECT_EQ(Rows[1].FFields[0], "b");
    EXPECT_EQ(Rows[1].FLine, 3u);
}

TEST(CsvRows, ALastLineWithoutLineBreakCounts) {
    const auto Rows = ReadCsvRows("a,b", "t.csv");
    ASSERT_EQ(Rows.size(), 1u);
    EXPECT_EQ(Rows[0].FFields, (std::vector<std::string>{"a", "b"}));
}

TEST(CsvRows, BrokenQuotesNameTheFileAndTheLine) {
    for (const char* Broken : {"a\nb\"c,d\n", "a\n\"open"}) {
        SCOPED_TRACE(Broken);
        try {
            ReadCsvRows(Broken, "t.csv");
            FAIL() << "was read";
        } catch (const std::runtime_error& Error) {
            EXPECT_NE(std::string(Error.what()).find("t.csv, line 2"), std::string::npos) << Error.what();
        }
    }
}

}  // namespace
}  // namespace ws
