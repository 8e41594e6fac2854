// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/kill/KillRoute.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace ws::kill {
namespace {

constexpr std::size_t kLatest = 20;

int OpenLog(const std::filesystem::path& File) {
    const int Handle = ::open(File.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    if (Handle < 0) throw std::runtime_error("cannot open " + File.string());
    return Handle;
}

void Append(int Handle, const std::string& Line) {
    if (::write(Handle, Line.data(), Line.size()) != static_cast<ssize_t>(Line.size()) || ::fsync(Handle) != 0)
        throw std::runtime_error("cannot write the log");
}

template <class TRow, class TRead>
std::vector<TRow> ReadLog(const std::filesystem::path& File, TRead&& Read) {
    std::vector<TRow> Rows;
    std::ifstream In(File);
    for (std::string Line; std::getline(In, Line);) {
        std::istringstream Words(Line);
        TRow Row;
        if (!Read(Words, Row)) throw std::runtime_error("a line that is none: " + Line);
        Rows.push_back(Row);
    }
    return Rows;
}

}  // namespace

TRoute::TRoute(const std::filesystem::path& Folder)
    : FSentFile(OpenLog(Folder / "sent.log")), FFillFile(OpenLog(Folder / "fills.log")) {
    FSent = ReadLog<TSent>(Folder / "sent.log", [](std::istream& In, TSent& Row) {
        return static_cast<bool>(In >> Row.Id >> Row.Account >> Row.Symbol >> Row.Side >> Row.Qty);
    });
    FFills = ReadLog<TFilled>(Folder / "fills.log", [](std::istream& In, TFilled& Row) {
        return static_cast<bool>(In >> Row.OrderId >> Row.ExecutionId >> Row.Qty >> Row.Price);
    });
    for (const auto& Fill : FFills) {
        FDone[Fill.OrderId] += Fill.Qty;
        ++FExecutions[Fill.OrderId];
    }
}

TRoute::~TRoute() {
    ::close(FSentFile);
    ::close(FFillFile);
}

void TRoute::Send(const TOrderRow& Order) {
    std::ostringstream Line;
    Line << Order.Id << ' ' << Order.Account << ' ' << Order.Symbol << ' ' << Order.Side << ' ' << Order.Qty << '\n';
    Append(FSentFile, Line.str());
    FSent.push_back({Order.Id, Order.Account, Order.Symbol, Order.Side, Order.Qty});
}

void TRoute::Tell(const TFilled& Fill) { FEvents->OrderFilled(Fill.OrderId, Fill.ExecutionId, Fill.Qty, Fill.Price); }

void TRoute::TellFills(std::size_t Count) {
    for (std::size_t i = FFills.size() - std::min(Count, FFills.size()); i < FFills.size(); ++i) Tell(FFills[i]);
}

void TRoute::FillSome(const TSent& Order, std::mt19937_64& Random) {
    const auto Left = static_cast<std::uint64_t>(Order.Qty - FDone[Order.Id]);
    if (Left == 0) return;
    const TFilled Fill{Order.Id, Order.Id + "/" + std::to_string(++FExecutions[Order.Id]),
                       static_cast<double>(1 + Random() % Left), 100.0 + static_cast<double>(Random() % 64) / 8};
    std::ostringstream Line;
    Line << Fill.OrderId << ' ' << Fill.ExecutionId << ' ' << Fill.Qty << ' ' << Fill.Price << '\n';
    Append(FFillFile, Line.str());
    FDone[Order.Id] += Fill.Qty;
    FFills.push_back(Fill);
    Tell(Fill);
}

void TRoute::TellSomething(std::mt19937_64& Random) {
    if (FSent.empty()) return;
    const TSent Order = FSent[FSent.size() - 1 - Random() % std::min(kLatest, FSent.size())];
    switch (Random() % 10) {
        case 0: FEvents->OrderCancelled(Order.Id); break;
        case 1: FEvents->OrderRejected(Order.Id, {"Res_PaperRefused", {}}); break;
        case 2: TellFills(2); break;
        case 3:
        case 4:
        case 5: FEvents->OrderAccepted(Order.Id); break;
        default: FillSome(Order, Random);
    }
}

}  // namespace ws::kill
