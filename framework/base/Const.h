// SPDX-License-Identifier: Apache-2.0
#pragma once

// Host-wide constants that packages pass back to the host.

namespace Const {
// Tag of the captions and messages in the language manager.
inline constexpr const char* ResourceStringTag = "ResourceString";
}  // namespace Const

namespace fw {

inline constexpr const char* kPriceDataKind = "PRCDDS";

// State of a market-data item.
enum EItemState : int {
    kItemUnknown = 0,  // nothing known yet, also while requested
    kItemReady = 1,
    kItemNoData = 2,  // the market answered that it has nothing
};

inline constexpr int kChannelMainFormShow = 104;
inline constexpr int kChannelLayoutLoaded = 109;
inline constexpr int kChannelBatchConfirm = 18012;
inline constexpr int kChannelSymbolPopup = 18015;

inline constexpr int kViewNotifyCaptionButtons = 1026;

}  // namespace fw
