// SPDX-License-Identifier: Apache-2.0
// Texts of doubles against exact decimal arithmetic that shares nothing with them.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <cmath>

#include "framework/base/Numbers.h"

namespace fw {
namespace {

// A whole number of any size: limbs of nine decimal digits, the lowest first.
class TBigNumber {
public:
    explicit TBigNumber(uint64_t Value) {
        for (; Value > 0; Value /= kBase) FLimbs.push_back(static_cast<uint32_t>(Value % kBase));
    }
    void MultiplyBy(uint32_t Factor) {
        uint64_t Carry = 0;
        for (auto& Limb : FLimbs) {
            Carry += uint64_t{Limb} * Factor;
            Limb = static_cast<uint32_t>(Carry % kBase);
            Carry /= kBase;
        }
        if (Carry > 0) FLimbs.push_back(static_cast<uint32_t>(Carry));
    }
    Text Digits() const {
        Text Result;
        for (auto It = FLimbs.rbegin(); It != FLimbs.rend(); ++It) {
            const Text Limb = std::to_string(*It);
            Result += (Result.empty() ? Text() : Text(9 - Limb.size(), '0')) + Limb;
        }
        return Result;
    }

private:
    static constexpr uint64_t kBase = 1'000'000'000;
    std::vector<uint32_t> FLimbs;
};

// m * 2^e as it stands in the bits: for e < 0 it is m * 5^-e with the point -e places from the right.
Text ReferenceText(double Value, int Decimals) {
    int Exponent = 0;
    const double Fraction = std::frexp(std::fabs(Value), &Exponent);
    TBigNumber Number(static_cast<uint64_t>(std::ldexp(Fraction, 53)));
    Exponent -= 53;
    for (int I = 0; I < std::abs(Exponent); ++I) Number.MultiplyBy(Exponent < 0 ? 5 : 2);
    Text Digits = Number.Digits();
    size_t Places = Exponent < 0 ? static_cast<size_t>(-Exponent) : 0;
    if (Digits.size() <= Places) Digits.insert(0, Places + 1 - Digits.size(), '0');

    if (Places > static_cast<size_t>(Decimals)) {
        const size_t Cut = Digits.size() - (Places - static_cast<size_t>(Decimals));
        bool Up = Digits[Cut] >= '5';
        Digits.resize(Cut);
        Places = static_cast<size_t>(Decimals);
        for (size_t I = Cut; Up && I-- > 0;) {
            Up = Digits[I] == '9';
            Digits[I] = Up ? '0' : static_cast<char>(Digits[I] + 1);
        }
        if (Up) Digits.insert(0, 1, '1');
    }
    Text Whole = Digits.substr(0, Digits.size() - Places);
    Text Behind = Digits.substr(Digits.size() - Places);
    Whole.erase(0, std::min(Whole.find_first_not_of('0'), Whole.size() - 1));
    Behind.erase(Behind.find_last_not_of('0') + 1);
    const Text Plain = Behind.empty() ? Whole : Whole + "." + Behind;
    return std::signbit(Value) && Plain != "0" ? "-" + Plain : Plain;
}

template <class T>
rc::Gen<T> Evenly(T From, T Below) {
    return rc::gen::resize(rc::kNominalSize, rc::gen::inRange<T>(From, Below));
}

double FromParts(bool Negative, uint64_t RawExponent, uint64_t Mantissa) {
    return std::bit_cast<double>((uint64_t{Negative} << 63) | (RawExponent << 52) | Mantissa);
}

// Every exponent alike, denormal numbers included.
rc::Gen<double> AnyDouble() {
    return rc::gen::apply(FromParts, rc::gen::arbitrary<bool>(), Evenly<uint64_t>(0, 2047),
                          Evenly<uint64_t>(0, uint64_t{1} << 52));
}

// Magnitudes 2^-40 to 2^40, where prices and results are.
rc::Gen<double> UsualDouble() {
    return rc::gen::apply(FromParts, rc::gen::arbitrary<bool>(), Evenly<uint64_t>(1023 - 40, 1023 + 40),
                          Evenly<uint64_t>(0, uint64_t{1} << 52));
}

TEST(NumbersReference, KnowsKnownTexts) {
    EXPECT_EQ(ReferenceText(0.0, 8), "0");
    EXPECT_EQ(ReferenceText(-0.1, 20), "-0.10000000000000000555");
    EXPECT_EQ(ReferenceText(9.5, 0), "10");
    EXPECT_EQ(ReferenceText(1e23, 8), "99999999999999991611392");
}

RC_GTEST_PROP(FloatToTextProperty, EqualsExactArithmeticAtEveryMagnitude, ()) {
    const double Value = *AnyDouble();
    RC_ASSERT(PriceKey(Value) == ReferenceText(Value, 8));
}

RC_GTEST_PROP(FloatToTextProperty, EqualsExactArithmeticAtUsualMagnitudes, ()) {
    for (int I = 0; I < 20; ++I) {
        const double Value = *UsualDouble();
        const int Decimals = *rc::gen::inRange(0, 20);
        RC_ASSERT(FloatToText(Value, Decimals) == ReferenceText(Value, Decimals));
    }
}

RC_GTEST_PROP(FloatToTextProperty, EqualsExactArithmeticOnTies, ()) {
    for (int I = 0; I < 20; ++I) {
        const int Decimals = *rc::gen::inRange(0, 30);
        const auto Numerator = *Evenly<uint64_t>(0, uint64_t{1} << *Evenly(1, 53)) | 1;
        const double Value =
            std::ldexp(static_cast<double>(Numerator), -(Decimals + 1)) * (*rc::gen::arbitrary<bool>() ? -1 : 1);
        RC_ASSERT(FloatToText(Value, Decimals) == ReferenceText(Value, Decimals));
    }
}

RC_GTEST_PROP(FloatToTextProperty, EqualsExactArithmeticNextToTies, ()) {
    const double Tie = std::ldexp(static_cast<double>(*Evenly<uint64_t>(0, uint64_t{1} << 40) | 1), -9);
    for (const double Value : {std::nextafter(Tie, 0.0), Tie, std::nextafter(Tie, INFINITY)})
        RC_ASSERT(PriceKey(Value) == ReferenceText(Value, 8));
}

RC_GTEST_PROP(FloatToTextProperty, AllDecimalsReadBackAsTheSameNumber, ()) {
    const double Value = *AnyDouble();
    RC_ASSERT(TextToFloat(FloatToText(Value, 1074)) == Value);
}

RC_GTEST_PROP(FloatToTextProperty, KeysOfDecimalPricesAreThePricesThemselves, ()) {
    const auto Whole = *Evenly<uint64_t>(0, 1'000'000);
    const auto Behind = *Evenly<uint64_t>(0, 100'000'000);
    Text Tail = std::to_string(Behind + 100'000'000).substr(1);
    Tail.erase(Tail.find_last_not_of('0') + 1);
    const Text Key = std::to_string(Whole) + (Tail.empty() ? "" : "." + Tail);
    RC_ASSERT(PriceKey(*TextToFloat(Key)) == Key);
}

RC_GTEST_PROP(GroupedTextProperty, IsTheKeyWithCommasAndReadsBackAsTheKeyDoes, ()) {
    const double Value = *rc::gen::oneOf(AnyDouble(), UsualDouble());
    const Text Grouped = FloatToText(Value, 8, true);
    Text Plain = Grouped;
    std::erase(Plain, ',');
    RC_ASSERT(Plain == PriceKey(Value));
    RC_ASSERT(GroupedTextToFloat(Grouped) == TextToFloat(Plain));
}

RC_GTEST_PROP(FloatToShortestTextProperty, ReadsBackAsTheSameNumber, ()) {
    const double Value = *rc::gen::oneOf(AnyDouble(), UsualDouble());
    const Text Short = FloatToShortestText(Value);
    RC_ASSERT(TextToFloat(Short) == Value);
    const double Magnitude = std::fabs(Value);
    if (Magnitude >= 1e-6 && Magnitude < 1e17) RC_ASSERT(Short.find('e') == Text::npos);
}

RC_GTEST_PROP(TextToIntProperty, ReadsBackEveryNumber, (int32_t Value)) {
    RC_ASSERT(TextToInt(std::to_string(Value)) == Value);
}

}  // namespace
}  // namespace fw
