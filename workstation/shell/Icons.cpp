// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/Icons.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

// The resource file is part of a static library: its contents register only when somebody asks.
void InitialiseIconResources() { Q_INIT_RESOURCE(icons); }

namespace ws {

namespace {
constexpr int kIconSizes[] = {16, 24, 32, 64};

// Without a valid colour: as the file says.
QIcon Draw(const QString& Name, const QColor& Color) {
    InitialiseIconResources();
    const QString File = QStringLiteral(":/icons/%1.svg").arg(Name);
    QIcon Result;
    if (!QFile::exists(File)) return Result;
    QSvgRenderer Svg(File);
    for (const int Size : kIconSizes) {
        QPixmap Picture(Size, Size);
        Picture.fill(Qt::transparent);
        QPainter Painter(&Picture);
        Svg.render(&Painter);
        if (Color.isValid()) {
            Painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
            Painter.fillRect(Picture.rect(), Color);
        }
        Painter.end();
        Result.addPixmap(Picture);
    }
    return Result;
}

}  // namespace

QIcon SkinIcon(const QString& Name, const QColor& Color) { return Draw(Name, Color); }
QIcon PlainIcon(const QString& Name) { return Draw(Name, QColor()); }

}  // namespace ws
