// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <iterator>
#include <set>
#include <string>

namespace ws {
namespace {

// The icon's shape alone: the window draws it in one colour of the skin.
std::string Shape(const char* Name, int Size) {
    QImage Image(Size, Size, QImage::Format_ARGB32);
    Image.fill(Qt::transparent);
    QPainter Painter(&Image);
    QSvgRenderer(QStringLiteral(":/icons/%1.svg").arg(Name)).render(&Painter);
    Painter.end();
    std::string Result;
    for (int Y = 0; Y < Size; ++Y) {
        for (int X = 0; X < Size; ++X) Result += qAlpha(Image.pixel(X, Y)) > 96 ? '#' : ' ';
    }
    return Result;
}

TEST(Icons, AreDrawnAndToldApartByShapeAloneInACaption) {
    std::set<std::string> Shapes;
    const char* const kNames[] = {"less", "more", "show-hint", "hide-hint", "link", "workstation"};
    for (const char* Name : kNames) {
        const std::string Drawn = Shape(Name, 16);
        EXPECT_GT(std::count(Drawn.begin(), Drawn.end(), '#'), 20) << Name;
        Shapes.insert(Drawn);
    }
    EXPECT_EQ(Shapes.size(), std::size(kNames));
    EXPECT_EQ(Shape("nothing", 16), std::string(16 * 16, ' '));
}

}  // namespace
}  // namespace ws
