// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "framework/data/DataControl.h"

namespace fw {

// A table with more records is not sorted: the value of each would be asked for and held.
inline constexpr int kMostSorted = 1'000'000;

enum class ESortOrder { None, Ascending, Descending };

// In which order a table shows the records of its data control: by the values of one attribute, numbers as numbers,
// texts by their bytes. Equal ones keep the order of the data, cells without a value come last both ways.
class FRAMEWORK_API TGridOrder {
public:
    // Asks for every record's value.
    void Sort(TCustomDataControl& Data, int Attribute, ESortOrder Order);
    void Clear() { FRecords.clear(); }
    int RecordAt(int Place) const;

private:
    std::vector<int> FRecords;  // by place; empty: as the data come
};

}  // namespace fw
