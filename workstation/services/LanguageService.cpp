// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/LanguageService.h"

namespace ws {

void TLanguageService::GetResourceString(fw::Text& Out, const fw::Text& Tag, const fw::Text& Key, int, int, void*) {
    Out = FTexts.Lookup(Tag, Key, FLanguage);
}

void TLanguageService::SetLanguage(int Language) {
    FLanguage = Language >= 0 && Language < kLanguageCount ? Language : kLanguageEnglish;
}

void TLanguageService::TakeNames(const TMarketSet& Market) {
    for (const auto& Row : Market.Exchanges)
        FTexts.Put(kTagExchange, Row.Code, {Row.NameEn, Row.NameHant, Row.NameHans});
    for (const auto& Row : Market.Currencies)
        FTexts.Put(kTagCurrency, Row.Code, {Row.NameEn, Row.NameHant, Row.NameHans});
}

std::string TLanguageService::Resource(std::string_view Key, const std::vector<std::string>& Args) const {
    return FTexts.Sentence(Key, Args, FLanguage);
}

std::string TLanguageService::Message(std::string_view Code) const {
    return FTexts.Lookup(kTagMessage, Code, FLanguage);
}

}  // namespace ws
