// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqOrderPush.h"

#include "engine/VentiqMarketData.h"
#include "framework/services/SubscribeAdapter.h"
#include "registration/VentiqConstDef.h"
#include "view/VentiqSymbolText.h"

namespace ventiq {

namespace {

constexpr int kKeepAsItIs = 1;  // the item is only looked at, not asked for

void Select(TComboBox& Combo, const TStringList& Codes, const Text& Code) {
    if (Codes.GetCount() == 0 || Code.empty()) return;
    const int Index = Codes.IndexOf(Code);
    if (Index >= 0 && Index < Combo.GetCount()) Combo.SetItemIndex(Index);
}

}  // namespace

bool TVentiqOrderPush::SetCustomData(int, TObject* Data) {
    const auto* Order = dynamic_cast<const TCustomClientOrder*>(Data);
    if (!Order) return true;
    const TInstrument Instrument = InstrumentOf(Order->GetSymbol());
    Select(FForm.cmbExchange, FSelectors.FExchangeList, Instrument.Exchange);
    Select(FForm.cmbSeries, FSelectors.FSeriesList, Instrument.Series);
    SelectMonth(Instrument);
    // The exit handler goes by the hint, where the account's code stands.
    FForm.edtAccount.SetText(Order->GetAccount());
    FForm.edtAccount.SetHint(Order->GetAccount());
    FForm.edtAccount.Exit();
    return true;
}

TVentiqOrderPush::TInstrument TVentiqOrderPush::InstrumentOf(const Text& Symbol) {
    const auto* Product = ListedProduct(Symbol);
    if (!Product) return InstrumentByData(Symbol);
    TInstrument Result{Product->GetExchange(), Product->GetSeries(), Product->GetExpiryDate(), {}, true};
    if (SameText(Result.Exchange, kWeeklyExchange)) Result.WeeklyTag = Trim(Product->GetAttribute(kWeeklyAttribute));
    return Result;
}

TVentiqOrderPush::TInstrument TVentiqOrderPush::InstrumentByData(const Text& Symbol) {
    const auto* Item = TCustomSubscribeAdapter::GetInstance().GetSubItem(Symbol, kPriceDataKind, kKeepAsItIs);
    if (Item->GetState() != kItemReady) return {};
    TInstrument Result{Item->GetFieldText(kFieldExchange),
                       Item->GetFieldText(kFieldSeries),
                       Item->GetFieldText(kFieldExpiry),
                       {},
                       false};
    if (SameText(Result.Exchange, kWeeklyExchange)) Result.WeeklyTag = WeeklyTagOfSymbol(Symbol, Result.Series);
    return Result;
}

// Deliberate: without a product record nothing is selected, but the code is computed all the same, with its effect on
// the process-wide date settings.
void TVentiqOrderPush::SelectMonth(const TInstrument& Instrument) {
    auto* Control = FContext.FMyDataControl.get();
    if (!Control || FSelectors.FMonthList.GetCount() == 0 || Instrument.ExpiryDate.empty()) return;
    const Text Month = Control->GetMonthCode(Instrument.ExpiryDate, Instrument.WeeklyTag);
    if (Instrument.Listed) Select(FForm.cmbMonth, FSelectors.FMonthList, Month);
}

}  // namespace ventiq
