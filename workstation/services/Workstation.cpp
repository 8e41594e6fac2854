// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/Workstation.h"

#include <algorithm>

#include "framework/base/Clock.h"
#include "framework/base/Numbers.h"
#include "workstation/market/MarketDay.h"
#include "workstation/preferences/PreferenceTable.h"
#include "workstation/preferences/StoredPreferences.h"

namespace ws {

namespace {

constexpr const char* kKeyUser = "User";
constexpr int kSampleUtcOffsetMinutes = 8 * 60;  // the sample's exchanges keep Hong Kong time
constexpr int kTicksPerMarketStep = 1000 / kTimerPeriodMs;
constexpr int kTicksPerRetry = 3000 / kTimerPeriodMs;  // a try may wait a second for another program's lock

std::string Now() { return MarketTimeText(fw::TClock::Now(), kSampleUtcOffsetMinutes); }

}  // namespace

std::string SampleToday() { return MarketDayText(MarketDayAt(fw::TClock::Now(), kSampleUtcOffsetMinutes)); }

TOpenedStore TWorkstation::OpenStore(const TWorkstationOptions& Options) {
    const auto File = Options.StoreFile.empty() ? DefaultStorePath() : Options.StoreFile;
    return Options.InMemory ? TStore::InMemoryCopyOf(File) : TStore::OpenFile(File, Now());
}

TWorkstation::TWorkstation(const TWorkstationOptions& Options)
    : FSeed(Options.Seed),
      FSampleFolder(Options.SampleFolder),
      FEnvironmentFormat(Options.NumberFormat),
      FStore([&] {
          auto Opened = OpenStore(Options);
          FNotices = std::move(Opened.Notices);
          return std::move(Opened.Store);
      }()),
      FConfig(*FStore, TSkinTable::Embedded()),
      FLanguage(TTextTable::Embedded()),
      FLookAndFeel(FConfig),
      FExchange([this](const std::string& Symbol) { return PaperContractOf(Symbol); },
                [this](std::function<void()> Task) { FQueue.Post(std::move(Task)); }, {.Seed = Options.Seed}),
      FSubscriptions(FMarket, FQueue,
                     {[this](const std::string& Symbol) { FWalk->Watch(Symbol); },
                      [this](const std::string& Symbol) { return QuoteOf(Symbol); }, [this] { return FWalk->Now(); }}),
      FEditors([this](const fw::Text& Typed) { return FSymbols.Convert(Typed); },
               [this](std::function<void()> Task) { FQueue.Post(std::move(Task)); }),
      FFormatter([this](const fw::Text& Symbol) { return QuoteFormOf(Symbol); }) {
    auto Sample = PrepareSampleMarket(*FStore, FSampleFolder, SampleToday());
    FNotices.insert(FNotices.end(), Sample.Notices.begin(), Sample.Notices.end());
    FMarket.OnRequestSymbol = [this](const fw::Text& Symbol) { FSubscriptions.Request(Symbol); };
    LoadMarket();
    FWalk = std::make_unique<TQuoteWalk>(FMarket.Market(), FSeed, FStart);
    OpenOrders();
    FConfig.OnChanged = [this] { FollowConfig(); };
    FConfig.OnChanged();
    const auto Problems = CheckStoredPreferences(FStore->LoadSettings());
    FNotices.insert(FNotices.end(), Problems.begin(), Problems.end());

    const auto Last = FStore->ReadSetting(kWorkstationSection, kKeyUser).value_or("");
    if (!SetUser(Options.User.empty() ? Last : Options.User) && !FTrading.Users.empty()) {
        if (!Options.User.empty()) FNotices.push_back({"Res_UserUnknown", {Options.User, FTrading.Users.front().Code}});
        SetUser(FTrading.Users.front().Code);
    }
    Install();
}

void TWorkstation::OpenOrders() {
    FOrderSystem = std::make_unique<TOrderSystem>(
        *FStore, FExchange,
        TOrderHost{[this](const std::string& Symbol) { return MarketDayOf(Symbol); },
                   [this](const std::string& Symbol) { return SettlementOf(Symbol); },
                   [this](std::function<void()> Task) { FQueue.Post(std::move(Task)); }});
    FPositions = std::make_unique<TPositionService>(*FOrderSystem, FSubscriptions);
    const auto Open = std::count_if(FOrderSystem->Orders().begin(), FOrderSystem->Orders().end(),
                                    [](const auto& Row) { return Row.State == EOrderState::Unknown; });
    if (Open > 0) FNotices.push_back({"Res_OrdersUnknown", {std::to_string(Open)}});
}

TWorkstation::~TWorkstation() {
    Uninstall();
    fw::SetNumberFormat({});
}

const TQuoteRow* TWorkstation::QuoteOf(const std::string& Symbol) {
    const auto* Quote = FWalk->QuoteOf(Symbol);
    return Quote && !Quote->Time.empty() ? Quote : nullptr;
}

THeldQuantities TWorkstation::HeldOf(const std::string& Account) const {
    THeldQuantities Result;
    for (const auto& Holding : FOrderSystem->Holdings(Account)) Result[Holding.Symbol] = Holding.Qty;
    return Result;
}

void TWorkstation::Install() {
    fw::TCustomConfigManager::SetInstance(&FConfig);
    fw::TCustomLanguageManager::SetInstance(&FLanguage);
    fw::TCustomUserAppProfile::SetInstance(&FProfile);
    fw::TCustomLookAndFeelService::SetInstance(&FLookAndFeel);
    fw::TCustomTimerControl::SetInstance(&FTimer);
    fw::TCustomGlobalChannelManager::SetInstance(&FChannels);
    fw::TCustomMessageBoxCtrl::SetInstance(&FMessageBox);
    fw::TCustomMarketAdapter::SetInstance(&FMarket);
    fw::TCustomSubscribeAdapter::SetInstance(&FSubscriptions);
    fw::TEditorManager::SetInstance(&FEditors);
    fw::TCustomPositionAdapter::SetInstance(FPositions.get());
    fw::TCustomOrderAdapter::SetInstance(&FOrders);
    fw::TCustomOrderActionManager::SetInstance(&FOrderActions);
    fw::TCustomFormatter::SetInstance(&FFormatter);
    fw::TCustomExchangeListComparer::SetInstance(&FExchangeOrder);
    fw::TCustomSeriesComparer::SetInstance(&FSeriesOrder);
}

void TWorkstation::Uninstall() {
    fw::TCustomConfigManager::SetInstance(nullptr);
    fw::TCustomLanguageManager::SetInstance(nullptr);
    fw::TCustomUserAppProfile::SetInstance(nullptr);
    fw::TCustomLookAndFeelService::SetInstance(nullptr);
    fw::TCustomTimerControl::SetInstance(nullptr);
    fw::TCustomGlobalChannelManager::SetInstance(nullptr);
    fw::TCustomMessageBoxCtrl::SetInstance(nullptr);
    fw::TCustomMarketAdapter::SetInstance(nullptr);
    fw::TCustomSubscribeAdapter::SetInstance(nullptr);
    fw::TEditorManager::SetInstance(nullptr);
    fw::TCustomPositionAdapter::SetInstance(nullptr);
    fw::TCustomOrderAdapter::SetInstance(nullptr);
    fw::TCustomOrderActionManager::SetInstance(nullptr);
    fw::TCustomFormatter::SetInstance(nullptr);
    fw::TCustomExchangeListComparer::SetInstance(nullptr);
    fw::TCustomSeriesComparer::SetInstance(nullptr);
}

void TWorkstation::LoadMarket() {
    FMarket.Load(FStore->LoadMarket());
    FTrading = FStore->LoadTrading();
    FLanguage.TakeNames(FMarket.Market());
    FSymbols = TSymbolConverter(FMarket.Market().Products);
}

void TWorkstation::ReloadMarket() {
    LoadMarket();
    FWalk->Replace(FMarket.Market());
    FYesterday.reset();
    FSubscriptions.MarketChanged();
    FMarket.NotifyListsChanged();
}

void TWorkstation::Tick() {
    FTimer.Tick();
    if (++FTicks % kTicksPerMarketStep == 0)
        FSubscriptions.QuotesChanged(FWalk->Step(kTicksPerMarketStep * kTimerPeriodMs / 1000.0));
    FExchange.Tick();
    if (FTicks % kTicksPerRetry == 0) FOrderSystem->Retry();
}

bool TWorkstation::SetUser(const std::string& Code) {
    const auto User =
        std::find_if(FTrading.Users.begin(), FTrading.Users.end(), [&](const auto& R) { return R.Code == Code; });
    if (User == FTrading.Users.end()) return false;
    std::vector<TAccountRow> Accounts;
    for (const auto& AccountCode : User->Accounts) {
        const auto It = std::find_if(FTrading.Accounts.begin(), FTrading.Accounts.end(),
                                     [&](const auto& R) { return R.Code == AccountCode; });
        Accounts.push_back(It == FTrading.Accounts.end() ? TAccountRow{AccountCode, ""} : *It);
    }
    FProfile.SetUser(*User);
    FConfig.SetUser(Code);
    FEditors.SetAccounts(std::move(Accounts), User->DefaultAccount);
    FStore->WriteSetting(kWorkstationSection, kKeyUser, Code);
    return true;
}

void TWorkstation::SetLanguage(int Language) {
    const bool Known = Language >= 0 && Language < kLanguageCount;
    FConfig.WriteString(kWorkstationSection, kPreferenceLanguage, std::to_string(Known ? Language : kLanguageEnglish));
}

void TWorkstation::SetSkin(const std::string& Skin) { FConfig.WriteString(kWorkstationSection, kPreferenceSkin, Skin); }

bool TWorkstation::SetNumberFormat(const std::string& Name) {
    if (!IsAllowed(*FindPreference(kWorkstationSection, kPreferenceNumberFormat), Name)) return false;
    FConfig.WriteString(kWorkstationSection, kPreferenceNumberFormat, Name);
    return true;
}

// Before the views are told of a change. A view reads the skin's colours as options, and takes them up once more when
// the options' own news reach it: the skin's name first.
void TWorkstation::FollowConfig() {
    FLanguage.SetLanguage(FConfig.ReadInteger(kWorkstationSection, kPreferenceLanguage));
    const auto Name = FConfig.ReadString(kWorkstationSection, kPreferenceNumberFormat);
    const auto Format = Name.empty() ? FEnvironmentFormat : fw::FindNumberFormat(Name);
    if (Format) fw::SetNumberFormat(*Format);
    FLookAndFeel.Follow();
}

TImportReport TWorkstation::ImportChain(const std::filesystem::path& File, const TChainOptions& Options,
                                        bool SkipBadLines, const TChainProgress& Reading,
                                        const TStoreProgress& Writing) {
    auto Chain = ReadChainFile(File, Options, Reading);
    TImportReport Report;
    Report.BadLines = Chain.BadLines;
    if (!Chain.BadLines.empty() && !SkipBadLines) return Report;
    Report.Changes = ApplyChainImport(*FStore, Chain, {}, TTextTable::Embedded(), Writing);
    Report.Applied = true;
    ReloadMarket();
    return Report;
}

std::vector<TStoreNotice> TWorkstation::ResetSample() {
    auto Outcome = ResetSampleMarket(*FStore, FSampleFolder, SampleToday());
    ReloadMarket();
    FOrderSystem->Reload();
    if (!SetUser(User().Code) && !FTrading.Users.empty()) SetUser(FTrading.Users.front().Code);
    return std::move(Outcome.Notices);
}

std::string TWorkstation::MarketDayOf(const std::string& Symbol) const {
    const auto* Product = FMarket.FindProduct(Symbol);
    return FWalk->MarketDay(Product ? Product->Exchange : "");
}

std::optional<TPaperContract> TWorkstation::PaperContractOf(const std::string& Symbol) {
    const auto* Product = FMarket.FindProduct(Symbol);
    if (!Product) return std::nullopt;
    const bool Expired = !Product->ExpiryDate.empty() && Product->ExpiryDate < MarketDayOf(Symbol);
    return TPaperContract{FWalk->QuoteOf(Symbol), Expired, fw::TextToFloatDef(Product->LotSize, 1.0)};
}

// The market's own where it states one; of a simulated contract, where the simulation starts.
std::optional<double> TWorkstation::SettlementOf(const std::string& Symbol) {
    const auto* Product = FMarket.FindProduct(Symbol);
    if (!Product) return std::nullopt;
    if (!FYesterday) FYesterday = std::make_unique<TQuoteWalk>(FMarket.Market(), FSeed, FStart);
    const auto* Quote = FYesterday->QuoteOf(Symbol);
    if (!Quote || Quote->PreviousSettlement) return Quote ? Quote->PreviousSettlement : std::nullopt;
    const auto* Series = FMarket.FindSeries(Product->Exchange, Product->Series);
    return Series && !Series->Imported ? Quote->Last : std::nullopt;
}

std::optional<TQuoteForm> TWorkstation::QuoteFormOf(const std::string& Symbol) const {
    const auto* Product = FMarket.FindProduct(Symbol);
    if (!Product) return std::nullopt;
    const auto* Series = FMarket.FindSeries(Product->Exchange, Product->Series);
    TQuoteForm Form{Series ? Series->Decimals : 2, Product->DisplayFactor};
    // A factor of 100 moves the point by two: as many decimals fewer.
    for (double Factor = Form.DisplayFactor.value_or(1.0); Factor >= 10 && Form.Decimals > 0; Factor /= 10)
        --Form.Decimals;
    return Form;
}

bool TWorkstation::HasOwners() const {
    return FConfig.HasOwners() || FLookAndFeel.HasOwners() || FTimer.HasOwners() || FChannels.HasOwners() ||
           FMarket.HasOwners() || FSubscriptions.HasOwners() || FEditors.HasEditors();
}

}  // namespace ws
