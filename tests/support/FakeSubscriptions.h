// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <memory>

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/SubscribeAdapter.h"
#include "tests/support/Journal.h"

namespace support {

// Market data of one symbol; tests write state and fields. A number is readable as its shortest text, a text as the
// number it converts to (else 0.0), as with the host's items.
class TFakeSubItem : public fw::TCustomSubItem {
public:
    explicit TFakeSubItem(fw::Text Symbol) : FSymbol(std::move(Symbol)) {}

    int State = fw::kItemUnknown;
    TFakeSubItem& Ready() {
        State = fw::kItemReady;
        return *this;
    }
    TFakeSubItem& Set(int Field, double Value);
    TFakeSubItem& Set(int Field, const fw::Text& Value);
    TFakeSubItem& Set(int Field, const char* Value) { return Set(Field, fw::Text(Value)); }
    TFakeSubItem& Forget(int Field) {
        FFields.erase(Field);
        return *this;
    }

    fw::Text GetSymbol() const override { return FSymbol; }
    int GetState() const override { return State; }
    fw::Text GetFieldText(int FieldId) const override;
    double GetFieldValue(int FieldId) const override;
    bool HasField(int FieldId) const override { return FFields.contains(FieldId); }

private:
    struct TField {
        fw::Text Shown;
        double Value;
    };
    fw::Text FSymbol;
    std::map<int, TField> FFields;
};

class TFakeSubscribeAdapter : public fw::TCustomSubscribeAdapter {
public:
    explicit TFakeSubscribeAdapter(TJournal& Journal) : FJournal(Journal) {}

    // The item of a symbol, created on first use and kept.
    TFakeSubItem& Item(const fw::Text& Symbol);
    // Ready items with the fields that a leg reads. No multiplier: the field stays without value.
    TFakeSubItem& AddOption(const fw::Text& Symbol, double Strike, const fw::Text& CallPut, double Multiplier = 0.0);
    TFakeSubItem& AddFuture(const fw::Text& Symbol, double Multiplier = 0.0);

    // One update of Count changes to everybody who is subscribed to anything (an owner of several items hears it once
    // an item, as from the host).
    void Deliver(int Count = 1);
    // The same to the subscribers of one symbol.
    void Deliver(const fw::Text& Symbol, int Count = 1);
    // Calls them without an update object.
    void DeliverNothing();

    // "symbol" for each subscription that stands, ascending.
    std::vector<fw::Text> Subscribed() const;
    int SubscribeCount = 0, UnsubscribeCount = 0;
    int LookUpCount = 0;  // calls of GetSubItem

    fw::TCustomSubItem* GetSubItem(const fw::Text& Symbol, const fw::Text& DataKind, int Flags) override;
    void Subscribe(fw::TCustomSubItem* Item, fw::TDataEvent Handler, fw::TObject* Owner) override;
    void Unsubscribe(fw::TCustomSubItem* Item, fw::TObject* Owner) override;

private:
    using THandlers = fw::TOwnerRegistrations<fw::TObject*, fw::TObject*>;
    TJournal& FJournal;
    std::map<fw::Text, std::unique_ptr<TFakeSubItem>> FItems;
    std::map<fw::Text, THandlers> FSubscriptions;  // by symbol
};

}  // namespace support
