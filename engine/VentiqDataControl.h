// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>
#include <unordered_map>

#include "engine/VentiqDetailDataControl.h"
#include "engine/VentiqPayOffMath.h"
#include "engine/VentiqPriceConversion.h"
#include "framework/base/StringList.h"
#include "framework/market/Product.h"
#include "framework/trading/ClientOrder.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

// --- state of the unit, shared by every open frame; user-interface thread only ---------------------------------------
extern std::map<Text, Text> DerivativeExchangeCache;  // exchanges known to list a future or an option; key = value
extern bool ExchangeListReady;                        // from then on IsDerivativeExchange answers from the cache alone
extern int ExchangeUpdateState;                       // 0 no report yet, 1 reported, 2 cache reset for it (final)

// Called by the package entry; the body runs for the first of nested calls only. Finalising undoes the count.
void InitializeVentiqDataControl();
void FinalizeVentiqDataControl();

// The payoff data control of one frame: legs, key prices of the last calculation, market selection, subscriptions,
// order legs. All prices are real price units. User-interface thread only.
class TCustomVentiqDataControl : public TCustomDataControl {
public:
    explicit TCustomVentiqDataControl(TObject* Owner = nullptr);
    ~TCustomVentiqDataControl() override;  // never touches the detail control, which may be gone

    // Grid interface: the count of key prices; no cells.
    int32_t GetCount() override;
    Variant GetValue(int32_t RecordIndex, int32_t Attribute) override;
    Text GetDisplayValue(int32_t RecordIndex, int32_t Attribute) override;
    bool GetRowValue(int32_t RecordIndex, void*& Value) override;
    bool GetColValue(int32_t ItemIndex, void*& Value) override;

    // Lists of codes: appended to List, which the caller empties first, then sorted as the host sorts them. A null list
    // gets nothing (the exchange comparer is called with it all the same). GetMonthList raises EConvertError for a
    // product with a malformed expiry.
    virtual void GetExchangeList(TStringList* List);
    virtual void GetSeriesList(TStringList* List);
    virtual void GetMonthList(TStringList* List);
    // "yyyy-MM" of "yyyy/MM/dd", with "-tag" for a weekly tag. Deliberately goes through the process-wide date settings
    // and leaves "yyyy-MM" and "-" behind there. Raises EConvertError.
    virtual Text GetMonthCode(const Text& ExpiryDate, const Text& WeeklyTag);
    virtual double GetDefaultDownPrice() { return FDefaultDownPrice; }
    virtual double GetDefaultUpPrice() { return FDefaultUpPrice; }
    virtual double GetDefaultInterval() { return FDefaultInterval; }

    // Selection. The value that stands is a no-op. A new exchange clears series and month, a new series the month; a
    // new month derives the default range (and raises EConvertError for a malformed expiry).
    void SetExchange(const Text& Value);
    void SetSeries(const Text& Value);
    void SetMonth(const Text& Value);
    void SetAccount(const Text& Value);
    const Text& GetExchange() const { return FExchange; }
    const Text& GetSeries() const { return FSeries; }
    const Text& GetMonth() const { return FMonth; }
    const Text& GetAccount() const { return FAccount; }
    bool IsDerivativeExchange(const Text& Exchange);
    bool DetectIsDerivativeExchange(const Text& Exchange);
    void MarketExchangeUpdate(TObject* Sender, TObject* Data);

    // Fills the defaults from the underlying's price while none of them is set and the item belongs to the selection;
    // then raises OnUpdateDefaultPrice. Raises EConvertError for an item whose expiry nobody knows.
    void UpdateDefaultPrice(TCustomSubItem* Item);
    void SymbolUpdate(TObject* Sender, TObject* Update);

    // Legs; no validation, no duplicate check.
    void AddRecord(const Text& Symbol, int32_t Side, double Premium, double Qty);
    void AddOrderRecord(const Text& Symbol, int32_t Side, double Premium, double Qty, int32_t OpenClose,
                        int32_t Principal);
    void ClearPayOffData();
    void ClearPayOffOrderData();
    void ResetOrderList();
    const TPayOffDataList& GetPayOffData() const { return FPayOffDataList; }
    const TPayOffDataList& GetPayOffOrderData() const { return FPayOffOrderDataList; }

    // Drops legs and key prices. The detail table, currency, alert flag, limits and order legs stay.
    void Reset();
    // Runs the detail control, then sums the P/L at the range's ends and at every strike; raises OnDataUpdate in any
    // case. A symbol whose market data cannot count is named in the log.
    void Calculate();
    // The legs' arithmetic: that of the calculation that runs, else of what the market data say now.
    std::shared_ptr<const TLegSums> GetLegSums() const;
    bool GetPrice(int32_t RecordIndex, double& Price) const;  // false leaves Price alone
    bool GetPL(int32_t RecordIndex, double& PL) const;        // false leaves PL alone
    // -1, 0, 1 by the texts' numbers; closer than 1e-7 is equal, so this is no strict order.
    int32_t ComparePrice(const Text& A, const Text& B) const;

    // Each also overwrites the matching default and the detail control's limit: the applied range is the default range.
    void SetUpLimit(double Value);
    void SetDownLimit(double Value);
    void SetInterval(double Value);
    double GetUpLimit() const { return FUpLimit; }
    double GetDownLimit() const { return FDownLimit; }
    double GetInterval() const { return FInterval; }
    void SetDetailControl(TCustomVentiqDetailDataControl* Value);  // borrowed; becomes this control's table
    TCustomVentiqDetailDataControl* GetDetailControl() const { return FDetailControl; }
    const Text& GetCurrency() const { return FCurrency; }
    bool GetShowAlertLine() const { return FShowAlertLine; }

    // Events; the sender is this control.
    void SetOnMarketListUpdate(TNotifyEvent Value) { FOnMarketListUpdate = std::move(Value); }
    void SetOnDataUpdate(TNotifyEvent Value) { FOnDataUpdate = std::move(Value); }
    void SetOnUpdateDefaultPrice(TNotifyEvent Value) { FOnUpdateDefaultPrice = std::move(Value); }

    // Turns the order legs into orders, has them checked and confirmed as one batch and sends what was confirmed; tells
    // the user when there is no account or no leg. Afterwards legs and orders are gone, whatever became of them, except
    // that without an account the legs stay. Defined in orders/.
    void SubmitOrder();
    // One order a leg, in leg order, in place of those prepared before. Defined in orders/.
    void PrepareOMSOrder();
    void ClearOMSOrder();
    const std::vector<std::unique_ptr<TCustomClientOrder>>& GetOrderList() const { return FOrderList; }

    const std::map<Text, TCustomSubItem*>& GetSubscribedList() const { return FSubscribedList; }

private:
    struct TReading;
    TReading ReadLegs() const;
    void WarnOfUnusable(const TLegTermsList& Terms) const;
    void AddKeyPrice(double Price);
    void SumKeyPrices(const TLegSums& Legs);
    void WalkMonthProducts(const std::function<void(TCustomProduct& Product, const Text& MonthCode)>& Visit);
    void ScanStrikes(int& OptionCount, Text& Underlying);
    void Subscribe(const Text& Symbol, TCustomSubItem* Item);

    TPayOffDataList FPayOffDataList;
    TPayOffDataList FPayOffOrderDataList;
    TStringList FDataList;                             // key prices, ascending
    std::unordered_map<Text, double> FDataDictionary;  // key price -> P/L
    std::vector<std::unique_ptr<TCustomClientOrder>> FOrderList;
    std::shared_ptr<TCustomMonthComparer> FMonthComparer;
    std::shared_ptr<TCustomComparer> FPriceDataComparer;
    Text FExchange, FSeries, FMonth, FAccount;
    TNotifyEvent FOnMarketListUpdate;
    double FUpLimit = 0.0;
    double FDownLimit = 0.0;
    double FInterval = 0.0;
    TCustomVentiqDetailDataControl* FDetailControl = nullptr;
    TNotifyEvent FOnDataUpdate;
    Text FCurrency;
    bool FShowAlertLine = false;
    double FDefaultDownPrice = 0.0, FDefaultUpPrice = 0.0, FDefaultInterval = 0.0;
    std::map<Text, TCustomSubItem*> FSubscribedList;  // pending underlyings; items belong to the host
    TNotifyEvent FOnUpdateDefaultPrice;
    std::shared_ptr<const TLegSums> FLegSums;  // set while a calculation runs
};

}  // namespace ventiq
