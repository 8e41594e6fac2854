// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ExportFlow.h"

#include <QFileInfo>
#include <QPrinter>
#include <QSaveFile>

#include "framework/base/Log.h"
#include "framework/base/NumberFormat.h"
#include "framework/controls/Chart.h"
#include "framework/controls/GridText.h"
#include "workstation/renderers/ChartRenderer.h"
#include "workstation/renderers/GridClipboard.h"
#include "workstation/renderers/QtText.h"
#include "workstation/resources/Skins.h"
#include "workstation/shell/Printout.h"
#include "workstation/shell/RowStream.h"

namespace ws {

namespace {

constexpr char kChart[] = "DataChart";  // form name
constexpr QSize kChartSize(960, 540);
constexpr int64_t kPrintedRows = 500;     // a longer table is asked about before it is printed
constexpr int64_t kMostPrinted = 20'000;  // a longer one is for a file

struct TPictureEnding {
    const char* Ending;
    EPictureForm Form;
};
constexpr TPictureEnding kPictureEndings[] = {
    {"png", EPictureForm::Png}, {"svg", EPictureForm::Svg}, {"pdf", EPictureForm::Pdf}};

fw::TChart* ChartOf(const TViewDock& Dock) {
    const fw::TFrame* Frame = Dock.Frame();
    return Frame ? Frame->FindControl<fw::TChart>(kChart) : nullptr;
}

// The first skin's paper is white; profit and loss, and the size, are as on the screen.
// Of the longest table of results.
int64_t ResultRows(const TViewDock& Dock) {
    int64_t Rows = 0;
    for (QWidget* Each : Dock.findChildren<QWidget*>()) {
        const auto* Renderer = dynamic_cast<TGridClipboard*>(Each);
        fw::TGridTableView* View = Renderer ? Renderer->GetTable() : nullptr;
        if (View && View->GetDataControl()) Rows = std::max<int64_t>(Rows, View->GetDataControl()->GetCount());
    }
    return Rows;
}

TRenderContext PaperContext(const TRenderContext& Screen) {
    TRenderContext Paper;
    Paper.SetSkin(TSkinTable::Embedded().Skins().front(), Screen.GetProfitPalette());
    Paper.SetScale(Screen.GetScale());
    return Paper;
}

fw::Text Grouped(int64_t Count) { return fw::FormatNumber(static_cast<double>(Count), 0, true); }

}  // namespace

TExportFlow::TExportFlow(TPlaces Places, TCommands& Commands, TClipboardFlow::TSay Say)
    : FPlaces(Places), FSay(std::move(Say)) {
    Commands.Bind(
        "file.export-chart", [this] { ExportChart(); }, [this] { return DockWithChart() != nullptr; });
    Commands.Bind(
        "file.export-table", [this] { ExportTable(); }, [this] { return FPlaces.Clipboard.FocusedTable() != nullptr; });
    Commands.Bind(
        "file.print", [this] { Print(); }, [this] { return FPlaces.Docks.Current() != nullptr; });
}

TViewDock* TExportFlow::DockWithChart() const {
    return FPlaces.Docks.LastUsed([](TViewDock& Dock) { return ChartOf(Dock) != nullptr; });
}

QString TExportFlow::AskFile(const char* TitleKey, const char* NameKey, const char* FilterKey) {
    const TRenderContext& Context = FPlaces.Context;
    return FPlaces.Dialogs.AskSaveFile(&FPlaces.Window, Context.Translate(TitleKey), Context.Translate(NameKey),
                                       Context.Translate(FilterKey));
}

void TExportFlow::Failed(const QString& File, const QString& Reason) {
    const std::vector<fw::Text> Args{FromQt(File), FromQt(Reason)};
    fw::TLog::Error("Res_FileNotWritten", Args);
    FPlaces.Dialogs.Tell(&FPlaces.Window, FPlaces.Context.Translate("Res_FileNotWritten", Args));
}

void TExportFlow::ExportChart() {
    const QString File = AskFile("Res_ExportChartTitle", "Res_ExportChartName", "Res_ExportChartFilter");
    TViewDock* Dock = DockWithChart();  // the dialog runs the loop: asked now
    if (File.isEmpty() || !Dock) return;
    const QString Ending = QFileInfo(File).suffix().toLower();
    const auto Form = std::find_if(std::begin(kPictureEndings), std::end(kPictureEndings),
                                   [&](const auto& Each) { return Ending == QLatin1String(Each.Ending); });
    if (Form == std::end(kPictureEndings))
        return FPlaces.Dialogs.Tell(&FPlaces.Window,
                                    FPlaces.Context.Translate("Res_ExportChartEnding", {FromQt(File)}));
    TRenderContext Paper = PaperContext(FPlaces.Context);
    QSaveFile Out(File);
    if (!Out.open(QIODevice::WriteOnly)) return Failed(File, Out.errorString());
    if (!TChartRenderer::Export(*ChartOf(*Dock), Paper, Form->Form, kChartSize, Out) || !Out.commit())
        return Failed(File, Out.errorString());
    FSay("Res_ExportDone", {FromQt(File)});
}

void TExportFlow::ExportTable() {
    const QString File = AskFile("Res_ExportTableTitle", "Res_ExportTableName", "Res_ExportTableFilter");
    fw::TGridTableView* View = FPlaces.Clipboard.FocusedTable();
    if (File.isEmpty() || !View) return;
    if (WriteTable(*View, File)) FSay("Res_ExportDone", {FromQt(File)});
}

// All rows, selected or not, in the order that is seen; numbers as programs read them.
bool TExportFlow::WriteTable(fw::TGridTableView& View, const QString& File) {
    QSaveFile Out(File);
    if (!Out.open(QIODevice::WriteOnly)) return Failed(File, Out.errorString()), false;
    const fw::TGridText Csv(View, fw::ETextForm::Csv);
    const auto Write = [&Out](const fw::Text& Line) {
        return Out.write(Line.data(), static_cast<qint64>(Line.size())) == static_cast<qint64>(Line.size());
    };
    const int64_t Count =
        View.GetDataControl() ? View.GetDataControl()->GetCount() : View.GetDataController().GetRecordCount();
    bool Written = Write(Csv.Head());
    const TRenderContext& Context = FPlaces.Context;
    const auto End = StreamRows(View, 0, Count, Context.Translate("Res_ExportRunning", {Grouped(Count)}),
                                Context.Translate("Res_ButtonCancel"), FPlaces.Window, [&](int Record) {
                                    if (!View.GetDataControl() && !fw::HasContent(View, Record)) return Written;
                                    return Written = Written && Write(Csv.Record(Record));
                                });
    if (!Written) return Failed(File, Out.errorString()), false;
    if (End != ERowsEnd::Done) {
        FSay(End == ERowsEnd::Changed ? "Res_ExportChanged" : "Res_ExportStopped", {});
        return false;
    }
    if (!Out.commit()) return Failed(File, Out.errorString()), false;
    return true;
}

void TExportFlow::Print() {
    TViewDock* Dock = FPlaces.Docks.Current();
    const fw::TFrame* Frame = Dock->Frame();
    if (!Frame) return;
    const int64_t Rows = ResultRows(*Dock);
    bool WithRows = true;
    if (Rows > kPrintedRows) {
        const bool TooMany = Rows > kMostPrinted;
        const std::vector<fw::Text> Args{Grouped(Rows), Grouped(kMostPrinted)};
        QStringList Answers{FPlaces.Context.Translate("Res_PrintWithoutRows")};
        if (!TooMany) Answers << FPlaces.Context.Translate("Res_PrintWithRows");
        const QString Question = FPlaces.Context.Translate(TooMany ? "Res_PrintTooMany" : "Res_PrintAskRows", Args);
        const int Answer = FPlaces.Dialogs.Choose(&FPlaces.Window, Question, Answers);
        if (Answer < 0) return;
        WithRows = Answer == 1;
    }
    QPrinter Printer(QPrinter::HighResolution);
    Printer.setDocName(Dock->windowTitle());
    if (!FPlaces.Dialogs.AskPrinter(&FPlaces.Window, Printer)) return;
    if (Dock != FPlaces.Docks.Current()) return;  // closed while the dialogs ran
    TRenderContext Paper = PaperContext(FPlaces.Context);
    PrintView(*Dock->Frame(), Dock->windowTitle(), Paper, WithRows, Printer);
    FSay("Res_PrintDone", {FromQt(Dock->windowTitle())});
}

}  // namespace ws
