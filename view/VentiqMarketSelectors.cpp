// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqMarketSelectors.h"

#include <algorithm>

#include "framework/base/FlagGuard.h"
#include "framework/services/EditorManager.h"
#include "framework/services/UserAppProfile.h"
#include "registration/VentiqConstDef.h"
#include "view/VentiqTexts.h"

namespace ventiq {

namespace {

bool IsValidIndex(int Index, const TStringList& Codes) { return Index >= 0 && Index < Codes.GetCount(); }

// Position of a remembered code; a code that is not offered, and none at all, fall back to the first item.
int IndexOrFirst(const TStringList& Codes, const Text& Target) {
    return Target.empty() ? 0 : std::max(0, Codes.IndexOf(Target));
}

// Texts first: a lookup that raises must not leave the combo in the middle of an update.
std::vector<Text> ItemTexts(const TStringList& Codes, Text (*ItemText)(const Text&)) {
    std::vector<Text> Result;
    for (const auto& Code : Codes.Items()) Result.push_back(ItemText(Code));
    return Result;
}

void Fill(TComboBox& Combo, const TStringList& Codes, Text (*ItemText)(const Text&)) {
    const auto Texts = ItemTexts(Codes, ItemText);
    Combo.BeginUpdate();
    for (const auto& Item : Texts) Combo.AddItem(Item);
    Combo.EndUpdate();
}

void Rewrite(TComboBox& Combo, const TStringList& Codes, Text (*ItemText)(const Text&)) {
    if (Combo.GetCount() != Codes.GetCount()) return;
    const auto Texts = ItemTexts(Codes, ItemText);
    Combo.BeginUpdate();
    for (int i = 0; i < Combo.GetCount(); ++i) Combo.SetItem(i, Texts[static_cast<size_t>(i)]);
    Combo.EndUpdate();
}

Text MonthItemText(const Text& Month) { return Month; }

}  // namespace

void TVentiqMarketSelectors::InitExchangeList() {
    TFlagGuard Refilling(FIsAutoselect, EGuardEnd::Restore);
    const Text Target = FLayoutExchange;
    FForm.cmbExchange.ClearItems();
    FExchangeList.Clear();
    FForm.cmbSeries.ClearItems();
    FSeriesList.Clear();
    FForm.cmbMonth.ClearItems();
    FMonthList.Clear();

    auto* Control = FContext.FMyDataControl.get();
    if (Control) Control->GetExchangeList(&FExchangeList);
    Fill(FForm.cmbExchange, FExchangeList, ExchangeItemText);
    if (FForm.cmbExchange.GetCount() == 0 && Control) {
        Control->SetExchange("");
        Control->SetSeries("");
        Control->SetMonth("");
    } else {
        FForm.cmbExchange.SetItemIndex(IndexOrFirst(FExchangeList, Target));
    }
}

void TVentiqMarketSelectors::InitSeries() {
    TFlagGuard Refilling(FIsAutoselect, EGuardEnd::Restore);
    const Text Target = FLayoutSeries;
    FForm.cmbSeries.ClearItems();
    FSeriesList.Clear();
    FForm.cmbMonth.ClearItems();
    FMonthList.Clear();

    auto* Control = FContext.FMyDataControl.get();
    if (Control) Control->GetSeriesList(&FSeriesList);
    Fill(FForm.cmbSeries, FSeriesList, SeriesItemText);
    if (FForm.cmbSeries.GetCount() == 0 && Control) {
        Control->SetSeries("");
        Control->SetMonth("");
    } else {
        FForm.cmbSeries.SetItemIndex(IndexOrFirst(FSeriesList, Target));
    }
}

void TVentiqMarketSelectors::InitMonth() {
    TFlagGuard Refilling(FIsAutoselect, EGuardEnd::Restore);
    Text Target = FLayoutMonth;
    const int Shown = FForm.cmbMonth.GetItemIndex();
    // Deliberate: the first expiry is where a refill lands anyway, so a month shown at index 0 is not carried over.
    if (Target.empty() && Shown > 0 && Shown < FMonthList.GetCount()) Target = FMonthList.At(Shown);
    FForm.cmbMonth.ClearItems();
    FMonthList.Clear();

    auto* Control = FContext.FMyDataControl.get();
    if (Control) Control->GetMonthList(&FMonthList);
    Fill(FForm.cmbMonth, FMonthList, MonthItemText);
    if (FForm.cmbMonth.GetCount() == 0 && Control)
        Control->SetMonth("");
    else
        FForm.cmbMonth.SetItemIndex(IndexOrFirst(FMonthList, Target));
}

void TVentiqMarketSelectors::MarketListUpdate(TObject*) {
    // The guard is off afterwards whatever it was before.
    TFlagGuard Refilling(FIsAutoselect, EGuardEnd::Clear);
    InitExchangeList();
}

void TVentiqMarketSelectors::RememberShown(Text& Remembered, const TComboBox& Combo, const TStringList& Codes) {
    if (Remembered.empty() && IsValidIndex(Combo.GetItemIndex(), Codes)) Remembered = Codes.At(Combo.GetItemIndex());
}

void TVentiqMarketSelectors::cmbExchangePropertiesChange(TObject*) {
    if (FUpdatingLanguage) return;
    const int Index = FForm.cmbExchange.GetItemIndex();
    auto* Control = FContext.FMyDataControl.get();
    if (!Control || !IsValidIndex(Index, FExchangeList)) return;
    const Text Code = FExchangeList.At(Index);
    Control->SetExchange(Code);
    if (!FIsAutoselect) {
        FLayoutExchange = Code;
        RememberShown(FLayoutSeries, FForm.cmbSeries, FSeriesList);
        RememberShown(FLayoutMonth, FForm.cmbMonth, FMonthList);
    }
    InitSeries();
}

void TVentiqMarketSelectors::cmbSeriesPropertiesChange(TObject*) {
    if (FUpdatingLanguage) return;
    const int Index = FForm.cmbSeries.GetItemIndex();
    auto* Control = FContext.FMyDataControl.get();
    if (!Control || !IsValidIndex(Index, FSeriesList)) return;
    const Text Code = FSeriesList.At(Index);
    Control->SetSeries(Code);
    if (!FIsAutoselect) {
        FLayoutSeries = Code;
        RememberShown(FLayoutMonth, FForm.cmbMonth, FMonthList);
    }
    InitMonth();
}

void TVentiqMarketSelectors::cmbExpiryPropertiesChange(TObject*) {
    if (FUpdatingLanguage) return;
    const int Index = FForm.cmbMonth.GetItemIndex();
    auto* Control = FContext.FMyDataControl.get();
    // Deliberate: the bound is the series list, not the month list. Every market that the workstation offers lists at
    // least as many series as a series has months; beyond the month list the read raises.
    if (!Control || !IsValidIndex(Index, FSeriesList)) return;
    const Text Code = FMonthList.At(Index);
    Control->SetMonth(Code);
    if (!FIsAutoselect) FLayoutMonth = Code;
    if (OnMonthSelected) OnMonthSelected();
}

void TVentiqMarketSelectors::UpdateExchangeTexts() { Rewrite(FForm.cmbExchange, FExchangeList, ExchangeItemText); }
void TVentiqMarketSelectors::UpdateSeriesTexts() { Rewrite(FForm.cmbSeries, FSeriesList, SeriesItemText); }

void TVentiqMarketSelectors::edtAccountExit(TObject*) {
    if (FContext.FMyDataControl) FContext.FMyDataControl->SetAccount(FForm.edtAccount.GetHint());
}

void TVentiqMarketSelectors::edtAccountKeyPress(TObject* Sender, char& Key) {
    if (Key == kKeyEnter) edtAccountExit(Sender);
}

void TVentiqMarketSelectors::RegisterAccountEditor() {
    auto& Profile = TCustomUserAppProfile::GetInstance();
    if (Profile.GetUserType() != kUserTypeRestricted || Profile.IsAccountSelectable())
        TEditorManager::GetInstance().RegisterAccountEditor(&FForm.edtAccount, FContext.FGroupID, false, true);
}

void TVentiqMarketSelectors::RemoveAccountEditor() {
    TEditorManager::GetInstance().RemoveAccountEditor(&FForm.edtAccount);
}

}  // namespace ventiq
