// SPDX-License-Identifier: Apache-2.0
#include "bench/LiteralPayoff.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "engine/VentiqMarketData.h"
#include "framework/base/Numbers.h"

namespace bench {

using namespace ventiq;

double TLiteralPayoff::Sum(double Price) const {
    double Result = 0.0;
    for (const auto& Leg : FControl.GetPayOffData()) Result += Leg->CalculatePL(Price);
    return Result;
}

void TLiteralPayoff::Calculate() {
    FList.clear();
    FDictionary.clear();
    if (FHasTable)
        CalculateTable();
    else
        CalculateKeyPrices();
}

void TLiteralPayoff::CalculateTable() {
    const double Down = FControl.GetDownLimit(), Up = FControl.GetUpLimit(), Interval = FControl.GetInterval();
    double Whole = 0.0;
    const double Fraction = std::modf((Up - Down) / Interval, &Whole);
    const auto Count = static_cast<int64_t>(Whole) + (Fraction > kPayOffTolerance ? 2 : 1);
    for (int64_t I = 0; I < Count; ++I) {
        double Price = Down + Interval * static_cast<double>(I);
        if (Price - Up > kPayOffTolerance) Price = Up;
        FList.push_back(PriceKey(Price));
        FDictionary[FList.back()] = Sum(Price);
    }
}

void TLiteralPayoff::Add(double Price) {
    fw::Text Key = PriceKey(Price);
    if (FDictionary.try_emplace(Key, 0.0).second) FList.push_back(std::move(Key));
}

void TLiteralPayoff::CalculateKeyPrices() {
    Add(FControl.GetDownLimit());
    Add(FControl.GetUpLimit());
    for (const auto& Leg : FControl.GetPayOffData()) {
        const auto* Item = PriceDataItem(Leg->FSymbol);
        if (fw::TextToIntDef(Item->GetFieldText(kFieldProductType), 0) != kProductOption) continue;
        if (const auto Strike = fw::TextToFloat(Item->GetFieldText(kFieldStrike))) Add(*Strike);
    }
    std::stable_sort(FList.begin(), FList.end(),
                     [&](const fw::Text& A, const fw::Text& B) { return FControl.ComparePrice(A, B) < 0; });
    for (const auto& Key : FList) FDictionary[Key] = Sum(fw::TextToFloatDef(Key, 0.0));
}

namespace {

double Read(const TLiteralPayoff& Literal, size_t First, size_t Count) {
    double Sum = 0.0;
    for (size_t Row = First; Row < First + Count; ++Row) Sum += Literal.SumAt(Row);
    return Sum;
}

void Calculate(TPayoff& Payoff, TLiteralPayoff& Literal) {
    Payoff.Edit();
    Literal.Calculate();
}

}  // namespace

double CalculateAndReadPage(TPayoff& Payoff, TLiteralPayoff& Literal) {
    Calculate(Payoff, Literal);
    if (!Payoff.Workload.HasTable) return Read(Literal, 0, Literal.GetCount());
    return Read(Literal, static_cast<size_t>(PageBegin(static_cast<int64_t>(Literal.GetCount()))),
                static_cast<size_t>(kPageRows));
}

double CalculateAndReadTexts(TPayoff& Payoff, TLiteralPayoff& Literal) {
    Calculate(Payoff, Literal);
    return Read(Literal, 0, Literal.GetCount());
}

namespace {

bool Differ(double A, double B) { return std::bit_cast<uint64_t>(A) != std::bit_cast<uint64_t>(B); }

// Of a table that is too long to be written down: rows all over it.
int64_t CountDifferencesInSample(TPayoff& Payoff, const TLiteralPayoff& Literal) {
    int64_t Differences = 0;
    for (int64_t I = 0; I < kSampleRows; ++I) {
        const auto Row = static_cast<int32_t>((Payoff.GetRowCount() - 1) * I / (kSampleRows - 1));
        const double Price = kDown + Payoff.Workload.Interval * Row;
        if (Payoff.Detail.GetDataList().At(Row) != PriceKey(Price) ||
            Differ(Payoff.Detail.GetRows().SumAt(Row), Literal.Sum(Price)))
            ++Differences;
    }
    return Differences;
}

}  // namespace

int64_t CountDifferences(TPayoff& Payoff) {
    TLiteralPayoff Literal(Payoff);
    Payoff.Control.Calculate();
    Payoff.Edit();
    Payoff.Control.Calculate();
    if (!Payoff.Workload.FitsInMemory) return CountDifferencesInSample(Payoff, Literal);
    Literal.Calculate();
    const int64_t Count = Payoff.GetRowCount();
    if (Count != static_cast<int64_t>(Literal.GetCount())) return std::max<int64_t>(Count, 1);
    int64_t Differences = 0;
    for (int32_t Row = 0; Row < Count; ++Row) {
        fw::Text Key;
        double Price = 0.0, Sum = 0.0;
        if (Payoff.Workload.HasTable) {
            Key = Payoff.Detail.GetDataList().At(Row);
            Sum = Payoff.Detail.GetRows().SumAt(Row);
        } else if (Payoff.Control.GetPrice(Row, Price) && Payoff.Control.GetPL(Row, Sum)) {
            Key = PriceKey(Price);
        }
        const auto Same = static_cast<size_t>(Row);
        if (Key != Literal.PriceText(Same) || Differ(Sum, Literal.SumAt(Same))) ++Differences;
    }
    return Differences;
}

}  // namespace bench
