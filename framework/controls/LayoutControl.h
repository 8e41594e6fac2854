// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "framework/controls/Control.h"

namespace fw {

enum class EDirection { Horizontal, Vertical };

class TLayoutGroup;

// A node of the layout tree: a captioned item around one control, or a group of nodes.
class FRAMEWORK_API TLayoutNode : public TControl {
public:
    ~TLayoutNode() override;
    int Stretch = 0;        // share of spare room along the parent's direction; 0 keeps its own size
    int PreferredSize = 0;  // pixels at scale 100 along the parent's direction; 0: the renderer's own
    virtual const TLayoutGroup* AsGroup() const { return nullptr; }
};

class FRAMEWORK_API TLayoutItem : public TLayoutNode {
public:
    explicit TLayoutItem(TControl* Control = nullptr) : FControl(Control) {}
    ~TLayoutItem() override;
    const Text& GetCaption() const { return FCaption; }
    void SetCaption(Text Value);
    TControl* GetControl() const { return FControl; }  // borrowed; null: an empty spacer

private:
    Text FCaption;
    TControl* FControl;
};

class FRAMEWORK_API TLayoutGroup : public TLayoutNode {
public:
    explicit TLayoutGroup(EDirection Direction) : FDirection(Direction) {}
    ~TLayoutGroup() override;
    EDirection GetDirection() const { return FDirection; }
    bool Splitter = false;  // the user may move the borders between the nodes
    void Add(TLayoutNode& Node) { FNodes.push_back(&Node); }
    const std::vector<TLayoutNode*>& Nodes() const { return FNodes; }  // borrowed, in order
    const TLayoutGroup* AsGroup() const override { return this; }

private:
    EDirection FDirection;
    std::vector<TLayoutNode*> FNodes;
};

}  // namespace fw
