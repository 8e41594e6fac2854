// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "framework/base/Signal.h"
#include "framework/market/SubItem.h"

namespace ws {

// Real price units; what nobody quotes has no value.
struct TChainQuote {
    std::optional<double> Bid, Ask, Last;
    std::optional<double> AgeSeconds;  // since it last changed, never below 0

    std::optional<double> Middle() const;  // of bid and ask, else the last price
};

// An age in the one unit in which a trader says it.
struct TChainAge {
    const char* Key;  // resource key, %1 is the count
    int Count;
};
TChainAge ShownAge(double Seconds);

// The quotes of the symbols that somebody looks at, and of no others.
class TChainQuotes : public fw::TObject {
public:
    ~TChainQuotes() override;

    // Subscribes what is new and drops what is looked at no more.
    void Watch(const std::vector<fw::Text>& Symbols);
    TChainQuote Of(const fw::Text& Symbol) const;  // a symbol that is not watched has no values
    size_t WatchedCount() const { return FItems.size(); }

    fw::TSignal<> OnChanged;  // from the host's loop

private:
    std::map<fw::Text, fw::TCustomSubItem*> FItems;  // borrowed from the subscription service, which keeps them
};

}  // namespace ws
