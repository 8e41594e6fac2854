// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqTexts.h"

#include <gtest/gtest.h>

#include "registration/VentiqConstDef.h"
#include "tests/support/FakeHost.h"

namespace ventiq {
namespace {

class Texts : public testing::Test {
protected:
    support::TFakeHost Host;
    TVentiqForm Form;
    TVentiqTexts Part{Form};
};

TEST_F(Texts, AHeaderIsTheTextOfItsKeyAndAnEmptyKeyIsEmpty) {
    Host.Language.SetText("Res_Call", "Call");
    Host.Language.SetText("", "never");
    EXPECT_EQ(GetResourceHeader("Res_Call"), "Call");
    EXPECT_EQ(GetResourceHeader(""), "");
    EXPECT_EQ(GetResourceHeader("Res_Unknown"), "Res_Unknown");
}

TEST_F(Texts, AnExchangeShowsCodeAndName) {
    Host.Language.SetText(0, kTagExchange, "HKFE", "Futures");
    EXPECT_EQ(ExchangeItemText("HKFE"), "HKFE(Futures)");
    EXPECT_EQ(ExchangeItemText("ODD"), "ODD(ODD)");
}

TEST_F(Texts, ASeriesShowsItsNameInTheCurrentLanguage) {
    auto& Series = Host.Market.AddSeries("HKFE", "HSI");
    Series.DefaultName = "Index";
    Series.Name1 = "one";
    Series.Name2 = "two";
    const char* Names[] = {"HSI(Index)", "HSI(one)", "HSI(two)", "HSI(Index)"};
    for (int Language = 0; Language < 4; ++Language) {
        Host.Language.Language = Language;
        EXPECT_EQ(SeriesItemText("HSI"), Names[Language]);
    }
    EXPECT_EQ(SeriesItemText("NONE"), "NONE");
}

TEST_F(Texts, CaptionsComeFromTheirKeys) {
    Form.edtAccount.SetHint("ACC1");
    Part.UpdateCaptions();
    const std::pair<Text, Text> Captions[] = {
        {Form.liExchange.GetCaption(), "Res_Exchange"},    {Form.liSeries.GetCaption(), "Res_Series"},
        {Form.liExpiry.GetCaption(), "Res_Month"},         {Form.liAccount.GetCaption(), "Res_Account"},
        {Form.edtAccount.GetPlaceholder(), "Res_Account"}, {Form.btnLoad.GetCaption(), "Res_Load"},
        {Form.btnCalc.GetCaption(), "Res_Calculate"},      {Form.btnClear.GetCaption(), "Res_Clear"},
        {Form.btnSubmit.GetCaption(), "Res_Submit"},       {Form.liDown.GetCaption(), "Res_DownPrice"},
        {Form.liUp.GetCaption(), "Res_UpPrice"},           {Form.liInterval.GetCaption(), "Res_Interval"},
    };
    for (const auto& [Shown, Key] : Captions) EXPECT_EQ(Shown, Key);
    EXPECT_EQ(Form.edtAccount.GetHint(), "ACC1");
}

TEST_F(Texts, CallAndPutAreTheirKeysUntilTheFirstLanguage) {
    EXPECT_EQ(Part.FCallRes, "Res_Call");
    EXPECT_EQ(Part.FPutRes, "Res_Put");
    Host.Language.SetText("Res_Call", "Call");
    Host.Language.SetText("Res_Put", "Put");
    Part.UpdateCallPut();
    EXPECT_EQ(Part.FCallRes, "Call");
    EXPECT_EQ(Part.FPutRes, "Put");
}

TEST_F(Texts, TheSideListIsBuyThenSell) {
    Part.UpdateSideItems();
    Part.UpdateSideItems();
    EXPECT_EQ(Form.epiSide.Items, (std::vector<Text>{"Res_Side_Buy", "Res_Side_Sell"}));
}

}  // namespace
}  // namespace ventiq
