// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqOrderCollector.h"

#include "framework/base/Const.h"
#include "framework/trading/OrderTakeActionRecord.h"
#include "tests/view/DisplayFixture.h"

namespace ventiq {
namespace {

// Confirms every batch; what was sent stands in Host.OrderActions.Sent.
class OrderCollector : public TDisplayFixture {
protected:
    TVentiqOrderCollector Collector{Form, Context, Flags};
    std::unique_ptr<TCustomDataControl> Table;
    std::function<void()> WhileOpen;
    int Asked = 0;

    OrderCollector() {
        Form.btnSubmit.OnClick = [this](TObject* Sender) { Collector.btnSubmitClick(Sender); };
        Host.Channels.Subscribe(
            kChannelBatchConfirm,
            [this](TObject*, TObject* Data) {
                auto& Request = dynamic_cast<TOrderTakeActionRecord&>(*Data);
                Table.reset(Request.DataControl);
                ++Asked;
                if (WhileOpen) WhileOpen();
                Request.Result = true;
            },
            &Owner);
        Host.Language.SetText("Res_NoOrderAdd", "nothing to submit");
        Control().SetAccount("A100");
    }
    ~OrderCollector() override { Host.Channels.Unsubscribe(kChannelBatchConfirm, &Owner); }

    void Submit() { Form.btnSubmit.Click(); }
    const TCustomClientOrder& Sent(size_t Index) { return *Host.OrderActions.Sent.at(Index); }
};

TEST_F(OrderCollector, EveryLegBecomesAnOrderInGridOrder) {
    AddLeg(" HSIC100 ", "Buy", 5.0, 2);
    AddLeg("HSIP100", "Sell", 2.5, 1);
    Grid.SetCell(1, kColOpenClose, " Close ");
    Grid.SetCell(1, kColPrincipal, "House");
    Submit();
    ASSERT_EQ(Host.OrderActions.Sent.size(), 2u);
    EXPECT_EQ(Sent(0).GetAccount(), "A100");
    EXPECT_EQ(Sent(0).GetSymbol(), "HSIC100");
    EXPECT_EQ(Sent(0).GetSide(), 0);
    EXPECT_EQ(Sent(0).GetPrice(), 5.0);
    EXPECT_EQ(Sent(0).GetQty(), 2.0);
    EXPECT_EQ(Sent(0).GetOpenClose(), 0);
    EXPECT_EQ(Sent(0).GetPrincipal(), 0);
    EXPECT_EQ(Sent(1).GetSide(), 1);
    EXPECT_EQ(Sent(1).GetOpenClose(), 2);
    EXPECT_EQ(Sent(1).GetPrincipal(), 12);
    EXPECT_EQ(Grid.GetSymbol(1), "HSIP100") << "the grid is not touched";
    Submit();
    EXPECT_EQ(Host.OrderActions.Sent.size(), 4u) << "the unchanged grid gives a new batch";
}

TEST_F(OrderCollector, RowsWithoutSymbolOrSideAreLeftOut) {
    AddLeg("HSIC100", "buy", 5.0, 2);
    AddLeg("HSIC110", Variant(), 5.0, 2);
    AddLeg(" ", "Buy", 5.0, 2);
    AddLeg(Variant().AsText(), "Sell", 5.0, 2);
    Submit();
    EXPECT_EQ(Asked, 0);
    ASSERT_EQ(Host.MessageBox.Messages.size(), 1u);
    EXPECT_EQ(Host.MessageBox.Messages[0].Message, "nothing to submit");
}

TEST_F(OrderCollector, EmptyPriceAndQuantityGoAsZero) {
    AddLeg("HSIC100", "Buy", Variant(), Variant());
    Submit();
    ASSERT_EQ(Host.OrderActions.Sent.size(), 1u);
    EXPECT_EQ(Sent(0).GetPrice(), 0.0);
    EXPECT_EQ(Sent(0).GetQty(), 0.0);
}

TEST_F(OrderCollector, ThePriceGoesOutInRealUnits) {
    Host.Subscriptions.Item("HSIC100").Set(kFieldDisplayFactor, 100.0);
    AddLeg("HSIC100", "Buy", 123.0, 1);
    Submit();
    ASSERT_EQ(Host.OrderActions.Sent.size(), 1u);
    EXPECT_DOUBLE_EQ(Sent(0).GetPrice(), 1.23);
}

TEST_F(OrderCollector, LoadedRowsGoAlong) {
    AddLeg("HSIC100", "Buy", 5.0, 2);
    AddLeg("HSIC110", "Sell", 5.0, 2);
    Grid.FirstInputRow = 1;
    Submit();
    EXPECT_EQ(Host.OrderActions.Sent.size(), 2u);
}

TEST_F(OrderCollector, WithoutSideListNoRowIsALeg) {
    AddLeg("HSIC100", "Buy", 5.0, 2);
    Form.epiSide.Items.clear();
    Submit();
    EXPECT_EQ(Asked, 0);
    Form.epiSide.Items = {"Buy"};
    Submit();
    EXPECT_EQ(Asked, 1);
}

TEST_F(OrderCollector, TheEmptyGridAsksForTheAccountFirst) {
    Control().SetAccount("");
    Submit();
    ASSERT_EQ(Host.MessageBox.Messages.size(), 1u);
    EXPECT_EQ(Host.MessageBox.Messages[0].Code, "DC10013001");
}

TEST_F(OrderCollector, ASecondClickWhileTheBatchIsBeingConfirmedDoesNothing) {
    AddLeg("HSIC100", "Buy", 5.0, 2);
    WhileOpen = [this] { Submit(); };
    Submit();
    EXPECT_EQ(Asked, 1);
    EXPECT_EQ(Host.OrderActions.Sent.size(), 1u);
    WhileOpen = nullptr;
    Submit();
    EXPECT_EQ(Asked, 2) << "and the next one works";
}

TEST_F(OrderCollector, AnErrorWhileConfirmingDoesNotBlockTheNextSubmission) {
    AddLeg("HSIC100", "Buy", 5.0, 2);
    Host.Journal.OnLine = [](const Text& Line) {
        if (Line == "Channels.SendData(18012)") throw std::runtime_error("no dialog");
    };
    Submit();
    Host.Journal.OnLine = nullptr;
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
    EXPECT_TRUE(Host.OrderActions.Sent.empty());
    Submit();
    EXPECT_EQ(Host.OrderActions.Sent.size(), 1u);
}

TEST_F(OrderCollector, WithoutADataControlNothingHappens) {
    AddLeg("HSIC100", "Buy", 5.0, 2);
    Context.FMyDataControl.reset();
    Submit();
    EXPECT_EQ(Asked, 0);
    EXPECT_TRUE(Host.MessageBox.Messages.empty());
}

}  // namespace
}  // namespace ventiq
