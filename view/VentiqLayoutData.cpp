// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqLayoutData.h"

#include "framework/base/Const.h"
#include "framework/base/Numbers.h"
#include "framework/services/ConfigManager.h"
#include "framework/services/EditorManager.h"
#include "framework/view/BaseView.h"

namespace ventiq {

namespace {

constexpr const char* kExchange = "Exchange";
constexpr const char* kSeries = "Series";
constexpr const char* kMonth = "Month";
constexpr const char* kAccount = "Account";
constexpr const char* kShowHideState = "ShowHideState";
constexpr const char* kShowHintState = "ShowHintState";
constexpr const char* kColList = "ColList";

void AddPair(TStringList& Pairs, const char* Name, const Text& Value) { Pairs.Add(FormatText("%s=%s", {Name, Value})); }

void AddSelected(TStringList& Pairs, const char* Name, const TComboBox& Combo, const TStringList& Codes) {
    const int Index = Combo.GetItemIndex();
    if (Index >= 0 && Index < Codes.GetCount()) AddPair(Pairs, Name, Codes.At(Index));
}

// As a user selects it: the levels below are refilled.
void Select(TComboBox& Combo, const TStringList& Codes, const Text& Code) {
    const int Index = Code.empty() ? -1 : Codes.IndexOf(Code);
    if (Index >= 0 && Index < Combo.GetCount()) Combo.SetItemIndex(Index);
}

}  // namespace

Text TVentiqLayoutData::GetLayoutData() const {
    TStringList Pairs;
    if (FSelectors.FExchangeList.IsEmpty()) return {};
    AddSelected(Pairs, kExchange, FForm.cmbExchange, FSelectors.FExchangeList);
    AddSelected(Pairs, kSeries, FForm.cmbSeries, FSelectors.FSeriesList);
    AddSelected(Pairs, kMonth, FForm.cmbMonth, FSelectors.FMonthList);
    if (const Text Account = FForm.edtAccount.GetHint(); !Account.empty()) AddPair(Pairs, kAccount, Account);
    Pairs.SetValue(kShowHideState, std::to_string(FButtons.GetShowHideButton()->State));
    Pairs.SetValue(kShowHintState, std::to_string(FButtons.GetHintButton()->State));
    const Text Columns =
        TEditorManager::GetInstance().GetGridColumnLayout(&FForm.PositionGridView, FGrid.GetColumnInfos());
    if (!Columns.empty()) Pairs.SetValue(kColList, Columns);
    return Pairs.GetCommaText();
}

bool TVentiqLayoutData::SetLayoutData(const Text& Data) {
    TStringList Pairs;
    Pairs.SetCommaText(Data);
    RestoreMarket(Pairs);
    const Text Account = Pairs.GetValue(kAccount);
    if (!Account.empty() && FForm.edtAccount.IsEnabled())
        TEditorManager::GetInstance().SetAccountLayoutAccount(&FForm.edtAccount, Account);
    RestoreColumns(Pairs.GetValue(kColList));
    FButtons.GetShowHideButton()->State = TextToIntDef(Pairs.GetValue(kShowHideState), 0);
    FButtons.GetHintButton()->State = TextToIntDef(Pairs.GetValue(kShowHintState), 0);
    FButtons.UpdateCaptionButtons();
    Baseview::SendViewNotify(&FView, kViewNotifyCaptionButtons);
    return true;
}

// In this order: each selection refills the lists of the next.
void TVentiqLayoutData::RestoreMarket(const TStringList& Pairs) {
    const Text Exchange = Pairs.GetValue(kExchange), Series = Pairs.GetValue(kSeries), Month = Pairs.GetValue(kMonth);
    if (FSelectors.FExchangeList.IsEmpty()) {
        FSelectors.FLayoutExchange = Exchange;
        FSelectors.FLayoutSeries = Series;
        FSelectors.FLayoutMonth = Month;
        return;
    }
    Select(FForm.cmbExchange, FSelectors.FExchangeList, Exchange);
    Select(FForm.cmbSeries, FSelectors.FSeriesList, Series);
    Select(FForm.cmbMonth, FSelectors.FMonthList, Month);
}

void TVentiqLayoutData::RestoreColumns(const Text& Layout) {
    if (Layout.empty()) return;
    TEditorManager::GetInstance().SetGridColumnLayout(&FForm.PositionGridView, Layout, FGrid.GetColumnInfos());
    FPendingColumnLayout = Layout;
}

void TVentiqLayoutData::AdjustLayout() {
    if (!TCustomConfigManager::GetInstance().GetKeepColumnLayout() || FPendingColumnLayout.empty()) return;
    TEditorManager::GetInstance().SetGridColumnLayout(&FForm.PositionGridView, FPendingColumnLayout,
                                                      FGrid.GetColumnInfos());
    FPendingColumnLayout.clear();
}

void TVentiqLayoutData::LoadLayoutComp(TObject*, TObject*) { AdjustLayout(); }
void TVentiqLayoutData::MainFormShow(TObject*, TObject*) { AdjustLayout(); }

}  // namespace ventiq
