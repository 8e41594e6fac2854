// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqContext.h"
#include "view/VentiqForm.h"

namespace ventiq {

// The cascade exchange, series, expiry, and the account editor. A choice of a level refills the levels below it; what
// the user chose is remembered, so that a refill lands on it again.
class TVentiqMarketSelectors {
public:
    TVentiqMarketSelectors(TVentiqForm& Form, TVentiqContext& Context) : FForm(Form), FContext(Context) {}

    // Codes behind the combo items, index for index.
    TStringList FExchangeList, FSeriesList, FMonthList;
    // The remembered choice: written by a choice of the user only, never by a refill.
    Text FLayoutExchange, FLayoutSeries, FLayoutMonth;

    bool FUpdatingLanguage = false;  // item texts are being rewritten: change handlers do nothing
    bool FIsAutoselect = false;      // a list is being refilled: the selection is the program's and is not remembered

    // A month was selected and the default range may have changed.
    std::function<void()> OnMonthSelected;

    void InitExchangeList();
    void InitSeries();
    void InitMonth();
    // The host's exchange list changed.
    void MarketListUpdate(TObject* Sender);

    void cmbExchangePropertiesChange(TObject* Sender);
    void cmbSeriesPropertiesChange(TObject* Sender);
    void cmbExpiryPropertiesChange(TObject* Sender);

    // Item texts in the current language, indices kept.
    void UpdateExchangeTexts();
    void UpdateSeriesTexts();

    // Hands the account behind the editor (its hint, not its text) to the data control.
    void edtAccountExit(TObject* Sender);
    void edtAccountKeyPress(TObject* Sender, char& Key);
    // Lets the host serve the account popup, for users who may choose an account.
    void RegisterAccountEditor();
    void RemoveAccountEditor();

private:
    void RememberShown(Text& Remembered, const TComboBox& Combo, const TStringList& Codes);
    TVentiqForm& FForm;  // both borrowed from the frame
    TVentiqContext& FContext;
};

}  // namespace ventiq
