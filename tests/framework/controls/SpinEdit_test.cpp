// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/SpinEdit.h"

#include <cmath>
#include <limits>

#include "tests/framework/controls/LogFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SpinEditTest : public TLogFixture {
protected:
    SpinEditTest() {
        Scope.Attach("edt", Edit);
        Scope.Attach("other", Other);
        Edit.OnChange = [this](TObject* Sender) {
            EXPECT_EQ(Sender, &Edit);
            Steps.push_back("change " + Edit.GetValue().AsText());
        };
        Edit.OnExit = [this](TObject*) { Steps.push_back("exit " + Edit.GetValue().AsText()); };
    }
    TFocusScope Scope;
    TSpinEdit Edit;
    TControl Other;
    TSteps Steps;
};

TEST_F(SpinEditTest, AProgramsValueFiresAsAUsersDoesAndTheSameFiresNothing) {
    Edit.SetValue(5.0);
    Edit.SetValue(5.0);
    Edit.SetValue(5);
    Edit.SetValue("5");
    Edit.SetValue(Variant());
    EXPECT_THAT(Steps, ElementsAre("change 5", "change "));
}

TEST_F(SpinEditTest, WhatIsNoFiniteNumberChangesNothing) {
    Edit.SetValue(5.0);
    Edit.SetEditText("7");
    for (const Variant& Value : {Variant(NAN), Variant(std::numeric_limits<double>::infinity()), Variant("word")})
        Edit.SetValue(Value);
    EXPECT_EQ(Edit.GetFloat(), 5.0);
    EXPECT_EQ(Edit.GetText(), "7");
}

TEST_F(SpinEditTest, AProgramsValueReplacesTheTypedTextEvenWhenItIsTheSame) {
    Edit.SetValue(5.0);
    Edit.SetEditText("7");
    Edit.SetValue(5.0);
    EXPECT_EQ(Edit.GetText(), "5");
    EXPECT_FALSE(Edit.IsModified());
    Edit.PostEditor();
    EXPECT_EQ(Edit.GetFloat(), 5.0);
}

TEST_F(SpinEditTest, TypedTextIsPostedByTheNumberRules) {
    struct TCase {
        const char* Typed;
        Variant After;
        bool Refused;
    };
    const TCase Cases[] = {
        {"250", 250.0, false},  {"-3.5", -3.5, false},  {"1,234.5", 1234.5, false}, {" 8 ", 8.0, false},
        {"1e3", 1000.0, false}, {"", Variant(), false}, {"  ", Variant(), false},   {"nan", 42.0, true},
        {"inf", 42.0, true},    {"1e999", 42.0, true},  {"words", 42.0, true},      {"1,2,3", 42.0, true},
        {"-10.01", 42.0, true}, {"5000.5", 42.0, true}, {"5000", 5000.0, false},    {"-10", -10.0, false},
    };
    Edit.SetMinValue(-10.0);
    Edit.SetMaxValue(5000.0);
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Typed);
        Edit.SetValue(42.0);
        Edit.SetEditText(c.Typed);
        EXPECT_EQ(Edit.GetValue(), Variant(42.0)) << "the value waits for the posting";
        EXPECT_EQ(Edit.GetText(), c.Typed);
        Edit.PostEditor();
        EXPECT_EQ(Edit.GetValue(), c.After);
        EXPECT_FALSE(Edit.IsModified());
        EXPECT_EQ(TakeLog(), c.Refused ? TSteps{Text("W Res_LogNumberRefused|") + c.Typed} : TSteps{});
        EXPECT_EQ(Edit.GetText() == "42", c.Refused) << "the value is shown again";
    }
}

TEST_F(SpinEditTest, AnEmptiedEditorStaysEmptyAndReadsAsNothing) {
    Edit.SetValue(5.0);
    Edit.SetEditText("");
    Edit.PostEditor();
    EXPECT_TRUE(Edit.GetValue().IsNull());
    EXPECT_EQ(Edit.GetFloat(), 0.0);
    EXPECT_EQ(Edit.GetText(), "");
}

TEST_F(SpinEditTest, TheGroupedFormatReadsItsOwnOutput) {
    Edit.SetDisplayFormat("#,##0.########");
    for (double Value : {1234.5, 0.0, -1234567.25, 0.00000001, 999.0, 1e15}) {
        SCOPED_TRACE(Value);
        Edit.SetValue(0.5);
        Edit.SetValue(Value);
        const Text Shown = Edit.GetText();
        Edit.SetValue(0.5);
        Edit.SetEditText(Shown);
        Edit.PostEditor();
        EXPECT_EQ(Edit.GetFloat(), Value);
    }
    Edit.SetValue(1234.5);
    EXPECT_EQ(Edit.GetText(), "1,234.5");
    Edit.SetDisplayFormat("");
    EXPECT_EQ(Edit.GetText(), "1234.5");
}

TEST_F(SpinEditTest, TypingTheShownTextBackKeepsDecimalsThatAreNotShown) {
    Edit.SetDisplayFormat("#,##0.########");
    Edit.SetValue(1.123456789012);
    EXPECT_EQ(Edit.GetText(), "1.12345679");
    Edit.SetEditText("1.12345679");
    EXPECT_FALSE(Edit.IsModified());
    Edit.SetEditText("1.123456799");
    Edit.SetEditText("1.12345679");
    Edit.PostEditor();
    EXPECT_EQ(Edit.GetFloat(), 1.123456789012);
}

TEST_F(SpinEditTest, LeavingPostsAndThenExits) {
    Edit.SetFocus();
    Edit.SetEditText("9");
    Other.SetFocus();
    EXPECT_THAT(Steps, ElementsAre("change 9", "exit 9"));
}

TEST_F(SpinEditTest, TypingTakesTheFocusSoThatItCanBeLeft) {
    Edit.SetEditText("9");
    EXPECT_TRUE(Edit.HasFocus());
    Other.SetFocus();
    EXPECT_EQ(Edit.GetFloat(), 9.0);
}

TEST_F(SpinEditTest, AProgramMaySendTheExit) {
    Edit.SetEditText("9");
    Edit.Exit();
    EXPECT_THAT(Steps, ElementsAre("change 9", "exit 9"));
    Edit.Exit();
    EXPECT_THAT(Steps, ElementsAre("change 9", "exit 9", "exit 9"));
}

TEST_F(SpinEditTest, EnterPostsBeforeTheFormSeesTheKey) {
    TSteps Keys;
    Edit.OnKeyPress = [&](TObject* Sender, char& Key) {
        EXPECT_EQ(Sender, &Edit);
        Keys.push_back(std::to_string(Key) + ":" + Edit.GetValue().AsText());
    };
    Edit.SetEditText("9");
    Edit.KeyPress('9');
    Edit.KeyPress(kKeyEnter);
    EXPECT_THAT(Keys, ElementsAre("57:", "13:9"));
    EXPECT_THAT(Steps, ElementsAre("change 9")) << "Enter does not leave";
}

TEST_F(SpinEditTest, CancellingDropsTheTypedText) {
    Edit.SetValue(5.0);
    Steps.clear();
    Edit.SetEditText("nonsense");
    Edit.CancelEdit();
    EXPECT_EQ(Edit.GetText(), "5");
    Edit.PostEditor();
    EXPECT_THAT(Steps, IsEmpty());
}

TEST_F(SpinEditTest, SpinningPostsFirstAndCountsNullAsZero) {
    Edit.SetIncrement(0.5);
    Edit.SetMinValue(0.0);
    Edit.Spin(1);
    EXPECT_EQ(Edit.GetFloat(), 0.5);
    Edit.SetEditText("10");
    Edit.Spin(2);
    EXPECT_EQ(Edit.GetFloat(), 11.0);
    Edit.Spin(-100);
    EXPECT_EQ(Edit.GetFloat(), 0.0);
    Steps.clear();
    Edit.Spin(-1);
    EXPECT_THAT(Steps, IsEmpty()) << "at the bound nothing changes";
    Edit.SetIncrement(0.0);
    Edit.Spin(1);
    EXPECT_EQ(Edit.GetFloat(), 1.0);
    EXPECT_EQ(Edit.GetIncrement(), 0.0);
}

TEST_F(SpinEditTest, AHandlerThatPostsOrMovesTheFocusDoesNotPostTwice) {
    Edit.OnChange = [this](TObject*) {
        Steps.push_back("change " + Edit.GetValue().AsText());
        Edit.PostEditor();
        Other.SetFocus();
    };
    Edit.SetEditText("9");
    Edit.PostEditor();
    EXPECT_THAT(Steps, ElementsAre("change 9", "exit 9"));
    EXPECT_TRUE(Other.HasFocus());
}

TEST_F(SpinEditTest, AHandlerThatThrowsLeavesTheEditorUsable) {
    Edit.OnChange = [](TObject*) { throw std::runtime_error("bad"); };
    Edit.SetEditText("9");
    Edit.PostEditor();
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|edt.OnChange|bad"));
    EXPECT_EQ(Edit.GetFloat(), 9.0);
    EXPECT_FALSE(Edit.IsModified());
}

TEST_F(SpinEditTest, RenderersAreToldOfValueAndText) {
    int Told = 0;
    const auto Link = Edit.OnValueChanged.Connect([&] { ++Told; });
    Edit.SetValue(1.0);
    EXPECT_EQ(Told, 1);
    Edit.SetEditText("2");
    EXPECT_EQ(Told, 2);
    Edit.SetEditText("x");
    Edit.PostEditor();
    EXPECT_EQ(Told, 4) << "a refused text gives way to the value";
    TakeLog();
}

}  // namespace
}  // namespace fw
