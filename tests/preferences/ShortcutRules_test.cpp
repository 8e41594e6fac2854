// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/preferences/ShortcutRules.h"

#include <gtest/gtest.h>

namespace ws {
namespace {

class ShortcutRulesTest : public testing::Test {
protected:
    const std::vector<TShortcutCommand> Commands{{"calculate", "F9"}, {"load", "F8"}, {"redo", "Ctrl+Y; Ctrl+R"}};
    std::map<std::string, std::string> Stored;

    TShortcuts Resolve() const {
        return ResolveShortcuts(
            Commands,
            [this](const std::string& Id) {
                const auto Found = Stored.find(Id);
                return Found == Stored.end() ? std::nullopt : std::optional(Found->second);
            },
            [](const std::string& Keys) { return Keys.starts_with("F") || Keys.starts_with("Ctrl+") ? Keys : ""; });
    }
};

TEST_F(ShortcutRulesTest, WithoutAChoiceTheShippedKeysHold) {
    const auto Result = Resolve();
    EXPECT_EQ(Result.KeysOf.at("calculate"), "F9");
    EXPECT_EQ(Result.KeysOf.at("redo"), "Ctrl+Y; Ctrl+R");
    EXPECT_TRUE(Result.Problems.empty());
}

TEST_F(ShortcutRulesTest, CommandsMayChangePlaces) {
    Stored = {{"calculate", "F8"}, {"load", "F9"}};
    const auto Result = Resolve();
    EXPECT_EQ(Result.KeysOf.at("calculate"), "F8");
    EXPECT_EQ(Result.KeysOf.at("load"), "F9");
    EXPECT_TRUE(Result.Problems.empty());
}

TEST_F(ShortcutRulesTest, WhatIsNoKeysLeavesTheShippedOnes) {
    Stored = {{"calculate", "banana"}, {"load", ""}, {"nobody", "F9"}};
    const auto Result = Resolve();
    EXPECT_EQ(Result.KeysOf.at("calculate"), "F9");
    EXPECT_EQ(Result.KeysOf.at("load"), "F8");
    EXPECT_EQ(Result.Problems, (std::vector<TShortcutProblem>{{"calculate", "banana", ""}, {"load", "", ""}}));
}

TEST_F(ShortcutRulesTest, KeysOfAnotherCommandAreNotTaken) {
    Stored = {{"calculate", "Ctrl+R"}};
    const auto Result = Resolve();
    EXPECT_EQ(Result.KeysOf.at("calculate"), "F9");
    EXPECT_EQ(Result.Problems, (std::vector<TShortcutProblem>{{"calculate", "Ctrl+R", "redo"}}));
}

TEST_F(ShortcutRulesTest, OfTwoEqualChoicesTheEarlierCommandsHolds) {
    Stored = {{"load", "F5"}, {"calculate", "F5"}};
    const auto Result = Resolve();
    EXPECT_EQ(Result.KeysOf.at("calculate"), "F5");
    EXPECT_EQ(Result.KeysOf.at("load"), "F8");
    ASSERT_EQ(Result.Problems.size(), 1u);
    EXPECT_EQ(Result.Problems[0].Other, "calculate");
}

// calculate's choice is nonsense, so F9 stays with it, so load cannot have it, so redo cannot have F8.
TEST_F(ShortcutRulesTest, AChoiceThatFallsBackPushesOthersBack) {
    Stored = {{"calculate", "banana"}, {"load", "F9"}, {"redo", "F8"}};
    const auto Result = Resolve();
    EXPECT_EQ(Result.KeysOf.at("calculate"), "F9");
    EXPECT_EQ(Result.KeysOf.at("load"), "F8");
    EXPECT_EQ(Result.KeysOf.at("redo"), "Ctrl+Y; Ctrl+R");
    EXPECT_EQ(Result.Problems.size(), 3u);
}

TEST_F(ShortcutRulesTest, TheOwnerOfAnyOfSeveralKeysIsNamed) {
    const auto KeysOf = Resolve().KeysOf;
    EXPECT_EQ(OwnerOfKeys(KeysOf, "load", "Ctrl+R"), "redo");
    EXPECT_EQ(OwnerOfKeys(KeysOf, "redo", "Ctrl+R"), "");
    EXPECT_EQ(OwnerOfKeys(KeysOf, "load", "Ctrl+T; F9"), "calculate");
    EXPECT_EQ(OwnerOfKeys(KeysOf, "load", "Ctrl+T"), "");
}

}  // namespace
}  // namespace ws
