// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/RenderContext.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QFontMetrics>
#include <QPalette>

#include "framework/services/LanguageManager.h"
#include "workstation/renderers/QtText.h"
#include "workstation/resources/Skins.h"
#include "workstation/resources/Texts.h"

namespace ws {

namespace {
constexpr int kFontHeightAtScale100 = 15;  // pixels of a line of the application font at 96 dots per inch
}

QColor TRenderContext::Color(const char* Key) const {
    const auto Found = TSkinTable::Embedded().Color(FSkin, Key, FProfitPalette);
    return Found ? QColor(Found->FRed, Found->FGreen, Found->FBlue) : QApplication::palette().color(QPalette::Text);
}

void TRenderContext::SetSkin(fw::Text Name, fw::Text ProfitPalette) {
    FSkin = std::move(Name);
    FProfitPalette = std::move(ProfitPalette);
    OnSkinChanged();
}

QString TRenderContext::Translate(const char* Key, const std::vector<fw::Text>& Args) const {
    fw::Text Result;
    fw::TCustomLanguageManager::GetInstance().GetResourceString(Result, Const::ResourceStringTag, Key);
    return ToQt(Fill(Result, Args));
}

void TRenderContext::SetScale(int PerCent) {
    QFont Font = QApplication::font();
    const double Points = kFontPoints * PerCent / 100;
    if (PerCent == FScale && Font.pointSizeF() == Points) return;
    FScale = PerCent;
    Font.setPointSizeF(Points);
    QApplication::setFont(Font);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationFontChange);  // widgets hear of it in the loop only
    OnMetricsChanged();
}

int TRenderContext::Scaled(int Pixels) const {
    QFont Unscaled = QApplication::font();
    Unscaled.setPointSizeF(kFontPoints);
    const int Height = std::max(kFontHeightAtScale100, QFontMetrics(Unscaled).height());
    return static_cast<int>(
        std::lround(static_cast<double>(Pixels) * FScale * Height / (100.0 * kFontHeightAtScale100)));
}

}  // namespace ws
