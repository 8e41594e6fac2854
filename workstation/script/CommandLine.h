// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "workstation/market/ChainDate.h"
#include "workstation/script/Strategy.h"

namespace ws {

enum class ERunMode { Window, Headless, Import, Picture, Pictures, ListViews, Help, Version };

// What the program was asked to do.
struct TCommandLine {
    ERunMode Mode = ERunMode::Window;
    std::string User;                  // --user
    std::filesystem::path ImportFile;  // import FILE, or --import FILE of the headless job
    bool SkipBadLines = false;         // --skip-bad-lines
    EDateOrder DateOrder = EDateOrder::Unstated;
    TStrategy Strategy;         // of the headless job; no legs: the first start's
    std::filesystem::path Out;  // folder of the headless job and the guide's pictures, file of the picture
    std::string View;           // --view: the picture is of this view alone
    std::string Skin;           // --skin, window and picture
    std::string Language;       // --language en|zh-Hant|zh-Hans; "": as remembered
    std::string NumberFormat;   // --number-format; "": as remembered
    std::string Scale;          // --scale, per cent; "": as remembered
};

// Wrong arguments; a resource key and its arguments, for one clear line.
struct TUsageError {
    std::string Key;
    std::vector<std::string> Args;
};

// Arguments without the program's name. Throws TUsageError.
TCommandLine ParseCommandLine(const std::vector<std::string>& Arguments);

// Index of a language of the command line; none for an unknown one.
std::optional<int> LanguageIndexOf(const std::string& Code);

}  // namespace ws
