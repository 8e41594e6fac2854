// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A user without a plan: does random things to the real view and to the workstation around it. The seed decides all of
// them. Each action says what it did.

#include <iterator>
#include <random>
#include <utility>

#include "framework/base/NumberFormat.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/PopupControl.h"
#include "framework/market/Product.h"
#include "tests/script/TraderFixture.h"
#include "workstation/market/MonthCode.h"
#include "workstation/script/StrategyRun.h"

namespace ws {

class TRandomUser : public TTraderFixture {
protected:
    std::mt19937_64 Random;

    // One random action.
    std::string Step() {
        static constexpr struct {
            int Weight;
            std::string (TRandomUser::*Do)();
        } kActions[] = {
            {24, &TRandomUser::TypeIntoACell}, {10, &TRandomUser::TypeALeg},     {8, &TRandomUser::ChooseAnItem},
            {14, &TRandomUser::SpinACell},     {4, &TRandomUser::EndTheEdit},    {4, &TRandomUser::EmptyASymbol},
            {4, &TRandomUser::SwitchMarket},   {10, &TRandomUser::DeliverData},  {10, &TRandomUser::TickOn},
            {4, &TRandomUser::SwitchLanguage}, {5, &TRandomUser::ChooseInPopup}, {3, &TRandomUser::MoveFocus},
            {3, &TRandomUser::PressAButton},   {2, &TRandomUser::SetALimit},     {1, &TRandomUser::HostDoesSomething},
        };
        int Total = 0;
        for (const auto& Action : kActions) Total += Action.Weight;
        int Drawn = Below(Total);
        for (const auto& Action : kActions)
            if ((Drawn -= Action.Weight) < 0) return (this->*Action.Do)();
        return {};
    }

    // The view together with a symbol popup as the shell answers for it.
    void OpenWithPopup(const std::string& User) {
        Open(User);
        Station->Channels().Subscribe(
            fw::kChannelSymbolPopup,
            [this](fw::TObject*, fw::TObject* Data) {
                auto& Request = dynamic_cast<fw::TPopupRequestRecord&>(*Data);
                Request.Control = &FPopup;
                FOnSelected = Request.OnSelected;
            },
            &FPopup);
        Handle = View.OpenNewInstance();
    }
    void CloseWithPopup() {
        View.CloseInstance(std::exchange(Handle, 0));
        Station->Channels().Unsubscribe(fw::kChannelSymbolPopup, &FPopup);
    }

private:
    static constexpr int kEditable[] = {ventiq::kColSymbol, ventiq::kColSide,      ventiq::kColPremium,
                                        ventiq::kColQty,    ventiq::kColOpenClose, ventiq::kColPrincipal};
    static constexpr int kLists[] = {ventiq::kColSide, ventiq::kColOpenClose, ventiq::kColPrincipal};
    static constexpr const char* kSelectors[] = {"cmbExchange", "cmbSeries", "cmbMonth"};
    static constexpr const char* kButtons[] = {"btnCalc", "btnCalc", "btnCalc", "btnClear", "btnLoad"};
    static constexpr const char* kLimits[] = {"edtDown", "edtUp", "edtInterval"};
    static constexpr const char* kOddSymbols[] = {
        "HHI10500L6",
        "HHI10400L6",
        "HSICASH",
        "HSI31200L6",
        "HSI31200X6",
        "00019",
        "5",
        "117",
        "388",
        "-5",
        "EQX 261218 c 450",
        "eqx   270115P00440000",
        "HSIF7",
        "OILF27",
        "NOBODY",
        "x",
        "HSI\t26400 L6",
        "",
        " ",
        "\xF0\x9F\x98\x80",  // an emoji
        "\x01\x02",
        "\xE3\x80\x80",                                                   // a wide blank
        "\xEF\xBC\xA8\xEF\xBC\xB3\xEF\xBC\xA9\xEF\xBC\xBA\xEF\xBC\x96"};  // wide "HSIZ6"
    static constexpr const char* kNumbers[] = {
        "0",    "1",     "5",   "12.5", "-3",   "250", "99.95", "0.249", "1,234.5",    "",      "0.",    "1e5",
        "1e18", "1e999", "nan", "abc",  "39.9", "41",  "199.9", "0.05",  "2000000000", "1.250", "1,500", "0,5"};
    static constexpr const char* kWords[] = {"Buy", "sell", "\xE8\xB2\xB7\xE5\x85\xA5", "Open", "Close", "House",
                                             "",    "?"};

    int Below(int Bound) { return Bound > 0 ? static_cast<int>(Random() % static_cast<unsigned>(Bound)) : 0; }
    bool OneIn(int Count) { return Below(Count) == 0; }
    template <class TList>
    const auto& OneOf(const TList& List) {
        return *std::next(std::begin(List), Below(static_cast<int>(std::size(List))));
    }
    int AnyRow() { return Below(Rows()); }
    static std::string Place(int Row, int Column) { return std::to_string(Row) + "/" + std::to_string(Column); }

    // A contract of the market that is selected, else any.
    std::string ListedSymbol() {
        const auto Chosen = [this](const char* Combo) {
            const fw::Text& Shown = Frame().FindControl<fw::TComboBox>(Combo)->GetText();
            return Shown.substr(0, Shown.find('('));
        };
        const std::string Exchange = Chosen("cmbExchange"), Series = Chosen("cmbSeries"), Month = Chosen("cmbMonth");
        auto& Market = Station->Market();
        for (int Try = 0; Try < 30; ++Try) {
            const auto* Product = Market.GetProduct(Exchange, Series, Below(Market.GetProductCount(Exchange, Series)));
            const auto* Row = Product ? Market.FindProduct(Product->GetSymbol()) : nullptr;
            if (Row && MonthCodeOf(*Row) == Month) return Row->Symbol;
        }
        return OneOf(Market.Market().Products).Symbol;
    }
    std::string Symbol() {
        const int Kind = Below(10);
        if (Kind < 6) return ListedSymbol();
        if (Kind < 7) return OneOf(Station->Market().Market().Products).Symbol;
        if (Kind < 9) return OneOf(kOddSymbols);
        std::string Bytes;
        for (int i = Below(12); i > 0; --i) Bytes += static_cast<char>(Below(256));
        return Bytes;
    }
    std::string TextFor(int Column) {
        if (Column == ventiq::kColSymbol) return Symbol();
        const bool Number = Column == ventiq::kColPremium || Column == ventiq::kColQty;
        return Number ? OneOf(kNumbers) : OneOf(kWords);
    }

    std::string TypeIntoACell() {
        const int Row = AnyRow(), Column = OneOf(kEditable);
        const std::string Typed = TextFor(Column);
        const bool Opened = Edit(Row, Column, Typed) != nullptr, Leave = OneIn(4);
        if (!Leave) Legs().PostEditor();
        return "type " + testing::PrintToString(Typed) + " at " + Place(Row, Column) + (Opened ? "" : ", refused") +
               (Leave ? ", leave it open" : "");
    }
    std::string TypeALeg() {
        const int Row = Rows() - 1;
        const std::string Typed = ListedSymbol();
        Type(Row, ventiq::kColSymbol, Typed);
        return "leg " + Typed + " at " + std::to_string(Row);
    }
    std::string ChooseAnItem() {
        const int Row = AnyRow(), Column = OneOf(kLists), Item = Below(4);
        Play(TStep::CellItem(kLegs, Row, Column, Item));
        return "item " + std::to_string(Item) + " at " + Place(Row, Column);
    }
    std::string SpinACell() {
        const int Row = AnyRow(), Column = OneIn(2) ? ventiq::kColPremium : ventiq::kColQty, Steps = 1 + Below(5);
        const bool Up = OneIn(2), Key = OneIn(2);
        fw::TCellEditor* const Editor = OneIn(3) ? Legs().GetEditor() : Edit(Row, Column);
        for (int i = 0; i < Steps && Editor && Legs().GetEditor() == Editor; ++i)
            Key ? Editor->KeyDown(Up ? fw::kKeyUp : fw::kKeyDown) : Editor->Spin(Up ? 1 : -1);
        if (OneIn(2)) Legs().PostEditor();
        return std::string(Key ? "key " : "spin ") + (Up ? "up " : "down ") + std::to_string(Steps) + " at " +
               Place(Row, Column);
    }
    std::string EndTheEdit() {
        const bool Post = OneIn(2);
        Post ? Legs().PostEditor() : Legs().CancelEdit();
        return Post ? "post" : "cancel";
    }
    std::string EmptyASymbol() {
        const int Row = AnyRow();
        Type(Row, ventiq::kColSymbol, "");
        return "empty the symbol of " + std::to_string(Row);
    }
    std::string SwitchMarket() {
        auto& Combo = *Frame().FindControl<fw::TComboBox>(OneOf(kSelectors));
        Combo.SetFocus();
        Combo.SetItemIndex(Below(Combo.GetCount()));
        return "choose " + Combo.GetText();
    }
    std::string DeliverData() { return "deliver " + std::to_string(Station->Pump()); }
    std::string TickOn() {
        const int Ticks = 1 + Below(25);
        for (int i = 0; i < Ticks; ++i) Station->Tick();
        return "tick " + std::to_string(Ticks);
    }
    std::string SwitchLanguage() {
        SetLanguage(Below(kLanguageCount));
        return "language " + std::to_string(Station->Language().GetLanguage());
    }
    std::string ChooseInPopup() {
        class TChosen : public fw::TCustomMarketData {
        public:
            fw::Text Symbol;
            fw::Text GetSymbol() const override { return Symbol; }
        } Chosen;
        Chosen.Symbol = Symbol();
        const int Row = AnyRow();
        fw::TCellEditor* const Editor = OneIn(2) ? Legs().GetEditor() : Edit(Row, ventiq::kColSymbol);
        if (Editor) Editor->OpenList();
        const int Focused = Legs().GetFocusedRecord();
        fw::Dispatch("popup", [&] { FOnSelected(&FPopup, &Chosen); });
        return "popup " + testing::PrintToString(Chosen.Symbol) + " for row " + std::to_string(Focused);
    }
    std::string MoveFocus() {
        const int Row = AnyRow(), Column = OneOf(kEditable);
        Legs().SetFocusedCell(Row, ColumnOf(Column));
        return "focus " + Place(Row, Column);
    }
    std::string PressAButton() {
        const std::string Name = OneOf(kButtons);
        Play(TStep::Click(Name));
        return "click " + Name;
    }
    std::string SetALimit() {
        const std::string Name = OneOf(kLimits), Typed = OneOf(kNumbers);
        Play(TStep::Enter(Name, Typed));
        return Name + " " + Typed;
    }
    std::string HostDoesSomething() {
        switch (Below(9)) {
            case 0: return Station->ResetSample(), "the sample is reset";
            case 1: return Station->SetUser("norights"), "user norights";
            case 2: return Station->SetUser("trader"), "user trader";
            case 3: return Station->SetSkin(OneIn(2) ? "Dark" : "Light"), "skin";
            case 4: {
                const auto Name = OneOf(fw::NumberFormatNames());
                return Station->SetNumberFormat(Name), "number format " + Name;
            }
            case 5:
                View.CloseInstance(Handle);
                Handle = View.OpenNewInstance();
                return "closed and opened again";
            default: return Station->Market().NotifyListsChanged(), "market lists changed";
        }
    }

    fw::TPopupControl FPopup;
    fw::TDataEvent FOnSelected;
};

}  // namespace ws
