// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/CommandLine.h"

#include <algorithm>
#include <array>
#include <functional>
#include <sstream>

#include "framework/base/NumberFormat.h"
#include "framework/base/Numbers.h"
#include "workstation/preferences/PreferenceTable.h"
#include "workstation/resources/Skins.h"
#include "workstation/resources/Texts.h"

namespace ws {

namespace {

// An option, the modes that know it, and what its value does (none: a flag).
struct TOption {
    const char* Name;
    std::vector<ERunMode> Modes;
    bool HasValue;
    std::function<void(TCommandLine&, const std::string&)> Take;
};

double Number(const std::string& Option, const std::string& Value) {
    const auto Read = fw::GroupedTextToFloat(Value);
    if (!Read) throw TUsageError{"Res_UsageNumber", {Option, Value}};
    return *Read;
}

// SYMBOL,buy|sell,PREMIUM,QTY
TStrategyLeg LegOf(const std::string& Value) {
    std::vector<std::string> Parts;
    std::istringstream Stream(Value);
    for (std::string Part; std::getline(Stream, Part, ',');) Parts.push_back(Part);
    const bool Complete = Parts.size() == 4 && !Parts[0].empty() && (Parts[1] == "buy" || Parts[1] == "sell");
    const auto Premium = Complete ? fw::TextToFloat(Parts[2]) : std::nullopt;
    const auto Qty = Complete ? fw::TextToFloat(Parts[3]) : std::nullopt;
    if (Value.ends_with(',') || !Premium || !Qty) throw TUsageError{"Res_UsageLeg", {Value}};
    return {Parts[0], Parts[1] == "buy" ? ELegSide::Buy : ELegSide::Sell, Premium, *Qty};
}

std::string Listed(const std::vector<std::string>& Names) {
    std::string Result;
    for (const auto& Name : Names) Result += (Result.empty() ? "" : ", ") + Name;
    return Result;
}

const std::vector<TOption>& Options() {
    using enum ERunMode;
    static const std::vector<TOption> kOptions{
        {"--user", {Window, Headless, Picture, ListViews}, true, [](auto& C, auto& V) { C.User = V; }},
        {"--skin",
         {Window, Headless, Picture},
         true,
         [](auto& C, auto& V) {
             const auto& Skins = TSkinTable::Embedded().Skins();
             if (std::find(Skins.begin(), Skins.end(), V) == Skins.end())
                 throw TUsageError{"Res_UsageSkin", {V, Listed(Skins)}};
             C.Skin = V;
         }},
        {"--language",
         {Window, Headless, Picture, ListViews},
         true,
         [](auto& C, auto& V) {
             if (!LanguageIndexOf(V)) throw TUsageError{"Res_UsageLanguage", {V}};
             C.Language = V;
         }},
        {"--number-format",
         {Window, Headless, Picture},
         true,
         [](auto& C, auto& V) {
             if (!fw::FindNumberFormat(V))
                 throw TUsageError{"Res_UsageNumberFormat", {V, Listed(fw::NumberFormatNames())}};
             C.NumberFormat = V;
         }},
        {"--scale",
         {Window, Headless, Picture},
         true,
         [](auto& C, auto& V) {
             const TPreference& Scale = *FindPreference(kPlatformSection, kPreferenceScale);
             std::vector<std::string> Known;
             for (const auto& Each : Scale.Values) Known.push_back(Each.Text);
             if (!IsAllowed(Scale, V)) throw TUsageError{"Res_UsageScale", {V, Listed(Known)}};
             C.Scale = V;
         }},
        {"--import", {Headless}, true, [](auto& C, auto& V) { C.ImportFile = V; }},
        {"--skip-bad-lines", {Headless, Import}, false, [](auto& C, auto&) { C.SkipBadLines = true; }},
        {"--date-order",
         {Headless, Import},
         true,
         [](auto& C, auto& V) {
             const auto Order = DateOrderOf(V);
             if (!Order) throw TUsageError{"Res_UsageDateOrder", {V}};
             C.DateOrder = *Order;
         }},
        {"--exchange", {Headless}, true, [](auto& C, auto& V) { C.Strategy.Exchange = V; }},
        {"--series", {Headless}, true, [](auto& C, auto& V) { C.Strategy.Series = V; }},
        {"--month", {Headless}, true, [](auto& C, auto& V) { C.Strategy.Month = V; }},
        {"--leg", {Headless}, true, [](auto& C, auto& V) { C.Strategy.Legs.push_back(LegOf(V)); }},
        {"--down", {Headless}, true, [](auto& C, auto& V) { C.Strategy.Down = Number("--down", V); }},
        {"--up", {Headless}, true, [](auto& C, auto& V) { C.Strategy.Up = Number("--up", V); }},
        {"--interval", {Headless}, true, [](auto& C, auto& V) { C.Strategy.Interval = Number("--interval", V); }},
        {"--view", {Picture}, true, [](auto& C, auto& V) { C.View = V; }},
        {"--out", {Headless, Picture, Pictures}, true, [](auto& C, auto& V) { C.Out = V; }},
    };
    return kOptions;
}

struct TModeName {
    const char* Name;
    ERunMode Mode;
};
// The first of them that is given anywhere decides.
constexpr std::array kModes{TModeName{"--help", ERunMode::Help},           TModeName{"-h", ERunMode::Help},
                            TModeName{"--version", ERunMode::Version},     TModeName{"--headless", ERunMode::Headless},
                            TModeName{"--picture", ERunMode::Picture},     TModeName{"--pictures", ERunMode::Pictures},
                            TModeName{"--list-views", ERunMode::ListViews}};

ERunMode ModeOf(const std::vector<std::string>& Arguments) {
    for (const TModeName& Each : kModes)
        if (std::find(Arguments.begin(), Arguments.end(), Each.Name) != Arguments.end()) return Each.Mode;
    return !Arguments.empty() && Arguments.front() == "import" ? ERunMode::Import : ERunMode::Window;
}

bool IsModeName(const std::string& Argument) {
    return std::any_of(kModes.begin(), kModes.end(), [&](const TModeName& Each) { return Argument == Each.Name; });
}

void Check(const TCommandLine& Line) {
    if (Line.Mode == ERunMode::Import && Line.ImportFile.empty()) throw TUsageError{"Res_UsageImportFile", {}};
    const bool Writes =
        Line.Mode == ERunMode::Headless || Line.Mode == ERunMode::Picture || Line.Mode == ERunMode::Pictures;
    if (Writes && Line.Out.empty()) throw TUsageError{"Res_UsageOut", {}};
    if (Line.Mode == ERunMode::Headless && !Line.ImportFile.empty() && Line.Strategy.Legs.empty())
        throw TUsageError{"Res_UsageImportLegs", {}};
}

}  // namespace

std::optional<int> LanguageIndexOf(const std::string& Code) {
    if (Code == "en") return kLanguageEnglish;
    if (Code == "zh-Hant") return kLanguageTraditional;
    if (Code == "zh-Hans") return kLanguageSimplified;
    return std::nullopt;
}

TCommandLine ParseCommandLine(const std::vector<std::string>& Arguments) {
    TCommandLine Line;
    Line.Mode = ModeOf(Arguments);
    if (Line.Mode == ERunMode::Help || Line.Mode == ERunMode::Version) return Line;
    for (size_t i = 0; i < Arguments.size(); ++i) {
        const auto& Argument = Arguments[i];
        if (IsModeName(Argument) || (i == 0 && Argument == "import")) continue;
        const auto Option =
            std::find_if(Options().begin(), Options().end(), [&](const TOption& O) { return Argument == O.Name; });
        if (Option == Options().end()) {
            const bool File = Line.Mode == ERunMode::Import && Line.ImportFile.empty() && !Argument.starts_with('-');
            if (!File) throw TUsageError{"Res_UsageUnknown", {Argument}};
            Line.ImportFile = Argument;
            continue;
        }
        if (std::find(Option->Modes.begin(), Option->Modes.end(), Line.Mode) == Option->Modes.end())
            throw TUsageError{"Res_UsageMode", {Argument}};
        if (Option->HasValue && ++i == Arguments.size()) throw TUsageError{"Res_UsageValue", {Argument}};
        Option->Take(Line, Option->HasValue ? Arguments[i] : std::string());
    }
    Check(Line);
    return Line;
}

}  // namespace ws
