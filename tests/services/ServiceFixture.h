// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

#include "framework/base/Clock.h"
#include "framework/base/Log.h"
#include "workstation/services/Workstation.h"

namespace ws {

// A workstation on the sample market in a folder of its own, on a day on which the sample stands as it is written.
class TServiceFixture : public testing::Test {
protected:
    std::filesystem::path Folder;
    std::unique_ptr<TWorkstation> Station;
    std::vector<fw::Text> Logged;
    fw::TConnection LogLink;

    static fw::TClock::TTimePoint At(int Year, unsigned Month, unsigned Day, int Hour = 2) {
        return std::chrono::sys_days(std::chrono::year(Year) / Month / Day) + std::chrono::hours(Hour);
    }

    TServiceFixture() {
        fw::TClock::Fix(At(2026, 12, 1));
        Folder =
            std::filesystem::temp_directory_path() / ("workstation_test_" + std::to_string(::getpid()) + "_" +
                                                      testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(Folder);
        LogLink = fw::TLog::Entries().Connect([this](const fw::TLogEntry& Entry) { Logged.push_back(Entry.Key); });
    }
    ~TServiceFixture() override {
        Station.reset();
        std::filesystem::remove_all(Folder);
        fw::TClock::Fix({});
    }

    TWorkstationOptions Options(const std::string& User = {}) {
        TWorkstationOptions Result;
        Result.StoreFile = Folder / "store.db";
        Result.SampleFolder = VENTIQ_SAMPLE_FOLDER;
        Result.User = User;
        return Result;
    }
    void Open(const std::string& User = {}) {
        Station.reset();
        Station = std::make_unique<TWorkstation>(Options(User));
    }
    // Lets the market go on for some seconds.
    void Run(int Seconds) {
        for (int i = 0; i < Seconds * 1000 / kTimerPeriodMs; ++i) {
            Station->Pump();
            Station->Tick();
        }
        Station->Pump();
    }
    fw::TCustomSubItem& Item(const std::string& Symbol) {
        return *fw::TCustomSubscribeAdapter::GetInstance().GetSubItem(Symbol, fw::kPriceDataKind, 0);
    }
};

}  // namespace ws
