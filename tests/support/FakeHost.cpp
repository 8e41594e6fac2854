// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeHost.h"

#include <gtest/gtest.h>

namespace support {

using namespace fw;

namespace {
Text Line(const TLogEntry& Entry) {
    Text Args;
    for (const auto& A : Entry.Args) Args += (Args.empty() ? "" : ", ") + A;
    return Args.empty() ? Entry.Key : Entry.Key + "(" + Args + ")";
}
}  // namespace

TFakeHost::TFakeHost() {
    FormatSettings() = TFormatSettings();
    FLogLink = TLog::Entries().Connect([this](const TLogEntry& Entry) { FLogged.push_back(Entry); });
}

TFakeHost::~TFakeHost() {
    for (const auto& E : TakeErrors()) ADD_FAILURE() << "logged and not expected: " << E;
    if (FailOnLeftovers)
        for (const auto& L : Leftovers()) ADD_FAILURE() << "left behind: " << L;
    FormatSettings() = FFormerSettings;
}

std::vector<Text> TFakeHost::TakeLog() {
    std::vector<Text> Result;
    for (const auto& E : std::exchange(FLogged, {})) Result.push_back(Line(E));
    return Result;
}

std::vector<Text> TFakeHost::ErrorsLogged() const {
    std::vector<Text> Result;
    for (const auto& E : FLogged)
        if (E.Level == ELogLevel::Error) Result.push_back(Line(E));
    return Result;
}

std::vector<Text> TFakeHost::TakeErrors() {
    auto Result = ErrorsLogged();
    std::erase_if(FLogged, [](const auto& E) { return E.Level == ELogLevel::Error; });
    return Result;
}

std::vector<Text> TFakeHost::Leftovers() const {
    std::vector<Text> Result;
    for (const auto& Symbol : Subscriptions.Subscribed()) Result.push_back("subscription of " + Symbol);
    const std::pair<const char*, int> Counts[] = {
        {"exchange update handler", Market.HandlerCount()},
        {"config update handler", Config.HandlerCount()},
        {"look and feel handler", LookAndFeel.HandlerCount()},
        {"timer handler", Timer.HandlerCount()},
        {"subscriber of channel 109", Channels.SubscriberCount(kChannelLayoutLoaded)},
        {"subscriber of channel 104", Channels.SubscriberCount(kChannelMainFormShow)}};
    for (const auto& [What, Count] : Counts)
        for (int I = 0; I < Count; ++I) Result.emplace_back(What);
    return Result;
}

}  // namespace support
