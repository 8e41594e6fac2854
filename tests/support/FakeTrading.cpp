// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeTrading.h"

namespace support {

using namespace fw;

TFakeClientOrder::TFakeClientOrder(TJournal& Journal, int64_t LineId) : FJournal(Journal) {
    ++Alive;
    SetLineId(LineId);
}

void TFakeClientOrder::Say(const Text& What) { FJournal.Call("Order" + std::to_string(GetLineId()) + "." + What); }

void TFakeClientOrder::SetAccount(const Text& Value) {
    Say("SetAccount(" + Value + ")");
    TCustomClientOrder::SetAccount(Value);
}

void TFakeClientOrder::SetSymbol(const Text& Value) {
    Say("SetSymbol(" + Value + ")");
    TCustomClientOrder::SetSymbol(Value);
}

void TFakeClientOrder::SetSide(int Value) {
    Say("SetSide(" + Arg(Value) + ")");
    TCustomClientOrder::SetSide(Value);
}

void TFakeClientOrder::SetPrice(double Value) {
    Say("SetPrice(" + Arg(Value) + ")");
    TCustomClientOrder::SetPrice(Value);
}

void TFakeClientOrder::SetQty(double Value) {
    Say("SetQty(" + Arg(Value) + ")");
    TCustomClientOrder::SetQty(Value);
}

void TFakeClientOrder::SetOpenClose(int Value) {
    Say("SetOpenClose(" + Arg(Value) + ")");
    TCustomClientOrder::SetOpenClose(Value);
}

void TFakeClientOrder::SetPrincipal(int Value) {
    Say("SetPrincipal(" + Arg(Value) + ")");
    TCustomClientOrder::SetPrincipal(Value);
}

void TFakeClientOrder::SetExtValue(const Text& Name, const Text& Value) {
    Say("SetExtValue(" + Name + ", " + Value + ")");
    TCustomClientOrder::SetExtValue(Name, Value);
}

std::unique_ptr<TCustomClientOrder> TFakeOrderAdapter::CreateClientOrder() {
    FJournal.Call("Orders.CreateClientOrder()");
    return std::make_unique<TFakeClientOrder>(FJournal, ++FLineId);
}

const std::vector<Text>& TFakeOrderAdapter::OptionsOf(const Text& Exchange) const {
    const auto Found = Options.find(Exchange);
    return Found == Options.end() ? Default : Found->second;
}

int TFakeOrderAdapter::GetOrderOptionCount(const Text& Exchange) {
    FJournal.Read("Orders.GetOrderOptionCount(" + Exchange + ")");
    return static_cast<int>(OptionsOf(Exchange).size());
}

Text TFakeOrderAdapter::GetOrderOption(const Text& Exchange, int Index) {
    const auto& List = OptionsOf(Exchange);
    return Index >= 0 && Index < static_cast<int>(List.size()) ? List[static_cast<size_t>(Index)] : Text();
}

Text TFakeOrderAdapter::GetSideText(const TCustomClientOrder& Order, bool Short) {
    return "Side" + Arg(Order.GetSide()) + (Short ? "Short" : "");
}

bool TFakeOrderActionManager::CheckOrder(TCustomClientOrder& Order, int Action, bool Flag) {
    FJournal.Call("OrderActions.CheckOrder(" + Order.GetSymbol() + ", " + Arg(Action) + ", " + Arg(Flag) + ")");
    return !Refused.contains(Order.GetSymbol());
}

void TFakeOrderActionManager::TakeAction(TObject*, TCustomClientOrder& Order, int Action, bool Flag) {
    FJournal.Call("OrderActions.TakeAction(" + Order.GetSymbol() + ", " + Arg(Action) + ", " + Arg(Flag) + ")");
    Sent.push_back(std::make_unique<TCustomClientOrder>());
    Sent.back()->Assign(Order);
    if (OnTakeAction) OnTakeAction(Order);
}

TFakePosition& TFakePositionAdapter::Add(const Text& Account, const Text& Symbol, double Qty, double AvgPrice,
                                         TCustomSubItem* Item) {
    auto& Position =
        FPositions.emplace_back(std::piecewise_construct, std::forward_as_tuple(Account), std::forward_as_tuple())
            .second;
    Position.Symbol = Symbol;
    Position.Qty = Qty;
    Position.AvgPrice = AvgPrice;
    Position.SubItem = Item;
    return Position;
}

void TFakePositionAdapter::GetPositionList(const Text& Account, TPositionDictionary& Positions) {
    FJournal.Call("Positions.GetPositionList(" + Account + ")");
    for (auto& [Owner, Position] : FPositions)
        if (Owner == Account) Positions[Position.Symbol] = &Position;
}

}  // namespace support
