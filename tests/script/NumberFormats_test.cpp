// SPDX-License-Identifier: GPL-3.0-or-later
// The real view in other number formats: what is typed and shown follows the format, what files and command lines say
// does not.
#include "framework/base/NumberFormat.h"
#include "framework/controls/Button.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/SpinEdit.h"
#include "framework/data/ColumnIds.h"
#include "tests/script/JobFixture.h"
#include "workstation/script/Player.h"

namespace ws {

namespace {
constexpr const char* kGrid = "PositionGridView";
constexpr int kStrike = 27;
}  // namespace

class TNumberFormatsTest : public TJobFixture {
protected:
    int64_t Handle = 0;
    fw::TFrame* Frame = nullptr;

    ~TNumberFormatsTest() override {
        if (Handle) View.CloseInstance(Handle);
    }

    // A view with one leg whose data are there.
    TPlayer OpenView(const char* Format, const char* Symbol = "HSI26400L6") {
        EXPECT_TRUE(Station->SetNumberFormat(Format));
        if (Handle) View.CloseInstance(Handle);
        Handle = View.OpenNewInstance();
        Frame = View.FindView(Handle);
        TPlayer Player(*Frame);
        EXPECT_TRUE(Player.Play(TStep::Select("cmbExchange", "HKFE")));
        EXPECT_TRUE(Player.Play(TStep::Select("cmbSeries", "HSI")));
        EXPECT_TRUE(Player.Play(TStep::Select("cmbMonth", "2026-12")));
        EXPECT_TRUE(Player.Play(TStep::Cell(kGrid, 0, fw::kColumnSymbol, Symbol)));
        Run(3);
        return Player;
    }
    fw::TGridTableView& Legs() { return *Frame->FindControl<fw::TGridTableView>(kGrid); }
    static void TypeInto(fw::TCellEditor& Editor, const char* Text) {
        Editor.KeyDown('1');
        Editor.SetEditText(Text);
    }
    fw::TSpinEdit& Edit(const char* Name) { return *Frame->FindControl<fw::TSpinEdit>(Name); }
    int Column(int Tag) {
        int Index = 0;
        while (Legs().GetColumn(Index)->Tag != Tag) ++Index;
        return Index;
    }
    fw::Text Shown(int Tag) { return Legs().GetCellText(0, Column(Tag)); }
    fw::Variant Value(int Tag) { return Legs().GetDataController().GetValue(0, Column(Tag)); }
};

TEST_F(TNumberFormatsTest, AJobWritesTheSameFilesInEveryFormat) {
    const std::vector<std::string> Job{
        "--leg", "HSI26400L6,buy,1.234,1500", "--down", "26,000", "--up", "26400.5", "--interval", "200.125"};
    ASSERT_EQ(RunJob(Job), kExitDone) << Errors.str();
    const auto Table = Lines("payoff.csv"), KeyPrices = Lines("keyprices.csv");
    ASSERT_EQ(Table.size(), 5u);
    EXPECT_EQ(Table[2], "26200.125,-92550");
    for (const char* Name : {"en_US", "de_DE", "fr_FR", "zh_HK"}) {
        SCOPED_TRACE(Name);
        ASSERT_TRUE(Station->SetNumberFormat(Name));
        ASSERT_EQ(RunJob(Job), kExitDone) << Errors.str();
        EXPECT_EQ(Lines("payoff.csv"), Table);
        EXPECT_EQ(Lines("keyprices.csv"), KeyPrices);
    }
}

TEST_F(TNumberFormatsTest, ALegIsTypedAndCalculatedInGerman) {
    TPlayer Player = OpenView("de_DE");
    const TStep Steps[] = {TStep::CellItem(kGrid, 0, fw::kColumnSide, 0),
                           TStep::Cell(kGrid, 0, fw::kColumnPremium, "1.234,5"),
                           TStep::Cell(kGrid, 0, fw::kColumnQuantity, "1.500"),
                           TStep::Enter("edtDown", "26.000"),
                           TStep::Enter("edtUp", "26400,5"),
                           TStep::Enter("edtInterval", "200,125"),
                           TStep::Click("btnCalc")};
    for (const auto& Step : Steps) EXPECT_TRUE(Player.Play(Step)) << Step.Control << " " << Step.Value;
    EXPECT_EQ(Value(fw::kColumnPremium), fw::Variant(1234.5));
    EXPECT_EQ(Value(fw::kColumnQuantity), fw::Variant(1500.0));
    EXPECT_EQ(Shown(fw::kColumnPremium), "1.234,5");
    EXPECT_EQ(Shown(fw::kColumnQuantity), "1.500");
    EXPECT_EQ(Shown(kStrike), "26.400");
    EXPECT_EQ(Edit("edtDown").GetText(), "26.000");
    EXPECT_EQ(Edit("edtInterval").GetText(), "200,125");
    auto& Detail = *Frame->FindControl<fw::TGridTableView>("DetailGridView");
    ASSERT_EQ(Detail.GetDataController().GetRecordCount(), 4);
    EXPECT_EQ(Detail.GetCellText(1, 0), "26.200,125");
    EXPECT_EQ(Detail.GetCellText(1, 1), "-92.587.500,00");

    EXPECT_EQ(Legs().StartEdit(0, Column(fw::kColumnPremium))->GetText(), "1234,5");
    ASSERT_TRUE(Station->SetNumberFormat("zh_HK"));
    EXPECT_EQ(Shown(fw::kColumnPremium), "1,234.5");
    EXPECT_EQ(Detail.GetCellText(1, 1), "-92,587,500.00");
}

TEST_F(TNumberFormatsTest, APremiumWithTwoReadingsStopsTheCalculation) {
    const struct {
        const char* Format;
        const char* Typed;
        std::vector<fw::Text> Args;
        const char* Meant;
        double Premium;
    } Cases[] = {
        {"en_US", "1.230", {"1.230", "1.23", "1230"}, "1.23", 1.23},
        {"zh_HK", "1.200", {"1.200", "1.2", "1200"}, "1,200.00", 1200.0},
        {"de_DE", "1,500", {"1,500", "1,5", "1500"}, "1,5", 1.5},
        {"fr_FR", "1.234", {"1.234", "1,2340", "1234"}, "1 234", 1234.0},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Format);
        OpenView(Case.Format);
        const fw::Variant Before = Value(fw::kColumnPremium);
        auto* Editor = Legs().StartEdit(0, Column(fw::kColumnPremium));
        ASSERT_TRUE(Editor);
        TypeInto(*Editor, Case.Typed);
        Frame->FindControl<fw::TButton>("btnCalc")->Click();
        EXPECT_EQ(Legs().GetEditor(), Editor);
        EXPECT_TRUE(Legs().HasFocus());
        EXPECT_EQ(Legs().GetRefusal(), (fw::TRefusal{"Res_LogNumberAmbiguous", Case.Args}));
        EXPECT_EQ(Frame->FindControl<fw::TGridTableView>("DetailGridView")->GetDataController().GetRecordCount(), 0);
        EXPECT_EQ(Value(fw::kColumnPremium), Before);

        TypeInto(*Editor, Case.Meant);
        Frame->FindControl<fw::TButton>("btnCalc")->Click();
        EXPECT_EQ(Value(fw::kColumnPremium), fw::Variant(Case.Premium));
        EXPECT_GT(Frame->FindControl<fw::TGridTableView>("DetailGridView")->GetDataController().GetRecordCount(), 0);
    }
}

TEST_F(TNumberFormatsTest, ADoubtedNumberHindersNeitherLanguageNorMarketNorClosing) {
    OpenView("de_DE");
    auto* Editor = Legs().StartEdit(0, Column(fw::kColumnPremium));
    TypeInto(*Editor, "1,500");
    EXPECT_TRUE(View.SetLanguage(Handle, 1));
    EXPECT_EQ(Legs().GetEditor(), Editor);
    EXPECT_EQ(Editor->GetText(), "1,500");
    Station->Market().NotifyListsChanged();
    Run(1);
    EXPECT_EQ(Legs().GetEditor(), Editor);
    View.CloseInstance(Handle);
    Handle = 0;
    EXPECT_FALSE(Station->HasOwners());
}

TEST_F(TNumberFormatsTest, TheSelectedMarketDecidesWhatTheCellWouldShow) {
    OpenView("en_US");
    auto& Grid = Legs();
    EXPECT_EQ(Grid.GetPreviewText(0, Column(fw::kColumnPremium), 1234.0), "1,234");
    EXPECT_EQ(Grid.GetPreviewText(0, Column(fw::kColumnQuantity), 1234.0), "1,234");
    EXPECT_EQ(Grid.GetPreviewText(1, Column(fw::kColumnPremium), 1234.0), "1,234.00") << "no symbol yet";
}

TEST_F(TNumberFormatsTest, ThePlayerSaysWhyAnEditorDidNotTakeAValue) {
    TPlayer Player = OpenView("de_DE");
    const std::vector<TStep> Steps{TStep::Cell(kGrid, 0, fw::kColumnPremium, "abc"),
                                   TStep::Cell(kGrid, 0, fw::kColumnPremium, "1,500"),
                                   TStep::CellNumber(kGrid, 0, fw::kColumnQuantity, 1e18),
                                   TStep::Cell(kGrid, 0, fw::kColumnSide, "Hold"),
                                   TStep::CellItem(kGrid, 0, fw::kColumnSide, 7),
                                   TStep::CellNumber(kGrid, 0, fw::kColumnSymbol, 5),
                                   TStep::Enter("edtInterval", "1,250"),
                                   TStep::Enter("edtInterval", "-1"),
                                   TStep::EnterNumber("edtInterval", -1.5),
                                   TStep::Cell(kGrid, 0, kStrike, "1"),
                                   TStep::CellNumber(kGrid, 0, fw::kColumnPremium, 1.5),
                                   TStep::EnterNumber("edtInterval", 1.25)};
    const fw::Variant Premium = Value(fw::kColumnPremium), Quantity = Value(fw::kColumnQuantity);
    const auto Failures = Player.Play(Steps);
    const std::vector<std::optional<fw::TRefusal>> Reasons{
        fw::TRefusal{"Res_LogNumberRefused", {"abc"}},
        fw::TRefusal{"Res_LogNumberAmbiguous", {"1,500", "1,5", "1500"}},
        fw::TRefusal{"Res_LogNumberRefused", {"1e+18"}},
        fw::TRefusal{"Res_LogChoiceRefused", {"Hold"}},
        fw::TRefusal{"Res_LogChoiceRefused", {"8"}},
        fw::TRefusal{"Res_LogNumberRefused", {"5"}},
        fw::TRefusal{"Res_LogNumberAmbiguous", {"1,250", "1,25", "1250"}},
        fw::TRefusal{"Res_LogNumberRefused", {"-1"}},
        fw::TRefusal{"Res_LogNumberRefused", {"-1,5"}},
        std::nullopt,
    };
    ASSERT_EQ(Failures.size(), Reasons.size());
    for (size_t i = 0; i < Reasons.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(Failures[i].Index, i);
        EXPECT_EQ(Failures[i].Reason, Reasons[i]);
    }
    EXPECT_EQ(Legs().GetEditor(), nullptr);
    EXPECT_EQ(Value(fw::kColumnPremium), fw::Variant(1.5));
    EXPECT_NE(Premium, fw::Variant(1.5));
    EXPECT_EQ(Value(fw::kColumnQuantity), Quantity);
    EXPECT_EQ(Edit("edtInterval").GetValue(), fw::Variant(1.25));
}

TEST_F(TNumberFormatsTest, ThePlayerDoesNothingWhileAUserIsAskedWhatWasMeant) {
    TPlayer Player = OpenView("de_DE");
    auto* Editor = Legs().StartEdit(0, Column(fw::kColumnPremium));
    TypeInto(*Editor, "1,500");
    for (const auto& Step : {TStep::Select("cmbSeries", "HHI"), TStep::Enter("edtDown", "5"),
                             TStep::EnterNumber("edtDown", 5), TStep::Click("btnCalc")})
        EXPECT_FALSE(Player.Play(Step)) << Step.Control;
    EXPECT_EQ(Legs().GetEditor(), Editor);
    EXPECT_EQ(Editor->GetText(), "1,500");
}

}  // namespace ws
