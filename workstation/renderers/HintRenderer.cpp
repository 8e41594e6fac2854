// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/HintRenderer.h"

#include <QGuiApplication>
#include <QScreen>
#include <QToolTip>

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {
constexpr int kDistance = 16;  // pixels between mouse and hint, so that the hint does not cover what it explains
}

THintRenderer::THintRenderer(fw::THintController& Model, QWidget& Form) {
    FWindow = new QLabel(&Form, Qt::ToolTip | Qt::WindowTransparentForInput);
    FWindow->setAttribute(Qt::WA_ShowWithoutActivating);
    FWindow->setFrameShape(QFrame::Box);
    FWindow->setMargin(4);
    FWindow->setTextFormat(Qt::RichText);
    FWindow->setAutoFillBackground(true);
    FWindow->hide();
    FLink = Model.OnChanged.Connect([this, &Model] { Reload(Model); });
}

THintRenderer::~THintRenderer() { delete FWindow; }

void THintRenderer::Reload(fw::THintController& Model) {
    if (!FWindow) return;
    if (!Model.IsShown()) {
        FWindow->hide();
        return;
    }
    FWindow->setPalette(QToolTip::palette());
    FWindow->setForegroundRole(QPalette::ToolTipText);
    FWindow->setBackgroundRole(QPalette::ToolTipBase);
    const auto Line = [](const fw::Text& Text, int Points, const char* Weight) {
        QString Body = ToQt(Text).toHtmlEscaped();
        Body.remove(QLatin1Char('\r')).replace(QLatin1Char('\n'), QLatin1String("<br>"));
        return QStringLiteral("<div style='font-size:%1pt;font-weight:%2'>%3</div>")
            .arg(QString::number(Points), QLatin1String(Weight), Body);
    };
    QString Html =
        Model.GetCaption().empty() ? QString() : Line(Model.GetCaption(), Model.GetCaptionFontSize(), "bold");
    Html += Line(Model.GetText(), Model.GetTextFontSize(), "normal");
    FWindow->setText(Html);
    FWindow->adjustSize();
    QPoint At(Model.GetX() + kDistance, Model.GetY() + kDistance);
    const QScreen* Screen = QGuiApplication::screenAt(QPoint(Model.GetX(), Model.GetY()));
    if (Screen) {
        const QRect Area = Screen->availableGeometry();
        if (At.x() + FWindow->width() > Area.right()) At.setX(Model.GetX() - kDistance - FWindow->width());
        if (At.y() + FWindow->height() > Area.bottom()) At.setY(Model.GetY() - kDistance - FWindow->height());
    }
    FWindow->move(At);
    FWindow->show();
    FWindow->raise();
}

}  // namespace ws
