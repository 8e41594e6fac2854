// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/TradingLimits.h"

#include <array>
#include <sstream>

#include "framework/base/Log.h"
#include "framework/base/Numbers.h"

namespace ws {

namespace {

constexpr std::array kLimits{TNamedLimit{"SoftQty", &TTradingLimits::SoftQty},
                             TNamedLimit{"HardQty", &TTradingLimits::HardQty},
                             TNamedLimit{"SoftValue", &TTradingLimits::SoftValue},
                             TNamedLimit{"HardValue", &TTradingLimits::HardValue},
                             TNamedLimit{"LastPercent", &TTradingLimits::LastPercent},
                             TNamedLimit{"LastSteps", &TTradingLimits::LastSteps},
                             TNamedLimit{"StaleSeconds", &TTradingLimits::StaleSeconds},
                             TNamedLimit{"SameBatchSeconds", &TTradingLimits::SameBatchSeconds}};
constexpr const char* kExchangesOf = "Exchanges.";

}  // namespace

std::span<const TNamedLimit> NamedLimits() { return kLimits; }

bool TTradingLimits::MayTrade(const std::string& Account, const std::string& Exchange) const {
    const auto It = ExchangesOfAccount.find(Account);
    return It == ExchangesOfAccount.end() || It->second.count(Exchange) != 0;
}

TTradingLimits ReadTradingLimits(const std::function<std::string(const std::string& Key)>& Read,
                                 const std::vector<std::string>& Accounts) {
    TTradingLimits Result;
    for (const auto& Limit : kLimits) {
        const std::string Text = Read(Limit.Name);
        if (Text.empty()) continue;
        if (const auto Value = fw::TextToFloat(Text); Value && *Value >= 0)
            Result.*Limit.Field = *Value;
        else
            fw::TLog::Warning("Res_LogTradingLimit", {Limit.Name, Text});
    }
    for (const auto& Account : Accounts) {
        std::istringstream Codes(Read(kExchangesOf + Account));
        for (std::string Code; Codes >> Code;) Result.ExchangesOfAccount[Account].insert(Code);
    }
    return Result;
}

}  // namespace ws
