// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/views/ViewsFixture.h"
#include "workstation/views/OrdersData.h"

namespace ws::test {

using testing::ElementsAre;
using testing::IsEmpty;

class OrdersViewTest : public TViewsFixture {
protected:
    OrdersViewTest() { Opened<TOrdersView>(); }
    fw::TGridTableView& Rows() { return Grid("OrdersGridView"); }
    fw::TButton& Button(const char* Name) { return *Frame().FindControl<fw::TButton>(Name); }
    fw::TGridSelection& Selection() { return Rows().GetSelection(); }
    std::vector<fw::Text> Texts(int Tag) { return Column(Rows(), Tag); }
    const fw::TStyle& StyleAt(int Row, int Tag) { return *Rows().GetCellStyle(Row, IndexOf(Rows(), Tag)); }
};

TEST_F(OrdersViewTest, NewestFirstWithEveryColumn) {
    const std::string First = Place(0, 2, 101.5);
    TOrderTicket Leg = Ticket(1, 5, 7, "HSIX6");
    Leg.BatchId = "b";
    Leg.Place = 3;
    Leg.BatchSize = 4;
    const std::string Second = Orders->Place(Leg);
    Fill(First, 1, 101);
    Orders->OrderRejected(Second, {"Res_PaperNotListed", {"HSIX6"}});
    EXPECT_THAT(Texts(fw::kColumnSymbol), IsEmpty()) << "shown with the next tick";
    Host.Timer.Tick();
    EXPECT_THAT(Texts(fw::kColumnSymbol), ElementsAre("HSIX6", "HSIZ6"));
    EXPECT_THAT(Texts(kColumnAccount), ElementsAre("A1", "A1"));
    EXPECT_THAT(Texts(fw::kColumnSide), ElementsAre("Sell", "Buy"));
    EXPECT_THAT(Texts(kColumnState), ElementsAre("Rejected", "Partly filled"));
    EXPECT_THAT(Texts(kColumnReason), ElementsAre("The exchange does not list HSIX6.", ""));
    EXPECT_THAT(Texts(kColumnOrderId), ElementsAre(Second, First));
    EXPECT_THAT(Texts(kColumnBatchPlace), ElementsAre("3 of 4", ""));
    EXPECT_EQ(Texts(kColumnAverage)[0], "") << "nothing is filled";
    const auto Value = [this](int Row, int Tag) {
        return Rows().GetDataController().GetValue(Row, IndexOf(Rows(), Tag));
    };
    EXPECT_EQ(Value(1, fw::kColumnPrice), fw::Variant(101.5));
    EXPECT_EQ(Value(1, fw::kColumnQuantity), fw::Variant(2.0));
    EXPECT_EQ(Value(1, kColumnFilled), fw::Variant(1.0));
    EXPECT_EQ(Value(1, kColumnAverage), fw::Variant(101.0));
    EXPECT_EQ(Value(1, kColumnTime), fw::Variant("2026/11/20 04:00:00.000"));
    EXPECT_EQ(Rows().GetCellHint(0, IndexOf(Rows(), kColumnBatchPlace)),
              "0 of 4 accepted, 0 filled, leg 3 refused: The exchange does not list HSIX6.");
}

TEST_F(OrdersViewTest, TenThousandChangesAreShownOnce) {
    const std::string Id = Place(0, 20000);
    Host.Timer.Tick();
    int Reloads = 0;
    const auto Link = Rows().OnRecordsChanged.Connect([&Reloads] { ++Reloads; });
    for (int i = 0; i < 10000; ++i) Orders->OnOrderChanged(*Orders->Find(Id));
    EXPECT_EQ(Reloads, 0);
    Host.Timer.Tick();
    EXPECT_EQ(Reloads, 1);
    Host.Timer.Tick();
    EXPECT_EQ(Reloads, 1) << "nothing happened since";
}

TEST_F(OrdersViewTest, OnlyTheUsersAccountsAreShownAndCancelled) {
    TOrderTicket Foreign = Ticket(0, 1);
    Foreign.Account = "A2";
    Orders->Place(Foreign);
    const std::string Own = Place(0, 1);
    Host.Timer.Tick();
    EXPECT_THAT(Texts(kColumnOrderId), ElementsAre(Own));
    Button("btnCancelAll").Click();
    EXPECT_THAT(Gateway.Cancelled, ElementsAre(Own));
}

TEST_F(OrdersViewTest, SortsByTimeNumberAndWord) {
    std::vector<std::string> Ids;
    for (double Price : {9.0, 100.0, 20.0}) Ids.push_back(Place(Price == 20 ? 1 : 0, 1, Price));
    Host.Timer.Tick();
    const auto Sort = [this](int Tag) { Rows().SortBy(IndexOf(Rows(), Tag)); };
    Sort(fw::kColumnPrice);
    EXPECT_THAT(Texts(kColumnOrderId), ElementsAre(Ids[0], Ids[2], Ids[1]));
    Sort(fw::kColumnSide);
    EXPECT_THAT(Texts(kColumnOrderId), ElementsAre(Ids[1], Ids[0], Ids[2])) << "equal ones stay newest first";
    Sort(kColumnTime);
    EXPECT_THAT(Texts(kColumnOrderId), ElementsAre(Ids[2], Ids[1], Ids[0])) << "one moment";
    fw::TClock::Fix(fw::TClock::Now() + std::chrono::milliseconds(5));
    Ids.push_back(Place(0, 1, 1));
    Host.Timer.Tick();
    EXPECT_EQ(Texts(kColumnOrderId).back(), Ids.back());
}

TEST_F(OrdersViewTest, CancelSelectedAsksTheExchangeForThoseAndNoOthers) {
    const std::string A = Place(0, 1), B = Place(0, 2), C = Place(0, 3);
    Host.Timer.Tick();
    EXPECT_FALSE(Button("btnCancelSelected").CanClick());
    Selection().Select(0);
    Selection().Select(1, true);  // C, B
    EXPECT_TRUE(Button("btnCancelSelected").CanClick());
    const std::string D = Place(1, 9);
    Orders->OrderRejected(C, {});
    Host.Timer.Tick();
    Button("btnCancelSelected").Click();
    EXPECT_THAT(Gateway.Cancelled, ElementsAre(B));
    ASSERT_EQ(Said.size(), 1u);
    EXPECT_EQ(Said[0], (TReason{"Res_OrdersCancelling", {"1"}}));
    Orders->OrderCancelled(B);
    Host.Timer.Tick();
    EXPECT_FALSE(Button("btnCancelSelected").CanClick());
    EXPECT_THAT(Texts(kColumnState), ElementsAre("Sent", "Rejected", "Cancelled", "Sent"));
}

TEST_F(OrdersViewTest, CancelAllAsksFirstAndCancelsWhatWasCounted) {
    EXPECT_FALSE(Button("btnCancelAll").CanClick());
    const std::string A = Place(0, 1), B = Place(0, 2);
    Host.Timer.Tick();
    Yes = false;
    Button("btnCancelAll").Click();
    EXPECT_THAT(Gateway.Cancelled, IsEmpty());
    Yes = true;
    std::string Late;
    WhileAsked = [&] {
        Late = Place(0, 3);
        Orders->OrderRejected(A, {});
        View.reset();  // closed behind the question
    };
    Button("btnCancelAll").Click();
    EXPECT_THAT(Gateway.Cancelled, ElementsAre(B));
    ASSERT_EQ(Asked.size(), 2u);
    EXPECT_EQ(Asked[1], (TReason{"Res_OrdersAskCancelAll", {"2"}}));
}

TEST_F(OrdersViewTest, ActivatingHandsTheOrderOver) {
    TOrderTicket Order = Ticket(1, 3, 42.5, "HSIX6");
    Order.OpenClose = 1;
    Order.Principal = 11;
    Orders->Place(Order);
    Host.Timer.Tick();
    Rows().Activate();
    EXPECT_TRUE(Pushed.empty()) << "none is chosen";
    Selection().Select(0);
    Rows().Activate();
    ASSERT_EQ(Pushed.size(), 1u);
    EXPECT_EQ(Pushed[0].Account, "A1");
    EXPECT_EQ(Pushed[0].Symbol, "HSIX6");
    EXPECT_EQ(Pushed[0].Side, 1);
    EXPECT_EQ(Pushed[0].Price, 42.5);
    EXPECT_EQ(Pushed[0].Qty, 3);
    Takes = false;
    Rows().Activate();
    ASSERT_EQ(Said.size(), 2u);
    EXPECT_EQ(Said[0], (TReason{"Res_OrderPushed", {"HSIX6"}}));
    EXPECT_EQ(Said[1], (TReason{"Res_OrderPushNowhere", {"HSIX6"}}));
    EXPECT_EQ(support::TFakeClientOrder::Alive, 0);
}

TEST_F(OrdersViewTest, AnUnknownOrderStandsOut) {
    Place(0, 1);
    Gateway.OnSend = [](const TOrderRow&) { throw std::runtime_error("the line broke"); };
    Place(0, 1);
    Host.TakeErrors();
    Host.Timer.Tick();
    EXPECT_THAT(Texts(kColumnState), ElementsAre("Unknown: ask the exchange", "Sent"));
    EXPECT_TRUE(StyleAt(0, fw::kColumnSymbol).Bold);
    EXPECT_TRUE(StyleAt(0, kColumnState).TextColor.has_value());
    EXPECT_FALSE(StyleAt(1, fw::kColumnSymbol).Bold);
    EXPECT_FALSE(StyleAt(1, fw::kColumnSymbol).Filled);
    Selection().Select(0);
    EXPECT_TRUE(Button("btnCancelSelected").CanClick()) << "the exchange may still have it";
}

TEST_F(OrdersViewTest, TheSelectedOrderStaysWhenTheStoreIsReadAgain) {
    Place(0, 1);
    const std::string B = Place(0, 2);
    Host.Timer.Tick();
    Selection().Select(0);
    Orders->Reload();
    Place(0, 3);
    Host.Timer.Tick();
    EXPECT_EQ(Texts(kColumnOrderId)[static_cast<size_t>(Selection().GetCurrent())], B);
}

TEST_F(OrdersViewTest, SpeaksTheThreeLanguages) {
    Place(0, 1);
    Host.Timer.Tick();
    const struct {
        int Language;
        const char *Caption, *Side, *Button, *View;
    } Cases[] = {{1, "代號", "買入", "全部取消", "買賣盤"},
                 {2, "代码", "买入", "全部撤销", "委托"},
                 {0, "Symbol", "Buy", "Cancel all", "Orders"}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Language);
        Language.SetLanguage(Case.Language);
        EXPECT_TRUE(View->SetLanguage(Handle, Case.Language));
        EXPECT_EQ(Rows().GetColumn(IndexOf(Rows(), fw::kColumnSymbol))->GetCaption(), Case.Caption);
        EXPECT_THAT(Texts(fw::kColumnSide), ElementsAre(Case.Side));
        EXPECT_EQ(Button("btnCancelAll").GetCaption(), Case.Button);
        fw::Text Caption;
        EXPECT_TRUE(View->GetViewCaption(Handle, Caption));
        EXPECT_EQ(Caption, Case.View);
    }
}

TEST_F(OrdersViewTest, NothingIsLeftAfterClose) {
    View->CloseInstance(Handle);
    EXPECT_THAT(Host.Leftovers(), IsEmpty());
    Place(0, 1);
    Host.Timer.Tick();
}

}  // namespace ws::test
