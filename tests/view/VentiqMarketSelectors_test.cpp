// SPDX-License-Identifier: Apache-2.0
#include "tests/view/PartsFixture.h"

namespace ventiq {

class TMarketSelectors : public TPartsFixture {
protected:
    TVentiqForm& F = Form;
    TCustomVentiqDataControl& Control() { return *Context.FMyDataControl; }
    void PickExchange(const Text& Code) { F.cmbExchange.SetItemIndex(Selectors.FExchangeList.IndexOf(Code)); }
    void PickSeries(const Text& Code) { F.cmbSeries.SetItemIndex(Selectors.FSeriesList.IndexOf(Code)); }
    void PickMonth(const Text& Code) { F.cmbMonth.SetItemIndex(Selectors.FMonthList.IndexOf(Code)); }
    Text Selected() { return Control().GetExchange() + "/" + Control().GetSeries() + "/" + Control().GetMonth(); }
    Text Remembered() {
        return Selectors.FLayoutExchange + "/" + Selectors.FLayoutSeries + "/" + Selectors.FLayoutMonth;
    }
};

TEST_F(TMarketSelectors, TheFirstItemsAreSelectedDownTheCascade) {
    Host.Language.SetText(0, "Exchange", "HKFE", "Futures Exchange");
    Selectors.InitExchangeList();
    EXPECT_EQ(Selected(), "HKFE/HSI/2026-12");
    EXPECT_EQ(F.cmbExchange.GetText(), "HKFE(Futures Exchange)");
    EXPECT_EQ(F.cmbMonth.GetText(), "2026-12");
    EXPECT_EQ(Remembered(), "//") << "a selection made by the program is not remembered";
    EXPECT_FALSE(Selectors.FIsAutoselect);
}

TEST_F(TMarketSelectors, ARememberedChoiceIsLandedOnAgain) {
    Selectors.FLayoutExchange = "XDER";
    Selectors.FLayoutSeries = "DEF";
    Selectors.FLayoutMonth = "2026-12";
    Selectors.InitExchangeList();
    EXPECT_EQ(F.cmbExchange.GetItemIndex(), 1);
    EXPECT_EQ(Selected(), "XDER/DEF/2026-12");
}

TEST_F(TMarketSelectors, ARememberedCodeThatIsNotOfferedFallsBackToTheFirst) {
    Selectors.FLayoutExchange = "GONE";
    Selectors.FLayoutSeries = "GONE";
    Selectors.InitExchangeList();
    EXPECT_EQ(Selected(), "HKFE/HSI/2026-12");
    EXPECT_EQ(Remembered(), "GONE/GONE/");
}

TEST_F(TMarketSelectors, AChoiceOfTheUserIsRememberedWithWhatWasShown) {
    Selectors.InitExchangeList();
    PickSeries("MHI");
    Selectors.FLayoutSeries.clear();
    PickExchange("XDER");
    EXPECT_EQ(Selectors.FLayoutExchange, "XDER");
    EXPECT_EQ(Selectors.FLayoutSeries, "MHI") << "the series shown when the exchange was picked";
}

TEST_F(TMarketSelectors, ARefillOfTheHostReadsButNeverWritesTheRememberedChoice) {
    Selectors.InitExchangeList();
    PickExchange("XDER");
    PickSeries("DEF");
    const Text Before = Remembered();
    Host.Market.AddExchange("XNEW");
    Selectors.MarketListUpdate(nullptr);
    EXPECT_EQ(Remembered(), Before);
    EXPECT_EQ(Selected(), "XDER/DEF/2026-12");
}

TEST_F(TMarketSelectors, AHostReportLeavesTheGuardOffWhateverItWas) {
    Selectors.FIsAutoselect = true;
    Selectors.MarketListUpdate(nullptr);
    EXPECT_FALSE(Selectors.FIsAutoselect);
}

TEST_F(TMarketSelectors, ARefillKeepsAGuardThatWasOn) {
    Selectors.FIsAutoselect = true;
    Selectors.InitExchangeList();
    EXPECT_TRUE(Selectors.FIsAutoselect);
}

TEST_F(TMarketSelectors, AnEmptyMarketEmptiesTheSelection) {
    Selectors.InitExchangeList();
    Host.Market.Clear();
    Selectors.InitExchangeList();
    EXPECT_EQ(Selected(), "//");
    EXPECT_EQ(F.cmbExchange.GetCount(), 0);
    EXPECT_EQ(F.cmbMonth.GetCount(), 0);
}

TEST_F(TMarketSelectors, WhileTheLanguageIsUpdatedChangesDoNothing) {
    Selectors.InitExchangeList();
    const Text Before = Selected();
    Selectors.FUpdatingLanguage = true;
    PickExchange("XDER");
    F.cmbSeries.SetItemIndex(1);
    F.cmbMonth.SetItemIndex(1);
    EXPECT_EQ(Selected(), Before);
}

TEST_F(TMarketSelectors, TheExpiryBoundIsTheSeriesList) {
    Selectors.InitExchangeList();
    PickExchange("XONE");
    ASSERT_EQ(Selectors.FSeriesList.GetCount(), 1);
    ASSERT_EQ(Selectors.FMonthList.GetCount(), 3);
    EXPECT_EQ(Selected(), "XONE/SOLO/2026-12");
    PickMonth("2027-02");
    EXPECT_EQ(Selected(), "XONE/SOLO/2026-12") << "an index beyond the series list selects nothing";
    EXPECT_EQ(F.cmbMonth.GetText(), "2027-02");
}

TEST_F(TMarketSelectors, BeyondTheMonthListTheReadRaises) {
    Selectors.InitExchangeList();
    ASSERT_EQ(Selectors.FSeriesList.GetCount(), 3);
    Selectors.FMonthList = {"2026-12"};
    Selectors.FUpdatingLanguage = true;
    F.cmbMonth.SetItemIndex(1);
    Selectors.FUpdatingLanguage = false;
    EXPECT_THROW(Selectors.cmbExpiryPropertiesChange(nullptr), EListError);
}

TEST_F(TMarketSelectors, AMonthShownBeyondTheFirstIsCarriedOver) {
    Selectors.InitExchangeList();
    Selectors.FLayoutMonth.clear();
    Selectors.FIsAutoselect = true;
    PickMonth("2027-01");
    Selectors.InitMonth();
    EXPECT_EQ(F.cmbMonth.GetText(), "2027-01");
}

TEST_F(TMarketSelectors, AMonthAtTheFirstIndexIsNotCarriedOver) {
    Selectors.InitExchangeList();
    ASSERT_EQ(F.cmbMonth.GetText(), "2026-12");
    Host.Market.AddProduct("HKFE", "HSI", "HSIX6", kProductFuture, "2026/11/27");
    Selectors.FIsAutoselect = true;
    Selectors.InitMonth();
    EXPECT_EQ(F.cmbMonth.GetText(), "2026-11") << "index 0 again, now another month";
}

TEST_F(TMarketSelectors, AMalformedExpiryLeavesTheListEmptyAndTheGuardsReset) {
    Host.Market.AddProduct("XDER", "ABC", "ABCBAD", kProductOption, "2026-12-18", "10", "C");
    Selectors.InitExchangeList();
    PickExchange("XDER");
    EXPECT_EQ(F.cmbMonth.GetCount(), 0);
    EXPECT_EQ(Selected(), "XDER/ABC/");
    EXPECT_FALSE(Selectors.FIsAutoselect);
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
    PickSeries("DEF");
    EXPECT_EQ(Selected(), "XDER/DEF/2026-12") << "the next choice works";
}

TEST_F(TMarketSelectors, TheAccountIsTheEditorsHintNotItsText) {
    F.edtAccount.SetText("ACC9");
    F.edtAccount.SetHint("ACC1");
    char Other = 'x';
    Selectors.edtAccountKeyPress(nullptr, Other);
    EXPECT_EQ(Control().GetAccount(), "");
    char Enter = kKeyEnter;
    Selectors.edtAccountKeyPress(nullptr, Enter);
    EXPECT_EQ(Control().GetAccount(), "ACC1");
    EXPECT_EQ(Enter, kKeyEnter) << "the key is not swallowed";
}

TEST_F(TMarketSelectors, WhoGetsTheAccountEditor) {
    const struct {
        const char* Why;
        int UserType;
        bool Selectable;
        bool Expected;
    } Cases[] = {
        {"type 2 that may choose", 2, true, true},
        {"type 2 that may not", 2, false, false},
        {"another type that may", 1, true, true},
        {"another type that may not", 1, false, true},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Host.Profile.UserType = C.UserType;
        Host.Profile.AccountSelectable = C.Selectable;
        Selectors.RegisterAccountEditor();
        EXPECT_EQ(Host.Editors.IsRegistered(&F.edtAccount), C.Expected);
        Selectors.RemoveAccountEditor();
        EXPECT_FALSE(Host.Editors.IsRegistered(&F.edtAccount));
    }
}

TEST_F(TMarketSelectors, ItemTextsFollowTheLanguageAndKeepTheIndex) {
    Selectors.InitExchangeList();
    PickExchange("XDER");
    Host.Language.SetText(1, "Exchange", "XDER", "Neu");
    Host.Language.Language = 1;
    Selectors.UpdateExchangeTexts();
    EXPECT_EQ(F.cmbExchange.GetText(), "XDER(Neu)");
    EXPECT_EQ(F.cmbExchange.GetItemIndex(), 1);
}

TEST_F(TMarketSelectors, ASeriesWithoutRecordShowsItsBareCode) {
    Host.Market.ForgetSeriesInfo("HSI");
    Selectors.InitExchangeList();
    EXPECT_EQ(F.cmbSeries.GetText(), "HSI");
}

TEST_F(TMarketSelectors, TheMonthShownWhenTheUserPicksASeriesIsLandedOnAgain) {
    Host.Market.AddOptions("HKFE", "HHI", "HHV", "2026/10/29", {"10"});
    Host.Market.AddOptions("HKFE", "HHI", "HHX", "2026/11/27", {"10"});
    Host.Market.AddOptions("HKFE", "HHI", "HHZ", "2026/12/30", {"10"});
    Selectors.InitExchangeList();
    ASSERT_EQ(F.cmbMonth.GetItemIndex(), 0);
    PickSeries("HHI");
    EXPECT_EQ(Remembered(), "/HHI/2026-12") << "also the first month of the list";
    EXPECT_EQ(F.cmbMonth.GetItemIndex(), 2);
    EXPECT_EQ(Selected(), "HKFE/HHI/2026-12");
}

TEST_F(TMarketSelectors, ASeriesPickedByTheProgramCarriesTheFirstMonthNowhere) {
    Host.Market.AddOptions("HKFE", "HHI", "HHV", "2026/10/29", {"10"});
    Host.Market.AddOptions("HKFE", "HHI", "HHZ", "2026/12/30", {"10"});
    Selectors.InitExchangeList();
    Selectors.FIsAutoselect = true;
    PickSeries("HHI");
    EXPECT_EQ(Remembered(), "//");
    EXPECT_EQ(Selected(), "HKFE/HHI/2026-10");
}

TEST_F(TMarketSelectors, AnItemThatIsShownAlreadyIsNoChoice) {
    Selectors.InitExchangeList();
    PickExchange("XDER");
    EXPECT_EQ(Remembered(), "XDER/HSI/2026-12") << "series and month that were shown";
    ASSERT_EQ(Selected(), "XDER/ABC/");
    F.cmbSeries.SetItemIndex(0);
    EXPECT_EQ(Remembered(), "XDER/HSI/2026-12");
    PickSeries("DEF");
    EXPECT_EQ(Remembered(), "XDER/DEF/2026-12");
}

TEST_F(TMarketSelectors, AViewThatNobodyTouchedFollowsTheFirstExchange) {
    Selectors.InitExchangeList();
    Host.ExchangeComparer.Sorted = true;
    Host.Market.AddExchange("AAA");
    Selectors.MarketListUpdate(nullptr);
    EXPECT_EQ(Selected(), "AAA//");
    EXPECT_EQ(Remembered(), "//");
}

}  // namespace ventiq
