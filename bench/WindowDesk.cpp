// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/WindowDesk.h"

#include <stdlib.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include "tests/gui/FakeDialogs.h"
#include "workstation/renderers/ChartRenderer.h"
#include "workstation/renderers/WindowedGridRenderer.h"
#include "workstation/script/StrategyRun.h"
#include "workstation/shell/PackageLoader.h"
#include "workstation/shell/SkinPalette.h"
#include "workstation/shell/StartUp.h"
#include "workstation/store/SampleStore.h"

namespace bench {

namespace {

constexpr qint64 kPatienceMs = 60'000;
constexpr double kTurnLimit = 16, kShortestTurn = 0.1;
constexpr int kTurnsMs = 6000;
constexpr char kOpenPayoff[] = "open.620";

}  // namespace

TUserFolder::TUserFolder() {
    std::string Name = (std::filesystem::temp_directory_path() / "window-measure-XXXXXX").string();
    if (!mkdtemp(Name.data())) throw std::runtime_error("no temporary folder");
    FPath = Name;
    for (const char* Variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"}) setenv(Variable, FPath.c_str(), 1);
}

TUserFolder::~TUserFolder() {
    std::error_code Ignored;
    std::filesystem::remove_all(FPath, Ignored);
}

TPaintWatch::TPaintWatch(const std::vector<QWidget*>& Widgets) {
    for (QWidget* Each : Widgets) {
        FPainted[Each] = 0;
        Each->installEventFilter(this);
    }
}

bool TPaintWatch::eventFilter(QObject* Watched, QEvent* Event) {
    if (Event->type() == QEvent::Paint) ++FPainted[Watched];
    return false;
}

void TPaintWatch::Wait() {
    TDesk::WaitFor([this] {
        return std::all_of(FPainted.begin(), FPainted.end(), [](const auto& Each) { return Each.second > 0; });
    });
    Forget();
}

void TPaintWatch::Forget() {
    for (auto& [Widget, Count] : FPainted) Count = 0;
}

TDesk::TDesk(const TBenchMarket& Given) : Market(Given) {
    const ws::TWorkstationOptions Options = ws::OptionsOf({});
    {
        const auto Opened = ws::TStore::OpenFile(ws::DefaultStorePath(), {});
        ws::PrepareSampleMarket(*Opened.Store, Options.SampleFolder, ws::SampleToday());
        Market.Put(*Opened.Store);
    }
    Workstation = std::make_unique<ws::TWorkstation>(Options);
    ws::ShowLook(*Workstation, Context);
    Window = std::make_unique<ws::TMainWindow>(*Workstation, Context, std::make_unique<gui::TFakeDialogs>(Context));
    ws::LoadPackages();
    Window->ReloadViews();
    Window->show();
    Idle(100);
}

TDesk::~TDesk() {
    Window.reset();
    Workstation.reset();
}

void TDesk::WaitFor(const std::function<bool()>& Done) {
    QElapsedTimer Clock;
    Clock.start();
    while (!Done()) {
        if (Clock.elapsed() > kPatienceMs) throw std::runtime_error("what was waited for did not come");
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

void TDesk::Idle(int Milliseconds) {
    QEventLoop Loop;
    QTimer::singleShot(Milliseconds, &Loop, &QEventLoop::quit);
    Loop.exec();
}

TFigure TDesk::Turns(const char* Measure, const char* Case) {
    TFigure Figure{.Measure = Measure, .Case = Case, .Limit = kTurnLimit, .IsWorst = true};
    QTimer Round;
    TMoment Last = TMoment::Now();
    QObject::connect(&Round, &QTimer::timeout, [&] {
        const TMoment Now = TMoment::Now();
        if (Now.Wall - Last.Wall >= kShortestTurn) Figure.Times.push_back(Now - Last);
        Last = Now;
    });
    Round.start(0);
    Idle(kTurnsMs);
    return Figure;
}

ws::TViewDock& TDesk::OpenPayoff() {
    const size_t Before = Window->Docks().Docks().size();
    Window->Commands().Run(kOpenPayoff);
    if (Window->Docks().Docks().size() != Before + 1) throw std::runtime_error("the view did not open");
    return *Window->Docks().Docks().back();
}

void TDesk::Enter(ws::TViewDock& Dock, const ws::TStrategy& Strategy) {
    ws::TStrategyRun Run(*Dock.Frame(), Workstation->Market(), Strategy, std::chrono::minutes(1));
    auto State = ws::TStrategyRun::EState::Waiting;
    WaitFor([&] { return (State = Run.Poll({})) != ws::TStrategyRun::EState::Waiting; });
    if (State == ws::TStrategyRun::EState::Done) return Idle(300);
    const auto& Problem = Run.Problems().front();
    throw std::runtime_error(Workstation->Language().Resource(Problem.Key, Problem.Args));
}

QWidget& TDesk::Plot(ws::TViewDock& Dock) {
    return *Find<ws::TChartRenderer>(Dock).findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

QWidget& TDesk::Table(ws::TViewDock& Dock) { return *Find<ws::TWindowedGridRenderer>(Dock).viewport(); }

}  // namespace bench
