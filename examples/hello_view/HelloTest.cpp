// SPDX-License-Identifier: Apache-2.0
// The view without a screen: the services that it asks for are replaced, its controls are used as a renderer uses them.
#include <iostream>

#include "framework/base/ClassRegistry.h"
#include "framework/base/Clock.h"
#include "framework/base/Log.h"
#include "framework/base/Package.h"
#include "framework/controls/Button.h"
#include "framework/controls/LayoutControl.h"
#include "framework/controls/SpinEdit.h"
#include "framework/services/LanguageManager.h"
#include "framework/services/ScopedService.h"
#include "framework/services/TimerControl.h"
#include "framework/view/BaseView.h"

namespace {

struct TFakeLanguage : fw::TCustomLanguageManager {
    int Language = 0;
    void GetResourceString(fw::Text& Out, const fw::Text&, const fw::Text& Key, int, int, void*) override { Out = Key; }
    int GetLanguage() override { return Language; }
};

struct TFakeTimer : fw::TCustomTimerControl {
    std::vector<std::pair<fw::TObject*, fw::TNotifyEvent>> Events;
    void AddTimerEvent(fw::TObject* Owner, fw::TNotifyEvent Event) override { Events.emplace_back(Owner, Event); }
    void RemoveTimerEvent(fw::TObject* Owner) override {
        std::erase_if(Events, [&](const auto& Each) { return Each.first == Owner; });
    }
    void Tick() {
        for (auto& Each : Events) Each.second(this);
    }
};

int Failures = 0;
void Expect(bool Holds, const char* What) {
    if (Holds) return;
    std::cerr << "not so: " << What << '\n';
    ++Failures;
}

}  // namespace

int main() {
    auto Language = std::make_unique<TFakeLanguage>();
    auto& Spoken = *Language;
    fw::TScopedService<fw::TCustomLanguageManager> LanguageScope(std::move(Language));
    auto Timer = std::make_unique<TFakeTimer>();
    auto& Ticking = *Timer;
    fw::TScopedService<fw::TCustomTimerControl> TimerScope(std::move(Timer));
    std::vector<fw::Text> Log;
    const auto Link = fw::TLog::Entries().Connect([&](const fw::TLogEntry& Entry) { Log.push_back(Entry.Key); });

    PackageInitialize();
    const auto Made = fw::TClassRegistry::Create("THelloView");
    auto* View = dynamic_cast<fw::TIBaseView*>(Made.get());
    if (!View) return std::cerr << "the package registers no view\n", 1;
    const int64_t Handle = View->OpenNewInstance();
    fw::TFrame& Frame = *View->FindView(Handle);
    auto& Minutes = *Frame.FindControl<fw::TSpinEdit>("spinMinutes");
    auto& Start = *Frame.FindControl<fw::TButton>("btnStart");
    auto& Left = *Frame.FindControl<fw::TLayoutItem>("itemLeft");

    const fw::TClock::TTimePoint Noon = std::chrono::sys_days(std::chrono::year(2026) / 3 / 2) + std::chrono::hours(12);
    fw::TClock::Fix(Noon);
    Minutes.SetEditText("2");
    Start.Click();  // posts what was typed, as a click in the window does
    Expect(Left.GetCaption() == "120 s left", "the time left is shown");
    fw::TClock::Fix(Noon + std::chrono::minutes(2));
    Ticking.Tick();
    Expect(Log == std::vector<fw::Text>{"Reminder: The time is up"}, "the end is told once");
    Ticking.Tick();
    Expect(Log.size() == 1, "and not again");

    Spoken.Language = 2;
    View->SetLanguage(Handle, 2);
    Expect(Start.GetCaption() == "开始", "texts follow the language");

    const fw::Text Saved = View->GetLayoutData(Handle);
    const int64_t Second = View->OpenNewInstance();
    View->SetLayoutData(Second, Saved);
    Expect(View->GetLayoutData(Second) == Saved, "what was saved comes back");
    View->SetLayoutData(Second, "Minutes=many,\"");
    View->SetLayoutData(Second, "Minutes=1e300");
    Expect(View->GetLayoutData(Second) == Saved, "text that is damaged or out of bounds changes nothing");

    View->CloseInstance(Handle);
    View->CloseInstance(Second);
    Expect(Ticking.Events.empty(), "a closed view leaves nothing behind");
    if (Failures == 0) std::cout << "all so\n";
    return Failures;
}
