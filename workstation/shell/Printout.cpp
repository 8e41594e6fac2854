// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/Printout.h"

#include <QBuffer>
#include <QDateTime>
#include <QImage>
#include <QPrinter>
#include <QTextDocument>
#include <QUrl>

#include "framework/controls/Chart.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/GridText.h"
#include "framework/controls/LayoutControl.h"
#include "framework/controls/PopupEdit.h"
#include "framework/controls/SpinEdit.h"
#include "workstation/renderers/ChartRenderer.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr char kChartImage[] = "chart.png";
constexpr QSize kChartSize(900, 460);  // pixels; on paper as wide as the page
constexpr char kStyle[] =
    "body { font-size: 9pt } h1 { font-size: 13pt } th { text-align: left; background-color: #eeeeee }"
    "td, th { padding: 1px 8px 1px 2px }";

// The layout tree from top to bottom, as the parts of a page.
class TPage {
public:
    TPage(QTextDocument& Document, TRenderContext& Paper, bool WithRows)
        : FDocument(Document), FPaper(Paper), FWithRows(WithRows) {}

    void Take(fw::TLayoutNode& Node) {
        if (auto* Group = dynamic_cast<fw::TLayoutGroup*>(&Node)) {
            for (fw::TLayoutNode* Each : Group->Nodes()) Take(*Each);
        } else if (auto* Item = dynamic_cast<fw::TLayoutItem*>(&Node)) {
            TakeControl(Item->GetControl(), ToQt(Item->GetCaption()));
        }
    }
    QString Html(const QString& Caption) const {
        return QStringLiteral("<h1>%1</h1><p>%2</p><p>%3</p>%4")
            .arg(Caption.toHtmlEscaped(), FFields.join(QStringLiteral(" &nbsp; ")),
                 FPaper
                     .Translate("Res_PrintMade",
                                {FromQt(QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")))})
                     .toHtmlEscaped(),
                 FParts);
    }

private:
    void TakeControl(fw::TControl* Control, const QString& Caption) {
        if (auto* Combo = dynamic_cast<fw::TComboBox*>(Control)) return Field(Caption, ToQt(Combo->GetText()));
        if (auto* Spin = dynamic_cast<fw::TSpinEdit*>(Control)) return Field(Caption, ToQt(Spin->GetText()));
        if (auto* Popup = dynamic_cast<fw::TPopupEdit*>(Control)) return Field(Caption, ToQt(Popup->GetText()));
        if (auto* Grid = dynamic_cast<fw::TGrid*>(Control)) return TakeTable(Grid->GetLevel().GetGridView());
        if (auto* Chart = dynamic_cast<fw::TChart*>(Control)) return TakeChart(*Chart);
    }
    void Field(const QString& Caption, const QString& Shown) {
        if (!Shown.isEmpty())
            FFields << QStringLiteral("%1: <b>%2</b>").arg(Caption.toHtmlEscaped(), Shown.toHtmlEscaped());
    }
    void TakeTable(fw::TGridTableView& View) {
        const bool Results = View.GetDataControl() != nullptr;
        const int Count = Results ? View.GetDataControl()->GetCount() : View.GetDataController().GetRecordCount();
        if (Count == 0 || (Results && !FWithRows)) return;
        const fw::TGridText Html(View, fw::ETextForm::Html);
        fw::Text Text = Html.Head();
        for (int Row = 0; Row < Count; ++Row)
            if (Results || fw::HasContent(View, Row)) Text += Html.Record(Row);
        // The captions stand on every page that the table reaches.
        FParts +=
            QStringLiteral("<p></p>") + ToQt(Text + Html.Tail())
                                            .replace(QLatin1String("<tr><th>"), QLatin1String("<thead><tr><th>"))
                                            .replace(QLatin1String("</th></tr>"), QLatin1String("</th></tr></thead>"));
    }
    void TakeChart(fw::TChart& Chart) {
        QBuffer Png;
        Png.open(QIODevice::WriteOnly);
        if (!TChartRenderer::Export(Chart, FPaper, EPictureForm::Png, kChartSize, Png)) return;
        FDocument.addResource(QTextDocument::ImageResource, QUrl(QLatin1String(kChartImage)),
                              QImage::fromData(Png.data()));
        FParts += QStringLiteral("<p><img src=\"%1\" width=\"%2\"></p>")
                      .arg(QLatin1String(kChartImage))
                      .arg(static_cast<int>(FDocument.pageSize().width()));
    }

    QTextDocument& FDocument;
    TRenderContext& FPaper;
    bool FWithRows;
    QStringList FFields;
    QString FParts;
};

}  // namespace

// The size of a page is that of the text's own measure, 96 dots an inch; the printer scales it to its dots.
void PrintView(fw::TFrame& Frame, const QString& Caption, TRenderContext& Paper, bool WithRows, QPrinter& Printer) {
    QTextDocument Document;
    Document.setDefaultStyleSheet(QLatin1String(kStyle));
    const QSizeF Inches = Printer.pageRect(QPrinter::Inch).size();
    Document.setPageSize(Inches * 96.0);
    TPage Page(Document, Paper, WithRows);
    if (fw::TLayoutGroup* Root = Frame.GetLayout()) Page.Take(*Root);
    Document.setHtml(Page.Html(Caption));
    Document.print(&Printer);
}

}  // namespace ws
