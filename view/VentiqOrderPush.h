// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/trading/ClientOrder.h"
#include "view/VentiqMarketSelectors.h"

namespace ventiq {

// What the host pushes into the view: a client order brings the selectors to its instrument and its account.
class TVentiqOrderPush {
public:
    TVentiqOrderPush(TVentiqForm& Form, TVentiqContext& Context, TVentiqMarketSelectors& Selectors)
        : FForm(Form), FContext(Context), FSelectors(Selectors) {}

    // Always true; Kind is not looked at, and any other object changes nothing. What the selectors do not offer leaves
    // them where they are. Raises EConvertError for an instrument whose expiry is no date; exchange and series have
    // been chosen by then.
    bool SetCustomData(int Kind, TObject* Data);

private:
    // Where the order's instrument is listed; empty texts: unknown.
    struct TInstrument {
        Text Exchange, Series, ExpiryDate, WeeklyTag;
        bool Listed = false;  // the market has a product record
    };
    static TInstrument InstrumentOf(const Text& Symbol);
    static TInstrument InstrumentByData(const Text& Symbol);
    void SelectMonth(const TInstrument& Instrument);

    TVentiqForm& FForm;  // all borrowed from the frame
    TVentiqContext& FContext;
    TVentiqMarketSelectors& FSelectors;
};

}  // namespace ventiq
