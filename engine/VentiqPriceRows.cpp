// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqPriceRows.h"

#include <algorithm>
#include <cmath>

#include "framework/base/Errors.h"
#include "framework/base/Numbers.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

// A price text covers 1e-8; prices farther apart than this cannot share one.
constexpr double kSharedTextSpan = 2e-8;

bool ShareText(double A, double B) {
    if (A == B) return true;
    if (std::abs(A - B) > kSharedTextSpan) return false;
    return PriceKey(A) == PriceKey(B);
}

}  // namespace

TPriceRows::TPriceRows(double Down, double Up, double Interval, int32_t Count,
                       std::shared_ptr<const TLegTermsList> Terms)
    : FDown(Down), FUp(Up), FInterval(Interval), FCount(Count), FEnd(Count), FTerms(std::move(Terms)) {
    // The clamped rows stand at the end of an ascending range and at the beginning of a descending one.
    const bool Ascending = FInterval >= 0.0;
    int64_t Low = 0, High = FCount;
    while (Low < High) {
        const int64_t Middle = (Low + High) / 2;
        if (IsClamped(Middle) == Ascending)
            High = Middle;
        else
            Low = Middle + 1;
    }
    (Ascending ? FEnd : FBegin) = static_cast<int32_t>(Low);
}

double TPriceRows::CountOf(double Down, double Up, double Interval) {
    const double Quotient = (Up - Down) / Interval;
    const double Whole = std::trunc(Quotient);
    return Quotient - Whole > kPayOffTolerance ? Whole + 2.0 : Whole + 1.0;
}

bool TPriceRows::IsClamped(int64_t Row) const { return RawPrice(Row) - FUp > kPayOffTolerance; }

double TPriceRows::PriceAt(int32_t Row) const { return IsClamped(Row) ? FUp : RawPrice(Row); }

double TPriceRows::SumAt(int32_t Row) const { return SumPL(*FTerms, PriceAt(LastRowLike(Row))); }

int32_t TPriceRows::LastRowLike(int32_t Row) const {
    const double Price = PriceAt(Row);
    if (FEnd < FCount) return ShareText(Price, FUp) ? FCount - 1 : LastInRun(Row, FEnd);
    if (Row >= FBegin) return LastInRun(Row, FEnd);
    const auto InMonotonePart = FindMonotone(PriceKey(Price), TextToFloatDef(PriceKey(Price), 0.0));
    return InMonotonePart ? LastInRun(*InMonotonePart, FEnd) : FBegin - 1;
}

int32_t TPriceRows::LastInRun(int32_t Row, int32_t End) const {
    const double Price = PriceAt(Row);
    int64_t Low = Row, Step = 1;  // Low shares the text
    while (Low + Step < End && ShareText(Price, PriceAt(static_cast<int32_t>(Low + Step)))) {
        Low += Step;
        Step *= 2;
    }
    for (; Step > 0; Step /= 2)
        if (Low + Step < End && ShareText(Price, PriceAt(static_cast<int32_t>(Low + Step)))) Low += Step;
    return static_cast<int32_t>(Low);
}

std::optional<int32_t> TPriceRows::FindMonotone(const Text& PriceText, double Value) const {
    int64_t Low = FBegin, High = FEnd;
    while (Low < High) {
        const int64_t Middle = (Low + High) / 2;
        const double Here = TextToFloatDef(PriceKey(PriceAt(static_cast<int32_t>(Middle))), 0.0);
        if (FInterval >= 0.0 ? Here >= Value : Here <= Value)
            High = Middle;
        else
            Low = Middle + 1;
    }
    if (Low < FEnd && PriceKey(PriceAt(static_cast<int32_t>(Low))) == PriceText) return static_cast<int32_t>(Low);
    return std::nullopt;
}

std::optional<int32_t> TPriceRows::Find(const Text& PriceText) const {
    const auto Value = TextToFloat(PriceText);
    if (!Value || FCount == 0) return std::nullopt;
    if (const auto Row = FindMonotone(PriceText, *Value)) return LastRowLike(*Row);
    const bool HasClamped = FEnd - FBegin < FCount;
    if (HasClamped && PriceKey(FUp) == PriceText) return LastRowLike(FBegin > 0 ? 0 : FCount - 1);
    return std::nullopt;
}

Text TPriceTextList::At(int32_t Index) const {
    if (Index < 0 || Index >= GetCount()) throw EListError("row index out of range");
    return PriceKey(FRows.PriceAt(Index));
}

bool TPriceSumDictionary::TryGetValue(const Text& PriceText, double& Sum) const {
    const auto Row = FRows.Find(PriceText);
    if (Row) Sum = FRows.SumAt(*Row);
    return Row.has_value();
}

}  // namespace ventiq
