// SPDX-License-Identifier: Apache-2.0
// A reminder as a view: minutes, a button, and the time left.
#include <cmath>

#include "framework/base/ClassRegistry.h"
#include "framework/base/Clock.h"
#include "framework/base/Log.h"
#include "framework/base/Numbers.h"
#include "framework/base/Package.h"
#include "framework/base/StringList.h"
#include "framework/controls/Button.h"
#include "framework/controls/SpinEdit.h"
#include "framework/services/LanguageManager.h"
#include "framework/services/TimerControl.h"
#include "framework/view/BaseView.h"

namespace {

constexpr int kViewId = 10001;  // unique among all views; also of the menu entry

using TTexts = const char* [3];  // English, traditional and simplified Chinese
constexpr TTexts kReminder{"Reminder", "提醒", "提醒"};
constexpr TTexts kMinutes{"Minutes", "分鐘", "分钟"};
constexpr TTexts kStart{"Start", "開始", "开始"};
constexpr TTexts kLeft{"%s s left", "尚餘 %s 秒", "还剩 %s 秒"};
constexpr TTexts kOver{"The time is up", "時間到", "时间到"};

fw::Text In(const TTexts& Texts) { return Texts[fw::TCustomLanguageManager::GetInstance().GetLanguage()]; }

class THelloFrame : public fw::TFrame {
public:
    THelloFrame() {
        Controls().Attach("spinMinutes", FMinutes);
        Controls().Attach("btnStart", FStart);
        Controls().Attach("itemLeft", FLeftItem);
        FMinutes.SetMinValue(1);
        FMinutes.SetMaxValue(24 * 60);
        FMinutes.SetValue(15);
        FStart.OnClick = [this](fw::TObject*) { Start(); };
        for (fw::TLayoutItem* Item : {&FMinutesItem, &FStartItem, &FLeftItem}) FRoot.Add(*Item);
        THelloFrame::SetLanguage(0);
        fw::TCustomTimerControl::GetInstance().AddTimerEvent(this, [this](fw::TObject*) { Tick(); });
    }
    ~THelloFrame() override { fw::TCustomTimerControl::GetInstance().RemoveTimerEvent(this); }

    fw::TLayoutGroup* GetLayout() override { return &FRoot; }

    bool SetLanguage(int) override {
        FMinutesItem.SetCaption(In(kMinutes));
        FStart.SetCaption(In(kStart));
        return true;
    }

    fw::Text GetLayoutData() override {
        fw::TStringList Data;
        Data.SetValue("Minutes", fw::FloatToShortestText(FMinutes.GetFloat()));
        return Data.GetCommaText();
    }

    bool SetLayoutData(const fw::Text& Text) override {
        fw::TStringList Data;
        Data.SetCommaText(Text);
        if (const auto Minutes = fw::TextToFloat(Data.GetValue("Minutes"))) FMinutes.EnterNumber(*Minutes);
        return true;
    }

private:
    void Start() {
        FEnd = fw::TClock::Now() + std::chrono::seconds(std::lround(60 * FMinutes.GetFloat()));
        Tick();
    }

    void Tick() {
        if (!FEnd) return;
        const auto Left = std::chrono::ceil<std::chrono::seconds>(*FEnd - fw::TClock::Now()).count();
        FLeftItem.SetCaption(Left > 0 ? fw::FormatText(In(kLeft), {std::to_string(Left)}) : In(kOver));
        if (Left > 0) return;
        FEnd.reset();
        fw::TLog::Warning(In(kReminder) + ": " + In(kOver));
    }

    fw::TSpinEdit FMinutes;
    fw::TButton FStart;
    fw::TLayoutItem FMinutesItem{&FMinutes}, FStartItem{&FStart}, FLeftItem;
    fw::TLayoutGroup FRoot{fw::EDirection::Vertical};
    std::optional<fw::TClock::TTimePoint> FEnd;  // none: not started
};

class THelloView : public fw::TIBaseView {
public:
    fw::Text GetName() override { return "Hello_10001"; }
    int GetViewID() override { return kViewId; }
    int GetMenuLevel() override { return 1; }
    int GetMenuIndex(int) override { return 9000; }  // behind the menus of the workstation's own views
    int GetMenuID(int) override { return kViewId; }
    fw::Text GetMenuCaption(int) override { return In(kReminder); }
    int64_t OpenNewInstance() override {
        auto Frame = std::make_unique<THelloFrame>();
        const int64_t Handle = Frame->GetHandle();
        AddView(std::move(Frame));
        return Handle;
    }
    bool GetDefaultSize(int& Width, int& Height) override { return Width = 240, Height = 260, true; }
    bool GetDefaultCaption(fw::Text& Caption) override { return Caption = In(kReminder), true; }
};

}  // namespace

const char* PackageFrameworkVersion() { return fw::kFrameworkVersion; }
void PackageInitialize() {
    fw::TClassRegistry::RegisterClass("THelloView", [] { return std::make_unique<THelloView>(); });
}
