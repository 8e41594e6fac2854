// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Text.h"

#include <algorithm>

namespace fw {

namespace {

char Upper(char C) { return C >= 'a' && C <= 'z' ? static_cast<char>(C - 'a' + 'A') : C; }
bool IsBlank(char C) { return static_cast<unsigned char>(C) <= 0x20; }

}  // namespace

Text Trim(std::string_view S) {
    const auto First = std::find_if_not(S.begin(), S.end(), IsBlank);
    const auto Last = std::find_if_not(S.rbegin(), std::make_reverse_iterator(First), IsBlank).base();
    return Text(First, Last);
}

bool SameText(std::string_view A, std::string_view B) {
    return std::equal(A.begin(), A.end(), B.begin(), B.end(), [](char X, char Y) { return Upper(X) == Upper(Y); });
}

Text UpperCase(std::string_view S) {
    Text Result(S);
    std::transform(Result.begin(), Result.end(), Result.begin(), Upper);
    return Result;
}

Text FormatText(std::string_view Pattern, const std::vector<Text>& Args) {
    Text Result;
    size_t Next = 0;
    for (size_t I = 0; I < Pattern.size(); ++I) {
        const char Follower = Pattern[I] == '%' && I + 1 < Pattern.size() ? Pattern[I + 1] : '\0';
        if (Follower == 's') {
            if (Next < Args.size()) Result += Args[Next];
            ++Next;
            ++I;
        } else if (Follower == '%') {
            Result += '%';
            ++I;
        } else {
            Result += Pattern[I];
        }
    }
    return Result;
}

}  // namespace fw
