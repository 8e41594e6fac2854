// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/resources/Skins.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace ws {
namespace {

TEST(Skins, ColoursAreSixHexDigitsAfterAHash) {
    EXPECT_EQ(ParseRgb("#12aBfF"), (TRgb{0x12, 0xAB, 0xFF}));
    for (const char* Wrong : {"", "#", "123456", "#12345", "#1234567", "#12345G", "#+12345", "red"}) {
        SCOPED_TRACE(Wrong);
        EXPECT_EQ(ParseRgb(Wrong), std::nullopt);
    }
    EXPECT_EQ(FormatRgb({0x12, 0xAB, 0x0F}), "#12AB0F");
}

TEST(Skins, TheFrameworkCountsRedLowest) {
    EXPECT_EQ(ToFrameworkColor({255, 0, 0}), 255);
    EXPECT_EQ(ToFrameworkColor({0, 255, 0}), 0xFF00);
    EXPECT_EQ(ToFrameworkColor({0x12, 0x34, 0x56}), 0x563412);
    EXPECT_EQ(FromFrameworkColor(0x563412), (TRgb{0x12, 0x34, 0x56}));
    EXPECT_EQ(FromFrameworkColor(255), (TRgb{255, 0, 0}));
}

TEST(Skins, ContrastIsMeasuredFromOneToTwentyOne) {
    EXPECT_DOUBLE_EQ(ContrastRatio({0, 0, 0}, {255, 255, 255}), 21.0);
    EXPECT_DOUBLE_EQ(ContrastRatio({255, 255, 255}, {0, 0, 0}), 21.0);
    EXPECT_DOUBLE_EQ(ContrastRatio({9, 80, 200}, {9, 80, 200}), 1.0);
    EXPECT_NEAR(ContrastRatio({0x76, 0x76, 0x76}, {255, 255, 255}), 4.54, 0.01);  // the greyest text white paper bears
}

TEST(Skins, AMistakeInTheTableNamesItsLine) {
    const struct {
        const char* Why;
        const char* Csv;
        const char* Line;
    } Cases[] = {{"no skins", "key\na\n", "line 1"},
                 {"a colour missing", "key,Light,Dark\na,#000000\n", "line 2"},
                 {"not a colour", "key,Light\na,#000000\nb,blue\n", "line 3"},
                 {"a key twice", "key,Light\na,#000000\na,#000001\n", "line 3"}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        try {
            TSkinTable::Parse(Case.Csv, "t.csv");
            ADD_FAILURE() << "was read";
        } catch (const std::runtime_error& Error) {
            EXPECT_NE(std::string(Error.what()).find(Case.Line), std::string::npos) << Error.what();
        }
    }
    EXPECT_THROW(TSkinTable::Parse("key,Light\n", "t.csv"), std::runtime_error);
}

TEST(Skins, UnknownSkinsAndKeysHaveNoColour) {
    const TSkinTable Table = TSkinTable::Parse("key,Light\na,#010203\n", "t.csv");
    EXPECT_EQ(Table.Color("Light", "a"), (TRgb{1, 2, 3}));
    EXPECT_EQ(Table.Color("Light", "b"), std::nullopt);
    EXPECT_EQ(Table.Color("Dark", "a"), std::nullopt);
}

TEST(Skins, AColourOfProfitAndLossDependsOnThePalette) {
    const TSkinTable Table = TSkinTable::Parse("key,Light\na.One,#010203\na.Two,#040506\nb,#070809\n", "t.csv");
    EXPECT_EQ(Table.Palettes(), (std::vector<std::string>{"One", "Two"}));
    EXPECT_EQ(Table.Keys(), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(Table.Color("Light", "a"), (TRgb{1, 2, 3}));
    EXPECT_EQ(Table.Color("Light", "a", "Two"), (TRgb{4, 5, 6}));
    EXPECT_EQ(Table.Color("Light", "a", "Three"), (TRgb{1, 2, 3}));
    EXPECT_EQ(Table.Color("Light", "b", "Two"), (TRgb{7, 8, 9}));
    EXPECT_THROW(TSkinTable::Parse("key,Light\na.One,#010203\nb.Two,#040506\n", "t.csv"), std::runtime_error);
}

TEST(Skins, EverySkinSetsTheColoursOfThePayoffView) {
    const TSkinTable& Table = TSkinTable::Embedded();
    EXPECT_EQ(Table.Skins(), (std::vector<std::string>{"Light", "Dark", "HighContrast"}));
    EXPECT_EQ(Table.Palettes(), (std::vector<std::string>{"GreenUp", "RedUp", "BlueOrange"}));
    for (const std::string& Skin : Table.Skins()) {
        SCOPED_TRACE(Skin);
        for (const char* Key : {"coPayOffAlertSeriesColor", "coPayOffInputRowBgColor"}) {
            const auto Color = Table.Color(Skin, Key);
            ASSERT_TRUE(Color.has_value()) << Key;
            EXPECT_NE(ToFrameworkColor(*Color), 255) << Key << " would look like the missing-colour red";
        }
        for (const std::string& Palette : Table.Palettes()) {
            EXPECT_NE(Table.Color(Skin, "coProfit", Palette), Table.Color(Skin, "coLoss", Palette)) << Palette;
            EXPECT_NE(Table.Color(Skin, "coBuy", Palette), Table.Color(Skin, "coSell", Palette)) << Palette;
        }
    }
    EXPECT_GT(ContrastRatio(*Table.Color("Light", "coWindow"), {0, 0, 0}), 10.0);
    EXPECT_GT(ContrastRatio(*Table.Color("Dark", "coWindow"), {255, 255, 255}), 10.0);
    EXPECT_GT(ContrastRatio(*Table.Color("HighContrast", "coText"), *Table.Color("HighContrast", "coBase")), 15.0);
}

// Every text colour on every ground it may stand on, in every skin and palette; lines and marks that carry a meaning
// need less (3).
TEST(Skins, TextsAndMarksCanBeRead) {
    const std::vector<const char*> kRows{"coBase", "coAlternateBase", "coSelectedRow", "coPayOffInputRowBgColor"};
    const auto And = [](std::vector<const char*> Grounds, std::initializer_list<const char*> More) {
        Grounds.insert(Grounds.end(), More);
        return Grounds;
    };
    const struct {
        const char* Front;
        std::vector<const char*> Grounds;
        double Least;
    } Pairs[] = {{"coText", And(kRows, {"coAtTheMoney", "coWindow", "coHeader"}), 4.5},
                 {"coWindowText", {"coWindow", "coHeader", "coBase"}, 4.5},
                 {"coPlaceholderText", And(kRows, {"coWindow", "coAtTheMoney", "coButton"}), 4.5},
                 {"coDisabledText", And(kRows, {"coWindow", "coButton", "coHeader"}), 4.5},
                 {"coButtonText", {"coButton", "coWindow", "coHeader"}, 4.5},
                 {"coHeaderText", {"coHeader", "coWindow"}, 4.5},
                 {"coHighlightedText", {"coHighlight"}, 4.5},
                 {"coToolTipText", {"coToolTip"}, 4.5},
                 {"coLink", {"coBase", "coAlternateBase", "coWindow", "coToolTip"}, 4.5},
                 {"coProfit", And(kRows, {"coWindow", "coChartBackground"}), 4.5},
                 {"coLoss", And(kRows, {"coWindow", "coChartBackground"}), 4.5},
                 {"coBuy", And(kRows, {"coWindow"}), 4.5},
                 {"coSell", And(kRows, {"coWindow"}), 4.5},
                 {"coWarning", And(kRows, {"coWindow", "coButton", "coAtTheMoney"}), 4.5},
                 {"coError", And(kRows, {"coWindow", "coButton", "coAtTheMoney"}), 4.5},
                 {"coNoData", And(kRows, {"coWindow", "coAtTheMoney"}), 4.5},
                 {"coGroupText", {"coGroup1", "coGroup2", "coGroup3", "coGroup4", "coGroup5", "coGroup6"}, 4.5},
                 {"coGroup1", {"coHeader"}, 3.0},
                 {"coGroup2", {"coHeader"}, 3.0},
                 {"coGroup3", {"coHeader"}, 3.0},
                 {"coGroup4", {"coHeader"}, 3.0},
                 {"coGroup5", {"coHeader"}, 3.0},
                 {"coGroup6", {"coHeader"}, 3.0},
                 {"coChartText", {"coChartBackground"}, 4.5},
                 {"coAccent", {"coWindow", "coBase", "coHeader"}, 4.5},
                 {"coChartAxis", {"coChartBackground"}, 3.0},
                 {"coChartLine", {"coChartBackground"}, 3.0},
                 {"coChartCursor", {"coChartBackground"}, 3.0},
                 {"coPayOffAlertSeriesColor", {"coChartBackground"}, 3.0}};
    const TSkinTable& Table = TSkinTable::Embedded();
    for (const std::string& Skin : Table.Skins()) {
        for (const std::string& Palette : Table.Palettes()) {
            for (const auto& Pair : Pairs) {
                for (const char* Ground : Pair.Grounds) {
                    SCOPED_TRACE(Skin + ", " + Palette + ": " + Pair.Front + " on " + Ground);
                    const auto Front = Table.Color(Skin, Pair.Front, Palette);
                    const auto Below = Table.Color(Skin, Ground, Palette);
                    ASSERT_TRUE(Front && Below);
                    EXPECT_GE(ContrastRatio(*Front, *Below), Pair.Least);
                }
            }
        }
    }
}

}  // namespace
}  // namespace ws
