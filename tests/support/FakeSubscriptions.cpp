// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeSubscriptions.h"

namespace support {

using namespace fw;

TFakeSubItem& TFakeSubItem::Set(int Field, double Value) {
    FFields[Field] = {FloatToShortestText(Value), Value};
    return *this;
}

TFakeSubItem& TFakeSubItem::Set(int Field, const Text& Value) {
    FFields[Field] = {Value, TextToFloatDef(Value, 0.0)};
    return *this;
}

Text TFakeSubItem::GetFieldText(int FieldId) const {
    const auto Found = FFields.find(FieldId);
    return Found == FFields.end() ? fw::Text() : Found->second.Shown;
}

double TFakeSubItem::GetFieldValue(int FieldId) const {
    const auto Found = FFields.find(FieldId);
    return Found == FFields.end() ? 0.0 : Found->second.Value;
}

TFakeSubItem& TFakeSubscribeAdapter::Item(const Text& Symbol) {
    auto& Item = FItems[Symbol];
    if (!Item) Item = std::make_unique<TFakeSubItem>(Symbol);
    return *Item;
}

TFakeSubItem& TFakeSubscribeAdapter::AddOption(const Text& Symbol, double Strike, const Text& CallPut,
                                               double Multiplier) {
    auto& Result = Item(Symbol).Ready();
    Result.Set(kFieldProductType, "3").Set(kFieldStrike, Strike).Set(kFieldCallPut, CallPut);
    return Multiplier == 0.0 ? Result : Result.Set(kFieldMultiplier, Multiplier);
}

TFakeSubItem& TFakeSubscribeAdapter::AddFuture(const Text& Symbol, double Multiplier) {
    auto& Result = Item(Symbol).Ready().Set(kFieldProductType, "2");
    return Multiplier == 0.0 ? Result : Result.Set(kFieldMultiplier, Multiplier);
}

void TFakeSubscribeAdapter::Deliver(int Count) {
    for (const auto& Symbol : Subscribed()) Deliver(Symbol, Count);
}

void TFakeSubscribeAdapter::Deliver(const Text& Symbol, int Count) {
    TCustomUpdate Update(Count);
    FSubscriptions[Symbol].Notify("SymbolUpdate", this, &Update);
}

void TFakeSubscribeAdapter::DeliverNothing() {
    for (const auto& Symbol : Subscribed()) FSubscriptions[Symbol].Notify("SymbolUpdate", this, nullptr);
}

std::vector<Text> TFakeSubscribeAdapter::Subscribed() const {
    std::vector<Text> Result;
    for (const auto& [Symbol, Handlers] : FSubscriptions) Result.insert(Result.end(), Handlers.GetCount(), Symbol);
    return Result;
}

TCustomSubItem* TFakeSubscribeAdapter::GetSubItem(const Text& Symbol, const Text& DataKind, int Flags) {
    ++LookUpCount;
    FJournal.Read("Subscriptions.GetSubItem(" + Symbol + ", " + DataKind + ", " + Arg(Flags) + ")");
    return &Item(Symbol);
}

void TFakeSubscribeAdapter::Subscribe(TCustomSubItem* Item, TDataEvent Handler, TObject* Owner) {
    ++SubscribeCount;
    FJournal.Call("Subscriptions.Subscribe(" + Item->GetSymbol() + ")");
    FSubscriptions[Item->GetSymbol()].Add(Owner, std::move(Handler));
}

void TFakeSubscribeAdapter::Unsubscribe(TCustomSubItem* Item, TObject* Owner) {
    ++UnsubscribeCount;
    FJournal.Call("Subscriptions.Unsubscribe(" + Item->GetSymbol() + ")");
    FSubscriptions[Item->GetSymbol()].Remove(Owner);
}

}  // namespace support
