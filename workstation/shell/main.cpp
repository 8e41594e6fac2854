// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <iostream>

#include <QEventLoop>
#include <QTimer>

#include "framework/base/Clock.h"
#include "workstation/renderers/RenderContext.h"
#include "workstation/script/CommandLine.h"
#include "workstation/script/HeadlessJob.h"
#include "workstation/services/Workstation.h"
#include "workstation/shell/Application.h"
#include "workstation/shell/GuidePictures.h"
#include "workstation/shell/MainWindow.h"
#include "workstation/shell/PackageLoader.h"
#include "workstation/shell/Picture.h"
#include "workstation/shell/SkinPalette.h"
#include "workstation/shell/StartUp.h"
#include "workstation/shell/WindowRun.h"

namespace {

using namespace ws;

constexpr QSize kViewSize(1000, 600);  // of a view that has no default size
constexpr QSize kPictureSize(1280, 860);
constexpr int kPictureMilliseconds = 12000;

void Wait(int Milliseconds) {
    QEventLoop Loop;
    QTimer::singleShot(Milliseconds, &Loop, &QEventLoop::quit);
    Loop.exec();
}

// The services' loop while no window runs it.
class TServiceLoop {
public:
    explicit TServiceLoop(TWorkstation& Workstation) {
        QObject::connect(&FTick, &QTimer::timeout, [&Workstation] { Workstation.Tick(); });
        QObject::connect(&FPump, &QTimer::timeout, [&Workstation] { Workstation.Pump(); });
        FTick.start(kTimerPeriodMs);
        FPump.start(0);
    }

private:
    QTimer FTick, FPump;
};

int RunPicture(TWorkstation& Workstation, TRenderContext& Context, const TCommandLine& Line) {
    TMainWindow Window(Workstation, Context, std::make_unique<TDialogs>(Context));
    LoadPackages();
    Window.ReloadViews();
    Window.setAttribute(Qt::WA_DontShowOnScreen);
    Window.resize(kPictureSize);
    Window.show();
    Window.PlayFirstStart();
    for (int Waited = 0; Window.IsPlaying() && Waited < kPictureMilliseconds; Waited += kTimerPeriodMs)
        Wait(kTimerPeriodMs);
    Wait(2 * kTimerPeriodMs);
    if (GrabPng(Window, Line.Out)) {
        std::cout << Line.Out.string() << '\n';
        return kExitDone;
    }
    std::cerr << Workstation.Language().Resource("Res_FileNotWritten", {Line.Out.string(), ""}) << '\n';
    return kExitFailed;
}

int RunPictures(TWorkstation& Workstation, TRenderContext& Context, const TCommandLine& Line) {
    TMainWindow Window(Workstation, Context, std::make_unique<TDialogs>(Context));
    LoadPackages();
    Window.ReloadViews();
    Window.resize(kPictureSize);
    Window.show();
    std::error_code Failed;
    std::filesystem::create_directories(Line.Out, Failed);
    const auto Wrote = [](const std::filesystem::path& File) { std::cout << File.string() << '\n'; };
    if (MakeGuidePictures(Window, Line.Out, Wait, Wrote)) return kExitDone;
    std::cerr << Workstation.Language().Resource("Res_FileNotWritten", {Line.Out.string(), ""}) << '\n';
    return kExitFailed;
}

QSize SizeOf(fw::TIBaseView& View) {
    int Width = 0, Height = 0;
    return View.GetDefaultSize(Width, Height) ? QSize(Width, Height) : kViewSize;
}

fw::TIBaseView* ChosenView(const TViewCatalog& Catalog, const std::string& Name) {
    for (const auto& View : Catalog.Views())
        if (View->GetIsVisible() && (Name.empty() || View->GetName() == Name)) return View.get();
    return nullptr;
}

// The jobs over the packages' views that need no window.
int RunOnViews(TWorkstation& Workstation, TRenderContext& Context, const TCommandLine& Line) {
    TLogPrinter Printer(Workstation);
    const TServiceLoop Loop(Workstation);
    LoadPackages();
    TViewCatalog Catalog;
    Catalog.Reload();
    if (Line.Mode == ERunMode::ListViews) {
        PrintViews(MenuOf(Catalog), std::cout);
        return Printer.SaidError() ? kExitFailed : kExitDone;
    }
    fw::TIBaseView* View = ChosenView(Catalog, Line.View);
    if (!View) {
        std::cerr << Workstation.Language().Resource(Line.View.empty() ? "Res_NoView" : "Res_ViewUnknown", {Line.View})
                  << '\n';
        return kExitFailed;
    }
    THeadlessHost Host;
    Host.Wait = Wait;
    Host.DrawView = [&](fw::TFrame& Frame, const std::filesystem::path& File) {
        return DrawFramePng(Frame, Context, SizeOf(*View), File);
    };
    const auto Job = Line.Mode == ERunMode::Picture ? RunViewPicture : RunHeadlessJob;
    return Job(Workstation, *View, Line, Host, std::cout, std::cerr);
}

int Run(const TCommandLine& Line) {
    if (IsOfPictures(Line.Mode)) FixPictureClock();
    if (Line.Mode == ERunMode::Window) return RunWindow(Line);
    TWorkstation Workstation(OptionsOf(Line));
    ApplyChoices(Workstation, Line);
    if (Line.Mode == ERunMode::Import) return RunImport(Workstation, Line, std::cout, std::cerr);
    TRenderContext Context;
    ShowLook(Workstation, Context);
    if (Line.Mode == ERunMode::Pictures) return RunPictures(Workstation, Context, Line);
    if (Line.Mode == ERunMode::Picture && Line.View.empty()) return RunPicture(Workstation, Context, Line);
    return RunOnViews(Workstation, Context, Line);
}

int RunOrTell(const TCommandLine& Line) {
    try {
        return Run(Line);
    } catch (const EStoreError& Error) {
        TellStartFailure(Error.Key(), Error.Args(), Line);
    } catch (const EMarketRefusal& Refusal) {
        TellStartFailure(Refusal.Reason().Key, Refusal.Reason().Args, Line);
    } catch (const std::exception& Error) {
        TellStartFailure("Res_StartFailed", {Error.what()}, Line);
    }
    return kExitFailed;
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
    const std::string Program = ArgumentCount > 0 ? Arguments[0] : "";
    TCommandLine Line;
    try {
        Line = ParseCommandLine(std::vector<std::string>(Arguments + 1, Arguments + ArgumentCount));
    } catch (const TUsageError& Error) {
        auto Args = Error.Args;
        Args.push_back(Program);
        std::cerr << StartUpText(Error.Key, Args) << '\n';
        return kExitUsage;
    }
    if (Line.Mode == ERunMode::Help) return std::cout << StartUpText("Res_UsageHelp", {Program}) << '\n', kExitDone;
    if (Line.Mode == ERunMode::Version) return std::cout << VENTIQ_VERSION << '\n', kExitDone;
    if (Line.Mode != ERunMode::Window) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (Line.Mode == ERunMode::Import) return RunOrTell(Line);
    TApplication Application(ArgumentCount, Arguments);  // outlives the box that tells why nothing starts
    return RunOrTell(Line);
}
