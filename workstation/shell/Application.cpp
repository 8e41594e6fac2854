// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/Application.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include <QFont>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

#include "framework/base/Dispatch.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

namespace {

// The platform without a screen warns about every window; that one line says nothing to anybody.
void HandleToolkitMessage(QtMsgType, const QMessageLogContext&, const QString& Message) {
    if (Message == QLatin1String("This plugin does not support propagateSizeHints()")) return;
    std::fprintf(stderr, "%s\n", qUtf8Printable(Message));
}

// What the base style counts in pixels of its own, whatever the font.
constexpr std::array kScaledMetrics{
    QStyle::PM_SmallIconSize,           QStyle::PM_ButtonIconSize,           QStyle::PM_ToolBarIconSize,
    QStyle::PM_ListViewIconSize,        QStyle::PM_TabBarIconSize,           QStyle::PM_MessageBoxIconSize,
    QStyle::PM_LineEditIconSize,        QStyle::PM_IndicatorWidth,           QStyle::PM_IndicatorHeight,
    QStyle::PM_ExclusiveIndicatorWidth, QStyle::PM_ExclusiveIndicatorHeight, QStyle::PM_ScrollBarExtent,
    QStyle::PM_ScrollBarSliderMin,      QStyle::PM_MenuButtonIndicator,      QStyle::PM_TabBarTabHSpace,
    QStyle::PM_TabBarTabVSpace,         QStyle::PM_LayoutHorizontalSpacing,  QStyle::PM_LayoutVerticalSpacing,
    QStyle::PM_LayoutLeftMargin,        QStyle::PM_LayoutTopMargin,          QStyle::PM_LayoutRightMargin,
    QStyle::PM_LayoutBottomMargin};

// Borders, grid lines and the grounds of texts in the skin's own colours; the base style derives them from the
// window's, which a dark skin swallows, and shades buttons until a text on them is hard to read.
class TSkinStyle : public QProxyStyle {
public:
    TSkinStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    void drawPrimitive(PrimitiveElement Element, const QStyleOption* Option, QPainter* Painter,
                       const QWidget* Widget) const override {
        const bool Button = Element == PE_PanelButtonCommand;
        const bool Bare = Element == PE_FrameLineEdit || Element == PE_Frame;
        if (Button)
            Painter->fillRect(Option->rect,
                              Option->palette.color(Option->state & State_Sunken ? QPalette::Light : QPalette::Button));
        else if (!Bare)
            QProxyStyle::drawPrimitive(Element, Option, Painter, Widget);
        if (Bare || Button || Element == PE_IndicatorCheckBox)
            DrawBorder(Option, Painter, Element != PE_Frame && (Option->state & State_HasFocus));
    }
    void drawComplexControl(ComplexControl Control, const QStyleOptionComplex* Option, QPainter* Painter,
                            const QWidget* Widget) const override {
        const auto* Combo = qstyleoption_cast<const QStyleOptionComboBox*>(Option);
        if (Control != CC_ComboBox || !Combo || Combo->editable || !Combo->frame)
            return QProxyStyle::drawComplexControl(Control, Option, Painter, Widget);
        Painter->fillRect(Option->rect, Option->palette.color(QPalette::Button));
        QStyleOption Arrow = *Option;
        const int Side = Option->fontMetrics.ascent();
        Arrow.rect = QRect(0, 0, Side, Side);
        Arrow.rect.moveCenter(subControlRect(Control, Option, SC_ComboBoxArrow, Widget).center());
        QProxyStyle::drawPrimitive(PE_IndicatorArrowDown, &Arrow, Painter, Widget);
        DrawBorder(Option, Painter, Option->state & State_HasFocus);
    }
    void drawControl(ControlElement Element, const QStyleOption* Option, QPainter* Painter,
                     const QWidget* Widget) const override {
        if (Element == CE_TabBarTabShape) return DrawTab(Option, Painter);
        if (Element != CE_HeaderSection) return QProxyStyle::drawControl(Element, Option, Painter, Widget);
        Painter->fillRect(Option->rect, Option->palette.color(QPalette::Light));
        Painter->setPen(Option->palette.color(QPalette::Mid));
        Painter->drawLine(Option->rect.bottomLeft(), Option->rect.bottomRight());
        Painter->drawLine(Option->rect.topRight(), Option->rect.bottomRight());
    }
    int pixelMetric(PixelMetric Metric, const QStyleOption* Option, const QWidget* Widget) const override {
        const int Pixels = QProxyStyle::pixelMetric(Metric, Option, Widget);
        if (std::find(kScaledMetrics.begin(), kScaledMetrics.end(), Metric) == kScaledMetrics.end()) return Pixels;
        return static_cast<int>(std::lround(Pixels * QApplication::font().pointSizeF() / kFontPoints));
    }
    int styleHint(StyleHint Hint, const QStyleOption* Option, const QWidget* Widget,
                  QStyleHintReturn* Data) const override {
        if (Hint == SH_Table_GridLineColor && Option)
            return static_cast<int>(Option->palette.color(QPalette::Midlight).rgb());
        return QProxyStyle::styleHint(Hint, Option, Widget, Data);
    }

private:
    // The chosen tab is told by ground and border, in a skin of one ground too.
    static void DrawTab(const QStyleOption* Option, QPainter* Painter) {
        const bool Chosen = Option->state & State_Selected;
        Painter->fillRect(Option->rect, Option->palette.color(Chosen ? QPalette::Base : QPalette::Button));
        DrawBorder(Option, Painter, Chosen);
    }
    static void DrawBorder(const QStyleOption* Option, QPainter* Painter, bool Focused) {
        Painter->save();
        Painter->setPen(Option->palette.color(Focused ? QPalette::Highlight : QPalette::Mid));
        Painter->setBrush(Qt::NoBrush);
        Painter->drawRect(Option->rect.adjusted(0, 0, -1, -1));
        Painter->restore();
    }
};

}  // namespace

TApplication::TApplication(int& ArgumentCount, char** Arguments) : QApplication(ArgumentCount, Arguments) {
    qInstallMessageHandler(HandleToolkitMessage);
    setApplicationName(QStringLiteral("ventiq-workstation"));
    setStyle(new TSkinStyle);
    QFont Font;
    Font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("WenQuanYi Micro Hei")});
    Font.setPointSizeF(kFontPoints);
    setFont(Font);
}

bool TApplication::notify(QObject* Receiver, QEvent* Event) {
    bool Result = false;
    fw::Dispatch("event", [&] { Result = QApplication::notify(Receiver, Event); });
    return Result;
}

}  // namespace ws
