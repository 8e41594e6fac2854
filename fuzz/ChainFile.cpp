// SPDX-License-Identifier: GPL-3.0-or-later
// Chain files: any bytes are refused under the file's name or give a chain in which every line of the table is a pair
// of contracts or a bad line, every contract is what its symbol says, and every price is one. A byte-order mark and CR
// LF change nothing, nor does an order of dates that the file does not need.
#include "workstation/market/ChainFile.h"

#include <cmath>
#include <set>
#include <sstream>

#include "framework/base/Numbers.h"
#include "fuzz/FuzzTarget.h"
#include "workstation/market/MarketDay.h"
#include "workstation/market/OccSymbol.h"

namespace {

using fuzz::Require;

constexpr char kName[] = "chain.csv";
constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
constexpr size_t kLongestArgument = 63;  // 60 bytes and an ellipsis

bool IsPrice(const std::optional<double>& Price, bool MayBeZero) {
    return !Price || (std::isfinite(*Price) && (MayBeZero ? *Price >= 0.0 : *Price > 0.0));
}

void CheckContract(const ws::TChainContract& Row) {
    const auto Symbol = ws::ParseOccSymbol(Row.Symbol);
    Require(Symbol && Symbol->Text() == Row.Symbol, "a symbol reads as itself");
    Require(Symbol->Root == Row.Root && Symbol->CallPut == Row.CallPut && Symbol->Strike() == Row.Strike &&
                ws::MarketDayOf(Row.Expiry) == Symbol->Expiry,
            "a contract is what its symbol says");
    Require(fw::TextToFloat(Row.StrikeText) == Row.Strike, "the strike's text is the strike");
    Require(IsPrice(Row.Bid, true) && IsPrice(Row.Ask, false) && IsPrice(Row.Last, false), "prices are prices");
    Require(!Row.Bid || *Row.Bid > 0.0 || Row.Ask, "no bid of 0 without an ask");
}

void CheckPairs(const ws::TChainFile& Chain) {
    std::set<std::string> Symbols;
    size_t Line = 0;
    for (size_t I = 0; I < Chain.Contracts.size(); I += 2) {
        Require(I + 1 < Chain.Contracts.size(), "contracts come in pairs");
        const auto& Call = Chain.Contracts[I];
        const auto& Put = Chain.Contracts[I + 1];
        CheckContract(Call);
        CheckContract(Put);
        Require(Call.CallPut == 'C' && Put.CallPut == 'P' && Call.Root == Put.Root && Call.Expiry == Put.Expiry &&
                    Call.Strike == Put.Strike && Call.Line == Put.Line,
                "a line is one call and its put");
        Require(Call.Line > Line, "lines ascend");
        Line = Call.Line;
        Require(Symbols.insert(Call.Symbol).second && Symbols.insert(Put.Symbol).second, "a symbol stands once");
    }
}

void CheckChain(const ws::TChainFile& Chain) {
    Require(Chain.FileName == kName && !Chain.UnderlyingName.empty(), "a chain has its names");
    Require(IsPrice(Chain.UnderlyingLast, false), "the underlying's price is one");
    Require(ws::MarketDayOf(Chain.Date.Day).has_value(), "a chain has a day");
    CheckPairs(Chain);
    size_t Line = 0;
    for (const auto& Bad : Chain.BadLines) {
        Require(Bad.Line > Line, "bad lines ascend");
        Line = Bad.Line;
        Require(!Bad.Reason.Key.empty(), "a bad line has a reason");
        for (const auto& Arg : Bad.Reason.Args) Require(Arg.size() <= kLongestArgument, "arguments fit a message");
    }
    Require(Chain.TableLines == Chain.BadLines.size() + Chain.Contracts.size() / 2, "every line is good or bad");
}

// A price and what stands in its place, in one text.
std::string Shown(const std::optional<double>& Price) { return Price ? fw::FloatToShortestText(*Price) : "none"; }

// All that was read, or why it was refused: two readings that show the same are the same.
std::string Shown(const ws::TChainFile& Chain) {
    std::ostringstream Out;
    Out << Chain.UnderlyingName << '\n' << Shown(Chain.UnderlyingLast) << '\n' << Chain.Date.Time << Chain.Date.Zone;
    for (const auto& Row : Chain.Contracts)
        Out << '\n'
            << Row.Line << ' ' << Row.Symbol << ' ' << Shown(Row.Bid) << ' ' << Shown(Row.Ask) << ' '
            << Shown(Row.Last);
    for (const auto& Bad : Chain.BadLines) {
        Out << '\n' << Bad.Line << ' ' << Bad.Reason.Key;
        for (const auto& Arg : Bad.Reason.Args) Out << '|' << Arg;
    }
    return Out.str();
}

struct TAnswer {
    std::string Refusal;  // the key; empty: it was read
    std::string Shown;
};

TAnswer Read(const std::string& Bytes, ws::EDateOrder Order = ws::EDateOrder::Unstated) {
    std::istringstream Stream(Bytes);
    try {
        const auto Chain = ws::ReadChain(Stream, kName, {Order});
        CheckChain(Chain);
        return {"", Shown(Chain)};
    } catch (const ws::EMarketRefusal& Refusal) {
        const auto& Reason = Refusal.Reason();
        Require(!Reason.Key.empty() && !Reason.Args.empty() && Reason.Args.front() == kName,
                "a refusal names its reason and the file");
        return {Reason.Key, Refusal.what()};
    }
}

std::string WithCrLf(const std::string& Bytes) {
    std::string Result;
    for (const char C : Bytes) Result += C == '\n' ? std::string("\r\n") : std::string(1, C);
    return Result;
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
    const std::string Bytes(fuzz::AsText(Data, Size));
    const TAnswer Answer = Read(Bytes);
    if (!Bytes.starts_with(kByteOrderMark))
        Require(Read(kByteOrderMark + Bytes).Shown == Answer.Shown, "a byte-order mark changes nothing");
    const bool NearLongestLine = Bytes.size() >= 64 * 1024 - 1;
    if (Bytes.find('\r') == std::string::npos && !NearLongestLine)
        Require(Read(WithCrLf(Bytes)).Shown == Answer.Shown, "CR LF changes nothing");
    for (const auto Order : {ws::EDateOrder::DayFirst, ws::EDateOrder::MonthFirst}) {
        const TAnswer Ordered = Read(Bytes, Order);
        if (!Answer.Refusal.empty() && Answer.Refusal != ws::kImportAmbiguousDate)
            Require(Ordered.Shown == Answer.Shown, "an order mends no other refusal");
        else
            Require(Ordered.Refusal != ws::kImportAmbiguousDate, "with an order no date is ambiguous");
    }
    return 0;
}
