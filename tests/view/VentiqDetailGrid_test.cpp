// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqDetailGrid.h"

#include "framework/base/KeepList.h"
#include "tests/view/DisplayFixture.h"

namespace ventiq {
namespace {

class DetailGrid : public TDisplayFixture {};

TEST_F(DetailGrid, HasAPriceAndAResultColumnThatNobodyEdits) {
    auto& Table = Form.DetailGridView;
    ASSERT_EQ(Table.GetColumnCount(), 2);
    const std::pair<int, const char*> Columns[] = {{3, "Res_OrderPrice"}, {607, "P/L"}};
    for (int i = 0; i < 2; ++i) {
        const auto* Column = Table.GetColumn(i);
        EXPECT_EQ(Column->Tag, Columns[i].first);
        EXPECT_EQ(Column->GetCaption(), Columns[i].second);
        EXPECT_EQ(Column->GetWidth(), 50);
        EXPECT_EQ(Column->ValueType, EValueType::Float);
        EXPECT_FALSE(Column->Editing || Column->Sorting || Column->Filtering || Column->Focusing);
        ASSERT_TRUE(dynamic_cast<TcxTextEditProperties*>(Column->GetProperties()));
        EXPECT_EQ(Column->GetProperties()->Alignment, EAlignment::Right);
    }
}

TEST_F(DetailGrid, ShowsTheTableOfTheLastCalculationInTheHostsFormats) {
    AddLeg("HSIC100", "Buy", 5.0, 1);
    Calculate(90, 110, 10);
    auto& Table = Form.DetailGridView;
    ASSERT_EQ(Table.GetDataController().GetRecordCount(), 3);
    Host.Formatter.Calls.clear();
    EXPECT_EQ(Table.GetCellText(2, 0), "1:110");
    EXPECT_EQ(Table.GetCellText(2, 1), "3:5");
    // Without a symbol, unlike the position grid: the table belongs to no single instrument.
    EXPECT_FALSE(Host.Formatter.Calls.empty());
    for (const auto& Call : Host.Formatter.Calls) EXPECT_EQ(Call.Symbol, "");
}

TEST_F(DetailGrid, AnEmptyTableShowsABlankInsteadOfAMessage) {
    Calculate(90, 110, 10);
    EXPECT_EQ(Form.DetailGridView.GetDataController().GetRecordCount(), 0);
    const auto& Options = Form.DetailGridView.Options;
    EXPECT_EQ(Options.NoDataText, " ");
    EXPECT_TRUE(Options.CellHints && Options.CellEndEllipsis && Options.HeaderEndEllipsis && Options.ColumnAutoWidth);
    EXPECT_FALSE(Options.GroupByBox);
}

TEST_F(DetailGrid, AMissingCellShowsTheControlsEmptyText) {
    Detail.GetDataControl()->SetEmptyCellText("-");
    Text Shown = "grid";
    Detail.DetailGridColumnGetDisplayText(*Form.DetailGridView.GetColumn(1), 7, Shown);
    EXPECT_EQ(Shown, "-");
}

TEST_F(DetailGrid, WithoutItsControlTheGridsOwnTextStays) {
    Detail.FreeDataSource();
    Text Shown = "grid";
    Detail.DetailGridColumnGetDisplayText(*Form.DetailGridView.GetColumn(0), 0, Shown);
    EXPECT_EQ(Shown, "grid");
    EXPECT_EQ(Form.DetailGridView.GetDataControl(), nullptr);
    Context.FMyDataControl->SetDetailControl(nullptr);
}

TEST_F(DetailGrid, TakesNewCaptionsForItsColumns) {
    Host.Language.SetText("Res_OrderPrice", "Prix");
    Detail.UpdateGridHeader();
    EXPECT_EQ(Form.DetailGridView.GetColumn(0)->GetCaption(), "Prix");
}

TEST_F(DetailGrid, TheColumnListStaysWithTheHostForGood) {
    int Kept = 0;
    {
        TVentiqForm OtherForm;
        TVentiqDetailGrid Other{OtherForm};
        Kept = KeptCount();
        Other.InitializeGrid();
    }
    EXPECT_EQ(KeptCount(), Kept + 1);
}

}  // namespace
}  // namespace ventiq
