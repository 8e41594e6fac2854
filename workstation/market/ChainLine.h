// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Lines and fields of an option-chain file. A record of such a file never spans lines; so each line is split for
// itself, and a stray quote spoils its own line and no other.

#include <csv.h>

#include <cstdint>
#include <functional>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace ws {

// Cuts a stream into lines, block by block: without LF, CR LF and a byte-order mark at the beginning.
class TLineReader {
public:
    using TOnBlock = std::function<void(std::uint64_t Read)>;
    TLineReader(std::istream& Stream, TOnBlock OnBlock);  // Stream is borrowed

    // False at the end. Line is valid until the next call. A line above 64 KB is cut there and TooLong() is true.
    bool Next(std::string_view& Line);
    std::size_t Number() const { return FNumber; }  // of the line last given, from 1
    bool TooLong() const { return FTooLong; }

private:
    bool Fill();

    std::istream& FStream;
    TOnBlock FOnBlock;
    std::string FBlock, FLine;
    std::size_t FPos = 0;
    std::uint64_t FRead = 0;
    std::size_t FNumber = 0;
    bool FTooLong = false;
};

// Splits one line at its commas; quotes after RFC 4180, blanks at the ends of a field go.
class TFieldSplitter {
public:
    explicit TFieldSplitter(bool Strict);  // strict: quotes that do not match are an error
    ~TFieldSplitter();
    TFieldSplitter(const TFieldSplitter&) = delete;
    TFieldSplitter& operator=(const TFieldSplitter&) = delete;

    bool Split(std::string_view Line);  // false: the quotes do not match
    const std::vector<std::string>& Fields() const { return FFields; }

private:
    static void OnField(void* Text, std::size_t Length, void* Self);
    void Open();

    bool FStrict;
    csv_parser FParser{};
    std::vector<std::string> FFields;
};

// Text as UTF-8: bytes that are not are read as Latin-1.
std::string AsUtf8(std::string_view Bytes);

// The beginning of a text from a file, fit for a message.
std::string Excerpt(std::string_view Bytes);

}  // namespace ws
