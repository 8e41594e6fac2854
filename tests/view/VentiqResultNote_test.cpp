// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqResultNote.h"

#include "tests/view/DisplayFixture.h"

namespace ventiq {
namespace {

class ResultNote : public TDisplayFixture {
protected:
    TVentiqResultNote Note{Form, Context, View};
    const TClock::TTimePoint Noon{std::chrono::hours(12)};
    int Told = 0;
    TConnection Link = View.OnStaleChanged.Connect([this] { ++Told; });

    ResultNote() {
        Context.FMyDataControl->SetOnDataUpdate([this](TObject*) { Note.Calculated(); });
        TClock::Fix(Noon);
        AddLeg("HSIC100", "Buy", 5.0, 1);
    }
    ~ResultNote() override { TClock::Fix(std::nullopt); }

    bool Stale() {
        Note.Check();
        return View.GetStaleSince().has_value();
    }
};

TEST_F(ResultNote, NothingIsStaleBeforeTheFirstCalculation) {
    Grid.SetCell(0, kColQty, 2.0);
    EXPECT_FALSE(Stale());
}

TEST_F(ResultNote, EveryInputOfACalculationCounts) {
    struct TCase {
        const char* What;
        std::function<void()> Change, Back;
    };
    const TCase Cases[] = {
        {"symbol", [&] { Grid.SetCell(0, kColSymbol, "HSIC110"); }, [&] { Grid.SetCell(0, kColSymbol, "HSIC100"); }},
        {"side", [&] { Grid.SetCell(0, kColSide, "Sell"); }, [&] { Grid.SetCell(0, kColSide, "Buy"); }},
        {"premium", [&] { Grid.SetCell(0, kColPremium, 6.0); }, [&] { Grid.SetCell(0, kColPremium, 5.0); }},
        {"quantity", [&] { Grid.SetCell(0, kColQty, 2.0); }, [&] { Grid.SetCell(0, kColQty, 1.0); }},
        {"no symbol", [&] { Grid.SetCell(0, kColSymbol, " "); }, [&] { Grid.SetCell(0, kColSymbol, "HSIC100"); }},
        {"down", [&] { Form.edtDown.SetValue(91); }, [&] { Form.edtDown.SetValue(90); }},
        {"up", [&] { Form.edtUp.SetValue(111); }, [&] { Form.edtUp.SetValue(110); }},
        {"interval", [&] { Form.edtInterval.SetValue(2); }, [&] { Form.edtInterval.SetValue(5); }},
    };
    Calculate(90, 110, 5);
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.What);
        Told = 0;
        Case.Change();
        EXPECT_TRUE(Stale());
        EXPECT_EQ(View.GetStaleSince(), Noon);
        Case.Back();
        EXPECT_FALSE(Stale()) << "the inputs are those of the results again";
        EXPECT_EQ(Told, 2);
    }
}

TEST_F(ResultNote, TheMarketCounts) {
    Selectors.InitExchangeList();
    Calculate(90, 110, 5);
    EXPECT_FALSE(Stale());
    Form.cmbExchange.SetItemIndex(Form.cmbExchange.GetItemIndex() == 0 ? 1 : 0);
    SetRange(90, 110, 5);
    EXPECT_TRUE(Stale());
}

TEST_F(ResultNote, AddedAndClearedLegsCount) {
    Calculate(90, 110, 5);
    Form.btnClear.Click();
    EXPECT_TRUE(Stale());
    Calculate(90, 110, 5);
    EXPECT_FALSE(Stale());
    AddLeg("HSIC110", "Sell", 5.0, 1);
    EXPECT_TRUE(Stale());
}

TEST_F(ResultNote, ARowThatIsNoLegDoesNotCount) {
    Calculate(90, 110, 5);
    Grid.SetCell(1, kColPremium, 7.0);
    EXPECT_FALSE(Stale());
}

TEST_F(ResultNote, ALanguageSwitchAloneMakesNothingStale) {
    Calculate(90, 110, 5);
    for (const auto& [Key, Word] : {std::pair{"Res_Side_Buy", "Kauf"}, std::pair{"Res_Side_Sell", "Verkauf"}})
        Host.Language.SetText(Key, Word);
    Grid.UpdateGridContent();
    Texts.UpdateSideItems();
    ASSERT_EQ(Grid.GetCell(0, kColSide), Variant("Kauf"));
    EXPECT_FALSE(Stale());
}

TEST_F(ResultNote, ARejectedRangeKeepsTheNoteOfTheFormerResults) {
    Calculate(90, 110, 5);
    TClock::Fix(Noon + std::chrono::hours(1));
    Calculate(110, 90, 5);
    EXPECT_TRUE(Stale());
    EXPECT_EQ(View.GetStaleSince(), Noon);
}

}  // namespace
}  // namespace ventiq
