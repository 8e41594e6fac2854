// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/views/PositionsFrame.h"

#include "framework/services/ConfigManager.h"
#include "workstation/preferences/PreferenceTable.h"
#include "workstation/views/OrdersData.h"

namespace ws {

namespace {

// By mode.
constexpr std::array kAverageCaptions{"Res_PositionAverageCost", "Res_PositionFirstInFirstOut",
                                      "Res_PositionOvernight"};

int ModeOfUser() {
    auto& Config = fw::TCustomConfigManager::GetInstance();
    return Config.ReadInteger(Config.GetUserSection(), kPreferenceAveragePrice);
}

}  // namespace

TPositionsFrame::TPositionsFrame(TTradingDesk& Desk) : TTradingFrame(Desk, "PositionsGridView", "Res_PositionsNone") {
    auto Made = std::make_unique<TPositionsData>(FDesk);
    FData = Made.get();
    FData->SetMode(ModeOfUser());
    FData->OnQuote = [this] { Changed(); };
    FData->Update();
    Show([&Made] { return std::move(Made); }, Columns());
    FLinks += FDesk.Orders.OnHoldingsChanged.Connect([this] {
        FHoldingsChanged = true;
        Changed();
    });
    fw::TCustomConfigManager::GetInstance().AddConfigUpdateEvent([this](fw::TObject*, fw::TObject*) { TakeMode(); },
                                                                 this);
}

TPositionsFrame::~TPositionsFrame() { fw::TCustomConfigManager::GetInstance().RemoveConfigUpdateEvent(this); }

std::vector<TTradingFrame::TColumn> TPositionsFrame::Columns() const {
    std::vector<TColumn> Result{{kColumnAccount, "Res_Account", 70},
                                {fw::kColumnSymbol, "Res_Symbol", 120},
                                {fw::kColumnQuantity, "Res_OrderQty", 60, true}};
    const auto AddAverage = [&](int Mode) {
        Result.push_back({kColumnAverageOfMode + Mode, kAverageCaptions[static_cast<size_t>(Mode)], 90, true});
    };
    AddAverage(FData->GetMode());
    for (int Mode = 0; Mode < kAverageModes; ++Mode)
        if (Mode != FData->GetMode()) AddAverage(Mode);
    Result.push_back({kColumnLast, "Res_PositionLast", 80, true});
    Result.push_back({fw::kColumnProfitLoss, "Res_PL", 100, true});
    Result.push_back({kColumnCurrency, "Res_PositionCurrency", 60});
    return Result;
}

void TPositionsFrame::TakeMode() {
    const int Before = FData->GetMode();
    FData->SetMode(ModeOfUser());
    if (FData->GetMode() == Before) return;
    ShowColumns(Columns());
    FData->NotifyDataChanged();
}

void TPositionsFrame::Refresh() {
    if (std::exchange(FHoldingsChanged, false))
        FData->Update();
    else
        FData->NotifyDataChanged();
}

TTradingFrame::EInk TPositionsFrame::InkOf(int, int Column) {
    return Column == kColumnAverageOfMode + FData->GetMode() ? EInk::Used : EInk::Plain;
}

fw::Text TPositionsFrame::HintOf(int, int, const fw::Text& Shown) { return Shown; }

}  // namespace ws
