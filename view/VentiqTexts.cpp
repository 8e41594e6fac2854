// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqTexts.h"

#include "framework/services/LanguageManager.h"
#include "framework/services/MarketAdapter.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

constexpr int kLanguage1 = 1;  // the languages for which the market keeps a series name of its own
constexpr int kLanguage2 = 2;

Text SeriesName(const TCustomSeries& Series) {
    switch (TCustomLanguageManager::GetInstance().GetLanguage()) {
        case kLanguage1: return Series.GetNameForLanguage1();
        case kLanguage2: return Series.GetNameForLanguage2();
        default: return Series.GetDefaultName();
    }
}

}  // namespace

Text GetTagText(const Text& Tag, const Text& Key) {
    Text Result;
    TCustomLanguageManager::GetInstance().GetResourceString(Result, Tag, Key);
    return Result;
}

Text GetResourceHeader(const Text& Key) { return Key.empty() ? Text() : GetTagText(Const::ResourceStringTag, Key); }

Text ExchangeItemText(const Text& Exchange) {
    return FormatText(kCodeAndText, {Exchange, GetTagText(kTagExchange, Exchange)});
}

Text SeriesItemText(const Text& Series) {
    const auto* Record = TCustomMarketAdapter::GetInstance().GetSeriesInfo(Series);
    return Record ? FormatText(kCodeAndText, {Record->GetCode(), SeriesName(*Record)}) : Series;
}

void TVentiqTexts::UpdateCaptions() {
    FForm.liExchange.SetCaption(GetResourceHeader("Res_Exchange"));
    FForm.liSeries.SetCaption(GetResourceHeader("Res_Series"));
    FForm.liExpiry.SetCaption(GetResourceHeader("Res_Month"));
    // The placeholder only: the editor's hint carries the account code.
    FForm.edtAccount.SetPlaceholder(GetResourceHeader("Res_Account"));
    FForm.liAccount.SetCaption(GetResourceHeader("Res_Account"));
    FForm.btnLoad.SetCaption(GetResourceHeader("Res_Load"));
    FForm.btnCalc.SetCaption(GetResourceHeader("Res_Calculate"));
    FForm.btnClear.SetCaption(GetResourceHeader("Res_Clear"));
    FForm.btnSubmit.SetCaption(GetResourceHeader("Res_Submit"));
    FForm.liDown.SetCaption(GetResourceHeader("Res_DownPrice"));
    FForm.liUp.SetCaption(GetResourceHeader("Res_UpPrice"));
    FForm.liInterval.SetCaption(GetResourceHeader("Res_Interval"));
}

void TVentiqTexts::UpdateCallPut() {
    FCallRes = GetResourceHeader("Res_Call");
    FPutRes = GetResourceHeader("Res_Put");
}

void TVentiqTexts::UpdateSideItems() {
    FForm.epiSide.Items = {GetResourceHeader("Res_Side_Buy"), GetResourceHeader("Res_Side_Sell")};
}

}  // namespace ventiq
