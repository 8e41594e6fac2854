// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace bench {

// Each prints its figures.
void MeasureStart();
inline constexpr char kStarted[] = "started";
int RunStarted(double Began);  // what MeasureStart starts, at that moment of the clock
void MeasureCalculate();
void MeasureOpen();
void MeasureHover();
void MeasureMemory();
void MeasureQuotes();
void MeasureImport();
void MeasureSelector();

}  // namespace bench
