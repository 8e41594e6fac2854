// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqConfig.h"

#include "tests/view/DisplayFixture.h"

namespace ventiq {
namespace {

class Config : public testing::Test {
protected:
    support::TFakeHost Host;
    TVentiqForm Form;
    TVentiqConfig Part{Form};
    void Update() { Part.ConfigUpdate(nullptr, nullptr); }
};

TEST_F(Config, TheScaleIsServedByTheNextStepUp) {
    const struct {
        const char* Configured;
        int Step, FontSize;
    } Cases[] = {{"-5", 100, 8},   {"0", 100, 8},    {"100", 100, 8},        {"101", 115, 10},
                 {"115", 115, 10}, {"116", 125, 11}, {"125", 125, 11},       {"126", 135, 12},
                 {"135", 135, 12}, {"136", 150, 13}, {"2147483647", 150, 13}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Configured);
        Host.Config.Set("OMS_TRADEPLATFORM", "ScaleSize", Case.Configured);
        Update();
        EXPECT_EQ(Part.FScaleSize, Case.Step);
        EXPECT_EQ(Form.HintController.GetCaptionFontSize(), Case.FontSize);
        EXPECT_EQ(Form.HintController.GetTextFontSize(), Case.FontSize);
    }
}

TEST_F(Config, AnUnchangedScaleLeavesTheFontsAlone) {
    Update();
    Form.HintController.SetFontSizes(20, 21);
    Update();
    EXPECT_EQ(Form.HintController.GetCaptionFontSize(), 20);
    EXPECT_EQ(Form.HintController.GetTextFontSize(), 21);
}

TEST_F(Config, AnEmptyColourIsRed) {
    Form.sInput.SetColor(MakeColor(1, 2, 3));
    Update();
    EXPECT_EQ(Part.FAlertColor, 255);
    EXPECT_EQ(Part.FInputRowColor, 255);
    EXPECT_EQ(Form.sInput.GetColor(), 255);
    EXPECT_EQ(RedOf(Part.FInputRowColor), 255);
}

TEST_F(Config, ColoursComeFromTheSkinThatIsNamed) {
    Host.LookAndFeel.SkinName = "Dark";
    Host.Config.Set("Dark", "coPayOffAlertSeriesColor", "x");
    Host.Config.Set("Dark", "coPayOffInputRowBgColor", "x");
    Host.Config.Set("Light", "coPayOffInputRowBgColor", "");
    Host.LookAndFeel.Colors = {{"coPayOffAlertSeriesColor", 11}, {"coPayOffInputRowBgColor", 22}};
    std::vector<TColor> Alerts;
    Part.OnAlertColor = [&](TColor C) { Alerts.push_back(C); };
    int Repaints = 0;
    const auto Link = Form.PositionGridView.OnRepaint.Connect([&] { ++Repaints; });
    Update();
    EXPECT_EQ(Form.sInput.GetColor(), 22);
    EXPECT_EQ(Repaints, 1);
    Update();
    EXPECT_EQ(Repaints, 1);
    EXPECT_EQ(Alerts, (std::vector<TColor>{11, 11}));
    Host.LookAndFeel.SkinName = "Light";
    Update();
    EXPECT_EQ(Form.sInput.GetColor(), 255);
    EXPECT_EQ(Alerts.back(), 255);
}

TEST_F(Config, TheAveragePriceModeIsTheUsersOwn) {
    Host.Config.UserSection = "USER7";
    Host.Config.Set("USER7", "PVAvgPriceMode", "2");
    Update();
    EXPECT_EQ(Part.FAvgPriceMode, 2);
    Host.Config.Set("USER7", "PVAvgPriceMode", "");
    Update();
    EXPECT_EQ(Part.FAvgPriceMode, 0);
}

TEST_F(Config, ANewSkinGetsTheInputColourBack) {
    Update();
    Form.sInput.SetColor(1);
    Part.LookAndFeelChanged(nullptr, nullptr);
    EXPECT_EQ(Form.sInput.GetColor(), 255);
}

class ConfigAndChart : public TDisplayFixture {};

TEST_F(ConfigAndChart, TheZeroLineFollowsTheColourOnceItExists) {
    TVentiqConfig Early{Form};
    TVentiqPayoffChart Bare{Form, Context, Early, Buttons};
    Bare.SetAlertColor(9);
    EXPECT_EQ(Bare.GetAlertSeries(), nullptr);
    Chart.SetAlertColor(9);
    EXPECT_EQ(Chart.GetAlertSeries()->GetColor(), 9);
}

}  // namespace
}  // namespace ventiq
