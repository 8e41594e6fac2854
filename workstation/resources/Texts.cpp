// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/resources/Texts.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "workstation/resources/CsvRows.h"

namespace ws {

namespace embedded {
extern const std::string_view kTextsCsv;
}

namespace {

const std::vector<std::string> kHeader{"tag", "key", "en", "zh-Hant", "zh-Hans"};

}  // namespace

TTextTable TTextTable::Load(const std::filesystem::path& File) {
    std::ifstream Stream(File, std::ios::binary);
    if (!Stream) throw std::runtime_error(File.string() + ": cannot be read");
    std::ostringstream Content;
    Content << Stream.rdbuf();
    return Parse(Content.str(), File.string());
}

TTextTable TTextTable::Parse(std::string_view Csv, const std::string& Name) {
    TTextTable Table;
    bool HeaderSeen = false;
    for (TResourceRow& Row : ReadCsvRows(Csv, Name)) {
        const auto Fail = [&](const std::string& Why) {
            throw std::runtime_error(Name + ", line " + std::to_string(Row.FLine) + ": " + Why);
        };
        if (!HeaderSeen) {
            if (Row.FFields != kHeader) Fail("the header must be tag,key,en,zh-Hant,zh-Hans");
            HeaderSeen = true;
            continue;
        }
        if (Row.FFields.size() != kHeader.size()) Fail("a row has five fields");
        auto& Fields = Row.FFields;
        if (Fields[0].empty() || Fields[1].empty()) Fail("tag and key may not be empty");
        if (Table.Contains(Fields[0], Fields[1])) Fail("the key " + Fields[1] + " stands twice");
        Table.Put(Fields[0], Fields[1], {std::move(Fields[2]), std::move(Fields[3]), std::move(Fields[4])});
    }
    if (!HeaderSeen) throw std::runtime_error(Name + ": holds no texts");
    return Table;
}

const TTextTable& TTextTable::Embedded() {
    static const TTextTable Table = Parse(embedded::kTextsCsv, "texts.csv");
    return Table;
}

const TTextTable::TTexts* TTextTable::Find(std::string_view Tag, std::string_view Key) const {
    const auto ByKey = FByTag.find(Tag);
    if (ByKey == FByTag.end()) return nullptr;
    const auto Found = ByKey->second.find(Key);
    return Found == ByKey->second.end() ? nullptr : &Found->second;
}

std::string TTextTable::Lookup(std::string_view Tag, std::string_view Key, int Language) const {
    const TTexts* Texts = Find(Tag, Key);
    if (!Texts) return std::string(Key);
    const bool Known = Language >= 0 && Language < kLanguageCount;
    return (*Texts)[static_cast<std::size_t>(Known ? Language : kLanguageEnglish)];
}

std::string TTextTable::Sentence(std::string_view Key, const std::vector<std::string>& Args, int Language) const {
    std::vector<std::string> Filled = Args;
    for (std::size_t Index = Args.size(); Index-- > 0;) {  // from the end, so that a reason may hold a reason
        if (!Contains(kTagResource, Args[Index])) continue;
        Filled[Index] = Fill(Lookup(kTagResource, Args[Index], Language), {Filled.begin() + Index + 1, Filled.end()});
    }
    return Fill(Lookup(kTagResource, Key, Language), Filled);
}

bool TTextTable::Contains(std::string_view Tag, std::string_view Key) const { return Find(Tag, Key) != nullptr; }

void TTextTable::Put(std::string_view Tag, std::string_view Key, TTexts Texts) {
    FByTag[std::string(Tag)].insert_or_assign(std::string(Key), std::move(Texts));
}

std::vector<std::string> TTextTable::Keys(std::string_view Tag) const {
    std::vector<std::string> Result;
    if (const auto ByKey = FByTag.find(Tag); ByKey != FByTag.end()) {
        for (const auto& [Key, Texts] : ByKey->second) Result.push_back(Key);
    }
    return Result;
}

std::string Fill(std::string_view Text, const std::vector<std::string>& Args) {
    std::string Result;
    for (std::size_t Index = 0; Index < Text.size(); ++Index) {
        const bool Digit =
            Text[Index] == '%' && Index + 1 < Text.size() && Text[Index + 1] >= '1' && Text[Index + 1] <= '9';
        const std::size_t Number = Digit ? static_cast<std::size_t>(Text[Index + 1] - '1') : Args.size();
        if (Number < Args.size()) {
            Result += Args[Number];
            ++Index;
        } else {
            Result += Text[Index];
        }
    }
    return Result;
}

}  // namespace ws
