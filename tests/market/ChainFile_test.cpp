// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/ChainFile.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/market/ChainSupport.h"

namespace {

using chaintest::DataFile;

constexpr char kHeader[] =
    "Expiration Date,Calls,Last Sale,Net,Bid,Ask,Volume,IV,Delta,Gamma,Open Interest,Strike,Puts,Last Sale,Net,Bid,Ask,"
    "Volume,IV,Delta,Gamma,Open Interest\n";
constexpr char kName[] = "Testland 100 Index,Last: 1012.5,Change:  4.25\n";
constexpr char kDate[] = "\"Date: March 6, 2024 at 5:15 PM EST\",Bid: 1011.1\n";
constexpr char kRow[] =
    "Fri Mar 08 2024,TLXW240308C01010000,7,0.1,6.9,7.1,5,0.1,0.5,0.01,8,1010.00,TLXW240308P01010000,4.4,-0.1,4.4,4.6,9,"
    "0.1,-0.4,0.01,20\n";

ws::TChainFile ReadText(const std::string& Text, const ws::TChainOptions& Options = {}) {
    std::istringstream Stream(Text);
    return ws::ReadChain(Stream, "here.csv", Options);
}

ws::TMarketMessage RefusalOf(const std::string& Text, const ws::TChainOptions& Options = {}) {
    try {
        ReadText(Text, Options);
    } catch (const ws::EMarketRefusal& Refusal) {
        return Refusal.Reason();
    }
    return {};
}

TEST(ChainFile, ReadsHeadAndContracts) {
    const ws::TChainFile Chain = ws::ReadChainFile(DataFile("chain_small.csv"));
    EXPECT_EQ(Chain.UnderlyingName, "Testland 100 Index");
    EXPECT_EQ(Chain.UnderlyingLast, 1012.5);
    EXPECT_EQ(Chain.Date.Day, "2024/03/06");
    EXPECT_EQ(Chain.Date.Time, "2024/03/06 17:15:00");
    EXPECT_EQ(Chain.Date.Zone, "EST");
    EXPECT_EQ(Chain.TableLines, 8u);
    EXPECT_TRUE(Chain.BadLines.empty());
    ASSERT_EQ(Chain.Contracts.size(), 16u);
    const ws::TChainContract& Call = Chain.Contracts[4];
    EXPECT_EQ(Call.Symbol, "TLXW240308C01012500");
    EXPECT_EQ(Call.Root, "TLXW");
    EXPECT_EQ(Call.Expiry, "2024/03/08");
    EXPECT_EQ(Call.CallPut, 'C');
    EXPECT_EQ(Call.StrikeText, "1012.5");
    EXPECT_EQ(Call.Strike, 1012.5);
    EXPECT_EQ(Call.Bid, 5.5);
    EXPECT_EQ(Call.Ask, 5.7);
    EXPECT_EQ(Call.Last, 5.4);
    EXPECT_EQ(Call.Line, 7u);
    const ws::TChainContract& Put = Chain.Contracts[1];
    EXPECT_EQ(Put.CallPut, 'P');
    EXPECT_EQ(Put.Bid, 1.75);
    EXPECT_EQ(Put.Ask, 1.85);
    EXPECT_EQ(Put.Last, 1.8) << "the put side's columns are those after its symbol";
}

TEST(ChainFile, PricesOfZeroMeanNone) {
    const ws::TChainFile Chain = ws::ReadChainFile(DataFile("chain_small.csv"));
    const ws::TChainContract& Unquoted = Chain.Contracts[11];
    EXPECT_EQ(Unquoted.Symbol, "TLXW240315P01010000");
    EXPECT_FALSE(Unquoted.Bid);
    EXPECT_FALSE(Unquoted.Ask);
    EXPECT_FALSE(Unquoted.Last);
    const ws::TChainContract& NobodyBids = Chain.Contracts[12];
    EXPECT_EQ(NobodyBids.Bid, 0.0);
    EXPECT_EQ(NobodyBids.Ask, 0.05);
}

TEST(ChainFile, MarkCrLfQuotesBlankLinesAndColumnsInAnotherOrder) {
    const ws::TChainFile Chain = ws::ReadChainFile(DataFile("chain_quoted_crlf.csv"));
    EXPECT_EQ(Chain.UnderlyingName, "Quoted, Index");
    EXPECT_EQ(Chain.UnderlyingLast, 1012.5);
    EXPECT_EQ(Chain.Date.Time, "2025/09/25 21:05:00") << "a date that is not quoted falls into two fields";
    EXPECT_TRUE(Chain.BadLines.empty());
    ASSERT_EQ(Chain.Contracts.size(), 4u);
    EXPECT_EQ(Chain.Contracts[0].Bid, 14);
    EXPECT_EQ(Chain.Contracts[0].Last, 1014.1);
    EXPECT_EQ(Chain.Contracts[1].Ask, 11.9);
    EXPECT_EQ(Chain.Contracts[2].Symbol, "TLX251017C01012125");
    EXPECT_EQ(Chain.Contracts[2].StrikeText, "1012.125") << "the column rounds, the symbol does not";
    EXPECT_EQ(Chain.Contracts[2].Bid, 13);
    EXPECT_FALSE(Chain.Contracts[3].Ask);
    EXPECT_EQ(Chain.Contracts[3].Line, 9u);
}

TEST(ChainFile, EveryBadLineHasItsNumberAndReason) {
    const ws::TChainFile Chain = ws::ReadChainFile(DataFile("chain_bad_lines.csv"));
    struct TExpected {
        std::size_t Line;
        const char* Key;
        std::vector<std::string> Args;
    };
    const TExpected Expected[] = {
        {5, ws::kLineSymbol, {"TLXW24C01020000"}},
        {6, ws::kLinePair, {"TLXW240308C01030000", "TLXW240308P01040000"}},
        {7, ws::kLineStrike, {"1041.00", "TLXW240308C01040000"}},
        {8, ws::kLineExpiry, {"Fri Mar 15 2024", "TLXW240308C01050000"}},
        {9, ws::kLineNumber, {"Bid", "six"}},
        {10, ws::kLineFields, {"3", "17"}},
        {11, ws::kLineQuotes, {}},
        {12, ws::kLineDuplicate, {"TLXW240308C01010000", "4"}},
        {13, ws::kLineNumber, {"Bid", "-4.4"}},
        {14, ws::kLineSymbol, {"TLXW240230C01100000"}},
    };
    ASSERT_EQ(Chain.BadLines.size(), std::size(Expected));
    for (std::size_t I = 0; I < std::size(Expected); ++I) {
        SCOPED_TRACE(Expected[I].Line);
        EXPECT_EQ(Chain.BadLines[I].Line, Expected[I].Line);
        EXPECT_EQ(Chain.BadLines[I].Reason.Key, Expected[I].Key);
        EXPECT_EQ(Chain.BadLines[I].Reason.Args, Expected[I].Args);
    }
    EXPECT_EQ(Chain.TableLines, 12u);
    ASSERT_EQ(Chain.Contracts.size(), 4u) << "the lines before and after are good";
    EXPECT_EQ(Chain.Contracts[2].Symbol, "TLXW240308C01110000");
    EXPECT_EQ(Chain.Contracts[2].Line, 16u);
}

TEST(ChainFile, AMonstrousLineIsOneBadLine) {
    const ws::TChainFile Chain =
        ReadText(std::string(kName) + kDate + kHeader + std::string(300000, 'x') + "\n" + kRow);
    ASSERT_EQ(Chain.BadLines.size(), 1u);
    EXPECT_EQ(Chain.BadLines[0].Line, 4u);
    EXPECT_EQ(Chain.BadLines[0].Reason.Key, ws::kLineTooLong);
    EXPECT_EQ(Chain.Contracts.size(), 2u);
}

TEST(ChainFile, TheLastLineNeedsNoEnd) {
    std::string Text = std::string(kName) + kDate + kHeader + kRow;
    Text.pop_back();
    EXPECT_EQ(ReadText(Text).Contracts.size(), 2u);
}

TEST(ChainFile, WhatIsNoChainIsRefusedWithOneReason) {
    std::string NoAsk = kHeader;
    NoAsk.replace(NoAsk.find("Ask"), 3, "Axk");
    const std::pair<std::string, const char*> Cases[] = {
        {"", ws::kImportNotChain},
        {"\n\n\n", ws::kImportNotChain},
        {"name,price\nbread,2\n", ws::kImportNotChain},
        {std::string(500000, 'a'), ws::kImportNotChain},
        {std::string("\x00\x01\x02\n\x03,\x04\n", 8), ws::kImportNotChain},
        {std::string(kName) + kHeader + kRow, ws::kImportNotChain},
        {kHeader, ws::kImportNotChain},
        {std::string(kName) + "Date: soon\n" + kHeader + kRow, ws::kImportNoDate},
        {std::string(kName) + kDate + NoAsk + kRow, ws::kImportNoColumn},
        {std::string(kName) + kDate + kHeader, ws::kImportNoContracts},
    };
    for (const auto& [Text, Key] : Cases) {
        SCOPED_TRACE(Text.substr(0, 60));
        const ws::TMarketMessage Reason = RefusalOf(Text);
        EXPECT_EQ(Reason.Key, Key);
        ASSERT_FALSE(Reason.Args.empty());
        EXPECT_EQ(Reason.Args[0], "here.csv");
    }
    EXPECT_EQ(RefusalOf(std::string(kName) + kDate + NoAsk + kRow).Args[1], "ask");
}

TEST(ChainFile, NumericDatesNeedAnOrder) {
    const std::string File = DataFile("chain_numeric_date.csv");
    try {
        ws::ReadChainFile(File);
        ADD_FAILURE() << "accepted";
    } catch (const ws::EMarketRefusal& Refusal) {
        EXPECT_EQ(Refusal.Reason().Key, ws::kImportAmbiguousDate);
        EXPECT_EQ(Refusal.Reason().Args, (std::vector<std::string>{File, "11/06/2024 20:47"}));
    }
    EXPECT_EQ(ws::ReadChainFile(File, {ws::EDateOrder::DayFirst}).Date.Time, "2024/06/11 20:47:00");
    EXPECT_EQ(ws::ReadChainFile(File, {ws::EDateOrder::MonthFirst}).Date.Time, "2024/11/06 20:47:00");
}

TEST(ChainFile, AFileThatIsNotThere) {
    for (const std::string& File : {DataFile("no_such_file.csv"), std::string(TEST_DATA)}) {
        try {
            ws::ReadChainFile(File);
            ADD_FAILURE() << "accepted " << File;
        } catch (const ws::EMarketRefusal& Refusal) {
            EXPECT_EQ(Refusal.Reason().Key, ws::kImportCannotRead);
            EXPECT_EQ(Refusal.Reason().Args, std::vector<std::string>{File});
        }
    }
}

TEST(ChainFile, UnderlyingWithoutAPriceAndWithForeignBytes) {
    const ws::TChainFile Chain = ReadText(std::string("Caf\xE9 Index,Last: n/a\n") + kDate + kHeader + kRow);
    EXPECT_FALSE(Chain.UnderlyingLast);
    EXPECT_EQ(Chain.UnderlyingName, "Caf\xC3\xA9 Index") << "texts of the store are UTF-8";
}

TEST(ChainFile, ProgressCountsBytesAndCancels) {
    const std::string File = DataFile("chain_small.csv");
    std::vector<std::pair<std::uint64_t, std::uint64_t>> Seen;
    ws::ReadChainFile(File, {}, [&](std::uint64_t Done, std::uint64_t Total) {
        Seen.emplace_back(Done, Total);
        return true;
    });
    ASSERT_FALSE(Seen.empty());
    EXPECT_EQ(Seen.back().first, std::filesystem::file_size(File));
    EXPECT_EQ(Seen.back().second, std::filesystem::file_size(File));

    std::string Long = std::string(kName) + kDate + kHeader;
    while (Long.size() < 300000) Long += kRow;
    std::istringstream Stream(Long);
    int Calls = 0;
    try {
        ws::ReadChain(Stream, "long.csv", {}, [&](std::uint64_t, std::uint64_t) { return ++Calls < 2; });
        ADD_FAILURE() << "not cancelled";
    } catch (const ws::EMarketRefusal& Refusal) {
        EXPECT_EQ(Refusal.Reason().Key, ws::kImportCancelled);
    }
    EXPECT_EQ(Calls, 2);
}

// Whatever stands in the table: a chain or a refusal, and every line is either good or bad.
RC_GTEST_PROP(ChainFile, AnyTableIsAccountedFor, ()) {
    const auto Lines = *rc::gen::container<std::vector<std::string>>(rc::gen::oneOf(
        rc::gen::just(std::string(kRow, sizeof kRow - 2)),
        rc::gen::container<std::string>(rc::gen::elementOf(std::string("TLXW240308CP0,\"\r .-1a\xE9\x00", 22)))));
    std::string Text = std::string(kName) + kDate + kHeader;
    std::size_t NotBlank = 0;
    for (const std::string& Line : Lines) {
        Text += Line + "\n";
        if (std::any_of(Line.begin(), Line.end(), [](char C) { return static_cast<unsigned char>(C) > 0x20; }))
            ++NotBlank;
    }
    if (NotBlank == 0) {
        RC_ASSERT(RefusalOf(Text).Key == ws::kImportNoContracts);
        return;
    }
    const ws::TChainFile Chain = ReadText(Text);
    RC_ASSERT(Chain.TableLines == NotBlank);
    RC_ASSERT(Chain.Contracts.size() / 2 + Chain.BadLines.size() == NotBlank);
}

}  // namespace
