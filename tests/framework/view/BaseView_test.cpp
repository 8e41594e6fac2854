// SPDX-License-Identifier: Apache-2.0
#include "framework/view/BaseView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framework/base/Const.h"
#include "framework/base/Errors.h"
#include "tests/framework/base/LogRecorder.h"

namespace fw {
namespace {

using testing::ElementsAre;
using TJournal = std::vector<Text>;

// Notes when its editor is posted.
class TTypedControl : public TControl {
public:
    explicit TTypedControl(TJournal& Journal) : FJournal(Journal) {}
    void PostEditor() override {
        FJournal.push_back("post");
        if (Raises) throw EConvertError("typed text");
    }
    bool Raises = false;

private:
    TJournal& FJournal;
};

// Answers every call and writes it down; raises instead while asked to.
class TWritingFrame : public TFrame {
public:
    TWritingFrame(TJournal& Journal, Text Name) : Editor(Journal), FJournal(Journal), FName(std::move(Name)) {
        Controls().Attach("edtDown", Editor);
        Button.OnClick = [this](TObject* Sender) { Note(Sender == &Button ? "click" : "click of a stranger"); };
    }
    ~TWritingFrame() override { FJournal.push_back(FName + " closed"); }

    bool SetLanguage(int Id) override { return Note("language " + std::to_string(Id)); }
    bool SetGroupID(const Text& Id) override { return Note("group " + Id); }
    bool GetGroupID(Text& Id) override {
        Id = "G";
        return Note("group?");
    }
    Text GetLayoutData() override {
        Note("layout?");
        return "layout of " + FName;
    }
    bool SetLayoutData(const Text& Data) override { return Note("layout " + Data); }
    bool SetCustomData(int Kind, TObject* Data) override {
        return Note("custom " + std::to_string(Kind) + (Data ? "+" : "-"));
    }
    TCaptionButtonList* GetViewCaptionButtons() override {
        Note("buttons?");
        return &Buttons;
    }
    TImageList* GetViewCaptionButtonImageList() override {
        Note("images?");
        return &Images;
    }

    bool Raises = false;
    TTypedControl Editor;
    TCaptionButton Button;
    TCaptionButtonList Buttons{nullptr, &Button};
    TImageList Images;

private:
    bool Note(const Text& Call) {
        if (Raises) throw std::runtime_error(Call);
        FJournal.push_back(FName + " " + Call);
        return true;
    }
    TJournal& FJournal;
    Text FName;
};

class TTestView : public TIBaseView {
public:
    explicit TTestView(TJournal& Journal) : FJournal(Journal) {}
    int64_t OpenNewInstance() override {
        if (Raises) throw EServiceMissing("no market");
        auto Frame = std::make_unique<TWritingFrame>(FJournal, Text(1, Next++));
        TFrame* Opened = Frame.get();
        AddView(std::move(Frame));
        return Opened->GetHandle();
    }
    bool GetDefaultSize(int& Width, int& Height) override {
        Width = 960;
        Height = 640;
        return true;
    }
    bool GetDefaultCaption(Text& Caption) override {
        Caption = "Caption";
        return true;
    }
    TWritingFrame& Frame(int64_t Handle) { return dynamic_cast<TWritingFrame&>(*FindView(Handle)); }
    bool Raises = false;

private:
    TJournal& FJournal;
    char Next = 'a';
};

class BaseView : public testing::Test {
protected:
    TJournal Journal;
    TTestView View{Journal};
};

TEST_F(BaseView, CallsReachTheInstanceOfTheHandle) {
    const int64_t A = View.OpenNewInstance(), B = View.OpenNewInstance();
    EXPECT_THAT(View.OpenViews(), ElementsAre(A, B));
    TObject Data;
    EXPECT_TRUE(View.SetGroupID(B, "7"));
    EXPECT_TRUE(View.SetLayoutData(A, "x"));
    EXPECT_TRUE(View.SetCustomData(B, 3, &Data));
    EXPECT_TRUE(View.SetCustomData(B, 4, nullptr));
    EXPECT_EQ(View.GetLayoutData(A), "layout of a");
    Text Group;
    EXPECT_TRUE(View.GetGroupID(B, Group));
    EXPECT_EQ(Group, "G");
    EXPECT_THAT(Journal, ElementsAre("b group 7", "a layout x", "b custom 3+", "b custom 4-", "a layout?", "b group?"));
}

TEST_F(BaseView, HandleIsTheAddressOfTheFrame) {
    const int64_t A = View.OpenNewInstance();
    EXPECT_EQ(View.FindView(A), reinterpret_cast<TFrame*>(A));
    EXPECT_TRUE(View.ContainView(A));
    EXPECT_TRUE(View.ActiveView(A));
    EXPECT_TRUE(View.DeactiveView(A));
}

TEST_F(BaseView, UnknownHandleGivesTheDefault) {
    View.OpenNewInstance();
    for (const int64_t Unknown : {int64_t{0}, int64_t{-1}, int64_t{12345}}) {
        Text T = "before";
        int N = -7;
        TImageList Images;
        TImageList* List = &Images;
        TCaptionButtonList Buttons{nullptr};
        EXPECT_FALSE(View.SetLanguage(Unknown, 1));
        EXPECT_FALSE(View.SetGroupID(Unknown, "x"));
        EXPECT_FALSE(View.GetGroupID(Unknown, T));
        EXPECT_FALSE(View.SetLayoutData(Unknown, "x"));
        EXPECT_FALSE(View.SetCustomData(Unknown, 1, nullptr));
        EXPECT_FALSE(View.GetViewCaption(Unknown, T));
        EXPECT_FALSE(View.GetViewIcon(Unknown, T));
        EXPECT_FALSE(View.GetWidth(Unknown, N));
        EXPECT_FALSE(View.GetHeight(Unknown, N));
        EXPECT_FALSE(View.HandleCaptionButtonClick(Unknown, 1));
        EXPECT_FALSE(View.GetViewCaptionButtonImageList(Unknown, List));
        EXPECT_FALSE(View.GetViewCaptionButtons(Unknown, Buttons));
        EXPECT_FALSE(View.ActiveView(Unknown));
        EXPECT_FALSE(View.DeactiveView(Unknown));
        EXPECT_FALSE(View.SendMessage(Unknown, 1, 2));
        EXPECT_FALSE(View.SetSkin(Unknown, "dark"));
        EXPECT_FALSE(View.SetFont(Unknown, "font", 9, 1));
        EXPECT_FALSE(View.CloseInstance(Unknown));
        EXPECT_FALSE(View.ContainView(Unknown));
        EXPECT_EQ(View.GetLayoutData(Unknown), "");
        EXPECT_EQ(View.FindView(Unknown), nullptr);
        EXPECT_EQ(T, "before");
        EXPECT_EQ(N, -7);
        EXPECT_EQ(List, nullptr);
        EXPECT_TRUE(Buttons.empty());
    }
    EXPECT_TRUE(Journal.empty());
}

TEST_F(BaseView, WhatAnInstanceThrowsIsCaughtAndLogged) {
    const int64_t A = View.OpenNewInstance();
    View.Frame(A).Raises = true;
    TLogRecorder Log;
    Text Group = "before";
    TCaptionButtonList Buttons;
    TImageList* List = nullptr;
    EXPECT_FALSE(View.SetLanguage(A, 1));
    EXPECT_FALSE(View.SetGroupID(A, "x"));
    EXPECT_FALSE(View.GetGroupID(A, Group));
    EXPECT_FALSE(View.SetLayoutData(A, "x"));
    EXPECT_FALSE(View.SetCustomData(A, 1, nullptr));
    EXPECT_EQ(View.GetLayoutData(A), "");
    EXPECT_FALSE(View.GetViewCaptionButtons(A, Buttons));
    EXPECT_FALSE(View.GetViewCaptionButtonImageList(A, List));
    ASSERT_EQ(Log.Entries.size(), 8u);
    for (const auto& E : Log.Entries) EXPECT_EQ(E.Key, "Res_LogHandlerFailed");
    EXPECT_THAT(Log.Entries[0].Args, ElementsAre("SetLanguage", "language 1"));
}

TEST_F(BaseView, LanguageSwitchPostsOpenEditorsFirst) {
    const int64_t A = View.OpenNewInstance();
    EXPECT_TRUE(View.SetLanguage(A, 2));
    EXPECT_THAT(Journal, ElementsAre("post", "a language 2"));
}

TEST_F(BaseView, EditorThatRefusesItsTextDoesNotStopTheLanguageSwitch) {
    const int64_t A = View.OpenNewInstance();
    View.Frame(A).Editor.Raises = true;
    TLogRecorder Log;
    EXPECT_TRUE(View.SetLanguage(A, 2));
    EXPECT_THAT(Journal, ElementsAre("post", "a language 2"));
    ASSERT_EQ(Log.Entries.size(), 1u);
    EXPECT_EQ(Log.Entries[0].Args.at(1), "typed text");
}

TEST_F(BaseView, ErrorWhileOpeningReachesTheCallerAndNothingIsRecorded) {
    const int64_t A = View.OpenNewInstance();
    View.Raises = true;
    TLogRecorder Log;
    EXPECT_THROW(View.OpenNewInstance(), EServiceMissing);
    EXPECT_THAT(View.OpenViews(), ElementsAre(A));
    EXPECT_TRUE(Log.Entries.empty());
    View.AddView(nullptr);
    EXPECT_THAT(View.OpenViews(), ElementsAre(A));
}

TEST_F(BaseView, ClosingDestroysTheFrame) {
    const int64_t A = View.OpenNewInstance(), B = View.OpenNewInstance();
    EXPECT_TRUE(View.CloseInstance(A));
    EXPECT_THAT(Journal, ElementsAre("a closed"));
    EXPECT_THAT(View.OpenViews(), ElementsAre(B));
    EXPECT_FALSE(View.CloseInstance(A));
    EXPECT_EQ(View.FindView(A), nullptr);
}

TEST_F(BaseView, DescriptorClosesWhatIsOpenWhenItEnds) {
    {
        TTestView Dying(Journal);
        Dying.OpenNewInstance();
        Dying.OpenNewInstance();
    }
    EXPECT_THAT(Journal, ElementsAre("b closed", "a closed"));
}

TEST_F(BaseView, SizeAndCaptionOfAnInstanceAreTheDefaults) {
    const int64_t A = View.OpenNewInstance();
    int Width = 0, Height = 0;
    Text Caption;
    EXPECT_TRUE(View.GetWidth(A, Width));
    EXPECT_TRUE(View.GetHeight(A, Height));
    EXPECT_TRUE(View.GetViewCaption(A, Caption));
    EXPECT_EQ(Width, 960);
    EXPECT_EQ(Height, 640);
    EXPECT_EQ(Caption, "Caption");
}

TEST_F(BaseView, CaptionButtonsAreTheFramesOwn) {
    const int64_t A = View.OpenNewInstance();
    TCaptionButton Stranger;
    TCaptionButtonList Buttons{&Stranger};
    EXPECT_TRUE(View.GetViewCaptionButtons(A, Buttons));
    EXPECT_EQ(Buttons, View.Frame(A).Buttons);
    TImageList* Images = nullptr;
    EXPECT_TRUE(View.GetViewCaptionButtonImageList(A, Images));
    EXPECT_EQ(Images, &View.Frame(A).Images);
}

TEST_F(BaseView, ClickRunsTheHandlerOfTheButton) {
    const int64_t A = View.OpenNewInstance();
    EXPECT_TRUE(View.HandleCaptionButtonClick(A, 1));
    EXPECT_EQ(Journal.back(), "a click");
    for (const int Index : {-1, 0, 2}) EXPECT_FALSE(View.HandleCaptionButtonClick(A, Index)) << Index;
    View.Frame(A).Button.OnClick = [](TObject*) { throw 1; };
    TLogRecorder Log;
    EXPECT_FALSE(View.HandleCaptionButtonClick(A, 1));
    EXPECT_EQ(Log.Entries.size(), 1u);
    View.Frame(A).Button.OnClick = nullptr;
    EXPECT_FALSE(View.HandleCaptionButtonClick(A, 1));
}

TEST_F(BaseView, ShortcutsStandInOrderAndKnowTheirKey) {
    std::vector<Text> List{"former"};
    EXPECT_FALSE(View.GetShortCutList(List));
    EXPECT_TRUE(List.empty());
    View.AddNewShortcut("calculate", 120);
    View.AddNewShortcut("clear", 121);
    View.AddNewShortcut("calculate", 122);
    EXPECT_TRUE(View.GetShortCutList(List));
    EXPECT_THAT(List, ElementsAre("calculate", "clear"));
    EXPECT_EQ(View.GetShortcutKey(0), 122);
    EXPECT_EQ(View.GetShortcutKey(1), 121);
    EXPECT_EQ(View.GetShortcutKey(2), 0);
    EXPECT_EQ(View.GetShortcutKey(-1), 0);
    EXPECT_FALSE(View.ExecuteShortcutAction(0));
}

TEST(BaseViewDefaults, DescribeAPlainDockableView) {
    TIBaseView View;
    int Width = -1, Height = -1;
    Text Caption = "before";
    EXPECT_EQ(View.GetName(), "");
    EXPECT_EQ(View.GetViewID(), 0);
    EXPECT_EQ(View.GetMenuLevel(), 0);
    EXPECT_EQ(View.GetMenuIndex(0), -1);
    EXPECT_EQ(View.GetMenuID(0), 0);
    EXPECT_EQ(View.GetMenuCaption(0), "");
    EXPECT_EQ(View.GetMenuGroupIndex(0), 0);
    EXPECT_EQ(View.OpenNewInstance(), 0);
    EXPECT_FALSE(View.GetDefaultSize(Width, Height));
    EXPECT_FALSE(View.GetDefaultCaption(Caption));
    EXPECT_EQ(Width, -1);
    EXPECT_EQ(Height, -1);
    EXPECT_EQ(Caption, "before");
    EXPECT_TRUE(View.GetIsVisible());
    EXPECT_TRUE(View.GetIsSizeable());
    EXPECT_TRUE(View.GetCanDock());
    EXPECT_FALSE(View.GetIsDialog());
    EXPECT_EQ(View.GetDockPosition(), 0);
    EXPECT_EQ(View.GetPreferenceView(), nullptr);
    EXPECT_FALSE(View.GetIsDialogViewAfterMainShow());
}

TEST(FrameDefaults, DoNothing) {
    TIBaseView View;
    auto Plain = std::make_unique<TFrame>();
    const int64_t Handle = Plain->GetHandle();
    View.AddView(std::move(Plain));
    Text Group = "before";
    TCaptionButtonList Buttons;
    TImageList* Images = nullptr;
    EXPECT_FALSE(View.SetLanguage(Handle, 1));
    EXPECT_FALSE(View.SetGroupID(Handle, "x"));
    EXPECT_FALSE(View.GetGroupID(Handle, Group));
    EXPECT_EQ(View.GetLayoutData(Handle), "");
    EXPECT_FALSE(View.SetLayoutData(Handle, "x"));
    EXPECT_FALSE(View.SetCustomData(Handle, 1, nullptr));
    EXPECT_FALSE(View.GetViewCaptionButtons(Handle, Buttons));
    EXPECT_FALSE(View.GetViewCaptionButtonImageList(Handle, Images));
    EXPECT_FALSE(View.HandleCaptionButtonClick(Handle, 0));
    EXPECT_EQ(View.FindView(Handle)->GetLayout(), nullptr);
    EXPECT_EQ(View.FindView(Handle)->GetHintController(), nullptr);
}

TEST(ViewNotify, ReachesTheShellAndItsErrorsEndThere) {
    TFrame Frame;
    std::vector<std::pair<TFrame*, int>> Seen;
    const auto Link = Baseview::Notifications().Connect([&](TFrame* V, int Code) { Seen.emplace_back(V, Code); });
    Baseview::SendViewNotify(&Frame, kViewNotifyCaptionButtons);
    EXPECT_THAT(Seen, ElementsAre(std::pair(&Frame, 1026)));
    const auto Bad = Baseview::Notifications().Connect([](TFrame*, int) { throw 1; });
    TLogRecorder Log;
    Baseview::SendViewNotify(&Frame, 1);
    EXPECT_EQ(Log.Entries.size(), 1u);
}

}  // namespace
}  // namespace fw
