// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <stdexcept>

#include "engine/VentiqDataControl.h"
#include "framework/base/Const.h"
#include "framework/trading/OrderTakeActionRecord.h"
#include "tests/support/FakeHost.h"
#include "tests/support/Golden.h"

namespace ventiq {
namespace {

using TShown = support::TFakeMessageBoxCtrl::TMessage;

// The listener of the confirmation channel is the trader: owns the table it is given and answers.
class Submission : public testing::Test {
protected:
    support::TFakeHost Host;
    TObject Dialog;
    TCustomVentiqDataControl Control;
    std::unique_ptr<TCustomDataControl> Table;
    bool Answer = true;
    int Asked = 0;
    std::function<void(TOrderTakeActionRecord&)> WhileOpen;

    Submission() {
        Host.Channels.Subscribe(
            kChannelBatchConfirm,
            [this](TObject*, TObject* Data) {
                auto& Request = dynamic_cast<TOrderTakeActionRecord&>(*Data);
                ++Asked;
                EXPECT_FALSE(Request.Result);
                EXPECT_EQ(Request.Action, 1);
                EXPECT_EQ(Request.ViewId, 620);
                Table.reset(Request.DataControl);
                if (WhileOpen) WhileOpen(Request);
                Request.Result = Answer;
            },
            &Dialog);
        Host.Language.SetText("Res_NoOrderAdd", "nothing to submit");
        Control.SetAccount("A100");
        Host.Journal.Clear();
    }
    ~Submission() override { Host.Channels.Unsubscribe(kChannelBatchConfirm, &Dialog); }

    void AddLegs(std::initializer_list<const char*> Symbols) {
        double Price = 12.5;
        for (const char* Symbol : Symbols) {
            Control.AddOrderRecord(Symbol, kSideBuy, Price, 3, 1, 11);
            Price += 1;
        }
    }
    std::vector<Text> Sent() const {
        std::vector<Text> Result;
        for (const auto& Order : Host.OrderActions.Sent) Result.push_back(Order->GetSymbol());
        return Result;
    }
    void ExpectEmptied() {
        EXPECT_TRUE(Control.GetPayOffOrderData().empty());
        EXPECT_TRUE(Control.GetOrderList().empty());
    }
};

TEST_F(Submission, AConfirmedBatchGoesOutInTheHostsOrder) {
    Control.AddOrderRecord("HSIC110", 0, 12.5, 3, 1, 11);
    Control.AddOrderRecord("HSIP100", 1, 0.25, 2, 0, 0);
    Control.SubmitOrder();
    EXPECT_TRUE(support::MatchesGolden("orders/golden/submission", Host.Journal.Take()));
    EXPECT_EQ(Sent(), (std::vector<Text>{"HSIC110", "HSIP100"}));
    for (const auto& Order : Host.OrderActions.Sent) EXPECT_EQ(Order->GetExtValue("AllCheckFlag"), "Y");
    ExpectEmptied();
    ASSERT_NE(Table, nullptr);
    EXPECT_EQ(Table->GetCount(), 2) << "the table is the dialog's and stays";
}

TEST_F(Submission, WithoutAnAccountTheLegsStay) {
    Control.SetAccount("");
    AddLegs({"HSIC110"});
    Control.SubmitOrder();
    EXPECT_EQ(Host.MessageBox.Messages, (std::vector<TShown>{{"", "DC10013001"}}));
    EXPECT_EQ(Control.GetPayOffOrderData().size(), 1u);
    EXPECT_EQ(Asked, 0);
}

TEST_F(Submission, TheAccountIsAskedForBeforeTheLegs) {
    Control.SubmitOrder();
    EXPECT_EQ(Host.MessageBox.Messages, (std::vector<TShown>{{"nothing to submit", ""}}));
    Host.MessageBox.Messages.clear();
    Control.SetAccount("");
    Control.SubmitOrder();
    EXPECT_EQ(Host.MessageBox.Messages, (std::vector<TShown>{{"", "DC10013001"}}));
}

TEST_F(Submission, OneOrderThatFailsTheCheckKeepsAllBack) {
    Host.OrderActions.Refused = {"HSIP100"};
    AddLegs({"HSIC110", "HSIP100", "HSIC120"});
    Control.SubmitOrder();
    EXPECT_EQ(Asked, 0);
    EXPECT_TRUE(Sent().empty());
    EXPECT_EQ(Host.Journal.Count("OrderActions.CheckOrder(HSIC120, 1, true)"), 0) << "stops at the first refusal";
    EXPECT_TRUE(Host.MessageBox.Messages.empty()) << "the host has told the reason";
    ExpectEmptied();
}

TEST_F(Submission, ACancelledBatchSendsNothingAndMarksNothing) {
    Answer = false;
    AddLegs({"HSIC110", "HSIP100"});
    Control.SubmitOrder();
    EXPECT_EQ(Asked, 1);
    EXPECT_TRUE(Sent().empty());
    for (const auto& Line : Host.Journal.Lines()) EXPECT_EQ(Line.find("SetExtValue"), Text::npos) << Line;
    ExpectEmptied();
}

TEST_F(Submission, WithNobodyToConfirmNothingIsSent) {
    Host.Channels.Unsubscribe(kChannelBatchConfirm, &Dialog);
    AddLegs({"HSIC110"});
    Control.SubmitOrder();
    EXPECT_TRUE(Sent().empty());
    ExpectEmptied();
}

TEST_F(Submission, AnErrorInACheckOrInTheDialogLeavesNothingToSend) {
    for (const char* Fails : {"OrderActions.CheckOrder(HSIP100, 1, true)", "Channels.SendData(18012)"}) {
        SCOPED_TRACE(Fails);
        Host.Journal.OnLine = [Fails](const Text& Line) {
            if (Line == Fails) throw std::runtime_error("broken");
        };
        AddLegs({"HSIC110", "HSIP100"});
        EXPECT_THROW(Control.SubmitOrder(), std::runtime_error);
        Host.Journal.OnLine = nullptr;
        EXPECT_TRUE(Sent().empty());
        ExpectEmptied();
    }
}

TEST_F(Submission, AnOrderThatFailsToGoOutDoesNotStopTheOthers) {
    Host.OrderActions.OnTakeAction = [](TCustomClientOrder& Order) {
        if (Order.GetSymbol() == "HSIC110") throw std::runtime_error("no line");
    };
    AddLegs({"HSIC110", "HSIP100"});
    Control.SubmitOrder();
    EXPECT_EQ(Sent(), (std::vector<Text>{"HSIC110", "HSIP100"}));
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
    ExpectEmptied();
}

TEST_F(Submission, TheAccountIsTheOneThatWasConfirmed) {
    WhileOpen = [this](TOrderTakeActionRecord& Request) {
        EXPECT_EQ(Request.DataControl->GetValue(0, kColAccount), Variant("A100"));
        Control.SetAccount("A200");
    };
    AddLegs({"HSIC110"});
    Control.SubmitOrder();
    ASSERT_EQ(Host.OrderActions.Sent.size(), 1u);
    EXPECT_EQ(Host.OrderActions.Sent[0]->GetAccount(), "A100");
}

TEST_F(Submission, ASecondBatchIsMadeAnew) {
    for (int Round = 1; Round <= 2; ++Round) {
        AddLegs({"HSIC110", "HSIP100"});
        Control.SubmitOrder();
        EXPECT_EQ(Asked, Round);
        EXPECT_EQ(Host.OrderActions.Sent.size(), 2u * static_cast<size_t>(Round));
    }
    EXPECT_NE(Host.OrderActions.Sent[0]->GetLineId(), Host.OrderActions.Sent[2]->GetLineId());
}

TEST_F(Submission, TheTableAndTheOrdersShareTheirLineIds) {
    AddLegs({"HSIC110", "HSIP100"});
    Control.PrepareOMSOrder();
    ASSERT_EQ(Control.GetOrderList().size(), 2u);
    const int64_t First = Control.GetOrderList()[0]->GetLineId();
    auto Copy = Host.Orders.CreateClientOrder();
    ASSERT_NE(Copy->GetLineId(), First);
    Copy->Assign(*Control.GetOrderList()[0]);
    EXPECT_EQ(Copy->GetLineId(), First);
    Control.PrepareOMSOrder();
    EXPECT_EQ(Control.GetOrderList().size(), 2u) << "prepared anew, not added";
}

}  // namespace
}  // namespace ventiq
