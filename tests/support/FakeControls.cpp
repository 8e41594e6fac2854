// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeControls.h"

namespace support {

using namespace fw;

namespace {
void SortByText(TStringList& List) {
    List.Sort(TCustomComparer([](const Text& A, const Text& B) { return static_cast<int32_t>(A.compare(B)); }));
}
}  // namespace

void TFakeEditorManager::RegisterAccountEditor(TPopupEdit* Editor, const Text& GroupId, bool Flag1, bool Flag2) {
    FJournal.Call("Editors.RegisterAccountEditor(" + GroupId + ", " + Arg(Flag1) + ", " + Arg(Flag2) + ")");
    FEditors.insert(Editor);
    Editor->SetEnabled(true);
}

void TFakeEditorManager::RemoveAccountEditor(TPopupEdit* Editor) {
    FJournal.Call("Editors.RemoveAccountEditor()");
    if (FEditors.erase(Editor) > 0) Editor->SetEnabled(false);
}

void TFakeEditorManager::SetAccountLayoutAccount(TPopupEdit* Editor, const Text& Account) {
    FJournal.Call("Editors.SetAccountLayoutAccount(" + Account + ")");
    if (!IsRegistered(Editor) || (!Accounts.empty() && !Accounts.contains(Account))) return;
    Editor->SetText(Account);
    Editor->SetHint(Account);
    Editor->Exit();
}

Text TFakeEditorManager::GetConvertSymbol(const Text& Typed) {
    FJournal.Call("Editors.GetConvertSymbol(" + Typed + ")");
    return Convert(Typed);
}

Text TFakeEditorManager::GetGridColumnLayout(TGridTableView*, const TColumnInfoList*) {
    FJournal.Call("Editors.GetGridColumnLayout()");
    return ColumnLayout;
}

void TFakeEditorManager::SetGridColumnLayout(TGridTableView*, const Text& Layout, const TColumnInfoList*) {
    FJournal.Call("Editors.SetGridColumnLayout(" + Layout + ")");
}

void TFakeMessageBoxCtrl::ShowMessageText(TObject*, const Text& Message, int, int, int) {
    FJournal.Call("MessageBox.ShowMessageText(" + Message + ")");
    Messages.push_back({Message, {}});
    if (OnShow) OnShow();
}

void TFakeMessageBoxCtrl::ShowMessageCode(TObject*, const Text& Code, void*, void*, void*) {
    FJournal.Call("MessageBox.ShowMessageCode(" + Code + ")");
    Messages.push_back({{}, Code});
    if (OnShow) OnShow();
}

Text TFakeFormatter::FormatValue(double Value, uint8_t Kind, const Text& Symbol, bool UseDefault, void*) {
    Calls.push_back({Value, Kind, Symbol, UseDefault});
    return Arg(int{Kind}) + ":" + FloatToShortestText(Value);
}

Text TFakeFormatter::FormatPrice(double Value, uint8_t Kind, bool UseDefault) {
    return FormatValue(Value, Kind, {}, UseDefault, nullptr);
}

void TFakeExchangeListComparer::Sort(TStringList* List) {
    FJournal.Call(List ? "ExchangeListComparer.Sort()" : "ExchangeListComparer.Sort(null)");
    ++SortCount;
    if (!List) ++NullCount;
    if (List && Sorted) SortByText(*List);
}

void TFakeSeriesComparer::Sort(const Text& Exchange, TStringList* List) {
    FJournal.Call("SeriesComparer.Sort(" + Exchange + ")");
    ++SortCount;
    if (List && Sorted) SortByText(*List);
}

}  // namespace support
