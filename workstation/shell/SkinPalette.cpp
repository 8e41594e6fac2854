// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/SkinPalette.h"

#include <algorithm>
#include <array>

#include <QApplication>
#include <QToolTip>

#include "workstation/preferences/PreferenceTable.h"
#include "workstation/resources/Skins.h"

namespace ws {

namespace {

struct TRole {
    QPalette::ColorRole Role;
    const char* Key;
};
constexpr std::array kRoles{
    TRole{QPalette::Window, "coWindow"},       TRole{QPalette::WindowText, "coWindowText"},
    TRole{QPalette::Base, "coBase"},           TRole{QPalette::AlternateBase, "coAlternateBase"},
    TRole{QPalette::Text, "coText"},           TRole{QPalette::PlaceholderText, "coPlaceholderText"},
    TRole{QPalette::Button, "coButton"},       TRole{QPalette::ButtonText, "coButtonText"},
    TRole{QPalette::Highlight, "coHighlight"}, TRole{QPalette::HighlightedText, "coHighlightedText"},
    TRole{QPalette::Link, "coLink"},           TRole{QPalette::LinkVisited, "coLink"},
    TRole{QPalette::ToolTipBase, "coToolTip"}, TRole{QPalette::ToolTipText, "coToolTipText"},
    TRole{QPalette::BrightText, "coError"},    TRole{QPalette::Mid, "coBorder"},
    TRole{QPalette::Midlight, "coGridLine"},   TRole{QPalette::Dark, "coBorder"},
    TRole{QPalette::Light, "coHeader"}};
constexpr std::array kDimmed{QPalette::WindowText, QPalette::Text, QPalette::ButtonText};

}  // namespace

QPalette SkinPalette(const std::string& Skin) {
    const TSkinTable& Table = TSkinTable::Embedded();
    const auto& Skins = Table.Skins();
    const bool Known = std::find(Skins.begin(), Skins.end(), Skin) != Skins.end();
    const auto ColorOf = [&](const char* Key) {
        const auto C = Table.Color(Known ? Skin : Skins.front(), Key);
        return C ? QColor(C->FRed, C->FGreen, C->FBlue) : QColor();
    };
    QPalette Result;
    for (const TRole& Role : kRoles) Result.setColor(Role.Role, ColorOf(Role.Key));
    for (const QPalette::ColorRole Role : kDimmed) Result.setColor(QPalette::Disabled, Role, ColorOf("coDisabledText"));
    return Result;
}

bool ShowLook(TWorkstation& Workstation, TRenderContext& Context) {
    const fw::Text Skin = Workstation.LookAndFeel().GetSkinName();
    const fw::Text Profit = Workstation.LookAndFeel().GetPaletteName();
    const QPalette Colors = SkinPalette(Skin);
    const bool Same = Context.GetSkin() == Skin && Context.GetProfitPalette() == Profit &&
                      QApplication::palette().color(QPalette::Window) == Colors.color(QPalette::Window);
    if (!Same) {
        QApplication::setPalette(Colors);
        QToolTip::setPalette(Colors);
        Context.SetSkin(Skin, Profit);
    }
    Context.SetScale(Workstation.Config().ReadInteger(kPlatformSection, kPreferenceScale));
    return !Same;
}

}  // namespace ws
