// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqForm.h"

namespace ventiq {

// Text of a caption or message key in the current language; an empty key gives "".
Text GetResourceHeader(const Text& Key);

// Name of an exchange or currency code in the current language.
Text GetTagText(const Text& Tag, const Text& Key);

// "%s(%s)" of an exchange's code and name.
Text ExchangeItemText(const Text& Exchange);
// "%s(%s)" of a series' code and its name in the current language; the bare code where the market knows no record.
Text SeriesItemText(const Text& Series);

// Texts that the frame keeps because cells hold them: a language switch needs the old ones to find the cells.
class TVentiqTexts {
public:
    explicit TVentiqTexts(TVentiqForm& Form) : FForm(Form) {}

    // Display texts for call and put; the bare keys until the first language update.
    Text FCallRes = "Res_Call";
    Text FPutRes = "Res_Put";

    // Captions of layout items and buttons, and the account placeholder.
    void UpdateCaptions();
    void UpdateCallPut();
    // Items of the Side editor: buy, then sell.
    void UpdateSideItems();

private:
    TVentiqForm& FForm;  // borrowed
};

}  // namespace ventiq
