// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/SpreadTable.h"

#include <algorithm>
#include <cmath>

#include "framework/base/Numbers.h"

namespace ws {

namespace {

constexpr double kSamePrice = 1e-7;
constexpr double kSmallestStep = 1e-6;
constexpr int kMendings =
    3;  // whole steps by which a rounded quotient may be off; more means that a double has no room
constexpr double kCleanUpTo = 4e6;  // above, a double has no room for nine decimals

// 3 * 0.1 is not 0.3: takes the noise of the multiplication off, so that equal prices have equal bits.
double Clean(double Price) { return std::abs(Price) < kCleanUpTo ? std::round(Price * 1e9) / 1e9 : Price; }

[[noreturn]] void Refuse(const char* Key, const TSpreadBandRow& Band) {
    throw EMarketRefusal({Key, {Band.Code, fw::FloatToShortestText(Band.Lower), fw::FloatToShortestText(Band.Step)}});
}

}  // namespace

TSpreadTable::TSpreadTable(const std::vector<TSpreadBandRow>& Bands) {
    if (Bands.empty()) throw EMarketRefusal({"Res_SpreadTableEmpty", {}});
    FKind = Bands.front().Kind;
    for (std::size_t I = 0; I < Bands.size(); ++I) {
        const TSpreadBandRow& Band = Bands[I];
        const bool Last = I + 1 == Bands.size();
        if (Band.Kind != FKind) Refuse("Res_SpreadTableKinds", Band);
        if (FKind != kSpreadBands) continue;
        if (!std::isfinite(Band.Lower) || std::abs(Band.Lower) >= kLastBandUpper) Refuse("Res_SpreadTableEdge", Band);
        if (!std::isfinite(Band.Step) || !(Band.Step >= kSmallestStep)) Refuse("Res_SpreadTableStep", Band);
        if (!Last && !(Bands[I + 1].Lower - Band.Lower > kSamePrice)) Refuse("Res_SpreadTableOrder", Bands[I + 1]);
        Add(Band.Lower, Last ? kLastBandUpper : Bands[I + 1].Lower, Band.Step);
    }
}

TSpreadTable TSpreadTable::OfDecimals(int Decimals) {
    TSpreadTable Table;
    Table.Add(0.0, kLastBandUpper, std::pow(10.0, -std::clamp(Decimals, 0, 6)));
    return Table;
}

void TSpreadTable::Add(double Lower, double Upper, double Step) {
    double Count = std::floor((Upper - Lower) / Step);
    for (int I = 0; I < kMendings && Count > 0 && Lower + Count * Step > Upper - kSamePrice; ++I)
        --Count;  // the upper edge belongs to the next band
    FBands.push_back({Lower, Upper, Step, Clean(Lower + Count * Step)});
}

const TSpreadTable::TBand& TSpreadTable::BandUp(double Price) const {
    auto Next = std::upper_bound(FBands.begin(), FBands.end(), Price + kSamePrice,
                                 [](double P, const TBand& Band) { return P < Band.Lower; });
    return Next == FBands.begin() ? FBands.front() : *std::prev(Next);
}

const TSpreadTable::TBand& TSpreadTable::BandDown(double Price) const {
    auto Next = std::lower_bound(FBands.begin(), FBands.end(), Price - kSamePrice,
                                 [](const TBand& Band, double P) { return Band.Lower < P; });
    return Next == FBands.begin() ? FBands.front() : *std::prev(Next);
}

double TSpreadTable::StepUp(double Price, double& Upper, double& Lower) const {
    if (FKind != kSpreadBands) return Upper = Lower = Price, 1.0;
    const TBand& Band = BandUp(Price);
    Upper = Band.Upper;
    Lower = Band.Lower;
    return Band.Step;
}

double TSpreadTable::StepDown(double Price, double& Upper, double& Lower) const {
    if (FKind != kSpreadBands) return Upper = Lower = Price, 1.0;
    const TBand& Band = BandDown(Price);
    Upper = Band.Upper;
    Lower = Band.Lower;
    return Band.Step;
}

double TSpreadTable::SnapPrice(double Price, int Direction) const {
    if (FKind != kSpreadBands || !std::isfinite(Price)) return Price;
    if (Direction > 0) {
        const double Bound = Price + kSamePrice;
        const TBand& Band = BandUp(Price);
        if (Bound < Band.Lower) return Band.Lower;
        double Count = std::floor((Bound - Band.Lower) / Band.Step);
        double Result = Clean(Band.Lower + Count * Band.Step);
        for (int I = 0; I < kMendings && !(Result > Bound); ++I) Result = Clean(Band.Lower + ++Count * Band.Step);
        return Result > Band.Last + kSamePrice ? Band.Upper : Result;
    }
    const double Bound = Price - kSamePrice;
    const TBand& Band = BandDown(Price);
    if (!(Band.Lower < Bound)) return FBands.front().Lower;
    double Count = std::ceil((Bound - Band.Lower) / Band.Step);
    double Result = std::min(Clean(Band.Lower + Count * Band.Step), Band.Last);
    for (int I = 0; I < kMendings && !(Result < Bound) && Count > 0; ++I)
        Result = Clean(Band.Lower + --Count * Band.Step);
    return Result;
}

double TSpreadTable::Floor(double Price) const { return SnapPrice(Price + 2 * kSamePrice, -1); }
double TSpreadTable::Ceil(double Price) const { return SnapPrice(Price - 2 * kSamePrice, 1); }

TSpreadTables::TSpreadTables(const std::vector<TSpreadBandRow>& Bands) {
    std::map<std::string, std::vector<TSpreadBandRow>> Rows;
    for (const TSpreadBandRow& Band : Bands) Rows[Band.Code].push_back(Band);
    for (const auto& [Code, Own] : Rows) {
        try {
            ByCode.emplace(Code, TSpreadTable(Own));
        } catch (const EMarketRefusal& Refusal) {
            Refused.push_back(Refusal.Reason());
        }
    }
}

const TSpreadTable* TSpreadTables::Find(const std::string& Code) const {
    const auto Found = ByCode.find(Code);
    return Found == ByCode.end() ? nullptr : &Found->second;
}

}  // namespace ws
