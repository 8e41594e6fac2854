// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fstream>
#include <sstream>

#include "framework/base/Numbers.h"
#include "registration/VentiqInterface.h"
#include "tests/services/ServiceFixture.h"
#include "workstation/script/HeadlessJob.h"

namespace ws {

// The headless job on the sample market: the real view, a market whose clock the test drives, and a picture that only
// counts the controls.
class TJobFixture : public TServiceFixture {
protected:
    ventiq::TIVentiq View;
    std::ostringstream Out, Errors;
    TJobFixture() { Open(); }

    THeadlessHost JobHost() {
        THeadlessHost Host;
        Host.Wait = [this](int) { Run(1); };
        Host.DrawView = [](fw::TFrame& Frame, const std::filesystem::path& File) {
            return static_cast<bool>(std::ofstream(File) << Frame.Controls().Controls().size());
        };
        return Host;
    }
    int RunJob(std::vector<std::string> Arguments) {
        Arguments.insert(Arguments.begin(), {"--headless", "--out", (Folder / "out").string()});
        return RunHeadlessJob(*Station, View, ParseCommandLine(Arguments), JobHost(), Out, Errors);
    }
    std::vector<std::string> Lines(const char* File) {
        std::ifstream Stream(Folder / "out" / File);
        std::vector<std::string> Result;
        for (std::string Line; std::getline(Stream, Line);) Result.push_back(Line);
        return Result;
    }
};

}  // namespace ws
