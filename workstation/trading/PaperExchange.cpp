// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/PaperExchange.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "workstation/trading/AveragePrices.h"

namespace ws {
namespace {

// In ticks.
constexpr int kShortestWay = 2, kLongestWay = 5;

constexpr int kFillOneIn = 2;   // a tick at which an order could be filled does fill it
constexpr int kWholeOneIn = 2;  // a fill is of all that is left

}  // namespace

TPaperExchange::TPaperExchange(TContractOf ContractOf, TPost Post, TPaperRules Rules)
    : FContractOf(std::move(ContractOf)), FPost(std::move(Post)), FRules(Rules), FRandom(Rules.Seed) {}

void TPaperExchange::Send(const TOrderRow& Order) {
    if (!FSeen.insert(Order.Id).second) return;
    TWorking Working;
    Working.Order = Order;
    Working.Left = Order.Qty;
    Working.AnswerIn = kShortestWay + static_cast<int>(Below(kLongestWay - kShortestWay + 1));
    FWorking.push_back(std::move(Working));
}

void TPaperExchange::Cancel(const std::string& OrderId) {
    if (!FSeen.contains(OrderId)) {
        Tell([OrderId](IOrderEvents& Events) { Events.OrderRejected(OrderId, {"Res_PaperUnknown", {}}); });
        return;
    }
    for (auto& Working : FWorking)
        if (Working.Order.Id == OrderId && !Working.CancelIn)
            Working.CancelIn = kShortestWay + static_cast<int>(Below(kLongestWay - kShortestWay + 1));
}

void TPaperExchange::Tick() {
    std::erase_if(FWorking, [this](TWorking& Working) { return !Advance(Working); });
}

bool TPaperExchange::Advance(TWorking& Working) {
    if (!Working.Accepted && --Working.AnswerIn > 0) return true;
    const auto Contract = FContractOf(Working.Order.Symbol);
    if (!Working.Accepted) return Answer(Working, Contract);
    if (!Contract || Contract->Expired || (Working.CancelIn && --*Working.CancelIn <= 0)) {
        Tell([Id = Working.Order.Id](IOrderEvents& Events) { Events.OrderCancelled(Id); });
        return false;
    }
    Match(Working, *Contract);
    return Working.Left > kNoQty;
}

bool TPaperExchange::Answer(TWorking& Working, const std::optional<TPaperContract>& Contract) {
    const bool Unlucky = FRules.RejectOneIn > 0 && Below(static_cast<std::uint64_t>(FRules.RejectOneIn)) == 0;
    const std::string& Symbol = Working.Order.Symbol;
    TReason Reason;
    if (!Contract)
        Reason = {"Res_PaperNotListed", {Symbol}};
    else if (Contract->Expired)
        Reason = {"Res_PaperExpired", {Symbol}};
    else if (Unlucky)
        Reason = {"Res_PaperRefused", {}};
    Working.Accepted = Reason.Key.empty();
    Tell([Id = Working.Order.Id, Reason](IOrderEvents& Events) {
        Reason.Key.empty() ? Events.OrderAccepted(Id) : Events.OrderRejected(Id, Reason);
    });
    return Working.Accepted;
}

void TPaperExchange::Match(TWorking& Working, const TPaperContract& Contract) {
    if (!Contract.Quote || Contract.Quote->Time.empty()) return;
    const bool Buys = Working.Order.Side == 0;
    const auto Offer = Buys ? Contract.Quote->Ask : Contract.Quote->Bid;
    if (!Offer || (Buys ? Working.Order.Price < *Offer : Working.Order.Price > *Offer)) return;
    if (Below(kFillOneIn) != 0) return;
    const double Qty = PartOf(Working.Left, Contract.Lot);
    Working.Left -= Qty;
    const std::string Id = Working.Order.Id, ExecutionId = Id + "/" + std::to_string(++Working.Fills);
    Tell([=, Price = *Offer](IOrderEvents& Events) { Events.OrderFilled(Id, ExecutionId, Qty, Price); });
}

double TPaperExchange::PartOf(double Left, double Lot) {
    constexpr double kMostLots = 1e9;
    const double Lots = Lot > 0 ? std::floor(Left / Lot + kNoQty) : 0.0;
    if (!(Lots > 1) || Lots > kMostLots || Below(kWholeOneIn) == 0) return Left;
    return Lot * static_cast<double>(1 + Below(static_cast<std::uint64_t>(Lots) - 1));
}

void TPaperExchange::Tell(std::function<void(IOrderEvents&)> What) {
    FPost([this, What = std::move(What)] {
        if (FEvents) What(*FEvents);
    });
}

}  // namespace ws
