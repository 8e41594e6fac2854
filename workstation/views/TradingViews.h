// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/view/BaseView.h"
#include "workstation/views/TradingDesk.h"

namespace ws {

// What tells one of the workstation's own views from another.
struct TTradingViewKind {
    const char* ClassName;
    const char* Name;
    int Id;  // also of its menu entry
    int MenuIndex;
    const char* CaptionKey;
    const char* Icon;
    std::unique_ptr<fw::TFrame> (*MakeFrame)(TTradingDesk& Desk);
};

// Descriptor of a view of the workstation's own, opened like any package's.
class TTradingView : public fw::TIBaseView {
public:
    TTradingView(const TTradingViewKind& Kind, TTradingDesk& Desk) : FKind(Kind), FDesk(Desk) {}

    fw::Text GetName() override { return FKind.Name; }
    int GetViewID() override { return FKind.Id; }
    int GetMenuLevel() override;
    int GetMenuIndex(int Level) override;
    int GetMenuID(int Level) override;
    fw::Text GetMenuCaption(int Level) override;
    int64_t OpenNewInstance() override;
    bool GetDefaultSize(int& Width, int& Height) override;
    bool GetDefaultCaption(fw::Text& Caption) override;
    bool GetViewIcon(int64_t Handle, fw::Text& IconName) override;

private:
    const TTradingViewKind& FKind;
    TTradingDesk& FDesk;  // borrowed; outlives the descriptor
};

class TOrdersView : public TTradingView {
public:
    explicit TOrdersView(TTradingDesk& Desk);
};

class TPositionsView : public TTradingView {
public:
    explicit TPositionsView(TTradingDesk& Desk);
};

// Registers both classes with the host. Descriptors made from now on stand at Desk; null: none are made.
void SetTradingDesk(TTradingDesk* Desk);

}  // namespace ws
