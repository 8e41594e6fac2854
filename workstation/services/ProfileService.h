// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/services/UserAppProfile.h"
#include "workstation/market/MarketRows.h"

namespace ws {

// Rights of the user who is logged in.
class TProfileService : public fw::TCustomUserAppProfile {
public:
    int GetUserType() override { return FUser.UserType; }
    bool IsAccountSelectable() override { return FUser.AccountSelectable; }
    bool IsFunctionEnabled(const fw::Text& FunctionCode) override;
    bool HasRight(const fw::Text& Right) override;

    const TUserRow& User() const { return FUser; }
    void SetUser(TUserRow User) { FUser = std::move(User); }

private:
    TUserRow FUser;
};

}  // namespace ws
