// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridText.h"

#include "framework/base/Numbers.h"
#include "tests/framework/controls/GridFixture.h"
#include "tests/support/NumberFormatGuard.h"

namespace fw {

class TGridTextTest : public TGridFixture {
protected:
    TGridTextTest() {
        const char* Captions[] = {"Symbol", "Side", "Premium", "Qty", "<Memo>", "Strike"};
        for (int i = 0; i < View.GetColumnCount(); ++i) View.GetColumn(i)->SetCaption(Captions[i]);
        View.GetColumn(kStrike)->SetVisible(false);
    }
};

TEST_F(TGridTextTest, NumbersStandAtFullPrecisionAndTextsAsTheCellsShowThem) {
    View.GetColumn(kPremium)->OnGetDisplayText = [](TGridColumn&, int, Text& Shown) { Shown = "0.33"; };
    View.GetColumn(kSide)->OnGetDisplayText = [](TGridColumn&, int, Text& Shown) { Shown += " it"; };
    Data.SetValue(0, kSymbol, "AAA");
    Data.SetValue(0, kSide, "Buy");
    Data.SetValue(0, kPremium, 1.0 / 3.0);
    Data.SetValue(0, kQuantity, 1234567);
    const TGridText Tabs(View, ETextForm::Tabs);
    EXPECT_EQ(Tabs.Head(), "Symbol\tSide\tPremium\tQty\t<Memo>\n");
    EXPECT_EQ(Tabs.Record(0), "AAA\tBuy it\t0.3333333333333333\t1234567\t\n");
    EXPECT_EQ(TextToFloat("0.3333333333333333"), 1.0 / 3.0);
    EXPECT_EQ(Tabs.Record(1), "\t\t\t\t\n");
    EXPECT_EQ(Tabs.Tail(), "");
}

TEST_F(TGridTextTest, NumbersFollowTheNumberFormatAndCanBeReadInOneWayOnly) {
    const TScopedNumberFormat German("de_DE");
    Data.SetValue(0, kPremium, 1.234);
    Data.SetValue(0, kQuantity, 26400.0);
    EXPECT_EQ(TGridText(View, ETextForm::Tabs).Record(0), "\t\t1,2340\t26400\t\n");
}

TEST_F(TGridTextTest, HtmlKeepsWhatLooksLikeATag) {
    View.GetColumn(kSide)->SetVisible(false);
    View.GetColumn(kPremium)->SetVisible(false);
    Data.SetValue(1, kSymbol, "a<b>&\"c\"");
    Data.SetValue(1, kQuantity, -0.5);
    const TGridText Html(View, ETextForm::Html);
    EXPECT_EQ(Html.Head(), "<table>\n<tr><th>Symbol</th><th>Qty</th><th>&lt;Memo&gt;</th></tr>\n");
    EXPECT_EQ(Html.Record(1), "<tr><td>a&lt;b&gt;&amp;&quot;c&quot;</td><td>-0.5</td><td></td></tr>\n");
    EXPECT_EQ(Html.Tail(), "</table>\n");
}

TEST_F(TGridTextTest, AFileHasPointsBeforeDecimalsAndQuotesWhatNeedsIt) {
    const TScopedNumberFormat German("de_DE");
    Data.SetValue(0, kSymbol, "a,\"b\"\nc");
    Data.SetValue(0, kPremium, 1.5);
    Data.SetValue(0, kQuantity, 1234567);
    const TGridText Csv(View, ETextForm::Csv);
    EXPECT_EQ(Csv.Head(), "Symbol,Side,Premium,Qty,<Memo>\r\n");
    EXPECT_EQ(Csv.Record(0), "\"a,\"\"b\"\"\nc\",,1.5,1234567,\r\n");
    EXPECT_EQ(Csv.Tail(), "");
}

TEST_F(TGridTextTest, ACellStaysOneCellOfOneLine) {
    Data.SetValue(0, kSymbol, "A\tB\r\nC");
    EXPECT_EQ(TGridText(View, ETextForm::Tabs).Record(0), "A B  C\t\t\t\t\n");
}

TEST_F(TGridTextTest, ARecordOutOfRangeIsEmpty) {
    EXPECT_EQ(TGridText(View, ETextForm::Tabs).Record(99), "\t\t\t\t\n");
}

TEST_F(TGridTextTest, BlankRecordsHaveNoContent) {
    Data.SetValue(0, kSymbol, " ");
    Data.SetValue(1, kQuantity, 0.0);
    EXPECT_FALSE(HasContent(View, 0));
    EXPECT_TRUE(HasContent(View, 1));
    EXPECT_FALSE(HasContent(View, 2));
    EXPECT_FALSE(HasContent(View, 99));
}

}  // namespace fw
