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

// The first row from Begin on for which Holds, which holds for all behind it; End where there is none.
template <class THolds>
int32_t FirstRow(int32_t Begin, int32_t End, THolds Holds) {
    while (Begin < End) {
        const int32_t Middle = Begin + (End - Begin) / 2;
        if (Holds(Middle))
            End = Middle;
        else
            Begin = Middle + 1;
    }
    return Begin;
}

}  // namespace

TPriceRows::TPriceRows(double Down, double Up, double Interval, int32_t Count, std::shared_ptr<const TLegSums> Legs)
    : FDown(Down), FUp(Up), FInterval(Interval), FCount(Count), FEnd(Count), FLegs(std::move(Legs)) {
    // The clamped rows stand at the end of an ascending range and at the beginning of a descending one.
    const bool Ascending = FInterval >= 0.0;
    const int32_t Edge = FirstRow(0, FCount, [&](int32_t Row) { return IsClamped(Row) == Ascending; });
    (Ascending ? FEnd : FBegin) = Edge;
    FindLoneRows();
}

// Rows that are farther apart than one text reaches and, before clamped rows, not close to their price. Where prices
// are so large that rounding brings neighbours together, it makes them equal, and then their sums are equal, too.
void TPriceRows::FindLoneRows() {
    if (std::abs(FInterval) <= kSharedTextSpan) return;
    FLoneBegin = FBegin;
    FLoneEnd = FEnd < FCount
                   ? FirstRow(FBegin, FEnd, [&](int32_t Row) { return !(RawPrice(Row) < FUp - 2.0 * kSharedTextSpan); })
                   : FEnd;
}

double TPriceRows::CountOf(double Down, double Up, double Interval) {
    const double Quotient = (Up - Down) / Interval;
    const double Whole = std::trunc(Quotient);
    return Quotient - Whole > kPayOffTolerance ? Whole + 2.0 : Whole + 1.0;
}

bool TPriceRows::IsClamped(int32_t Row) const { return RawPrice(Row) - FUp > kPayOffTolerance; }

double TPriceRows::PriceAt(int32_t Row) const { return IsClamped(Row) ? FUp : RawPrice(Row); }

double TPriceRows::SumAt(int32_t Row) const {
    const int32_t First = Row - Row % TBlock::kRows;
    if (FBlock.First != First) {
        const auto Count = static_cast<size_t>(std::min(TBlock::kRows, FCount - First));
        SumsFrom(First, std::span(FBlock.Sums).first(Count));
        FBlock.First = First;
    }
    return FBlock.Sums[static_cast<size_t>(Row - First)];
}

void TPriceRows::SumsFrom(int32_t First, std::span<double> Sums) const {
    while (!Sums.empty()) {
        size_t Done = 0;
        if (First >= FLoneBegin && First < FLoneEnd) {
            Done = std::min(Sums.size(), static_cast<size_t>(FLoneEnd - First));
            LoneSumsFrom(First, Sums.first(Done));
        } else {
            const double Price = PriceAt(First), Sum = FLegs->At(PriceAt(LastRowLike(First)));
            do Sums[Done++] = Sum;
            while (Done < Sums.size() && ShareText(Price, PriceAt(First + static_cast<int32_t>(Done))));
        }
        First += static_cast<int32_t>(Done);
        Sums = Sums.subspan(Done);
    }
}

// In pieces that stay in the processor's nearest cache between the two steps.
void TPriceRows::LoneSumsFrom(int32_t First, std::span<double> Sums) const {
    constexpr size_t kPiece = 512;
    while (!Sums.empty()) {
        const auto Piece = Sums.first(std::min(kPiece, Sums.size()));
        for (size_t I = 0; I < Piece.size(); ++I) Piece[I] = RawPrice(First + static_cast<int32_t>(I));
        FLegs->At(Piece, Piece);
        First += static_cast<int32_t>(Piece.size());
        Sums = Sums.subspan(Piece.size());
    }
}

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
    const int32_t Row = FirstRow(FBegin, FEnd, [&](int32_t Each) {
        const double Here = TextToFloatDef(PriceKey(PriceAt(Each)), 0.0);
        return FInterval >= 0.0 ? Here >= Value : Here <= Value;
    });
    if (Row < FEnd && PriceKey(PriceAt(Row)) == PriceText) return Row;
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
