// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// What the user who is logged in may do.
class FRAMEWORK_API TCustomUserAppProfile : public TObject {
public:
    ~TCustomUserAppProfile() override;
    static TCustomUserAppProfile& GetInstance();
    static TCustomUserAppProfile* SetInstance(TCustomUserAppProfile* Service);

    virtual int GetUserType() = 0;  // 2: accounts may be chosen only where IsAccountSelectable says so
    virtual bool IsAccountSelectable() = 0;
    virtual bool IsFunctionEnabled(const Text& FunctionCode) = 0;
    virtual bool HasRight(const Text& Right) = 0;
};

}  // namespace fw
