// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/WorkspaceName.h"

#include <charconv>

namespace ws {

namespace {

constexpr size_t kMostBytes = 120;  // of a name; escaped and with an ending it still fits into 255
constexpr size_t kMostFileBytes = 220;

// The dot is escaped too: what follows one in a file name is an ending.
bool StandsForItself(char C) {
    return static_cast<unsigned char>(C) > 0x7f || (C >= '0' && C <= '9') || (C >= 'A' && C <= 'Z') ||
           (C >= 'a' && C <= 'z') || C == ' ' || C == '-' || C == '_' || C == '(' || C == ')';
}

}  // namespace

std::string FileNameOf(std::string_view Name) {
    std::string Result;
    for (const char C : Name) {
        if (StandsForItself(C)) {
            Result += C;
            continue;
        }
        const auto Byte = static_cast<unsigned char>(C);
        Result += '%';
        Result += "0123456789ABCDEF"[Byte / 16];
        Result += "0123456789ABCDEF"[Byte % 16];
    }
    return Result;
}

std::string NameOfFile(std::string_view FileName) {
    std::string Result;
    for (size_t i = 0; i < FileName.size(); ++i) {
        unsigned Byte = 0;
        const char* Digits = FileName.data() + i + 1;
        if (FileName[i] == '%' && i + 2 < FileName.size() &&
            std::from_chars(Digits, Digits + 2, Byte, 16).ptr == Digits + 2) {
            Result += static_cast<char>(Byte);
            i += 2;
        } else {
            Result += FileName[i];
        }
    }
    return Result;
}

std::optional<fw::TRefusal> NameRefusal(const std::string& Name) {
    if (fw::Trim(Name).empty()) return fw::TRefusal{"Res_WorkspaceNameEmpty", {}};
    if (Name.size() > kMostBytes || FileNameOf(Name).size() > kMostFileBytes)
        return fw::TRefusal{"Res_WorkspaceNameLong", {}};
    return std::nullopt;
}

}  // namespace ws
