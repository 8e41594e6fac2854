// SPDX-License-Identifier: Apache-2.0
#pragma once

// Numbers, codes and texts of the package that have one name and one home. Includes nothing: every room may include it.

namespace ventiq {

// --- the view and its place in the host ---------------------------------------------------------------------------
inline constexpr int kViewId = 620;  // also the level-1 menu id, the suffix of the name and the view id of a batch
inline constexpr const char* kViewNameFormat = "Ventiq_%s";
inline constexpr int kMenuLevels = 2;
inline constexpr int kMenuIdAccount = 103;
inline constexpr int kMenuIndexAccount = 3100;
inline constexpr int kMenuIndexView = 3950;
inline constexpr int kDefaultWidth = 1000, kDefaultHeight = 600;  // pixels at scale 100
inline constexpr const char* kFunctionPayOff = "PayOff";

// --- column ids, host-wide; also the attributes of the data controls -----------------------------------------------
inline constexpr int kColSymbol = 0;
inline constexpr int kColPrice = 3;
inline constexpr int kColQty = 4;
inline constexpr int kColOrderText = 5;  // answered by the batch table, in no column list
inline constexpr int kColAccount = 10;
inline constexpr int kColSide = 11;
inline constexpr int kColOpenClose = 12;
inline constexpr int kColRemark = 25;
inline constexpr int kColStrike = 27;
inline constexpr int kColCallPut = 28;
inline constexpr int kColExpiry = 29;
inline constexpr int kColPrincipal = 46;
inline constexpr int kColPremium = 103;
inline constexpr int kColPL = 607;

// --- instruments and legs -----------------------------------------------------------------------------------------
inline constexpr int kProductFuture = 2;
inline constexpr int kProductOption = 3;
inline constexpr int kSideBuy = 0;
inline constexpr int kSideSell = 1;
inline constexpr int kSideUnknown = -1;
inline constexpr int kCall = 0;
inline constexpr int kPut = 1;
inline constexpr int kCallPutUnknown = -1;
// Values of the order flags are the order system's, gaps included.
inline constexpr int kOpenCloseNone = 0, kOpenCloseOpen = 1, kOpenCloseClose = 2;
inline constexpr int kPrincipalNone = 0, kPrincipalClient = 11, kPrincipalHouse = 12, kPrincipalRT = 13;
inline constexpr int kPositionBySign = 0, kPositionLong = 1, kPositionShort = 2;
inline constexpr const char* kWeeklyExchange = "HKFE";              // the one exchange whose months carry weekly tags
inline constexpr const char* kWeeklyAttribute = "WeeklyOptionExp";  // the tag of a weekly option

// --- tolerances ---------------------------------------------------------------------------------------------------
inline constexpr double kPriceTolerance = 1e-7;   // two prices closer than this are one
inline constexpr double kPayOffTolerance = 1e-6;  // in the money, a last row, clamping

// --- process-wide date patterns -----------------------------------------------------------------------------------
inline constexpr const char* kExpiryDateFormat = "yyyy/MM/dd";
inline constexpr const char* kExpiryDateSeparator = "/";
inline constexpr const char* kMonthCodeFormat = "yyyy-MM";
inline constexpr const char* kMonthCodeSeparator = "-";

// --- the default range from an underlying's price -----------------------------------------------------------------
inline constexpr double kDefaultDownFactor = 0.8;
inline constexpr double kDefaultUpFactor = 1.2;
inline constexpr double kDefaultIntervalFactor = 0.04;

// --- orders -------------------------------------------------------------------------------------------------------
inline constexpr int kOrderAction = 1;
inline constexpr const char* kMessageNoAccount = "DC10013001";
inline constexpr const char* kExtAllCheckFlag = "AllCheckFlag";
inline constexpr const char* kExtAllCheckValue = "Y";

// --- users, configuration, languages ------------------------------------------------------------------------------
inline constexpr int kUserTypeRestricted = 2;
inline constexpr const char* kRightOpenClose = "OEOpenC";
inline constexpr const char* kRightPrincipal = "OEPrin";
inline constexpr const char* kConfigAlertColor = "coPayOffAlertSeriesColor";
inline constexpr const char* kConfigInputRowColor = "coPayOffInputRowBgColor";
inline constexpr const char* kConfigAvgPriceMode = "PVAvgPriceMode";
inline constexpr const char* kConfigScaleSize = "ScaleSize";
inline constexpr const char* kConfigPlatformSection = "OMS_TRADEPLATFORM";
inline constexpr const char* kTagExchange = "Exchange";
inline constexpr const char* kTagCurrency = "Currency";
inline constexpr const char* kCodeAndText = "%s(%s)";

// --- controls -----------------------------------------------------------------------------------------------------
inline constexpr const char* kNoDataText = " ";  // of both grids
inline constexpr const char* kRangeFormat = "#,##0.########";

// --- unit initialisation ------------------------------------------------------------------------------------------
// A unit may be initialised several times; its body runs for the outermost only. Counts down to -1 on the first entry.
class TUnitCounter {
public:
    bool Enter() { return --FCount == -1; }
    void Leave() { ++FCount; }

private:
    int FCount = 0;
};

inline TUnitCounter ConstDefCounter;
// This unit has nothing to initialise; it only counts.
inline void InitializeVentiqConstDef() { ConstDefCounter.Enter(); }
inline void FinalizeVentiqConstDef() { ConstDefCounter.Leave(); }

}  // namespace ventiq
