// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "framework/base/Log.h"
#include "workstation/script/CommandLine.h"
#include "workstation/services/Workstation.h"

namespace ws {

// A text while no workstation stands yet: in the language of the environment.
std::string StartUpText(const std::string& Key, const std::vector<std::string>& Args);

// Options of the workstation that a command line asks for. The picture is made of the sample market in memory, what
// else needs no window of a copy of the store.
TWorkstationOptions OptionsOf(const TCommandLine& Line);

// Language, skin, number format and scale of the command line.
void ApplyChoices(TWorkstation& Workstation, const TCommandLine& Line);

// Whether the mode draws pictures of the window: on the sample market alone, at a fixed moment.
bool IsOfPictures(ERunMode Mode);

// The moment at which the picture of the window is taken.
void FixPictureClock();

// The program cannot start: says why on the error output, and in a box where there is a screen.
void TellStartFailure(const std::string& Key, const std::vector<std::string>& Args, const TCommandLine& Line);

// Warnings and errors on the error output, for runs without a window.
class TLogPrinter {
public:
    explicit TLogPrinter(TWorkstation& Workstation);
    bool SaidError() const { return FSaidError; }

private:
    bool FSaidError = false;
    fw::TConnection FLink;
};

}  // namespace ws
