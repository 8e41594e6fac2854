// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <span>

#include "framework/controls/GridTableView.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

using namespace fw;

// What edits a column's cells. Plain: text, right-aligned where the column holds numbers.
enum class EColumnEditor { Plain, SymbolPopup, PerRow, Premium, Quantity, OpenClose, Principal };

struct TColumnSpec {
    int Id;
    const char* Caption;  // resource key
    int Width;            // pixels at scale 100
    bool Numeric = false;
    EColumnEditor Editor = EColumnEditor::Plain;
    bool Editable = false;
};

inline constexpr std::array kPositionColumns{
    TColumnSpec{.Id = kColSymbol,
                .Caption = "Res_Symbol",
                .Width = 100,
                .Editor = EColumnEditor::SymbolPopup,
                .Editable = true},
    TColumnSpec{.Id = kColSide, .Caption = "Res_Side", .Width = 60, .Editor = EColumnEditor::PerRow, .Editable = true},
    TColumnSpec{.Id = kColCallPut, .Caption = "Res_CallPut", .Width = 60},
    TColumnSpec{.Id = kColExpiry, .Caption = "Res_ExpiryDate", .Width = 70},
    TColumnSpec{.Id = kColStrike, .Caption = "Res_StrikePrice", .Width = 100, .Numeric = true},
    TColumnSpec{.Id = kColPremium,
                .Caption = "Res_PayOffPremium",
                .Width = 100,
                .Numeric = true,
                .Editor = EColumnEditor::Premium,
                .Editable = true},
    TColumnSpec{.Id = kColQty,
                .Caption = "Res_OrderQty",
                .Width = 100,
                .Numeric = true,
                .Editor = EColumnEditor::Quantity,
                .Editable = true},
    TColumnSpec{.Id = kColOpenClose,
                .Caption = "Res_OpenClose",
                .Width = 100,
                .Editor = EColumnEditor::OpenClose,
                .Editable = true},
    TColumnSpec{.Id = kColPrincipal,
                .Caption = "Res_Principal",
                .Width = 100,
                .Editor = EColumnEditor::Principal,
                .Editable = true},
};

inline constexpr std::array kDetailColumns{
    TColumnSpec{.Id = kColPrice, .Caption = "Res_OrderPrice", .Width = 50, .Numeric = true},
    TColumnSpec{.Id = kColPL, .Caption = "Res_PL", .Width = 50, .Numeric = true},
};

// One update of a view for a scope; ends on errors too, so that the view never stays silent.
class TViewUpdate {
public:
    explicit TViewUpdate(TGridTableView& View) : FView(View) { FView.BeginUpdate(); }
    ~TViewUpdate() { FView.EndUpdate(); }
    TViewUpdate(const TViewUpdate&) = delete;
    TViewUpdate& operator=(const TViewUpdate&) = delete;

private:
    TGridTableView& FView;
};

// Appends one description a column.
void FillColumnInfos(TColumnInfoList& Infos, std::span<const TColumnSpec> Specs);

// A new column of the view as its description says, without sorting and filtering; Caption is the translated text.
TGridColumn& CreateColumn(TGridTableView& View, const TColumnInfo& Info, const Text& Caption);

// Captions anew within one update of the view; CaptionOf translates a resource key. Of several descriptions with a
// column's tag the first counts; a column without description keeps its caption.
void RetitleColumns(TGridTableView& View, const TColumnInfoList& Infos, Text (*CaptionOf)(const Text& Key));

}  // namespace ventiq
