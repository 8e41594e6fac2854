// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/SymbolForms.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

namespace {

struct TFormCase {
    const char* Why;
    const char* Typed;
    const char* Expected;
};

TEST(SymbolForms, TypedTextsBecomeTheExchangesForm) {
    const TFormCase Cases[] = {
        {"root padded to six", "SPX   230217C04100000", "SPX230217C04100000"},
        {"already in form", "SPXW230203P01012500", "SPXW230203P01012500"},
        {"lower case, blanks around", "  spxw230203p01012500 ", "SPXW230203P01012500"},
        {"spoken with a plain strike", "spx 230217 c 4100", "SPX230217C04100000"},
        {"spoken with a fraction", "SPX 230217P4100.5", "SPX230217P04100500"},
        {"strike finer than a thousandth is no strike", "SPX 230217P4100.0005", "SPX230217P4100.0005"},
        {"no such day", "SPX 230230 C 4100", "SPX230230C4100"},
        {"futures and options of the other form", "HSI27000A9W25", "HSI27000A9W25"},
        {"with blanks between its parts", "hsi 27000 a9", "HSI27000A9"},
        {"a six-digit strike is no date", "HSI270001C9", "HSI270001C9"},
        {"future", "HSIF7", "HSIF7"},
        {"numeric code", "00005", "00005"},
        {"numeric code without its zeros", "5", "00005"},
        {"longer numeric code", "123456", "123456"},
        {"wide letters and digits of an input method", "\xEF\xBC\xA8\xEF\xBC\xB3\xEF\xBC\xA9\xEF\xBC\x91\xE3\x80\x80",
         "HSI1"},
        {"wide lower case", "\xEF\xBD\x88\xEF\xBD\x93\xEF\xBD\x89", "HSI"},
        {"unbroken blank",
         "HSI\xC2\xA0"
         "F7",
         "HSIF7"},
        {"nothing", "", ""},
        {"only blanks", " \t ", ""},
        {"other letters stay", "\xE6\x81\x92\xE6\x8C\x87", "\xE6\x81\x92\xE6\x8C\x87"},
    };
    for (const TFormCase& C : Cases) {
        SCOPED_TRACE(C.Why);
        EXPECT_EQ(ws::ConvertSymbolForm(C.Typed), C.Expected);
        EXPECT_EQ(ws::ConvertSymbolForm(C.Expected), C.Expected);
    }
}

// Seen: with a blank between the bytes of a wide letter the first conversion made the letter and the second one
// replaced it.
TEST(SymbolForms, BrokenBytesStandStillAtOnce) {
    const std::string Once = ws::ConvertSymbolForm("A\xEF \xBC\xA1");
    EXPECT_EQ(Once, "AA");
    EXPECT_EQ(ws::ConvertSymbolForm(Once), Once);
}

RC_GTEST_PROP(SymbolForms, TwiceIsOnceForAnyBytes, (const std::string& Typed)) {
    const std::string Once = ws::ConvertSymbolForm(Typed);
    RC_ASSERT(ws::ConvertSymbolForm(Once) == Once);
}

RC_GTEST_PROP(SymbolForms, TwiceIsOnceForWhatLooksLikeSymbols, ()) {
    const std::string Typed = *rc::gen::container<std::string>(
        rc::gen::elementOf(std::string("SPXhsi0123456789CcPp. \t\xEF\xBC\xA1\xE3\x80")));
    const std::string Once = ws::ConvertSymbolForm(Typed);
    RC_ASSERT(ws::ConvertSymbolForm(Once) == Once);
}

ws::TProductRow Product(const std::string& Symbol, const std::string& ShortCode) {
    ws::TProductRow Row;
    Row.Symbol = Symbol;
    if (!ShortCode.empty()) Row.Attributes["ShortCode"] = ShortCode;
    return Row;
}

TEST(SymbolConverter, ShortCodesNameTheirContract) {
    const ws::TSymbolConverter Converter({Product("HSIF7", "00005"), Product("00016", ""), Product("HSI27000A9", "")});
    EXPECT_EQ(Converter.Convert("00005"), "HSIF7");
    EXPECT_EQ(Converter.Convert(" 5 "), "HSIF7");
    EXPECT_EQ(Converter.Convert("00016"), "00016");
    EXPECT_EQ(Converter.Convert("hsi27000a9"), "HSI27000A9");
    EXPECT_EQ(Converter.Convert("unknown"), "UNKNOWN");
    for (const char* Typed : {"00005", "5", "16", "HSIF7", "x y"})
        EXPECT_EQ(Converter.Convert(Converter.Convert(Typed)), Converter.Convert(Typed)) << Typed;
}

TEST(SymbolConverter, AShortCodeThatIsASymbolLeadsNowhereElse) {
    const ws::TSymbolConverter Converter({Product("HSIF7", "00016"), Product("00016", "")});
    EXPECT_EQ(Converter.Convert("00016"), "00016");
}

// Seen: a symbol that the exchange writes in lower case came out in lower case from its short code, and in upper case
// from the second conversion.
TEST(SymbolConverter, AShortCodeOfASymbolInAnotherFormLeadsNowhere) {
    const ws::TSymbolConverter Converter({Product("hsif7", "00005"), Product("HSI F7", "00006")});
    for (const char* Typed : {"5", "00005", "6", "hsif7"})
        EXPECT_EQ(Converter.Convert(Converter.Convert(Typed)), Converter.Convert(Typed)) << Typed;
}

}  // namespace
