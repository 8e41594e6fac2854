// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/CommandLine.h"

#include <gtest/gtest.h>

#include "workstation/resources/Texts.h"

namespace ws {

TEST(CommandLine, NothingOpensTheWindow) { EXPECT_EQ(ParseCommandLine({}).Mode, ERunMode::Window); }

TEST(CommandLine, AHeadlessJobIsReadWhole) {
    const auto Line = ParseCommandLine({"--headless",
                                        "--import",
                                        "chain.csv",
                                        "--exchange",
                                        "CBOE",
                                        "--series",
                                        "SPX",
                                        "--month",
                                        "2023-02",
                                        "--leg",
                                        "SPX230217C04100000,buy,55.5,1",
                                        "--leg",
                                        "SPX230217C04200000,sell,20,2",
                                        "--down",
                                        "3,900",
                                        "--up",
                                        "4300",
                                        "--interval",
                                        "25",
                                        "--out",
                                        "out",
                                        "--skip-bad-lines",
                                        "--date-order",
                                        "day-first"});
    EXPECT_EQ(Line.Mode, ERunMode::Headless);
    EXPECT_EQ(Line.ImportFile, "chain.csv");
    EXPECT_TRUE(Line.SkipBadLines);
    EXPECT_EQ(Line.DateOrder, EDateOrder::DayFirst);
    EXPECT_EQ(Line.Strategy.Exchange, "CBOE");
    ASSERT_EQ(Line.Strategy.Legs.size(), 2u);
    EXPECT_EQ(Line.Strategy.Legs[1].Symbol, "SPX230217C04200000");
    EXPECT_EQ(Line.Strategy.Legs[1].Side, ELegSide::Sell);
    EXPECT_EQ(Line.Strategy.Legs[1].Premium, 20.0);
    EXPECT_EQ(Line.Strategy.Legs[1].Qty, 2.0);
    EXPECT_EQ(Line.Strategy.Down, 3900.0);
    EXPECT_EQ(Line.Out, "out");
}

TEST(CommandLine, ImportTakesOneFile) {
    const auto Line = ParseCommandLine({"import", "chain.csv", "--skip-bad-lines"});
    EXPECT_EQ(Line.Mode, ERunMode::Import);
    EXPECT_EQ(Line.ImportFile, "chain.csv");
}

TEST(CommandLine, HelpWinsOverEverything) {
    EXPECT_EQ(ParseCommandLine({"--headless", "--nonsense", "--help"}).Mode, ERunMode::Help);
}

TEST(CommandLine, TheViewsAreListedAndOneOfThemDrawn) {
    EXPECT_EQ(ParseCommandLine({"--list-views", "--user", "clerk"}).Mode, ERunMode::ListViews);
    const auto Line = ParseCommandLine({"--picture", "--view", "Mine_1", "--out", "mine.png"});
    EXPECT_EQ(Line.Mode, ERunMode::Picture);
    EXPECT_EQ(Line.View, "Mine_1");
}

TEST(CommandLine, WrongArgumentsAreNamed) {
    const struct {
        const char* Why;
        std::vector<std::string> Arguments;
        const char* Key;
    } Cases[] = {
        {"unknown", {"--fast"}, "Res_UsageUnknown"},
        {"a stray word", {"chain.csv"}, "Res_UsageUnknown"},
        {"two files", {"import", "a", "b"}, "Res_UsageUnknown"},
        {"no file", {"import"}, "Res_UsageImportFile"},
        {"no value", {"--headless", "--out"}, "Res_UsageValue"},
        {"no folder", {"--headless"}, "Res_UsageOut"},
        {"no picture file", {"--picture"}, "Res_UsageOut"},
        {"a word for a number", {"--headless", "--down", "low", "--out", "o"}, "Res_UsageNumber"},
        {"not finite", {"--headless", "--down", "nan", "--out", "o"}, "Res_UsageNumber"},
        {"a leg without quantity", {"--headless", "--leg", "HSI,buy,1", "--out", "o"}, "Res_UsageLeg"},
        {"a leg with an unknown side", {"--headless", "--leg", "HSI,hold,1,1", "--out", "o"}, "Res_UsageLeg"},
        {"a leg with too much", {"--headless", "--leg", "HSI,buy,1,1,", "--out", "o"}, "Res_UsageLeg"},
        {"import without legs", {"--headless", "--import", "f", "--out", "o"}, "Res_UsageImportLegs"},
        {"a view without a picture", {"--view", "Mine_1"}, "Res_UsageMode"},
        {"a view among all", {"--list-views", "--view", "Mine_1"}, "Res_UsageMode"},
        {"legs in a window", {"--leg", "HSI,buy,1,1"}, "Res_UsageMode"},
        {"date order", {"import", "f", "--date-order", "upwards"}, "Res_UsageDateOrder"},
        {"skin", {"--skin", "Pink"}, "Res_UsageSkin"},
        {"language", {"--language", "tlh"}, "Res_UsageLanguage"},
        {"number format", {"--number-format", "roman"}, "Res_UsageNumberFormat"},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        try {
            ParseCommandLine(C.Arguments);
            ADD_FAILURE() << "accepted";
        } catch (const TUsageError& Error) {
            EXPECT_EQ(Error.Key, C.Key);
            EXPECT_TRUE(TTextTable::Embedded().Contains(kTagResource, Error.Key));
        }
    }
}

}  // namespace ws
