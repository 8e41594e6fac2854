// SPDX-License-Identifier: GPL-3.0-or-later
// How long the symbol selector takes to open and to filter, with everything that a user waits for: the chain is read,
// the window laid out, the visible quotes asked for, delivered and painted. Prints medians; nothing here is a test.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

#include <QApplication>

#include "workstation/market/QuoteWalk.h"
#include "workstation/renderers/QtText.h"
#include "workstation/resources/Texts.h"
#include "workstation/selector/SymbolSelector.h"
#include "workstation/services/FormatterService.h"
#include "workstation/services/LanguageService.h"
#include "workstation/services/SubscriptionService.h"

namespace {

constexpr double kUnderlying = 24000;
constexpr int kRounds = 21;

// One future, and a call and a put on every strike around the underlying.
ws::TMarketSet MarketOf(int Strikes) {
    ws::TMarketSet Market;
    Market.Exchanges.push_back({"HKFE", "", "", "", true, "", 0, 480});
    ws::TSeriesRow Series;
    Series.Exchange = "HKFE";
    Series.Code = "HSI";
    Series.UnderlyingLast = kUnderlying;
    Series.Decimals = 0;
    Market.Series.push_back(Series);
    const auto Add = [&](const std::string& Symbol, int Type, const std::string& Strike, const char* Side) {
        ws::TProductRow Row;
        Row.Symbol = Symbol;
        Row.Exchange = "HKFE";
        Row.Series = "HSI";
        Row.ProductType = Type;
        Row.ExpiryDate = "2099/12/30";
        Row.StrikePrice = Strike;
        Row.CallPutCode = Side;
        Market.Products.push_back(Row);
    };
    Add("HSIZ9", 2, "", "");
    for (int i = 0; i < Strikes; ++i) {
        const auto Strike = std::to_string(static_cast<int>(kUnderlying) + (i - Strikes / 2) * 4);
        Add("HSI" + Strike + "L9", 3, Strike, "C");
        Add("HSI" + Strike + "X9", 3, Strike, "P");
    }
    return Market;
}

double MedianMs(const std::function<void()>& Body) {
    std::vector<double> Times;
    for (int i = 0; i < kRounds; ++i) {
        const auto Begin = std::chrono::steady_clock::now();
        Body();
        Times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - Begin).count());
    }
    std::sort(Times.begin(), Times.end());
    return Times[Times.size() / 2];
}

void Measure(int Strikes) {
    const ws::TMarketSet Set = MarketOf(Strikes);
    ws::TMarketService Market;
    Market.Load(Set);
    ws::TQuoteWalk Walk(Set, 1, std::chrono::system_clock::now());
    ws::TLoopQueue Queue;
    ws::TSubscriptionService Subscriptions(
        Market, Queue,
        {[&](const std::string& S) { Walk.Watch(S); }, [&](const std::string& S) { return Walk.QuoteOf(S); },
         [&] { return Walk.Now(); }});
    ws::TFormatterService Formatter([](const fw::Text&) { return ws::TQuoteForm{0, {}}; });
    ws::TLanguageService Language(ws::TTextTable::Embedded());
    fw::TCustomMarketAdapter::SetInstance(&Market);
    fw::TCustomSubscribeAdapter::SetInstance(&Subscriptions);
    fw::TCustomFormatter::SetInstance(&Formatter);
    fw::TCustomLanguageManager::SetInstance(&Language);
    ws::TRenderContext Context;
    Context.SetSkin("Light");

    std::unique_ptr<ws::TSymbolSelector> Selector;
    const auto Open = [&] {
        Selector = std::make_unique<ws::TSymbolSelector>(
            Context, [&](const fw::TSelectedMarket&) { return kUnderlying; }, nullptr, nullptr);
        Selector->Model().SetMarket({"HKFE", "HSI", "2099-12"});
        Selector->resize(400, 400);
        Selector->show();
        QApplication::processEvents();
        Queue.Pump();
        Selector->View().viewport()->repaint();
    };
    const double Opening = MedianMs(Open);
    const char* const Typed[] = {"2", "24", "240", "2400", "24000", "24000c", "hsi24", "p", ""};
    double Slowest = 0;
    for (const char* Text : Typed)
        Slowest = std::max(Slowest, MedianMs([&] {
                               Selector->Search().setText(QStringLiteral("#"));
                               Selector->Search().setText(QString::fromUtf8(Text));
                               Queue.Pump();
                               Selector->View().viewport()->repaint();
                           }));
    std::printf("%5d strikes: opens in %6.2f ms, filters in %6.2f ms (slowest of %zu filters, emptied each time)\n",
                Strikes, Opening, Slowest, std::size(Typed));
    Selector.reset();
    fw::TCustomMarketAdapter::SetInstance(nullptr);
    fw::TCustomSubscribeAdapter::SetInstance(nullptr);
    fw::TCustomFormatter::SetInstance(nullptr);
    fw::TCustomLanguageManager::SetInstance(nullptr);
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication Application(ArgumentCount, Arguments);
    for (const int Strikes : {100, 1000, 5000}) Measure(Strikes);
}
