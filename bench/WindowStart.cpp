// SPDX-License-Identifier: GPL-3.0-or-later
// From the start of the process to the first paint: the parent notes the moment and starts this program again, which
// does what the workstation's own main does. The first paint is done when the loop turns again after the window has
// painted a view's chart, the last thing of the window to be drawn: menus, status, view, everything stands on the
// screen then. "strategy" is the paint that brings the user's last result back, which waits for market data.
#include <spawn.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <stdexcept>

#include <QApplication>
#include <QTimer>

#include "bench/WindowDesk.h"
#include "bench/WindowMeasures.h"
#include "framework/controls/Chart.h"
#include "framework/view/Frame.h"
#include "workstation/renderers/ChartRenderer.h"
#include "workstation/shell/StartUp.h"
#include "workstation/shell/WindowRun.h"

extern char** environ;

namespace bench {

namespace {

constexpr double kStartLimit = 500;

// Writes how long it took to standard output: to the first paint, then to the paint of the restored result; then ends
// the program.
class TFirstPaint : public QObject {
public:
    explicit TFirstPaint(double Began) : FBegan(Began) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override {
        const auto* Chart =
            Event->type() == QEvent::Paint ? dynamic_cast<ws::TChartRenderer*>(Watched->parent()) : nullptr;
        if (!Chart) return false;
        const int Shown = Chart->GetLineCount() > 0 ? 2 : 1;
        if (Shown > FShown)
            QMetaObject::invokeMethod(
                this, [this, Shown] { Say(Shown); }, Qt::QueuedConnection);
        FShown = std::max(FShown, Shown);
        return false;
    }

private:
    void Say(int Shown) {
        for (; FSaid < Shown; ++FSaid)
            std::printf("%.3f %.3f\n", TMoment::Now().Wall - FBegan, TMoment::Now().Processor);
        std::fflush(stdout);
        if (FSaid == 2) QApplication::closeAllWindows();
    }

    double FBegan;
    int FShown = 0, FSaid = 0;  // 1: a chart, 2: with a result
};

// The times that one started program tells.
std::array<TMoment, 2> StartOnce() {
    std::array<int, 2> Pipe{};
    if (pipe(Pipe.data()) != 0) throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t Actions;
    posix_spawn_file_actions_init(&Actions);
    posix_spawn_file_actions_adddup2(&Actions, Pipe[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&Actions, Pipe[0]);
    const std::string Program = std::filesystem::read_symlink("/proc/self/exe").string();
    std::string Name = "window_measure", Mode = kStarted, Began = std::to_string(TMoment::Now().Wall);
    char* Arguments[] = {Name.data(), Mode.data(), Began.data(), nullptr};
    pid_t Child = 0;
    const int Failed = posix_spawn(&Child, Program.c_str(), &Actions, nullptr, Arguments, environ);
    posix_spawn_file_actions_destroy(&Actions);
    close(Pipe[1]);
    if (Failed) throw std::runtime_error("the program does not start");
    FILE* Said = fdopen(Pipe[0], "r");
    std::array<TMoment, 2> Times;
    int Read = 0;
    for (TMoment& Time : Times) Read += std::fscanf(Said, "%lf %lf", &Time.Wall, &Time.Processor);
    std::fclose(Said);
    waitpid(Child, nullptr, 0);
    if (Read != 4) throw std::runtime_error("the started program did not say when it painted");
    return Times;
}

}  // namespace

int RunStarted(double Began) {
    const TFirstPaint Watch(Began);
    return ws::RunWindow({});
}

void MeasureStart() {
    const TUserFolder Folder;
    TFigure First{.Measure = "start", .Case = "first start"};
    First.Times.push_back(StartOnce()[0]);
    First.Print();
    const auto Again = [](const std::string& Store, std::optional<double> Limit) {
        TFigure Paint{.Measure = "start", .Case = "first paint" + Store, .Limit = Limit};
        TFigure Strategy{.Measure = "start", .Case = "last strategy painted" + Store};
        for (int i = 0; i < kRepetitions; ++i) {
            const auto Times = StartOnce();
            Paint.Times.push_back(Times[0]);
            Strategy.Times.push_back(Times[1]);
        }
        Paint.Print();
        Strategy.Print();
    };
    Again("", kStartLimit);
    const auto Chain = Folder.Path() / "chain.csv";
    WriteChainFile(Chain, kChainLines, kChainExpiries);
    ws::TWorkstation(ws::OptionsOf({})).ImportChain(Chain, {}, false);
    Again(", a chain of 20,000 lines imported", {});
}

}  // namespace bench
