// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Dispatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framework/base/Errors.h"
#include "tests/framework/base/LogRecorder.h"

namespace fw {
namespace {

using testing::ElementsAre;

TEST(Dispatch, RunsTheBody) {
    TLogRecorder Log;
    bool Ran = false;
    EXPECT_TRUE(Dispatch("here", [&] { Ran = true; }));
    EXPECT_TRUE(Ran);
    EXPECT_TRUE(Log.Entries.empty());
}

struct TThing {};

TEST(Dispatch, CatchesWhateverIsThrownAndLogsItOnce) {
    struct TCase {
        const char* Why;
        std::function<void()> Body;
        Text Expected;
    };
    const TCase Cases[] = {
        {"an error of the framework", [] { throw EConvertError("no date"); }, "no date"},
        {"an error of the library", [] { throw std::runtime_error("broken"); }, "broken"},
        {"an integer", [] { throw 7; }, "int"},
        {"a text", [] { throw "words"; }, "char const*"},
        {"an object of its own", [] { throw TThing(); }, "fw::(anonymous namespace)::TThing"},
        {"no body at all", nullptr, std::bad_function_call().what()},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        TLogRecorder Log;
        EXPECT_FALSE(Dispatch("btnCalc.OnClick", C.Body));
        ASSERT_EQ(Log.Entries.size(), 1u);
        EXPECT_EQ(Log.Entries[0].Level, ELogLevel::Error);
        EXPECT_EQ(Log.Entries[0].Key, "Res_LogHandlerFailed");
        EXPECT_THAT(Log.Entries[0].Args, ElementsAre("btnCalc.OnClick", C.Expected));
    }
}

TEST(Dispatch, SurvivesAListenerOfTheLogThatThrows) {
    const auto Link = TLog::Entries().Connect([](const TLogEntry&) { throw std::runtime_error("listener"); });
    EXPECT_FALSE(Dispatch("here", [] { throw 1; }));
}

TEST(Dispatch, InnerErrorsEndAtTheInnerCall) {
    TLogRecorder Log;
    EXPECT_TRUE(Dispatch("outer", [] { EXPECT_FALSE(Dispatch("inner", [] { throw 1; })); }));
    ASSERT_EQ(Log.Entries.size(), 1u);
    EXPECT_EQ(Log.Entries[0].Args.at(0), "inner");
}

TEST(DispatchValue, GivesTheResultOrTheDefault) {
    TLogRecorder Log;
    EXPECT_EQ(DispatchValue("here", 1, [] { return 2; }), 2);
    EXPECT_TRUE(Log.Entries.empty());
    EXPECT_EQ(DispatchValue("here", Text("default"), []() -> Text { throw EListError("index"); }), "default");
    ASSERT_EQ(Log.Entries.size(), 1u);
    EXPECT_THAT(Log.Entries[0].Args, ElementsAre("here", "index"));
}

TEST(Log, WritesLevelKeyAndArguments) {
    TLogRecorder Log;
    TLog::Info("Res_A");
    TLog::Warning("Res_B", {"1"});
    TLog::Error("Res_C", {"1", "2"});
    ASSERT_EQ(Log.Entries.size(), 3u);
    EXPECT_EQ(Log.Entries[0].Level, ELogLevel::Info);
    EXPECT_EQ(Log.Entries[1].Level, ELogLevel::Warning);
    EXPECT_EQ(Log.Entries[2].Level, ELogLevel::Error);
    EXPECT_EQ(Log.Entries[0].Key, "Res_A");
    EXPECT_TRUE(Log.Entries[0].Args.empty());
    EXPECT_THAT(Log.Entries[2].Args, ElementsAre("1", "2"));
}

TEST(Log, DropsWhatNobodyListensTo) {
    TLog::Info("Res_BeforeAnybodyListens");
    TLogRecorder Log;
    EXPECT_TRUE(Log.Entries.empty());
}

}  // namespace
}  // namespace fw
