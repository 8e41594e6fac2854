// SPDX-License-Identifier: GPL-3.0-or-later
// workspace_kill_test run FOLDER SEED      saves one workspace after the other until it is killed
// workspace_kill_test check FOLDER KILLS   loads it as the next start does, and compares with what was announced
//
// The log beside the workspace says "begin N" on disk before workspace N is saved and "done N" after that.
#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <random>
#include <stdexcept>

#include "workstation/workspace/WorkspaceEntries.h"
#include "workstation/workspace/WorkspaceFolder.h"

namespace ws {
namespace {

namespace fs = std::filesystem;

constexpr char kName[] = "a trader's desk";

// Any size from one block to many; everything of it follows from its number.
TWorkspaceSections StateOf(std::uint64_t Number) {
    std::mt19937_64 Random(Number);
    TWorkspaceSections Sections;
    WriteWindow(Sections, {{0, 0, 1280, 860}, false, false, std::to_string(Number)});
    for (auto Count = Random() % 6; Count > 0; --Count) {
        TViewEntry View;
        View.ViewId = 620;
        View.Key = "620-" + std::to_string(Count);
        for (auto Length = Random() % 20000; Length > 0; --Length) View.Layout += static_cast<char>(Random() % 128);
        WriteView(Sections.emplace_back(), View);
    }
    return Sections;
}

struct TLog {
    std::uint64_t Begun = 0, Done = 0;
};

TLog ReadLog(const fs::path& Folder) {
    TLog Log;
    std::ifstream In(Folder / "log");
    std::string Word;
    for (std::uint64_t Number = 0; In >> Word >> Number;) (Word == "begin" ? Log.Begun : Log.Done) = Number;
    return Log;
}

void Announce(int Handle, const char* Word, std::uint64_t Number) {
    const std::string Line = std::string(Word) + ' ' + std::to_string(Number) + '\n';
    if (::write(Handle, Line.data(), Line.size()) != static_cast<ssize_t>(Line.size()) || ::fdatasync(Handle) != 0)
        throw std::runtime_error("cannot write the log");
}

[[noreturn]] void RunForever(const fs::path& Folder) {
    const TWorkspaceFolder Workspaces(Folder / "workspaces" / "u1");
    const int Handle = ::open((Folder / "log").c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    for (std::uint64_t Number = ReadLog(Folder).Begun + 1;; ++Number) {
        Announce(Handle, "begin", Number);
        Workspaces.Save(kName, StateOf(Number));
        Announce(Handle, "done", Number);
    }
}

bool Complain(const std::string& What) {
    std::cout << "  " << What << '\n';
    return false;
}

bool CheckBackups(const fs::path& Folder, std::uint64_t Newest) {
    for (const auto& Entry : fs::directory_iterator(Folder)) {
        const std::string Ending = Entry.path().extension().string();
        if (Ending == ".new") continue;  // what was being written; the next save begins it anew
        const auto Found = ReadWorkspaceFile(Entry.path());
        const std::uint64_t Number = std::stoull("0" + ReadWindow(Found.Sections).Arrangement);
        if (Found.Kind != TWorkspaceFolder::EFound::Whole || Found.Sections != StateOf(Number) || Number > Newest)
            return Complain(Entry.path().filename().string() + " holds no state that was saved");
    }
    return true;
}

bool Check(const fs::path& Folder) {
    using EFound = TWorkspaceFolder::EFound;
    const TLog Log = ReadLog(Folder);
    const TWorkspaceFolder Workspaces(Folder / "workspaces" / "u1");
    const auto Found = Workspaces.Load(kName);
    if (Found.Kind == EFound::Nothing && Log.Done == 0) return true;
    if (Found.Kind != EFound::Whole) return Complain("the workspace is not whole");
    const std::uint64_t Number = std::stoull("0" + ReadWindow(Found.Sections).Arrangement);
    if (Number < Log.Done) return Complain("state " + std::to_string(Log.Done) + " was saved and is not there");
    if (Number > Log.Begun || Found.Sections != StateOf(Number)) return Complain("the state is none that was saved");
    if (!CheckBackups(Folder / "workspaces" / "u1", Log.Begun)) return false;
    std::cout << Log.Done << " workspaces saved; found state " << Number << ", whole, and every backup is whole\n";
    return true;
}

}  // namespace
}  // namespace ws

int main(int Count, char** Args) {
    try {
        const std::string What = Count == 4 ? Args[1] : "";
        if (What == "run") ws::RunForever(Args[2]);
        if (What == "check") return ws::Check(Args[2]) ? 0 : 1;
        std::cerr << "workspace_kill_test run FOLDER SEED | workspace_kill_test check FOLDER KILLS\n";
    } catch (const std::exception& Error) {
        std::cerr << Error.what() << "\n";
    }
    return 2;
}
