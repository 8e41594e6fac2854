// SPDX-License-Identifier: Apache-2.0
#include "orders/VentiqBatchSubmitOrderDataControl.h"

#include <gtest/gtest.h>

#include "framework/base/KeepList.h"
#include "orders/VentiqBatchColumns.h"
#include "registration/VentiqConstDef.h"
#include "tests/support/FakeHost.h"

namespace ventiq {
namespace {

class BatchTable : public testing::Test {
protected:
    support::TFakeHost Host;
    TClientOrderList Orders;
    TCustomBatchSubmitOrderDataControl Table;

    void Add(const Text& Symbol, int Side, double Price, double Qty) {
        auto Order = Host.Orders.CreateClientOrder();
        Order->SetAccount("A100");
        Order->SetSymbol(Symbol);
        Order->SetSide(Side);
        Order->SetPrice(Price);
        Order->SetQty(Qty);
        Order->SetExtValue("Note", "kept");
        Orders.push_back(std::move(Order));
    }
};

TEST_F(BatchTable, AnswersByColumn) {
    Add("HSIC110", 0, 12.5, 3);
    Add("HSIP100", 1, 0.25, 2);
    Table.InitData(Orders);
    ASSERT_EQ(Table.GetCount(), 2);
    const std::pair<int, Variant> Cells[] = {
        {kColSymbol, "HSIP100"}, {kColPrice, 0.25},     {kColQty, 2.0},
        {kColAccount, "A100"},   {kColSide, "Side1"},   {kColRemark, "Remark:HSIP100"},
        {kColOrderText, "Order:HSIP100"}, {7, ""},      {kColOpenClose, ""},
    };
    for (const auto& [Column, Cell] : Cells) EXPECT_EQ(Table.GetValue(1, Column), Cell) << Column;
}

TEST_F(BatchTable, OutOfRangeIsEmptyText) {
    Add("HSIC110", 0, 12.5, 3);
    Table.InitData(Orders);
    for (const int Row : {-1, 1, 1000})
        for (const int Column : {kColSymbol, kColPrice, kColQty}) {
            EXPECT_EQ(Table.GetValue(Row, Column), Variant("")) << Row;
            EXPECT_EQ(Table.GetDisplayValue(Row, Column), "") << Row;
        }
}

TEST_F(BatchTable, PriceAndQuantityAreShownAsTheSymbolsMarketWritesThem) {
    Add("HSIC110", 0, 12.5, 3);
    Table.InitData(Orders);
    EXPECT_EQ(Table.GetDisplayValue(0, kColPrice), "1:12.5");
    EXPECT_EQ(Table.GetDisplayValue(0, kColQty), "4:3");
    const std::vector<support::TFakeFormatter::TCall> Calls{{12.5, kFormatPrice, "HSIC110", true},
                                                            {3, kFormatQuantity, "HSIC110", true}};
    EXPECT_EQ(Host.Formatter.Calls, Calls);
    EXPECT_EQ(Table.GetValue(0, kColPrice), Variant(12.5)) << "the number, whatever is shown";
    EXPECT_EQ(Table.GetDisplayValue(0, kColSide), "Side0");
    EXPECT_EQ(Table.GetDisplayValue(0, kColSymbol), "HSIC110");
    EXPECT_EQ(Table.GetDisplayValue(0, 7), "");
}

TEST_F(BatchTable, HoldsCopiesThatOutliveTheOrders) {
    Add("HSIC110", 0, 12.5, 3);
    const int64_t LineId = Orders[0]->GetLineId();
    Table.InitData(Orders);
    Orders[0]->SetPrice(99);
    Orders.clear();
    EXPECT_EQ(Table.GetValue(0, kColPrice), Variant(12.5));
    EXPECT_EQ(Host.Journal.Count("Orders.CreateClientOrder()"), 2) << "copies come from the order service";
    EXPECT_GT(LineId, 0);
}

TEST_F(BatchTable, FillingItAgainFreesTheFirstCopies) {
    Add("HSIC110", 0, 12.5, 3);
    Add("HSIP100", 1, 0.25, 2);
    Table.InitData(Orders);
    const int Alive = support::TFakeClientOrder::Alive;
    Orders.pop_back();
    Table.InitData(Orders);
    EXPECT_EQ(Table.GetCount(), 1);
    EXPECT_EQ(support::TFakeClientOrder::Alive, Alive - 2) << "a source and a copy less";
    Table.ClearData();
    EXPECT_EQ(Table.GetCount(), 0);
    EXPECT_EQ(support::TFakeClientOrder::Alive, 1);
}

TEST_F(BatchTable, ItsColumnsAreOneListForTheProcess) {
    TColumnInfoList* const Columns = Table.GetColList();
    ASSERT_NE(Columns, nullptr);
    const int Kept = KeptCount();
    TCustomBatchSubmitOrderDataControl Other;
    EXPECT_EQ(Other.GetColList(), Columns);
    EXPECT_EQ(BatchColumns(), Columns);
    EXPECT_EQ(KeptCount(), Kept);

    struct TExpected {
        int Id;
        const char* Key;
        int Width;
        bool Numeric;
    };
    const TExpected Expected[] = {{0, "Res_Symbol", 100, false},   {11, "Res_Side", 80, false},
                                  {10, "Res_Account", 80, false},  {3, "Res_OrderPrice", 70, true},
                                  {4, "Res_OrderQty", 70, true},   {25, "Res_Remark", 100, false}};
    ASSERT_EQ(Columns->size(), std::size(Expected));
    for (size_t i = 0; i < Columns->size(); ++i) {
        const TColumnInfo& Info = *(*Columns)[i];
        EXPECT_EQ(Info.Id, Expected[i].Id);
        EXPECT_EQ(Info.CaptionKey, Expected[i].Key);
        EXPECT_EQ(Info.Width, Expected[i].Width);
        EXPECT_EQ(Info.Numeric, Expected[i].Numeric);
        EXPECT_EQ(Info.Value, "");
    }
}

TEST_F(BatchTable, HasNoOwner) {
    TObject Owner;
    TCustomBatchSubmitOrderDataControl Owned(&Owner);
    EXPECT_EQ(Owned.GetOwner(), nullptr);
}

}  // namespace
}  // namespace ventiq
