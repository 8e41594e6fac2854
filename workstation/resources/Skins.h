// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/base/Color.h"

namespace ws {

struct TRgb {
    std::uint8_t FRed = 0;
    std::uint8_t FGreen = 0;
    std::uint8_t FBlue = 0;

    bool operator==(const TRgb&) const = default;
};

// "#RRGGBB", upper or lower case; nothing else is a colour.
std::optional<TRgb> ParseRgb(std::string_view Text);
std::string FormatRgb(TRgb Color);  // "#RRGGBB", upper case

// Colours cross to the framework as integers with the red byte lowest (255 is red). Higher bytes than the third are
// ignored on the way back.
fw::TColor ToFrameworkColor(TRgb Color);
TRgb FromFrameworkColor(fw::TColor Color);

// Contrast of two colours as web accessibility rules measure it: 1 (same) to 21 (black on white); texts need 4.5.
double ContrastRatio(TRgb A, TRgb B);

// Every colour of every skin, by skin name and key ("co..."). The first skin is the one a new user starts with. A
// colour that depends on the palette of profit and loss has a row for each of them: "coProfit.RedUp"; the first palette
// is a new user's.
class TSkinTable {
public:
    // The form is key,<skin>,<skin>... and one #RRGGBB a skin in each row. Throws std::runtime_error with the name and
    // the line for anything else, a key that stands twice included, and for a key without a row for every palette.
    static TSkinTable Parse(std::string_view Csv, const std::string& Name);

    // The table that is compiled into the program.
    static const TSkinTable& Embedded();

    const std::vector<std::string>& Skins() const { return FSkins; }
    const std::vector<std::string>& Palettes() const { return FPalettes; }
    const std::vector<std::string>& Keys() const { return FKeys; }  // those without a palette's name

    // Nothing for an unknown skin or key; an unknown palette counts as the first.
    std::optional<TRgb> Color(std::string_view Skin, std::string_view Key, std::string_view Palette = {}) const;

private:
    void CheckPalettes(const std::string& Name) const;

    std::vector<std::string> FSkins;                                                       // in file order
    std::vector<std::string> FPalettes;                                                    // in file order
    std::vector<std::string> FKeys;                                                        // in file order
    std::map<std::string, std::map<std::string, TRgb, std::less<>>, std::less<>> FColors;  // skin -> key -> colour
};

}  // namespace ws
