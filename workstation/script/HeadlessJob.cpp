// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/HeadlessJob.h"

#include <chrono>
#include <ostream>

#include "workstation/script/FirstStart.h"
#include "workstation/script/PayoffFiles.h"
#include "workstation/script/StrategyRun.h"

namespace ws {

namespace {

constexpr std::chrono::seconds kPatience{10};
constexpr int kSettlingMs = 2 * kTimerPeriodMs;  // what a view asks for when it opens has come

// Closes the instance whatever happens.
class TOpenView {
public:
    explicit TOpenView(fw::TIBaseView& View) : FView(View), FHandle(View.OpenNewInstance()) {}
    ~TOpenView() { FView.CloseInstance(FHandle); }
    TOpenView(const TOpenView&) = delete;
    TOpenView& operator=(const TOpenView&) = delete;
    bool IsOpen() const { return FView.FindView(FHandle) != nullptr; }
    fw::TFrame& Frame() const { return *FView.FindView(FHandle); }

private:
    fw::TIBaseView& FView;
    int64_t FHandle;
};

bool Calculate(fw::TFrame& Frame, TWorkstation& Workstation, TStrategy Strategy, const THeadlessHost& Host,
               std::ostream& Errors) {
    TStrategyRun Run(Frame, Workstation.Market(), std::move(Strategy), kPatience);
    const auto Begin = std::chrono::steady_clock::now();
    for (;;) {
        const auto Elapsed = std::chrono::duration_cast<TStrategyRun::TWait>(std::chrono::steady_clock::now() - Begin);
        const auto State = Run.Poll(Elapsed);
        if (State == TStrategyRun::EState::Done) return true;
        if (State == TStrategyRun::EState::Failed) break;
        Host.Wait(kTimerPeriodMs / 4);
    }
    for (const auto& Problem : Run.Problems())
        Errors << Workstation.Language().Resource(Problem.Key, Problem.Args) << '\n';
    return false;
}

void PrintBadLines(TWorkstation& Workstation, const std::vector<TBadLine>& Lines, std::ostream& Errors) {
    for (const auto& Line : Lines)
        Errors << Workstation.Language().Resource(
                      "Res_ImportBadLine",
                      {std::to_string(Line.Line), Workstation.Language().Resource(Line.Reason.Key, Line.Reason.Args)})
               << '\n';
}

void PrintImported(TWorkstation& Workstation, const TImportReport& Report, std::ostream& Out) {
    std::string Series;
    for (const auto& Code : Report.Changes.NewSeries) Series += (Series.empty() ? "" : ", ") + Code;
    Out << Workstation.Language().Resource(
               "Res_ImportDone", {std::to_string(Report.Changes.Products.size()),
                                  std::to_string(Report.Changes.AddedProducts), Series.empty() ? "-" : Series})
        << '\n';
}

}  // namespace

int RunImport(TWorkstation& Workstation, const TCommandLine& Line, std::ostream& Out, std::ostream& Errors) {
    try {
        const auto Report = Workstation.ImportChain(Line.ImportFile, {Line.DateOrder}, Line.SkipBadLines);
        PrintBadLines(Workstation, Report.BadLines, Errors);
        if (Report.Applied) {
            PrintImported(Workstation, Report, Out);
            return kExitDone;
        }
        Errors << Workstation.Language().Resource("Res_ImportRefused",
                                                  {Line.ImportFile.string(), std::to_string(Report.BadLines.size())})
               << '\n';
    } catch (const EMarketRefusal& Refusal) {
        Errors << Workstation.Language().Resource(Refusal.Reason().Key, Refusal.Reason().Args) << '\n';
    } catch (const EStoreError& Error) {
        Errors << Workstation.Language().Resource(Error.Key(), Error.Args()) << '\n';
    }
    return kExitFailed;
}

int RunHeadlessJob(TWorkstation& Workstation, fw::TIBaseView& View, const TCommandLine& Line, const THeadlessHost& Host,
                   std::ostream& Out, std::ostream& Errors) {
    if (!Line.ImportFile.empty())
        if (const int Status = RunImport(Workstation, Line, Out, Errors); Status != kExitDone) return Status;

    TStrategy Strategy = Line.Strategy;
    if (Strategy.Legs.empty()) {
        TStrategy First = FirstStartStrategy(Workstation.Store());
        Strategy.Legs = First.Legs;
        if (!Strategy.Down) Strategy.Down = First.Down;
        if (!Strategy.Up) Strategy.Up = First.Up;
        if (!Strategy.Interval) Strategy.Interval = First.Interval;
    }
    if (Strategy.Legs.empty()) {
        Errors << Workstation.Language().Resource("Res_ScriptNoSample") << '\n';
        return kExitFailed;
    }

    TOpenView Open(View);
    if (!Calculate(Open.Frame(), Workstation, std::move(Strategy), Host, Errors)) return kExitFailed;
    try {
        WritePayoffFiles(Open.Frame(), Line.Out);
    } catch (const std::filesystem::filesystem_error& Error) {
        Errors << Workstation.Language().Resource("Res_FileNotWritten",
                                                  {Error.path1().string(), Error.code().message()})
               << '\n';
        return kExitFailed;
    }
    const auto Picture = Line.Out / "payoff.png";
    if (!Host.DrawView(Open.Frame(), Picture)) {
        Errors << Workstation.Language().Resource("Res_FileNotWritten", {Picture.string(), ""}) << '\n';
        return kExitFailed;
    }
    for (const char* File : {"payoff.csv", "keyprices.csv", "payoff.png"}) Out << (Line.Out / File).string() << '\n';
    return kExitDone;
}

int RunViewPicture(TWorkstation& Workstation, fw::TIBaseView& View, const TCommandLine& Line, const THeadlessHost& Host,
                   std::ostream& Out, std::ostream& Errors) {
    std::string Reason;
    try {
        if (TOpenView Open(View); Open.IsOpen()) {
            Host.Wait(kSettlingMs);
            if (!Host.DrawView(Open.Frame(), Line.Out)) {
                Errors << Workstation.Language().Resource("Res_FileNotWritten", {Line.Out.string(), ""}) << '\n';
                return kExitFailed;
            }
            Out << Line.Out.string() << '\n';
            return kExitDone;
        }
    } catch (const std::exception& Error) {
        Reason = Error.what();
    }
    Errors << Workstation.Language().Resource("Res_ViewOpenFailed", {Line.View, Reason}) << '\n';
    return kExitFailed;
}

}  // namespace ws
