// SPDX-License-Identifier: Apache-2.0
// What users type as a number. A text that makes sense in one way reads the same in every number format; one that makes
// sense in two ways names two different numbers, each with a text that reads as it and as nothing else; and the text of
// a place that shows the number is never doubted there.
#include <algorithm>
#include <cmath>
#include <vector>

#include "framework/base/NumberFormat.h"
#include "framework/base/Numbers.h"
#include "fuzz/FuzzTarget.h"

namespace {

using fuzz::Require;
using enum fw::ENumberText;

fw::TNumberReading Read(std::string_view Text) { return fw::ReadNumberText(Text, nullptr); }

void CheckNumber(double Value) {
    Require(std::isfinite(Value), "a number is finite");
    const auto Again = Read(fw::FormatUnmistakably(Value));
    Require(Again.Kind == Number && Again.Value == Value, "it has a text with one reading");
    for (const fw::Text& Shown : {fw::FormatNumber(Value, 8, true), fw::FormatNumber(Value, 8, true, 3)}) {
        const auto Back = fw::ReadNumberText(Shown, [&](double) { return Shown; });
        Require(Back.Kind == Number && std::fabs(Back.Value - Value) <= 0.5e-8 + 1e-15 * std::fabs(Value),
                "what a place shows is read back there");
    }
}

fw::TNumberReading CheckReading(std::string_view Text) {
    const auto Reading = Read(Text);
    if (Reading.Kind == Number) CheckNumber(Reading.Value);
    if (Reading.Kind == Ambiguous) {
        CheckNumber(Reading.Value);
        CheckNumber(Reading.Other);
        Require(Reading.Value != Reading.Other, "two readings differ");
    }
    return Reading;
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
    const auto Text = fuzz::AsText(Data, Size);
    const auto InC = CheckReading(Text);
    if (const auto Plain = fw::TextToFloat(Text))
        Require(InC.Value == *Plain && (InC.Kind == Number || InC.Kind == Ambiguous), "a number in C form is one");

    for (const auto& Name : fw::NumberFormatNames()) {
        fw::SetNumberFormat(*fw::FindNumberFormat(Name));
        const auto Here = CheckReading(Text);
        const bool Doubted = InC.Kind == Ambiguous || Here.Kind == Ambiguous;
        Require(Doubted || (Here.Kind == InC.Kind && Here.Value == InC.Value), "one reading is the same everywhere");
        Require(Here.Kind == Number || Here.Kind == InC.Kind || Doubted, "doubts are of formats");
    }
    fw::SetNumberFormat({});
    return 0;
}
