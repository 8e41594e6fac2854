// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Reads the option-chain file that a large US exchange offers for download:
//   Standard & Poors 500 Index,Last: 4136.48,Change:  -43.28
//   "Date: February 3, 2023 at 11:24 PM EST",Bid: 4095.1599,...
//   Expiration Date,Calls,Last Sale,Net,Bid,Ask,Volume,...,Strike,Puts,Last Sale,...
//   Fri Feb 17 2023,SPX230217C04100000,...                one line per expiry and strike, call and put side
// Columns are found by their header. Blank lines, a byte-order mark, CRLF and quotes are accepted anywhere.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "workstation/market/ChainDate.h"
#include "workstation/market/MarketMessage.h"

namespace ws {

// One contract: one side of a line. Prices as the file has them; a price of 0 for last or ask means that there is none
// and reads as absent, and with it a bid of 0 (a bid of 0 below an ask is a bid of 0).
struct TChainContract {
    std::string Symbol;      // "SPXW230203C01000000"
    std::string Root;        // "SPXW"
    std::string Expiry;      // "2023/02/03"
    char CallPut = 'C';      // 'C' or 'P'
    std::string StrikeText;  // exact and shortest
    double Strike = 0.0;
    std::optional<double> Bid, Ask, Last;
    std::size_t Line = 0;  // of the file, from 1
};

// A line of the table that could not be read. The caller decides: refuse the file, or do without these lines.
struct TBadLine {
    std::size_t Line = 0;
    TMarketMessage Reason;
};

struct TChainFile {
    std::string FileName;  // for messages
    std::string UnderlyingName;
    std::optional<double> UnderlyingLast;
    TChainDate Date;
    std::vector<TChainContract> Contracts;  // in file order, call before put
    std::vector<TBadLine> BadLines;         // ascending
    std::size_t TableLines = 0;             // lines below the header that are not blank
};

struct TChainOptions {
    EDateOrder DateOrder = EDateOrder::Unstated;
};

// Called every 64 KB with the bytes read and the size of the file (0 = unknown); false cancels.
using TChainProgress = std::function<bool(std::uint64_t Done, std::uint64_t Total)>;

// Throws EMarketRefusal, with the file's name as first argument, when the file cannot be opened or read, is no such
// chain (no header, no name, no date, a date that is ambiguous, no line at all below the header) or Progress said stop
// (kImportCancelled).
TChainFile ReadChainFile(const std::filesystem::path& File, const TChainOptions& Options = {},
                         const TChainProgress& Progress = {});

// The same from a stream; Name stands for the file in messages, Total is only passed on to Progress.
TChainFile ReadChain(std::istream& Stream, const std::string& Name, const TChainOptions& Options = {},
                     const TChainProgress& Progress = {}, std::uint64_t Total = 0);

inline constexpr char kImportCannotRead[] = "Res_ImportCannotRead";        // %1 file
inline constexpr char kImportNotChain[] = "Res_ImportNotChain";            // %1 file
inline constexpr char kImportNoColumn[] = "Res_ImportNoColumn";            // %1 file, %2 column
inline constexpr char kImportNoDate[] = "Res_ImportNoDate";                // %1 file, %2 the text that is no date
inline constexpr char kImportAmbiguousDate[] = "Res_ImportAmbiguousDate";  // %1 file, %2 the text
inline constexpr char kImportNoContracts[] = "Res_ImportNoContracts";      // %1 file
inline constexpr char kImportCancelled[] = "Res_ImportCancelled";          // %1 file

// Reasons of a bad line.
inline constexpr char kLineTooLong[] = "Res_ImportLineTooLong";
inline constexpr char kLineQuotes[] = "Res_ImportLineQuotes";
inline constexpr char kLineFields[] = "Res_ImportLineFields";        // %1 fields found, %2 needed
inline constexpr char kLineSymbol[] = "Res_ImportLineSymbol";        // %1 the text that is no option symbol
inline constexpr char kLinePair[] = "Res_ImportLinePair";            // %1, %2 symbols that are not one call and its put
inline constexpr char kLineStrike[] = "Res_ImportLineStrike";        // %1 strike column, %2 symbol
inline constexpr char kLineExpiry[] = "Res_ImportLineExpiry";        // %1 expiry column, %2 symbol
inline constexpr char kLineNumber[] = "Res_ImportLineNumber";        // %1 column, %2 text
inline constexpr char kLineDuplicate[] = "Res_ImportLineDuplicate";  // %1 symbol, %2 line where it stands first

}  // namespace ws
