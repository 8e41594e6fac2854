// SPDX-License-Identifier: GPL-3.0-or-later
// What a trader waits for in the window, measured on the whole program: real window, real package, real store in a
// folder of its own.
//   window_measure start|calculate|open|hover|memory|quotes|import|selector
// One JSON line for each figure. "limit" belongs to what "limit_of" names. Runs without a screen unless QT_QPA_PLATFORM
// says otherwise. VENTIQ_CHAINS may name a folder of real chains for the selector. Nothing here is a test: times differ
// from machine to machine.
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>

#include "bench/WindowMeasures.h"
#include "workstation/shell/Application.h"

namespace {

struct TMeasure {
    const char* Name;
    void (*Run)();
};

constexpr TMeasure kMeasures[] = {{"start", &bench::MeasureStart},   {"calculate", &bench::MeasureCalculate},
                                  {"open", &bench::MeasureOpen},     {"hover", &bench::MeasureHover},
                                  {"memory", &bench::MeasureMemory}, {"quotes", &bench::MeasureQuotes},
                                  {"import", &bench::MeasureImport}, {"selector", &bench::MeasureSelector}};

int Usage() {
    std::fputs("window_measure", stderr);
    for (const TMeasure& Each : kMeasures) std::fprintf(stderr, " %s", Each.Name);
    std::fputc('\n', stderr);
    return 2;
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ws::TApplication Application(ArgumentCount, Arguments);
    std::setlocale(LC_NUMERIC, "C");  // the lines are JSON
    try {
        if (ArgumentCount == 3 && !std::strcmp(Arguments[1], bench::kStarted))
            return bench::RunStarted(std::atof(Arguments[2]));
        for (const TMeasure& Each : kMeasures)
            if (ArgumentCount == 2 && !std::strcmp(Arguments[1], Each.Name)) return Each.Run(), 0;
    } catch (const std::exception& Error) {
        std::fprintf(stderr, "%s\n", Error.what());
        return 1;
    }
    return Usage();
}
