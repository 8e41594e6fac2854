// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ImportDialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressDialog>

#include "framework/base/Log.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr int kProgressSteps = 1000;
constexpr size_t kShownBadLines = 200;

QString JoinedBadLines(const std::vector<TBadLine>& Lines, const TLanguageService& Language) {
    QString Result;
    for (size_t i = 0; i < Lines.size() && i < kShownBadLines; ++i)
        Result += ToQt(Language.Resource("Res_ImportBadLine",
                                         {std::to_string(Lines[i].Line), Language.Resource(Lines[i].Reason.Key, Lines[i].Reason.Args)})) +
                  '\n';
    return Result;
}

// Reading is the first half of the bar, writing the second.
TImportReport Import(TWorkstation& Workstation, const TRenderContext& Context, const std::filesystem::path& File, bool SkipBadLines, QWidget* Parent) {
    QProgressDialog Progress(Context.Translate("Res_ImportProgress", {File.filename().string()}), Context.Translate("Res_Cancel"), 0, kProgressSteps, Parent);
    Progress.setWindowModality(Qt::WindowModal);
    const auto Show = [&](double Part) {
        Progress.setValue(static_cast<int>(Part * kProgressSteps));
        return !Progress.wasCanceled();
    };
    return Workstation.ImportChain(
        File, {}, SkipBadLines,
        [&](std::uint64_t Done, std::uint64_t Total) { return Show(Total ? 0.5 * static_cast<double>(Done) / static_cast<double>(Total) : 0.0); },
        [&](std::size_t Done, std::size_t Total) { return Show(Total ? 0.5 + 0.5 * static_cast<double>(Done) / static_cast<double>(Total) : 1.0); });
}

bool AskToSkip(const TImportReport& Report, const TLanguageService& Language, const TRenderContext& Context, QWidget* Parent) {
    QMessageBox Box(QMessageBox::Warning, Context.Translate("Res_FileImport").remove('&'),
                    Context.Translate("Res_ImportBadLines", {std::to_string(Report.BadLines.size())}), QMessageBox::NoButton, Parent);
    Box.setDetailedText(JoinedBadLines(Report.BadLines, Language));
    auto* Skip = Box.addButton(Context.Translate("Res_ImportSkip"), QMessageBox::AcceptRole);
    Box.setDefaultButton(Box.addButton(Context.Translate("Res_Cancel"), QMessageBox::RejectRole));
    Box.exec();
    return Box.clickedButton() == Skip;
}

}  // namespace

void ImportWithDialog(TWorkstation& Workstation, const TRenderContext& Context, QWidget* Parent) {
    const auto Chosen = QFileDialog::getOpenFileName(Parent, Context.Translate("Res_FileImport").remove('&'), {}, "CSV (*.csv);;* (*)");
    if (Chosen.isEmpty()) return;
    const std::filesystem::path File = FromQt(Chosen);
    try {
        auto Report = Import(Workstation, Context, File, false, Parent);
        if (!Report.Applied) {
            if (!AskToSkip(Report, Workstation.Language(), Context, Parent)) return;
            Report = Import(Workstation, Context, File, true, Parent);
        }
        std::string Series;
        for (const auto& Code : Report.Changes.NewSeries) Series += (Series.empty() ? "" : ", ") + Code;
        fw::TLog::Info("Res_ImportDone", {std::to_string(Report.Changes.Products.size()), std::to_string(Report.Changes.AddedProducts), Series.empty() ? "-" : Series});
    } catch (const EMarketRefusal& Refusal) {
        fw::TLog::Error(Refusal.Reason().Key, Refusal.Reason().Args);
        fw::TCustomMessageBoxCtrl::GetInstance().ShowMessageText(nullptr, Workstation.Language().Resource(Refusal.Reason().Key, Refusal.Reason().Args));
    } catch (const EStoreError& Error) {
        fw::TLog::Error(Error.Key(), Error.Args());
        fw::TCustomMessageBoxCtrl::GetInstance().ShowMessageText(nullptr, Workstation.Language().Resource(Error.Key(), Error.Args()));
    }
}

}  // namespace ws
