// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/OrderService.h"

#include <gtest/gtest.h>

namespace ws {

namespace {

struct TOrders {
    TMarketService Market;
    TLanguageService Language{TTextTable::Embedded()};
    TOrderService Service{Market, Language};
};

}  // namespace

TEST(OrderService, AnOrderIsFoundByItsLineIdWhileItLives) {
    TOrders Of;
    auto Order = Of.Service.CreateClientOrder();
    const int64_t Id = Order->GetLineId();
    EXPECT_EQ(Of.Service.FindOrder(Id), Order.get());
    EXPECT_EQ(Of.Service.GetOrderText(*Order), std::to_string(Id));
    EXPECT_EQ(Of.Service.FindOrder(Id + 1), nullptr);
    EXPECT_EQ(Of.Service.FindOrder(0), nullptr);
    Order.reset();
    EXPECT_EQ(Of.Service.FindOrder(Id), nullptr);
}

TEST(OrderService, OfAnOrderAndItsCopyTheCopyIsFound) {
    TOrders Of;
    auto Order = Of.Service.CreateClientOrder();
    auto Copy = Of.Service.CreateClientOrder();
    const int64_t Id = Order->GetLineId(), CopyId = Copy->GetLineId();
    Copy->Assign(*Order);
    EXPECT_EQ(Copy->GetLineId(), Id);
    EXPECT_EQ(Of.Service.FindOrder(Id), Copy.get());
    EXPECT_EQ(Of.Service.FindOrder(CopyId), nullptr) << "nobody has that id any more";
    Copy.reset();
    EXPECT_EQ(Of.Service.FindOrder(Id), Order.get());
}

TEST(OrderService, AnOrderMayOutliveTheService) {
    auto Of = std::make_unique<TOrders>();
    auto Order = Of->Service.CreateClientOrder();
    Of.reset();
    EXPECT_NO_THROW(Order.reset());
}

TEST(OrderService, RemarksComeFromWhoeverJudgesTheBatch) {
    TOrders Of;
    const auto Order = Of.Service.CreateClientOrder();
    EXPECT_EQ(Of.Service.GetRemarkText(*Order), "");
    Of.Service.OnRemark = [](const fw::TCustomClientOrder& Asked) { return "of " + Asked.GetSymbol(); };
    Order->SetSymbol("C1");
    EXPECT_EQ(Of.Service.GetRemarkText(*Order), "of C1");
}

}  // namespace ws
