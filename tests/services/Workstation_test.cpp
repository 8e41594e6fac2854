// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <fstream>

#include "framework/base/Errors.h"
#include "tests/services/ServiceFixture.h"

namespace ws {

class TWorkstationTest : public TServiceFixture {
protected:
    // Asks for a symbol's data and lets them come.
    void Watch(const std::string& Symbol) {
        Station->Subscriptions().Request(Symbol);
        Station->Pump();
    }
};

TEST_F(TWorkstationTest, InstallsEveryServiceForItsLifetime) {
    EXPECT_THROW(fw::TCustomMarketAdapter::GetInstance(), fw::EServiceMissing);
    Open();
    EXPECT_EQ(&fw::TCustomMarketAdapter::GetInstance(), &Station->Market());
    EXPECT_NO_THROW(fw::TCustomConfigManager::GetInstance());
    EXPECT_NO_THROW(fw::TCustomLanguageManager::GetInstance());
    EXPECT_NO_THROW(fw::TCustomUserAppProfile::GetInstance());
    EXPECT_NO_THROW(fw::TCustomLookAndFeelService::GetInstance());
    EXPECT_NO_THROW(fw::TCustomTimerControl::GetInstance());
    EXPECT_NO_THROW(fw::TCustomGlobalChannelManager::GetInstance());
    EXPECT_NO_THROW(fw::TEditorManager::GetInstance());
    EXPECT_NO_THROW(fw::TCustomSubscribeAdapter::GetInstance());
    EXPECT_NO_THROW(fw::TCustomPositionAdapter::GetInstance());
    EXPECT_NO_THROW(fw::TCustomOrderAdapter::GetInstance());
    EXPECT_EQ(&fw::TCustomOrderActionManager::GetInstance(), &Station->OrderActions());
    EXPECT_NO_THROW(fw::TCustomMessageBoxCtrl::GetInstance());
    EXPECT_NO_THROW(fw::TCustomFormatter::GetInstance());
    EXPECT_NO_THROW(fw::TCustomExchangeListComparer::GetInstance());
    EXPECT_NO_THROW(fw::TCustomSeriesComparer::GetInstance());
    Station.reset();
    EXPECT_THROW(fw::TCustomMarketAdapter::GetInstance(), fw::EServiceMissing);
}

TEST_F(TWorkstationTest, TheSampleMarketIsThereAfterTheFirstStart) {
    Open();
    auto& Market = Station->Market();
    EXPECT_EQ(Market.GetExchangeCode(0), "HKFE");
    EXPECT_EQ(Market.GetExchangeCode(999), "");
    EXPECT_TRUE(Market.IsExchangeSupported("HKFE"));
    EXPECT_FALSE(Market.IsExchangeSupported("XOTC"));
    EXPECT_FALSE(Market.IsExchangeSupported("NOWHERE"));
    EXPECT_EQ(Market.GetSeriesCode("HKFE", 0), "HSI");
    EXPECT_EQ(Market.GetSeriesInfo("HSI")->GetDefaultName(), "Hang Seng Index");
    EXPECT_EQ(Market.GetSeriesInfo("NONE"), nullptr);
    auto* Product = Market.GetProductBySymbol("HSI26400L6");
    ASSERT_TRUE(Product);
    EXPECT_EQ(Product->GetStrikePrice(), "26400");
    EXPECT_EQ(Product->GetSeries(), "HSI");
    EXPECT_EQ(Market.GetProduct("HKFE", "HSI", -1), nullptr);
    EXPECT_EQ(Market.GetSpreadTable("NONE"), nullptr);
    ASSERT_TRUE(Market.GetSpreadTable("INDEX"));
    EXPECT_EQ(Market.GetSpreadTable("INDEX")->GetKind(), 1);
}

TEST_F(TWorkstationTest, ListsAreSortedAsTheMarketListsThem) {
    Open();
    fw::TStringList Exchanges{"XDER", "HKFE", "UNKNOWN"};
    fw::TCustomExchangeListComparer::GetInstance().Sort(&Exchanges);
    EXPECT_EQ(Exchanges, (fw::TStringList{"HKFE", "XDER", "UNKNOWN"}));
    EXPECT_NO_THROW(fw::TCustomExchangeListComparer::GetInstance().Sort(nullptr));
    fw::TStringList Series{"HHI", "MHI", "HSI"};
    fw::TCustomSeriesComparer::GetInstance().Sort("HKFE", &Series);
    EXPECT_EQ(Series, (fw::TStringList{"HSI", "MHI", "HHI"}));
}

TEST_F(TWorkstationTest, UsersDiffer) {
    const struct {
        const char* User;
        int Type;
        bool Selectable;
        bool Right;
        bool PayOff;
    } Cases[] = {{"trader", 2, true, true, true},
                 {"fixed", 2, false, true, true},
                 {"norights", 2, true, false, true},
                 {"nopayoff", 2, true, true, false}};
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.User);
        Open(C.User);
        auto& Profile = fw::TCustomUserAppProfile::GetInstance();
        EXPECT_EQ(Profile.GetUserType(), C.Type);
        EXPECT_EQ(Profile.IsAccountSelectable(), C.Selectable);
        EXPECT_EQ(Profile.HasRight("OEOpenC"), C.Right);
        EXPECT_EQ(Profile.IsFunctionEnabled("PayOff"), C.PayOff);
    }
    Open();
    EXPECT_EQ(Station->User().Code, "nopayoff") << "the last one is remembered";
    Open("nobody");
    EXPECT_EQ(Station->User().Code, "trader");
    EXPECT_TRUE(std::any_of(Station->Notices().begin(), Station->Notices().end(),
                            [](const auto& N) { return N.Key == "Res_UserUnknown"; }));
}

TEST_F(TWorkstationTest, TheUsersAccountIsPreselected) {
    Open("trader");
    fw::TPopupEdit Editor;
    int Exits = 0;
    Editor.OnExit = [&](fw::TObject*) { ++Exits; };
    auto& Editors = fw::TEditorManager::GetInstance();
    Editors.RegisterAccountEditor(&Editor, "", false, true);
    EXPECT_TRUE(Editor.IsEnabled());
    EXPECT_EQ(Editor.GetHint(), "A100");
    EXPECT_EQ(Exits, 1) << "so that the view learns of it";
    EXPECT_EQ(Editor.GetChoices().size(), 3u);
    Editor.Choose(1);
    Editors.RegisterAccountEditor(&Editor, "G", false, true);
    EXPECT_EQ(Editor.GetHint(), "A200") << "registering again keeps the account";
    Editors.SetAccountLayoutAccount(&Editor, "H001");
    EXPECT_EQ(Editor.GetHint(), "H001");
    Editors.SetAccountLayoutAccount(&Editor, "NONE");
    EXPECT_EQ(Editor.GetHint(), "H001");
    Station->SetUser("norights");
    EXPECT_EQ(Editor.GetHint(), "A200") << "the new user does not have the account";
    Editors.RemoveAccountEditor(&Editor);
    Editors.RemoveAccountEditor(&Editor);
    EXPECT_FALSE(Editor.IsEnabled());
    EXPECT_FALSE(Station->HasOwners());
}

TEST_F(TWorkstationTest, SymbolsAreConvertedToTheExchangesForm) {
    Open();
    auto& Editors = fw::TEditorManager::GetInstance();
    const auto Stock = Editors.GetConvertSymbol("00005");
    EXPECT_TRUE(Station->Market().FindProduct(Stock)) << Stock;
    EXPECT_EQ(Editors.GetConvertSymbol(Stock), Stock);
    EXPECT_EQ(Editors.GetConvertSymbol("00016"), "00016");
    EXPECT_EQ(Editors.GetConvertSymbol("SPX   230217C04100000"), "SPX230217C04100000");
    for (const char* Typed : {"EQX   261218C00450000", "eqx 261218 c 450", "EQX261218C00450000"})
        EXPECT_EQ(Editors.GetConvertSymbol(Typed), "EQX261218C00450000") << Typed;
    EXPECT_TRUE(Station->Market().FindProduct("EQX261218C00450000"));
}

// A damaged layout text named one column more often than the grid has columns, and the reader ran past the last one.
// Unknown and repeated columns are passed over now.
TEST_F(TWorkstationTest, AColumnLayoutIsAppliedWhateverItNames) {
    Open();
    fw::TGridTableView Grid;
    for (int Tag : {0, 11, 28}) {
        auto& Column = Grid.CreateColumn();
        Column.Tag = Tag;
        Column.SetWidth(50);
    }
    auto& Editors = fw::TEditorManager::GetInstance();
    Editors.SetGridColumnLayout(&Grid, "28,70,1;28,90,0;77,10,1;0,60,0;;x,1,1;28;28;28", nullptr);
    EXPECT_EQ(Editors.GetGridColumnLayout(&Grid, nullptr), "28,70,1;0,60,0;11,50,1");
    Editors.SetGridColumnLayout(&Grid, "", nullptr);
    EXPECT_EQ(Editors.GetGridColumnLayout(&Grid, nullptr), "28,70,1;0,60,0;11,50,1");
}

TEST_F(TWorkstationTest, PricesAreWrittenAsTheirSymbolIsQuoted) {
    Open();
    auto& Formatter = fw::TCustomFormatter::GetInstance();
    const struct {
        const char* Why;
        double Value;
        int Kind;
        const char* Symbol;
        const char* Expected;
    } Cases[] = {
        {"an index option has no decimals", 1234, 1, "HSI26400L6", "1,234"},
        {"typed decimals are not hidden", 120.5, 1, "HSI26400L6", "120.5"},
        {"a factor of 100", 4.0610, 1, "CPRZ26", "406.10"},
        {"without a symbol", 26400, 1, "", "26,400.00"},
        {"an unknown symbol", 1.5, 1, "NOBODY", "1.50"},
        {"an amount", -12345.678, 3, "", "-12,345.68"},
        {"no negative zero", -0.0001, 3, "", "0.00"},
        {"a quantity", 2000000, 4, "", "2,000,000"},
        {"part of a contract", 0.5, 4, "", "0.5"},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        EXPECT_EQ(Formatter.FormatValue(C.Value, static_cast<uint8_t>(C.Kind), C.Symbol), C.Expected);
    }
    EXPECT_EQ(Formatter.FormatPrice(25873.45678), "25,873.46");
    EXPECT_EQ(Formatter.FormatPrice(1.23456789), "1.2346");
}

TEST_F(TWorkstationTest, LanguageAndSkinAreRemembered) {
    Open();
    Station->SetLanguage(kLanguageTraditional);
    Station->SetSkin("Dark");
    Open();
    EXPECT_EQ(Station->Language().GetLanguage(), kLanguageTraditional);
    EXPECT_EQ(Station->LookAndFeel().GetSkinName(), "Dark");
    fw::Text Name;
    Station->Language().GetResourceString(Name, "Currency", "HKD", 3, 0, nullptr);
    EXPECT_NE(Name, "HKD");
    Station->Language().GetResourceString(Name, "Currency", "XYZ", 3, 0, nullptr);
    EXPECT_EQ(Name, "XYZ") << "an unknown key is its own text";
}

TEST_F(TWorkstationTest, ASkinBringsItsColours) {
    Open();
    auto& Config = Station->Config();
    for (const char* Key : {"coPayOffAlertSeriesColor", "coPayOffInputRowBgColor"}) {
        Station->SetSkin("Light");
        EXPECT_NE(Config.ReadString(Station->LookAndFeel().GetSkinName(), Key), "");
        const auto Light = Station->LookAndFeel().GetSkinColor(0, Key);
        Station->SetSkin("Dark");
        EXPECT_NE(Station->LookAndFeel().GetSkinColor(0, Key), Light);
    }
    EXPECT_EQ(Station->LookAndFeel().GetSkinColor(0, "no such key"), fw::kColorRed);
    EXPECT_EQ(Config.ReadString("nowhere", "nothing"), "");
    EXPECT_EQ(Config.ReadInteger("nowhere", "nothing"), 0);
}

TEST_F(TWorkstationTest, AnImportIsShownToEveryView) {
    Open();
    fw::TObject View;
    int Reports = 0;
    Station->Market().AddExchangeUpdateHandler([&](fw::TObject*, fw::TObject*) { ++Reports; }, &View);
    auto& Early = Item("ABC230217C00100000");
    Station->Subscriptions().Subscribe(
        &Early, [](fw::TObject*, fw::TObject*) {}, &View);
    Station->Pump();
    EXPECT_EQ(Early.GetState(), fw::kItemNoData);

    const auto File = Folder / "chain.csv";
    std::ofstream(File)
        << "\nAlpha Beta Index,Last: 101.5,Change: 0\n\"Date: February 3, 2023 at 11:24 PM EST\",Bid: 1,Ask: 2\n"
           "Expiration Date,Calls,Last Sale,Net,Bid,Ask,Volume,IV,Delta,Gamma,Open Interest,Strike,Puts,Last "
           "Sale,Net,Bid,Ask,"
           "Volume,IV,Delta,Gamma,Open Interest\n"
           "Fri Feb 17 "
           "2023,ABC230217C00100000,7.5,0,2.9,3.1,0,0,0,0,0,100.00,ABC230217P00100000,1.5,0,1.4,1.6,0,0,0,0,0\n";
    const auto Report = Station->ImportChain(File, {}, false);
    EXPECT_TRUE(Report.Applied);
    EXPECT_EQ(Report.Changes.Products.size(), 2u);
    EXPECT_EQ(Reports, 1);
    Station->Pump();
    EXPECT_EQ(Early.GetState(), fw::kItemReady) << "what was asked for is asked again";
    EXPECT_EQ(Early.GetFieldValue(fw::kFieldMultiplier), 100.0);
    EXPECT_EQ(Early.GetFieldValue(fw::kFieldReferencePrice), 3.0) << "the middle of bid and ask, not the last trade";
    Station->Market().RemoveExchangeUpdateHandler(&View);
    Station->Subscriptions().Unsubscribe(&Early, &View);

    Station->ResetSample();
    EXPECT_TRUE(Station->Market().FindProduct("ABC230217C00100000")) << "a reset keeps what was imported";
}

TEST_F(TWorkstationTest, AFileThatIsNoChainChangesNothing) {
    Open();
    const auto File = Folder / "letter.csv";
    std::ofstream(File) << "Dear Sir,\n";
    const int Exchanges = Station->Market().GetExchangeCount();
    EXPECT_THROW(Station->ImportChain(File, {}, true), EMarketRefusal);
    EXPECT_EQ(Station->Market().GetExchangeCount(), Exchanges);
}

TEST_F(TWorkstationTest, InMemoryNothingReachesTheFile) {
    Open();
    Station->SetLanguage(kLanguageSimplified);
    Station.reset();
    auto Copy = Options();
    Copy.InMemory = true;
    {
        TWorkstation Other(Copy);
        EXPECT_EQ(Other.Language().GetLanguage(), kLanguageSimplified);
        Other.SetLanguage(kLanguageEnglish);
    }
    Open();
    EXPECT_EQ(Station->Language().GetLanguage(), kLanguageSimplified);
}

TEST_F(TWorkstationTest, AStartAfterTheFirstExpiryRollsTheSampleForward) {
    Open();
    Station.reset();
    fw::TClock::Fix(At(2027, 3, 2));
    Open();
    EXPECT_TRUE(std::any_of(Station->Notices().begin(), Station->Notices().end(),
                            [](const auto& N) { return N.Key == "Res_SampleRolled"; }));
    EXPECT_NE(Station->Store().CurrentSampleSymbol("HSIZ6"), "HSIZ6");
    EXPECT_TRUE(Station->Market().FindProduct(Station->Store().CurrentSampleSymbol("HSIZ6")));
}

TEST_F(TWorkstationTest, PositionsComeWithTheirMarketData) {
    Open();
    fw::TPositionDictionary Positions;
    fw::TCustomPositionAdapter::GetInstance().GetPositionList("A100", Positions);
    ASSERT_TRUE(Positions.count("HSI27000L6"));
    EXPECT_EQ(Positions["HSI27000L6"]->GetQty(), -3.0);
    EXPECT_EQ(Positions["HSI27000L6"]->GetSubItem(), &Item("HSI27000L6"));
    EXPECT_EQ(Positions["HSI27000L6"]->GetAvgPrice(), 352.0);
}

TEST_F(TWorkstationTest, APriceStepTableThatIsNoneIsNamedAndLeftOut) {
    TMarketService Market;
    TMarketSet Set;
    Set.SpreadBands = {{"GOOD", 1, 0, 0.5}, {"GOOD", 1, 10, 1}, {"BAD", 1, 10, 1}, {"BAD", 1, 5, 1}};
    Market.Load(std::move(Set));
    EXPECT_EQ(Market.GetSpreadTable("BAD"), nullptr);
    EXPECT_EQ(Logged, std::vector<fw::Text>{"Res_SpreadTableOrder"});
    ASSERT_TRUE(Market.GetSpreadTable("GOOD"));
    EXPECT_EQ(Market.GetSpreadTable("GOOD")->SnapPrice(10, 1), 11.0);
    EXPECT_EQ(Market.GetSpreadTable("GOOD")->SnapPrice(10, -1), 9.5);
    double Upper = 0.0, Lower = 0.0;
    EXPECT_EQ(Market.GetSpreadTable("GOOD")->StepUp(3, Upper, Lower), 0.5);
    EXPECT_EQ(Upper, 10.0);
    EXPECT_EQ(Lower, 0.0);
}

TEST_F(TWorkstationTest, ARefusedPriceStepTableIsToldWithFileAndLine) {
    auto Edited = Options();
    Edited.SampleFolder = Folder / "sample";
    std::filesystem::copy(VENTIQ_SAMPLE_FOLDER, Edited.SampleFolder);
    std::ofstream(Edited.SampleFolder / "price-steps.csv", std::ios::app) << "FX5,1,0,1\n";
    Station = std::make_unique<TWorkstation>(Edited);
    ASSERT_EQ(Station->Notices().size(), 1u);
    const auto& Notice = Station->Notices()[0];
    EXPECT_TRUE(Notice.Warning);
    const fw::Text Said = Station->Language().Resource(Notice.Key, Notice.Args);
    EXPECT_TRUE(Said.starts_with("price-steps.csv, line " + Notice.Args[1] + ": ")) << Said;
    EXPECT_NE(Said.find("FX5"), fw::Text::npos);
    auto* Product = Station->Market().GetProductBySymbol("EURZ26");
    ASSERT_TRUE(Product) << "listed all the same";
    EXPECT_EQ(Product->GetSpreadCode(), "FX5");
    EXPECT_EQ(Station->Market().GetSpreadTable("FX5"), nullptr);
    EXPECT_TRUE(Station->Market().GetSpreadTable("FX4"));
    EXPECT_TRUE(Logged.empty());
}

// The sample's contracts that a view meets in another way than most.
TEST_F(TWorkstationTest, WhatTheMarketDataSayOnTheirOwn) {
    Open();
    auto& Market = Station->Market();
    for (const char* Symbol : {"HSI31200L6", "HSICASH", "GDUZ6", "00019", "DHSZ6", "OILF27"}) Watch(Symbol);
    EXPECT_EQ(Market.GetProductBySymbol("HSI31200L6"), nullptr) << "quoted, but not in the contract list";
    for (int i = 0; i < Market.GetProductCount("HKFE", "HSI"); ++i)
        EXPECT_NE(Market.GetProduct("HKFE", "HSI", i)->GetSymbol(), "HSI31200L6");
    EXPECT_TRUE(Market.FindProduct("HSI31200L6"));
    const struct {
        const char* Symbol;
        int Field;
        const char* Expected;
    } Cases[] = {
        {"HSI31200L6", fw::kFieldExchange, "HKFE"},
        {"HSI31200L6", fw::kFieldSeries, "HSI"},
        {"HSI31200L6", fw::kFieldExpiry, "2026/12/30"},
        {"HSI31200L6", fw::kFieldProductType, "3"},
        {"HSI31200L6", fw::kFieldStrike, "31200"},
        {"HSI31200L6", fw::kFieldLotSize, "5"},
        {"HSI31200L6", fw::kFieldSpreadCode, "INDEX"},
        {"HSICASH", fw::kFieldExpiry, "none"},
        {"GDUZ6", fw::kFieldSpreadCode, "GOLD"},
        {"GDUZ6", fw::kFieldLotSize, "0"},
        {"00019", fw::kFieldSpreadCode, "STOCK"},
        {"DHSZ6", fw::kFieldSpreadCode, "DIVIDEND"},
        {"OILF27", fw::kFieldLotSize, ""},
    };
    for (const auto& C : Cases) EXPECT_EQ(Item(C.Symbol).GetFieldText(C.Field), C.Expected) << C.Symbol;
    ASSERT_TRUE(Market.GetProductBySymbol("GDUZ6"));
    EXPECT_EQ(Market.GetProductBySymbol("GDUZ6")->GetSpreadCode(), "") << "field 73 alone names it";
    EXPECT_EQ(Item("00019").GetState(), fw::kItemReady);
    EXPECT_FALSE(Item("00019").HasField(fw::kFieldReferencePrice));
    EXPECT_EQ(Market.GetSpreadTable("DIVIDEND")->GetKind(), 2);
    EXPECT_EQ(Market.GetSpreadTable("DIVIDEND")->SnapPrice(1.003, 1), 1.003);
}

TEST_F(TWorkstationTest, OrderOptionsComeByExchange) {
    Open();
    auto& Orders = fw::TCustomOrderAdapter::GetInstance();
    EXPECT_EQ(Orders.GetOrderOptionCount("XRUN"), 1);
    EXPECT_EQ(Orders.GetOrderOption("XRUN", 0), "Close");
    EXPECT_EQ(Orders.GetOrderOption("XRUN", 1), "");
    EXPECT_EQ(Orders.GetOrderOptionCount("NOWHERE"), 0);
    EXPECT_NE(Orders.CreateClientOrder()->GetLineId(), Orders.CreateClientOrder()->GetLineId());
}

}  // namespace ws
