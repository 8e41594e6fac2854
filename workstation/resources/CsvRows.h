// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ws {

// One row of a resource table.
struct TResourceRow {
    std::size_t FLine = 0;  // line of the file on which the row ends, from 1: the one an editor shows for one-line rows
    std::vector<std::string> FFields;
};

// The rows of a small CSV text (RFC 4180: quoted fields may hold commas, doubled quotes and line breaks). Blank lines
// give no row. A text that breaks the quoting rules throws std::runtime_error with Name and the line.
std::vector<TResourceRow> ReadCsvRows(std::string_view Csv, const std::string& Name);

}  // namespace ws
