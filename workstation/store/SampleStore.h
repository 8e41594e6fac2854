// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The sample market inside a store: put there on the first start, moved forward when it has aged, restored on
// request. Today is the exchange's market day as "yyyy/MM/dd", given by the caller; no clock is read here.

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "workstation/store/SampleMarket.h"
#include "workstation/store/Store.h"

namespace ws {

struct TSampleOutcome {
    std::vector<TStoreNotice> Notices;             // what the user should read; of a bad line: its reason's key,
                                                   // %1 file, %2 line, then the reason's own arguments
    bool Created = false;                          // the sample was put into the store
    int MonthsRolled = 0;                          // by how much it was moved by this call
    std::map<std::string, std::string> SymbolMap;  // old symbol -> new symbol of every contract that moved
};

// For every start. A store without sample gets it, laid out so that nothing in it has expired; a store with one is
// moved forward by whole months when its first expiry lies before Today, and a notice says so: contracts, their
// quotes, orders and executions move together, everything else stays. Otherwise nothing is written, so that a second
// call changes nothing. Opening positions in contracts that the files no longer list are dropped, with a notice each;
// those that were traded on stay.
// Without a readable sample folder the store stays as it is and a notice names the folder. Throws EStoreError.
TSampleOutcome PrepareSampleMarket(TStore& Store, const std::filesystem::path& Folder, const std::string& Today);

// Puts the sample back as the files have it today: exchanges of the sample, currencies, price steps, users,
// accounts and opening positions. Imported exchanges stay, as do positions in their contracts, the settings, and every
// order with its executions.
TSampleOutcome ResetSampleMarket(TStore& Store, const std::filesystem::path& Folder, const std::string& Today);

inline constexpr char kMetaSampleVersion[] = "SampleVersion";          // sample.csv's version
inline constexpr char kMetaSampleMonths[] = "SampleMonths";            // months after the base month
inline constexpr char kMetaSampleFirstExpiry[] = "SampleFirstExpiry";  // "yyyy/MM/dd"

inline constexpr char kSampleMissing[] = "Res_SampleMissing";                  // %1 folder
inline constexpr char kSampleRolled[] = "Res_SampleRolled";                    // %1 months, %2 first expiry
inline constexpr char kSamplePositionDropped[] = "Res_SamplePositionDropped";  // %1 account, %2 symbol

}  // namespace ws
