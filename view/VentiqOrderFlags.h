// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>
#include <utility>
#include <vector>

#include "framework/base/StringList.h"
#include "framework/base/Text.h"

namespace ventiq {

using namespace fw;

// Resource key and the text shown for it, in the order in which the choices are listed.
using TFlagDictionary = std::vector<std::pair<Text, Text>>;

// Order flags of a leg: which choices a symbol offers, and what a cell's text means.
class TVentiqOrderFlags {
public:
    // Keys of the choices offered for the symbol that was prepared last; one list for both attributes.
    TStringList FFlagKeys;
    // Texts in the current language; they change only after the grid's cells were re-translated.
    TFlagDictionary FOpenCloseDictionary, FPrincipalDictionary;

    void UpdateOpenCloseTexts();
    void UpdatePrincipalTexts();

    void InitOpenClose(const Text& Symbol);
    void InitPrincipal(const Text& Symbol);

    // Flag behind a shown text, blanks at its ends ignored; 0 when no choice has that text.
    int GetOpenCloseFlag(const Text& Shown) const;
    int GetPrincipalFlag(const Text& Shown) const;

    // Whether the symbol offers the choice with exactly that text (blanks count here). Prepares FFlagKeys.
    bool CheckSymbolOpenCloseValidation(const Text& Symbol, const Text& Shown);
    bool CheckSymbolPrincipalValidation(const Text& Symbol, const Text& Shown);
};

}  // namespace ventiq
