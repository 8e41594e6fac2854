// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the store keeps of views and strategies. States are texts that the store does not read.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace ws {

// A journal belongs to one instance of a view in one workspace.
struct TJournalKey {
    std::string Workspace, Instance;
};

// States stand under consecutive numbers.
struct TJournalRows {
    int64_t First = 1;    // number of the first one
    int64_t Current = 1;  // number of the one that the view shows
    std::vector<std::string> States;
};

// What of a journal is different now. States outside First ... Last are removed.
struct TJournalChange {
    int64_t First = 1, Last = 0, Current = 1;
    std::map<int64_t, std::string> States;  // new ones and such with another text, by number
};

struct TStrategyRow {
    std::string Name, Note;
    int64_t Changed = 0;  // seconds since 1970-01-01 UTC
    std::string State;
};

}  // namespace ws
