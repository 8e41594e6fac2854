// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/StringList.h"

namespace fw {

// Order of the exchanges in every list of the workstation. A null list is accepted and left alone.
class FRAMEWORK_API TCustomExchangeListComparer : public TObject {
public:
    ~TCustomExchangeListComparer() override;
    static TCustomExchangeListComparer& GetInstance();
    static TCustomExchangeListComparer* SetInstance(TCustomExchangeListComparer* Service);
    virtual void Sort(TStringList* List) = 0;
};

// Order of the series of one exchange.
class FRAMEWORK_API TCustomSeriesComparer : public TObject {
public:
    ~TCustomSeriesComparer() override;
    static TCustomSeriesComparer& GetInstance();
    static TCustomSeriesComparer* SetInstance(TCustomSeriesComparer* Service);
    virtual void Sort(const Text& Exchange, TStringList* List) = 0;
};

}  // namespace fw
