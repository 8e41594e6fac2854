// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/SymbolForms.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

#include "framework/base/Text.h"
#include "workstation/market/OccSymbol.h"

namespace ws {

namespace {

constexpr std::size_t kNumericCodeLength = 5;
constexpr double kMaxStrikeThousandths = 99999999.0;

bool IsDigit(char C) { return C >= '0' && C <= '9'; }
bool IsBlank(char C) { return static_cast<unsigned char>(C) <= 0x20; }

// U+FF01..U+FF5E are the wide forms of '!'..'~', U+3000 is the wide blank, U+00A0 the one that does not break.
std::string PlainCharacters(std::string_view S) {
    std::string Result;
    Result.reserve(S.size());
    for (std::size_t I = 0; I < S.size(); ++I) {
        const auto Byte = [&](std::size_t K) -> unsigned {
            return K < S.size() ? static_cast<unsigned char>(S[K]) : 0U;
        };
        const unsigned First = Byte(I), Second = Byte(I + 1), Third = Byte(I + 2);
        if (First == 0xEF && (Second == 0xBC || Second == 0xBD) && (Third & 0xC0U) == 0x80U) {
            const unsigned Code = 0xF000U | ((Second & 0x3FU) << 6U) | (Third & 0x3FU);
            if (Code >= 0xFF01U && Code <= 0xFF5EU) {
                Result += static_cast<char>(Code - 0xFF01U + 0x21U);
                I += 2;
                continue;
            }
        }
        if (First == 0xE3 && Second == 0x80 && Third == 0x80) {
            Result += ' ';
            I += 2;
        } else if (First == 0xC2 && Second == 0xA0) {
            Result += ' ';
            I += 1;
        } else {
            Result += S[I];
        }
    }
    return Result;
}

std::string WithoutBlanks(std::string_view S) {
    std::string Result;
    std::copy_if(S.begin(), S.end(), std::back_inserter(Result), [](char C) { return !IsBlank(C); });
    return Result;
}

// "4100" or "4100.5" as eight digits of thousandths; nothing when it is no plain number or does not fit exactly.
std::optional<std::string> StrikeDigits(const std::string& Text) {
    double Value = 0.0;
    const char* const End = Text.data() + Text.size();
    const auto [Stop, Error] = std::from_chars(Text.data(), End, Value, std::chars_format::fixed);
    if (Error != std::errc{} || Stop != End || !IsDigit(Text.front())) return std::nullopt;
    const double Thousandths = std::round(Value * 1000.0);
    if (!(Thousandths <= kMaxStrikeThousandths) || std::abs(Thousandths - Value * 1000.0) > 1e-6) return std::nullopt;
    const std::string Digits = std::to_string(static_cast<long>(Thousandths));
    return std::string(8 - Digits.size(), '0') + Digits;
}

// Only with a blank between root and date: glued together, a root and six digits may be another exchange's strike.
std::optional<std::string> FromSpokenForm(const std::string& Upper) {
    const std::size_t RootEnd = Upper.find_first_of(" \t");
    if (RootEnd == std::string::npos) return std::nullopt;
    const std::string Rest = WithoutBlanks(std::string_view(Upper).substr(RootEnd));
    if (Rest.size() < 8) return std::nullopt;
    const std::optional<std::string> Strike = StrikeDigits(Rest.substr(7));
    if (!Strike) return std::nullopt;
    const std::optional<TOccSymbol> Symbol = ParseOccSymbol(Upper.substr(0, RootEnd) + Rest.substr(0, 7) + *Strike);
    return Symbol ? std::optional(Symbol->Text()) : std::nullopt;
}

std::string ConvertOnce(std::string_view Typed) {
    const std::string Upper = fw::UpperCase(fw::Trim(PlainCharacters(Typed)));
    if (const std::optional<TOccSymbol> Symbol = ParseOccSymbol(Upper)) return Symbol->Text();
    if (const std::optional<std::string> Spoken = FromSpokenForm(Upper)) return *Spoken;
    std::string Result = WithoutBlanks(Upper);
    if (!Result.empty() && Result.size() < kNumericCodeLength && std::all_of(Result.begin(), Result.end(), IsDigit))
        Result.insert(0, kNumericCodeLength - Result.size(), '0');
    return Result;
}

}  // namespace

// Until it stands still: in a text of broken UTF-8 a removed blank may bring the bytes of a wide letter together.
// Every round shortens the text or ends in a final form.
std::string ConvertSymbolForm(std::string_view Typed) {
    std::string Current = ConvertOnce(Typed);
    for (;;) {
        std::string Next = ConvertOnce(Current);
        if (Next == Current) return Current;
        Current = std::move(Next);
    }
}

TSymbolConverter::TSymbolConverter(const std::vector<TProductRow>& Products) {
    for (const TProductRow& Product : Products) {
        const auto Code = Product.Attributes.find(kAttributeShortCode);
        // A symbol that is not in the exchange's form itself would be converted once more.
        if (Code != Product.Attributes.end() && ConvertSymbolForm(Product.Symbol) == Product.Symbol)
            FByShortCode.emplace(ConvertSymbolForm(Code->second), Product.Symbol);
    }
    // Whatever the data say: a short code that is a symbol must not lead away from it.
    for (const TProductRow& Product : Products) FByShortCode.erase(Product.Symbol);
}

std::string TSymbolConverter::Convert(std::string_view Typed) const {
    std::string Form = ConvertSymbolForm(Typed);
    const auto Found = FByShortCode.find(Form);
    return Found == FByShortCode.end() ? Form : Found->second;
}

}  // namespace ws
