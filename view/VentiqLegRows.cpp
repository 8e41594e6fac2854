// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqLegRows.h"

#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

int SideOf(const Text& Shown, const std::vector<Text>& Items) {
    for (const int Side : {kSideBuy, kSideSell})
        if (static_cast<size_t>(Side) < Items.size() && Shown == Items[static_cast<size_t>(Side)]) return Side;
    return kSideUnknown;
}

TLegRow ReadRow(const TVentiqForm& Form, int Record) {
    TLegRow Row;
    Row.Side = kSideUnknown;
    const auto& View = Form.PositionGridView;
    for (int Index = 0; Index < View.GetColumnCount(); ++Index) {
        const Variant Cell = View.GetDataController().GetValue(Record, Index);
        switch (View.GetColumn(Index)->Tag) {
            case kColSymbol: Row.Symbol = Trim(Cell.AsText()); break;
            case kColSide: Row.Side = SideOf(Cell.AsText(), Form.epiSide.Items); break;
            case kColPremium: Row.Premium = Cell.AsFloat(0.0); break;
            case kColQty: Row.Quantity = Cell.AsFloat(0.0); break;
            case kColOpenClose: Row.OpenClose = Cell.AsText(); break;
            case kColPrincipal: Row.Principal = Cell.AsText(); break;
            default: break;  // the rest of a leg comes from market data
        }
    }
    return Row;
}

}  // namespace

std::vector<TLegRow> ReadLegRows(const TVentiqForm& Form) {
    std::vector<TLegRow> Result;
    for (int Record = 0; Record < Form.PositionGridView.GetDataController().GetRecordCount(); ++Record) {
        TLegRow Row = ReadRow(Form, Record);
        if (!Row.Symbol.empty() && Row.Side >= 0) Result.push_back(std::move(Row));
    }
    return Result;
}

}  // namespace ventiq
