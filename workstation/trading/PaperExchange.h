// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <random>
#include <set>
#include <string>

#include "workstation/market/MarketRows.h"
#include "workstation/trading/OrderGateway.h"

namespace ws {

// A contract as the paper exchange trades it.
struct TPaperContract {
    const TQuoteRow* Quote = nullptr;  // borrowed for the moment; null or without a time: no data now
    bool Expired = false;
    double Lot = 1.0;  // fills come in multiples of it; 0 or less: in one piece
};

struct TPaperRules {
    std::uint64_t Seed = 0;
    int RejectOneIn = 40;  // one order in so many is refused for no reason of its own; 0: none
};

// The exchange that comes with the workstation: matches limit orders against the simulated quotes. A buy fills at the
// ask once its price is there or above, a sell at the bid once its price is there or below; until then, and while there
// are no data, the order waits. A price of 0 is a limit of 0. An order is answered some ticks after it was sent, fills
// come in one piece or in parts, a cancel takes some ticks and a fill may come before it. An order for a contract that
// is not listed or has expired is refused; one that is waiting when its contract expires is cancelled. It forgets
// everything when it ends: a cancel for an order that it does not know is answered with a refusal.
// Deterministic: the seed, the orders, the quotes and the ticks decide everything.
class TPaperExchange : public IOrderGateway {
public:
    using TContractOf = std::function<std::optional<TPaperContract>(const std::string& Symbol)>;  // nothing: not listed
    using TPost = std::function<void(std::function<void()>)>;  // runs a task later, never at once

    // What Post keeps must not run after the exchange has gone.
    TPaperExchange(TContractOf ContractOf, TPost Post, TPaperRules Rules);

    void SetEvents(IOrderEvents* Events) override { FEvents = Events; }
    void Send(const TOrderRow& Order) override;  // a second one of the same id is left out
    void Cancel(const std::string& OrderId) override;

    void Tick();  // time goes on by one tick

private:
    struct TWorking {
        TOrderRow Order;
        double Left = 0.0;
        int Fills = 0;
        bool Accepted = false;
        int AnswerIn = 0;             // ticks until it is accepted or refused
        std::optional<int> CancelIn;  // ticks until the cancel arrives
    };

    bool Advance(TWorking& Working);  // false: it has ended
    bool Answer(TWorking& Working, const std::optional<TPaperContract>& Contract);
    void Match(TWorking& Working, const TPaperContract& Contract);
    double PartOf(double Left, double Lot);
    std::uint64_t Below(std::uint64_t Count) { return FRandom() % Count; }
    void Tell(std::function<void(IOrderEvents&)> What);

    TContractOf FContractOf;
    TPost FPost;
    TPaperRules FRules;
    std::mt19937_64 FRandom;
    IOrderEvents* FEvents = nullptr;  // borrowed
    std::deque<TWorking> FWorking;    // in the order in which they came
    std::set<std::string> FSeen;      // ids of all orders ever sent
};

}  // namespace ws
