// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/view/Frame.h"

namespace ws {

// A row of the legs' table as it is entered. What the instrument decides comes from the market again.
struct TRowState {
    std::string Symbol;                      // "": the row behind the legs
    std::string Side, OpenClose, Principal;  // "buy", "open", "client", ...; "": none chosen
    std::optional<double> Premium, Qty;      // as the cells hold them; none: an empty cell
    bool operator==(const TRowState&) const = default;
};

// What of a payoff view is worth keeping: codes and numbers, whatever language and number format show them in. The
// inputs are what undo is about, the rest goes along with them.
struct TViewInputs {
    std::string Exchange, Series, Month;
    std::optional<double> Down, Up, Interval;  // real price units; none: an empty editor
    std::vector<TRowState> Rows;  // those with a symbol, and behind them the row without one if anything stands in it
    bool operator==(const TViewInputs&) const = default;
};

struct TViewState : TViewInputs {
    std::string Layout;       // the view's own text; "": it gave none
    std::string Account;      // the code in the account's editor
    bool Calculated = false;  // results are on show, and they are those of the inputs
    bool operator==(const TViewState&) const = default;
    const TViewInputs& Inputs() const { return *this; }
};

// Form names of the controls that a state is read from and played back to.
inline constexpr const char* kLegsView = "PositionGridView";
inline constexpr const char* kResultsView = "DetailGridView";
inline constexpr const char* kMarketCombos[] = {"cmbExchange", "cmbSeries", "cmbMonth"};
inline constexpr const char* kRangeEditors[] = {"edtDown", "edtUp", "edtInterval"};
inline constexpr const char* kAccountEditor = "edtAccount";

// Whether the view has all of these: market, range and legs.
bool HasViewState(const fw::TFrame& Frame);
// None before the market lists have come, and of a view without state. Asks nothing of the view but its layout text.
std::optional<TViewState> CaptureView(fw::TFrame& Frame);
// A cell or an editor holds text that is not posted yet.
bool IsTyping(const fw::TFrame& Frame);

// The text shown for a choice of a row ("buy", "open", "house", ...) in the current language.
std::string ChoiceText(std::string_view Code);

// A state as one text; unknown names in it are passed over, and what is no number is an empty cell.
std::string TextOfState(const TViewState& State);
TViewState StateOfText(std::string_view Text);

}  // namespace ws
