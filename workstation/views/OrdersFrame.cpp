// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/views/OrdersFrame.h"

#include "framework/services/OrderAdapter.h"
#include "workstation/trading/BatchProgress.h"

namespace ws {

namespace {

constexpr int kButtonWidth = 150;

}  // namespace

TOrdersFrame::TOrdersFrame(TTradingDesk& Desk) : TTradingFrame(Desk, "OrdersGridView", "Res_OrdersNone") {
    static constexpr std::array kColumns{TColumn{kColumnTime, "Res_OrderTime", 70},
                                         TColumn{kColumnAccount, "Res_Account", 60},
                                         TColumn{fw::kColumnSymbol, "Res_Symbol", 110},
                                         TColumn{fw::kColumnSide, "Res_Side", 45},
                                         TColumn{fw::kColumnPrice, "Res_OrderPrice", 70, true},
                                         TColumn{fw::kColumnQuantity, "Res_OrderQty", 50, true},
                                         TColumn{kColumnFilled, "Res_OrderFilled", 55, true},
                                         TColumn{kColumnAverage, "Res_OrderAverage", 70, true},
                                         TColumn{kColumnState, "Res_OrderState", 100},
                                         TColumn{kColumnReason, "Res_OrderReason", 180},
                                         TColumn{kColumnOrderId, "Res_OrderId", 110},
                                         TColumn{kColumnBatchPlace, "Res_OrderBatch", 55}};
    Controls().Attach("btnCancelSelected", FCancelSelected);
    Controls().Attach("btnCancelAll", FCancelAll);
    FSelectedItem.PreferredSize = FAllItem.PreferredSize = kButtonWidth;
    FSpacer.Stretch = 1;
    for (fw::TLayoutItem* Item : {&FSelectedItem, &FAllItem, &FSpacer}) FButtons.Add(*Item);
    FRoot.Add(FButtons);
    FCancelSelected.OnClick = [this](fw::TObject*) { CancelSelected(); };
    FCancelAll.OnClick = [this](fw::TObject*) { CancelAll(); };
    FView.OnActivate = [this](fw::TGridTableView& View, int Record) { PushOrder(View.GetDataRecord(Record)); };
    Show(
        [this] {
            auto Made = std::make_unique<TOrdersData>(FDesk);
            FData = Made.get();
            return Made;
        },
        kColumns);
    FLinks += FView.GetSelection().OnChanged.Connect([this] { UpdateButtons(); });
    FLinks += FDesk.Orders.OnOrderChanged.Connect([this](const TOrderRow&) { Changed(); });
    TOrdersFrame::Translate();
    UpdateButtons();
}

void TOrdersFrame::Translate() {
    FCancelSelected.SetCaption(Resource("Res_OrderCancelSelected"));
    FCancelAll.SetCaption(Resource("Res_OrderCancelAll"));
}

void TOrdersFrame::Refresh() {
    FData->Update();
    UpdateButtons();
}

std::vector<std::string> TOrdersFrame::OpenOrders(bool SelectedOnly) const {
    std::vector<std::string> Result;
    const fw::TGridSelection& Selection = FView.GetSelection();
    for (int Record = 0; Record < FData->GetCount(); ++Record) {
        if (SelectedOnly && !Selection.Contains(Record)) continue;
        const TOrderRow* Order = FData->OrderAt(FView.GetDataRecord(Record));
        if (Order && !IsFinal(Order->State)) Result.push_back(Order->Id);
    }
    return Result;
}

void TOrdersFrame::UpdateButtons() {
    FCancelSelected.SetEnabled(!OpenOrders(true).empty());
    FCancelAll.SetEnabled(!OpenOrders(false).empty());
}

void TOrdersFrame::CancelSelected() {
    const auto Ids = OpenOrders(true);
    for (const std::string& Id : Ids) FDesk.Orders.Cancel(Id);
    FDesk.Say({"Res_OrdersCancelling", {std::to_string(Ids.size())}});
}

// Those that were counted in the question, and no others that came since. The view may be gone when it is answered.
void TOrdersFrame::CancelAll() {
    const auto Ids = OpenOrders(false);
    const std::string Count = std::to_string(Ids.size());
    TTradingDesk& Desk = FDesk;
    if (!Desk.Ask({"Res_OrdersAskCancelAll", {Count}})) return;
    for (const std::string& Id : Ids) Desk.Orders.Cancel(Id);
    Desk.Say({"Res_OrdersCancelling", {Count}});
}

void TOrdersFrame::PushOrder(int DataRecord) const {
    const TOrderRow* Row = FData->OrderAt(DataRecord);
    if (!Row) return;
    const auto Order = fw::TCustomOrderAdapter::GetInstance().CreateClientOrder();
    Order->SetAccount(Row->Account);
    Order->SetSymbol(Row->Symbol);
    Order->SetSide(Row->Side);
    Order->SetPrice(Row->Price);
    Order->SetQty(Row->Qty);
    Order->SetOpenClose(Row->OpenClose);
    Order->SetPrincipal(Row->Principal);
    const std::string Symbol = Row->Symbol;
    FDesk.Say({FDesk.Push(*Order) ? "Res_OrderPushed" : "Res_OrderPushNowhere", {Symbol}});
}

TTradingFrame::EInk TOrdersFrame::InkOf(int DataRecord, int Column) {
    const TOrderRow* Order = FData->OrderAt(DataRecord);
    if (!Order) return EInk::Plain;
    if (Order->State == EOrderState::Unknown) return EInk::Warning;
    if (Column == fw::kColumnSide) return Order->Side == 0 ? EInk::Buy : EInk::Sell;
    if (Column != kColumnState && Column != kColumnReason) return EInk::Plain;
    switch (Order->State) {
        case EOrderState::Filled: return EInk::Good;
        case EOrderState::Rejected: return EInk::Bad;
        case EOrderState::Cancelled: return EInk::Quiet;
        default: return EInk::Plain;
    }
}

fw::Text TOrdersFrame::HintOf(int DataRecord, int Column, const fw::Text& Shown) {
    const TOrderRow* Order = FData->OrderAt(DataRecord);
    if (!Order) return Shown;
    if (Column == kColumnTime)
        return FDesk.Language.Resource("Res_OrderTimes", {WallTime(Order->Created), WallTime(Order->Changed)});
    if (Column != kColumnBatchPlace || Order->BatchId.empty()) return Shown;
    const TReason Progress = ProgressOf(FDesk.Orders.Orders(), Order->BatchId).Sentence();
    return FDesk.Language.Resource(Progress.Key, Progress.Args);
}

}  // namespace ws
