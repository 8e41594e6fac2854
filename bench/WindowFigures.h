// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bench {

inline constexpr int kRepetitions = 21;

// Moment and processor time of this thread, milliseconds. What another program takes from a busy machine stands in the
// first and not in the second.
struct TMoment {
    double Wall = 0.0, Processor = 0.0;
    static TMoment Now();
};
TMoment operator-(const TMoment& To, const TMoment& From);

// Times of one thing done again and again, printed as one JSON line.
struct TFigure {
    std::string Measure, Case;
    std::optional<double> Limit{};  // of the median; milliseconds, megabytes where Resident is set; none: only told
    std::vector<TMoment> Times{};
    std::optional<double> Resident{};  // megabytes
    bool IsWorst = false;              // the limit is of the worst
    std::optional<size_t> Updates{};   // that subscribers were told of meanwhile

    void Take(const std::function<void()>& Body);
    void Print() const;
};

}  // namespace bench
