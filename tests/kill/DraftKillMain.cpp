// SPDX-License-Identifier: GPL-3.0-or-later
// draft_kill_test run FOLDER SEED      changes the journal of a view until it is killed
// draft_kill_test check FOLDER KILLS   checks what stands in FOLDER
#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <random>
#include <stdexcept>

#include "workstation/script/ViewStateJournal.h"
#include "workstation/store/StoreTransaction.h"

namespace ws::kill {
namespace {

const TJournalKey kView{"Day", "620-1"};
constexpr char kNow[] = "2026/11/21 09:00:00";

// The whole journal as one line.
std::string LineOf(const TStateJournal& Journal) {
    std::string Line = std::to_string(Journal.Count()) + ' ' + std::to_string(Journal.Place());
    for (std::size_t i = 0; i < Journal.Count(); ++i) Line += ' ' + TextOfState(Journal.At(i));
    return Line;
}

// What is about to be written ('+') and what was ('='), each line on disk before the program goes on.
class TAnnounced {
public:
    explicit TAnnounced(const std::filesystem::path& Folder)
        : FFile(::open((Folder / "announced.log").c_str(), O_WRONLY | O_TRUNC | O_CREAT | O_CLOEXEC, 0600)) {
        if (FFile < 0) throw std::runtime_error("cannot open the log");
    }
    void Say(char Sign, const TStateJournal& Journal) const {
        const std::string Line = Sign + LineOf(Journal) + '\n';
        if (::write(FFile, Line.data(), Line.size()) != static_cast<ssize_t>(Line.size()) || ::fsync(FFile) != 0)
            throw std::runtime_error("cannot write the log");
    }

private:
    int FFile;
};

TViewState AnyState(std::mt19937_64& Random) {
    TViewState State;
    State.Layout = "Exchange=HKFE,\"ColList=0,100,1;11,60,1\"";
    State.Down = static_cast<double>(Random() % 30000) / 7;
    for (auto i = Random() % 12; i > 0; --i)
        State.Rows.push_back({"HSI" + std::to_string(Random() % 30000) + "L6", "buy", "open", "", 0.1 * 3, 1.0});
    return State;
}

[[noreturn]] void RunForever(const std::filesystem::path& Folder, std::uint64_t Seed) {
    std::mt19937_64 Random(Seed);
    const auto Store = TStore::OpenFile(Folder / "store.db", kNow).Store;
    TStateJournal Journal(Store->LoadJournal(kView));
    const TAnnounced Announced(Folder);
    Announced.Say('=', Journal);
    for (;;) {
        switch (Random() % 8) {
            case 0: Journal.MoveTo(Random() % kMostStates); break;
            case 1: Journal.Replace(AnyState(Random)); break;
            default: Journal.Push(AnyState(Random)); break;
        }
        if (!Journal.HasChanges()) continue;
        Announced.Say('+', Journal);
        TStoreTransaction Write(*Store);
        Write.ChangeJournal(kView, Journal.Changes());
        Write.Commit();
        Journal.Written();
        Announced.Say('=', Journal);
    }
}

// The store has what was announced last, or what was about to follow.
bool Check(const std::filesystem::path& Folder) {
    const auto Opened = TStore::OpenFile(Folder / "store.db", kNow);
    const std::string Found = LineOf(TStateJournal(Opened.Store->LoadJournal(kView)));
    std::ifstream In(Folder / "announced.log");
    std::string Done, Begun;
    std::size_t Writes = 0;
    // Seen: killed in the middle of writing its line, which is longer than the system writes in one piece. A line
    // without an end announces nothing.
    for (std::string Line; std::getline(In, Line) && !In.eof();) {
        (Line.front() == '=' ? Done : Begun) = Line.substr(1);
        if (Line.front() == '=') Begun.clear(), ++Writes;
    }
    const bool Intact = Opened.Notices.empty() && (Writes == 0 || Found == Done || (!Begun.empty() && Found == Begun));
    if (Intact)
        std::cout << Writes << " writes in the last run; the journal has what the last of them said\n";
    else
        std::cout << "the journal is\n  " << Found << "\nand was announced as\n  " << Done << "\n";
    return Intact;
}

}  // namespace
}  // namespace ws::kill

int main(int Count, char** Args) {
    try {
        const std::string What = Count == 4 ? Args[1] : "";
        if (What == "run") ws::kill::RunForever(Args[2], std::stoull(Args[3]));
        if (What == "check") return ws::kill::Check(Args[2]) ? 0 : 1;
        std::cerr << "draft_kill_test run FOLDER SEED | draft_kill_test check FOLDER KILLS\n";
    } catch (const std::exception& Error) {
        std::cerr << Error.what() << "\n";
    }
    return 2;
}
