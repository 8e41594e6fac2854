// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/market/Product.h"

namespace fw {

// Everything that is listed. Records are borrowed and live as long as the service; reads by index out of range give ""
// or null.
class FRAMEWORK_API TCustomMarketAdapter : public TObject {
public:
    ~TCustomMarketAdapter() override;
    static TCustomMarketAdapter& GetInstance();
    static TCustomMarketAdapter* SetInstance(TCustomMarketAdapter* Service);

    virtual void AddExchangeUpdateHandler(TDataEvent Handler, TObject* Owner) = 0;
    virtual void RemoveExchangeUpdateHandler(TObject* Owner) = 0;

    virtual int GetExchangeCount() = 0;
    virtual Text GetExchangeCode(int Index) = 0;
    virtual bool IsExchangeSupported(const Text& Exchange) = 0;
    virtual int GetSeriesCount(const Text& Exchange) = 0;
    virtual Text GetSeriesCode(const Text& Exchange, int Index) = 0;
    virtual TCustomSeries* GetSeriesInfo(const Text& Series) = 0;  // null when unknown
    virtual int GetProductCount(const Text& Exchange, const Text& Series) = 0;
    virtual TCustomProduct* GetProduct(const Text& Exchange, const Text& Series, int Index) = 0;
    virtual TCustomProduct* GetProductBySymbol(const Text& Symbol) = 0;  // null when unknown
    virtual TCustomSpreadTable* GetSpreadTable(const Text& Code) = 0;    // null when unknown
    // Makes a symbol's data or a price-step table available; a text that names neither is ignored.
    virtual void RequestSymbol(const Text& Symbol) = 0;
};

}  // namespace fw
