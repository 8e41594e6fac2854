// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridOrder.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace fw {

namespace {

// Numbers, then texts, then nothing.
int KindOf(const Variant& Value) {
    if (Value.IsNull() || (Value.IsFloat() && std::isnan(Value.AsFloat()))) return 2;
    return Value.IsText() ? 1 : 0;
}

int Compare(const Variant& A, const Variant& B, int Kind) {
    if (Kind == 2) return 0;
    if (Kind == 1) return A.AsText().compare(B.AsText());
    if (A.IsInteger() && B.IsInteger()) {
        const int64_t X = A.AsInteger(), Y = B.AsInteger();
        return X < Y ? -1 : X > Y ? 1 : 0;
    }
    const double X = A.AsFloat(), Y = B.AsFloat();
    return X < Y ? -1 : X > Y ? 1 : 0;
}

}  // namespace

void TGridOrder::Sort(TCustomDataControl& Data, int Attribute, ESortOrder Order) {
    FRecords.clear();
    const int Count = Data.GetCount();
    if (Order == ESortOrder::None || Count <= 0) return;
    std::vector<Variant> Values;
    std::vector<int> Records(static_cast<size_t>(Count));
    Values.reserve(Records.size());
    for (int Record = 0; Record < Count; ++Record) Values.push_back(Data.GetValue(Record, Attribute));
    std::iota(Records.begin(), Records.end(), 0);
    std::stable_sort(Records.begin(), Records.end(), [&](int A, int B) {
        const Variant &X = Values[static_cast<size_t>(A)], &Y = Values[static_cast<size_t>(B)];
        const int Kind = KindOf(X), Other = KindOf(Y);
        if (Kind != Other)
            return Kind == 2 || Other == 2 || Order == ESortOrder::Ascending ? Kind < Other : Kind > Other;
        const int Result = Compare(X, Y, Kind);
        return Order == ESortOrder::Ascending ? Result < 0 : Result > 0;
    });
    FRecords = std::move(Records);
}

int TGridOrder::RecordAt(int Place) const {
    return Place >= 0 && static_cast<size_t>(Place) < FRecords.size() ? FRecords[static_cast<size_t>(Place)] : Place;
}

}  // namespace fw
