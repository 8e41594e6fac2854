// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace ws {

// The keys that a payoff view may ask for, those of submitting included. tools/check-texts counts them as used.
inline constexpr const char* kPayoffViewKeys[] = {
    "Res_Account",
    "Res_Calculate",
    "Res_CalculateInputInvalid",
    "Res_Call",
    "Res_CallPut",
    "Res_Clear",
    "Res_DownPrice",
    "Res_Exchange",
    "Res_ExpiryDate",
    "Res_HideHint",
    "Res_Interval",
    "Res_Less",
    "Res_Load",
    "Res_LoadPayOffPositionFailed",
    "Res_Month",
    "Res_More",
    "Res_NoOrderAdd",
    "Res_OpenClose",
    "Res_OpenClose_N",
    "Res_OrderClose",
    "Res_OrderOpen",
    "Res_OrderPrice",
    "Res_OrderQty",
    "Res_PL",
    "Res_PayOffPremium",
    "Res_Principal",
    "Res_Principal_C",
    "Res_Principal_H",
    "Res_Principal_N",
    "Res_Principal_RT",
    "Res_Put",
    "Res_Remark",
    "Res_Series",
    "Res_ShowHint",
    "Res_Side",
    "Res_Side_Buy",
    "Res_Side_Sell",
    "Res_StrikePrice",
    "Res_Submit",
    "Res_Symbol",
    "Res_UpPrice",
    "Res_Ventiq",
};

}  // namespace ws
