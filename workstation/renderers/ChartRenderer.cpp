// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/ChartRenderer.h"

#include <cmath>

#include <qcustomplot.h>
#include <QAccessibleWidget>
#include <QApplication>
#include <QMouseEvent>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <QVBoxLayout>

#include "framework/base/Dispatch.h"
#include "framework/base/NumberFormat.h"
#include "workstation/renderers/AccessibleChart.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr int kShadeAlpha = 38;  // of 255
constexpr double kLineWidth = 2.0;
constexpr double kPictureScale = 2.0;  // pixels of an exported picture for one of the screen

using TPoints = QVector<QPointF>;

TPoints FinitePoints(const fw::TLineSeries& Series) {
    TPoints Result;
    for (int i = 0; i < Series.GetCount(); ++i)
        if (std::isfinite(Series.GetX(i)) && std::isfinite(Series.GetY(i)))
            Result << QPointF(Series.GetX(i), Series.GetY(i));
    return Result;
}

// The part of a broken line on one side of zero (Sign 1 or -1), the other side laid flat on zero.
TPoints OneSide(const TPoints& Line, double Sign) {
    TPoints Result;
    for (qsizetype i = 0; i < Line.size(); ++i) {
        if (i > 0 && Line[i - 1].y() * Line[i].y() < 0) {
            const double Part = Line[i - 1].y() / (Line[i - 1].y() - Line[i].y());
            Result << QPointF(Line[i - 1].x() + Part * (Line[i].x() - Line[i - 1].x()), 0.0);
        }
        Result << QPointF(Line[i].x(), Line[i].y() * Sign > 0 ? Line[i].y() : 0.0);
    }
    return Result;
}

// Markers that stand on the edge of the axes are drawn whole.
class TMarkedCurve : public QCPCurve {
public:
    TMarkedCurve(QCPAxis* X, QCPAxis* Y, int Overhang) : QCPCurve(X, Y), FOverhang(Overhang) {}

protected:
    QRect clipRect() const override {
        return QCPCurve::clipRect().adjusted(-FOverhang, -FOverhang, FOverhang, FOverhang);
    }

private:
    int FOverhang;  // pixels
};

constexpr double kStepFactors[] = {1, 2, 4, 5, 10, 20};

// Marks with grouped numbers; the spacing is the model's, or a multiple of it that leaves room for the numbers. Where
// neither does, it is the plot's own.
class TNumberTicker : public QCPAxisTicker {
public:
    double Step = 0.0;
    double MaxTicks = 10;
    double LastStep = 0.0;

protected:
    double getTickStep(const QCPRange& Range) override {
        for (const double Factor : kStepFactors) {
            LastStep = Step * Factor;
            if (LastStep > 0 && Range.size() / LastStep <= MaxTicks) return LastStep;
        }
        setTickCount(std::clamp(static_cast<int>(MaxTicks / 2), 2, 6));
        LastStep = QCPAxisTicker::getTickStep(Range);
        return LastStep;
    }
    QString getTickLabel(double Tick, const QLocale&, QChar, int) override {
        const int Decimals =
            LastStep > 0 ? std::clamp(static_cast<int>(1 - std::floor(std::log10(LastStep))), 0, 8) : 2;
        return ToQt(fw::FormatNumber(Tick, Decimals, true));
    }
};

QAccessibleInterface* MakeAccessibleChart(const QString&, QObject* Object) {
    auto* Chart = dynamic_cast<TChartRenderer*>(Object);
    return Chart ? new QAccessibleWidget(Chart, QAccessible::Chart) : nullptr;
}

}  // namespace

const char* ChartLibraryVersion() { return QCUSTOMPLOT_VERSION_STR; }

class TChartRenderer::TPlot {
public:
    TPlot(fw::TChart& Model, TRenderContext& Context, QWidget& Parent);
    void Fill(fw::TChart& Model);
    QRect Area() const { return FPlot->axisRect()->rect(); }
    double TickStep() const { return FLeftTicker->LastStep; }

    QCustomPlot* FPlot;
    int FLines = 0;

private:
    void Style(fw::TChart& Model);
    void StyleAxis(QCPAxis& Axis, bool PenVisible);
    void AddLine(const fw::TLineSeries& Series);
    void AddShade(const TPoints& Points, double Sign, const char* ColorKey);
    void SetRanges(fw::TChart& Model);
    void SetTickRoom();

    TRenderContext& FContext;
    QCPTextElement* FTitle;
    QSharedPointer<TNumberTicker> FLeftTicker{new TNumberTicker};
    QSharedPointer<TNumberTicker> FBottomTicker{new TNumberTicker};
};

TChartRenderer::TPlot::TPlot(fw::TChart& Model, TRenderContext& Context, QWidget& Parent)
    : FPlot(new QCustomPlot(&Parent)), FContext(Context) {
    FPlot->setNoAntialiasingOnDrag(false);
    FPlot->setMouseTracking(true);
    FPlot->setFocusPolicy(Qt::NoFocus);
    FPlot->plotLayout()->insertRow(0);
    FTitle = new QCPTextElement(FPlot, QString());
    FPlot->plotLayout()->addElement(0, 0, FTitle);
    FPlot->xAxis->setTicker(FBottomTicker);
    FPlot->yAxis->setTicker(FLeftTicker);
    Fill(Model);
}

void TChartRenderer::TPlot::StyleAxis(QCPAxis& Axis, bool PenVisible) {
    const QPen Line(FContext.Color("coChartAxis"));
    Axis.setBasePen(PenVisible ? Line : QPen(Qt::NoPen));
    Axis.setTickPen(Line);
    Axis.setSubTickPen(QPen(Qt::NoPen));
    Axis.setTickLabelColor(FContext.Color("coChartText"));
    Axis.setTickLabelFont(QApplication::font());
    Axis.grid()->setPen(QPen(FContext.Color("coChartGrid")));
    Axis.grid()->setZeroLinePen(QPen(FContext.Color("coChartAxis")));
}

void TChartRenderer::TPlot::Style(fw::TChart& Model) {
    QFont Bold = QApplication::font();
    Bold.setBold(true);
    FTitle->setFont(Bold);
    FTitle->setTextColor(FContext.Color("coChartText"));
    FTitle->setText(ToQt(Model.GetTitle()));
    FPlot->axisRect()->setMinimumMargins(QMargins(0, 0, FContext.Scaled(32), 0));  // half of the last number
    FPlot->setBackground(FContext.Color("coChartBackground"));
    StyleAxis(*FPlot->xAxis, Model.BottomAxis().PenVisible);
    StyleAxis(*FPlot->yAxis, Model.LeftAxis().PenVisible);
}

void TChartRenderer::TPlot::AddShade(const TPoints& Points, double Sign, const char* ColorKey) {
    auto* Shade = new QCPGraph(FPlot->xAxis, FPlot->yAxis);
    for (const QPointF& P : OneSide(Points, Sign)) Shade->addData(P.x(), P.y());
    QColor Color = FContext.Color(ColorKey);
    Color.setAlpha(kShadeAlpha);
    Shade->setPen(QPen(Qt::NoPen));
    Shade->setBrush(Color);
}

// A line with point markers is the result itself: solid, shaded towards zero. One without is a help line: dashed.
void TChartRenderer::TPlot::AddLine(const fw::TLineSeries& Series) {
    const TPoints Points = FinitePoints(Series);
    if (!Series.IsActive() || Points.isEmpty()) return;
    if (Series.PointerVisible) {
        AddShade(Points, 1.0, "coProfit");
        AddShade(Points, -1.0, "coLoss");
    }
    auto* Line = new TMarkedCurve(FPlot->xAxis, FPlot->yAxis,
                                  Series.PointerVisible ? FContext.Scaled(Series.PointerSize) + 1 : 0);
    for (const QPointF& P : Points) Line->addData(P.x(), P.y());
    const QColor Color = Series.GetColor() ? ToQColor(*Series.GetColor()) : FContext.Color("coChartLine");
    Line->setPen(
        QPen(Color, kLineWidth * FContext.GetScale() / 100, Series.PointerVisible ? Qt::SolidLine : Qt::DashLine));
    if (Series.PointerVisible) {
        const auto Shape =
            Series.PointerStyle == fw::EPointerStyle::Rectangle ? QCPScatterStyle::ssSquare : QCPScatterStyle::ssCircle;
        Line->setScatterStyle(
            QCPScatterStyle(Shape, QPen(Color), QBrush(Color), 2.0 * FContext.Scaled(Series.PointerSize)));
    }
    ++FLines;
}

void TChartRenderer::TPlot::SetRanges(fw::TChart& Model) {
    double Low = 0.0, High = 1.0;
    Model.BottomRange(Low, High);
    FPlot->xAxis->setRange(Low, High);
    FBottomTicker->Step = Model.BottomAxis().GetIncrement();
    double Bottom = Model.LeftAxis().GetMinimum(), Top = Model.LeftAxis().GetMaximum();
    if (Model.LeftAxis().AutomaticMinimum || Model.LeftAxis().AutomaticMaximum) {
        bool Any = false;
        double Least = 0.0, Most = 0.0;
        for (const fw::TLineSeries* Series : Model.Series()) {
            if (!Series->IsActive() || FinitePoints(*Series).isEmpty()) continue;
            Least = Any ? std::min(Least, Series->MinY()) : Series->MinY();
            Most = Any ? std::max(Most, Series->MaxY()) : Series->MaxY();
            Any = true;
        }
        if (Model.LeftAxis().AutomaticMinimum) Bottom = Least;
        if (Model.LeftAxis().AutomaticMaximum) Top = Most;
    }
    if (!(Top > Bottom)) {  // one single value: some room around it
        const double Room = std::max(std::fabs(Bottom) * 0.1, 1.0);
        Bottom -= Room;
        Top += Room;
    }
    FPlot->yAxis->setRange(Bottom, Top);
    FLeftTicker->Step = Model.LeftAxis().GetIncrement();
}

void TChartRenderer::TPlot::SetTickRoom() {
    const QFontMetrics Metrics(QApplication::font());
    const QSize Room = FPlot->size();
    FLeftTicker->MaxTicks = std::max(2.0, (Room.height() - 4.0 * Metrics.height()) / (1.4 * Metrics.height()));
    FBottomTicker->MaxTicks = std::max(2.0, Room.width() / (10.0 * Metrics.averageCharWidth()));
}

void TChartRenderer::TPlot::Fill(fw::TChart& Model) {
    FPlot->clearPlottables();
    FLines = 0;
    SetTickRoom();
    Style(Model);
    SetRanges(Model);
    for (const fw::TLineSeries* Series : Model.Series()) AddLine(*Series);
    FPlot->replot();
}

TChartRenderer::TChartRenderer(fw::TChart& Model, TRenderContext& Context, QWidget* Parent)
    : QWidget(Parent), FModel(Model), FContext(Context), FPlot(std::make_unique<TPlot>(Model, Context, *this)) {
    auto* Box = new QVBoxLayout(this);
    Box->setContentsMargins(0, 0, 0, 0);
    Box->addWidget(FPlot->FPlot);
    const auto Measure = [this] {
        setMinimumSize(FContext.Scaled(200), FContext.Scaled(140));
        DrawLater();
    };
    Measure();
    QAccessible::installFactory(&MakeAccessibleChart);
    FPlot->FPlot->installEventFilter(this);
    connect(FPlot->FPlot, &QCustomPlot::afterLayout, this, [this] {
        if (!FModel) return;
        const QRect Area = GetPlotArea();
        FModel->SetPlotArea(Area.left(), Area.top(), Area.width(), Area.height());
    });
    Model.SetScreenMapper([this](fw::TPoint P) {
        const QPoint Global = mapToGlobal(QPoint(P.X, P.Y));
        return fw::TPoint{Global.x(), Global.y()};
    });
    FLinks += Model.OnDataChanged.Connect([this] { DrawLater(); });
    FLinks += Model.OnModelChanged.Connect([this] {
        setVisible(FModel->IsVisible());
        DrawLater();
    });
    FLinks += Context.OnSkinChanged.Connect([this] { DrawLater(); });
    FLinks += Context.OnMetricsChanged.Connect(Measure);
    FLinks += fw::NumberFormatChanged().Connect([this] { DrawLater(); });
    Describe();
}

TChartRenderer::~TChartRenderer() {
    if (FModel) FModel->SetScreenMapper({});
}

QRect TChartRenderer::GetPlotArea() const { return FPlot->Area().translated(FPlot->FPlot->pos()); }
int TChartRenderer::GetLineCount() const { return FPlot->FLines; }
double TChartRenderer::GetTickStep() const { return FPlot->TickStep(); }

bool TChartRenderer::Export(fw::TChart& Model, TRenderContext& Context, EPictureForm Form, QSize Size, QIODevice& Out) {
    QWidget Paper;
    Paper.resize(Size);
    TPlot Plot(Model, Context, Paper);
    Plot.FPlot->resize(Size);
    Plot.Fill(Model);
    if (Form == EPictureForm::Png)
        return Plot.FPlot->toPixmap(Size.width(), Size.height(), kPictureScale).save(&Out, "PNG");
    QSvgGenerator Svg;
    QPdfWriter Pdf(&Out);
    Svg.setOutputDevice(&Out);
    Svg.setSize(Size);
    Svg.setViewBox(QRect(QPoint(), Size));
    Svg.setTitle(ToQt(Model.GetTitle()));
    Pdf.setTitle(ToQt(Model.GetTitle()));
    Pdf.setPageSize(QPageSize(QSizeF(Size), QPageSize::Point, {}, QPageSize::ExactMatch));
    Pdf.setPageMargins(QMarginsF());
    QCPPainter Painter;
    if (!Painter.begin(Form == EPictureForm::Svg ? static_cast<QPaintDevice*>(&Svg) : &Pdf)) return false;
    Painter.setWindow(QRect(QPoint(), Size));
    Painter.setMode(QCPPainter::pmVectorized);
    Plot.FPlot->toPainter(&Painter, Size.width(), Size.height());
    return Painter.end();
}

void TChartRenderer::DrawLater() {
    if (FWaiting) return;
    FWaiting = true;
    QMetaObject::invokeMethod(
        this, [this] { Redraw(); }, Qt::QueuedConnection);
}

void TChartRenderer::Redraw() {
    FWaiting = false;
    if (!FModel) return;
    FPlot->Fill(*FModel.Get());
    Describe();
}

void TChartRenderer::Describe() {
    fw::Dispatch("DescribeChart", [this] { DescribeChart(*this, *FModel.Get(), FContext); });
}

bool TChartRenderer::eventFilter(QObject* Watched, QEvent* Event) {
    if (Watched != FPlot->FPlot || !FModel) return QWidget::eventFilter(Watched, Event);
    if (Event->type() == QEvent::Resize) {
        DrawLater();
    } else if (Event->type() == QEvent::MouseMove) {
        const QPoint At = static_cast<QMouseEvent*>(Event)->position().toPoint() + FPlot->FPlot->pos();
        fw::Dispatch("MouseMove", [&] { FModel->MouseMove(At.x(), At.y()); });
    } else if (Event->type() == QEvent::Leave) {
        fw::Dispatch("MouseLeave", [this] { FModel->MouseLeave(); });
    }
    return QWidget::eventFilter(Watched, Event);
}

}  // namespace ws
