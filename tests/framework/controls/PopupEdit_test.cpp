// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/PopupEdit.h"

#include "tests/framework/controls/LogFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;

class PopupEditTest : public TLogFixture {
protected:
    PopupEditTest() {
        Scope.Attach("edt", Edit);
        Scope.Attach("other", Other);
        Edit.OnExit = [this](TObject* Sender) {
            EXPECT_EQ(Sender, &Edit);
            Exits.push_back(Edit.GetHint());
        };
    }
    TFocusScope Scope;
    TPopupEdit Edit;
    TControl Other;
    TSteps Exits;
};

TEST_F(PopupEditTest, TextHintAndPlaceholderAreSeparate) {
    int Told = 0;
    const auto Link = Edit.OnModelChanged.Connect([&] { ++Told; });
    Edit.SetText("Main account");
    Edit.SetHint("ACC1");
    Edit.SetPlaceholder("choose");
    Edit.SetText("Main account");
    Edit.SetHint("ACC1");
    Edit.SetPlaceholder("choose");
    EXPECT_EQ(Edit.GetText(), "Main account");
    EXPECT_EQ(Edit.GetHint(), "ACC1");
    EXPECT_EQ(Edit.GetPlaceholder(), "choose");
    EXPECT_EQ(Told, 3);
    EXPECT_THAT(Exits, ElementsAre());
}

TEST_F(PopupEditTest, AChoiceSetsTextAndHintAndThenExits) {
    Edit.SetChoices({{"A1", "First"}, {"A2", "Second"}});
    Edit.Choose(1);
    EXPECT_EQ(Edit.GetText(), "Second");
    EXPECT_THAT(Exits, ElementsAre("A2"));
    Edit.Choose(2);
    Edit.Choose(-1);
    EXPECT_EQ(Edit.GetHint(), "A2");
    EXPECT_EQ(Exits.size(), 1u);
}

TEST_F(PopupEditTest, AListenerMayReplaceTheChoicesWhileOneIsTaken) {
    Edit.SetChoices({{"A1", "First"}});
    const auto Link = Edit.OnModelChanged.Connect([this] {
        if (!Edit.GetChoices().empty()) Edit.SetChoices({});
    });
    Edit.Choose(0);
    EXPECT_EQ(Edit.GetText(), "First");
    EXPECT_THAT(Exits, ElementsAre("A1"));
}

TEST_F(PopupEditTest, LeavingFiresTheExit) {
    Edit.SetHint("H");
    Edit.SetFocus();
    Other.SetFocus();
    EXPECT_THAT(Exits, ElementsAre("H"));
    Edit.Exit();
    EXPECT_EQ(Exits.size(), 2u);
}

TEST_F(PopupEditTest, KeysReachTheFormAndFailuresTheLog) {
    TSteps Keys;
    Edit.KeyPress('x');  // nobody listens
    Edit.OnKeyPress = [&](TObject* Sender, char& Key) {
        EXPECT_EQ(Sender, &Edit);
        Keys.push_back(Text(1, Key));
        Key = 0;
        if (Keys.size() == 2) throw std::runtime_error("key");
    };
    Edit.KeyPress('a');
    Edit.KeyPress(13);
    EXPECT_THAT(Keys, ElementsAre("a", "\r"));
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|edt.OnKeyPress|key"));
}

}  // namespace
}  // namespace fw
