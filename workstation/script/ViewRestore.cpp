// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/ViewRestore.h"

#include <algorithm>
#include <array>

#include "framework/base/NumberFormat.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/PopupEdit.h"
#include "framework/data/ColumnIds.h"
#include "workstation/script/LastWarning.h"

namespace ws {

namespace {

constexpr int kFuture = 2;  // product type
constexpr const char* kRangeCaptions[] = {"Res_DownPrice", "Res_UpPrice", "Res_Interval"};
constexpr const char* kNotTaken = "Res_RestoreNotTaken";

int StateOf(const std::string& Symbol) {
    return fw::TCustomSubscribeAdapter::GetInstance().GetSubItem(Symbol, fw::kPriceDataKind, 0)->GetState();
}

fw::TGridTableView& LegsOf(const fw::TFrame& Frame) { return *Frame.FindControl<fw::TGridTableView>(kLegsView); }

int LastRow(const fw::TFrame& Frame) { return LegsOf(Frame).GetDataController().GetRecordCount() - 1; }

fw::Variant CellAt(const fw::TFrame& Frame, int Row, int Tag) {
    const auto& View = LegsOf(Frame);
    for (int i = 0; i < View.GetColumnCount(); ++i)
        if (View.GetColumn(i)->Tag == Tag) return View.GetDataController().GetValue(Row, i);
    return {};
}

}  // namespace

TViewRestore::TViewRestore(fw::TFrame& Frame, const TMarketService& Market, TSubscriptionService& Subscriptions,
                           TViewState State, ERestore What, TWait Patience)
    : FFrame(Frame),
      FMarket(Market),
      FSubscriptions(Subscriptions),
      FState(std::move(State)),
      FWhat(What),
      FPatience(Patience),
      FPlayer(Frame) {
    if (FWhat == ERestore::Everything && !FState.Layout.empty()) FFrame.SetLayoutData(FState.Layout);
}

TViewRestore::EState TViewRestore::Poll(TWait Elapsed) {
    if (!FBefore) Begin();
    const bool Ready = FBefore && DataArrived();
    if (!Ready && Elapsed < FPatience) return EState::Waiting;
    if (!FBefore) {
        Report("Res_RestoreNoMarket", {});
        return EState::Stopped;
    }
    if (UserWasHere()) {
        Report("Res_RestoreStopped", {});
        return EState::Stopped;
    }
    Perform();
    return EState::Done;
}

void TViewRestore::Begin() {
    auto Now = CaptureView(FFrame);
    if (!Now) return;
    AskForData(*Now);
    FBefore = std::move(*Now);
}

// The data of the legs, and of the futures: a month without options takes its default range from one of them. A symbol
// that stands in the view was asked for by the view, and need not be waited for.
void TViewRestore::AskForData(const TViewInputs& Before) {
    for (const TRowState& Row : FState.Rows) FAwaited.insert(Row.Symbol);
    for (const TRowState& Row : Before.Rows) FAwaited.erase(Row.Symbol);
    FAwaited.erase("");
    for (const TProductRow& Product : FMarket.Market().Products)
        if (Product.ProductType == kFuture && Product.Exchange == FState.Exchange && Product.Series == FState.Series)
            FAwaited.insert(Product.Symbol);
    for (const auto& Symbol : FAwaited) FSubscriptions.Request(Symbol);
}

bool TViewRestore::DataArrived() const {
    return std::all_of(FAwaited.begin(), FAwaited.end(),
                       [](const auto& Symbol) { return StateOf(Symbol) != fw::kItemUnknown; });
}

// A default range that arrived is not the user's doing, unless he stands in one of its editors.
bool TViewRestore::UserWasHere() {
    if (IsTyping(FFrame)) return true;
    const auto Now = CaptureView(FFrame);
    if (!Now) return false;
    TViewInputs Then = *FBefore;
    const auto* Focused = FFrame.Controls().GetFocused();
    const bool InRange = std::any_of(std::begin(kRangeEditors), std::end(kRangeEditors),
                                     [&](const char* Name) { return FFrame.Controls().Find(Name) == Focused; });
    if (!Focused || !InRange) Then.Down = Now->Down, Then.Up = Now->Up, Then.Interval = Now->Interval;
    return Then != Now->Inputs();
}

void TViewRestore::Perform() {
    fw::TControl* const Focused = FFrame.Controls().GetFocused();
    FPlayer.Play(TStep::Click("btnClear"));
    SelectMarket();
    EnterRange();
    TypeRows();
    if (FWhat == ERestore::Everything) {
        CheckAccount();
        if (FState.Calculated && FProblems.empty()) FPlayer.Play(TStep::Click("btnCalc"));
    }
    if (Focused) Focused->SetFocus();
}

// Below a level that is gone the levels mean nothing. The legs are tried all the same, in the market that is there.
void TViewRestore::SelectMarket() {
    const std::string* const Codes[] = {&FState.Exchange, &FState.Series, &FState.Month};
    for (size_t i = 0; i < std::size(Codes); ++i) {
        if (Codes[i]->empty() || FPlayer.Play(TStep::Select(kMarketCombos[i], *Codes[i]))) continue;
        return Report("Res_RestoreMarketGone", {*Codes[i], FState.Exchange, FState.Series, FState.Month});
    }
}

void TViewRestore::EnterRange() {
    const std::optional<double> Bounds[] = {FState.Down, FState.Up, FState.Interval};
    for (size_t i = 0; i < std::size(Bounds); ++i) {
        const auto& Bound = Bounds[i];
        const TLastWarning Warning;
        if (!FPlayer.Play(Bound ? TStep::EnterNumber(kRangeEditors[i], *Bound) : TStep::Enter(kRangeEditors[i], "")))
            Report("Res_RestoreRangeRefused", {kRangeCaptions[i], Bound ? fw::FormatShortest(*Bound) : ""},
                   Warning.ReasonOr(FPlayer.GetReason(), {kNotTaken, {}}));
    }
}

void TViewRestore::TypeRows() {
    for (const TRowState& Row : FState.Rows) {
        const int At = LastRow(FFrame);
        if (Row.Symbol.empty() || TypeSymbol(At, Row.Symbol)) TypeCells(At, Row);
    }
    const int Last = LastRow(FFrame);  // a symbol that was refused may stand there
    if (!CellAt(FFrame, Last, fw::kColumnSymbol).AsText().empty())
        FPlayer.Play(TStep::Cell(kLegsView, Last, fw::kColumnSymbol, ""));
}

bool TViewRestore::TypeSymbol(int Row, const std::string& Symbol) {
    const TLastWarning Warning;
    const bool Played = FPlayer.Play(TStep::Cell(kLegsView, Row, fw::kColumnSymbol, Symbol));
    if (!Played || fw::Trim(CellAt(FFrame, Row, fw::kColumnSymbol).AsText()).empty()) {
        Report("Res_RestoreSymbolRefused", {Symbol}, Warning.ReasonOr(FPlayer.GetReason(), {kNotTaken, {}}));
        return false;
    }
    if (StateOf(Symbol) == fw::kItemUnknown) Report("Res_RestoreNoData", {Symbol});
    return true;
}

// A row that was still waiting for its data has nothing but its symbol; the market fills it now.
void TViewRestore::TypeCells(int Row, const TRowState& Cells) {
    TRowState Unfilled;
    Unfilled.Symbol = Cells.Symbol;
    if (Cells == Unfilled) return;
    TypeChoice(Row, Cells, fw::kColumnSide, "Res_Side", Cells.Side);
    TypeNumber(Row, Cells, fw::kColumnPremium, "Res_PayOffPremium", Cells.Premium);
    TypeNumber(Row, Cells, fw::kColumnQuantity, "Res_OrderQty", Cells.Qty);
    TypeChoice(Row, Cells, fw::kColumnOpenClose, "Res_OpenClose", Cells.OpenClose);
    TypeChoice(Row, Cells, fw::kColumnPrincipal, "Res_Principal", Cells.Principal);
}

void TViewRestore::TypeNumber(int Row, const TRowState& Cells, int Column, const char* Caption,
                              std::optional<double> Number) {
    if (Number)
        TypeCell(TStep::CellNumber(kLegsView, Row, Column, *Number), Cells, Caption, fw::FormatShortest(*Number));
    else if (!CellAt(FFrame, Row, Column).AsText().empty())
        TypeCell(TStep::Cell(kLegsView, Row, Column, ""), Cells, Caption, "");
}

void TViewRestore::TypeChoice(int Row, const TRowState& Cells, int Column, const char* Caption,
                              const std::string& Code) {
    if (Code.empty()) return;
    const std::string Shown = ChoiceText(Code);
    TypeCell(TStep::Cell(kLegsView, Row, Column, Shown), Cells, Caption, Shown.empty() ? Code : Shown);
}

void TViewRestore::TypeCell(const TStep& Step, const TRowState& Cells, const char* Caption, const std::string& Shown) {
    const TLastWarning Warning;
    if (!FPlayer.Play(Step))
        Report("Res_RestoreCellRefused", {Cells.Symbol.empty() ? "-" : Cells.Symbol, Caption, Shown},
               Warning.ReasonOr(FPlayer.GetReason(), {kNotTaken, {}}));
}

void TViewRestore::CheckAccount() {
    const auto* Editor = FFrame.FindControl<fw::TPopupEdit>(kAccountEditor);
    if (Editor && Editor->IsEnabled() && !FState.Account.empty() && Editor->GetHint() != FState.Account)
        Report("Res_RestoreAccountGone", {FState.Account});
}

void TViewRestore::Report(std::string Key, std::vector<std::string> Args, fw::TRefusal Reason) {
    if (!Reason.Key.empty()) Args.push_back(std::move(Reason.Key));
    Args.insert(Args.end(), Reason.Args.begin(), Reason.Args.end());
    FProblems.push_back({std::move(Key), std::move(Args)});
}

}  // namespace ws
