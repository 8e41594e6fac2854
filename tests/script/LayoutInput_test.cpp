// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "framework/base/StringList.h"
#include "tests/script/TraderFixture.h"

namespace ws {

// A layout text that came from a file: whatever became of it there, the view opens and stays whole.
class TLayoutInput : public TTraderFixture {
protected:
    TLayoutInput() { OpenView(); }

    fw::Text Layout() { return View.GetLayoutData(Handle); }
    fw::Text Value(const char* Name) {
        fw::TStringList Pairs;
        Pairs.SetCommaText(Layout());
        return Pairs.GetValue(Name);
    }
    void Restore(const fw::Text& Data) { EXPECT_TRUE(View.SetLayoutData(Handle, Data)) << Data.substr(0, 200); }
    void ExpectWhole() {
        Station->Pump();
        EXPECT_NE(Value("Exchange"), "");
        EXPECT_NE(Value("Series"), "");
        EXPECT_NE(Value("Month"), "");
        EXPECT_GT(Legs().GetColumnCount(), 5);
        EXPECT_GE(Rows(), 1);
        EXPECT_TRUE(Entries.empty()) << Entries.front().Key;
    }
};

TEST_F(TLayoutInput, ATextCutAnywhereLeavesTheViewWhole) {
    Choose("HKFE", "HHI", "2027-01");
    const fw::Text Whole = Layout();
    ASSERT_NE(Whole.find("ColList"), fw::Text::npos);
    for (size_t Length = 0; Length <= Whole.size(); ++Length) {
        Restore(Whole.substr(0, Length));
        ExpectWhole();
    }
    EXPECT_EQ(Layout(), Whole) << "the last one was not cut";
}

TEST_F(TLayoutInput, UnknownKeysWrongNumbersAndCodesThatAreGoneArePassedOver) {
    Choose("HKFE", "HHI", "2027-01");
    const fw::Text Before = Layout();
    for (const char* Data :
         {"Zoom=9,Exchange2=XDER,=,==,Colour", "ShowHideState=many,ShowHintState=1e9",
          "ShowHideState=99999999999,ShowHintState=-99999999999", "Exchange=GONE,Series=GONE,Month=1999-01",
          "\"ColList=no;numbers,here;999999,5,1;0,-1,1;0,0,x\"", "Account=NOBODY"}) {
        Restore(Data);
        ExpectWhole();
        EXPECT_EQ(Value("Month"), "2027-01") << Data;
        EXPECT_EQ(Value("Account"), "A100") << Data;
        Restore(Before);
    }
    EXPECT_EQ(Layout(), Before);
}

TEST_F(TLayoutInput, AnExchangeThatIsGoneLeavesSeriesAndMonthToTheirLists) {
    Choose("HKFE", "HSI", "2026-12");
    Restore("Exchange=GONE,Series=HHI,Month=2027-01");
    EXPECT_EQ(Value("Exchange"), "HKFE");
    EXPECT_EQ(Value("Series"), "HHI");
    EXPECT_EQ(Value("Month"), "2027-01");
}

TEST_F(TLayoutInput, AMegabyteIsReadAsWhatItIs) {
    const fw::Text Before = Layout();
    Restore(fw::Text(1'000'000, 'x'));
    Restore(fw::Text(1'000'000, ','));
    Restore(fw::Text(1'000'000, '"'));
    fw::Text Columns = "\"ColList=";
    while (Columns.size() < 1'000'000) Columns += "0,100,1;";
    Restore(Columns + "\"");
    Restore("Series=" + fw::Text(1'000'000, '\x01'));
    ExpectWhole();
    Restore(Before);
    EXPECT_EQ(Layout(), Before);
}

}  // namespace ws
