// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/WorkspaceFolder.h"

#include <set>
#include <system_error>

#include "workstation/workspace/DurableFile.h"
#include "workstation/workspace/WorkspaceName.h"

namespace ws {

namespace {

namespace fs = std::filesystem;

constexpr char kEnding[] = ".workspace";
constexpr std::size_t kMostBytes = 8 * 1024 * 1024;  // a workspace has some thousand; more is none

fs::path Backup(const fs::path& File, int Number) { return File.string() + '.' + std::to_string(Number); }

bool Exists(const fs::path& File) {
    std::error_code Ignored;
    return fs::exists(File, Ignored);
}

[[noreturn]] void Refuse(const fs::path& File, const std::system_error& Cause) {
    throw EWorkspaceError({"Res_WorkspaceNotSaved", {File.string(), Cause.code().message()}});
}

// Makes room for the next first backup. Only files up to the first gap move: a crash in the middle leaves one.
void Rotate(const fs::path& File) {
    int Free = 1;
    while (Free < kWorkspaceBackups && Exists(Backup(File, Free))) ++Free;
    std::error_code Ignored;
    for (int Number = Free; Number > 1; --Number) fs::rename(Backup(File, Number - 1), Backup(File, Number), Ignored);
}

// The file itself stays where it is until the new text takes its name.
void KeepAsBackup(const fs::path& File) {
    Rotate(File);
    std::error_code Error;
    fs::remove(Backup(File, 1), Error);
    fs::create_hard_link(File, Backup(File, 1), Error);
    if (Error) fs::copy_file(File, Backup(File, 1), Error);  // a file system without hard links
}

fs::path SetAside(const fs::path& File) {
    for (int Number = 1;; ++Number) {
        const fs::path Target = File.string() + ".damaged-" + std::to_string(Number);
        if (Exists(Target)) continue;
        std::error_code Error;
        fs::rename(File, Target, Error);
        return Error ? File : Target;
    }
}

TWorkspaceFolder::TFound FoundIn(const fs::path& File) {
    using enum TWorkspaceFolder::EFound;
    try {
        const auto Text = ReadWhole(File, kMostBytes + 1);
        if (!Text) return {};
        if (Text->size() > kMostBytes) return {Lost, {}, {}, {}};
        TWorkspaceRead Read = ReadWorkspace(*Text);
        const auto Kind = Read.State == EWorkspaceState::Whole   ? Whole
                          : Read.State == EWorkspaceState::Newer ? Newer
                                                                 : Lost;
        return {Kind, std::move(Read.Sections), {}, {}};
    } catch (const std::system_error& Error) {
        return {Unreadable, {}, Error.code().message(), {}};
    }
}

}  // namespace

fs::path TWorkspaceFolder::FileOf(const std::string& Name) const { return FFolder / (FileNameOf(Name) + kEnding); }

std::vector<std::string> TWorkspaceFolder::Names() const {
    std::set<std::string> Names;  // a file that is gone may still have backups
    std::error_code Error;
    for (fs::directory_iterator At(FFolder, Error), End; !Error && At != End; At.increment(Error)) {
        const std::string File = At->path().filename().string();
        const size_t Dot = File.find('.');
        if (Dot == std::string::npos || Dot == 0) continue;
        const std::string Ending = File.substr(Dot);
        for (int Number = 0; Number <= kWorkspaceBackups; ++Number)
            if (Ending == (Number == 0 ? fs::path(kEnding) : Backup(kEnding, Number)).string())
                Names.insert(NameOfFile(File.substr(0, Dot)));
    }
    return {Names.begin(), Names.end()};
}

bool TWorkspaceFolder::Has(const std::string& Name) const {
    if (!Keeps()) return false;
    for (int Number = 1; Number <= kWorkspaceBackups; ++Number)
        if (Exists(Backup(FileOf(Name), Number))) return true;
    return Exists(FileOf(Name));
}

TWorkspaceFolder::TFound TWorkspaceFolder::Load(const std::string& Name) const {
    if (!Keeps()) return {};
    const fs::path File = FileOf(Name);
    TFound Found = FoundIn(File);
    if (Found.Kind != EFound::Nothing && Found.Kind != EFound::Lost) return Found;
    if (Found.Kind == EFound::Lost) Found.SetAside = SetAside(File);
    for (int Number = 1; Number <= kWorkspaceBackups; ++Number) {
        TFound Older = FoundIn(Backup(File, Number));
        if (Older.Kind == EFound::Whole) return {EFound::Backup, std::move(Older.Sections), {}, Found.SetAside};
    }
    return Found;
}

bool TWorkspaceFolder::Save(const std::string& Name, const TWorkspaceSections& Sections) const {
    if (!Keeps()) return false;
    const fs::path File = FileOf(Name);
    const std::string Text = WriteWorkspace(Sections);
    try {
        const auto Stands = ReadWhole(File, kMostBytes);
        if (Stands == Text) return false;
        if (Stands && ReadWorkspace(*Stands).State == EWorkspaceState::Newer)
            throw EWorkspaceError({"Res_WorkspaceNewer", {Name}});
        fs::create_directories(FFolder);
        TDurableFile Written(File, Text);
        if (Stands && Stands != ReadWhole(Backup(File, 1), kMostBytes)) KeepAsBackup(File);
        Written.Commit();
        return true;
    } catch (const std::system_error& Error) {
        Refuse(File, Error);
    }
}

void TWorkspaceFolder::Remove(const std::string& Name) const {
    if (!Keeps()) return;
    const fs::path File = FileOf(Name);
    try {
        for (int Number = kWorkspaceBackups; Number >= 1; --Number) fs::remove(Backup(File, Number));
        fs::remove(File);
    } catch (const std::system_error& Error) {
        Refuse(File, Error);
    }
}

void WriteWorkspaceFile(const fs::path& File, const TWorkspaceSections& Sections) {
    try {
        TDurableFile(File, WriteWorkspace(Sections)).Commit();
    } catch (const std::system_error& Error) {
        Refuse(File, Error);
    }
}

TWorkspaceFolder::TFound ReadWorkspaceFile(const fs::path& File) { return FoundIn(File); }

}  // namespace ws
