// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>

#include "engine/VentiqLegSums.h"

namespace ventiq {

// The rows of one calculation: legs, range and row count. A row is computed when somebody looks at it, and its
// neighbours with it, so a range may have two thousand million of them. Rows are prices at Down + Interval * index,
// those beyond Up by more than 1e-6 are Up itself; so one part of the rows is monotone and the other, clamped part
// stands at one price.
class TPriceRows {
public:
    TPriceRows() = default;
    TPriceRows(double Down, double Up, double Interval, int32_t Count, std::shared_ptr<const TLegSums> Legs);

    // How many rows the range asks for, as a whole number of any size; not finite where the range has no count.
    static double CountOf(double Down, double Up, double Interval);

    int32_t GetCount() const { return FCount; }
    double PriceAt(int32_t Row) const;  // row in range
    // The P/L under the row's price text: of all rows with that text the last one's, computed from its unrounded price.
    double SumAt(int32_t Row) const;
    // The same for as many rows as Sums holds, from First on; all in range.
    void SumsFrom(int32_t First, std::span<double> Sums) const;
    // The last row with this price text.
    std::optional<int32_t> Find(const Text& PriceText) const;

private:
    // Rows that somebody is likely to look at together. A page of a grid spans two of them, three on a large screen.
    struct TBlock {
        static constexpr int32_t kRows = 64;
        int32_t First = -1;  // none
        std::array<double, kRows> Sums{};
    };

    double RawPrice(int32_t Row) const { return FDown + FInterval * static_cast<double>(Row); }
    bool IsClamped(int32_t Row) const;
    void FindLoneRows();
    void LoneSumsFrom(int32_t First, std::span<double> Sums) const;
    int32_t LastRowLike(int32_t Row) const;
    int32_t LastInRun(int32_t Row, int32_t End) const;
    std::optional<int32_t> FindMonotone(const Text& PriceText, double Value) const;

    double FDown = 0.0, FUp = 0.0, FInterval = 0.0;
    int32_t FCount = 0;
    int32_t FBegin = 0, FEnd = 0;          // the monotone part; the rest is clamped
    int32_t FLoneBegin = 0, FLoneEnd = 0;  // in it: rows whose sum is that of their own price
    std::shared_ptr<const TLegSums> FLegs;
    mutable TBlock FBlock;  // the one that was looked at last
};

// Price texts in row order.
class TPriceTextList {
public:
    explicit TPriceTextList(const TPriceRows& Rows) : FRows(Rows) {}
    int32_t GetCount() const { return FRows.GetCount(); }
    Text At(int32_t Index) const;  // raises EListError out of range

private:
    const TPriceRows& FRows;  // of the same control
};

// Price text to summed P/L; rows that share a text share its one entry.
class TPriceSumDictionary {
public:
    explicit TPriceSumDictionary(const TPriceRows& Rows) : FRows(Rows) {}
    // False leaves Sum alone.
    bool TryGetValue(const Text& PriceText, double& Sum) const;
    bool Contains(const Text& PriceText) const { return FRows.Find(PriceText).has_value(); }

private:
    const TPriceRows& FRows;  // of the same control
};

}  // namespace ventiq
