// SPDX-License-Identifier: GPL-3.0-or-later
// kill_test run FOLDER SEED      submits batches and tells fills until it is killed
// kill_test check FOLDER KILLS   checks what stands in FOLDER after so many kills
#include <functional>
#include <iostream>
#include <string>
#include <utility>

#include "tests/kill/KillCheck.h"
#include "tests/kill/KillRoute.h"
#include "workstation/store/Store.h"
#include "workstation/trading/OrderSystem.h"

namespace ws::kill {
namespace {

[[noreturn]] void RunForever(const std::filesystem::path& Folder, std::uint64_t Seed) {
    std::mt19937_64 Random(Seed);
    auto Opened = TStore::OpenFile(Folder / "store.db", "2026/11/21 09:00:00");
    TRoute Route(Folder);
    // Now and then what is told waits for the round, as it does in the workstation.
    std::function<void()> Posted;
    const auto Post = [&Posted](std::function<void()> Task) { Posted = std::move(Task); };
    TOrderSystem Orders(*Opened.Store, Route, Random() % 2 ? TOrderHost{{}, {}, Post} : TOrderHost{});
    Route.TellFills(5);  // the exchange repeats itself to whoever connects again
    for (int Batch = 1;; ++Batch) {
        const int Size = 1 + static_cast<int>(Random() % kMostInBatch);
        std::vector<TOrderTicket> Tickets;
        for (int Place = 1; Place <= Size; ++Place) {
            TOrderTicket Ticket;
            Ticket.Account = "A" + std::to_string(Random() % 3);
            Ticket.Symbol = "S" + std::to_string(Random() % 5);
            Ticket.Side = static_cast<int>(Random() % 2);
            Ticket.Price = 100;
            Ticket.Qty = static_cast<double>(1 + Random() % 10);
            Ticket.BatchId = std::to_string(Batch);
            Ticket.Place = Place;
            Ticket.BatchSize = Size;
            Tickets.push_back(Ticket);
        }
        Orders.PlaceAll(Tickets);
        for (int i = 0; i < Size; ++i) Route.TellSomething(Random);
        if (Posted) std::exchange(Posted, {})();
    }
}

}  // namespace
}  // namespace ws::kill

int main(int Count, char** Args) {
    try {
        const std::string What = Count == 4 ? Args[1] : "";
        if (What == "run") ws::kill::RunForever(Args[2], std::stoull(Args[3]));
        if (What == "check") return ws::kill::CheckAfterKill(Args[2], std::stoul(Args[3])) ? 0 : 1;
        std::cerr << "kill_test run FOLDER SEED | kill_test check FOLDER KILLS\n";
    } catch (const std::exception& Error) {
        std::cerr << Error.what() << "\n";
    }
    return 2;
}
