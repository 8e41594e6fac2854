// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <utility>
#include <vector>

#include <QLabel>
#include <QWidget>

#include "framework/controls/LayoutControl.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

class QBoxLayout;
class QSplitter;

namespace ws {

// One control with its caption above it; the caption is also the control's name for screen readers.
class TLayoutItemRenderer : public QWidget {
public:
    TLayoutItemRenderer(fw::TLayoutItem& Model, TRenderContext& Context, QWidget* Parent);

private:
    void Reload();

    TModelRef<fw::TLayoutItem> FModel;
    TRenderContext& FContext;
    fw::TConnections FLinks;
    QLabel* FCaption = nullptr;
    QWidget* FContent = nullptr;
};

// Nodes one after the other along the group's direction, with movable borders where the model says so.
class TLayoutGroupRenderer : public QWidget {
public:
    TLayoutGroupRenderer(fw::TLayoutGroup& Model, TRenderContext& Context, QWidget* Parent);

protected:
    void resizeEvent(QResizeEvent* Event) override;

private:
    void Measure();
    void MeasureSplitter();
    bool TakeFormerSizes();
    void AddToSplitter(fw::TLayoutNode& Node, QWidget* Widget);
    void ShareRoom();

    TModelRef<fw::TLayoutGroup> FModel;
    TRenderContext& FContext;
    fw::TConnections FLinks;
    std::vector<std::pair<fw::TLayoutNode*, QWidget*>> FParts;  // borrowed of the model; children
    QSplitter* FSplitter = nullptr;
    std::map<int, std::pair<QSize, QList<int>>> FSizesAt;  // by scale: the room and the parts' sizes in it
    int FScale = 100;
    bool FMoved = false;   // by the user
    bool FShared = false;  // the splitter has got its first sizes; later ones are the user's
};

}  // namespace ws
