// SPDX-License-Identifier: Apache-2.0
// The doors of the services: each class knows the one instance that the host installed.
#include "framework/base/Errors.h"
#include "framework/services/ConfigManager.h"
#include "framework/services/EditorManager.h"
#include "framework/services/Formatter.h"
#include "framework/services/GlobalChannelManager.h"
#include "framework/services/LanguageManager.h"
#include "framework/services/ListComparers.h"
#include "framework/services/LookAndFeelService.h"
#include "framework/services/MarketAdapter.h"
#include "framework/services/MessageBoxCtrl.h"
#include "framework/services/OrderActionManager.h"
#include "framework/services/OrderAdapter.h"
#include "framework/services/PositionAdapter.h"
#include "framework/services/SubscribeAdapter.h"
#include "framework/services/TimerControl.h"
#include "framework/services/UserAppProfile.h"

#include <utility>

namespace fw {

namespace {

// The installed instance of each service class. Lives here and nowhere else, so that the program and every package
// see the same one.
template <class TService>
TService* Slot = nullptr;

template <class TService>
TService& Installed(const char* ClassName) {
    if (!Slot<TService>) throw EServiceMissing(Text(ClassName) + " is not installed");
    return *Slot<TService>;
}

template <class TService>
TService* Install(TService* Service) {
    return std::exchange(Slot<TService>, Service);
}

}  // namespace

TCustomConfigManager::~TCustomConfigManager() = default;
TCustomConfigManager& TCustomConfigManager::GetInstance() {
    return Installed<TCustomConfigManager>("TCustomConfigManager");
}
TCustomConfigManager* TCustomConfigManager::SetInstance(TCustomConfigManager* Service) { return Install(Service); }

TCustomExchangeListComparer::~TCustomExchangeListComparer() = default;
TCustomExchangeListComparer& TCustomExchangeListComparer::GetInstance() {
    return Installed<TCustomExchangeListComparer>("TCustomExchangeListComparer");
}
TCustomExchangeListComparer* TCustomExchangeListComparer::SetInstance(TCustomExchangeListComparer* Service) {
    return Install(Service);
}

TCustomFormatter::~TCustomFormatter() = default;
TCustomFormatter& TCustomFormatter::GetInstance() { return Installed<TCustomFormatter>("TCustomFormatter"); }
TCustomFormatter* TCustomFormatter::SetInstance(TCustomFormatter* Service) { return Install(Service); }

TCustomGlobalChannelManager::~TCustomGlobalChannelManager() = default;
TCustomGlobalChannelManager& TCustomGlobalChannelManager::GetInstance() {
    return Installed<TCustomGlobalChannelManager>("TCustomGlobalChannelManager");
}
TCustomGlobalChannelManager* TCustomGlobalChannelManager::SetInstance(TCustomGlobalChannelManager* Service) {
    return Install(Service);
}

TCustomLanguageManager::~TCustomLanguageManager() = default;
TCustomLanguageManager& TCustomLanguageManager::GetInstance() {
    return Installed<TCustomLanguageManager>("TCustomLanguageManager");
}
TCustomLanguageManager* TCustomLanguageManager::SetInstance(TCustomLanguageManager* Service) {
    return Install(Service);
}

TCustomLookAndFeelService::~TCustomLookAndFeelService() = default;
TCustomLookAndFeelService& TCustomLookAndFeelService::GetInstance() {
    return Installed<TCustomLookAndFeelService>("TCustomLookAndFeelService");
}
TCustomLookAndFeelService* TCustomLookAndFeelService::SetInstance(TCustomLookAndFeelService* Service) {
    return Install(Service);
}

TCustomMarketAdapter::~TCustomMarketAdapter() = default;
TCustomMarketAdapter& TCustomMarketAdapter::GetInstance() {
    return Installed<TCustomMarketAdapter>("TCustomMarketAdapter");
}
TCustomMarketAdapter* TCustomMarketAdapter::SetInstance(TCustomMarketAdapter* Service) { return Install(Service); }

TCustomMessageBoxCtrl::~TCustomMessageBoxCtrl() = default;
TCustomMessageBoxCtrl& TCustomMessageBoxCtrl::GetInstance() {
    return Installed<TCustomMessageBoxCtrl>("TCustomMessageBoxCtrl");
}
TCustomMessageBoxCtrl* TCustomMessageBoxCtrl::SetInstance(TCustomMessageBoxCtrl* Service) { return Install(Service); }

TCustomOrderActionManager::~TCustomOrderActionManager() = default;
TCustomOrderActionManager& TCustomOrderActionManager::GetInstance() {
    return Installed<TCustomOrderActionManager>("TCustomOrderActionManager");
}
TCustomOrderActionManager* TCustomOrderActionManager::SetInstance(TCustomOrderActionManager* Service) {
    return Install(Service);
}

TCustomOrderAdapter::~TCustomOrderAdapter() = default;
TCustomOrderAdapter& TCustomOrderAdapter::GetInstance() {
    return Installed<TCustomOrderAdapter>("TCustomOrderAdapter");
}
TCustomOrderAdapter* TCustomOrderAdapter::SetInstance(TCustomOrderAdapter* Service) { return Install(Service); }

TCustomPositionAdapter::~TCustomPositionAdapter() = default;
TCustomPositionAdapter& TCustomPositionAdapter::GetInstance() {
    return Installed<TCustomPositionAdapter>("TCustomPositionAdapter");
}
TCustomPositionAdapter* TCustomPositionAdapter::SetInstance(TCustomPositionAdapter* Service) {
    return Install(Service);
}

TCustomSeriesComparer::~TCustomSeriesComparer() = default;
TCustomSeriesComparer& TCustomSeriesComparer::GetInstance() {
    return Installed<TCustomSeriesComparer>("TCustomSeriesComparer");
}
TCustomSeriesComparer* TCustomSeriesComparer::SetInstance(TCustomSeriesComparer* Service) { return Install(Service); }

TCustomSubscribeAdapter::~TCustomSubscribeAdapter() = default;
TCustomSubscribeAdapter& TCustomSubscribeAdapter::GetInstance() {
    return Installed<TCustomSubscribeAdapter>("TCustomSubscribeAdapter");
}
TCustomSubscribeAdapter* TCustomSubscribeAdapter::SetInstance(TCustomSubscribeAdapter* Service) {
    return Install(Service);
}

TCustomTimerControl::~TCustomTimerControl() = default;
TCustomTimerControl& TCustomTimerControl::GetInstance() {
    return Installed<TCustomTimerControl>("TCustomTimerControl");
}
TCustomTimerControl* TCustomTimerControl::SetInstance(TCustomTimerControl* Service) { return Install(Service); }

TCustomUserAppProfile::~TCustomUserAppProfile() = default;
TCustomUserAppProfile& TCustomUserAppProfile::GetInstance() {
    return Installed<TCustomUserAppProfile>("TCustomUserAppProfile");
}
TCustomUserAppProfile* TCustomUserAppProfile::SetInstance(TCustomUserAppProfile* Service) { return Install(Service); }

TEditorManager::~TEditorManager() = default;
TEditorManager& TEditorManager::GetInstance() { return Installed<TEditorManager>("TEditorManager"); }
TEditorManager* TEditorManager::SetInstance(TEditorManager* Service) { return Install(Service); }

TPopupRequestRecord::TPopupRequestRecord() = default;
TPopupRequestRecord::~TPopupRequestRecord() = default;

}  // namespace fw
