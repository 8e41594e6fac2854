// SPDX-License-Identifier: GPL-3.0-or-later
// The sample that ships: what it must hold so that every rule of the view meets a contract of its kind.
#include <algorithm>
#include <cmath>
#include <functional>
#include <set>

#include "tests/store/StoreFixture.h"
#include "workstation/store/MarketCalendar.h"
#include "workstation/store/SampleLine.h"
#include "workstation/store/SampleMarket.h"

namespace ws::test {
namespace {

const TSampleMarket& Shipped() {
    static const TSampleMarket Sample{WS_SAMPLE_FOLDER};
    return Sample;
}

// The market so many months after the base month, laid out once for all tests.
const TSampleSet& After(int Shift) {
    static std::map<int, TSampleSet> Sets;
    const auto It = Sets.find(Shift);
    return It != Sets.end() ? It->second : Sets.emplace(Shift, Shipped().Expand(Shift)).first->second;
}

const TSampleSet& Base() { return After(0); }

const TProductRow* Find(const TSampleSet& Set, const std::string& Symbol) {
    for (const auto& P : Set.Market.Products)
        if (P.Symbol == Symbol) return &P;
    return nullptr;
}

using TSeriesKey = std::pair<std::string, std::string>;

std::string MonthCode(const TProductRow& P) {
    std::string Code = P.ExpiryDate.substr(0, 4) + "-" + P.ExpiryDate.substr(5, 2);
    const auto Week = P.Attributes.find("WeeklyOptionExp");
    if (Week != P.Attributes.end()) Code += "-" + Week->second;
    return Code;
}

struct TMonth {
    int Futures = 0;
    std::set<std::string> Strikes;
    std::set<std::string> Days;
    int Options = 0;
};

std::map<TSeriesKey, std::map<std::string, TMonth>> Months(const TSampleSet& Set) {
    std::map<TSeriesKey, std::map<std::string, TMonth>> All;
    for (const auto& P : Set.Market.Products) {
        TMonth& Month = All[{P.Exchange, P.Series}][MonthCode(P)];
        Month.Days.insert(P.ExpiryDate);
        if (P.ProductType == 2) ++Month.Futures;
        if (P.ProductType != 3) continue;
        ++Month.Options;
        Month.Strikes.insert(P.StrikePrice);
    }
    return All;
}

TEST(SampleMarket, LoadsWithoutABadLine) {
    for (const auto& P : Shipped().Problems()) ADD_FAILURE() << P.File << ":" << P.Line << " " << P.Key;
    EXPECT_EQ(Shipped().BaseMonth(), "2026-12");
    EXPECT_GT(Base().Market.Products.size(), 2000u);
    EXPECT_EQ(Base().Market.Products.size(), Base().BaseSymbols.size());
}

TEST(SampleMarket, SymbolsFollowTheExchangeForm) {
    const TProductRow* Monthly = Find(Base(), "HSI27000L6");
    ASSERT_NE(Monthly, nullptr);
    EXPECT_EQ(Monthly->ExpiryDate, "2026/12/30");
    EXPECT_EQ(Monthly->CallPutCode, "C");
    EXPECT_EQ(Monthly->StrikePrice, "27000");
    EXPECT_EQ(Monthly->RelatedSymbol, "HSIZ6");
    const TProductRow* Put = Find(Base(), "HSI27000M7");  // January put
    ASSERT_NE(Put, nullptr);
    EXPECT_EQ(Put->CallPutCode, "P");
    EXPECT_EQ(Put->ExpiryDate, "2027/01/28");
    EXPECT_NE(Find(Base(), "HSI27000A7"), nullptr);
    const TProductRow* Weekly = Find(Base(), "HSI27000L6W18");
    ASSERT_NE(Weekly, nullptr);
    EXPECT_EQ(Weekly->ExpiryDate, "2026/12/18");
    EXPECT_EQ(Weekly->Attributes.at("WeeklyOptionExp"), "W3");
    EXPECT_EQ(Weekly->RelatedSymbol, "HSIZ6");
    for (const char* Future : {"HSIZ6", "HSIF7", "HSIG7", "HSIH7", "MHIZ6", "HHIZ6"})
        EXPECT_NE(Find(Base(), Future), nullptr) << Future;
    EXPECT_NE(Find(Base(), "WHT2612C600"), nullptr);
    EXPECT_NE(Find(Base(), "HKB110.00L6"), nullptr);
}

TEST(SampleMarket, IndexContractsHaveTheirMultiplierAndStrikeStep) {
    struct TRule {
        const char* Series;
        double Multiplier;
        int Step;
    };
    for (const TRule& Rule : {TRule{"HSI", 50, 200}, TRule{"MHI", 10, 200}, TRule{"HHI", 50, 100}}) {
        SCOPED_TRACE(Rule.Series);
        int Smallest = 1 << 30;
        const auto All = Months(Base());
        for (const auto& [Code, Month] : All.at({"HKFE", Rule.Series})) {
            std::vector<int> Strikes;
            for (const auto& Text : Month.Strikes) Strikes.push_back(WholeFromText(Text).value());
            std::sort(Strikes.begin(), Strikes.end());
            for (std::size_t i = 1; i < Strikes.size(); ++i) {
                EXPECT_EQ((Strikes[i] - Strikes[i - 1]) % Rule.Step, 0);
                Smallest = std::min(Smallest, Strikes[i] - Strikes[i - 1]);
            }
        }
        EXPECT_EQ(Smallest, Rule.Step);
        for (const auto& P : Base().Market.Products)
            if (P.Exchange == "HKFE" && P.Series == Rule.Series && P.ProductType != 5) {
                EXPECT_EQ(P.Multiplier, Rule.Multiplier);
            }
    }
}

TEST(SampleMarket, IndexHasMonthsAndWeeks) {
    const auto Codes = Months(Base()).at({"HKFE", "HSI"});
    const auto Weekly = std::count_if(Codes.begin(), Codes.end(), [](const auto& E) { return E.first.size() > 7; });
    EXPECT_GE(Weekly, 2);
    EXPECT_GE(static_cast<long>(Codes.size()) - Weekly, 4);
}

TEST(SampleMarket, EveryStrikeHasACallAndAPut) {
    for (const auto& [Series, Codes] : Months(Base()))
        for (const auto& [Code, Month] : Codes)
            EXPECT_EQ(Month.Options, 2 * static_cast<int>(Month.Strikes.size())) << Series.second << " " << Code;
}

TEST(SampleMarket, EveryCodeNamesOneExpiryAtAnyTime) {
    for (int Shift = 0; Shift <= 40; ++Shift)
        for (const auto& [Series, Codes] : Months(After(Shift)))
            for (const auto& [Code, Month] : Codes)
                EXPECT_EQ(Month.Days.size(), 1u) << Series.second << " " << Code << " shift " << Shift;
}

// The month selector is bounded by the number of series, so a shorter series list would hide months.
TEST(SampleMarket, EveryExchangeListsAtLeastAsManySeriesAsAnySeriesHasMonthCodes) {
    for (int Shift = 0; Shift <= 40; ++Shift) {
        const TSampleSet& Set = After(Shift);
        std::map<std::string, std::size_t> SeriesCount;
        for (const auto& Row : Set.Market.Series) ++SeriesCount[Row.Exchange];
        for (const auto& [Series, Codes] : Months(Set))
            EXPECT_LE(Codes.size(), SeriesCount[Series.first]) << Series.first << " " << Series.second;
    }
}

TEST(SampleMarket, WeeklyTagsStandAtHkfeOnly) {
    for (const auto& P : Base().Market.Products)
        if (P.Attributes.contains("WeeklyOptionExp")) {
            EXPECT_EQ(P.Exchange, "HKFE") << P.Symbol;
        }
}

// What the sample must have somewhere, by a question to every product.
struct TFeature {
    const char* Why;
    std::function<bool(const TProductRow&)> Has;
};

TEST(SampleMarket, HoldsContractsOfEveryKind) {
    const auto& Market = Base().Market;
    const auto SeriesOf = [&](const TProductRow& P) {
        return *std::find_if(Market.Series.begin(), Market.Series.end(),
                             [&](const auto& S) { return S.Exchange == P.Exchange && S.Code == P.Series; });
    };
    const TFeature Features[] = {
        {"display factor 100", [](const auto& P) { return P.DisplayFactor == 100.0; }},
        {"lot above 1", [](const auto& P) { return NumberFromText(P.LotSize).value_or(1) > 1; }},
        {"no lot stated", [](const auto& P) { return P.LotSize.empty(); }},
        {"numeric symbol", [](const auto& P) { return WholeFromText(P.Symbol).has_value() && P.Symbol.size() == 5; }},
        {"numeric code of an underlying",
         [](const auto& P) { return P.Attributes.contains("ShortCode") && P.Attributes.at("ShortCode") == "00005"; }},
        {"call and put by number", [](const auto& P) { return P.CallPutCode == "1" || P.CallPutCode == "2"; }},
        {"strike with a fraction", [](const auto& P) { return P.StrikePrice.find('.') != std::string::npos; }},
        {"prices in fractions at a second exchange",
         [&](const auto& P) { return P.Exchange == "XDER" && SeriesOf(P).Decimals == 6; }},
        {"another currency", [](const auto& P) { return P.Currency == "USD"; }},
        {"a lot of 0", [](const auto& P) { return P.LotSize == "0"; }},
        {"price steps of another kind",
         [&](const auto& P) {
             return std::any_of(Market.SpreadBands.begin(), Market.SpreadBands.end(),
                                [&](const auto& B) { return B.Code == P.SpreadCode && B.Kind != 1; });
         }},
        {"price steps in the market data only",
         [](const auto& P) { return P.SpreadCode.empty() && P.Attributes.contains("Field73"); }},
        {"known from its market data only", [](const auto& P) { return P.Attributes.contains("DataOnly"); }},
        {"quoted without a price", [](const auto& P) { return P.Attributes.contains("Field3"); }},
        {"an expiry that is no date",
         [](const auto& P) { return P.Attributes.contains("Field29") && !DayFromText(P.Attributes.at("Field29")); }},
        {"symbol of the clearing house", [](const auto& P) { return P.Symbol == "EQX261218C00450000"; }},
        {"exchange that is not offered", [](const auto& P) { return P.Exchange == "XOTC"; }},
    };
    for (const auto& Feature : Features)
        EXPECT_TRUE(std::any_of(Market.Products.begin(), Market.Products.end(), Feature.Has)) << Feature.Why;
}

TEST(SampleMarket, HasAMonthWithFuturesOnlyAndAMonthWithOneStrike) {
    int FuturesOnly = 0, OneStrike = 0;
    for (const auto& [Series, Codes] : Months(Base())) {
        for (const auto& [Code, Month] : Codes) {
            if (Series.first != "HKFE") continue;
            const bool HasOptionsElsewhere =
                std::any_of(Codes.begin(), Codes.end(), [](const auto& E) { return E.second.Options > 0; });
            if (Month.Futures == 1 && Month.Options == 0 && HasOptionsElsewhere) ++FuturesOnly;
            if (Month.Strikes.size() == 1) ++OneStrike;
        }
    }
    EXPECT_GE(FuturesOnly, 1);
    EXPECT_GE(OneStrike, 1);
}

TEST(SampleMarket, ShortCodesNameOneContractAndNoSymbol) {
    std::set<std::string> Codes;
    for (const auto& P : Base().Market.Products)
        if (P.Attributes.contains("ShortCode")) {
            EXPECT_TRUE(Codes.insert(P.Attributes.at("ShortCode")).second);
        }
    EXPECT_GE(Codes.size(), 5u);
    for (const auto& P : Base().Market.Products) EXPECT_FALSE(Codes.contains(P.Symbol)) << P.Symbol;
}

TEST(SampleMarket, PriceStepsHaveBands) {
    std::map<std::string, int> Bands;
    bool OtherKind = false;
    for (const auto& Row : Base().Market.SpreadBands) {
        if (Row.Kind == 1)
            ++Bands[Row.Code];
        else
            OtherKind = true;
    }
    EXPECT_TRUE(OtherKind);
    EXPECT_GE(std::count_if(Bands.begin(), Bands.end(), [](const auto& E) { return E.second >= 3; }), 2);
    EXPECT_GE(Bands.size(), 3u);
}

// A price of the grid must be one that the series' decimals can show.
TEST(SampleMarket, DecimalsShowEveryPriceStep) {
    for (const auto& P : Base().Market.Products) {
        const auto& Series =
            *std::find_if(Base().Market.Series.begin(), Base().Market.Series.end(),
                          [&](const auto& S) { return S.Exchange == P.Exchange && S.Code == P.Series; });
        double Scale = 1;
        for (int i = 0; i < Series.Decimals; ++i) Scale *= 10;
        for (const auto& Band : Base().Market.SpreadBands)
            if (Band.Code == P.SpreadCode && Band.Kind == 1 && Band.Lower < Series.UnderlyingLast) {
                const double Units = Band.Step * Scale;
                EXPECT_NEAR(Units, std::max(1.0, std::round(Units)), 1e-9) << P.Symbol << " " << Band.Code;
            }
    }
}

TEST(SampleMarket, OrderOptionsDifferByExchange) {
    std::map<std::string, std::vector<std::string>> Options;
    for (const auto& Row : Base().Market.OrderOptions) Options[Row.Exchange].push_back(Row.Option);
    EXPECT_EQ(Options["HKFE"], (std::vector<std::string>{"Open", "Close", "Client", "House", "RT"}));
    EXPECT_EQ(Options["XRUN"], std::vector<std::string>{"Close"});
}

TEST(SampleMarket, NamesStandInThreeLanguages) {
    for (const auto& Row : Base().Market.Exchanges) {
        EXPECT_FALSE(Row.NameEn.empty() || Row.NameHant.empty() || Row.NameHans.empty()) << Row.Code;
        EXPECT_NE(Row.NameEn, Row.NameHant);
    }
    for (const auto& Row : Base().Market.Currencies) EXPECT_NE(Row.NameEn, Row.NameHans);
    for (const auto& Row : Base().Market.Series) {
        EXPECT_FALSE(Row.NameHant.empty() || Row.NameHans.empty()) << Row.Code;
        EXPECT_TRUE(Row.UnderlyingLast);
    }
}

TEST(SampleMarket, OneContractIsSilentAndOneIsLate) {
    int Silent = 0, Late = 0;
    for (const auto& Row : Base().Market.Quotes) {
        ASSERT_NE(Find(Base(), Row.Symbol), nullptr);
        Silent += Row.Silent ? 1 : 0;
        Late += Row.DelaySeconds > 0 && Row.DelaySeconds < 10 ? 1 : 0;
    }
    EXPECT_EQ(Silent, 1);
    EXPECT_EQ(Late, 1);
}

TEST(SampleMarket, UsersCoverEveryProfile) {
    std::map<std::string, TUserRow> Users;
    for (const auto& Row : Base().Trading.Users) Users[Row.Code] = Row;
    const TUserRow& Full = Users.at("trader");
    EXPECT_EQ(Full.Rights, (std::vector<std::string>{"OEOpenC", "OEPrin"}));
    EXPECT_EQ(Full.Functions, std::vector<std::string>{"PayOff"});
    EXPECT_GE(Full.Accounts.size(), 3u);
    EXPECT_FALSE(Full.DefaultAccount.empty());
    EXPECT_TRUE(Full.AccountSelectable);
    EXPECT_EQ(Users.at("fixed").UserType, 2);
    EXPECT_FALSE(Users.at("fixed").AccountSelectable);
    EXPECT_TRUE(Users.at("norights").Rights.empty());
    EXPECT_EQ(Users.at("norights").Functions, std::vector<std::string>{"PayOff"});
    EXPECT_TRUE(Users.at("nopayoff").Functions.empty());
    EXPECT_EQ(Base().Trading.Users.front().Code, "trader");  // who is signed on at first
}

TEST(SampleMarket, PositionsAreLongAndShortInOptionsAndFuturesOfSeveralAccounts) {
    std::map<std::string, std::set<std::string>> Kinds;
    for (const auto& Row : Base().Trading.Positions) {
        const TProductRow* P = Find(Base(), Row.Symbol);
        ASSERT_NE(P, nullptr) << Row.Symbol;
        Kinds[Row.Account].insert((P->ProductType == 2 ? "future " : "option ") +
                                  std::string(Row.Qty > 0 ? "long" : "short"));
    }
    EXPECT_EQ(Kinds.at("A100").size(), 4u);
    EXPECT_EQ(Kinds.at("A200").size(), 4u);
}

TEST(SampleMarket, MovedByAnyNumberOfMonthsItStaysOneMarket) {
    for (int Shift = 0; Shift <= 40; ++Shift) {
        SCOPED_TRACE(Shift);
        const TSampleSet& Set = After(Shift);
        ASSERT_EQ(Set.BaseSymbols, Base().BaseSymbols);
        std::set<std::string> Symbols;
        const auto First = *YearMonthFromText("2026-12") + std::chrono::months{Shift};
        for (std::size_t i = 0; i < Set.Market.Products.size(); ++i) {
            const TProductRow& P = Set.Market.Products[i];
            const TProductRow& B = Base().Market.Products[i];
            EXPECT_TRUE(Symbols.insert(P.Symbol).second) << P.Symbol;
            EXPECT_EQ(P.StrikePrice + P.CallPutCode + P.Series, B.StrikePrice + B.CallPutCode + B.Series);
            const auto MonthOf = [](const std::string& Day) {
                return std::stoi(Day.substr(0, 4)) * 12 + std::stoi(Day.substr(5, 2));
            };
            EXPECT_EQ(MonthOf(P.ExpiryDate) - MonthOf(B.ExpiryDate), Shift) << P.Symbol;
            EXPECT_TRUE(DayFromText(P.ExpiryDate)) << P.Symbol;
            if (P.Exchange == "HKFE" && P.ProductType == 2) {
                EXPECT_EQ(P.Symbol[3], "FGHJKMNQUVXZ"[std::stoi(P.ExpiryDate.substr(5, 2)) - 1]) << P.Symbol;
                EXPECT_EQ(P.Symbol[4], P.ExpiryDate[3]) << P.Symbol;
            }
            if (P.Attributes.contains("WeeklyOptionExp")) {
                EXPECT_EQ(P.Symbol.substr(P.Symbol.size() - 3), "W" + P.ExpiryDate.substr(8, 2));
            }
            if (!P.RelatedSymbol.empty()) {
                EXPECT_NE(P.RelatedSymbol, P.Symbol);
            }
        }
        EXPECT_EQ(Shipped().FirstExpiry(Shift).substr(0, 7), TextFromYearMonth(First).replace(4, 1, "/"));
        for (const auto& Row : Set.Trading.Positions) EXPECT_TRUE(Symbols.contains(Row.Symbol)) << Row.Symbol;
        for (const auto& Row : Set.Market.Quotes) EXPECT_TRUE(Symbols.contains(Row.Symbol)) << Row.Symbol;
        for (const auto& P : Set.Market.Products)
            EXPECT_TRUE(P.RelatedSymbol.empty() || Symbols.contains(P.RelatedSymbol));
    }
}

TEST(SampleMarket, IsMovedWhenItsFirstExpiryHasPassed) {
    const std::string First = Shipped().FirstExpiry(0);
    EXPECT_EQ(First, "2026/12/11");
    EXPECT_EQ(Shipped().MonthsFor("2026/11/21"), 0);
    EXPECT_EQ(Shipped().MonthsFor(First), 0);  // the day itself still trades
    EXPECT_EQ(Shipped().MonthsFor("2026/12/12"), 1);
    EXPECT_EQ(Shipped().MonthsFor("2026/12/12", 5), 5);  // never backwards
    EXPECT_EQ(Shipped().MonthsFor("2027/12/31"), 13);
    EXPECT_EQ(Shipped().MonthsFor("2036/12/31"), 121);
    EXPECT_EQ(Shipped().MonthsFor("someday", 2), 2);
}

}  // namespace
}  // namespace ws::test
