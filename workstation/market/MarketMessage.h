// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How the market room speaks to the user: a resource key and its arguments, never a text.

#include <exception>
#include <string>
#include <vector>

namespace ws {

struct TMarketMessage {
    std::string Key;                // "Res_..."; empty = nothing to say
    std::vector<std::string> Args;  // for %1, %2, ... of the key's text
};

// An import or a price-step table is refused as a whole; nothing was changed.
class EMarketRefusal : public std::exception {
public:
    explicit EMarketRefusal(TMarketMessage Reason);
    ~EMarketRefusal() override;

    const TMarketMessage& Reason() const { return FReason; }
    const char* what() const noexcept override;  // key and arguments in one line, for the log

private:
    TMarketMessage FReason;
    std::string FWhat;
};

}  // namespace ws
