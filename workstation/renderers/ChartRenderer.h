// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include <QWidget>

#include "framework/controls/Chart.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

class QIODevice;

namespace ws {

enum class EPictureForm { Png, Svg, Pdf };

// Draws the chart and tells the model where the axes lie and where the mouse is.
class TChartRenderer : public QWidget {
public:
    TChartRenderer(fw::TChart& Model, TRenderContext& Context, QWidget* Parent);
    ~TChartRenderer() override;

    void Redraw();  // at once; otherwise changes are gathered until control is back in the loop
    QRect GetPlotArea() const;
    // What stands on the screen, for tests: number of lines drawn, and the marks of the value axis.
    int GetLineCount() const;
    double GetTickStep() const;

    // The chart in the colours of the context, Size pixels (PDF and SVG: points of 1/72 inch) large; vectors where the
    // form has them. Needs no chart on the screen. False: Out took less than all of it.
    static bool Export(fw::TChart& Model, TRenderContext& Context, EPictureForm Form, QSize Size, QIODevice& Out);

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    class TPlot;
    void DrawLater();
    void Describe();  // for screen readers

    TModelRef<fw::TChart> FModel;
    TRenderContext& FContext;
    fw::TConnections FLinks;
    std::unique_ptr<TPlot> FPlot;
    bool FWaiting = false;
};

// For the list of what the program is made with.
const char* ChartLibraryVersion();

}  // namespace ws
