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
constexpr int kIconSizes[] = {16, 24, 32};
}

QIcon SkinIcon(const QString& Name, const QColor& Color) {
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
        Painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        Painter.fillRect(Picture.rect(), Color);
        Painter.end();
        Result.addPixmap(Picture);
    }
    return Result;
}

}  // namespace ws
