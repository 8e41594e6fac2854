// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// An exchange that outlives the workstation: what it was sent and what it filled stand in two files, each line on disk
// before the order system hears of it.

#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "workstation/trading/OrderGateway.h"

namespace ws::kill {

struct TSent {
    std::string Id, Account, Symbol;
    int Side = 0;
    double Qty = 0.0;
};

struct TFilled {
    std::string OrderId, ExecutionId;
    double Qty = 0.0, Price = 0.0;
};

class TRoute : public IOrderGateway {
public:
    explicit TRoute(const std::filesystem::path& Folder);
    ~TRoute() override;
    TRoute(const TRoute&) = delete;
    TRoute& operator=(const TRoute&) = delete;

    void SetEvents(IOrderEvents* Events) override { FEvents = Events; }
    void Send(const TOrderRow& Order) override;
    void Cancel(const std::string& OrderId) override { FEvents->OrderCancelled(OrderId); }

    // Tells something about one of the latest orders, of earlier runs too: accepted, a fill, one told before once more,
    // refused, cancelled.
    void TellSomething(std::mt19937_64& Random);
    void TellFills(std::size_t Count);  // the latest ones, once more

    const std::vector<TSent>& Sent() const { return FSent; }
    const std::vector<TFilled>& Fills() const { return FFills; }

private:
    void Tell(const TFilled& Fill);
    void FillSome(const TSent& Order, std::mt19937_64& Random);

    IOrderEvents* FEvents = nullptr;  // borrowed
    int FSentFile, FFillFile;
    std::vector<TSent> FSent;
    std::vector<TFilled> FFills;
    std::map<std::string, double> FDone;     // order id -> filled
    std::map<std::string, int> FExecutions;  // order id -> how many fills
};

}  // namespace ws::kill
