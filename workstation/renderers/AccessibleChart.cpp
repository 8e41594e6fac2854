// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/AccessibleChart.h"

#include <QStringList>
#include <QWidget>

#include "framework/services/Formatter.h"
#include "workstation/renderers/ChartSummary.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr size_t kNamedZeros = 8;

fw::Text Price(double Value) { return fw::TCustomFormatter::GetInstance().FormatPrice(Value); }
fw::Text Amount(double Value) { return fw::TCustomFormatter::GetInstance().FormatValue(Value, fw::kFormatAmount); }

QString Zeros(const TChartSummary& Shown, const TRenderContext& Context) {
    QStringList Places;
    for (const TZeroPlace& Each : Shown.Zeros) {
        if (Places.size() == kNamedZeros) break;
        Places << (Each.From == Each.To ? ToQt(Price(Each.From))
                                        : Context.Translate("Res_ChartStretch", {Price(Each.From), Price(Each.To)}));
    }
    if (Places.isEmpty()) return Context.Translate("Res_ChartNoBreakEven");
    fw::Text Listed = FromQt(Places.join(QStringLiteral("; ")));
    if (Shown.Zeros.size() > kNamedZeros)
        Listed = FromQt(Context.Translate("Res_ChartMore", {Listed, std::to_string(Shown.Zeros.size() - kNamedZeros)}));
    return Context.Translate("Res_ChartBreakEven", {Listed});
}

}  // namespace

QString NameOfChart(const fw::TChart& Chart, const TRenderContext& Context) {
    return Context.Translate("Res_ChartName", {Chart.GetTitle()});
}

QString DescriptionOfChart(const fw::TChart& Chart, const TRenderContext& Context) {
    const fw::TLineSeries* Line = MainLine(Chart);
    const auto Shown = Line ? SummaryOf(*Line) : std::nullopt;
    if (!Shown) return Context.Translate("Res_ChartEmpty");
    QStringList Sentences{Context.Translate("Res_ChartRange", {Price(Shown->From), Price(Shown->To)})};
    Sentences << (Shown->Highest > 0 ? Context.Translate("Res_ChartProfit", {Amount(Shown->Highest)})
                                     : Context.Translate("Res_ChartNoProfit"));
    Sentences << (Shown->Lowest < 0 ? Context.Translate("Res_ChartLoss", {Amount(-Shown->Lowest)})
                                    : Context.Translate("Res_ChartNoLoss"));
    Sentences << Zeros(*Shown, Context);
    return Sentences.join(QLatin1Char(' '));
}

void DescribeChart(QWidget& Widget, const fw::TChart& Chart, const TRenderContext& Context) {
    Widget.setAccessibleName(NameOfChart(Chart, Context));
    Widget.setAccessibleDescription(DescriptionOfChart(Chart, Context));
}

}  // namespace ws
