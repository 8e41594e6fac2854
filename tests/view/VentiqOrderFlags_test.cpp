// SPDX-License-Identifier: Apache-2.0
#include "tests/view/PartsFixture.h"

namespace ventiq {

using TOrderFlags = TPartsFixture;

TEST_F(TOrderFlags, AnExchangeThatListsOnlyCloseOffersNoneAndClose) {
    Host.Orders.Options["HKFE"] = {"Close"};
    Flags.InitOpenClose("HSIC100");
    EXPECT_EQ(Flags.FFlagKeys, (TStringList{"Res_OpenClose_N", "Res_OrderClose"}));
}

TEST_F(TOrderFlags, ChoicesComeInTheExchangesOrderAfterNone) {
    Host.Orders.Options["HKFE"] = {"House", "close", "RT", "OPEN", "Client"};
    Flags.InitOpenClose("HSIC100");
    EXPECT_EQ(Flags.FFlagKeys, (TStringList{"Res_OpenClose_N", "Res_OrderClose", "Res_OrderOpen"}));
    Flags.InitPrincipal("HSIC100");
    EXPECT_EQ(Flags.FFlagKeys,
              (TStringList{"Res_Principal_N", "Res_Principal_H", "Res_Principal_RT", "Res_Principal_C"}));
}

TEST_F(TOrderFlags, WithoutTheRightNotEvenNoneIsOffered) {
    Host.Profile.Rights = {"OEPrin"};
    Flags.InitOpenClose("HSIC100");
    EXPECT_TRUE(Flags.FFlagKeys.IsEmpty());
    Flags.InitPrincipal("HSIC100");
    EXPECT_EQ(Flags.FFlagKeys.GetCount(), 4);
    Host.Profile.Rights = {"OEOpenC"};
    Flags.InitPrincipal("HSIC100");
    EXPECT_TRUE(Flags.FFlagKeys.IsEmpty());
}

TEST_F(TOrderFlags, TheExchangeComesFromMarketDataWhereTheProductIsUnknown) {
    Host.Orders.Options["XNEW"] = {"Open"};
    Host.Subscriptions.Item("UNLISTED").Set(kFieldExchange, "XNEW");
    Flags.InitOpenClose("UNLISTED");
    EXPECT_EQ(Flags.FFlagKeys, (TStringList{"Res_OpenClose_N", "Res_OrderOpen"}));
    Flags.InitOpenClose("NOWHERE");
    EXPECT_TRUE(Flags.FFlagKeys.IsEmpty()) << "without an exchange nothing is offered, and the former list is gone";
}

TEST_F(TOrderFlags, TextsTurnIntoFlagValues) {
    const struct {
        const char* Why;
        const char* Shown;
        int OpenClose;
        int Principal;
    } Cases[] = {
        {"open", "Open", 1, 0},
        {"close", "Close", 2, 0},
        {"none is 0", "None", 0, 0},
        {"client", "Client", 0, 11},
        {"house", "House", 0, 12},
        {"the third house kind", "Trader", 0, 13},
        {"blanks at the ends", " Open ", 1, 0},
        {"another case is another text", "open", 0, 0},
        {"nothing", "", 0, 0},
        {"a key is no text", "Res_OrderOpen", 0, 0},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        EXPECT_EQ(Flags.GetOpenCloseFlag(C.Shown), C.OpenClose);
        EXPECT_EQ(Flags.GetPrincipalFlag(C.Shown), C.Principal);
    }
}

TEST_F(TOrderFlags, ValidationDoesNotTrim) {
    EXPECT_TRUE(Flags.CheckSymbolOpenCloseValidation("HSIC100", "Open"));
    EXPECT_FALSE(Flags.CheckSymbolOpenCloseValidation("HSIC100", "Open "));
    EXPECT_EQ(Flags.GetOpenCloseFlag("Open "), 1);
    EXPECT_TRUE(Flags.CheckSymbolPrincipalValidation("HSIC100", "House"));
    EXPECT_FALSE(Flags.CheckSymbolPrincipalValidation("HSIC100", ""));
}

TEST_F(TOrderFlags, ValidationFailsForAChoiceThatTheSymbolDoesNotOffer) {
    Host.Orders.Options["XDER"] = {"Close"};
    EXPECT_FALSE(Flags.CheckSymbolOpenCloseValidation("DEFC10", "Open"));
    EXPECT_TRUE(Flags.CheckSymbolOpenCloseValidation("DEFC10", "Close"));
}

TEST_F(TOrderFlags, ALanguageSwitchGivesNewTextsForTheSameFlags) {
    Host.Language.SetText(1, Const::ResourceStringTag, "Res_Principal_H", "Haus");
    Host.Language.Language = 1;
    Flags.UpdatePrincipalTexts();
    EXPECT_EQ(Flags.GetPrincipalFlag("Haus"), 12);
    EXPECT_EQ(Flags.GetPrincipalFlag("House"), 0);
}

}  // namespace ventiq
