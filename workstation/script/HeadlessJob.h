// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <iosfwd>

#include "framework/view/BaseView.h"
#include "workstation/script/CommandLine.h"
#include "workstation/services/Workstation.h"

namespace ws {

inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

// What the headless job needs from whoever has a screen buffer and a loop.
struct THeadlessHost {
    std::function<void(int Milliseconds)> Wait;  // lets the loop run
    std::function<bool(fw::TFrame& Frame, const std::filesystem::path& File)>
        DrawView;  // the view as a window shows it
};

// Types the strategy into a real view, calculates, and writes payoff.csv, keyprices.csv and payoff.png. Prints the
// written paths to Out, or what is in the way to Errors, and returns the exit status; on failure nothing is written.
int RunHeadlessJob(TWorkstation& Workstation, fw::TIBaseView& View, const TCommandLine& Line, const THeadlessHost& Host,
                   std::ostream& Out, std::ostream& Errors);

// Opens the view and draws it into Line.Out.
int RunViewPicture(TWorkstation& Workstation, fw::TIBaseView& View, const TCommandLine& Line, const THeadlessHost& Host,
                   std::ostream& Out, std::ostream& Errors);

// `import FILE`: reads the chain into the store and prints what was done.
int RunImport(TWorkstation& Workstation, const TCommandLine& Line, std::ostream& Out, std::ostream& Errors);

}  // namespace ws
