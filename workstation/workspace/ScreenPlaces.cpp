// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/ScreenPlaces.h"

#include <algorithm>
#include <cstdint>

namespace ws {

namespace {

// Edges are summed in 64 bits: a file may hold any number.
std::int64_t Overlap(std::int64_t A, std::int64_t ALength, std::int64_t B, std::int64_t BLength) {
    return std::max<std::int64_t>(0, std::min(A + ALength, B + BLength) - std::max(A, B));
}

std::int64_t Shared(const TRectangle& A, const TRectangle& B) {
    return Overlap(A.X, A.Width, B.X, B.Width) * Overlap(A.Y, A.Height, B.Y, B.Height);
}

std::int64_t Gap(std::int64_t A, std::int64_t ALength, std::int64_t B, std::int64_t BLength) {
    return std::max<std::int64_t>({0, B - (A + ALength), A - (B + BLength)});
}

std::int64_t Distance(const TRectangle& A, const TRectangle& B) {
    return Gap(A.X, A.Width, B.X, B.Width) + Gap(A.Y, A.Height, B.Y, B.Height);
}

int Within(int Wanted, int Length, int Begin, int Room) {
    const std::int64_t Last = static_cast<std::int64_t>(Begin) + Room - Length;
    return static_cast<int>(std::clamp<std::int64_t>(Wanted, Begin, std::max<std::int64_t>(Begin, Last)));
}

}  // namespace

TRectangle OntoScreens(const TRectangle& Wanted, const std::vector<TRectangle>& Screens) {
    if (Screens.empty() || Wanted.IsEmpty()) return Wanted;
    std::int64_t Seen = 0;
    const TRectangle* Best = &Screens.front();
    for (const TRectangle& Screen : Screens) {
        const std::int64_t Part = Shared(Wanted, Screen), Most = Shared(Wanted, *Best);
        Seen += Part;
        if (Part > Most || (Most == 0 && Distance(Wanted, Screen) < Distance(Wanted, *Best))) Best = &Screen;
    }
    if (Seen >= static_cast<std::int64_t>(Wanted.Width) * Wanted.Height) return Wanted;
    const int Width = std::min(Wanted.Width, Best->Width), Height = std::min(Wanted.Height, Best->Height);
    return {Within(Wanted.X, Width, Best->X, Best->Width), Within(Wanted.Y, Height, Best->Y, Best->Height), Width,
            Height};
}

}  // namespace ws
