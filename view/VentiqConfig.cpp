// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqConfig.h"

#include <limits>

#include "framework/services/ConfigManager.h"
#include "framework/services/LookAndFeelService.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

// Display scale in per cent and the font size of hints, in points, that goes with it.
struct TScaleStep {
    int UpTo;  // the largest configured scale that this step serves
    int Step;
    int FontSize;
};

constexpr TScaleStep kScaleSteps[] = {
    {100, 100, 8}, {115, 115, 10}, {125, 125, 11}, {135, 135, 12}, {std::numeric_limits<int>::max(), 150, 13}};

// Always the next step up: 101 is served by 115.
const TScaleStep& StepFor(int ScaleSize) {
    const auto* Step = kScaleSteps;
    while (ScaleSize > Step->UpTo) ++Step;
    return *Step;
}

// An empty option is red on purpose: a skin that forgets the colour is seen at once.
TColor SkinColor(const Text& Section, const Text& Key) {
    if (TCustomConfigManager::GetInstance().ReadString(Section, Key).empty()) return kColorRed;
    return TCustomLookAndFeelService::GetInstance().GetSkinColor(0, Key);
}

}  // namespace

void TVentiqConfig::ConfigUpdate(TObject*, TObject*) {
    auto& Config = TCustomConfigManager::GetInstance();
    const Text Section = TCustomLookAndFeelService::GetInstance().GetSkinName();
    FAlertColor = SkinColor(Section, kConfigAlertColor);
    FInputRowColor = SkinColor(Section, kConfigInputRowColor);
    if (FInputRowColor != FForm.sInput.GetColor()) {
        FForm.sInput.SetColor(FInputRowColor);
        FForm.PositionGridView.Repaint();
    }
    if (OnAlertColor) OnAlertColor(FAlertColor);
    FAvgPriceMode = Config.ReadInteger(Config.GetUserSection(), kConfigAvgPriceMode);
    ApplyScale(Config.ReadInteger(kConfigPlatformSection, kConfigScaleSize));
}

void TVentiqConfig::ApplyScale(int ScaleSize) {
    const auto& Step = StepFor(ScaleSize);
    // Deliberate: while the step stays, fonts that something else has changed are left alone.
    if (Step.Step == FScaleSize) return;
    FScaleSize = Step.Step;
    FForm.HintController.SetFontSizes(Step.FontSize, Step.FontSize);
}

void TVentiqConfig::LookAndFeelChanged(TObject*, TObject*) { FForm.sInput.SetColor(FInputRowColor); }

}  // namespace ventiq
