// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framework/base/Log.h"

namespace fw {

// Collects the log of a test. What a test does not take fails it.
class TLogFixture : public testing::Test {
protected:
    // The entries so far as "W Key|arg|arg"; the list is empty afterwards.
    std::vector<Text> TakeLog() { return std::exchange(FEntries, {}); }

    void TearDown() override { EXPECT_THAT(FEntries, testing::IsEmpty()) << "unexpected log"; }

private:
    void Add(const TLogEntry& Entry) {
        Text Line = Entry.Level == ELogLevel::Error ? "E " : Entry.Level == ELogLevel::Warning ? "W " : "I ";
        Line += Entry.Key;
        for (const Text& Arg : Entry.Args) Line += "|" + Arg;
        FEntries.push_back(Line);
    }
    std::vector<Text> FEntries;
    TConnection FLink = TLog::Entries().Connect([this](const TLogEntry& Entry) { Add(Entry); });
};

using TSteps = std::vector<Text>;

}  // namespace fw
