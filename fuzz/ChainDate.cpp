// SPDX-License-Identifier: GPL-3.0-or-later
// Dates of chain files. A text that reads is a day that exists, with a time of day; upper and lower case are one; a
// refusal leaves the result alone. Without an order, a text that reads does so the same in both orders, and an
// ambiguous one reads as two different days.
#include "workstation/market/ChainDate.h"

#include "framework/base/Text.h"
#include "fuzz/FuzzTarget.h"
#include "workstation/market/MarketDay.h"

namespace {

using fuzz::Require;
using ws::EDateOrder;
using ws::EDateReading;

struct TAnswer {
    EDateReading Reading;
    ws::TChainDate Date;
};

TAnswer Read(std::string_view Text, EDateOrder Order) {
    TAnswer Answer{EDateReading::NoDate, {"untouched", "untouched", "untouched", -1}};
    Answer.Reading = ws::ReadChainDate(Text, Order, Answer.Date);
    return Answer;
}

bool Same(const TAnswer& A, const TAnswer& B) {
    return A.Reading == B.Reading && A.Date.Day == B.Date.Day && A.Date.Time == B.Date.Time &&
           A.Date.Zone == B.Date.Zone && A.Date.UtcOffsetMinutes == B.Date.UtcOffsetMinutes;
}

bool IsTimeOfDay(std::string_view S) {  // " 23:59:59"
    const auto Within = [&](size_t I, char Ten) {
        return S[I] >= '0' && S[I] <= Ten && S[I + 1] >= '0' && S[I + 1] <= (I == 1 && S[I] == '2' ? '3' : '9');
    };
    return S.size() == 9 && S[0] == ' ' && S[3] == ':' && S[6] == ':' && Within(1, '2') && Within(4, '5') &&
           Within(7, '5');
}

void CheckAnswer(const TAnswer& Answer) {
    if (Answer.Reading != EDateReading::Read) {
        Require(Answer.Date.Day == "untouched" && Answer.Date.Time == "untouched" && Answer.Date.Zone == "untouched" &&
                    Answer.Date.UtcOffsetMinutes == -1,
                "a refusal leaves the result alone");
        return;
    }
    const auto Day = ws::MarketDayOf(Answer.Date.Day);
    Require(Day.has_value(), "a day that was read exists");
    Require(ws::ReadDayOnly(Answer.Date.Day, EDateOrder::Unstated) == Day, "and reads as itself");
    Require(Answer.Date.Time.starts_with(Answer.Date.Day) &&
                IsTimeOfDay(std::string_view(Answer.Date.Time).substr(Answer.Date.Day.size())),
            "the time is the day's and one of the clock");
    Require(!Answer.Date.UtcOffsetMinutes || !Answer.Date.Zone.empty(), "no offset without a zone");
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
    const std::string_view Text = fuzz::AsText(Data, Size);
    const TAnswer Unstated = Read(Text, EDateOrder::Unstated);
    const TAnswer DayFirst = Read(Text, EDateOrder::DayFirst), MonthFirst = Read(Text, EDateOrder::MonthFirst);
    for (const auto& Answer : {Unstated, DayFirst, MonthFirst}) CheckAnswer(Answer);
    Require(Same(Read(fw::UpperCase(Text), EDateOrder::Unstated), Unstated), "case changes nothing");

    if (Unstated.Reading != EDateReading::Ambiguous) {
        Require(Same(DayFirst, Unstated) && Same(MonthFirst, Unstated), "an order decides nothing that is decided");
        return 0;
    }
    Require(DayFirst.Reading == EDateReading::Read && MonthFirst.Reading == EDateReading::Read &&
                DayFirst.Date.Day != MonthFirst.Date.Day,
            "an ambiguous date is two days");
    return 0;
}
