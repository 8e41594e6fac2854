// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "framework/base/Refusal.h"
#include "workstation/workspace/WorkspaceText.h"

namespace ws {

// A file of workspaces cannot be written; the reason names the file. What stood there stands.
class EWorkspaceError : public std::exception {
public:
    explicit EWorkspaceError(fw::TRefusal Reason) : FReason(std::move(Reason)) {}
    const fw::TRefusal& Reason() const { return FReason; }
    const char* what() const noexcept override { return FReason.Key.c_str(); }

private:
    fw::TRefusal FReason;
};

inline constexpr int kWorkspaceBackups = 10;

// The workspaces of one user: a file "<name>.workspace" for each, and up to ten older texts of it beside it,
// "<name>.workspace.1" the youngest. Texts are on the disk when a call returns, and whole after a crash in it.
class TWorkspaceFolder {
public:
    // An empty path: a folder that holds nothing and keeps nothing.
    explicit TWorkspaceFolder(std::filesystem::path Folder = {}) : FFolder(std::move(Folder)) {}
    bool Keeps() const { return !FFolder.empty(); }

    std::vector<std::string> Names() const;  // sorted
    bool Has(const std::string& Name) const;

    enum class EFound {
        Nothing,
        Whole,
        Newer,       // of a later format: not to be written over
        Unreadable,  // the system does not let us read it: not to be written over
        Backup,      // damaged or gone; Sections are those of the youngest whole backup
        Lost,        // damaged, and no backup is whole
    };
    struct TFound {
        EFound Kind = EFound::Nothing;
        TWorkspaceSections Sections;
        std::string Reason;              // the system's, when it cannot be read
        std::filesystem::path SetAside;  // where the damaged file stands now; empty: there was none
    };
    // A damaged file is renamed, never thrown away.
    TFound Load(const std::string& Name) const;

    // The text that stood there becomes the first backup. False: it is this text already. Raises EWorkspaceError, also
    // where a text of a later format stands.
    bool Save(const std::string& Name, const TWorkspaceSections& Sections) const;
    // With its backups. Raises EWorkspaceError.
    void Remove(const std::string& Name) const;

private:
    std::filesystem::path FileOf(const std::string& Name) const;

    std::filesystem::path FFolder;
};

// One file of the user's choice, for moving a workspace. Writing raises EWorkspaceError; reading never raises.
void WriteWorkspaceFile(const std::filesystem::path& File, const TWorkspaceSections& Sections);
TWorkspaceFolder::TFound ReadWorkspaceFile(const std::filesystem::path& File);

}  // namespace ws
