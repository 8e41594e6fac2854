// SPDX-License-Identifier: GPL-3.0-or-later
// Payoff views: calculating, opening, the hint over the chart, and what ten of them keep in memory.
#include <cstdio>

#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "bench/ResidentMemory.h"
#include "bench/WindowDesk.h"
#include "bench/WindowMeasures.h"
#include "framework/controls/Button.h"
#include "framework/controls/GridTableView.h"
#include "framework/data/ColumnIds.h"
#include "framework/view/Frame.h"
#include "workstation/renderers/ButtonRenderer.h"
#include "workstation/renderers/ChartRenderer.h"
#include "workstation/script/Player.h"

namespace bench {

namespace {

constexpr double kCalculateLimit = 16, kOpenLimit = 100, kHoverLimit = 1, kMemoryLimit = 150;
constexpr int kStrikes = 500, kMixedLegs = 1000, kViews = 10, kTypedCells = 21;

struct TCase {
    const char* Name;
    ws::TStrategy Strategy;
    int Rows;
};

std::vector<TCase> Cases(const TBenchMarket& Market) {
    return {{"W1", Market.IronCondor(1), 10'001},
            {"W2", Market.IronCondor(0.01), 1'000'001},
            {"W3", Market.Mixed(kMixedLegs, 1), 10'001},
            {"W6", Market.IronCondor(0.00005), 200'000'001}};
}

// By its caption, as the user finds it.
QPushButton& ButtonOf(ws::TViewDock& Dock, const char* Control) {
    const auto* Model = Dock.Frame()->FindControl<fw::TButton>(Control);
    for (auto* Each : Dock.findChildren<QPushButton*>())
        if (Model && Each->text() == QString::fromStdString(Model->GetCaption())) return *Each;
    throw std::runtime_error("a button is missing");
}

int RowsOf(ws::TViewDock& Dock, const char* Control) {
    return Dock.Frame()->FindControl<fw::TGridTableView>(Control)->GetDataController().GetRecordCount();
}

void CheckRows(ws::TViewDock& Dock, const TCase& Case) {
    const int Rows = RowsOf(Dock, "DetailGridView");
    if (Rows != Case.Rows) throw std::runtime_error(std::string(Case.Name) + " has " + std::to_string(Rows) + " rows");
}

// What typing one cell of a long table costs, through the grid's own editor, until it is painted.
void MeasureTyping(ws::TViewDock& Dock, const TCase& Case) {
    TFigure Figure{.Measure = "type", .Case = std::string(Case.Name) + " one quantity"};
    TPaintWatch Watch({TDesk::Find<QTableView>(Dock).viewport()});
    ws::TPlayer Player(*Dock.Frame());
    for (int i = 0; i < kTypedCells; ++i)
        Figure.Take([&] {
            if (!Player.Play(ws::TStep::CellNumber("PositionGridView", i, fw::kColumnQuantity, i + 2)))
                throw std::runtime_error("the cell was refused");
            Watch.Wait();
        });
    Figure.Print();
}

// The same legs once more, as a saved strategy that is opened into a new view.
void MeasureReopening(TDesk& Desk, ws::TViewDock& From) {
    const auto State = Desk.Window->Drafts().StateOf(From);
    ws::TViewDock& Dock = Desk.OpenPayoff();
    Desk.Idle(300);
    TFigure Figure{.Measure = "enter", .Case = "W3 as a saved strategy"};
    Figure.Take([&] {
        Desk.Window->Drafts().OpenState(Dock, State.value());
        Desk.WaitFor([&] { return RowsOf(Dock, "PositionGridView") == kMixedLegs + 1; });
    });
    Figure.Print();
    Dock.close();
    Desk.WaitFor([&] { return Desk.Window->Docks().Docks().size() == 1; });
}

double ResidentMegabytes() { return static_cast<double>(ResidentKb()) / 1024; }

}  // namespace

void MeasureCalculate() {
    TDesk Desk{TBenchMarket(kStrikes)};
    for (const TCase& Case : Cases(Desk.Market)) {
        ws::TViewDock& Dock = Desk.OpenPayoff();
        TFigure Entered{.Measure = "enter", .Case = Case.Name};
        Entered.Take([&] { Desk.Enter(Dock, Case.Strategy); });
        CheckRows(Dock, Case);
        QPushButton& Button = ButtonOf(Dock, "btnCalc");
        TPaintWatch Watch({&TDesk::Plot(Dock), &TDesk::Table(Dock)});
        QSignalSpy Drawn(&TDesk::Plot(Dock), SIGNAL(afterReplot()));
        TFigure Figure{.Measure = "calculate", .Case = Case.Name, .Limit = kCalculateLimit};
        for (int i = 0; i < kRepetitions; ++i) {
            Desk.Idle(30);
            Watch.Forget();
            Figure.Take([&] {
                QTest::mouseClick(&Button, Qt::LeftButton);
                Watch.Wait();
            });
            if (Drawn.size() != i + 1) throw std::runtime_error("the chart was not drawn once for one calculation");
        }
        Figure.Print();
        if (Case.Strategy.Legs.size() == kMixedLegs) {
            Entered.Print();
            MeasureReopening(Desk, Dock);
            MeasureTyping(Dock, Case);
            TDesk::Turns("idle", "W3 open").Print();
        }
        Dock.close();
        Desk.WaitFor([&] { return Desk.Window->Docks().Docks().empty(); });
    }
}

void MeasureOpen() {
    TDesk Desk{TBenchMarket(kStrikes)};
    const auto OpenOnce = [&](TFigure& Figure) {
        Desk.Idle(300);
        ws::TViewDock* Dock = nullptr;
        Figure.Take([&] {
            Dock = &Desk.OpenPayoff();
            TPaintWatch Watch({&TDesk::Plot(*Dock), &TDesk::Table(*Dock), TDesk::Find<QTableView>(*Dock).viewport()});
            Watch.Wait();
        });
        return Dock;
    };
    TFigure Second{.Measure = "open", .Case = "beside one", .Limit = kOpenLimit};
    Desk.Enter(Desk.OpenPayoff(), Desk.Market.IronCondor(1));
    for (int i = 0; i < kRepetitions; ++i) {
        OpenOnce(Second)->close();
        Desk.WaitFor([&] { return Desk.Window->Docks().Docks().size() == 1; });
    }
    Second.Print();
    TFigure Further{.Measure = "open", .Case = "one after the other", .Limit = kOpenLimit};
    for (int i = 0; i < kRepetitions; ++i) OpenOnce(Further);
    Further.Print();
}

void MeasureHover() {
    TDesk Desk{TBenchMarket(kStrikes)};
    ws::TViewDock& Dock = Desk.OpenPayoff();
    Desk.Enter(Dock, Desk.Market.IronCondor(1));
    Desk.Window->Commands().Run("view.hint");
    Desk.Idle(100);
    QWidget& Plot = TDesk::Plot(Dock);
    const QRect Area = TDesk::Find<ws::TChartRenderer>(Dock).GetPlotArea();
    const auto Move = [&Plot](QPoint At) {
        QMouseEvent Event(QEvent::MouseMove, At, Plot.mapToGlobal(At), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Plot, &Event);
    };
    // Along the line itself: the hint shows only where the mouse is on it.
    std::vector<QPoint> OnLine;
    QLabel* Hint = nullptr;
    for (QLabel* Each : Dock.findChildren<QLabel*>())
        if (Each->windowType() == Qt::ToolTip) Hint = Each;
    if (!Hint) throw std::runtime_error("the hint window is missing");
    for (int X = Area.left() + 5; X < Area.right() && OnLine.size() < 200; X += 5)
        for (int Y = Area.top(); Y < Area.bottom(); ++Y) {
            Move({X, Y});
            if (!Hint->isVisible()) continue;
            OnLine.push_back({X, Y});
            break;
        }
    if (OnLine.size() < 20) throw std::runtime_error("the hint shows nowhere");
    TFigure Shown{.Measure = "hover", .Case = "hint shown", .Limit = kHoverLimit};
    TFigure Painted{.Measure = "hover", .Case = "hint painted"};
    TPaintWatch Watch({Hint});
    for (const QPoint At : OnLine) {
        const QString Before = Hint->text();
        Shown.Take([&] { Move(At); });
        if (Hint->text() != Before) Watch.Wait();
    }
    for (const QPoint At : OnLine)
        Painted.Take([&] {
            const QString Before = Hint->text();
            Move(At);
            if (Hint->text() != Before) Watch.Wait();
        });
    Shown.Print();
    Painted.Print();
}

void MeasureMemory() {
    TDesk Desk{TBenchMarket(kStrikes)};
    TFigure Figure{.Measure = "memory", .Case = "without a view", .Resident = ResidentMegabytes()};
    Figure.Print();
    for (int i = 0; i < kViews; ++i) Desk.Enter(Desk.OpenPayoff(), Desk.Market.IronCondor(1));
    Desk.Idle(1000);
    Figure = {
        .Measure = "memory", .Case = "ten calculated views", .Limit = kMemoryLimit, .Resident = ResidentMegabytes()};
    Figure.Print();
}

}  // namespace bench
