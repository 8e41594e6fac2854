// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/FormatSettings.h"
#include "framework/base/Log.h"
#include "framework/services/ScopedService.h"
#include "tests/support/FakeControls.h"
#include "tests/support/FakeMarket.h"
#include "tests/support/FakeSettings.h"
#include "tests/support/FakeSubscriptions.h"
#include "tests/support/FakeTrading.h"

namespace support {

// A fake and its installation for the host's lifetime.
template <class TService, class TFake>
class TInstalled {
public:
    template <class... Args>
    explicit TInstalled(Args&... Values) : TInstalled(std::make_unique<TFake>(Values...)) {}
    TFake& operator*() const { return FFake; }

private:
    explicit TInstalled(std::unique_ptr<TFake> Fake) : FFake(*Fake), FScope(std::move(Fake)) {}
    TFake& FFake;
    fw::TScopedService<TService> FScope;
};

// The whole host: every service installed as a recording fake, one journal, the log collected. Declare it first in a
// fixture, so that it outlives what it serves. Its end fails the test for every error that was logged and not taken,
// and, where FailOnLeftovers is set, for every registration that still stands.
class TFakeHost {
    fw::TFormatSettings FFormerSettings = fw::FormatSettings();
    TJournal FJournal;
    TInstalled<fw::TCustomMarketAdapter, TFakeMarketAdapter> FMarket{FJournal};
    TInstalled<fw::TCustomSubscribeAdapter, TFakeSubscribeAdapter> FSubscriptions{FJournal};
    TInstalled<fw::TCustomLanguageManager, TFakeLanguageManager> FLanguage{FJournal};
    TInstalled<fw::TCustomConfigManager, TFakeConfigManager> FConfig{FJournal};
    TInstalled<fw::TCustomUserAppProfile, TFakeUserAppProfile> FProfile;
    TInstalled<fw::TCustomLookAndFeelService, TFakeLookAndFeelService> FLookAndFeel{FJournal};
    TInstalled<fw::TCustomTimerControl, TFakeTimerControl> FTimer{FJournal};
    TInstalled<fw::TCustomGlobalChannelManager, TFakeGlobalChannelManager> FChannels{FJournal};
    TInstalled<fw::TEditorManager, TFakeEditorManager> FEditors{FJournal};
    TInstalled<fw::TCustomMessageBoxCtrl, TFakeMessageBoxCtrl> FMessageBox{FJournal};
    TInstalled<fw::TCustomFormatter, TFakeFormatter> FFormatter;
    TInstalled<fw::TCustomExchangeListComparer, TFakeExchangeListComparer> FExchangeComparer{FJournal};
    TInstalled<fw::TCustomSeriesComparer, TFakeSeriesComparer> FSeriesComparer{FJournal};
    TInstalled<fw::TCustomOrderAdapter, TFakeOrderAdapter> FOrders{FJournal};
    TInstalled<fw::TCustomOrderActionManager, TFakeOrderActionManager> FOrderActions{FJournal};
    TInstalled<fw::TCustomPositionAdapter, TFakePositionAdapter> FPositions{FJournal};
    std::vector<fw::TLogEntry> FLogged;
    fw::TConnection FLogLink;

public:
    TFakeHost();
    ~TFakeHost();
    TFakeHost(const TFakeHost&) = delete;
    TFakeHost& operator=(const TFakeHost&) = delete;

    TJournal& Journal = FJournal;
    TFakeMarketAdapter& Market = *FMarket;
    TFakeSubscribeAdapter& Subscriptions = *FSubscriptions;
    TFakeLanguageManager& Language = *FLanguage;
    TFakeConfigManager& Config = *FConfig;
    TFakeUserAppProfile& Profile = *FProfile;
    TFakeLookAndFeelService& LookAndFeel = *FLookAndFeel;
    TFakeTimerControl& Timer = *FTimer;
    TFakeGlobalChannelManager& Channels = *FChannels;
    TFakeEditorManager& Editors = *FEditors;
    TFakeMessageBoxCtrl& MessageBox = *FMessageBox;
    TFakeFormatter& Formatter = *FFormatter;
    TFakeExchangeListComparer& ExchangeComparer = *FExchangeComparer;
    TFakeSeriesComparer& SeriesComparer = *FSeriesComparer;
    TFakeOrderAdapter& Orders = *FOrders;
    TFakeOrderActionManager& OrderActions = *FOrderActions;
    TFakePositionAdapter& Positions = *FPositions;

    bool FailOnLeftovers = false;

    // Everything that was logged since the last TakeLog/TakeErrors: "key" or "key(argument, ...)".
    std::vector<fw::Text> TakeLog();
    // Entries of error level only; they leave the log, the others stay. A dispatcher's line about a handler that threw
    // is one of them.
    std::vector<fw::Text> TakeErrors();
    std::vector<fw::Text> ErrorsLogged() const;                           // the same, and they stay
    const std::vector<fw::TLogEntry>& Logged() const { return FLogged; }  // all levels, in order

    // Registrations that still stand, a line each; empty after everything was closed.
    std::vector<fw::Text> Leftovers() const;
};

}  // namespace support
