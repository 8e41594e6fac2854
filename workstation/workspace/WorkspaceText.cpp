// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/WorkspaceText.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

namespace ws {

namespace {

constexpr std::string_view kHead = "ventiq-workspace=";
constexpr std::string_view kEnd = "end=";

struct TEscape {
    char Plain, Letter;
    bool InNamesOnly;
};
constexpr TEscape kEscapes[] = {{'\\', '\\', false}, {'\n', 'n', false}, {'\r', 'r', false},
                                {'\0', '0', false},  {'=', 'e', true},   {'[', 'b', true}};

std::string Escaped(std::string_view Text, bool IsName) {
    std::string Result;
    for (const char C : Text) {
        const auto* At = std::find_if(std::begin(kEscapes), std::end(kEscapes), [&](const TEscape& Each) {
            return Each.Plain == C && (IsName || !Each.InNamesOnly);
        });
        if (At == std::end(kEscapes))
            Result += C;
        else
            (Result += '\\') += At->Letter;
    }
    return Result;
}

// A backslash before anything else stands for itself.
std::string Unescaped(std::string_view Text) {
    std::string Result;
    for (size_t i = 0; i < Text.size(); ++i) {
        const char Next = Text[i] == '\\' && i + 1 < Text.size() ? Text[i + 1] : '\x01';
        const auto* At = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                      [&](const TEscape& Each) { return Each.Letter == Next; });
        if (At == std::end(kEscapes)) {
            Result += Text[i];
        } else {
            Result += At->Plain;
            ++i;
        }
    }
    return Result;
}

// FNV-1a: tells a cut or changed file, no more is asked of it.
std::string Checksum(const std::string& Lines) {
    std::uint64_t Sum = 0xcbf29ce484222325u;
    for (const char C : Lines) Sum = (Sum ^ static_cast<unsigned char>(C)) * 0x100000001b3u;
    std::string Digits(16, '0');
    for (size_t i = Digits.size(); i-- > 0; Sum /= 16) Digits[i] = "0123456789abcdef"[Sum % 16];
    return Digits;
}

std::vector<std::string_view> LinesOf(std::string_view Text) {
    std::vector<std::string_view> Lines;
    while (!Text.empty()) {
        const size_t End = Text.find('\n');
        std::string_view Line = Text.substr(0, End);
        Text.remove_prefix(End == std::string_view::npos ? Text.size() : End + 1);
        if (Line.ends_with('\r')) Line.remove_suffix(1);
        if (!Line.empty()) Lines.push_back(Line);
    }
    return Lines;
}

// None: not the first line of a workspace.
std::optional<int> FormatOf(std::string_view Line) {
    if (!Line.starts_with(kHead)) return std::nullopt;
    Line.remove_prefix(kHead.size());
    int Format = 0;
    const auto [End, Error] = std::from_chars(Line.data(), Line.data() + Line.size(), Format);
    if (End != Line.data() + Line.size() || Line.empty() || Line.front() == '-') return std::nullopt;
    if (Error == std::errc::result_out_of_range) return kWorkspaceFormat + 1;
    return Format > 0 ? std::optional(Format) : std::nullopt;
}

void Take(TWorkspaceSections& Sections, std::string_view Line) {
    if (Line.front() == '[') {
        Line.remove_prefix(1);
        if (Line.ends_with(']')) Line.remove_suffix(1);
        Sections.push_back({Unescaped(Line), {}});
        return;
    }
    if (Sections.empty()) Sections.emplace_back();
    const size_t Equals = std::min(Line.find('='), Line.size());
    Sections.back().Fields.emplace_back(Unescaped(Line.substr(0, Equals)),
                                        Unescaped(Line.substr(std::min(Equals + 1, Line.size()))));
}

}  // namespace

std::string TWorkspaceSection::Get(std::string_view Key) const {
    const auto At = std::find_if(Fields.begin(), Fields.end(), [&](const auto& Field) { return Field.first == Key; });
    return At == Fields.end() ? std::string() : At->second;
}

void TWorkspaceSection::Set(std::string_view Key, std::string Value) {
    const auto At = std::find_if(Fields.begin(), Fields.end(), [&](const auto& Field) { return Field.first == Key; });
    if (At == Fields.end())
        Fields.emplace_back(Key, std::move(Value));
    else
        At->second = std::move(Value);
}

std::string WriteWorkspace(const TWorkspaceSections& Sections) {
    std::string Text = std::string(kHead) + std::to_string(kWorkspaceFormat) + '\n';
    for (const TWorkspaceSection& Section : Sections) {
        Text += '[' + Escaped(Section.Name, true) + "]\n";
        for (const auto& [Key, Value] : Section.Fields) Text += Escaped(Key, true) + '=' + Escaped(Value, false) + '\n';
    }
    return Text + std::string(kEnd) + Checksum(Text) + '\n';
}

TWorkspaceRead ReadWorkspace(std::string_view Text) {
    std::vector<std::string_view> Lines = LinesOf(Text);
    const std::optional<int> Format = Lines.empty() ? std::nullopt : FormatOf(Lines.front());
    if (!Format) return {};
    const bool Newer = *Format > kWorkspaceFormat;
    const std::string_view Last = Lines.back();
    if (Lines.size() > 1 && Last.starts_with(kEnd)) Lines.pop_back();
    if (!Newer) {
        std::string Summed;
        for (const std::string_view Line : Lines) (Summed += Line) += '\n';
        if (Last != std::string(kEnd) + Checksum(Summed)) return {};
    }
    TWorkspaceRead Result{Newer ? EWorkspaceState::Newer : EWorkspaceState::Whole, {}};
    for (size_t i = 1; i < Lines.size(); ++i) Take(Result.Sections, Lines[i]);
    return Result;
}

}  // namespace ws
