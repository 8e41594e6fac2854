// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/ChainSeries.h"

#include <algorithm>

namespace ws {

namespace {

enum class EForm { Root, Day, Date };

std::string MonthOf(const std::string& Expiry) { return Expiry.substr(0, 4) + "-" + Expiry.substr(5, 2); }

std::string CodeOf(const TRootExpiry& E, EForm Form) {
    if (Form == EForm::Root) return E.Root;
    if (Form == EForm::Day) return E.Root + "." + E.Expiry.substr(8, 2);
    return E.Root + "." + E.Expiry.substr(2, 2) + E.Expiry.substr(5, 2) + E.Expiry.substr(8, 2);
}

// ROOT and a point before Digits digits.
bool HasForm(const std::string& Code, const std::string& Root, std::size_t Digits) {
    return Code.size() == Root.size() + 1 + Digits && Code.starts_with(Root) && Code[Root.size()] == '.' &&
           std::all_of(Code.begin() + static_cast<std::ptrdiff_t>(Root.size()) + 1, Code.end(),
                       [](char C) { return C >= '0' && C <= '9'; });
}

bool AnyHasForm(const std::set<std::string>& Series, const std::string& Root, std::size_t Digits) {
    return std::any_of(Series.begin(), Series.end(), [&](const std::string& C) { return HasForm(C, Root, Digits); });
}

bool SeveralInAMonth(const std::string& Root, const std::set<TRootExpiry>& A, const std::set<TRootExpiry>& B) {
    std::map<std::string, std::set<std::string>> ExpiriesOfMonth;
    for (const auto* Set : {&A, &B})
        for (const TRootExpiry& E : *Set)
            if (E.Root == Root) ExpiriesOfMonth[MonthOf(E.Expiry)].insert(E.Expiry);
    return std::any_of(ExpiriesOfMonth.begin(), ExpiriesOfMonth.end(),
                       [](const auto& M) { return M.second.size() > 1; });
}

std::map<std::string, EForm> FormsOf(const std::set<TRootExpiry>& InFile, const TListedExpiries& Listed) {
    std::map<std::string, EForm> Forms;
    for (const TRootExpiry& E : InFile) {
        if (Forms.contains(E.Root)) continue;
        EForm Form = EForm::Root;
        if (AnyHasForm(Listed.Series, E.Root, 6))
            Form = EForm::Date;
        else if (AnyHasForm(Listed.Series, E.Root, 2) || SeveralInAMonth(E.Root, InFile, Listed.Staying))
            Form = EForm::Day;
        Forms.emplace(E.Root, Form);
    }
    return Forms;
}

// No series of the exchange has more months than the exchange has series.
bool WithinBound(const std::map<TRootExpiry, std::string>& Assigned, const TListedExpiries& Listed) {
    std::set<std::string> Series = Listed.Series;
    std::map<std::string, std::set<std::string>> Months;
    for (const auto& [Code, Month] : Listed.OtherMonths) Months[Code].insert(Month);
    for (const TRootExpiry& E : Listed.Staying) Months[Listed.SeriesOf.at(E)].insert(MonthOf(E.Expiry));
    for (const auto& [E, Code] : Assigned) {
        Series.insert(Code);
        Months[Code].insert(MonthOf(E.Expiry));
    }
    return std::all_of(Months.begin(), Months.end(), [&](const auto& M) { return M.second.size() <= Series.size(); });
}

}  // namespace

std::map<TRootExpiry, std::string> AssignSeries(const std::set<TRootExpiry>& InFile, const TListedExpiries& Listed) {
    const std::map<std::string, EForm> Forms = FormsOf(InFile, Listed);
    const auto Assign = [&](bool EachItsOwn) {
        std::map<TRootExpiry, std::string> Result;
        for (const TRootExpiry& E : InFile) {
            const auto Known = Listed.SeriesOf.find(E);
            Result[E] =
                Known != Listed.SeriesOf.end() ? Known->second : CodeOf(E, EachItsOwn ? EForm::Date : Forms.at(E.Root));
        }
        return Result;
    };
    std::map<TRootExpiry, std::string> Result = Assign(false);
    return WithinBound(Result, Listed) ? Result : Assign(true);
}

}  // namespace ws
