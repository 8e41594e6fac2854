// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/base/NumberFormat.h"

#include "tests/services/ServiceFixture.h"

namespace ws {

class TNumberFormatTest : public TServiceFixture {};

TEST_F(TNumberFormatTest, PricesAmountsAndQuantitiesAreWrittenInEveryFormat) {
    const struct {
        const char* Name;
        const char* Price;
        const char* OfSymbol;
        const char* Amount;
        const char* Quantity;
        const char* OfChart;
    } Cases[] = {
        {"C", "1,234.50", "25,873.125", "-1,234,567.50", "12,000", "25,873.46"},
        {"en_US", "1,234.50", "25,873.125", "-1,234,567.50", "12,000", "25,873.46"},
        {"zh_HK", "1,234.50", "25,873.125", "-1,234,567.50", "12,000", "25,873.46"},
        {"de_DE", "1.234,50", "25.873,125", "-1.234.567,50", "12.000", "25.873,46"},
        {"fr_FR", "1\u202F234,50", "25\u202F873,125", "-1\u202F234\u202F567,50", "12\u202F000", "25\u202F873,46"},
    };
    Open();
    auto& Formatter = fw::TCustomFormatter::GetInstance();
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Name);
        ASSERT_TRUE(Station->SetNumberFormat(Case.Name));
        EXPECT_EQ(Formatter.FormatValue(1234.5, fw::kFormatPrice, ""), Case.Price);
        EXPECT_EQ(Formatter.FormatValue(25873.125, fw::kFormatPrice, "HSI26400L6"), Case.OfSymbol);
        EXPECT_EQ(Formatter.FormatValue(-1234567.5, fw::kFormatAmount, ""), Case.Amount);
        EXPECT_EQ(Formatter.FormatValue(12000, fw::kFormatQuantity, ""), Case.Quantity);
        EXPECT_EQ(Formatter.FormatPrice(25873.45678), Case.OfChart);
    }
}

TEST_F(TNumberFormatTest, TheChoiceIsRememberedAndEndsWithTheWorkstation) {
    Open();
    EXPECT_EQ(fw::NumberFormat(), fw::TNumberFormat());
    EXPECT_TRUE(Station->SetNumberFormat("de_DE"));
    EXPECT_EQ(fw::FormatNumber(1.5, 1), "1,5");
    Station.reset();
    EXPECT_EQ(fw::FormatNumber(1.5, 1), "1.5");
    Open();
    EXPECT_EQ(fw::FormatNumber(1.5, 1), "1,5");
    EXPECT_FALSE(Station->SetNumberFormat("roman"));
    EXPECT_EQ(fw::FormatNumber(1.5, 1), "1,5");
    EXPECT_EQ(Station->Store().ReadSetting("Workstation", "NumberFormat"), "de_DE");
}

TEST_F(TNumberFormatTest, WhereNothingIsChosenTheEnvironmentDecides) {
    auto Started = Options();
    Started.NumberFormat = {",", "'"};
    Station = std::make_unique<TWorkstation>(Started);
    EXPECT_EQ(fw::FormatNumber(1234.5, 1, true), "1'234,5");
    EXPECT_TRUE(Station->SetNumberFormat("en_US"));
    Station.reset();
    Station = std::make_unique<TWorkstation>(Started);
    EXPECT_EQ(fw::FormatNumber(1234.5, 1, true), "1,234.5");
    EXPECT_TRUE(Station->SetNumberFormat(""));
    EXPECT_EQ(fw::FormatNumber(1234.5, 1, true), "1'234,5");

    Station->Store().WriteSetting("Workstation", "NumberFormat", "roman");
    Station.reset();
    Station = std::make_unique<TWorkstation>(Started);
    EXPECT_EQ(fw::FormatNumber(1234.5, 1, true), "1'234,5") << "an unknown name counts as none";
}

}  // namespace ws
