// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ViewCommands.h"

#include <algorithm>

#include <QToolButton>

#include "framework/base/Dispatch.h"
#include "framework/controls/Button.h"
#include "workstation/script/Player.h"

namespace ws {

namespace {

struct TButtonCommand {
    const char* Id;
    const char* Control;  // form name
};
constexpr TButtonCommand kButtons[] = {
    {"view.calculate", "btnCalc"}, {"view.load", "btnLoad"}, {"view.clear", "btnClear"}, {"view.submit", "btnSubmit"}};

struct TCaptionCommand {
    const char* Id;
    const char* Icons[2];
};
constexpr TCaptionCommand kCaptionButtons[] = {{"view.panels", {"less", "more"}},
                                               {"view.hint", {"show-hint", "hide-hint"}}};

int FindCaptionButton(TViewDock& Dock, std::initializer_list<std::string_view> Icons) {
    fw::TCaptionButtonList Buttons;
    fw::TImageList* Images = nullptr;
    Dock.View().GetViewCaptionButtons(Dock.Handle(), Buttons);
    Dock.View().GetViewCaptionButtonImageList(Dock.Handle(), Images);
    for (size_t i = 0; Images && i < Buttons.size(); ++i)
        if (std::find(Icons.begin(), Icons.end(), Images->GetIconName(Buttons[i]->ImageIndex)) != Icons.end())
            return static_cast<int>(i);
    return -1;
}

}  // namespace

bool PressCaptionButton(TViewDock& Dock, std::initializer_list<std::string_view> Icons) {
    const int Index = FindCaptionButton(Dock, Icons);
    return Index >= 0 && Dock.View().HandleCaptionButtonClick(Dock.Handle(), Index);
}

TViewCommands::TViewCommands(TCommands& Commands, TViewDocks& Docks, TSay Say)
    : FCommands(Commands), FDocks(Docks), FSay(std::move(Say)) {
    for (const TButtonCommand& Each : kButtons) BindButton(Each.Id, Each.Control);
    for (const TCaptionCommand& Each : kCaptionButtons) BindCaptionButton(Each.Id, Each.Icons[0], Each.Icons[1]);
    const auto Any = [this] { return FDocks.Current() != nullptr; };
    FCommands.Bind(
        "view.float",
        [this] {
            if (FDocks.CanArrange()) FDocks.Current()->TitleBar().FloatButton().click();
        },
        Any);
    FCommands.Bind(
        "view.group", [this] { FDocks.Current()->TitleBar().GroupButton().click(); },
        [this] { return FDocks.Current() && !FDocks.Current()->TitleBar().GroupButton().isHidden(); });
    FCommands.Bind(
        "view.close", [this] { FDocks.Current()->close(); }, Any);
    FCommands.Bind(
        "view.next", [this] { Walk(1); }, Any);
    FCommands.Bind(
        "view.previous", [this] { Walk(-1); }, Any);
}

void TViewCommands::BindButton(const char* Id, const char* Control) {
    FCommands.Bind(
        Id, [this, Control] { Press(Control); },
        [this, Control] {
            TViewDock* Dock = FDocks.Current();
            const fw::TFrame* Frame = Dock ? Dock->Frame() : nullptr;
            return Frame && Frame->FindControl<fw::TButton>(Control);
        });
}

// A button that is dimmed, or hidden, says so: the key was pressed for a reason.
void TViewCommands::Press(const char* Control) {
    fw::TFrame* Frame = FDocks.Current()->Frame();
    const fw::Text Caption = Frame->FindControl<fw::TButton>(Control)->GetCaption();
    TPlayer Player(*Frame);
    if (!Player.Play(TStep::Click(Control))) FSay("Res_CommandNotNow", {Caption});
}

void TViewCommands::BindCaptionButton(const char* Id, std::string_view On, std::string_view Off) {
    FCommands.Bind(
        Id,
        [this, On, Off] {
            PressCaptionButton(*FDocks.Current(), {On, Off});
        },
        [this, On, Off] {
            return FDocks.Current() && FindCaptionButton(*FDocks.Current(), {On, Off}) >= 0;
        });
}

// In the order of opening, round the end.
void TViewCommands::Walk(int Step) {
    const auto& Docks = FDocks.Docks();
    const int Count = static_cast<int>(Docks.size());
    const int Now = static_cast<int>(std::find(Docks.begin(), Docks.end(), FDocks.Current()) - Docks.begin());
    TViewDock& Next = *Docks[static_cast<size_t>((Now + Step + Count) % Count)];
    Next.show();
    Next.raise();
    FDocks.Use(Next);
    if (Next.isFloating()) Next.activateWindow();
    if (QWidget* Form = Next.widget()) {
        QWidget* Stop = Form->focusWidget() ? Form->focusWidget() : Form->nextInFocusChain();
        if (Stop && Next.isAncestorOf(Stop)) Stop->setFocus(Qt::OtherFocusReason);
    }
}

}  // namespace ws
