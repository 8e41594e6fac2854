// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/RenderContext.h"

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
    const auto Found = TSkinTable::Embedded().Color(FSkin, Key);
    return Found ? QColor(Found->FRed, Found->FGreen, Found->FBlue) : QApplication::palette().color(QPalette::Text);
}

void TRenderContext::SetSkin(fw::Text Name) {
    FSkin = std::move(Name);
    OnSkinChanged();
}

QString TRenderContext::Translate(const char* Key, const std::vector<fw::Text>& Args) const {
    fw::Text Result;
    fw::TCustomLanguageManager::GetInstance().GetResourceString(Result, Const::ResourceStringTag, Key);
    return ToQt(Fill(Result, Args));
}

int TRenderContext::Scaled(int Pixels) const {
    const int Height = QFontMetrics(QApplication::font()).height();
    return Height <= kFontHeightAtScale100 ? Pixels : Pixels * Height / kFontHeightAtScale100;
}

}  // namespace ws
