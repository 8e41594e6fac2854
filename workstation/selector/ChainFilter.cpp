// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/selector/ChainFilter.h"

#include <algorithm>

namespace ws {

namespace {

constexpr std::string_view kCallWord = "CALL";
constexpr std::string_view kPutWord = "PUT";

bool IsBlank(char C) { return static_cast<unsigned char>(C) <= ' ' || C == 0x7F; }
bool IsDigit(char C) { return C >= '0' && C <= '9'; }

// Begins with a digit and holds nothing but digits and separators.
bool IsNumber(std::string_view S) {
    return !S.empty() && IsDigit(S.front()) &&
           std::all_of(S.begin(), S.end(), [](char C) { return IsDigit(C) || C == '.' || C == ',' || C == '\''; });
}

std::optional<ECallPut> SideOf(char C) {
    if (C == 'C') return ECallPut::Call;
    if (C == 'P') return ECallPut::Put;
    return std::nullopt;
}

char Upper(char C) { return C >= 'a' && C <= 'z' ? static_cast<char>(C - 'a' + 'A') : C; }
bool SameLetter(char A, char B) { return Upper(A) == Upper(B); }

bool BeginsWith(std::string_view Whole, std::string_view Part) {
    return Whole.size() >= Part.size() && std::equal(Part.begin(), Part.end(), Whole.begin(), SameLetter);
}
bool Holds(std::string_view Whole, std::string_view Part) {
    return std::search(Whole.begin(), Whole.end(), Part.begin(), Part.end(), SameLetter) != Whole.end();
}

}  // namespace

TChainFilter::TWord TChainFilter::WordOf(fw::Text Typed) {
    TWord Word{std::move(Typed), {}, std::nullopt};
    const std::string_view S = Word.Text;
    if (kCallWord.starts_with(S) || kPutWord.starts_with(S)) {
        Word.Side = SideOf(S.front());
    } else if (IsNumber(S)) {
        Word.Number = Word.Text;
    } else if (SideOf(S.back()) && IsNumber(S.substr(0, S.size() - 1))) {
        Word.Side = SideOf(S.back());
        Word.Number = S.substr(0, S.size() - 1);
    } else if (SideOf(S.front()) && IsNumber(S.substr(1))) {
        Word.Side = SideOf(S.front());
        Word.Number = S.substr(1);
    }
    return Word;
}

TChainFilter::TChainFilter(std::string_view Typed) {
    for (size_t Begin = 0; Begin < Typed.size();) {
        size_t End = Begin;
        while (End < Typed.size() && !IsBlank(Typed[End])) ++End;
        if (End > Begin) {
            TWord Word = WordOf(fw::UpperCase(Typed.substr(Begin, End - Begin)));
            const bool Known =
                std::any_of(FWords.begin(), FWords.end(), [&](const TWord& W) { return W.Text == Word.Text; });
            if (!Known) FWords.push_back(std::move(Word));
        }
        Begin = End + 1;
    }
}

bool TChainFilter::Fits(const TWord& Word, const fw::Text& Symbol, const fw::Text& Expiry) {
    if (!Word.Number.empty()) return BeginsWith(Symbol, Word.Text);
    return Holds(Symbol, Word.Text) || (Holds(Word.Text, "/") && Holds(Expiry, Word.Text));
}

bool TChainFilter::Fits(const TChainFuture& Future) const {
    return std::all_of(FWords.begin(), FWords.end(), [&](const TWord& W) {
        return (!W.Side || !W.Number.empty()) && Fits(W, Future.Symbol, Future.Expiry);
    });
}

bool TChainFilter::Fits(const TChainStrike& Strike, ECallPut Side) const {
    if (Strike.Symbol(Side).empty()) return false;
    return std::all_of(FWords.begin(), FWords.end(), [&](const TWord& W) {
        const bool OnSide = !W.Side || *W.Side == Side;
        if (W.Number.empty()) return W.Side ? OnSide : Fits(W, Strike.Symbol(Side), Strike.Expiry);
        const bool IsStrike = Strike.Stated.starts_with(W.Number) || Strike.Shown.starts_with(W.Number) ||
                              Strike.Plain.starts_with(W.Number);
        return (OnSide && IsStrike) || Fits(W, Strike.Symbol(Side), Strike.Expiry);
    });
}

bool TChainFilter::IsExactly(const TChainStrike& Strike) const {
    return std::any_of(FWords.begin(), FWords.end(), [&](const TWord& W) {
        return !W.Number.empty() && (W.Number == Strike.Stated || W.Number == Strike.Shown || W.Number == Strike.Plain);
    });
}

}  // namespace ws
