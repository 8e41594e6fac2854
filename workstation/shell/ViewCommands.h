// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <string_view>

#include "workstation/shell/Commands.h"
#include "workstation/shell/ViewDocks.h"

namespace ws {

// Presses the caption button of a view that shows one of these icons; false where there is none.
bool PressCaptionButton(TViewDock& Dock, std::initializer_list<std::string_view> Icons);

// Commands that go to the view that was used last: its buttons, its caption buttons, its dock. A button of a view is
// pressed the way a user presses it, whatever it does. Borrows everything.
class TViewCommands {
public:
    using TSay = std::function<void(const fw::Text& Key, const std::vector<fw::Text>& Args)>;
    TViewCommands(TCommands& Commands, TViewDocks& Docks, TSay Say);

private:
    void BindButton(const char* Id, const char* Control);
    void BindCaptionButton(const char* Id, std::string_view On, std::string_view Off);
    void Press(const char* Control);
    void Walk(int Step);

    TCommands& FCommands;
    TViewDocks& FDocks;
    TSay FSay;
};

}  // namespace ws
