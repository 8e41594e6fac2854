// SPDX-License-Identifier: GPL-3.0-or-later
// Long chains: importing one, and the symbol selector over one.
#include <QCoreApplication>

#include "bench/WindowDesk.h"
#include "bench/WindowMeasures.h"
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

// Everything that a user waits for: the chain is read, the window laid out, the visible quotes asked for, delivered and
// painted.
void MeasureSelector() {
    for (const int Strikes : {100, 1000, 5000}) {
        TDesk Desk{TBenchMarket(Strikes)};
        const std::string Suffix = ", " + std::to_string(Strikes) + " strikes";
        const bool Binding = Strikes <= 1000;
        std::unique_ptr<ws::TSymbolSelector> Selector;
        const auto Paint = [&] {
            Desk.Workstation->Pump();
            Selector->View().viewport()->repaint();
        };
        TFigure Opened{.Measure = "selector", .Case = "opens" + Suffix};
        TFigure Filtered{.Measure = "selector", .Case = "filters" + Suffix};
        if (Binding) Opened.Limit = kOpenLimit, Filtered.Limit = kFilterLimit;
        for (int i = 0; i < kRepetitions; ++i) {
            Selector.reset();
            Opened.Take([&] {
                Selector = std::make_unique<ws::TSymbolSelector>(
                    Desk.Context, [&](const auto& M) { return Desk.Workstation->UnderlyingOf(M.Exchange, M.Series); },
                    nullptr, nullptr);
                Selector->Model().SetMarket({TBenchMarket::kExchange, TBenchMarket::kSeries, Desk.Market.Month()});
                Selector->resize(400, 400);
                Selector->show();
                QCoreApplication::processEvents();
                Paint();
            });
        }
        for (int i = 0; i < kRepetitions; ++i)
            for (const char* Text : {"2", "24", "200", "2000", "20000", "20000c", "bnc20", "p", ""}) {
                Selector->Search().setText(QStringLiteral("#"));
                Filtered.Take([&] {
                    Selector->Search().setText(QString::fromUtf8(Text));
                    Paint();
                });
            }
        Opened.Print();
        Filtered.Print();
    }
}

}  // namespace bench
