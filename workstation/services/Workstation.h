// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>

#include "framework/base/Clock.h"
#include "framework/base/NumberFormat.h"
#include "workstation/market/ChainStore.h"
#include "workstation/market/QuoteWalk.h"
#include "workstation/market/SymbolForms.h"
#include "workstation/services/ChannelService.h"
#include "workstation/services/ConfigService.h"
#include "workstation/services/EditorService.h"
#include "workstation/services/FormatterService.h"
#include "workstation/services/LanguageService.h"
#include "workstation/services/LookAndFeelService.h"
#include "workstation/services/MarketService.h"
#include "workstation/services/MessageBoxService.h"
#include "workstation/services/OrderActionService.h"
#include "workstation/services/OrderService.h"
#include "workstation/services/PositionService.h"
#include "workstation/services/ProfileService.h"
#include "workstation/services/SubscriptionService.h"
#include "workstation/services/TimerService.h"
#include "workstation/services/TradingFacts.h"
#include "workstation/store/SampleStore.h"
#include "workstation/store/Store.h"
#include "workstation/trading/OrderSystem.h"
#include "workstation/trading/PaperExchange.h"

namespace ws {

struct TWorkstationOptions {
    std::filesystem::path StoreFile;     // empty: the default file
    bool InMemory = false;               // work on a copy; nothing is written to the file
    std::filesystem::path SampleFolder;  // files of the sample market
    std::string User;                    // empty: who was logged in last, else the first
    std::uint64_t Seed = 20260101;       // of the simulated market
    fw::TNumberFormat NumberFormat;      // of the environment: where the user has chosen none
};

struct TImportReport {
    TChainChanges Changes;
    std::vector<TBadLine> BadLines;
    bool Applied = false;  // false: refused because of its bad lines
};

// The workstation without its windows: the store, the market, and every service of the framework installed for as long
// as it lives. Whoever owns the loop calls Pump when OnWork says so and Tick every kTimerPeriodMs.
class TWorkstation {
public:
    // Opens or creates the store, brings the sample market up to date and installs the services. Raises EStoreError or
    // EMarketRefusal; nothing is installed then. What the user should know stands in Notices().
    explicit TWorkstation(const TWorkstationOptions& Options);
    ~TWorkstation();
    TWorkstation(const TWorkstation&) = delete;
    TWorkstation& operator=(const TWorkstation&) = delete;

    const std::vector<TStoreNotice>& Notices() const { return FNotices; }

    int Pump() { return FQueue.Pump(); }
    void Tick();
    void SetOnWork(std::function<void()> OnWork) { FQueue.OnPosted = std::move(OnWork); }

    // Users of the store; SetUser is false for a code that none has.
    const std::vector<TUserRow>& Users() const { return FTrading.Users; }
    const TUserRow& User() const { return FProfile.User(); }
    bool SetUser(const std::string& Code);

    // Language and skin are remembered, as any change of the preferences in Config() is, and hold at once. Views are
    // told of a skin here; of a language by whoever owns the views.
    void SetLanguage(int Language);
    void SetSkin(const std::string& Skin);

    // How numbers are written and read, by name; "": as the environment has it. Remembered, and shown by every view at
    // once. False, and nothing changes, for an unknown name.
    bool SetNumberFormat(const std::string& Name);

    // Reads an option-chain file into the store and shows it to every view. A file with bad lines is refused unless
    // SkipBadLines. Raises EMarketRefusal or EStoreError; nothing has changed then.
    TImportReport ImportChain(const std::filesystem::path& File, const TChainOptions& Options, bool SkipBadLines,
                              const TChainProgress& Reading = {}, const TStoreProgress& Writing = {});
    // Puts the sample market back; imported exchanges stay. Returns what the user should know.
    std::vector<TStoreNotice> ResetSample();

    TStore& Store() { return *FStore; }
    TOrderSystem& Orders() { return *FOrderSystem; }
    IOrderFacts& OrderFacts() { return FOrderFacts; }
    TOrderService& OrderService() { return FOrders; }
    TOrderActionService& OrderActions() { return FOrderActions; }
    TLanguageService& Language() { return FLanguage; }
    TMarketService& Market() { return FMarket; }
    TSubscriptionService& Subscriptions() { return FSubscriptions; }
    TConfigService& Config() { return FConfig; }
    TLookAndFeelService& LookAndFeel() { return FLookAndFeel; }
    TMessageBoxService& MessageBox() { return FMessageBox; }
    TChannelService& Channels() { return FChannels; }

    // What the underlying of a series costs now, real price units; nothing where nobody knows.
    std::optional<double> UnderlyingOf(const std::string& Exchange, const std::string& Series) const {
        return FWalk->UnderlyingOf(Exchange, Series);
    }

    // True while a view has a registration anywhere: for the check that a closed view left nothing behind.
    bool HasOwners() const;

private:
    TOpenedStore OpenStore(const TWorkstationOptions& Options);
    void FollowConfig();
    void LoadMarket();
    void OpenOrders();
    void ReloadMarket();
    void Install();
    void Uninstall();
    std::optional<TPaperContract> PaperContractOf(const std::string& Symbol);
    std::string MarketDayOf(const std::string& Symbol) const;
    std::optional<double> SettlementOf(const std::string& Symbol);
    const TQuoteRow* QuoteOf(const std::string& Symbol);  // null while no data have come
    THeldQuantities HeldOf(const std::string& Account) const;
    std::optional<TQuoteForm> QuoteFormOf(const std::string& Symbol) const;

    const std::uint64_t FSeed;  // of the simulated market, and when it begins
    const TQuoteWalk::TTimePoint FStart = fw::TClock::Now();
    std::filesystem::path FSampleFolder;
    fw::TNumberFormat FEnvironmentFormat;
    std::vector<TStoreNotice> FNotices;
    std::unique_ptr<TStore> FStore;
    TTradingSet FTrading;
    TSymbolConverter FSymbols{{}};
    TLoopQueue FQueue;
    int FTicks = 0;

    TConfigService FConfig;
    TLanguageService FLanguage;
    TProfileService FProfile;
    TLookAndFeelService FLookAndFeel;
    TTimerService FTimer;
    TChannelService FChannels;
    TMessageBoxService FMessageBox{FLanguage};
    TMarketService FMarket;
    std::unique_ptr<TQuoteWalk> FWalk;
    // The walk before its first step: what it starts from was settled yesterday. Made when a settlement is asked for.
    std::unique_ptr<TQuoteWalk> FYesterday;
    TPaperExchange FExchange;
    std::unique_ptr<TOrderSystem> FOrderSystem;
    TSubscriptionService FSubscriptions;
    TEditorService FEditors;
    std::unique_ptr<TPositionService> FPositions;
    TOrderService FOrders{FMarket, FLanguage};
    TTradingFacts FOrderFacts{{FMarket, FProfile, FConfig, [this](const auto& Symbol) { return QuoteOf(Symbol); },
                               [this](const auto& Account) { return HeldOf(Account); },
                               [this] { return FWalk->Now(); }}};
    TOrderActionService FOrderActions{FOrderFacts,
                                      FLanguage,
                                      {[this](const auto& Orders) { FOrderSystem->PlaceAll(Orders); },
                                       [this](auto Task) { FQueue.Post(std::move(Task)); }}};
    TFormatterService FFormatter;
    TExchangeOrder FExchangeOrder{FMarket};
    TSeriesOrder FSeriesOrder{FMarket};
};

// The market day that decides what has expired when the sample is laid out.
std::string SampleToday();

}  // namespace ws
