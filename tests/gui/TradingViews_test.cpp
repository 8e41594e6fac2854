// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMenu>

#include "framework/controls/PopupEdit.h"
#include "framework/data/ColumnIds.h"
#include "tests/gui/MainWindowTest.h"
#include "workstation/renderers/WindowedGridRenderer.h"
#include "workstation/views/OrdersData.h"

namespace gui {

// The trading views in the window, over the order system and its paper exchange.
class TradingViewsTest : public MainWindowTest {
protected:
    QAction* Entry(const QString& Menu, const QString& Caption) const {
        for (QAction* Each : Window->menuBar()->actions()) {
            if (Each->text() != Menu || !Each->menu()) continue;
            for (QAction* Found : Each->menu()->actions())
                if (Found->text() == Caption) return Found;
        }
        throw std::runtime_error("no such menu entry");
    }
    ws::TViewDock& Open(const QString& Caption) {
        Entry("Trading", Caption)->trigger();
        return *Window->Docks().Current();
    }
    ws::TWindowedGridRenderer& Table() const {
        for (auto* Each : Window->Docks().Current()->findChildren<QAbstractScrollArea*>())
            if (auto* Found = dynamic_cast<ws::TWindowedGridRenderer*>(Each)) return *Found;
        throw std::runtime_error("no table");
    }
    fw::TGridTableView& Rows() const {
        for (const char* Name : {"OrdersGridView", "PositionsGridView"})
            if (auto* Found = Window->Docks().Current()->Frame()->FindControl<fw::TGridTableView>(Name)) return *Found;
        throw std::runtime_error("no table");
    }
    int IndexOf(int Tag) const {
        for (int i = 0; i < Rows().GetColumnCount(); ++i)
            if (Rows().GetColumn(i)->Tag == Tag) return i;
        throw std::runtime_error("no such column");
    }
    QString Cell(int Row, int Tag) const { return ws::ToQt(Rows().GetCellText(Row, IndexOf(Tag))); }
    void ClickHeader(int Tag) {
        QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().HeaderRect(IndexOf(Tag)).center());
    }
    void ClickRow(int Row, Qt::KeyboardModifiers Modifiers = {}) {
        QTest::mouseClick(Table().viewport(), Qt::LeftButton, Modifiers, Table().CellRect(Row, 2).center());
    }

    // Far from the market: it stays open.
    ws::TOrderTicket Ticket(int Side, double Qty, const char* Symbol = "HSIZ6", double Price = 0) const {
        ws::TOrderTicket Result;
        Result.Account = "A100";
        Result.Symbol = Symbol;
        Result.Side = Side;
        Result.Qty = Qty;
        Result.Price = Price > 0 ? Price : Side == 0 ? 20000 : 40000;
        return Result;
    }
    std::string Place(int Side, double Qty, const char* Symbol = "HSIZ6", double Price = 0) {
        return Workstation->Orders().Place(Ticket(Side, Qty, Symbol, Price));
    }
    bool Shown(int Count) {
        return QTest::qWaitFor([&] { return Rows().GetDataController().GetRecordCount() == Count; }, 5000);
    }
    // The exchange has answered every order, and the view shows it.
    bool Answered() {
        return QTest::qWaitFor(
            [this] {
                for (const auto& Row : Workstation->Orders().Orders())
                    if (Row.State == ws::EOrderState::New) return false;
                return Rows().GetDataController().GetRecordCount() > 0 && Cell(0, ws::kColumnState) != "Sent";
            },
            15000);
    }
};

TEST_F(TradingViewsTest, OrdersAreSortedByTheirCaptionsAndTheArrowSaysSo) {
    Open("Orders");
    EXPECT_EQ(Window->Docks().Current()->windowTitle(), "Orders");
    for (double Qty : {10, 9, 100}) Place(0, Qty);
    ASSERT_TRUE(Shown(3));
    const QRect Head = Table().HeaderRect(IndexOf(fw::kColumnQuantity));
    const auto HasArrow = [&] {
        const QImage Seen = Table().viewport()->grab(Head).toImage();
        for (int Y = 0; Y < Seen.height(); ++Y)
            for (int X = 0; X < Seen.width(); ++X)
                if (Seen.pixelColor(X, Y) == Context.Color("coAccent")) return true;
        return false;
    };
    EXPECT_FALSE(HasArrow());
    ClickHeader(fw::kColumnQuantity);
    EXPECT_TRUE(HasArrow());
    EXPECT_EQ(Cell(0, fw::kColumnQuantity), "9");
    EXPECT_EQ(Cell(2, fw::kColumnQuantity), "100");
    ClickHeader(fw::kColumnQuantity);
    EXPECT_EQ(Cell(0, fw::kColumnQuantity), "100");
    ClickHeader(fw::kColumnQuantity);
    EXPECT_FALSE(HasArrow());
    EXPECT_EQ(Cell(0, fw::kColumnQuantity), "100") << "the newest";
    EXPECT_EQ(Cell(1, fw::kColumnQuantity), "9");
}

// The exchange refuses one now and then: the order that is tried is one that it took.
TEST_F(TradingViewsTest, TheSelectedOrderStaysSelectedAndIsTheOneThatIsCancelled) {
    Open("Orders");
    for (int i = 0; i < 4; ++i) Place(0, 1);
    ASSERT_TRUE(Shown(4));
    ASSERT_TRUE(Answered());
    int Row = 3;
    while (Row > 0 && Cell(Row, ws::kColumnState) != "Accepted") --Row;
    ASSERT_EQ(Cell(Row, ws::kColumnState), "Accepted");
    const std::string Chosen = ws::FromQt(Cell(Row, ws::kColumnOrderId));
    ClickRow(Row);
    Place(0, 3);
    ASSERT_TRUE(Shown(5));
    EXPECT_EQ(Table().GetCurrentRow(), Row + 1);
    Click("Cancel selected");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Cell(Row + 1, ws::kColumnState) == "Cancelled"; }, 15000));
    for (const auto& Each : Workstation->Orders().Orders())
        EXPECT_EQ(Each.State == ws::EOrderState::Cancelled, Each.Id == Chosen) << Each.Id;
}

TEST_F(TradingViewsTest, CancelAllAsksWithTheCount) {
    Open("Orders");
    for (int i = 0; i < 4; ++i) Place(1, 1);
    ASSERT_TRUE(Answered());
    const auto Open = std::count_if(Workstation->Orders().Orders().begin(), Workstation->Orders().Orders().end(),
                                    [](const auto& Row) { return !ws::IsFinal(Row.State); });
    Dialogs->Yes = false;
    Click("Cancel all");
    ASSERT_EQ(Dialogs->Asked.size(), 1u);
    EXPECT_EQ(Dialogs->Asked[0], "Cancel " + std::to_string(Open) + " open orders?");
    Dialogs->Yes = true;
    Click("Cancel all");
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
            const auto& Orders = Workstation->Orders().Orders();
            return std::all_of(Orders.begin(), Orders.end(), [](const auto& Row) { return ws::IsFinal(Row.State); });
        },
        15000));
}

TEST_F(TradingViewsTest, ADoubleClickAndEnterPushTheOrderIntoThePayoffViewUsedLast) {
    fw::TFrame& Payoff = PlayFirstStart();
    ws::TViewDock* PayoffDock = Window->Docks().Current();
    auto* Account = Payoff.FindControl<fw::TPopupEdit>("edtAccount");
    ws::TOrderTicket Order = Ticket(0, 1);
    Order.Account = "A200";
    Workstation->Orders().Place(Order);
    ws::TViewDock& Orders = Open("Orders");
    EXPECT_NE(Account->GetHint(), "A200");
    const QPoint At = Table().CellRect(0, 2).center();
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, At);
    QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {}, At);
    EXPECT_EQ(Account->GetHint(), "A200");
    EXPECT_FALSE(PayoffDock->visibleRegion().isEmpty()) << "it comes to the front";
    EXPECT_TRUE(Window->Status().Hint().contains("HSIZ6")) << ws::FromQt(Window->Status().Hint());
    Window->Docks().CloseLater(*PayoffDock);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Window->Docks().Docks().size() == 1; }));
    ASSERT_EQ(Window->Docks().Current(), &Orders);
    QTest::keyClick(&Table(), Qt::Key_Return);
    EXPECT_TRUE(Window->Status().Hint().startsWith("No payoff view is open")) << ws::FromQt(Window->Status().Hint());
}

TEST_F(TradingViewsTest, PositionsComeWithTheirValueInThreeLanguagesAndBothSkins) {
    ws::TViewDock& Dock = Open("Positions");
    ASSERT_TRUE(Shown(static_cast<int>(Workstation->Orders().AllHoldings().size()))) << "all accounts are the user's";
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Cell(0, fw::kColumnProfitLoss).isEmpty(); }, 5000));
    EXPECT_EQ(Cell(0, fw::kColumnSymbol), ws::ToQt(Workstation->Orders().AllHoldings().front().Symbol));
    for (const char* Title : {"持倉", "持仓", "Positions"}) {
        Window->SetLanguage(QByteArray(Title) == "持倉" ? 1 : QByteArray(Title) == "持仓" ? 2 : 0);
        EXPECT_EQ(Dock.windowTitle(), QString::fromUtf8(Title));
    }
    for (const char* Skin : {"Dark", "Light"}) {
        Window->SetSkin(Skin);
        const QImage Seen = Table().viewport()->grab().toImage();
        bool Signed = false;
        for (int Y = 0; Y < Seen.height(); ++Y)
            for (int X = 0; X < Seen.width(); ++X)
                Signed |= Seen.pixelColor(X, Y) == Context.Color("coProfit") ||
                          Seen.pixelColor(X, Y) == Context.Color("coLoss");
        EXPECT_TRUE(Signed) << Skin;
    }
}

TEST_F(TradingViewsTest, TheProgressOfABatchStandsInTheStatusBarAndOnceInTheMessages) {
    std::vector<ws::TOrderTicket> Batch;
    for (int Place : {1, 2, 3}) {
        Batch.push_back(Ticket(0, 1, Place == 2 ? "NOSUCH" : "HSIZ6"));
        Batch.back().BatchId = "batch-1";
        Batch.back().Place = Place;
        Batch.back().BatchSize = 3;
    }
    const auto Ids = Workstation->Orders().PlaceAll(Batch);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Window->Status().Hint().contains("of 3 accepted"); }, 5000));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Window->Status().Hint().contains("leg 2"); }, 15000));
    const auto Told = [this] { return MessageTexts().filter("of 3 accepted").size(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return Told() == 1; }, 15000));
    Window->SetLanguage(1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Window->Status().Hint().contains("第 2"); }, 2000));
    Window->SetLanguage(0);
    fw::TClock::Fix(fw::TClock::Now() + std::chrono::seconds(11));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Window->Status().Hint().contains("accepted"); }, 2000));
    EXPECT_EQ(Told(), 1);
}

TEST_F(TradingViewsTest, NothingIsRegisteredAfterClose) {
    Open("Orders");
    Open("Positions");
    EXPECT_TRUE(Workstation->Subscriptions().HasOwners());
    Window->Docks().CloseAll();
    EXPECT_FALSE(Workstation->Subscriptions().HasOwners());
    EXPECT_FALSE(Workstation->LookAndFeel().HasOwners());
    Window.reset();  // follows the configuration while it lives
    EXPECT_FALSE(Workstation->HasOwners());
    Place(0, 1);
    QTest::qWait(250);
}

}  // namespace gui
