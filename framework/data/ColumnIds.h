// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace fw {

// Host-wide column numbers: tags of grid columns and attributes of data controls. Whoever works with a view from
// outside finds a column by its number.
inline constexpr int kColumnSymbol = 0;
inline constexpr int kColumnPrice = 3;
inline constexpr int kColumnQuantity = 4;
inline constexpr int kColumnSide = 11;
inline constexpr int kColumnOpenClose = 12;
inline constexpr int kColumnPrincipal = 46;
inline constexpr int kColumnPremium = 103;
inline constexpr int kColumnProfitLoss = 607;

}  // namespace fw
