// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/ComboBox.h"

#include "tests/framework/controls/LogFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ComboBoxTest : public TLogFixture {
protected:
    ComboBoxTest() {
        for (const char* Item : {"one", "two", "three"}) Combo.AddItem(Item);
        Combo.OnChange = [this](TObject* Sender) {
            EXPECT_EQ(Sender, &Combo);
            Changes.push_back(Combo.GetItemIndex());
        };
    }
    TComboBox Combo;
    std::vector<int> Changes;
};

TEST_F(ComboBoxTest, AnIndexThatItHasOrThatNoItemHasFiresNothing) {
    struct TCase {
        const char* Why;
        int From, To, After;
        bool Fires;
    };
    const TCase Cases[] = {
        {"first choice", -1, 1, 1, true},         {"another item", 1, 2, 2, true}, {"the same again", 2, 2, 2, false},
        {"beyond the last", 1, 3, 1, false},      {"below none", 1, -2, 1, false}, {"none", 1, -1, -1, true},
        {"none when none is", -1, -1, -1, false},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Why);
        Combo.SetItemIndex(c.From);
        Changes.clear();
        Combo.SetItemIndex(c.To);
        EXPECT_EQ(Combo.GetItemIndex(), c.After);
        EXPECT_EQ(Changes.size(), c.Fires ? 1u : 0u);
    }
}

TEST_F(ComboBoxTest, AnEmptyComboTakesNoIndex) {
    Combo.ClearItems();
    EXPECT_THAT(Changes, IsEmpty()) << "nothing was selected";
    Combo.SetItemIndex(0);
    EXPECT_EQ(Combo.GetItemIndex(), -1);
    EXPECT_THAT(Changes, IsEmpty());
}

TEST_F(ComboBoxTest, ClearingUnselectsAndFiresOnceWithTheItemsGone) {
    Combo.SetItemIndex(1);
    Changes.clear();
    int CountSeen = -1;
    const auto Link = Combo.OnItemsChanged.Connect([&] {
        CountSeen = Combo.GetCount();
        EXPECT_EQ(Combo.GetItemIndex(), -1);
    });
    Combo.ClearItems();
    EXPECT_THAT(Changes, ElementsAre(-1));
    EXPECT_EQ(CountSeen, 0);
    Combo.ClearItems();
    EXPECT_THAT(Changes, ElementsAre(-1));
}

TEST_F(ComboBoxTest, RewritingAnItemKeepsTheIndex) {
    Combo.SetItemIndex(1);
    Changes.clear();
    Combo.SetItem(1, "zwei");
    Combo.SetItem(7, "nowhere");
    Combo.SetItem(-1, "nowhere");
    EXPECT_EQ(Combo.GetItemIndex(), 1);
    EXPECT_EQ(Combo.GetText(), "zwei");
    EXPECT_EQ(Combo.GetCount(), 3);
    EXPECT_THAT(Changes, IsEmpty());
}

TEST_F(ComboBoxTest, ReadsOutOfRangeAreEmpty) {
    for (int Index : {-1, 3, 1000}) EXPECT_EQ(Combo.GetItem(Index), "");
    EXPECT_EQ(Combo.GetText(), "");
    Combo.SetItemIndex(2);
    EXPECT_EQ(Combo.GetText(), "three");
}

TEST_F(ComboBoxTest, AnUpdateTellsRenderersOnceAtItsOutermostEndAndTheFormAtOnce) {
    int Items = 0, Indices = 0;
    TConnections Links;
    Links += Combo.OnItemsChanged.Connect([&] { ++Items; });
    Links += Combo.OnIndexChanged.Connect([&] { ++Indices; });
    Combo.BeginUpdate();
    Combo.BeginUpdate();
    Combo.ClearItems();
    Combo.AddItem("x");
    Combo.AddItem("y");
    Combo.SetItemIndex(1);
    EXPECT_THAT(Changes, ElementsAre(1));
    Combo.EndUpdate();
    EXPECT_EQ(Items + Indices, 0);
    Combo.EndUpdate();
    EXPECT_EQ(Items, 1);
    EXPECT_EQ(Indices, 1);
    Combo.EndUpdate();  // one too many
    Combo.AddItem("z");
    EXPECT_EQ(Items, 2);
    EXPECT_EQ(Indices, 1);
}

TEST_F(ComboBoxTest, AHandlerMayChooseAgain) {
    Combo.OnChange = [this](TObject*) {
        Changes.push_back(Combo.GetItemIndex());
        Combo.SetItemIndex(2);
    };
    Combo.SetItemIndex(0);
    EXPECT_THAT(Changes, ElementsAre(0, 2));
    EXPECT_EQ(Combo.GetItemIndex(), 2);
}

TEST_F(ComboBoxTest, AHandlerThatThrowsLeavesTheChoiceMade) {
    TFocusScope Scope;
    Scope.Attach("cmb", Combo);
    Combo.OnChange = [](TObject*) { throw std::runtime_error("malformed"); };
    Combo.SetItemIndex(1);
    EXPECT_EQ(Combo.GetItemIndex(), 1);
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|cmb.OnChange|malformed"));
}

}  // namespace
}  // namespace fw
