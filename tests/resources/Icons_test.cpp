// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/resources/Icons.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <iterator>
#include <set>
#include <string>

namespace ws {
namespace {

QImage Drawn(const char* Name) {
    return IconByName(Name).pixmap(32, 32).toImage().convertToFormat(QImage::Format_ARGB32);
}

int PaintedPixels(const QImage& Image) {
    int Count = 0;
    for (int Y = 0; Y < Image.height(); ++Y) {
        for (int X = 0; X < Image.width(); ++X) Count += qAlpha(Image.pixel(X, Y)) > 0 ? 1 : 0;
    }
    return Count;
}

TEST(Icons, EachIsDrawnAndTellsItselfFromTheOthers) {
    int Argc = 1;
    char Program[] = "icons";
    char* Argv[] = {Program, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication Application(Argc, Argv);
    std::set<std::string> Pictures;
    const char* const kNames[] = {"less", "more", "show-hint", "hide-hint", "workstation"};
    for (const char* Name : kNames) {
        SCOPED_TRACE(Name);
        const QImage Image = Drawn(Name);
        EXPECT_GE(Image.width(), 16);
        EXPECT_GT(PaintedPixels(Image), 50);
        Pictures.insert(std::string(reinterpret_cast<const char*>(Image.constBits()),
                                    static_cast<std::size_t>(Image.sizeInBytes())));
    }
    EXPECT_EQ(Pictures.size(), std::size(kNames));
    EXPECT_TRUE(IconByName("nothing").isNull());
}

}  // namespace
}  // namespace ws
