// SPDX-License-Identifier: GPL-3.0-or-later
// Long chains: importing one, and the symbol selector over one.
#include <algorithm>
#include <array>
#include <cstdlib>

#include "bench/WindowDesk.h"
#include "bench/WindowMeasures.h"
#include "workstation/market/MonthCode.h"
#include "workstation/selector/SymbolSelector.h"

namespace bench {

namespace {

constexpr double kImportLimit = 2000, kOpenLimit = 100, kFilterLimit = 16;

}  // namespace

// Through the window, as a user imports: reading, writing to disk, and every service's new market.
void MeasureImport() {
    TFigure First{.Measure = "import", .Case = "first", .Limit = kImportLimit};
    TFigure Again{.Measure = "import", .Case = "again", .Limit = kImportLimit};
    for (int i = 0; i < kRepetitions; ++i) {
        TDesk Desk{TBenchMarket(1)};
        const auto File = Desk.Folder.Path() / "chain.csv";
        WriteChainFile(File, kChainLines, kChainExpiries);
        const auto Before = Desk.Workstation->Market().Market().Products.size();
        for (TFigure* Figure : {&First, &Again})
            Figure->Take([&] { Desk.Window->ImportFile(QString::fromStdString(File.string())); });
        if (Desk.Workstation->Market().Market().Products.size() != Before + 2 * kChainLines)
            throw std::runtime_error("the file was not imported");
    }
    First.Print();
    Again.Print();
}

namespace {

// Everything that a user waits for: the chain is read, the window laid out, the visible quotes asked for, delivered and
// painted.
void MeasureSelectorOf(TDesk& Desk, const fw::TSelectedMarket& Market, const std::string& Case, bool Binding,
                       const std::vector<const char*>& Typed) {
    std::unique_ptr<ws::TSymbolSelector> Selector;
    const auto Paint = [&] {
        Desk.Workstation->Pump();
        Selector->View().viewport()->repaint();
    };
    TFigure Opened{.Measure = "selector", .Case = "opens, " + Case};
    TFigure Filtered{.Measure = "selector", .Case = "filters, " + Case};
    if (Binding) Opened.Limit = kOpenLimit, Filtered.Limit = kFilterLimit;
    for (int i = 0; i < kRepetitions; ++i) {
        Selector.reset();
        Opened.Take([&] {
            Selector = std::make_unique<ws::TSymbolSelector>(
                Desk.Context, [&](const auto& M) { return Desk.Workstation->UnderlyingOf(M.Exchange, M.Series); },
                nullptr, nullptr);
            Selector->Model().SetMarket(Market);
            Selector->resize(400, 400);
            TPaintWatch Watch({Selector->View().viewport()});
            Selector->show();
            Watch.Wait();
            Paint();
        });
    }
    for (int i = 0; i < kRepetitions; ++i)
        for (const char* Text : Typed) {
            Selector->Search().setText(QStringLiteral("#"));
            Filtered.Take([&] {
                Selector->Search().setText(QString::fromUtf8(Text));
                Paint();
            });
        }
    Opened.Print();
    Filtered.Print();
}

// The month with the most contracts of the chains in the folder VENTIQ_CHAINS, as an exchange gave them.
void MeasureSelectorOfRealChains() {
    const char* Folder = std::getenv("VENTIQ_CHAINS");
    if (!Folder || !*Folder) return;
    for (const auto& File : std::filesystem::directory_iterator(Folder)) {
        if (File.path().extension() != ".csv") continue;
        TDesk Desk{TBenchMarket(1)};
        const auto Before = Desk.Workstation->Market().Market().Products.size();
        Desk.Window->ImportFile(QString::fromStdString(File.path().string()));
        const auto& Products = Desk.Workstation->Market().Market().Products;
        if (Products.size() == Before) throw std::runtime_error("the file was not imported");
        std::map<std::array<std::string, 3>, int> Counts;
        const auto MarketOf = [](const ws::TProductRow& Row) {
            return std::array{Row.Exchange, Row.Series, ws::MonthCodeOf(Row)};
        };
        for (const auto& Row : Products) ++Counts[MarketOf(Row)];
        const auto Largest = std::max_element(Counts.begin(), Counts.end(),
                                              [](const auto& A, const auto& B) { return A.second < B.second; });
        const auto& [Exchange, Series, Month] = Largest->first;
        MeasureSelectorOf(Desk, {Exchange, Series, Month},
                          std::to_string(Largest->second) + " contracts of an exchange's file, " + Series + " " + Month,
                          true, {"4", "41", "410", "4100", "4100c", "spx", "p", ""});
    }
}

}  // namespace

void MeasureSelector() {
    for (const int Strikes : {100, 1000, 5000}) {
        TDesk Desk{TBenchMarket(Strikes)};
        MeasureSelectorOf(Desk, {TBenchMarket::kExchange, TBenchMarket::kSeries, Desk.Market.Month()},
                          std::to_string(Strikes) + " strikes", Strikes <= 1000,
                          {"2", "24", "200", "2000", "20000", "20000c", "bnc20", "p", ""});
    }
    MeasureSelectorOfRealChains();
}

}  // namespace bench
