// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <set>

#include "framework/services/OrderActionManager.h"
#include "framework/services/OrderAdapter.h"
#include "framework/services/PositionAdapter.h"
#include "tests/support/Journal.h"

namespace support {

// Tells the journal about each setter: "Order1.SetSymbol(HSI)". Counts the orders that are alive.
class TFakeClientOrder : public fw::TCustomClientOrder {
public:
    TFakeClientOrder(TJournal& Journal, int64_t LineId);
    ~TFakeClientOrder() override { --Alive; }
    static inline int Alive = 0;

    void SetAccount(const fw::Text& Value) override;
    void SetSymbol(const fw::Text& Value) override;
    void SetSide(int Value) override;
    void SetPrice(double Value) override;
    void SetQty(double Value) override;
    void SetOpenClose(int Value) override;
    void SetPrincipal(int Value) override;
    void SetExtValue(const fw::Text& Name, const fw::Text& Value) override;

private:
    void Say(const fw::Text& What);
    TJournal& FJournal;
};

class TFakeOrderAdapter : public fw::TCustomOrderAdapter {
public:
    explicit TFakeOrderAdapter(TJournal& Journal) : FJournal(Journal) {}
    // Options by exchange; an exchange without entry has Default.
    std::map<fw::Text, std::vector<fw::Text>> Options;
    std::vector<fw::Text> Default{"Open", "Close", "Client", "House", "RT"};

    std::unique_ptr<fw::TCustomClientOrder> CreateClientOrder() override;
    int GetOrderOptionCount(const fw::Text& Exchange) override;
    fw::Text GetOrderOption(const fw::Text& Exchange, int Index) override;
    // "Side0" / "Side0Short", "Remark:<symbol>", "Order:<symbol>".
    fw::Text GetSideText(const fw::TCustomClientOrder& Order, bool Short) override;
    fw::Text GetRemarkText(const fw::TCustomClientOrder& Order) override { return "Remark:" + Order.GetSymbol(); }
    fw::Text GetOrderText(const fw::TCustomClientOrder& Order) override { return "Order:" + Order.GetSymbol(); }

private:
    const std::vector<fw::Text>& OptionsOf(const fw::Text& Exchange) const;
    TJournal& FJournal;
    int64_t FLineId = 0;
};

// Passes every order unless its symbol is refused; keeps copies of what was sent.
class TFakeOrderActionManager : public fw::TCustomOrderActionManager {
public:
    explicit TFakeOrderActionManager(TJournal& Journal) : FJournal(Journal) {}
    std::set<fw::Text> Refused;  // symbols that fail the check
    std::vector<std::unique_ptr<fw::TCustomClientOrder>> Sent;
    std::function<void(fw::TCustomClientOrder&)> OnTakeAction;  // may throw

    bool CheckOrder(fw::TCustomClientOrder& Order, int Action, bool Flag) override;
    void TakeAction(fw::TObject* Owner, fw::TCustomClientOrder& Order, int Action, bool Flag) override;

private:
    TJournal& FJournal;
};

class TFakePosition : public fw::TCustomPositionData {
public:
    fw::Text Symbol;
    double Qty = 0.0;
    fw::TCustomSubItem* SubItem = nullptr;
    int SideKind = 0;
    double AvgPrice = 0.0, AvgPriceMode1 = 0.0, AvgPriceMode2 = 0.0;

    fw::Text GetSymbol() const override { return Symbol; }
    double GetQty() const override { return Qty; }
    fw::TCustomSubItem* GetSubItem() const override { return SubItem; }
    int GetSideKind() const override { return SideKind; }
    double GetAvgPrice() const override { return AvgPrice; }
    double GetAvgPriceMode1() const override { return AvgPriceMode1; }
    double GetAvgPriceMode2() const override { return AvgPriceMode2; }
};

class TFakePositionAdapter : public fw::TCustomPositionAdapter {
public:
    explicit TFakePositionAdapter(TJournal& Journal) : FJournal(Journal) {}
    TFakePosition& Add(const fw::Text& Account, const fw::Text& Symbol, double Qty, double AvgPrice,
                       fw::TCustomSubItem* Item);
    void GetPositionList(const fw::Text& Account, fw::TPositionDictionary& Positions) override;

private:
    TJournal& FJournal;
    std::deque<std::pair<fw::Text, TFakePosition>> FPositions;  // account, position
};

}  // namespace support
