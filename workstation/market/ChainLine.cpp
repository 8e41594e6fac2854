// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/ChainLine.h"

#include <new>
#include <utility>

#include "framework/base/Text.h"

namespace ws {

namespace {

constexpr std::size_t kBlock = 64 * 1024;
constexpr std::size_t kMaxLine = 64 * 1024;
constexpr std::size_t kExcerpt = 60;  // bytes

// Length of the UTF-8 sequence at I, 0 when the bytes there are none.
std::size_t SequenceLength(std::string_view S, std::size_t I) {
    const auto Byte = static_cast<unsigned char>(S[I]);
    const std::size_t Length = Byte < 0x80   ? 1
                               : Byte < 0xC2 ? 0
                               : Byte < 0xE0 ? 2
                               : Byte < 0xF0 ? 3
                               : Byte < 0xF5 ? 4
                                             : 0;
    if (Length == 0 || I + Length > S.size()) return 0;
    for (std::size_t K = 1; K < Length; ++K)
        if ((static_cast<unsigned char>(S[I + K]) & 0xC0U) != 0x80U) return 0;
    return Length;
}

}  // namespace

TLineReader::TLineReader(std::istream& Stream, TOnBlock OnBlock) : FStream(Stream), FOnBlock(std::move(OnBlock)) {}

bool TLineReader::Fill() {
    FBlock.resize(kBlock);
    FStream.read(FBlock.data(), static_cast<std::streamsize>(kBlock));
    FBlock.resize(static_cast<std::size_t>(FStream.gcount()));
    FPos = 0;
    if (FRead == 0 && FBlock.starts_with("\xEF\xBB\xBF")) FPos = 3;
    FRead += FBlock.size();
    if (!FBlock.empty() && FOnBlock) FOnBlock(FRead);
    return !FBlock.empty();
}

bool TLineReader::Next(std::string_view& Line) {
    FLine.clear();
    FTooLong = false;
    bool Any = false;
    for (;;) {
        if (FPos >= FBlock.size() && !Fill()) break;
        const std::size_t End = FBlock.find('\n', FPos);
        const std::string_view Part =
            std::string_view(FBlock).substr(FPos, End == std::string::npos ? End : End - FPos);
        Any = true;
        FLine.append(Part.substr(0, kMaxLine - FLine.size()));
        FTooLong = FTooLong || FLine.size() == kMaxLine;
        FPos += Part.size();
        if (End == std::string::npos) continue;
        ++FPos;
        break;
    }
    if (!Any) return false;
    ++FNumber;
    if (FLine.ends_with('\r')) FLine.pop_back();
    Line = FLine;
    return true;
}

TFieldSplitter::TFieldSplitter(bool Strict) : FStrict(Strict) { Open(); }

TFieldSplitter::~TFieldSplitter() { csv_free(&FParser); }

void TFieldSplitter::Open() {
    if (csv_init(&FParser, static_cast<unsigned char>(FStrict ? CSV_STRICT | CSV_STRICT_FINI : 0)) != 0)
        throw std::bad_alloc();
}

void TFieldSplitter::OnField(void* Text, std::size_t Length, void* Self) {
    static_cast<TFieldSplitter*>(Self)->FFields.push_back(
        fw::Trim(std::string_view(static_cast<const char*>(Text), Length)));
}

bool TFieldSplitter::Split(std::string_view Line) {
    FFields.clear();
    const bool Parsed = csv_parse(&FParser, Line.data(), Line.size(), &OnField, nullptr, this) == Line.size() &&
                        csv_fini(&FParser, &OnField, nullptr, this) == 0;
    if (!Parsed) {
        csv_free(&FParser);
        Open();
    }
    return Parsed;
}

std::string AsUtf8(std::string_view Bytes) {
    bool Valid = true;
    for (std::size_t I = 0; I < Bytes.size() && Valid;) {
        const std::size_t Length = SequenceLength(Bytes, I);
        Valid = Length > 0;
        I += Length;
    }
    if (Valid) return std::string(Bytes);
    std::string Result;
    for (const char C : Bytes) {
        const auto Byte = static_cast<unsigned char>(C);
        if (Byte < 0x80) {
            Result += C;
        } else {
            Result += static_cast<char>(0xC0U | (Byte >> 6U));
            Result += static_cast<char>(0x80U | (Byte & 0x3FU));
        }
    }
    return Result;
}

std::string Excerpt(std::string_view Bytes) {
    std::string Text = AsUtf8(Bytes);
    if (Text.size() <= kExcerpt) return Text;
    std::size_t End = kExcerpt;
    while (End > 0 && (static_cast<unsigned char>(Text[End]) & 0xC0U) == 0x80U) --End;
    return Text.substr(0, End) + "...";
}

}  // namespace ws
