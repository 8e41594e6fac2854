// SPDX-License-Identifier: Apache-2.0
#pragma once

// The parts of the frame put together without the frame, for tests of single parts. The market has three exchanges:
//   HKFE  HSI (2026-12: calls and puts 100, 110, 120 and a future; 2027-01), HHI, MHI
//   XDER  ABC, DEF (2026-12), GHI
//   XONE  SOLO with the months 2026-12, 2027-01, 2027-02: more months than series

#include <gtest/gtest.h>

#include "registration/VentiqConstDef.h"
#include "tests/support/FakeHost.h"
#include "view/VentiqCellEditing.h"
#include "view/VentiqMarketSelectors.h"
#include "view/VentiqSymbolEntry.h"

namespace ventiq {

class TPartsFixture : public testing::Test {
protected:
    support::TFakeHost Host;
    TObject Owner;
    TVentiqForm Form;
    TVentiqContext Context;
    TVentiqTexts Texts{Form};
    TVentiqOrderFlags Flags;
    TVentiqSymbolCheck Check{Context};
    TVentiqSubscriptions Subscriptions{Owner};
    TVentiqPositionGrid Grid{Form, Context, Texts, Flags};
    TVentiqMarketSelectors Selectors{Form, Context};
    TVentiqSymbolEntry Entry{Form, Context, Grid, Texts, Flags, Check, Subscriptions};
    TVentiqCellEditing Editing{Form, Context, Grid, Flags};

    TPartsFixture() {
        auto& M = Host.Market;
        M.AddOptions("HKFE", "HSI", "HSI", "2026/12/30", {"100", "110", "120"});
        M.AddProduct("HKFE", "HSI", "HSIZ6", kProductFuture, "2026/12/30");
        M.AddOptions("HKFE", "HSI", "HSJ", "2027/01/28", {"100", "110"});
        M.AddSeries("HKFE", "HHI");
        M.AddSeries("HKFE", "MHI");
        M.AddSeries("XDER", "ABC");
        M.AddOptions("XDER", "DEF", "DEF", "2026/12/18", {"10", "20"});
        M.AddSeries("XDER", "GHI");
        M.AddOptions("XONE", "SOLO", "SOA", "2026/12/18", {"10"});
        M.AddOptions("XONE", "SOLO", "SOB", "2027/01/15", {"10"});
        M.AddOptions("XONE", "SOLO", "SOC", "2027/02/19", {"10"});

        const std::pair<const char*, const char*> Captions[] = {
            {"Res_Side_Buy", "Buy"},      {"Res_Side_Sell", "Sell"},      {"Res_Call", "Call"},
            {"Res_Put", "Put"},           {"Res_OpenClose_N", "None"},    {"Res_OrderOpen", "Open"},
            {"Res_OrderClose", "Close"},  {"Res_Principal_N", "No"},      {"Res_Principal_C", "Client"},
            {"Res_Principal_H", "House"}, {"Res_Principal_RT", "Trader"},
        };
        for (const auto& [Key, Caption] : Captions) Host.Language.SetText(Key, Caption);

        Context.FMyDataControl = std::make_unique<TCustomVentiqDataControl>(nullptr);
        Texts.UpdateCallPut();
        Texts.UpdateSideItems();
        Flags.UpdateOpenCloseTexts();
        Flags.UpdatePrincipalTexts();

        Form.cmbExchange.OnChange = [this](TObject* S) { Selectors.cmbExchangePropertiesChange(S); };
        Form.cmbSeries.OnChange = [this](TObject* S) { Selectors.cmbSeriesPropertiesChange(S); };
        Form.cmbMonth.OnChange = [this](TObject* S) { Selectors.cmbExpiryPropertiesChange(S); };
        Grid.OnSymbolValidate = [this](TObject* S, Variant& V, Text& T, bool& E) {
            Entry.SymbolOnValidate(S, V, T, E);
        };
        Grid.OnSideChange = [this](TObject* S) { Editing.epiSidePropertiesChange(S); };
        Grid.OnSidePopup = [this](TObject* S) { Editing.epiSidePropertiesPopup(S); };
        Grid.OnQuantityChange = [this](TObject* S) { Editing.QuantityChange(S); };
        Grid.OnPriceChange = [this](TObject* S) { Editing.PriceChange(S); };
        Grid.OnOpenCloseChange = [this](TObject* S) { Editing.OpenCloseChange(S); };
        Grid.OnPrincipalChange = [this](TObject* S) { Editing.PrincipalChange(S); };
        Subscriptions.OnReCheckSymbol = [this](const Text& S) { Entry.ReCheckSymbol(S); };
        Form.PositionGridView.OnEditing = [this](TGridTableView& V, TGridColumn& C, bool& A) {
            Editing.PositionGridViewEditing(V, C, A);
        };
        Form.PositionGridView.OnEditKeyDown = [this](TGridTableView& V, TGridColumn& C, TCellEditor& E, int& K, int S) {
            Editing.PositionGridViewEditKeyDown(V, C, E, K, S);
        };
        Grid.InitializeGrid();
        Grid.SetRecordCount(1);
    }

    ~TPartsFixture() override { Subscriptions.ClearSubscribeList(); }

    void SelectMarket(const Text& Exchange = "HKFE", const Text& Series = "HSI", const Text& Month = "2026-12") {
        Context.FMyDataControl->SetExchange(Exchange);
        Context.FMyDataControl->SetSeries(Series);
        Context.FMyDataControl->SetMonth(Month);
    }

    // Validates as the editor of that row does; the result stands in the cell, as a posted edit leaves it.
    Variant Type(int Row, const Variant& Typed) {
        Form.PositionGridView.SetFocusedCell(Row, 0);
        Variant Value = Typed;
        Text ErrorText;
        bool Error = false;
        Entry.SymbolOnValidate(nullptr, Value, ErrorText, Error);
        EXPECT_FALSE(Error);
        Grid.SetCell(Row, kColSymbol, Value);
        return Value;
    }

    int ColumnIndex(int Id) const { return Grid.GetGridColumn(Id)->GetIndex(); }
};

}  // namespace ventiq
