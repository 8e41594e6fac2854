// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// A client order before and while it is sent. Price in real price units. Created by the order service; the caller owns
// it.
class FRAMEWORK_API TCustomClientOrder : public TObject {
public:
    TCustomClientOrder();
    ~TCustomClientOrder() override;

    virtual void SetAccount(const Text& Value) { FAccount = Value; }
    virtual void SetSymbol(const Text& Value) { FSymbol = Value; }
    virtual void SetSide(int Value) { FSide = Value; }  // 0 buy, 1 sell
    virtual void SetPrice(double Value) { FPrice = Value; }
    virtual void SetQty(double Value) { FQty = Value; }
    virtual void SetOpenClose(int Value) { FOpenClose = Value; }  // 0 none, 1 open, 2 close
    virtual void SetPrincipal(int Value) { FPrincipal = Value; }  // 0 none, 11 client, 12 house, 13 RT
    virtual void SetExtValue(const Text& Name, const Text& Value) { FExtValues[Name] = Value; }

    Text GetAccount() const { return FAccount; }
    Text GetSymbol() const { return FSymbol; }
    int GetSide() const { return FSide; }
    double GetPrice() const { return FPrice; }
    double GetQty() const { return FQty; }
    int GetOpenClose() const { return FOpenClose; }
    int GetPrincipal() const { return FPrincipal; }
    Text GetExtValue(const Text& Name) const;
    int64_t GetLineId() const { return FLineId; }  // set by the order service at creation; a copy keeps it
    void SetLineId(int64_t Value) { FLineId = Value; }

    // Copies everything, extra values and line id included.
    virtual void Assign(const TCustomClientOrder& Source);

private:
    Text FAccount, FSymbol;
    int FSide = -1;
    double FPrice = 0.0;
    double FQty = 0.0;
    int FOpenClose = 0;
    int FPrincipal = 0;
    int64_t FLineId = 0;
    std::map<Text, Text> FExtValues;
};

}  // namespace fw
