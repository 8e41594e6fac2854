// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/WindowFigures.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace bench {

namespace {

double Milliseconds(clockid_t Clock) {
    timespec Time{};
    clock_gettime(Clock, &Time);
    return static_cast<double>(Time.tv_sec) * 1e3 + static_cast<double>(Time.tv_nsec) / 1e6;
}

double Median(std::vector<double> Values) {
    const auto Middle = Values.begin() + static_cast<std::ptrdiff_t>(Values.size() / 2);
    std::nth_element(Values.begin(), Middle, Values.end());
    return *Middle;
}

std::vector<double> Each(const std::vector<TMoment>& Times, double TMoment::*Field) {
    std::vector<double> Values;
    for (const TMoment& Time : Times) Values.push_back(Time.*Field);
    return Values;
}

}  // namespace

TMoment TMoment::Now() { return {Milliseconds(CLOCK_MONOTONIC), Milliseconds(CLOCK_THREAD_CPUTIME_ID)}; }

TMoment operator-(const TMoment& To, const TMoment& From) {
    return {To.Wall - From.Wall, To.Processor - From.Processor};
}

void TFigure::Take(const std::function<void()>& Body) {
    const TMoment Begin = TMoment::Now();
    Body();
    Times.push_back(TMoment::Now() - Begin);
}

void TFigure::Print() const {
    std::printf(R"({"measure": "%s", "case": "%s")", Measure.c_str(), Case.c_str());
    if (!Times.empty()) {
        const auto Wall = Each(Times, &TMoment::Wall), Processor = Each(Times, &TMoment::Processor);
        std::printf(R"(, "median_ms": %.3f, "worst_ms": %.3f, "median_cpu_ms": %.3f, "worst_cpu_ms": %.3f)",
                    Median(Wall), *std::max_element(Wall.begin(), Wall.end()), Median(Processor),
                    *std::max_element(Processor.begin(), Processor.end()));
    }
    if (Resident) std::printf(R"(, "resident_mb": %.1f)", *Resident);
    if (Updates) std::printf(R"(, "updates": %zu)", *Updates);
    std::printf(R"(, "reps": %zu)", std::max<size_t>(Times.size(), 1));
    if (Limit)
        std::printf(R"(, "limit": %g, "limit_of": "%s")", *Limit,
                    Resident  ? "resident_mb"
                    : IsWorst ? "worst_ms"
                              : "median_ms");
    std::printf("}\n");
    std::fflush(stdout);
}

}  // namespace bench
