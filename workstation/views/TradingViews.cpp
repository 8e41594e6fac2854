// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/views/TradingViews.h"

#include "framework/base/ClassRegistry.h"
#include "workstation/views/OrdersFrame.h"
#include "workstation/views/PositionsFrame.h"

namespace ws {

namespace {

constexpr int kMenuLevels = 2;
constexpr int kMenuId = 104;
constexpr int kMenuIndex = 3200;  // behind the accounts' menu
constexpr int kDefaultWidth = 1000, kDefaultHeight = 360;

template <class TFrameOf>
std::unique_ptr<fw::TFrame> Make(TTradingDesk& Desk) {
    return std::make_unique<TFrameOf>(Desk);
}

constexpr TTradingViewKind kOrders{"TOrdersView", "Orders_701", 701, 3210, "Res_Orders", "orders", &Make<TOrdersFrame>};
constexpr TTradingViewKind kPositions{"TPositionsView", "Positions_702",       702, 3220, "Res_Positions",
                                      "positions",      &Make<TPositionsFrame>};

TTradingDesk* Current = nullptr;

template <class TView>
void Register(const TTradingViewKind& Kind) {
    fw::TClassRegistry::RegisterClass(Kind.ClassName, []() -> std::unique_ptr<fw::TObject> {
        return Current ? std::make_unique<TView>(*Current) : nullptr;
    });
}

}  // namespace

TOrdersView::TOrdersView(TTradingDesk& Desk) : TTradingView(kOrders, Desk) {}
TPositionsView::TPositionsView(TTradingDesk& Desk) : TTradingView(kPositions, Desk) {}

int TTradingView::GetMenuLevel() { return kMenuLevels; }
int TTradingView::GetMenuIndex(int Level) { return Level == 0 ? kMenuIndex : Level == 1 ? FKind.MenuIndex : -1; }
int TTradingView::GetMenuID(int Level) { return Level == 0 ? kMenuId : Level == 1 ? FKind.Id : 0; }

fw::Text TTradingView::GetMenuCaption(int Level) {
    if (Level < 0 || Level >= kMenuLevels) return {};
    return FDesk.Language.Resource(Level == 0 ? "Res_MenuTrading" : FKind.CaptionKey);
}

int64_t TTradingView::OpenNewInstance() {
    auto Frame = FKind.MakeFrame(FDesk);
    const int64_t Handle = Frame->GetHandle();
    AddView(std::move(Frame));
    return Handle;
}

bool TTradingView::GetDefaultSize(int& Width, int& Height) {
    Width = kDefaultWidth;
    Height = kDefaultHeight;
    return true;
}

bool TTradingView::GetDefaultCaption(fw::Text& Caption) {
    Caption = FDesk.Language.Resource(FKind.CaptionKey);
    return true;
}

bool TTradingView::GetViewIcon(int64_t, fw::Text& IconName) {
    IconName = FKind.Icon;
    return true;
}

void SetTradingDesk(TTradingDesk* Desk) {
    Current = Desk;
    Register<TOrdersView>(kOrders);
    Register<TPositionsView>(kPositions);
}

}  // namespace ws
