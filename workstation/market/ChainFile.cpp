// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/ChainFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "framework/base/Numbers.h"
#include "framework/base/Text.h"
#include "workstation/market/ChainLine.h"
#include "workstation/market/MarketDay.h"
#include "workstation/market/OccSymbol.h"

namespace ws {

namespace {

using TFields = std::vector<std::string>;

constexpr std::size_t kMaxHeadLines = 20;      // non-blank lines within which the header must stand
constexpr double kStrikeTolerance = 0.005001;  // the strike column may be rounded to cents
constexpr int kAbsent = -1;

constexpr std::array<std::string_view, 3> kBidNames{"bid", "bid price", ""};
constexpr std::array<std::string_view, 3> kAskNames{"ask", "ask price", "offer"};
constexpr std::array<std::string_view, 3> kLastNames{"last sale", "last", "last price"};
constexpr std::array<std::string_view, 3> kStrikeNames{"strike", "strike price", ""};
constexpr std::array<std::string_view, 3> kExpiryNames{"expiration date", "expiration", "expiry"};

struct TSideColumns {
    int Symbol = kAbsent, Bid = kAbsent, Ask = kAbsent, Last = kAbsent;
};
struct TColumns {
    TSideColumns Call, Put;
    int Strike = kAbsent, Expiry = kAbsent;
    std::size_t Needed = 0;  // fields a line must have
    TFields Names;           // as the header writes them
};

std::string LowerCase(std::string S) {
    std::transform(S.begin(), S.end(), S.begin(),
                   [](char C) { return C >= 'A' && C <= 'Z' ? static_cast<char>(C + 32) : C; });
    return S;
}

bool StartsWith(const std::string& Field, std::string_view Key) {
    return Field.size() >= Key.size() && fw::SameText(std::string_view(Field).substr(0, Key.size()), Key);
}

// "Bid: 4095.1", but not "8:09 PM": letters and blanks before the first colon.
bool IsKeyed(const std::string& Field) {
    const std::size_t Colon = Field.find(':');
    if (Colon == std::string::npos || Colon == 0) return false;
    return std::all_of(Field.begin(), Field.begin() + static_cast<std::ptrdiff_t>(Colon),
                       [](char C) { return (C >= 'A' && C <= 'Z') || (C >= 'a' && C <= 'z') || C == ' '; });
}

class TChainReader {
public:
    TChainReader(std::istream& Stream, const std::string& Name, const TChainOptions& Options,
                 const TChainProgress& Progress, std::uint64_t Total)
        : FName(Name), FOptions(Options), FLines(Stream, [this, &Progress, Total](std::uint64_t Read) {
              if (Progress && !Progress(Read, Total)) Refuse(kImportCancelled);
          }) {}

    TChainFile Read() {
        FChain.FileName = FName;
        ReadHead();
        std::string_view Line;
        while (FLines.Next(Line)) {
            if (fw::Trim(Line).empty() && !FLines.TooLong()) continue;
            ++FChain.TableLines;
            if (FLines.TooLong())
                Bad(kLineTooLong);
            else if (!FStrict.Split(Line))
                Bad(kLineQuotes);
            else
                ReadTableLine(FStrict.Fields());
        }
        if (FChain.TableLines == 0) Refuse(kImportNoContracts);
        return std::move(FChain);
    }

private:
    [[noreturn]] void Refuse(const char* Key, const std::string& Arg = {}) const {
        std::vector<std::string> Args{FName};
        if (!Arg.empty()) Args.push_back(Excerpt(Arg));
        throw EMarketRefusal({Key, std::move(Args)});
    }

    void Bad(const char* Key, std::vector<std::string> Args = {}) {
        for (std::string& Arg : Args) Arg = Excerpt(Arg);
        FChain.BadLines.push_back({FLines.Number(), {Key, std::move(Args)}});
    }

    // The lines above the header, and the header.
    void ReadHead() {
        std::vector<TFields> Head;
        std::string_view Line;
        while (Head.size() < kMaxHeadLines && FLines.Next(Line) && !FLines.TooLong()) {
            if (fw::Trim(Line).empty()) continue;
            FLoose.Split(Line);
            if (!FindColumns(FLoose.Fields())) {
                Head.push_back(FLoose.Fields());
                continue;
            }
            ReadName(Head);
            return;
        }
        Refuse(kImportNotChain);
    }

    // False: this line is not the header. A header that lacks a column refuses the file.
    bool FindColumns(const TFields& Fields) {
        FColumns.Names.clear();
        for (const std::string& Field : Fields) FColumns.Names.push_back(LowerCase(Field));
        FColumns.Call.Symbol = IndexOf({"calls", "call", ""}, 0, FColumns.Names.size());
        FColumns.Put.Symbol = IndexOf({"puts", "put", ""}, 0, FColumns.Names.size());
        if (FColumns.Call.Symbol == kAbsent || FColumns.Put.Symbol == kAbsent) return false;
        FColumns.Strike = IndexOf(kStrikeNames, 0, FColumns.Names.size());
        FColumns.Expiry = IndexOf(kExpiryNames, 0, FColumns.Names.size());
        FindSide(FColumns.Call, FColumns.Put.Symbol);
        FindSide(FColumns.Put, FColumns.Call.Symbol);
        FColumns.Names = Fields;
        return true;
    }

    // A side's prices stand between its symbol and the other side's symbol or the end.
    void FindSide(TSideColumns& Side, int Other) {
        const std::size_t Begin = static_cast<std::size_t>(Side.Symbol) + 1;
        const std::size_t End = Other > Side.Symbol ? static_cast<std::size_t>(Other) : FColumns.Names.size();
        const auto Find = [&](const std::array<std::string_view, 3>& Names) {
            const int Index = IndexOf(Names, Begin, End);
            if (Index == kAbsent) Refuse(kImportNoColumn, std::string(Names.front()));
            FColumns.Needed = std::max(FColumns.Needed, static_cast<std::size_t>(Index) + 1);
            return Index;
        };
        Side.Bid = Find(kBidNames);
        Side.Ask = Find(kAskNames);
        Side.Last = Find(kLastNames);
    }

    int IndexOf(const std::array<std::string_view, 3>& Names, std::size_t Begin, std::size_t End) const {
        for (std::size_t I = Begin; I < End; ++I)
            if (!FColumns.Names[I].empty() && std::find(Names.begin(), Names.end(), FColumns.Names[I]) != Names.end())
                return static_cast<int>(I);
        return kAbsent;
    }

    void ReadName(const std::vector<TFields>& Head) {
        const auto Has = [](std::string_view Key) {
            return [Key](const TFields& Fields) {
                return std::any_of(Fields.begin(), Fields.end(),
                                   [&](const std::string& F) { return StartsWith(F, Key); });
            };
        };
        if (Head.size() < 2) Refuse(kImportNotChain);
        auto Date = std::find_if(Head.begin(), Head.end(), Has("date:"));
        if (Date == Head.end()) Date = std::prev(Head.end());
        auto Name = std::find_if(Head.begin(), Head.end(), Has("last:"));
        if (Name == Head.end() || Name == Date) Name = Date == Head.begin() ? std::next(Date) : Head.begin();
        for (const std::string& Field : *Name) {
            if (StartsWith(Field, "last:")) {
                FChain.UnderlyingLast = fw::GroupedTextToFloat(fw::Trim(std::string_view(Field).substr(5)));
                break;
            }
            if (IsKeyed(Field)) break;
            if (!Field.empty()) FChain.UnderlyingName += (FChain.UnderlyingName.empty() ? "" : ", ") + AsUtf8(Field);
        }
        if (FChain.UnderlyingName.empty()) Refuse(kImportNotChain);
        if (FChain.UnderlyingLast && !(*FChain.UnderlyingLast > 0.0)) FChain.UnderlyingLast.reset();
        ReadDate(*Date);
    }

    // A date that is not quoted falls into several fields: all of them up to the next keyed one.
    void ReadDate(const TFields& Fields) {
        auto Field =
            std::find_if(Fields.begin(), Fields.end(), [](const std::string& F) { return StartsWith(F, "date:"); });
        std::string Text;
        if (Field != Fields.end())
            Text = fw::Trim(std::string_view(*Field++).substr(5));
        else
            Field = Fields.begin();
        for (; Field != Fields.end() && !IsKeyed(*Field); ++Field) Text += (Text.empty() ? "" : ", ") + *Field;
        const EDateReading Reading = ReadChainDate(Text, FOptions.DateOrder, FChain.Date);
        if (Reading == EDateReading::Ambiguous) Refuse(kImportAmbiguousDate, Text);
        if (Reading == EDateReading::NoDate) Refuse(kImportNoDate, Text.empty() ? std::string("-") : Text);
    }

    void ReadTableLine(const TFields& Fields) {
        if (Fields.size() < FColumns.Needed)
            return Bad(kLineFields, {std::to_string(Fields.size()), std::to_string(FColumns.Needed)});
        TOccSymbol Call, Put;
        TChainContract CallRow, PutRow;
        if (!ReadSymbol(Fields, FColumns.Call, Call) || !ReadSymbol(Fields, FColumns.Put, Put)) return;
        if (Call.CallPut != 'C' || Put.CallPut != 'P' || Call.Root != Put.Root || Call.Expiry != Put.Expiry ||
            Call.StrikeThousandths != Put.StrikeThousandths)
            return Bad(kLinePair, {Call.Text(), Put.Text()});
        if (!CheckColumns(Fields, Call)) return;
        if (!ReadSide(Fields, FColumns.Call, Call, CallRow) || !ReadSide(Fields, FColumns.Put, Put, PutRow)) return;
        const auto [First, New] = FSeen.emplace(CallRow.Symbol, FLines.Number());
        if (!New) return Bad(kLineDuplicate, {CallRow.Symbol, std::to_string(First->second)});
        FChain.Contracts.push_back(std::move(CallRow));
        FChain.Contracts.push_back(std::move(PutRow));
    }

    bool ReadSymbol(const TFields& Fields, const TSideColumns& Side, TOccSymbol& Result) {
        const std::string& Text = Fields[static_cast<std::size_t>(Side.Symbol)];
        if (std::optional<TOccSymbol> Symbol = ParseOccSymbol(Text)) {
            Result = std::move(*Symbol);
            return true;
        }
        Bad(kLineSymbol, {Text});
        return false;
    }

    // Strike and expiry columns say again what the symbol says; an expiry in a spelling of its own is not compared.
    bool CheckColumns(const TFields& Fields, const TOccSymbol& Symbol) {
        if (const std::string Text = FieldAt(Fields, FColumns.Strike); !Text.empty()) {
            const std::optional<double> Strike = fw::GroupedTextToFloat(Text);
            if (!Strike || std::abs(*Strike - Symbol.Strike()) > kStrikeTolerance)
                return Bad(kLineStrike, {Text, Symbol.Text()}), false;
        }
        if (const std::string& Text = FieldAt(Fields, FColumns.Expiry); !Text.empty()) {
            const auto Day = ReadDayOnly(Text, FOptions.DateOrder);
            if (Day && *Day != Symbol.Expiry) return Bad(kLineExpiry, {Text, Symbol.Text()}), false;
        }
        return true;
    }

    static std::string FieldAt(const TFields& Fields, int Column) {
        return Column == kAbsent || static_cast<std::size_t>(Column) >= Fields.size()
                   ? std::string()
                   : Fields[static_cast<std::size_t>(Column)];
    }

    bool ReadSide(const TFields& Fields, const TSideColumns& Side, const TOccSymbol& Symbol, TChainContract& Row) {
        if (!ReadPrice(Fields, Side.Bid, Row.Bid) || !ReadPrice(Fields, Side.Ask, Row.Ask) ||
            !ReadPrice(Fields, Side.Last, Row.Last))
            return false;
        if (Row.Ask == 0.0) Row.Ask.reset();
        if (Row.Last == 0.0) Row.Last.reset();
        if (Row.Bid == 0.0 && !Row.Ask) Row.Bid.reset();
        Row.Symbol = Symbol.Text();
        Row.Root = Symbol.Root;
        Row.Expiry = MarketDayText(Symbol.Expiry);
        Row.CallPut = Symbol.CallPut;
        Row.StrikeText = Symbol.StrikeText();
        Row.Strike = Symbol.Strike();
        Row.Line = FLines.Number();
        return true;
    }

    bool ReadPrice(const TFields& Fields, int Column, std::optional<double>& Price) {
        const std::string& Text = Fields[static_cast<std::size_t>(Column)];
        if (Text.empty() || Text == "-" || Text == "--") return true;
        Price = fw::GroupedTextToFloat(Text);
        if (Price && *Price >= 0.0) return true;
        Bad(kLineNumber, {FColumns.Names[static_cast<std::size_t>(Column)], Text});
        return false;
    }

    std::string FName;
    TChainOptions FOptions;
    TLineReader FLines;
    TFieldSplitter FLoose{false}, FStrict{true};
    TColumns FColumns;
    TChainFile FChain;
    std::unordered_map<std::string, std::size_t> FSeen;  // call symbol -> line
};

}  // namespace

TChainFile ReadChain(std::istream& Stream, const std::string& Name, const TChainOptions& Options,
                     const TChainProgress& Progress, std::uint64_t Total) {
    return TChainReader(Stream, Name, Options, Progress, Total).Read();
}

TChainFile ReadChainFile(const std::filesystem::path& File, const TChainOptions& Options,
                         const TChainProgress& Progress) {
    std::error_code Error;
    const bool Regular = std::filesystem::is_regular_file(File, Error);
    const std::uint64_t Size = Regular ? std::filesystem::file_size(File, Error) : 0;
    std::ifstream Stream(File, std::ios::binary);
    if (!Regular || !Stream) throw EMarketRefusal({kImportCannotRead, {File.string()}});
    TChainFile Chain = ReadChain(Stream, File.string(), Options, Progress, Size);
    if (Stream.bad()) throw EMarketRefusal({kImportCannotRead, {File.string()}});
    return Chain;
}

}  // namespace ws
