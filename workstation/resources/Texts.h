// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "framework/base/Const.h"

namespace ws {

// Tags of the text table: what kind of word a key names.
inline constexpr std::string_view kTagResource = Const::ResourceStringTag;  // "Res_..." captions and sentences
inline constexpr std::string_view kTagMessage = "Message";                  // numbered messages of the message box
inline constexpr std::string_view kTagExchange = "Exchange";                // names of exchanges by code
inline constexpr std::string_view kTagCurrency = "Currency";                // names of currencies by code

// Language indices of every lookup, as the framework's language manager counts them.
inline constexpr int kLanguageEnglish = 0;
inline constexpr int kLanguageTraditional = 1;  // Chinese as written in Hong Kong
inline constexpr int kLanguageSimplified = 2;   // Chinese as written on the mainland
inline constexpr int kLanguageCount = 3;

// Every text of the system, by tag and key, in three languages (UTF-8). Plain data: copies are independent.
class TTextTable {
public:
    using TTexts = std::array<std::string, kLanguageCount>;

    // Reads the form tag,key,en,zh-Hant,zh-Hans with that header. Throws std::runtime_error with the name and the line
    // for another header, a row of another length, an empty tag or key, and a key that stands twice.
    static TTextTable Load(const std::filesystem::path& File);
    static TTextTable Parse(std::string_view Csv, const std::string& Name);

    // The table that is compiled into the program.
    static const TTextTable& Embedded();

    // An unknown key gives the key itself, so that a gap is seen and can be searched for; an index out of range counts
    // as English.
    std::string Lookup(std::string_view Tag, std::string_view Key, int Language) const;

    // The text of a resource key with its arguments (see Fill). An argument that is a resource key itself stands for
    // its own text, filled with the arguments that follow it: the reason inside a sentence.
    std::string Sentence(std::string_view Key, const std::vector<std::string>& Args, int Language) const;

    bool Contains(std::string_view Tag, std::string_view Key) const;

    // Adds or overwrites one entry: names that the market store knows better than the table.
    void Put(std::string_view Tag, std::string_view Key, TTexts Texts);

    std::vector<std::string> Keys(std::string_view Tag) const;  // ascending

private:
    using TByKey = std::map<std::string, TTexts, std::less<>>;

    const TTexts* Find(std::string_view Tag, std::string_view Key) const;  // null when unknown

    std::map<std::string, TByKey, std::less<>> FByTag;
};

// Replaces %1 … %9 by the arguments of that number. One pass: what an argument brings along is not looked at again, so
// a typed "%2" stays as typed. A number without an argument stays as it stands.
std::string Fill(std::string_view Text, const std::vector<std::string>& Args);

}  // namespace ws
