// SPDX-License-Identifier: GPL-3.0-or-later
// How long the detail table takes to open, to take other rows and to scroll until it is painted, and what memory that
// takes, for row counts up to the greatest: over rows that cost nothing, and over the real table of an iron condor. One
// JSON line each; nothing here is a test. Off the screen unless QT_QPA_PLATFORM says otherwise.
//
//   grid_measure [repetitions [measure]]     a single measure, e.g. grid_step_page, is for a profiler
#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <functional>
#include <random>

#include <QApplication>
#include <QScrollBar>
#include <QStyle>

#include "bench/ResidentMemory.h"
#include "engine/VentiqDataControl.h"
#include "tests/support/FakeHost.h"
#include "view/VentiqDetailGrid.h"
#include "workstation/renderers/WindowedGridRenderer.h"
#include "workstation/services/FormatterService.h"

namespace {

using TRenderer = ws::TWindowedGridRenderer;

constexpr int32_t kRowCounts[] = {10, 10'001, 1'000'001, 200'000'001, 2'147'483'647};
constexpr QSize kSizes[] = {{480, 780}, {3840, 2160}};  // about 40 rows beside a chart; the whole of a 4K screen
constexpr double kDownLimit = 10000.0;
constexpr double kInterval = 0.0001;

// Rows that cost nothing: what is left is the table's own work.
class TLightRows : public fw::TCustomDataControl {
public:
    int32_t Count = 0;
    int32_t GetCount() override { return Count; }
    fw::Variant GetValue(int32_t Record, int32_t) override { return Record % 3 - 1.0; }
    fw::Text GetDisplayValue(int32_t Record, int32_t) override { return std::to_string(Record); }
};

// A table's view and who fills it.
class TTable {
public:
    virtual ~TTable() = default;
    virtual const char* Name() const = 0;
    virtual void Fill(int32_t Rows) = 0;
    fw::TGridTableView& View() { return Form.DetailGridView; }

protected:
    ventiq::TVentiqForm Form;
    ventiq::TVentiqDetailGrid Grid{Form};
};

class TLightTable : public TTable {
public:
    TLightTable() {
        Grid.InitializeGrid();
        for (int i = 0; i < View().GetColumnCount(); ++i) View().GetColumn(i)->OnGetDisplayText = nullptr;
        View().SetCustomDataSource(&Source);
    }
    const char* Name() const override { return "light"; }
    void Fill(int32_t Rows) override {
        auto& Data = static_cast<TLightRows&>(*Source.GetDataControl());
        Data.Count = Rows;
        Data.NotifyDataChanged();
    }

private:
    fw::TCustomGridDataSource Source{[] { return std::make_unique<TLightRows>(); }};
};

// Bought and sold puts and calls around the middle of the range, each leg at a strike of its own.
class TCondorTable : public TTable {
public:
    explicit TCondorTable(support::TFakeHost& Host) {
        Grid.InitializeGrid();
        Grid.CreateDataSource();
        Control.SetDetailControl(Grid.GetDataControl());
        Control.SetDownLimit(kDownLimit);
        Control.SetInterval(kInterval);
        const struct {
            const char* Symbol;
            double Strike;
            const char* Side;
            int Sold;
        } Legs[] = {{"P1", 100000, "P", 0}, {"P2", 110000, "P", 1}, {"C1", 130000, "C", 1}, {"C2", 140000, "C", 0}};
        for (const auto& Leg : Legs) {
            Host.Subscriptions.AddOption(Leg.Symbol, Leg.Strike, Leg.Side, 50.0);
            Control.AddRecord(Leg.Symbol, Leg.Sold, 120.5, 2.0);
        }
    }
    ~TCondorTable() override { Grid.FreeDataSource(); }
    const char* Name() const override { return "iron_condor"; }
    void Fill(int32_t Rows) override {
        Control.SetUpLimit(kDownLimit + kInterval * (Rows - 1.0));
        Control.Calculate();
    }

private:
    ventiq::TCustomVentiqDataControl Control;
};

// Counts what a widget paints and runs the loop until it has.
class TPainted : public QObject {
public:
    explicit TPainted(QWidget& Widget) { Widget.installEventFilter(this); }
    void Wait() {
        for (const int Before = FCount; FCount == Before;) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

protected:
    bool eventFilter(QObject*, QEvent* Event) override {
        // Behind the event, so that what is waited for has been drawn.
        if (Event->type() == QEvent::Paint)
            QMetaObject::invokeMethod(
                this, [this] { ++FCount; }, Qt::QueuedConnection);
        return false;
    }

private:
    int FCount = 0;
};

class TMeasure {
public:
    TMeasure(ws::TRenderContext& Context, int Reps, std::string Only)
        : FContext(Context), FReps(Reps), FOnly(std::move(Only)) {}

    void Of(TTable& Table, QSize Size) {
        Table.Fill(kRowCounts[0]);
        {
            const auto Opened = Open(Table, Size);  // the picture of the window is no row's
            FResident = bench::ResidentKb();
        }
        for (const int32_t Rows : kRowCounts) {
            Table.Fill(Rows);
            if (Table.View().GetDataController().GetRecordCount() != Rows)
                throw std::runtime_error("the table has another number of rows");
            Opening(Table, Size, Rows);
            Moving(Table, Size, Rows);
        }
    }

private:
    using TStep = std::function<void()>;

    std::unique_ptr<TRenderer> Open(TTable& Table, QSize Size) {
        auto Made = std::make_unique<TRenderer>(Table.View(), FContext, nullptr);
        Made->resize(Size);
        Made->show();
        TPainted(*Made->viewport()).Wait();
        return Made;
    }

    void Opening(TTable& Table, QSize Size, int32_t Rows) {
        std::unique_ptr<TRenderer> Renderer;
        Run(
            "grid_open", Table, Size, Rows, [&] { Renderer.reset(); }, [&] { Renderer = Open(Table, Size); });
    }

    void Moving(TTable& Table, QSize Size, int32_t Rows) {
        const auto Renderer = Open(Table, Size);
        TPainted Painted(*Renderer->viewport());
        QScrollBar& Bar = *Renderer->verticalScrollBar();
        Run("grid_fill", Table, Size, Rows, {}, [&] { Table.Fill(Rows), Painted.Wait(); });
        if (Bar.maximum() == 0) return;  // nothing to scroll
        std::mt19937 Random(1);
        std::uniform_int_distribution<int> Place(0, Bar.maximum());
        const auto Jump = [&] {  // a place that is not the one it stands at
            int To = Bar.value();
            while (To == Bar.value()) To = Place(Random);
            return To;
        };
        const struct {
            const char* Name;
            TStep Step;
        } Steps[] = {{"grid_step_row", [&] { Bar.setValue(Bar.value() + 1); }},
                     {"grid_step_page", [&] { Bar.setValue(Bar.value() + Bar.pageStep()); }},
                     {"grid_step_jump", [&] { Bar.setValue(Jump()); }},
                     {"grid_step_cursor", [&] {
                          Table.View().GetSelection().Select(Bar.value() + Bar.pageStep());
                          Renderer->ScrollTo(Renderer->GetCurrentRow());
                      }}};
        for (const auto& [Name, Step] : Steps) {
            const auto Back = [&] {  // to where a step has room
                if (Bar.value() <= Bar.maximum() - 2 * Bar.pageStep()) return;
                Bar.setValue(0);
                Painted.Wait();
            };
            Run(Name, Table, Size, Rows, Back, [&] { Step(), Painted.Wait(); });
        }
    }

    void Run(const char* Name, TTable& Table, QSize Size, int32_t Rows, const TStep& Before, const TStep& Step) {
        if (!FOnly.empty() && FOnly != Name) return;
        std::vector<double> Times;
        for (int i = -1; i < FReps; ++i) {  // the first one warms up
            if (Before) Before();
            const auto Begin = std::chrono::steady_clock::now();
            Step();
            const auto End = std::chrono::steady_clock::now();
            if (i >= 0) Times.push_back(std::chrono::duration<double, std::milli>(End - Begin).count());
        }
        std::sort(Times.begin(), Times.end());
        std::printf(
            "{\"measure\":\"%s\",\"table\":\"%s\",\"height\":%d,\"rows\":%d,\"median_ms\":%.3f,"
            "\"worst_ms\":%.3f,\"reps\":%d,\"growth_kb\":%lld}\n",
            Name, Table.Name(), Size.height(), Rows, Times[Times.size() / 2], Times.back(), FReps,
            static_cast<long long>(bench::ResidentKb() - FResident));
        std::fflush(stdout);
    }

    ws::TRenderContext& FContext;
    int FReps;
    std::string FOnly;
    int64_t FResident = 0;  // while the table of the fewest rows is open
};

}  // namespace

int main(int ArgumentCount, char** Arguments) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication Application(ArgumentCount, Arguments);
    std::setlocale(LC_NUMERIC, "C");  // the lines are JSON
    QApplication::setStyle(QStringLiteral("Fusion"));
    const int Reps = ArgumentCount > 1 ? std::atoi(Arguments[1]) : 101;
    support::TFakeHost Host;
    const fw::TScopedService<fw::TCustomFormatter> Formatter(
        std::make_unique<ws::TFormatterService>([](const fw::Text&) {
            return ws::TQuoteForm{4, {}};
        }));
    ws::TRenderContext Context;
    Context.SetSkin("Light");
    TMeasure Measure(Context, std::max(Reps, 1), ArgumentCount > 2 ? Arguments[2] : "");
    for (const QSize Size : kSizes) {
        TLightTable Light;
        Measure.Of(Light, Size);
        TCondorTable Condor(Host);
        Measure.Of(Condor, Size);
    }
}
