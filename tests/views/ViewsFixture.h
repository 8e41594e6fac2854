// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>

#include "framework/controls/Button.h"
#include "framework/view/BaseView.h"
#include "tests/support/FakeHost.h"
#include "tests/trading/TradingFixture.h"
#include "workstation/resources/Texts.h"
#include "workstation/views/TradingViews.h"

namespace ws::test {

// A desk over an order system of its own, and the recording host around the views.
class TViewsFixture : public TTradingFixture {
protected:
    TViewsFixture() {
        fw::TClock::Fix(std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + std::chrono::hours(4));
        Host.FailOnLeftovers = true;
    }
    ~TViewsFixture() override { fw::TClock::Fix({}); }

    // As the exchange tells it; the view shows it at the next tick.
    std::string Place(int Side, double Qty, double Price = 100, const std::string& Symbol = "HSIZ6") {
        return Orders->Place(Ticket(Side, Qty, Price, Symbol));
    }
    void Fill(const std::string& Id, double Qty, double Price) {
        Orders->OrderFilled(Id, "x" + std::to_string(++Executions), Qty, Price);
    }
    template <class TView>
    TView& Opened() {
        auto Made = std::make_unique<TView>(Desk);
        auto& Result = *Made;
        View = std::move(Made);
        Handle = View->OpenNewInstance();
        return Result;
    }
    fw::TFrame& Frame() { return *View->FindView(Handle); }
    fw::TGridTableView& Grid(const char* Name) { return *Frame().FindControl<fw::TGridTableView>(Name); }
    static std::vector<fw::Text> Column(fw::TGridTableView& Grid, int Tag) {
        std::vector<fw::Text> Result;
        const int At = IndexOf(Grid, Tag);
        for (int Row = 0; Row < Grid.GetDataController().GetRecordCount(); ++Row)
            Result.push_back(Grid.GetCellText(Row, At));
        return Result;
    }
    static int IndexOf(const fw::TGridTableView& Grid, int Tag) {
        for (int i = 0; i < Grid.GetColumnCount(); ++i)
            if (Grid.GetColumn(i)->Tag == Tag) return i;
        throw std::runtime_error("no such column");
    }

    support::TFakeHost Host;
    TLanguageService Language{TTextTable::Embedded()};
    std::set<std::string> Accounts{"A1"};
    std::vector<TReason> Asked, Said;
    bool Yes = true, Takes = true;
    std::function<void()> WhileAsked;
    struct TPushed {
        fw::Text Account, Symbol;
        int Side;
        double Price, Qty;
    };
    std::vector<TPushed> Pushed;
    TTradingDesk Desk{*Orders,
                      Language,
                      [this](const std::string& Account) { return Accounts.contains(Account); },
                      [this](const TReason& Question) {
                          Asked.push_back(Question);
                          if (WhileAsked) WhileAsked();
                          return Yes;
                      },
                      [this](const TReason& Sentence) { Said.push_back(Sentence); },
                      [this](fw::TCustomClientOrder& Order) {
                          Pushed.push_back({Order.GetAccount(), Order.GetSymbol(), Order.GetSide(), Order.GetPrice(),
                                            Order.GetQty()});
                          return Takes;
                      }};
    std::unique_ptr<fw::TIBaseView> View;
    int64_t Handle = 0;
    int Executions = 0;
};

}  // namespace ws::test
