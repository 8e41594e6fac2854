// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/Appearance.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>

#include "workstation/resources/Skins.h"

namespace ws {

namespace {

constexpr int kFontPoints = 9;

struct TRoleColor {
    QPalette::ColorRole Role;
    const char* Key;
};

constexpr TRoleColor kRoles[] = {
    {QPalette::Window, "coWindow"},
    {QPalette::WindowText, "coWindowText"},
    {QPalette::Base, "coBase"},
    {QPalette::AlternateBase, "coAlternateBase"},
    {QPalette::Text, "coText"},
    {QPalette::PlaceholderText, "coPlaceholderText"},
    {QPalette::Button, "coButton"},
    {QPalette::ButtonText, "coButtonText"},
    {QPalette::Highlight, "coHighlight"},
    {QPalette::HighlightedText, "coHighlightedText"},
    {QPalette::Link, "coLink"},
    {QPalette::ToolTipBase, "coToolTip"},
    {QPalette::ToolTipText, "coToolTipText"},
    {QPalette::Mid, "coBorder"},
};

QColor SkinColor(const std::string& Skin, const char* Key) {
    const auto Color = TSkinTable::Embedded().Color(Skin, Key);
    return Color ? QColor(Color->FRed, Color->FGreen, Color->FBlue) : QColor();
}

}  // namespace

void ApplyStyle() {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QFont Font;
    Font.setFamilies({"DejaVu Sans", "WenQuanYi Micro Hei"});
    Font.setPointSize(kFontPoints);
    QApplication::setFont(Font);
    QToolTip::setFont(Font);
}

void ApplySkin(const std::string& Skin) {
    QPalette Palette(SkinColor(Skin, "coButton"), SkinColor(Skin, "coWindow"));
    for (const auto& [Role, Key] : kRoles) Palette.setColor(Role, SkinColor(Skin, Key));
    for (const auto Role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        Palette.setColor(QPalette::Disabled, Role, SkinColor(Skin, "coDisabledText"));
    QApplication::setPalette(Palette);
    QToolTip::setPalette(Palette);
}

}  // namespace ws
