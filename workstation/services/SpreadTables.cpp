// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/SpreadTables.h"

#include "workstation/market/SpreadTable.h"

namespace ws {

namespace {

class TListedSpreadTable : public fw::TCustomSpreadTable {
public:
    explicit TListedSpreadTable(const std::vector<TSpreadBandRow>& Bands) : FTable(Bands) {}
    int GetKind() const override { return FTable.Kind(); }
    double SnapPrice(double Price, int Direction) const override { return FTable.SnapPrice(Price, Direction); }
    double StepUp(double Price, double& Upper, double& Lower) const override {
        return FTable.StepUp(Price, Upper, Lower);
    }
    double StepDown(double Price, double& Upper, double& Lower) const override {
        return FTable.StepDown(Price, Upper, Lower);
    }

private:
    TSpreadTable FTable;
};

}  // namespace

std::map<std::string, std::unique_ptr<fw::TCustomSpreadTable>> MakeSpreadTables(
    const std::vector<TSpreadBandRow>& Bands) {
    std::map<std::string, std::vector<TSpreadBandRow>> ByCode;
    for (const auto& Band : Bands) ByCode[Band.Code].push_back(Band);
    std::map<std::string, std::unique_ptr<fw::TCustomSpreadTable>> Result;
    for (const auto& [Code, Rows] : ByCode) Result[Code] = std::make_unique<TListedSpreadTable>(Rows);
    return Result;
}

}  // namespace ws
