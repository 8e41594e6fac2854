// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/resources/CsvRows.h"

#include <csv.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace ws {

namespace {

struct TCollector {
    std::vector<TResourceRow> FRows;
    TResourceRow FRow;
    std::size_t FLine = 1;
};

void OnField(void* Bytes, std::size_t Size, void* Data) {
    auto& Collector = *static_cast<TCollector*>(Data);
    Collector.FRow.FFields.emplace_back(Bytes ? static_cast<const char*>(Bytes) : "", Bytes ? Size : 0);
}

void OnRow(int, void* Data) {
    auto& Collector = *static_cast<TCollector*>(Data);
    Collector.FRow.FLine = Collector.FLine;
    Collector.FRows.push_back(std::move(Collector.FRow));
    Collector.FRow = {};
}

}  // namespace

std::vector<TResourceRow> ReadCsvRows(std::string_view Csv, const std::string& Name) {
    csv_parser Parser;
    if (csv_init(&Parser, CSV_STRICT | CSV_STRICT_FINI) != 0)
        throw std::runtime_error(Name + ": no memory for the reader");
    const std::unique_ptr<csv_parser, void (*)(csv_parser*)> Guard(&Parser, csv_free);

    // Fed line by line, so that a row and a complaint know their line.
    TCollector Collector;
    const auto Fail = [&] {
        throw std::runtime_error(Name + ", line " + std::to_string(Collector.FLine) + ": " +
                                 csv_strerror(csv_error(&Parser)));
    };
    while (!Csv.empty()) {
        const std::size_t Size = std::min(Csv.find('\n'), Csv.size() - 1) + 1;
        if (csv_parse(&Parser, Csv.data(), Size, OnField, OnRow, &Collector) != Size) Fail();
        if (Csv[Size - 1] == '\n') ++Collector.FLine;
        Csv.remove_prefix(Size);
    }
    if (csv_fini(&Parser, OnField, OnRow, &Collector) != 0) Fail();
    return std::move(Collector.FRows);
}

}  // namespace ws
