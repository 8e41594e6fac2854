// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/ScreenPlaces.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <climits>

namespace ws {

namespace {

constexpr TRectangle kMain{0, 0, 1920, 1080}, kLeft{-1280, 100, 1280, 800}, kAbove{0, -1440, 2560, 1440};

TRectangle AnyScreen() {
    return {*rc::gen::inRange(-5000, 5000), *rc::gen::inRange(-5000, 5000), *rc::gen::inRange(1, 4000),
            *rc::gen::inRange(1, 4000)};
}

bool IsInside(const TRectangle& Inner, const TRectangle& Outer) {
    return Inner.X >= Outer.X && Inner.Y >= Outer.Y && Inner.X + Inner.Width <= Outer.X + Outer.Width &&
           Inner.Y + Inner.Height <= Outer.Y + Outer.Height;
}

}  // namespace

TEST(ScreenPlaces, AWindowComesBackOntoAPresentScreen) {
    const struct {
        const char* Why;
        TRectangle Wanted;
        std::vector<TRectangle> Screens;
        TRectangle Place;
    } Cases[] = {
        {"where it was", {100, 50, 700, 500}, {kMain}, {100, 50, 700, 500}},
        {"on a screen left of the main one", {-1200, 200, 700, 500}, {kMain, kLeft}, {-1200, 200, 700, 500}},
        {"that screen is gone", {-1200, 200, 700, 500}, {kMain}, {0, 200, 700, 500}},
        {"high above, the screen is gone", {300, -1400, 700, 500}, {kMain}, {300, 0, 700, 500}},
        {"high above, the screen is there", {300, -1400, 700, 500}, {kMain, kAbove}, {300, -1400, 700, 500}},
        {"across two screens", {-300, 200, 700, 500}, {kMain, kLeft}, {-300, 200, 700, 500}},
        {"half out of sight", {1600, 900, 700, 500}, {kMain}, {1220, 580, 700, 500}},
        {"the screen has become smaller", {0, 0, 1920, 1080}, {{0, 0, 1280, 720}}, {0, 0, 1280, 720}},
        {"mostly on the second screen", {-400, 850, 700, 500}, {{0, 0, 800, 600}, kLeft}, {-700, 400, 700, 500}},
        {"far away", {INT_MAX - 10, INT_MIN + 10, 700, 500}, {kMain}, {1220, 0, 700, 500}},
        {"enormous", {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, {kMain}, {0, 0, 1920, 1080}},
        {"no screen is known", {-1200, 200, 700, 500}, {}, {-1200, 200, 700, 500}},
        {"nothing is known", {}, {kMain}, {}},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        const TRectangle Place = OntoScreens(Case.Wanted, Case.Screens);
        EXPECT_EQ(Place, Case.Place) << Place.X << ' ' << Place.Y << ' ' << Place.Width << ' ' << Place.Height;
    }
}

RC_GTEST_PROP(ScreenPlaces, WhatMovedLiesOnOneScreenAndStaysThere, ()) {
    std::vector<TRectangle> Screens;
    for (int Count = *rc::gen::inRange(1, 4); Count > 0; --Count) Screens.push_back(AnyScreen());
    const TRectangle Wanted = AnyScreen(), Place = OntoScreens(Wanted, Screens);
    if (Place == Wanted) return;
    RC_ASSERT(std::any_of(Screens.begin(), Screens.end(), [&](const auto& Each) { return IsInside(Place, Each); }));
    RC_ASSERT(OntoScreens(Place, Screens) == Place);
    RC_ASSERT(Place.Width <= Wanted.Width);
    RC_ASSERT(Place.Height <= Wanted.Height);
}

}  // namespace ws
