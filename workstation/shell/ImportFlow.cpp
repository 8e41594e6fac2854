// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ImportFlow.h"

#include <QProgressDialog>

#include "framework/base/Log.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {
constexpr int kProgressSteps = 1000;  // reading is the first half, writing the second
constexpr int kProgressDelay = 300;   // milliseconds before the bar appears
constexpr size_t kBadLinesShown = 10;

template <class TCount>
int Part(TCount Done, TCount Total) {
    return Total == 0 ? 0
                      : static_cast<int>(kProgressSteps / 2 * static_cast<double>(Done) / static_cast<double>(Total));
}
}  // namespace

TImportFlow::TImportFlow(TWorkstation& Workstation, TRenderContext& Context, TDialogs& Dialogs, QWidget* Parent)
    : FWorkstation(Workstation), FContext(Context), FDialogs(Dialogs), FParent(Parent) {}

QString TImportFlow::Sentence(const std::string& Key, const std::vector<std::string>& Args) const {
    return ToQt(FWorkstation.Language().Resource(Key, Args));
}

TImportReport TImportFlow::Read(const QString& File, bool SkipBadLines) {
    QProgressDialog Bar(FContext.Translate("Res_ImportReading", {FromQt(File)}), FContext.Translate("Res_ButtonCancel"),
                        0, kProgressSteps, FParent);
    Bar.setWindowModality(Qt::ApplicationModal);
    Bar.setMinimumDuration(kProgressDelay);
    const auto Show = [&Bar](int Step) {
        Bar.setValue(Step);
        return !Bar.wasCanceled();
    };
    return FWorkstation.ImportChain(
        std::filesystem::path(FromQt(File)), TChainOptions{FOrder}, SkipBadLines,
        [&](std::uint64_t Done, std::uint64_t Total) { return Show(Part(Done, Total)); },
        [&](std::size_t Done, std::size_t Total) { return Show(kProgressSteps / 2 + Part(Done, Total)); });
}

bool TImportFlow::AskOrder(const TMarketMessage& Reason) {
    const QString Question = FContext.Translate("Res_ImportAskOrder", {FromQt(Sentence(Reason.Key, Reason.Args))});
    const int Answer = FDialogs.Choose(
        FParent, Question, {FContext.Translate("Res_ImportDayFirst"), FContext.Translate("Res_ImportMonthFirst")});
    if (Answer < 0) return false;
    FOrder = Answer == 0 ? EDateOrder::DayFirst : EDateOrder::MonthFirst;
    return true;
}

bool TImportFlow::AskSkip(const QString& File, const TImportReport& Report) {
    std::string Lines;
    for (size_t i = 0; i < Report.BadLines.size() && i < kBadLinesShown; ++i) {
        const TBadLine& Bad = Report.BadLines[i];
        Lines += FromQt(Sentence("Res_ImportBadLine",
                                 {std::to_string(Bad.Line), FromQt(Sentence(Bad.Reason.Key, Bad.Reason.Args))})) +
                 "\n";
    }
    if (Report.BadLines.size() > kBadLinesShown) Lines += "\u2026\n";
    return FDialogs.Ask(FParent, FContext.Translate("Res_ImportAskSkip",
                                                    {std::to_string(Report.BadLines.size()), FromQt(File), Lines}));
}

bool TImportFlow::Run(const QString& File) {
    bool SkipBadLines = false;
    for (;;) {
        try {
            const TImportReport Report = Read(File, SkipBadLines);
            if (!Report.Applied) {
                if (!AskSkip(File, Report)) return false;
                SkipBadLines = true;
                continue;
            }
            std::string Series;
            for (const auto& Code : Report.Changes.NewSeries) Series += (Series.empty() ? "" : ", ") + Code;
            const std::vector<fw::Text> Args{std::to_string(Report.Changes.Products.size()),
                                             std::to_string(Report.Changes.AddedProducts),
                                             Series.empty() ? "-" : Series};
            fw::TLog::Info("Res_ImportDone", Args);
            FDialogs.Tell(FParent, FContext.Translate("Res_ImportDone", Args));
            return true;
        } catch (const EMarketRefusal& Refusal) {
            if (Refusal.Reason().Key == kImportAmbiguousDate && FOrder == EDateOrder::Unstated &&
                AskOrder(Refusal.Reason()))
                continue;
            fw::TLog::Warning(Refusal.Reason().Key, Refusal.Reason().Args);
            if (Refusal.Reason().Key != kImportAmbiguousDate && Refusal.Reason().Key != kImportCancelled)
                FDialogs.Tell(FParent, Sentence(Refusal.Reason().Key, Refusal.Reason().Args));
            return false;
        } catch (const EStoreError& Error) {
            fw::TLog::Error(Error.Key(), Error.Args());
            FDialogs.Tell(FParent, Sentence(Error.Key(), Error.Args()));
            return false;
        }
    }
}

}  // namespace ws
