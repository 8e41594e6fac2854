// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/resources/Skins.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>

#include "workstation/resources/CsvRows.h"

namespace ws {

namespace embedded {
extern const std::string_view kSkinsCsv;
}

namespace {

constexpr char kPaletteMark = '.';

void AddOnce(std::vector<std::string>& Names, const std::string& Name) {
    if (std::find(Names.begin(), Names.end(), Name) == Names.end()) Names.push_back(Name);
}

double LinearShare(std::uint8_t Channel) {
    const double Share = Channel / 255.0;
    return Share <= 0.03928 ? Share / 12.92 : std::pow((Share + 0.055) / 1.055, 2.4);
}

double Luminance(TRgb Color) {
    return 0.2126 * LinearShare(Color.FRed) + 0.7152 * LinearShare(Color.FGreen) + 0.0722 * LinearShare(Color.FBlue);
}

}  // namespace

std::optional<TRgb> ParseRgb(std::string_view Text) {
    if (Text.size() != 7 || Text[0] != '#') return std::nullopt;
    std::uint32_t Value = 0;
    const char* End = Text.data() + Text.size();
    const auto Result = std::from_chars(Text.data() + 1, End, Value, 16);
    if (Result.ec != std::errc() || Result.ptr != End) return std::nullopt;
    const auto Byte = [Value](int Shift) { return static_cast<std::uint8_t>(Value >> Shift & 0xFF); };
    return TRgb{Byte(16), Byte(8), Byte(0)};
}

std::string FormatRgb(TRgb Color) {
    static constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string Result = "#";
    for (const std::uint8_t Channel : {Color.FRed, Color.FGreen, Color.FBlue}) {
        Result += kDigits[Channel >> 4];
        Result += kDigits[Channel & 0xF];
    }
    return Result;
}

fw::TColor ToFrameworkColor(TRgb Color) { return fw::MakeColor(Color.FRed, Color.FGreen, Color.FBlue); }

TRgb FromFrameworkColor(fw::TColor Color) {
    return {static_cast<std::uint8_t>(fw::RedOf(Color)), static_cast<std::uint8_t>(fw::GreenOf(Color)),
            static_cast<std::uint8_t>(fw::BlueOf(Color))};
}

double ContrastRatio(TRgb A, TRgb B) {
    const auto [Darker, Lighter] = std::minmax({Luminance(A), Luminance(B)});
    return (Lighter + 0.05) / (Darker + 0.05);
}

TSkinTable TSkinTable::Parse(std::string_view Csv, const std::string& Name) {
    TSkinTable Table;
    for (const TResourceRow& Row : ReadCsvRows(Csv, Name)) {
        const auto Fail = [&](const std::string& Why) {
            throw std::runtime_error(Name + ", line " + std::to_string(Row.FLine) + ": " + Why);
        };
        const auto& Fields = Row.FFields;
        if (Table.FSkins.empty()) {
            if (Fields.size() < 2 || Fields[0] != "key") Fail("the header must be key and the names of the skins");
            Table.FSkins.assign(Fields.begin() + 1, Fields.end());
            continue;
        }
        if (Fields.size() != Table.FSkins.size() + 1) Fail("a row has a key and one colour a skin");
        for (std::size_t Index = 0; Index < Table.FSkins.size(); ++Index) {
            const std::optional<TRgb> Color = ParseRgb(Fields[Index + 1]);
            if (!Color) Fail(Fields[Index + 1] + " is not a colour of the form #RRGGBB");
            if (!Table.FColors[Table.FSkins[Index]].emplace(Fields[0], *Color).second)
                Fail("the key " + Fields[0] + " stands twice");
        }
        const std::size_t Point = Fields[0].find(kPaletteMark);
        AddOnce(Table.FKeys, Fields[0].substr(0, Point));
        if (Point != std::string::npos) AddOnce(Table.FPalettes, Fields[0].substr(Point + 1));
    }
    if (Table.FKeys.empty()) throw std::runtime_error(Name + ": holds no colours");
    Table.CheckPalettes(Name);
    return Table;
}

void TSkinTable::CheckPalettes(const std::string& Name) const {
    const auto& Colors = FColors.begin()->second;
    for (const std::string& Key : FKeys) {
        if (Colors.count(Key)) continue;
        for (const std::string& Palette : FPalettes)
            if (!Colors.count(Key + kPaletteMark + Palette))
                throw std::runtime_error(Name + ": " + Key + " has no colour for the palette " + Palette);
    }
}

const TSkinTable& TSkinTable::Embedded() {
    static const TSkinTable Table = Parse(embedded::kSkinsCsv, "skins.csv");
    return Table;
}

std::optional<TRgb> TSkinTable::Color(std::string_view Skin, std::string_view Key, std::string_view Palette) const {
    const auto BySkin = FColors.find(Skin);
    if (BySkin == FColors.end()) return std::nullopt;
    auto Found = BySkin->second.find(Key);
    if (Found == BySkin->second.end() && !FPalettes.empty()) {
        const bool Known = std::find(FPalettes.begin(), FPalettes.end(), Palette) != FPalettes.end();
        Found =
            BySkin->second.find(std::string(Key) + kPaletteMark + (Known ? std::string(Palette) : FPalettes.front()));
    }
    return Found == BySkin->second.end() ? std::nullopt : std::optional(Found->second);
}

}  // namespace ws
