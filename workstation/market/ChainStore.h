// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <set>
#include <string>

#include "workstation/market/ChainImport.h"
#include "workstation/store/Store.h"

namespace ws {

// Called every 1,000 rows; false cancels.
using TStoreProgress = std::function<bool(std::size_t Done, std::size_t Total)>;

// Imports the chain into the store: reads the market, plans and writes within one transaction. Contracts with a
// position stay in any case; KeptSymbols adds those with orders. Returns what was done, for the message to the user.
// Throws EStoreError, or EMarketRefusal (no contracts; kImportCancelled); the store is then as it was before.
TChainChanges ApplyChainImport(TStore& Store, const TChainFile& Chain, std::set<std::string> KeptSymbols,
                               const TTextTable& Names, const TStoreProgress& Progress = {});

}  // namespace ws
