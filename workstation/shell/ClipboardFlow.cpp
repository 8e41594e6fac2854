// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ClipboardFlow.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QTimer>

#include "framework/base/FlagGuard.h"
#include "framework/base/Log.h"
#include "framework/base/NumberFormat.h"
#include "framework/controls/GridText.h"
#include "workstation/renderers/GridRenderer.h"
#include "workstation/renderers/QtText.h"
#include "workstation/renderers/WindowedGridRenderer.h"
#include "workstation/script/LegPaste.h"
#include "workstation/shell/MissingHint.h"
#include "workstation/shell/RowStream.h"
#include "workstation/shell/ViewDocks.h"

namespace ws {

namespace {

constexpr int64_t kRowsAtOnce = 50'000;  // fewer are copied in one go
constexpr int64_t kMegabyte = 1'000'000;
constexpr int kSamples = 100;

fw::Text Grouped(int64_t Count) { return fw::FormatNumber(static_cast<double>(Count), 0, true); }
fw::Text Megabytes(int64_t Bytes) { return Grouped((Bytes + kMegabyte - 1) / kMegabyte); }

void Append(QByteArray& To, const fw::Text& Text) { To.append(Text.data(), static_cast<qsizetype>(Text.size())); }

}  // namespace

// Both forms of rows, written one by one.
class TClipboardFlow::TRows {
public:
    explicit TRows(fw::TGridTableView& View)
        : FView(View), FTabs(View, fw::ETextForm::Tabs), FHtml(View, fw::ETextForm::Html) {
        Append(FTabsText, FTabs.Head());
        Append(FHtmlText, FHtml.Head());
    }

    void Add(int Record) {
        if (!FView.GetDataControl() && !fw::HasContent(FView, Record)) return;  // the empty input row
        if (const auto& Selected = FView.GetSelection(); !Selected.IsEmpty() && !Selected.Contains(Record)) return;
        Append(FTabsText, FTabs.Record(Record));
        Append(FHtmlText, FHtml.Record(Record));
        ++FCount;
    }

    int64_t Count() const { return FCount; }
    int64_t Bytes() const { return FTabsText.size() + FHtmlText.size(); }

    std::unique_ptr<QMimeData> Data() {
        Append(FHtmlText, FHtml.Tail());
        auto Result = std::make_unique<QMimeData>();
        Result->setData(QStringLiteral("text/plain"), FTabsText);
        Result->setData(QStringLiteral("text/html"), FHtmlText);
        return Result;
    }

private:
    fw::TGridTableView& FView;
    fw::TGridText FTabs, FHtml;
    QByteArray FTabsText, FHtmlText;
    int64_t FCount = 0;
};

TClipboardFlow::TClipboardFlow(TRenderContext& Context, TDialogs& Dialogs, TViewDocks& Docks, QWidget& Window, TSay Say)
    : FContext(Context), FDialogs(Dialogs), FDocks(Docks), FWindow(Window), FSay(std::move(Say)) {
    Context.OnCopyRows = [this](fw::TGridTableView& View, int First, int Last) { Copy(View, First, Last); };
    Context.OnPasteRows = [this](fw::TGridTableView& View, const fw::Text& Lines) { Paste(View, Lines); };
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* Now) {
        const TViewDock* Dock = FDocks.Current();
        if (Now && Dock && Dock->isAncestorOf(Now)) FLastFocus = Now;
    });
}

TClipboardFlow::~TClipboardFlow() { FContext.OnCopyRows = nullptr, FContext.OnPasteRows = nullptr; }

// --- copying

void TClipboardFlow::Copy(fw::TGridTableView& View, int First, int Last) {
    if (FCopying) return;
    if (static_cast<int64_t>(Last) - First >= kRowsAtOnce || static_cast<int64_t>(Last) - First >= FLimits.AskRows) {
        // Not from inside the key press: the table may be closed while the loop runs.
        QTimer::singleShot(0, this, [this, Ref = TModelRef(View), First, Last] {
            if (Ref) CopyMany(*Ref.Get(), First, Last);
        });
        return;
    }
    TRows Rows(View);
    for (int Row = First; Row <= Last; ++Row) Rows.Add(Row);
    Put(Rows);
}

void TClipboardFlow::Put(TRows& Rows) {
    if (Rows.Count() == 0) return FSay("Res_CopyNothing", {});
    QGuiApplication::clipboard()->setMimeData(Rows.Data().release());
    FSay("Res_CopyDone", {Grouped(Rows.Count())});
}

void TClipboardFlow::CopyMany(fw::TGridTableView& View, int First, int Last) {
    const int64_t Count = static_cast<int64_t>(Last) - First + 1;
    const fw::Text CountText = Grouped(Count);
    const auto Estimate = [&] {
        TRows Some(View);
        const int64_t Wanted = std::min<int64_t>(kSamples, Count);
        for (int64_t i = 0; i < Wanted; ++i) Some.Add(static_cast<int>(First + i * (Count - 1) / Wanted));
        return Some.Bytes() * Count / Wanted;
    }();
    const auto TooMuch = [&](int64_t Bytes) {
        const std::vector<fw::Text> Args{CountText, Megabytes(Bytes), Megabytes(FLimits.Bytes)};
        fw::TLog::Warning("Res_CopyTooMuch", Args);
        FDialogs.Tell(&FWindow, FContext.Translate("Res_CopyTooMuch", Args));
    };
    if (Estimate > FLimits.Bytes) return TooMuch(Estimate);
    const fw::TFlagGuard Copying(FCopying, fw::EGuardEnd::Clear);
    const TModelRef Ref(View);  // the question runs the loop
    if (Count > FLimits.AskRows &&
        !FDialogs.Ask(&FWindow, FContext.Translate("Res_CopyAsk", {CountText, Megabytes(Estimate)})))
        return FSay("Res_CopyStopped", {});
    if (!Ref) return FSay("Res_CopyChanged", {});
    TRows Rows(View);
    bool Fits = true;
    int64_t Seen = 0;
    const auto End = StreamRows(View, First, Count, FContext.Translate("Res_CopyRunning", {CountText}),
                                FContext.Translate("Res_ButtonCancel"), FWindow, [&](int Record) {
                                    Rows.Add(Record);
                                    ++Seen;
                                    return Fits = Rows.Bytes() <= FLimits.Bytes;
                                });
    if (!Fits) return TooMuch(Rows.Bytes() * Count / Seen);
    if (End == ERowsEnd::Stopped) return FSay("Res_CopyStopped", {});
    if (End == ERowsEnd::Changed) return FSay("Res_CopyChanged", {});
    Put(Rows);
}

// --- pasting

void TClipboardFlow::Paste(fw::TGridTableView& View, const fw::Text& Lines) {
    fw::TFrame* Frame = nullptr;
    for (TViewDock* Dock : FDocks.Docks())
        if (fw::TFrame* Each = Dock->Frame(); Each && Each->Controls().Find(View.GetName()) == &View) Frame = Each;
    if (!Frame) return;
    TPasteReport Report;
    fw::Dispatch("paste", [&] { Report = PasteLegs(*Frame, View, Lines); });
    for (const TPasteRefusal& Refusal : Report.Refused) fw::TLog::Warning("Res_PasteCellRefused", Refusal.Args());
    if (Report.Locked) return FSay(RefusedHint(*Frame, View), {});
    if (Report.Rows == 0) return FSay("Res_PasteNothing", {});
    std::vector<fw::Text> Args{std::to_string(Report.Taken), std::to_string(Report.Rows)};
    if (Report.Refused.empty()) return FSay("Res_PasteDone", Args);
    Args.insert(Args.end(), {std::to_string(Report.Refused.size()), "Res_PasteCellRefused"});
    const auto First = Report.Refused.front().Args();
    Args.insert(Args.end(), First.begin(), First.end());
    FSay("Res_PasteDoneBut", Args);
}

// --- the menu

TGridClipboard* TClipboardFlow::FocusedRenderer(bool Editable) const {
    const TViewDock* Dock = FDocks.Current();
    if (!Dock) return nullptr;
    const auto AsTable = [Editable](QWidget* Widget) {
        return Editable ? dynamic_cast<TGridRenderer*>(Widget) : dynamic_cast<TGridClipboard*>(Widget);
    };
    for (QWidget* Each = FLastFocus; Each && Each != Dock; Each = Each->parentWidget())
        if (auto* Found = AsTable(Each)) return Found;
    for (QWidget* Each : Dock->findChildren<QWidget*>())
        if (auto* Found = AsTable(Each)) return Found;
    return nullptr;
}

void TClipboardFlow::CopyFocused() {
    if (auto* Line = qobject_cast<QLineEdit*>(FLastFocus.data()); Line && Line->hasSelectedText()) return Line->copy();
    if (TGridClipboard* Table = FocusedRenderer(false)) Table->CopyRows();
}

fw::TGridTableView* TClipboardFlow::FocusedTable() const {
    const TGridClipboard* Table = FocusedRenderer(false);
    return Table ? Table->GetTable() : nullptr;
}

void TClipboardFlow::PasteFocused() {
    if (TGridClipboard* Table = FocusedRenderer(true)) Table->PasteRows();
}

}  // namespace ws
