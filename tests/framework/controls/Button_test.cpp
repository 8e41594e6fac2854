// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/Button.h"

#include "framework/controls/SpinEdit.h"
#include "tests/framework/controls/LogFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;

class ButtonTest : public TLogFixture {
protected:
    ButtonTest() {
        Scope.Attach("btn", Button);
        Scope.Attach("edt", Edit);
    }
    TFocusScope Scope;
    TButton Button;
    TSpinEdit Edit;
};

TEST_F(ButtonTest, OnlyAnEnabledButtonWithAHandlerCanBeClicked) {
    EXPECT_FALSE(Button.CanClick());
    Button.Click();
    EXPECT_FALSE(Button.HasFocus());
    int Clicks = 0;
    Button.OnClick = [&](TObject* Sender) {
        EXPECT_EQ(Sender, &Button);
        ++Clicks;
    };
    EXPECT_TRUE(Button.CanClick());
    Button.Click();
    Button.SetEnabled(false);
    EXPECT_FALSE(Button.CanClick());
    Button.Click();
    EXPECT_EQ(Clicks, 1);
}

TEST_F(ButtonTest, WhatIsTypedElsewhereIsPostedBeforeTheHandlerRuns) {
    Variant Seen;
    Button.OnClick = [&](TObject*) { Seen = Edit.GetValue(); };
    Edit.SetEditText("12.5");
    Button.Click();
    EXPECT_EQ(Seen, Variant(12.5));
    EXPECT_TRUE(Button.HasFocus());
}

TEST_F(ButtonTest, AFocusedButtonPostsTooAndIsNotLeft) {
    class TOpen : public TControl {
    public:
        void PostEditor() override { ++Posts; }
        int Posts = 0;
    } Open;
    Scope.Attach("open", Open);
    Button.OnClick = [](TObject*) {};
    Button.Click();
    EXPECT_EQ(Open.Posts, 0) << "it had no focus to lose";
    Button.Click();
    EXPECT_EQ(Open.Posts, 1);
}

TEST_F(ButtonTest, AButtonDisabledByThePostingIsNotClicked) {
    int Clicks = 0;
    Button.OnClick = [&](TObject*) { ++Clicks; };
    Edit.OnChange = [this](TObject*) { Button.SetEnabled(false); };
    Edit.SetEditText("1");
    Button.Click();
    EXPECT_EQ(Clicks, 0);
}

TEST_F(ButtonTest, AClickThatThrowsIsLoggedAndTheNextOneWorks) {
    int Clicks = 0;
    Button.OnClick = [&](TObject*) {
        if (++Clicks == 1) throw std::runtime_error("no");
    };
    Button.Click();
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|btn.OnClick|no"));
    Button.Click();
    EXPECT_EQ(Clicks, 2);
}

TEST_F(ButtonTest, TheCaptionIsToldWhenItChanges) {
    int Told = 0;
    const auto Link = Button.OnModelChanged.Connect([&] { ++Told; });
    Button.SetCaption("Go");
    Button.SetCaption("Go");
    EXPECT_EQ(Button.GetCaption(), "Go");
    EXPECT_EQ(Told, 1);
}

}  // namespace
}  // namespace fw
