// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqPositionGrid.h"

#include <stdexcept>

#include "framework/base/KeepList.h"
#include "framework/services/GlobalChannelManager.h"
#include "tests/view/PartsFixture.h"

namespace ventiq {
namespace {

class PositionGrid : public TPartsFixture {
protected:
    TGridTableView& View() { return Form.PositionGridView; }
    template <class T>
    T& PropertiesOf(int Id) {
        return dynamic_cast<T&>(*Grid.GetGridColumn(Id)->GetProperties());
    }
    TStyle* StyleOf(int Row) { return Grid.PositionGridViewStylesGetContentStyle(Row, *View().GetColumn(0)); }
    // Rows 0..2 loaded, row 3 the input row.
    void LoadThree() {
        Grid.SetRecordCount(4);
        for (int Row = 0; Row < 3; ++Row) Grid.SetCell(Row, kColSymbol, "S" + std::to_string(Row));
        Grid.FirstInputRow = 3;
    }
    std::vector<Text> Symbols() {
        std::vector<Text> Result;
        for (int Row = 0; Row < Grid.GetRecordCount(); ++Row) Result.push_back(Grid.GetSymbol(Row));
        return Result;
    }
};

TEST_F(PositionGrid, HasItsNineColumnsInOrder) {
    const struct {
        int Id;
        const char* Caption;
        int Width;
        bool Numeric, Editable;
    } Expected[] = {
        {0, "Res_Symbol", 100, false, true},       {11, "Res_Side", 60, false, true},
        {28, "Res_CallPut", 60, false, false},     {29, "Res_ExpiryDate", 70, false, false},
        {27, "Res_StrikePrice", 100, true, false}, {103, "Res_PayOffPremium", 100, true, true},
        {4, "Res_OrderQty", 100, true, true},      {12, "Res_OpenClose", 100, false, true},
        {46, "Res_Principal", 100, false, true},
    };
    ASSERT_EQ(View().GetColumnCount(), 9);
    ASSERT_EQ(Grid.GetColumnInfos()->size(), 9u);
    for (int i = 0; i < 9; ++i) {
        SCOPED_TRACE(Expected[i].Caption);
        const auto* Column = View().GetColumn(i);
        EXPECT_EQ(Column->Tag, Expected[i].Id);
        EXPECT_EQ(Column->GetCaption(), Expected[i].Caption);
        EXPECT_EQ(Column->GetWidth(), Expected[i].Width);
        EXPECT_EQ(Column->ValueType, Expected[i].Numeric ? EValueType::Float : EValueType::String);
        EXPECT_EQ(Column->Editing, Expected[i].Editable);
        EXPECT_FALSE(Column->Sorting || Column->Filtering);
        EXPECT_TRUE(Column->IsVisible());
        EXPECT_EQ((*Grid.GetColumnInfos())[static_cast<size_t>(i)]->Id, Expected[i].Id);
    }
}

TEST_F(PositionGrid, TheColumnListStaysWithTheHostForGood) {
    const TColumnInfoList* Infos = nullptr;
    int Kept = 0;
    {
        TVentiqForm OtherForm;
        TVentiqPositionGrid Other{OtherForm, Context, Texts, Flags};
        EXPECT_EQ(Other.GetColumnInfos(), nullptr);
        Kept = KeptCount();
        Other.InitializeGrid();
        Infos = Other.GetColumnInfos();
    }
    EXPECT_EQ(KeptCount(), Kept + 1);
    EXPECT_EQ(Infos->size(), 9u);
}

TEST_F(PositionGrid, EachColumnHasItsEditor) {
    const auto& Popup = PropertiesOf<TcxPopupEditProperties>(kColSymbol);
    EXPECT_TRUE(Popup.AlwaysShowButton && Popup.ShowErrorIcon && Popup.OnValidate);
    EXPECT_EQ(Popup.PopupWidth, 400);
    EXPECT_EQ(Popup.PopupHeight, 400);
    EXPECT_TRUE(Grid.GetGridColumn(kColSymbol)->Focusing);

    for (const int Id : {kColPremium, kColQty}) {
        const auto& Spin = PropertiesOf<TcxSpinEditProperties>(Id);
        EXPECT_TRUE(Spin.AlwaysShowButton && Spin.ButtonsLeftAndRight && Spin.FloatValues);
        EXPECT_FALSE(Spin.LeftAlignWhileEditing);
        EXPECT_EQ(Spin.Alignment, EAlignment::Right);
        EXPECT_EQ(Spin.NullText, "");
    }
    EXPECT_FALSE(PropertiesOf<TcxSpinEditProperties>(kColPremium).MinValue);
    EXPECT_FALSE(PropertiesOf<TcxSpinEditProperties>(kColPremium).MaxValue);
    EXPECT_EQ(PropertiesOf<TcxSpinEditProperties>(kColQty).MinValue, 0.0);
    EXPECT_EQ(PropertiesOf<TcxSpinEditProperties>(kColQty).MaxValue, 2000000000.0);

    for (const int Id : {kColOpenClose, kColPrincipal}) {
        const auto& Combo = PropertiesOf<TcxComboBoxProperties>(Id);
        EXPECT_TRUE(Combo.FixedList && Combo.AlwaysShowButton && Combo.OnChange);
        EXPECT_EQ(Combo.NullText, "");
    }
    EXPECT_EQ(PropertiesOf<TcxTextEditProperties>(kColStrike).Alignment, EAlignment::Right);
}

TEST_F(PositionGrid, TheSideIsChosenFromTheListInInputRowsOnly) {
    LoadThree();
    const int Side = ColumnIndex(kColSide);
    EXPECT_NE(View().GetCellProperties(2, Side), &Form.epiSide);
    EXPECT_EQ(View().GetCellProperties(3, Side), &Form.epiSide);
    EXPECT_NE(View().GetCellProperties(3, ColumnIndex(kColCallPut)), &Form.epiSide);
    EXPECT_EQ(Form.epiSide.Items, (std::vector<Text>{"Buy", "Sell"}));
    EXPECT_TRUE(Form.epiSide.FixedList && Form.epiSide.AlwaysShowButton);
}

TEST_F(PositionGrid, TheViewIsAPlainTypingTable) {
    const auto& Options = View().Options;
    EXPECT_FALSE(Options.Deleting || Options.InvertSelection || Options.GroupByBox);
    EXPECT_TRUE(Options.CellHints && Options.HideSelection && Options.CellEndEllipsis && Options.HeaderEndEllipsis &&
                Options.ColumnAutoWidth);
    EXPECT_EQ(Options.NoDataText, " ");
}

TEST_F(PositionGrid, ColumnsAreFoundByTheirNumber) {
    EXPECT_EQ(Grid.GetGridColumn(kColQty), View().GetColumn(6));
    EXPECT_EQ(Grid.GetGridColumn(4711), nullptr);
    View().GetColumn(8)->Tag = kColQty;  // of two the first
    EXPECT_EQ(Grid.GetGridColumn(kColQty), View().GetColumn(6));
    EXPECT_TRUE(Grid.GetCell(0, 4711).IsNull());
    Grid.SetCell(0, 4711, 1);
    EXPECT_EQ(StyleOf(0), nullptr);
}

TEST_F(PositionGrid, NewCaptionsReachEveryColumn) {
    Host.Language.SetText("Res_Symbol", "Symbole");
    Host.Language.SetText("Res_Principal", "Compte");
    Grid.UpdateGridHeader();
    EXPECT_EQ(View().GetColumn(0)->GetCaption(), "Symbole");
    EXPECT_EQ(View().GetColumn(8)->GetCaption(), "Compte");
    EXPECT_EQ(View().GetColumn(1)->GetCaption(), "Res_Side");
}

TEST_F(PositionGrid, ARowGetsTheInputColourAsSoonAsAnyCellHasContent) {
    EXPECT_EQ(StyleOf(0), nullptr);
    Grid.SetCell(0, kColSymbol, "HSIC100");
    for (int i = 0; i < View().GetColumnCount(); ++i)
        EXPECT_EQ(View().GetCellStyle(0, i), nullptr) << "no style event is wired here";
    for (int i = 0; i < View().GetColumnCount(); ++i)
        EXPECT_EQ(Grid.PositionGridViewStylesGetContentStyle(0, *View().GetColumn(i)), &Form.sInput);
    Grid.SetCell(0, kColSymbol, "");
    EXPECT_EQ(StyleOf(0), nullptr);
    Grid.SetCell(0, kColSymbol, " ");
    EXPECT_EQ(StyleOf(0), &Form.sInput);
    Grid.SetCell(0, kColSymbol, Variant());
    Grid.SetCell(0, kColQty, 0.0);
    EXPECT_EQ(StyleOf(0), &Form.sInput);
    EXPECT_EQ(StyleOf(-1), nullptr);
    EXPECT_EQ(StyleOf(99), nullptr);
}

TEST_F(PositionGrid, LoadedRowsNeverHaveTheInputColour) {
    LoadThree();
    for (int Row = 0; Row < 4; ++Row) EXPECT_EQ(StyleOf(Row), nullptr) << Row;
    Grid.SetCell(3, kColSymbol, "X");
    EXPECT_EQ(StyleOf(3), &Form.sInput);
}

TEST_F(PositionGrid, NumbersAreShownByTheHostsFormatter) {
    Host.Subscriptions.AddOption("HSIC100", 100, "C").Set(kFieldDisplayFactor, 100.0);
    Grid.SetCell(0, kColSymbol, " HSIC100 ");
    Grid.SetCell(0, kColPremium, 123.45);
    Grid.SetCell(0, kColStrike, 100.0);
    Grid.SetCell(0, kColQty, 3);
    // The premium goes to the formatter in real units, the strike as it is, the quantity without a symbol.
    EXPECT_EQ(View().GetCellText(0, ColumnIndex(kColPremium)), "1:1.2345");
    EXPECT_EQ(View().GetCellText(0, ColumnIndex(kColStrike)), "1:100");
    EXPECT_EQ(View().GetCellText(0, ColumnIndex(kColQty)), "4:3");
    EXPECT_EQ(Host.Formatter.Calls, (std::vector<support::TFakeFormatter::TCall>{
                                        {1.2345, 1, "HSIC100", true}, {100, 1, "HSIC100", true}, {3, 4, "", true}}));
}

TEST_F(PositionGrid, AZeroPremiumIsShownAndAMissingOneIsBlank) {
    Grid.SetCell(0, kColPremium, 0.0);
    EXPECT_EQ(View().GetCellText(0, ColumnIndex(kColPremium)), "1:0");
    Grid.SetCell(0, kColPremium, Variant());
    for (const int Id : {kColPremium, kColStrike, kColQty, kColSymbol, kColExpiry})
        EXPECT_EQ(View().GetCellText(0, ColumnIndex(Id)), "");
    Grid.SetCell(0, kColExpiry, "2026/12/30");
    EXPECT_EQ(View().GetCellText(0, ColumnIndex(kColExpiry)), "2026/12/30");
}

TEST_F(PositionGrid, ALanguageSwitchRewritesTheTextsThatItTranslatedAndNoOthers) {
    Grid.SetRecordCount(3);
    Grid.FirstInputRow = 1;
    const std::pair<int, const char*> Before[] = {{kColSide, " Sell "},     {kColCallPut, "Put"},
                                                  {kColOpenClose, "Close"}, {kColPrincipal, "House"},
                                                  {kColSymbol, "Buy"},      {kColExpiry, "Call"}};
    for (const auto& [Id, Value] : Before) Grid.SetCell(0, Id, Value);
    Grid.SetCell(0, kColQty, 7);
    Grid.SetCell(1, kColSide, "Buy");
    Grid.SetCell(1, kColCallPut, "Call");
    Grid.SetCell(1, kColOpenClose, "Else");
    for (const char* Key :
         {"Res_Side_Buy", "Res_Side_Sell", "Res_Call", "Res_Put", "Res_OrderClose", "Res_Principal_H"})
        Host.Language.SetText(Key, "new " + Text(Key));

    Grid.UpdateGridContent();
    EXPECT_EQ(Grid.GetCell(0, kColSide), Variant("new Res_Side_Sell"));
    EXPECT_EQ(Grid.GetCell(0, kColCallPut), Variant("new Res_Put"));
    EXPECT_EQ(Grid.GetCell(0, kColOpenClose), Variant("new Res_OrderClose"));
    EXPECT_EQ(Grid.GetCell(0, kColPrincipal), Variant("new Res_Principal_H"));
    EXPECT_EQ(Grid.GetCell(0, kColSymbol), Variant("Buy"));
    EXPECT_EQ(Grid.GetCell(0, kColExpiry), Variant("Call"));
    EXPECT_EQ(Grid.GetCell(0, kColQty), Variant(7));
    EXPECT_EQ(Grid.GetCell(1, kColSide), Variant("new Res_Side_Buy"));
    EXPECT_EQ(Grid.GetCell(1, kColCallPut), Variant("new Res_Call"));
    EXPECT_EQ(Grid.GetCell(1, kColOpenClose), Variant("Else"));
    for (const int Id : {kColSide, kColCallPut, kColOpenClose, kColPrincipal})
        EXPECT_TRUE(Grid.GetCell(2, Id).IsNull());
}

TEST_F(PositionGrid, AFlagKeepsItsValueInAnotherLanguage) {
    Grid.SetCell(0, kColPrincipal, "House");
    Host.Language.SetText("Res_Principal_H", "Haus");
    Grid.UpdateGridContent();
    Flags.UpdatePrincipalTexts();
    EXPECT_EQ(Grid.GetCell(0, kColPrincipal), Variant("Haus"));
    EXPECT_EQ(Flags.GetPrincipalFlag(Grid.GetCell(0, kColPrincipal).AsText()), 12);
}

// A lookup that raises in the middle of a rewrite must not leave the view in an update that nobody ends.
TEST_F(PositionGrid, AFailingLookupLeavesTheViewAwake) {
    Grid.SetCell(0, kColSide, "Buy");
    int Told = 0;
    const auto Link = View().OnColumnsChanged.Connect([&] { ++Told; });
    Host.Journal.OnLine = [](const Text&) { throw std::runtime_error("no texts"); };
    EXPECT_THROW(Grid.UpdateGridHeader(), std::runtime_error);
    EXPECT_THROW(Grid.UpdateGridContent(), std::runtime_error);
    Host.Journal.OnLine = nullptr;
    Told = 0;
    View().GetColumn(0)->SetCaption("anew");
    EXPECT_EQ(Told, 1);
}

TEST_F(PositionGrid, BeforeTheFirstLanguageThereIsNothingToRewrite) {
    Form.epiSide.Items.clear();
    Flags.FOpenCloseDictionary.clear();
    Grid.SetCell(0, kColSide, "Buy");
    Grid.SetCell(0, kColOpenClose, "Open");
    Host.Language.SetText("Res_Side_Buy", "Achat");
    Grid.UpdateGridContent();
    EXPECT_EQ(Grid.GetCell(0, kColSide), Variant("Buy"));
    EXPECT_EQ(Grid.GetCell(0, kColOpenClose), Variant("Open"));
}

TEST_F(PositionGrid, ClearLeavesOneEmptyInputRow) {
    LoadThree();
    Grid.SetCell(0, kColQty, 5);
    Grid.FPendingDeleteRecordIndex = 1;
    SelectMarket();
    Grid.btnClearClick(nullptr);
    EXPECT_EQ(Grid.FirstInputRow, 0);
    EXPECT_EQ(Grid.FPendingDeleteRecordIndex, -1);
    ASSERT_EQ(Grid.GetRecordCount(), 1);
    for (int i = 0; i < View().GetColumnCount(); ++i) EXPECT_TRUE(View().GetDataController().GetValue(0, i).IsNull());
    EXPECT_EQ(StyleOf(0), nullptr);
}

TEST_F(PositionGrid, ClearDropsAnEditorThatIsOpenInTheRow) {
    SelectMarket();
    auto* Editor = View().StartEdit(0, ColumnIndex(kColPremium));
    ASSERT_NE(Editor, nullptr);
    Editor->SetEditText("7");
    Grid.btnClearClick(nullptr);
    EXPECT_EQ(View().GetEditor(), nullptr);
    EXPECT_TRUE(Grid.GetCell(0, kColPremium).IsNull());
}

TEST_F(PositionGrid, TheTickDeletesTheMarkedRowUnlessItIsTheLastOrTheOnlyOne) {
    const struct {
        const char* Why;
        int Count, Mark;
        std::vector<Text> Left, Logged;
    } Cases[] = {{"a middle row", 3, 1, {"S0", "S2"}, {"Res_LogRowRemoved(2)"}},
                 {"the first row", 3, 0, {"S1", "S2"}, {"Res_LogRowRemoved(1)"}},
                 {"the last row stays", 3, 2, {"S0", "S1", "S2"}, {}},
                 {"the only row stays", 1, 0, {"S0"}, {}},
                 {"no mark", 2, -1, {"S0", "S1"}, {}},
                 {"a mark beyond the rows", 2, 9, {"S0", "S1"}, {}}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        Grid.SetRecordCount(Case.Count);
        for (int Row = 0; Row < Case.Count; ++Row) Grid.SetCell(Row, kColSymbol, "S" + std::to_string(Row));
        Grid.FPendingDeleteRecordIndex = Case.Mark;
        Grid.TimerEvent(nullptr);
        EXPECT_EQ(Symbols(), Case.Left);
        EXPECT_EQ(Grid.FPendingDeleteRecordIndex, -1);
        for (const auto& Line : Host.Logged()) EXPECT_EQ(Line.Level, ELogLevel::Info);
        EXPECT_EQ(Host.TakeLog(), Case.Logged);
    }
}

TEST_F(PositionGrid, ATickTakesTheOpenEditorAlongWithItsRecord) {
    SelectMarket();
    Grid.SetRecordCount(3);
    Grid.SetCell(0, kColSymbol, "S0");
    Grid.SetCell(1, kColSymbol, "S1");
    auto* Editor = View().StartEdit(1, ColumnIndex(kColPremium));
    ASSERT_NE(Editor, nullptr);
    Editor->SetEditText("7");
    Grid.FPendingDeleteRecordIndex = 0;
    Grid.TimerEvent(nullptr);
    View().PostEditor();
    EXPECT_EQ(Symbols(), (std::vector<Text>{"S1", ""}));
    EXPECT_EQ(Grid.GetCell(0, kColPremium), Variant(7.0));
    EXPECT_TRUE(Grid.GetCell(1, kColPremium).IsNull());
}

TEST_F(PositionGrid, TheDivisionAndTheMarkMoveWithTheirRows) {
    LoadThree();
    Grid.FPendingDeleteRecordIndex = 2;
    Grid.DeleteRow(1);
    EXPECT_EQ(Symbols(), (std::vector<Text>{"S0", "S2", ""}));
    EXPECT_EQ(Grid.FirstInputRow, 2);  // an input row remains
    EXPECT_EQ(Grid.FPendingDeleteRecordIndex, 1);
    Grid.DeleteRow(1);
    EXPECT_EQ(Grid.FPendingDeleteRecordIndex, -1);
    EXPECT_EQ(Grid.FirstInputRow, 1);
    Grid.FPendingDeleteRecordIndex = 0;
    Grid.DeleteRow(1);
    EXPECT_EQ(Grid.FirstInputRow, 1);
    EXPECT_EQ(Grid.FPendingDeleteRecordIndex, 0);
    Grid.DeleteRow(7);
    EXPECT_EQ(Grid.GetRecordCount(), 1);
}

class TChosen : public TCustomMarketData {
public:
    explicit TChosen(Text Symbol) : FSymbol(std::move(Symbol)) {}
    Text GetSymbol() const override { return FSymbol; }

private:
    Text FSymbol;
};

class SymbolPopup : public PositionGrid {
protected:
    TPopupControl Popup;
    TDataEvent Selected;
    std::function<TSelectedMarket()> MarketNow;
    TObject* Asker = nullptr;
    int Requests = 0;
    std::vector<Text> Chosen;

    void Listen() {
        Host.Channels.Listen(kChannelSymbolPopup, [this](TObject* Record) {
            auto& Request = dynamic_cast<TPopupRequestRecord&>(*Record);
            ++Requests;
            Asker = Request.Owner;
            Selected = Request.OnSelected;
            MarketNow = Request.OnGetMarket;
            Request.Control = &Popup;
        });
    }
    void Catch(TVentiqPositionGrid& Part) {
        Part.OnSelectSymbol = [this](TObject*, TObject* Data) {
            Chosen.push_back(dynamic_cast<TCustomMarketData&>(*Data).GetSymbol());
        };
    }
};

TEST_F(SymbolPopup, IsAskedForOnceAndUsedAgain) {
    Listen();
    Context.FOwner = &Owner;
    Grid.InitializeGrid();
    auto& Properties = PropertiesOf<TcxPopupEditProperties>(kColSymbol);
    EXPECT_EQ(Requests, 1);
    EXPECT_EQ(Asker, &Owner);
    EXPECT_EQ(Properties.PopupControl, &Popup);
    Properties.OnInitPopup(nullptr);
    EXPECT_EQ(Requests, 1);
    Catch(Grid);
    TChosen Data("HSIC100");
    Selected(nullptr, &Data);
    EXPECT_EQ(Chosen, (std::vector<Text>{"HSIC100"}));
}

TEST_F(SymbolPopup, IsAskedForAgainWhenItOpensAndNobodyHadAnswered) {
    auto& Properties = PropertiesOf<TcxPopupEditProperties>(kColSymbol);
    EXPECT_EQ(Properties.PopupControl, nullptr);
    Properties.OnInitPopup(nullptr);
    EXPECT_EQ(Properties.PopupControl, nullptr);
    Listen();
    Properties.OnInitPopup(nullptr);
    EXPECT_EQ(Properties.PopupControl, &Popup);
}

TEST_F(SymbolPopup, AChoiceAfterTheGridIsGoneReachesNobody) {
    Listen();
    {
        TVentiqForm OtherForm;
        TVentiqPositionGrid Other{OtherForm, Context, Texts, Flags};
        Catch(Other);
        Other.InitializeGrid();
    }
    TChosen Data("HSIC100");
    Selected(nullptr, &Data);
    EXPECT_TRUE(Chosen.empty());
}

TEST_F(SymbolPopup, AsksTheViewForTheMarketThatIsChosenNow) {
    Listen();
    {
        TVentiqForm OtherForm;
        TVentiqContext OtherContext;
        TVentiqPositionGrid Other{OtherForm, OtherContext, Texts, Flags};
        Other.InitializeGrid();
        EXPECT_FALSE(MarketNow().IsChosen()) << "no data control yet";
        OtherContext.FMyDataControl = std::make_unique<TCustomVentiqDataControl>(nullptr);
        EXPECT_FALSE(MarketNow().IsChosen());
        OtherContext.FMyDataControl->SetExchange("HKFE");
        OtherContext.FMyDataControl->SetSeries("HSI");
        OtherContext.FMyDataControl->SetMonth("2026-12");
        EXPECT_EQ(MarketNow(), (TSelectedMarket{"HKFE", "HSI", "2026-12"}));
        OtherContext.FMyDataControl->SetMonth("2027-01");
        EXPECT_EQ(MarketNow().Month, "2027-01");
        OtherContext.FMyDataControl.reset();
        EXPECT_EQ(MarketNow(), TSelectedMarket());
    }
    EXPECT_EQ(MarketNow(), TSelectedMarket()) << "the grid is gone";
}

}  // namespace
}  // namespace ventiq
