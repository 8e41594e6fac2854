// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <map>
#include <memory>

#include "bench/WindowFigures.h"
#include "bench/WindowMarket.h"
#include "workstation/shell/MainWindow.h"

namespace bench {

// A folder that is the user's own for the time of the measure: store, settings, workspaces.
class TUserFolder {
public:
    TUserFolder();
    ~TUserFolder();
    TUserFolder(const TUserFolder&) = delete;
    TUserFolder& operator=(const TUserFolder&) = delete;
    const std::filesystem::path& Path() const { return FPath; }

private:
    std::filesystem::path FPath;
};

// Counts how often widgets were painted.
class TPaintWatch : public QObject {
public:
    explicit TPaintWatch(const std::vector<QWidget*>& Widgets);
    // Runs the loop until every one of them has been painted since the watch was made or the last Wait ended.
    void Wait();
    void Forget();  // what was painted so far

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    std::map<QObject*, int> FPainted;
};

// The whole program over a store in a folder of its own, the sample market and one of the measures'.
class TDesk {
public:
    explicit TDesk(const TBenchMarket& Market);
    ~TDesk();

    // Runs the loop until Done says so; raises after a minute.
    static void WaitFor(const std::function<bool()>& Done);
    static void Idle(int Milliseconds);
    // The turns of the loop for some seconds, those in which next to nothing was done left out. A turn is the time from
    // one round of the loop to the next while something always waits: everything that runs between two looks at mouse
    // and keyboard stands in it.
    static TFigure Turns(const char* Measure, const char* Case);

    // A further payoff view, through its command.
    ws::TViewDock& OpenPayoff();
    // Types the strategy into the view, as the player does, and calculates it.
    void Enter(ws::TViewDock& Dock, const ws::TStrategy& Strategy);

    template <class T>
    static T& Find(ws::TViewDock& Dock) {
        for (QWidget* Each : Dock.findChildren<QWidget*>())
            if (auto* Found = dynamic_cast<T*>(Each)) return *Found;
        throw std::runtime_error("a widget is missing");
    }
    static QWidget& Plot(ws::TViewDock& Dock);   // what draws the chart
    static QWidget& Table(ws::TViewDock& Dock);  // what draws the results

    TUserFolder Folder;
    TBenchMarket Market;
    std::unique_ptr<ws::TWorkstation> Workstation;
    ws::TRenderContext Context;
    std::unique_ptr<ws::TMainWindow> Window;
};

}  // namespace bench
