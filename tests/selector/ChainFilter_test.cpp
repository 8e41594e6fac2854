// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "workstation/selector/ChainFilter.h"

namespace ws {
namespace {

const TChainFuture kFuture{"HSIZ6", "2026/12/30", true};
const TChainStrike kStrike{24000, "2026/12/30", "HSI", "24000", "24,000", "24000", {"HSI24000L6", "HSI24000X6"}};
// Shown a hundred times as high as it is stated.
const TChainStrike kCopper{
    10.4, "2026/12/18", "CPR", "10.40", "1,040.00", "1040.00", {"CPR2612C10.40", "CPR2612P10.40"}};

// "C", "P" and "F": the sides and the future that fit.
std::string Fitting(const TChainFilter& Filter, const TChainStrike& Strike) {
    std::string Result;
    if (Filter.Fits(Strike, ECallPut::Call)) Result += 'C';
    if (Filter.Fits(Strike, ECallPut::Put)) Result += 'P';
    if (Filter.Fits(kFuture)) Result += 'F';
    return Result;
}

TEST(ChainFilter, WordsNameStrikesSidesAndSymbols) {
    const struct {
        const char *Typed, *Fitting;
    } Cases[] = {{"", "CPF"},
                 {"  ", "CPF"},
                 {"24000", "CP"},
                 {"24", "CP"},
                 {"24,0", "CP"},
                 {"24,000", "CP"},
                 {"240001", ""},
                 {"4000", ""},
                 {"24000c", "C"},
                 {"24000C", "C"},
                 {"24000p", "P"},
                 {"c24000", "C"},
                 {"P24", "P"},
                 {"c 24", "C"},
                 {"24 c", "C"},
                 {"c", "C"},
                 {"ca", "C"},
                 {"call", "C"},
                 {"pu", "P"},
                 {"put", "P"},
                 {"c p", ""},
                 {"hsi", "CPF"},
                 {"HsiZ6", "F"},
                 {"hsi24000l6", "C"},
                 {"hsi 24000", "CP"},
                 {"hsi p", "P"},
                 {"12/30", "CPF"},
                 {"12/18", ""},
                 {"2026/12 24000p", "P"},
                 {"nosuch", ""},
                 {"24000x6", "P"},
                 {"24000 nosuch", ""},
                 {"24\x01 c", "C"},
                 {"\t24000c\r\n", "C"},
                 {"\xF0\x9F\x98\x80", ""},
                 {"认购", ""}};
    for (const auto& Case : Cases) EXPECT_EQ(Fitting(TChainFilter(Case.Typed), kStrike), Case.Fitting) << Case.Typed;
}

TEST(ChainFilter, AStrikeIsFoundAsItIsStatedAndAsItIsShown) {
    for (const char* Typed : {"10.4", "10.40c", "1040", "1,040", "1040.00c", "1,04"})
        EXPECT_TRUE(TChainFilter(Typed).Fits(kCopper, ECallPut::Call)) << Typed;
    for (const char* Typed : {"104.0", "10.41", "1041"})
        EXPECT_FALSE(TChainFilter(Typed).Fits(kCopper, ECallPut::Call)) << Typed;
}

TEST(ChainFilter, ANumberFitsTheSymbolsThatBeginWithIt) {
    const TChainStrike Numbered{50, "2026/12/30", "", "50", "50.00", "50.00", {"00117", "00118"}};
    EXPECT_TRUE(TChainFilter("00117").Fits(Numbered, ECallPut::Call));
    EXPECT_FALSE(TChainFilter("00117").Fits(Numbered, ECallPut::Put));
    EXPECT_FALSE(TChainFilter("117").Fits(Numbered, ECallPut::Call));
    EXPECT_TRUE(TChainFilter("00016").Fits(TChainFuture{"00016", "2026/12/30", true}));
}

TEST(ChainFilter, KnowsAStrikeThatWasTypedInFull) {
    for (const char* Typed : {"24000", "24000c", "24,000", "p 24000"})
        EXPECT_TRUE(TChainFilter(Typed).IsExactly(kStrike)) << Typed;
    for (const char* Typed : {"", "2400", "c", "hsi24000l6"})
        EXPECT_FALSE(TChainFilter(Typed).IsExactly(kStrike)) << Typed;
}

TEST(ChainFilter, AnyTextIsTaken) {
    const std::string Letters(10000, 'x'), Blanks(10000, '\x02'), Zero("24000\0c", 7);
    EXPECT_EQ(Fitting(TChainFilter(Letters), kStrike), "");
    EXPECT_TRUE(TChainFilter(Blanks).IsEmpty());
    EXPECT_EQ(Fitting(TChainFilter(Zero), kStrike), "C");
    std::string Words;
    for (int i = 0; i < 5000; ++i) Words += "c ";
    EXPECT_EQ(Fitting(TChainFilter(Words), kStrike), "C");
}

TEST(ChainFilter, ASideThatIsNotListedNeverFits) {
    const TChainStrike CallOnly{50, "2026/12/30", "A", "50", "50", "50", {"A50C", ""}};
    EXPECT_FALSE(TChainFilter().Fits(CallOnly, ECallPut::Put));
    EXPECT_FALSE(TChainFilter("50p").Fits(CallOnly, ECallPut::Put));
}

}  // namespace
}  // namespace ws
