// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <memory>
#include <unordered_map>

#include "framework/services/ScopedService.h"
#include "framework/services/SubscribeAdapter.h"

namespace bench {

// Market data with as little of a host's own cost as can be: a hashed table of symbols, a handful of fields behind
// each. What a look-up costs here, every host charges.
class TLeanItem : public fw::TCustomSubItem {
public:
    explicit TLeanItem(fw::Text Symbol) : FSymbol(std::move(Symbol)) {}
    TLeanItem& Set(int Field, const fw::Text& Value);

    fw::Text GetSymbol() const override { return FSymbol; }
    int GetState() const override { return fw::kItemReady; }
    fw::Text GetFieldText(int FieldId) const override;
    double GetFieldValue(int FieldId) const override;
    bool HasField(int FieldId) const override { return Find(FieldId) != nullptr; }

private:
    struct TField {
        int Id = 0;
        fw::Text Shown;
        double Value = 0.0;
    };
    const TField* Find(int FieldId) const;

    fw::Text FSymbol;
    std::array<TField, 6> FFields;
    size_t FCount = 0;
};

class TLeanMarket : public fw::TCustomSubscribeAdapter {
public:
    void AddOption(const fw::Text& Symbol, double Strike, const fw::Text& CallPut, double Multiplier);
    void AddFuture(const fw::Text& Symbol, double Multiplier);

    fw::TCustomSubItem* GetSubItem(const fw::Text& Symbol, const fw::Text& DataKind, int Flags) override;
    void Subscribe(fw::TCustomSubItem*, fw::TDataEvent, fw::TObject*) override {}
    void Unsubscribe(fw::TCustomSubItem*, fw::TObject*) override {}

private:
    TLeanItem& ItemOf(const fw::Text& Symbol);

    std::unordered_map<fw::Text, std::unique_ptr<TLeanItem>> FItems;
};

}  // namespace bench
