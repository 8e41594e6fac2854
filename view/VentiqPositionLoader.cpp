// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqPositionLoader.h"

#include <cmath>

#include "engine/VentiqMarketData.h"
#include "engine/VentiqPayOffMath.h"
#include "framework/base/Numbers.h"
#include "framework/services/MessageBoxCtrl.h"
#include "framework/services/PositionAdapter.h"

namespace ventiq {

namespace {

constexpr double kFlat = 1e-7;  // a smaller quantity is no position

Variant SideCell(const TCustomPositionData& Position) {
    switch (Position.GetSideKind()) {
        case kPositionBySign: return GetResourceHeader(Position.GetQty() > kFlat ? "Res_Side_Buy" : "Res_Side_Sell");
        case kPositionLong: return GetResourceHeader("Res_Side_Buy");
        case kPositionShort: return GetResourceHeader("Res_Side_Sell");
        default: return {};
    }
}

Variant StrikeCell(const TCustomSubItem& Item) {
    const bool Option = TextToIntDef(Item.GetFieldText(kFieldProductType), 0) == kProductOption;
    return Option ? Variant(Item.GetFieldValue(kFieldStrike)) : Variant();
}

}  // namespace

void TVentiqPositionLoader::btnLoadClick(TObject*) {
    const auto* Control = FContext.FMyDataControl.get();
    if (!Control) return;
    if (Control->GetExchange().empty() || Control->GetSeries().empty() || Control->GetMonth().empty() ||
        Control->GetAccount().empty()) {
        TCustomMessageBoxCtrl::GetInstance().ShowMessageText(
            nullptr, GetResourceHeader("Res_LoadPayOffPositionFailed"), 0, 0, 0);
        return;
    }
    FGrid.btnClearClick(nullptr);
    const auto Positions = PositionsOfMarket();
    const int Count = static_cast<int>(Positions.size());
    const TViewUpdate Update(FForm.PositionGridView);
    FGrid.SetRecordCount(Count + 1);
    FGrid.FirstInputRow = Count;
    for (int Row = 0; Row < Count; ++Row) FillRow(Row, *Positions[static_cast<size_t>(Row)]);
}

std::vector<const TCustomPositionData*> TVentiqPositionLoader::PositionsOfMarket() {
    TPositionDictionary Held;
    TCustomPositionAdapter::GetInstance().GetPositionList(FContext.FMyDataControl->GetAccount(), Held);
    std::vector<const TCustomPositionData*> Result;
    for (const auto& [Symbol, Position] : Held) {
        if (!(std::fabs(Position->GetQty()) > kFlat)) continue;
        if (Position->GetSubItem()->GetState() == kItemUnknown) FSubscriptions.CheckSymbolState(Symbol);
        if (FCheck.IsValidSymbol(Symbol)) Result.push_back(Position);
    }
    return Result;
}

void TVentiqPositionLoader::FillRow(int Row, const TCustomPositionData& Position) {
    const auto& View = FForm.PositionGridView;
    for (int Index = 0; Index < View.GetColumnCount(); ++Index) {
        const int Id = View.GetColumn(Index)->Tag;
        FGrid.SetCell(Row, Id, CellOf(Id, Position));
    }
}

Variant TVentiqPositionLoader::CellOf(int ColumnId, const TCustomPositionData& Position) const {
    const auto& Item = *Position.GetSubItem();
    switch (ColumnId) {
        case kColSymbol: return Position.GetSymbol();
        case kColQty: return std::fabs(Position.GetQty());
        case kColSide: return SideCell(Position);
        case kColStrike: return StrikeCell(Item);
        case kColCallPut: {
            const int CallPut = GetCallPut(Item);
            return CallPut == kCall ? FTexts.FCallRes : CallPut == kPut ? FTexts.FPutRes : Text();
        }
        case kColExpiry: return Item.GetFieldText(kFieldExpiry);
        case kColPremium: return GetDisplayPriceValue(AveragePrice(Position), Position.GetSymbol());
        default: return {};
    }
}

double TVentiqPositionLoader::AveragePrice(const TCustomPositionData& Position) const {
    switch (FConfig.FAvgPriceMode) {
        case 1: return Position.GetAvgPriceMode1();
        case 2: return Position.GetAvgPriceMode2();
        default: return Position.GetAvgPrice();
    }
}

}  // namespace ventiq
