// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QEventLoop>

#include <cstring>
#include <iostream>

#include "workstation/script/FirstStart.h"
#include "workstation/script/HeadlessJob.h"
#include "workstation/shell/AppPaths.h"
#include "workstation/shell/Appearance.h"
#include "workstation/shell/MainWindow.h"
#include "workstation/shell/PackageLoader.h"
#include "workstation/shell/ViewPicture.h"
#include "workstation/shell/WorkstationLoop.h"

namespace {

using namespace ws;

constexpr int kViewWidth = 1000, kViewHeight = 600;        // picture of the headless job
constexpr int kWindowWidth = 1180, kWindowHeight = 820;    // window, and its picture
constexpr int kPictureSettlingMs = 1500;
constexpr const char* kSection = "Workstation";
constexpr const char* kKeyFirstStart = "FirstStartDone";

// The day of the pictures: the sample market stands as it is written.
const fw::TClock::TTimePoint kPictureTime = std::chrono::sys_days(std::chrono::year(2026) / 12 / 1) + std::chrono::hours(2);

// The offscreen platform warns about size hints it cannot pass on; nothing else is kept quiet.
void FilterMessages(QtMsgType, const QMessageLogContext&, const QString& Message) {
    if (!Message.contains("propagateSizeHints")) std::cerr << Message.toStdString() << '\n';
}

// Before a user's language is known.
std::string StartText(const std::string& Key, const std::vector<std::string>& Args = {}) {
    return TTextTable::Embedded().Sentence(Key, Args, kLanguageEnglish);
}

TWorkstationOptions OptionsOf(const TCommandLine& Line) {
    TWorkstationOptions Options;
    Options.SampleFolder = SampleFolder();
    Options.User = Line.User;
    Options.InMemory = Line.Mode == ERunMode::Headless || Line.Mode == ERunMode::Picture;
    if (Line.Mode == ERunMode::Picture) Options.StoreFile = Line.Out.parent_path() / "no-store-here.db";  // the sample alone
    return Options;
}

void PassOn(const std::vector<TStoreNotice>& Notices) {
    for (const auto& Notice : Notices) fw::TLog::Warning(Notice.Key, Notice.Args);
}

void PassOn(const std::vector<TPackageProblem>& Problems) {
    for (const auto& Problem : Problems) fw::TLog::Error(Problem.Key, Problem.Args);
}

void Wait(int Milliseconds) {
    QEventLoop Loop;
    QTimer::singleShot(Milliseconds, &Loop, &QEventLoop::quit);
    Loop.exec();
}

void ApplyChoices(const TCommandLine& Line, TWorkstation& Workstation, TRenderContext& Context) {
    if (const auto Language = LanguageIndexOf(Line.Language)) Workstation.SetLanguage(*Language);
    if (!Line.Skin.empty()) Workstation.SetSkin(Line.Skin);
    ApplySkin(Workstation.LookAndFeel().GetSkinName());
    Context.SetSkin(Workstation.LookAndFeel().GetSkinName());
}

int RunHeadless(const TCommandLine& Line, TWorkstation& Workstation, const TViewRegistry& Views, TRenderContext& Context) {
    auto* View = Views.FindById(kPayoffViewId);
    if (!View || !View->GetIsVisible()) {
        std::cerr << Workstation.Language().Resource("Res_NoPayoffView", {Workstation.User().Code}) << '\n';
        return kExitFailed;
    }
    const THeadlessHost Host{Wait, [&](fw::TFrame& Frame, const std::filesystem::path& File) { return DrawView(Frame, Context, kViewWidth, kViewHeight, File); }};
    return RunHeadlessJob(Workstation, *View, Line, Host, std::cout, std::cerr);
}

// The payoff view with the first start's strategy, its chart hint on.
void OpenFirstView(TMainWindow& Window, TWorkstation& Workstation, const TViewRegistry& Views, bool WithStrategy) {
    auto* View = Views.FindById(kPayoffViewId);
    auto* Dock = View && View->GetIsVisible() ? Window.OpenView(*View) : nullptr;
    if (!Dock || !WithStrategy) return;
    View->HandleCaptionButtonClick(Dock->Handle(), 1);
    if (auto Strategy = FirstStartStrategy(Workstation.Store()); !Strategy.Legs.empty()) Window.PlayStrategy(*Dock, std::move(Strategy));
}

int RunPicture(const TCommandLine& Line, TMainWindow& Window) {
    while (Window.IsPlaying()) Wait(kTimerPeriodMs);
    Wait(kPictureSettlingMs);
    return GrabPng(Window, Line.Out) ? kExitDone : kExitFailed;
}

int RunWithScreen(const TCommandLine& Line, QApplication& Application, TWorkstation& Workstation, TMessageLog& Log) {
    TRenderContext Context;
    ApplyChoices(Line, Workstation, Context);
    TWorkstationLoop Loop(Workstation);
    PassOn(LoadPackages(PackageFolder()));
    TViewRegistry Views;
    if (Line.Mode == ERunMode::Headless) {
        const auto& Messages = Log.Messages();
        const int Status = RunHeadless(Line, Workstation, Views, Context);
        for (const auto& Message : Messages)
            if (Message.Entry.Level != fw::ELogLevel::Info) std::cerr << Workstation.Language().Resource(Message.Entry.Key, Message.Entry.Args) << '\n';
        return Status;
    }

    TMainWindow Window(Workstation, Views, Log, Context);
    Window.resize(Context.Scaled(kWindowWidth), Context.Scaled(kWindowHeight));
    Window.show();
    const bool First = Line.Mode == ERunMode::Picture || !Workstation.Store().ReadSetting(kSection, kKeyFirstStart);
    OpenFirstView(Window, Workstation, Views, First);
    Workstation.Channels().SendData(fw::kChannelMainFormShow, nullptr);
    if (Line.Mode == ERunMode::Picture) return RunPicture(Line, Window);
    Workstation.Store().WriteSetting(kSection, kKeyFirstStart, "1");
    return Application.exec();
}

int Run(const TCommandLine& Line, int ArgumentCount, char** Arguments) {
    TMessageLog Log;
    try {
        if (Line.Mode == ERunMode::Import) {
            TWorkstation Workstation(OptionsOf(Line));
            return RunImport(Workstation, Line, std::cout, std::cerr);
        }
        if (Line.Mode == ERunMode::Picture) fw::TClock::Fix(kPictureTime);
        if (Line.Mode == ERunMode::Headless || Line.Mode == ERunMode::Picture) setenv("QT_QPA_PLATFORM", "offscreen", 1);
        qInstallMessageHandler(FilterMessages);
        QApplication Application(ArgumentCount, Arguments);
        QApplication::setApplicationName("ventiq-workstation");
        QApplication::setApplicationVersion(VENTIQ_VERSION);
        QApplication::setWindowIcon(QIcon(":/icons/workstation.svg"));
        ApplyStyle();
        TWorkstation Workstation(OptionsOf(Line));
        PassOn(Workstation.Notices());
        return RunWithScreen(Line, Application, Workstation, Log);
    } catch (const EStoreError& Error) {
        std::cerr << StartText(Error.Key(), Error.Args()) << '\n';
    } catch (const EMarketRefusal& Refusal) {
        std::cerr << StartText(Refusal.Reason().Key, Refusal.Reason().Args) << '\n';
    }
    return kExitFailed;
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
    try {
        const auto Line = ParseCommandLine({Arguments + 1, Arguments + ArgumentCount});
        if (Line.Mode == ERunMode::Help) {
            std::cout << StartText("Res_UsageHelp") << '\n';
            return kExitDone;
        }
        if (Line.Mode == ERunMode::Version) {
            std::cout << VENTIQ_VERSION << '\n';
            return kExitDone;
        }
        return Run(Line, ArgumentCount, Arguments);
    } catch (const TUsageError& Error) {
        std::cerr << StartText(Error.Key, Error.Args) << '\n';
        return kExitUsage;
    }
}
