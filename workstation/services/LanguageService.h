// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/services/LanguageManager.h"
#include "workstation/market/MarketRows.h"
#include "workstation/resources/Texts.h"

namespace ws {

// Texts of the program in the current language; names of exchanges and currencies come from the market.
class TLanguageService : public fw::TCustomLanguageManager {
public:
    explicit TLanguageService(const TTextTable& Texts) : FTexts(Texts) {}

    void GetResourceString(fw::Text& Out, const fw::Text& Tag, const fw::Text& Key, int Kind, int Reserved,
                           void* Extra) override;
    int GetLanguage() override { return FLanguage; }

    void SetLanguage(int Language);  // an index out of range counts as English
    void TakeNames(const TMarketSet& Market);

    // Text of a caption or message key; %1..%9 filled.
    std::string Resource(std::string_view Key, const std::vector<std::string>& Args = {}) const;
    std::string Message(std::string_view Code) const;

private:
    TTextTable FTexts;
    int FLanguage = kLanguageEnglish;
};

}  // namespace ws
