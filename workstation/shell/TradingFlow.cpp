// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/TradingFlow.h"

#include <algorithm>

#include "workstation/renderers/QtText.h"
#include "workstation/views/TradingViews.h"

namespace ws {

TTradingFlow::TTradingFlow(TWorkstation& Workstation, const TRenderContext& Context, TDialogs& Dialogs, QWidget& Window)
    : FWorkstation(Workstation),
      FDesk{
          Workstation.Orders(),
          Workstation.Language(),
          [&Workstation](const std::string& Account) {
              const auto& Accounts = Workstation.User().Accounts;
              return std::find(Accounts.begin(), Accounts.end(), Account) != Accounts.end();
          },
          [&](const TReason& Question) {
              return Dialogs.Ask(&Window, Context.Translate(Question.Key.c_str(), Question.Args));
          },
          [this](const TReason& Sentence) {
              if (FStatus)
                  FStatus->Say([this, Sentence] { return ToQt(FDesk.Language.Resource(Sentence.Key, Sentence.Args)); });
          },
          [this](fw::TCustomClientOrder& Order) { return Push(Order); }} {
    FLink = FDesk.Orders.OnOrderChanged.Connect([this](const TOrderRow& Order) { FBatches.Take(Order); });
    SetTradingDesk(&FDesk);
}

TTradingFlow::~TTradingFlow() { SetTradingDesk(nullptr); }

void TTradingFlow::SetPlaces(TStatusLine* Status, TViewDocks* Docks) {
    FStatus = Status;
    FDocks = Docks;
}

void TTradingFlow::Tick() {
    FBatches.Tick();
    if (!FStatus) return;
    const TReason Progress = FBatches.Sentence();
    FStatus->ShowProgress(Progress.Key.empty() ? QString()
                                               : ToQt(FDesk.Language.Resource(Progress.Key, Progress.Args)));
}

bool TTradingFlow::Push(fw::TCustomClientOrder& Order) {
    TViewDock* Dock =
        FDocks ? FDocks->LastUsed([](TViewDock& Each) { return !dynamic_cast<TTradingView*>(&Each.View()); }) : nullptr;
    if (!Dock || !Dock->View().SetCustomData(Dock->Handle(), 0, &Order)) return false;
    Dock->show();
    Dock->raise();
    return true;
}

}  // namespace ws
