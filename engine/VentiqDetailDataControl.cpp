// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqDetailDataControl.h"

#include <cmath>
#include <limits>

#include "engine/VentiqDataControl.h"
#include "framework/base/Log.h"
#include "framework/base/NumberFormat.h"
#include "framework/base/Numbers.h"
#include "framework/services/Formatter.h"

namespace ventiq {

namespace {

constexpr double kMaxRows = std::numeric_limits<int32_t>::max();

Text RowCountText(double Count) { return std::isfinite(Count) ? FormatNumber(Count, 0, true) : Text("\u221E"); }

}  // namespace

TCustomVentiqDetailDataControl::TCustomVentiqDetailDataControl(TObject* Owner) : TCustomDataControl(Owner) {}

TCustomVentiqDetailDataControl::~TCustomVentiqDetailDataControl() = default;

void TCustomVentiqDetailDataControl::Reset() {}

void TCustomVentiqDetailDataControl::Calculate() {
    FRows = RowsOfRange();
    NotifyDataChanged();
}

TPriceRows TCustomVentiqDetailDataControl::RowsOfRange() const {
    if (!FMasterControl || FMasterControl->GetPayOffData().empty()) return {};
    const double Count = TPriceRows::CountOf(FDownLimit, FUpLimit, FInterval);
    if (!std::isfinite(Count) || Count > kMaxRows) {
        TLog::Warning("Res_LogRowCount", {RowCountText(Count)});
        return {};
    }
    if (Count <= 0.0) return {};
    return {FDownLimit, FUpLimit, FInterval, static_cast<int32_t>(Count), FMasterControl->GetLegSums()};
}

int32_t TCustomVentiqDetailDataControl::GetCount() { return FDataList.GetCount(); }

Variant TCustomVentiqDetailDataControl::GetValue(int32_t RecordIndex, int32_t Attribute) {
    if (IsRow(RecordIndex) && Attribute == kColPrice) return TextToFloatDef(FDataList.At(RecordIndex), 0.0);
    if (IsRow(RecordIndex) && Attribute == kColPL) return FRows.SumAt(RecordIndex);
    return Text();
}

Text TCustomVentiqDetailDataControl::GetDisplayValue(int32_t RecordIndex, int32_t Attribute) {
    if (!IsRow(RecordIndex)) return GetEmptyCellText();
    auto& Formatter = TCustomFormatter::GetInstance();
    if (Attribute == kColPrice)
        return Formatter.FormatValue(TextToFloatDef(FDataList.At(RecordIndex), 0.0), kFormatPrice);
    if (Attribute == kColPL) return Formatter.FormatValue(FRows.SumAt(RecordIndex), kFormatAmount);
    return GetEmptyCellText();
}

bool TCustomVentiqDetailDataControl::GetRowValue(int32_t, void*&) { return false; }

bool TCustomVentiqDetailDataControl::GetColValue(int32_t, void*&) { return false; }

}  // namespace ventiq
