// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqView.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

#include "registration/VentiqConstDef.h"
#include "tests/support/FakeHost.h"
#include "tests/support/Golden.h"

namespace ventiq {
namespace {

using support::MatchesGolden;

class Frame : public testing::Test {
protected:
    support::TFakeHost Host;
    std::optional<TVentiqFrame> View;

    Frame() {
        Host.FailOnLeftovers = true;
        Host.Market.AddOptions("HKFE", "HSI", "HSI", "2026/12/30", {"100", "110", "120"});
        Host.Market.AddSeries("HKFE", "HHI");
        for (const char* Strike : {"100", "110", "120"})
            for (const char* Type : {"C", "P"})
                Host.Subscriptions.AddOption("HSI" + Text(Type) + Strike, *TextToFloat(Strike), Type)
                    .Set(kFieldCurrency, "HKD");
        Host.Language.SetText(0, kTagCurrency, "HKD", "Dollar");
    }

    template <class T>
    T& Find(const char* Name) {
        return *View->FindControl<T>(Name);
    }
    TGridTableView& Positions() { return Find<TGridTableView>("PositionGridView"); }
    void Put(int Row, int Column, const Variant& Value) {
        Positions().GetDataController().SetValue(Row, Column, Value);
    }
    Variant Cell(int Row, int Column) { return Positions().GetDataController().GetValue(Row, Column); }
    int Accounts() const { return Host.Journal.Count("Editors.RegisterAccountEditor(, false, true)"); }
};

TEST_F(Frame, IsBuiltAndTakenDownInTheHostsOrder) {
    Host.Journal.RecordReads = true;
    View.emplace();
    EXPECT_TRUE(MatchesGolden("view/golden/construction", Host.Journal.Take()));
    View.reset();
    EXPECT_TRUE(MatchesGolden("view/golden/destruction", Host.Journal.Take()));
}

TEST_F(Frame, SwitchesItsLanguageInTheHostsOrder) {
    View.emplace();
    Put(0, 0, "HSIC100");
    Put(0, 1, "Res_Side_Buy");
    Put(0, 2, "Res_Call");
    Host.Journal.Clear();
    Host.Journal.RecordReads = true;
    View->SetLanguage(0);
    EXPECT_TRUE(MatchesGolden("view/golden/language", Host.Journal.Take()));
}

TEST_F(Frame, StartsWithOneEmptyRowAnEmptyChartAndTheFirstMarket) {
    View.emplace();
    EXPECT_EQ(Positions().GetDataController().GetRecordCount(), 1);
    EXPECT_EQ(Positions().GetCellStyle(0, 0), nullptr);
    for (const auto* Series : Find<TChart>("DataChart").Series()) EXPECT_EQ(Series->GetCount(), 0);
    EXPECT_EQ(Find<TComboBox>("cmbExchange").GetText(), "HKFE(HKFE)");
    EXPECT_EQ(Find<TComboBox>("cmbSeries").GetItemIndex(), 0);
    EXPECT_EQ(Find<TComboBox>("cmbMonth").GetText(), "2026-12");
    EXPECT_EQ(Find<TSpinEdit>("edtDown").GetFloat(), 100);
    EXPECT_EQ(Find<TSpinEdit>("edtUp").GetFloat(), 120);
    EXPECT_EQ(Find<TSpinEdit>("edtInterval").GetFloat(), 10);
    EXPECT_EQ(View->GetViewCaptionButtons()->size(), 2u);
    EXPECT_EQ(View->GetViewCaptionButtonImageList()->GetCount(), 4);
    ASSERT_NE(View->GetLayout(), nullptr);
    EXPECT_NE(View->GetHintController(), nullptr);
    EXPECT_TRUE(Find<TButton>("btnCalc").CanClick() && Find<TButton>("btnClear").CanClick());
}

TEST_F(Frame, WithoutAMarketTheSelectorsAreEmpty) {
    Host.Market.Clear();
    View.emplace();
    for (const char* Name : {"cmbExchange", "cmbSeries", "cmbMonth"}) EXPECT_EQ(Find<TComboBox>(Name).GetCount(), 0);
    Host.Market.AddOptions("HKFE", "HSI", "HSI", "2026/12/30", {"100"});
    Host.Market.FireExchangeUpdate();
    EXPECT_EQ(Find<TComboBox>("cmbMonth").GetText(), "2026-12");
}

// What a service raises at any of its calls leaves nothing registered behind. A call from inside a control's event ends
// at that control, and the frame stands.
TEST_F(Frame, AFailureAtAnyHostCallLeavesNothingBehind) {
    int Calls = 0;
    Host.Journal.OnLine = [&](const Text&) { ++Calls; };
    View.emplace();
    const int Total = Calls;
    View.reset();
    ASSERT_GT(Total, 60);
    int Failed = 0, Caught = 0;
    for (int At = 1; At <= Total; ++At) {
        Text Where;
        Calls = 0;
        Host.Journal.OnLine = [&](const Text& Line) {
            if (++Calls != At) return;
            Where = Line;
            throw std::runtime_error("service down");
        };
        try {
            View.emplace();
            ++Caught;
            EXPECT_EQ(Host.TakeErrors().size(), 1u) << Where;
            View.reset();
        } catch (const std::runtime_error& E) {
            ++Failed;
            EXPECT_STREQ(E.what(), "service down");
        }
        Host.Journal.OnLine = nullptr;
        EXPECT_TRUE(Host.Leftovers().empty()) << At << " " << Where << ": " << Host.Leftovers().front();
        EXPECT_EQ(Host.TakeErrors(), std::vector<Text>{}) << Where;
        Host.Journal.Clear();
    }
    EXPECT_GT(Failed, 30);
    EXPECT_GT(Caught, 0);
}

TEST_F(Frame, AFailingServiceDoesNotKeepTheOthersFromBeingLetGo) {
    View.emplace();
    Host.Journal.OnLine = [](const Text& Line) {
        if (Line == "Editors.RemoveAccountEditor()") throw std::runtime_error("gone");
    };
    View.reset();
    Host.Journal.OnLine = nullptr;
    EXPECT_TRUE(Host.Leftovers().empty());
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
}

TEST_F(Frame, AnInterruptedConstructionStillTellsTheAccountEditor) {
    Host.Journal.OnLine = [](const Text& Line) {
        if (Line == "Timer.AddTimerEvent()") throw std::runtime_error("down");
    };
    EXPECT_THROW(View.emplace(), std::runtime_error);
    Host.Journal.OnLine = nullptr;
    EXPECT_EQ(Host.Journal.Count("Editors.RemoveAccountEditor()"), 1);
    EXPECT_EQ(Host.Journal.Count("LookAndFeel.RemoveLookAndFeelChangedEvent()"), 1);
}

TEST_F(Frame, AMalformedExpiryLeavesTheMonthsEmptyAndTheFrameStands) {
    Host.Market.AddProduct("HKFE", "HSI", "HSIBAD", kProductOption, "30.12.2026", "100");
    View.emplace();
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
    EXPECT_EQ(Find<TComboBox>("cmbMonth").GetCount(), 0);
    EXPECT_EQ(Find<TComboBox>("cmbSeries").GetItemIndex(), 0);
    // The guards are off again: a choice is recorded and works.
    Find<TComboBox>("cmbSeries").SetItemIndex(1);
    EXPECT_TRUE(Host.ErrorsLogged().empty());
}

struct TAccountCase {
    int UserType;
    bool Selectable, Registered;
};

TEST_F(Frame, ServesTheAccountEditorUnlessTheUserMayNotChoose) {
    const TAccountCase Cases[] = {{2, true, true}, {2, false, false}, {1, true, true}, {1, false, true}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(testing::Message() << Case.UserType << Case.Selectable);
        Host.Profile.UserType = Case.UserType;
        Host.Profile.AccountSelectable = Case.Selectable;
        Host.Journal.Clear();
        View.emplace();
        EXPECT_EQ(Accounts(), Case.Registered ? 1 : 0);
        EXPECT_TRUE(View->SetGroupID("G1"));
        EXPECT_TRUE(View->SetGroupID("G1"));
        EXPECT_EQ(Host.Journal.Count("Editors.RegisterAccountEditor(G1, false, true)"), Case.Registered ? 1 : 0);
        View.reset();
        // Also for an editor that was never registered.
        EXPECT_EQ(Host.Journal.Count("Editors.RemoveAccountEditor()"), 1);
    }
}

TEST_F(Frame, KeepsItsGroup) {
    View.emplace();
    Text Group = "x";
    EXPECT_TRUE(View->SetGroupID(""));
    EXPECT_EQ(Accounts(), 1);
    EXPECT_TRUE(View->SetGroupID("G2"));
    EXPECT_TRUE(View->GetGroupID(Group));
    EXPECT_EQ(Group, "G2");
}

TEST_F(Frame, TranslatesIntoTheCurrentLanguageWhateverItIsTold) {
    View.emplace();
    Put(0, 0, "HSIC100");
    Put(0, 1, "Res_Side_Sell");
    Put(0, 2, "Res_Put");
    const Text Hint = (*View->GetViewCaptionButtons())[0]->Hint;
    for (const char* Key : {"Res_Calculate", "Res_Side_Sell", "Res_Put", "Res_PL", "Res_Less", "Res_More",
                            "Res_OrderPrice", "Res_Symbol"})
        Host.Language.SetText(3, Const::ResourceStringTag, Key, "3 " + Text(Key));
    Host.Language.SetText(3, kTagExchange, "HKFE", "Futures");

    EXPECT_TRUE(View->SetLanguage(7));
    EXPECT_EQ(Find<TButton>("btnCalc").GetCaption(), "Res_Calculate");
    Host.Language.Language = 3;
    Host.Journal.Clear();
    EXPECT_TRUE(View->SetLanguage(7));
    EXPECT_EQ(Find<TButton>("btnCalc").GetCaption(), "3 Res_Calculate");
    EXPECT_EQ(Positions().GetColumn(0)->GetCaption(), "3 Res_Symbol");
    EXPECT_EQ(Find<TGridTableView>("DetailGridView").GetColumn(0)->GetCaption(), "3 Res_OrderPrice");
    EXPECT_EQ(Find<TChart>("DataChart").GetTitle(), "3 Res_PL");
    EXPECT_EQ(Cell(0, 1), Variant("3 Res_Side_Sell"));
    EXPECT_EQ(Cell(0, 2), Variant("3 Res_Put"));
    EXPECT_EQ(Cell(0, 0), Variant("HSIC100"));
    EXPECT_EQ(Find<TComboBox>("cmbExchange").GetText(), "HKFE(Futures)");
    EXPECT_EQ(Find<TComboBox>("cmbExchange").GetItemIndex(), 0);
    // Hints of the caption buttons wait for the next click.
    EXPECT_EQ((*View->GetViewCaptionButtons())[0]->Hint, Hint);
    (*View->GetViewCaptionButtons())[0]->OnClick(nullptr);
    EXPECT_EQ((*View->GetViewCaptionButtons())[0]->Hint, "3 Res_More");
}

TEST_F(Frame, RewritingTheSelectorsChoosesNothing) {
    View.emplace();
    int Changes = 0;
    auto& Exchange = Find<TComboBox>("cmbExchange");
    auto& Series = Find<TComboBox>("cmbSeries");
    Series.SetItemIndex(1);
    const auto Count = [&] { ++Changes; };
    const auto Link1 = Exchange.OnIndexChanged.Connect(Count), Link2 = Series.OnIndexChanged.Connect(Count);
    Host.Language.Language = 1;
    View->SetLanguage(1);
    EXPECT_EQ(Changes, 0);
    EXPECT_EQ(Series.GetItemIndex(), 1);
}

// A renderer may answer new items with a selection of its own.
TEST_F(Frame, ASelectionMadeWhileItemsAreRewrittenMovesNoMarket) {
    View.emplace();
    auto& Series = Find<TComboBox>("cmbSeries");
    const auto Link = Series.OnItemsChanged.Connect([&] { Series.SetItemIndex(1); });
    View->SetLanguage(0);
    EXPECT_EQ(Series.GetItemIndex(), 1);
    EXPECT_EQ(Find<TComboBox>("cmbMonth").GetText(), "2026-12") << "the months of the series before";
}

TEST_F(Frame, ALanguageThatFailsHalfwayLeavesTheSelectorsAlive) {
    View.emplace();
    Host.Journal.OnLine = [](const Text& Line) {
        if (Line == "Language.GetResourceString(Exchange, HKFE)") throw std::runtime_error("no texts");
    };
    EXPECT_THROW(View->SetLanguage(0), std::runtime_error);
    Host.Journal.OnLine = nullptr;
    Find<TComboBox>("cmbSeries").SetItemIndex(1);
    EXPECT_EQ(Find<TComboBox>("cmbMonth").GetCount(), 0) << "the choice is followed: no months there";
}

TEST_F(Frame, FollowsConfigurationSkinTimerAndChannels) {
    View.emplace();
    Host.Config.Set("OMS_TRADEPLATFORM", "ScaleSize", "130");
    Host.Config.Set("Light", "coPayOffInputRowBgColor", "x");
    Host.Config.Set("Light", "coPayOffAlertSeriesColor", "x");
    Host.LookAndFeel.Colors = {{"coPayOffInputRowBgColor", 77}, {"coPayOffAlertSeriesColor", 78}};
    Put(0, 0, "HSIC100");
    Host.Config.FireConfigUpdate();
    auto* Style = Positions().GetCellStyle(0, 0);
    ASSERT_NE(Style, nullptr);
    EXPECT_EQ(Style->GetColor(), 77);
    EXPECT_EQ(Find<TChart>("DataChart").Series()[1]->GetColor(), 78);
    EXPECT_EQ(View->GetHintController()->GetTextFontSize(), 12);
    Style->SetColor(1);
    Host.LookAndFeel.FireLookAndFeelChanged();
    EXPECT_EQ(Style->GetColor(), 77);

    Host.Config.KeepColumnLayout = true;
    Host.Channels.SendData(kChannelLayoutLoaded, nullptr);
    Host.Channels.SendData(kChannelMainFormShow, nullptr);
    EXPECT_TRUE(Host.ErrorsLogged().empty());
}

TEST_F(Frame, ARowWhoseSymbolIsClearedGoesWithTheNextTick) {
    View.emplace();
    for (int Row = 0; Row < 2; ++Row) {
        auto* Editor = Positions().StartEdit(Row, 0);
        ASSERT_NE(Editor, nullptr);
        Editor->SetEditText(Row == 0 ? "hsic100" : "HSIP110");
        Positions().PostEditor();
    }
    ASSERT_EQ(Positions().GetDataController().GetRecordCount(), 3);
    Positions().StartEdit(0, 0)->SetEditText("");
    Positions().PostEditor();
    EXPECT_EQ(Positions().GetDataController().GetRecordCount(), 3);
    Host.Timer.Tick();
    ASSERT_EQ(Positions().GetDataController().GetRecordCount(), 2);
    EXPECT_EQ(Cell(0, 0), Variant("HSIP110"));
    Host.Timer.Tick();
    EXPECT_EQ(Positions().GetDataController().GetRecordCount(), 2);
    EXPECT_EQ(Host.TakeLog(), std::vector<Text>{"Res_LogRowRemoved(1)"});
}

TEST_F(Frame, TheDetailTableGoesBeforeTheLegs) {
    View.emplace();
    std::vector<Text> Order;
    const auto Link =
        Find<TGridTableView>("DetailGridView").OnRecordsChanged.Connect([&] { Order.emplace_back("table"); });
    Host.Journal.OnLine = [&](const Text& Line) {
        if (Line.starts_with("Market.RemoveExchangeUpdateHandler")) Order.emplace_back("legs");
    };
    View.reset();
    Host.Journal.OnLine = nullptr;
    EXPECT_EQ(Order, (std::vector<Text>{"table", "legs"}));
}

TEST_F(Frame, SeveralAtOnceKeepTheirStatesApart) {
    View.emplace();
    TVentiqFrame Other;
    Put(0, 0, "HSIC100");
    EXPECT_TRUE(Other.FindControl<TGridTableView>("PositionGridView")->GetDataController().GetValue(0, 0).IsNull());
    Find<TComboBox>("cmbSeries").SetItemIndex(1);
    EXPECT_EQ(Other.FindControl<TComboBox>("cmbSeries")->GetItemIndex(), 0);
    EXPECT_NE(View->GetHandle(), Other.GetHandle());
}

}  // namespace
}  // namespace ventiq
