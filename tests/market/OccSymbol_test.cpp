// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/OccSymbol.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include "workstation/market/MarketDay.h"

namespace {

TEST(OccSymbol, GivesRootExpirySideAndStrike) {
    const auto Symbol = ws::ParseOccSymbol("SPXW230203P01012500");
    ASSERT_TRUE(Symbol);
    EXPECT_EQ(Symbol->Root, "SPXW");
    EXPECT_EQ(ws::MarketDayText(Symbol->Expiry), "2023/02/03");
    EXPECT_EQ(Symbol->CallPut, 'P');
    EXPECT_EQ(Symbol->StrikeText(), "1012.5");
    EXPECT_EQ(Symbol->Strike(), 1012.5);
    EXPECT_EQ(Symbol->Text(), "SPXW230203P01012500");
}

TEST(OccSymbol, PaddedAndLowerCaseMeanTheSame) {
    for (const char* Text : {"spx   230217c04100000", "SPX230217C04100000", "  SPX 230217C04100000 "}) {
        SCOPED_TRACE(Text);
        const auto Symbol = ws::ParseOccSymbol(Text);
        ASSERT_TRUE(Symbol);
        EXPECT_EQ(Symbol->Text(), "SPX230217C04100000");
    }
}

TEST(OccSymbol, StrikeTextIsExactAndShortest) {
    const std::pair<const char*, const char*> Cases[] = {
        {"00000001", "0.001"}, {"00000500", "0.5"},    {"00012500", "12.5"},      {"00007125", "7.125"},
        {"01000000", "1000"},  {"00100010", "100.01"}, {"99999999", "99999.999"}, {"00000000", "0"}};
    for (const auto& [Digits, Expected] : Cases) {
        SCOPED_TRACE(Digits);
        const auto Symbol = ws::ParseOccSymbol(std::string("ABC230217C") + Digits);
        ASSERT_TRUE(Symbol);
        EXPECT_EQ(Symbol->StrikeText(), Expected);
    }
}

TEST(OccSymbol, RefusesWhatIsNone) {
    for (const char* Text : {"", "SPX", "230217C04100000", "SPX230217X04100000", "SPX230230C04100000",
                             "SPX231317C04100000", "SPX230217C0410000", "SPX230217C041000A0", "1SPX230217C04100000",
                             "TOOLONGR230217C04100000", "S X230217C04100000", "HSI27000A9W25", "SPX230217C-4100000"})
        EXPECT_FALSE(ws::ParseOccSymbol(Text)) << Text;
}

RC_GTEST_PROP(OccSymbol, ReadsWhatItWrites, ()) {
    ws::TOccSymbol Symbol;
    Symbol.Root =
        *rc::gen::nonEmpty(rc::gen::container<std::string>(rc::gen::inRange('A', static_cast<char>('Z' + 1))));
    Symbol.Root.resize(std::min<std::size_t>(Symbol.Root.size(), 6));
    Symbol.Expiry =
        std::chrono::sys_days{std::chrono::year{2000} / 1 / 1} + std::chrono::days{*rc::gen::inRange(0, 36524)};
    Symbol.CallPut = *rc::gen::element('C', 'P');
    Symbol.StrikeThousandths = *rc::gen::inRange<long>(0, 100000000);
    const auto Read = ws::ParseOccSymbol(Symbol.Text());
    RC_ASSERT(Read.has_value());
    RC_ASSERT(Read->Root == Symbol.Root);
    RC_ASSERT(Read->Expiry == Symbol.Expiry);
    RC_ASSERT(Read->CallPut == Symbol.CallPut);
    RC_ASSERT(Read->StrikeThousandths == Symbol.StrikeThousandths);
    RC_ASSERT(std::stod(Read->StrikeText()) == Read->Strike());
}

}  // namespace
