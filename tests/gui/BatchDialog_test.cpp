// SPDX-License-Identifier: GPL-3.0-or-later
// The confirmation as a trader meets it: a batch on the channel, the dialog over the window, real keys.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <QTimer>

#include "framework/base/Clock.h"
#include "framework/data/ColumnIds.h"
#include "tests/support/FakeHost.h"
#include "tests/trading/FakeFacts.h"
#include "workstation/renderers/QtText.h"
#include "workstation/resources/Texts.h"
#include "workstation/shell/BatchConfirmation.h"
#include "workstation/shell/BatchDialog.h"
#include "workstation/shell/SkinPalette.h"

namespace gui {

using ws::test::IndexOption;

namespace {

constexpr int kRemark = 25, kAccount = 10;

// A batch table with orders of its own, as a view hands it over.
class TBatch : public fw::TCustomDataControl {
public:
    explicit TBatch(int& Living) : FLiving(Living) {
        ++FLiving;
        const struct {
            int Id;
            const char* Caption;
            int Width;
            bool Numeric;
        } Columns[] = {{fw::kColumnSymbol, "Res_Symbol", 100, false},
                       {fw::kColumnSide, "Res_Side", 80, false},
                       {kAccount, "Res_Account", 80, false},
                       {fw::kColumnPrice, "Res_OrderPrice", 70, true},
                       {fw::kColumnQuantity, "Res_OrderQty", 70, true},
                       {kRemark, "Res_Remark", 100, false}};
        for (const auto& Each : Columns)
            FColumns.push_back(fw::TColumnInfo::AddColumn(Each.Id, Each.Caption, Each.Width, "", Each.Numeric));
    }
    ~TBatch() override { --FLiving; }

    std::vector<std::unique_ptr<fw::TCustomClientOrder>> Orders;
    int ThrowsFrom = INT32_MAX;  // display texts from this row on throw

    fw::TColumnInfoList* GetColList() override { return &FColumns; }
    int32_t GetCount() override { return static_cast<int32_t>(Orders.size()); }
    fw::Variant GetValue(int32_t Row, int32_t Attribute) override {
        const auto& Order = *Orders[static_cast<size_t>(Row)];
        auto& Adapter = fw::TCustomOrderAdapter::GetInstance();
        switch (Attribute) {
            case fw::kColumnSymbol: return Order.GetSymbol();
            case fw::kColumnPrice: return Order.GetPrice();
            case fw::kColumnQuantity: return Order.GetQty();
            case 5: return Adapter.GetOrderText(Order);
            case kAccount: return Order.GetAccount();
            case fw::kColumnSide: return Adapter.GetSideText(Order, false);
            case kRemark: return Adapter.GetRemarkText(Order);
            default: return "";
        }
    }
    fw::Text GetDisplayValue(int32_t Row, int32_t Attribute) override {
        if (Row >= ThrowsFrom) throw std::runtime_error("no such cell");
        return GetValue(Row, Attribute).AsText();
    }

private:
    int& FLiving;
    fw::TColumnInfoList FColumns;
};

class TOtherTable : public fw::TCustomDataControl {
public:
    int32_t GetCount() override { return 2; }
};

class BatchDialogTest : public testing::Test {
protected:
    BatchDialogTest() {
        fw::TClock::Fix(fw::TClock::TTimePoint(std::chrono::seconds(1'000'000)));
        SetSkin("Light");
        for (const char* Symbol : {"HSI26400L6", "HSI27000L6", "HSI26000X6"}) Facts.Contracts[Symbol] = IndexOption();
        Window.resize(1000, 700);
        Window.show();
        Batch = std::make_unique<TBatch>(Living);
    }
    ~BatchDialogTest() override { fw::TClock::Fix({}); }

    void SetSkin(const char* Skin) {
        QApplication::setPalette(ws::SkinPalette(Skin));
        Context.SetSkin(Skin);
    }
    fw::TCustomClientOrder& Add(const char* Symbol, int Side, double Qty, double Price = 100) {
        auto Order = Orders->CreateClientOrder();
        Order->SetAccount("A100");
        Order->SetSymbol(Symbol);
        Order->SetSide(Side);
        Order->SetQty(Qty);
        Order->SetPrice(Price);
        Batch->Orders.push_back(std::move(Order));
        return *Batch->Orders.back();
    }
    // Sends the batch to the channel and lets InDialog act on the dialog; the answer. A dialog that InDialog leaves
    // open is closed.
    bool Ask(const std::function<void(ws::TBatchDialog&)>& InDialog) {
        Request.DataControl = Batch.release();
        QTimer::singleShot(0, &Window, [&] {
            auto* Dialog = dynamic_cast<ws::TBatchDialog*>(QApplication::activeModalWidget());
            Opened = Dialog != nullptr;
            if (!Dialog) return;
            EXPECT_TRUE(QTest::qWaitFor([&] { return Dialog->isActiveWindow(); }, 5000));
            InDialog(*Dialog);
            if (QApplication::activeModalWidget() == Dialog) Dialog->reject();
        });
        Host.Channels.SendData(fw::kChannelBatchConfirm, &Request);
        return Request.Result;
    }
    static void Press(int Key, Qt::KeyboardModifiers Modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(Key), Modifiers);
    }
    static std::string Ticks(ws::TBatchDialog& Dialog) {
        std::string Result;
        for (int i = 0; i < Dialog.Model().rowCount(); ++i)
            Result += Dialog.Model().data(Dialog.Model().index(i, 0), Qt::CheckStateRole).toInt() ? 'x' : '-';
        return Result;
    }
    static QString Cell(ws::TBatchDialog& Dialog, int Row, int Id, int Role = Qt::DisplayRole) {
        return Dialog.Model().data(Dialog.Model().index(Row, Dialog.Model().ColumnOf(Id)), Role).toString();
    }
    support::TFakeHost Host;
    fw::TScopedService<fw::TCustomFormatter> Formatter{std::make_unique<ws::test::TPlainFormatter>()};
    fw::TScopedService<fw::TCustomLanguageManager> LanguageScope{
        std::make_unique<ws::TLanguageService>(ws::TTextTable::Embedded())};
    ws::TLanguageService& Language = dynamic_cast<ws::TLanguageService&>(*LanguageScope.operator->());
    ws::TMarketService Market;
    fw::TScopedService<fw::TCustomOrderAdapter> OrderScope{std::make_unique<ws::TOrderService>(Market, Language)};
    ws::TOrderService* Orders = dynamic_cast<ws::TOrderService*>(OrderScope.operator->());
    ws::test::TFakeFacts Facts;
    std::vector<ws::TOrderTicket> Placed;
    ws::TOrderActionService Actions{
        Facts, Language, {[this](const std::vector<ws::TOrderTicket>& Sent) { Placed = Sent; }, [](auto) {}}};
    ws::TRenderContext Context;
    QMainWindow Window;
    ws::TBatchConfirmation Confirmation{{Facts, *Orders, Actions, Language}, Context, &Window};
    int Living = 0;  // batch tables
    std::unique_ptr<TBatch> Batch;
    fw::TOrderTakeActionRecord Request;
    bool Opened = false;
};

}  // namespace

TEST_F(BatchDialogTest, ShowsTheBatchWithTicksArrowsAndTotals) {
    Add("HSI26400L6", 0, 2);
    Add("HSI27000L6", 1, 3, 90);
    EXPECT_FALSE(Ask([&](ws::TBatchDialog& Dialog) {
        EXPECT_EQ(Ticks(Dialog), "xx");
        EXPECT_EQ(Cell(Dialog, 0, fw::kColumnSymbol), "HSI26400L6");
        EXPECT_EQ(Cell(Dialog, 0, fw::kColumnSide), QString(QChar(0x25B2)) + " Buy");
        EXPECT_EQ(Cell(Dialog, 1, fw::kColumnSide), QString(QChar(0x25BC)) + " Sell");
        EXPECT_EQ(Cell(Dialog, 1, fw::kColumnPrice), "90");
        EXPECT_EQ(Dialog.Model().headerData(2, Qt::Horizontal, Qt::DisplayRole), "Side");
        EXPECT_EQ(Dialog.Model().columnCount(), 7) << "the tick and six columns";
        // Pays 2 * 100 * 50 and receives 3 * 90 * 50.
        EXPECT_EQ(Dialog.TotalsText(),
                  QString::fromUtf8("2 of 2 orders   ·   buy 2, sell 3   ·   net premium to receive: HKD 3,500.00"));
        EXPECT_TRUE(Dialog.Banner().isEmpty());
        EXPECT_TRUE(Confirmation.IsOpen());
    }));
    EXPECT_TRUE(Opened);
    EXPECT_FALSE(Confirmation.IsOpen());
    EXPECT_EQ(Living, 0) << "the table is the dialog's";
    EXPECT_EQ(Request.DataControl, nullptr);
    EXPECT_TRUE(Host.Subscriptions.Subscribed().empty());
}

TEST_F(BatchDialogTest, TheFocusStandsOnSendAndEnterPressesIt) {
    Add("HSI26400L6", 0, 2);
    EXPECT_TRUE(Ask([&](ws::TBatchDialog& Dialog) {
        EXPECT_EQ(QApplication::focusWidget(), &Dialog.SendButton());
        Press(Qt::Key_Return);
    }));
}

TEST_F(BatchDialogTest, TheFocusStandsOnCancelWhileAWarningStands) {
    Add("HSI26400L6", 0, 2, 0);
    EXPECT_FALSE(Ask([&](ws::TBatchDialog& Dialog) {
        EXPECT_EQ(QApplication::focusWidget(), &Dialog.CancelButton());
        EXPECT_EQ(Cell(Dialog, 0, kRemark), "The price is 0");
        EXPECT_EQ(Dialog.Details(), "Order 1, HSI26400L6:  The price is 0");
        Press(Qt::Key_Return);
    }));
}

TEST_F(BatchDialogTest, EscapeCancelsAndControlEnterSends) {
    Add("HSI26400L6", 0, 2, 0);
    EXPECT_FALSE(Ask([](ws::TBatchDialog&) { Press(Qt::Key_Escape); }));
    Batch = std::make_unique<TBatch>(Living);
    Add("HSI26400L6", 0, 2, 0);
    EXPECT_TRUE(Ask([](ws::TBatchDialog&) { Press(Qt::Key_Return, Qt::ControlModifier); }));
    Batch = std::make_unique<TBatch>(Living);
    Add("HSI26400L6", 0, 2);
    EXPECT_TRUE(Ask([](ws::TBatchDialog& Dialog) {
        Dialog.View().setFocus();
        Press(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    }));
    Batch = std::make_unique<TBatch>(Living);
    Add("HSI26400L6", 0, 2);
    EXPECT_FALSE(Ask([](ws::TBatchDialog& Dialog) {
        Dialog.View().setFocus();
        Press(Qt::Key_Return);
        EXPECT_TRUE(Dialog.isVisible()) << "Enter in the table presses nothing";
    }));
}

TEST_F(BatchDialogTest, AKeyThatIsHeldDownSendsNothing) {
    Add("HSI26400L6", 0, 2);
    EXPECT_FALSE(Ask([](ws::TBatchDialog& Dialog) {
        QKeyEvent Held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(QApplication::focusWidget(), &Held);
        EXPECT_TRUE(Dialog.isVisible());
    }));
}

TEST_F(BatchDialogTest, SpaceTurnsTicksOverAndWithoutATickSendIsOff) {
    Facts.Positions["A100"] = {{"HSI26000X6", 3}};
    Add("HSI26400L6", 0, 2);
    Add("HSI26000X6", 0, 3);         // held already
    Add("HSI27000L6", 0, 1, 100.5);  // off the steps
    EXPECT_FALSE(Ask([&](ws::TBatchDialog& Dialog) {
        EXPECT_EQ(Ticks(Dialog), "x--");
        Dialog.View().setFocus();
        Press(Qt::Key_Space);
        EXPECT_EQ(Ticks(Dialog), "---");
        EXPECT_FALSE(Dialog.SendButton().isEnabled());
        Press(Qt::Key_Return, Qt::ControlModifier);
        EXPECT_TRUE(Dialog.isVisible());
        Press(Qt::Key_Down);
        Press(Qt::Key_Space);
        EXPECT_EQ(Ticks(Dialog), "-x-");
        Press(Qt::Key_Down);
        Press(Qt::Key_Space);
        EXPECT_EQ(Ticks(Dialog), "-x-") << "a blocked row stays";
        Press(Qt::Key_Up);
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_Space);
        EXPECT_EQ(Ticks(Dialog), "---") << "all that are selected";
        Press(Qt::Key_Space);
        EXPECT_EQ(Ticks(Dialog), "xx-");
        EXPECT_TRUE(Dialog.SendButton().isEnabled());
        EXPECT_TRUE(Cell(Dialog, 2, kRemark).startsWith("The price 100.5 is off the price steps"));
    }));
}

TEST_F(BatchDialogTest, AClickIntoTheFirstColumnTurnsATickOver) {
    Add("HSI26400L6", 0, 2);
    Add("HSI27000L6", 0, 1, 100.5);
    Ask([&](ws::TBatchDialog& Dialog) {
        const auto Click = [&](int Row) {
            const QRect Cell = Dialog.View().visualRect(Dialog.Model().index(Row, 0));
            QTest::mouseClick(Dialog.View().viewport(), Qt::LeftButton, {}, Cell.center());
        };
        Click(0);
        EXPECT_EQ(Ticks(Dialog), "--");
        Click(0);
        Click(1);
        EXPECT_EQ(Ticks(Dialog), "x-") << "the second is blocked";
    });
    EXPECT_TRUE(Opened);
}

TEST_F(BatchDialogTest, OnlyTickedRowsAreSent) {
    Add("HSI26400L6", 0, 2);
    Add("HSI27000L6", 1, 3);
    Add("HSI26000X6", 0, 1);
    std::vector<std::unique_ptr<fw::TCustomClientOrder>> Originals;
    for (const auto& Each : Batch->Orders) {
        Originals.push_back(std::make_unique<fw::TCustomClientOrder>());
        Originals.back()->Assign(*Each);
    }
    EXPECT_TRUE(Ask([&](ws::TBatchDialog& Dialog) {
        Dialog.View().setFocus();
        Press(Qt::Key_Down);
        Press(Qt::Key_Space);
        Press(Qt::Key_Return, Qt::ControlModifier);
    }));
    for (const auto& Each : Originals) Actions.TakeAction(nullptr, *Each, 1, true);
    ASSERT_EQ(Placed.size(), 2u);
    EXPECT_EQ(Placed[0].Symbol, "HSI26400L6");
    EXPECT_EQ(Placed[1].Symbol, "HSI26000X6");
    EXPECT_EQ(Placed[1].Place, 2);
    EXPECT_EQ(Host.TakeLog(), std::vector<fw::Text>{"Res_LogLeftOut(2, HSI27000L6)"});
    // The same batch a moment later.
    fw::TClock::Fix(fw::TClock::Now() + std::chrono::seconds(12));
    Batch = std::make_unique<TBatch>(Living);
    Add("HSI26400L6", 0, 2);
    Add("HSI26000X6", 0, 1);
    EXPECT_FALSE(Ask([](ws::TBatchDialog& Dialog) {
        EXPECT_EQ(Dialog.Banner(), "These orders equal the batch that was sent 12 s ago.");
        EXPECT_EQ(QApplication::focusWidget(), &Dialog.CancelButton());
    }));
}

TEST_F(BatchDialogTest, LateMarketDataJudgeTheRowsAnew) {
    Add("HSI26400L6", 0, 2);
    Add("HSI27000L6", 0, 2);
    EXPECT_FALSE(Ask([&](ws::TBatchDialog& Dialog) {
        EXPECT_EQ(Host.Subscriptions.Subscribed(), (std::vector<fw::Text>{"HSI26400L6", "HSI27000L6"}));
        EXPECT_EQ(QApplication::focusWidget(), &Dialog.SendButton());
        Facts.Contracts["HSI26400L6"].LastPrice = 200;
        Facts.Contracts["HSI27000L6"].Expired = true;
        Host.Subscriptions.Deliver("HSI26400L6");
        EXPECT_TRUE(QTest::qWaitFor([&] { return Ticks(Dialog) == "x-"; }, 5000));
        EXPECT_EQ(Cell(Dialog, 0, kRemark), "50 % away from the last price 200");
        EXPECT_EQ(Dialog.Banner(), "Unticked because the market moved: 2 HSI27000L6");
        EXPECT_EQ(QApplication::focusWidget(), &Dialog.CancelButton()) << "a warning came up";
    }));
}

TEST_F(BatchDialogTest, WhatIsBlockedAtTheLastMomentIsNotSent) {
    Add("HSI26400L6", 0, 2);
    Add("HSI27000L6", 0, 2);
    EXPECT_FALSE(Ask([&](ws::TBatchDialog& Dialog) {
        Facts.Contracts["HSI27000L6"].Expired = true;
        Press(Qt::Key_Return, Qt::ControlModifier);
        EXPECT_TRUE(Dialog.isVisible());
        EXPECT_EQ(Ticks(Dialog), "x-");
    }));
}

TEST_F(BatchDialogTest, AWarningOfTheLastMomentIsReadBeforeAnythingIsSent) {
    Add("HSI26400L6", 0, 2);
    EXPECT_TRUE(Ask([&](ws::TBatchDialog& Dialog) {
        Facts.Contracts["HSI26400L6"].Stale = true;
        Press(Qt::Key_Return, Qt::ControlModifier);
        ASSERT_TRUE(Dialog.isVisible()) << "the trader looks again";
        EXPECT_EQ(Ticks(Dialog), "x");
        Press(Qt::Key_Return, Qt::ControlModifier);
        EXPECT_FALSE(Dialog.isVisible()) << "and sends what was read";
    }));
}

TEST_F(BatchDialogTest, FlagsAreShownWhereThereAreSome) {
    Add("HSI26400L6", 0, 2);
    auto& Order = Add("HSI27000L6", 0, 2);
    Order.SetOpenClose(1);
    Order.SetPrincipal(12);
    Ask([&](ws::TBatchDialog& Dialog) {
        auto& Model = Dialog.Model();
        EXPECT_EQ(Model.columnCount(), 9);
        EXPECT_EQ(Model.headerData(6, Qt::Horizontal, Qt::DisplayRole), "Open/Close");
        EXPECT_EQ(Model.data(Model.index(1, 6), Qt::DisplayRole), "Open");
        EXPECT_EQ(Model.data(Model.index(1, 7), Qt::DisplayRole), "House");
        EXPECT_EQ(Model.data(Model.index(0, 6), Qt::DisplayRole), "");
        EXPECT_EQ(Model.ColumnOf(kRemark), 8);
    });
    EXPECT_TRUE(Opened);
}

TEST_F(BatchDialogTest, TheLanguageMayChangeWhileItIsOpen) {
    Add("HSI26400L6", 0, 2, 0);
    Ask([&](ws::TBatchDialog& Dialog) {
        Language.SetLanguage(ws::kLanguageTraditional);
        Confirmation.Retranslate();
        EXPECT_EQ(Dialog.windowTitle(), QString::fromUtf8("確認買賣盤"));
        EXPECT_EQ(Cell(Dialog, 0, kRemark), QString::fromUtf8("價格為 0"));
        EXPECT_TRUE(Cell(Dialog, 0, fw::kColumnSide).endsWith(QString::fromUtf8("買入")));
        EXPECT_EQ(Dialog.Model().headerData(2, Qt::Horizontal, Qt::DisplayRole), QString::fromUtf8("買賣"));
    });
    EXPECT_TRUE(Opened);
}

TEST_F(BatchDialogTest, AnotherBatchMeanwhileIsAnsweredWithNo) {
    Add("HSI26400L6", 0, 2);
    EXPECT_TRUE(Ask([&](ws::TBatchDialog&) {
        fw::TOrderTakeActionRecord Second;
        Second.Result = true;
        Second.DataControl = new TBatch(Living);
        Host.Channels.SendData(fw::kChannelBatchConfirm, &Second);
        EXPECT_FALSE(Second.Result);
        EXPECT_EQ(Living, 1) << "its table is gone";
        Press(Qt::Key_Return, Qt::ControlModifier);
    }));
    EXPECT_EQ(Host.TakeLog(), std::vector<fw::Text>{"Res_BatchIsOpen"});
    EXPECT_EQ(Living, 0);
}

TEST_F(BatchDialogTest, ATableOfAnotherClassShowsRowsThatCannotBeSent) {
    Batch.reset();
    Request.DataControl = new TOtherTable;
    QTimer::singleShot(0, &Window, [&] {
        auto* Dialog = dynamic_cast<ws::TBatchDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(Dialog, nullptr);
        Opened = QTest::qWaitFor([&] { return Dialog->isActiveWindow(); }, 5000);
        EXPECT_EQ(Ticks(*Dialog), "--");
        EXPECT_FALSE(Dialog->SendButton().isEnabled());
        Press(Qt::Key_Escape);
    });
    Host.Channels.SendData(fw::kChannelBatchConfirm, &Request);
    EXPECT_TRUE(Opened);
    EXPECT_FALSE(Request.Result);
    // No table, and no record at all.
    Request.DataControl = nullptr;
    Host.Channels.SendData(fw::kChannelBatchConfirm, &Request);
    Host.Channels.SendData(fw::kChannelBatchConfirm, nullptr);
    EXPECT_FALSE(Request.Result);
}

TEST_F(BatchDialogTest, ACellThatThrowsEndsInNoWithOneMessage) {
    Add("HSI26400L6", 0, 2);
    Batch->ThrowsFrom = 0;
    EXPECT_FALSE(Ask([](ws::TBatchDialog& Dialog) {
        EXPECT_FALSE(Dialog.SendButton().isEnabled());
        Press(Qt::Key_Return, Qt::ControlModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !Dialog.isVisible(); }, 5000));
    }));
    ASSERT_EQ(Host.MessageBox.Messages.size(), 1u);
    EXPECT_EQ(Host.MessageBox.Messages[0].Message, "The confirmation failed, and nothing was sent: no such cell");
    EXPECT_EQ(Host.TakeErrors(), std::vector<fw::Text>{"Res_BatchFailed(no such cell)"});
    EXPECT_FALSE(Confirmation.IsOpen());
    EXPECT_EQ(Living, 0);
}

TEST_F(BatchDialogTest, AThousandRowsNeedNoWidgetEach) {
    for (int i = 0; i < 1000; ++i) Add("HSI26400L6", 0, 1);
    EXPECT_TRUE(Ask([&](ws::TBatchDialog& Dialog) {
        QCoreApplication::processEvents();
        EXPECT_LT(Dialog.findChildren<QWidget*>().size(), 40);
        EXPECT_EQ(Dialog.Model().rowCount(), 1000);
        Press(Qt::Key_Return, Qt::ControlModifier);
    }));
}

}  // namespace gui
