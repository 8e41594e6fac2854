// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

class FRAMEWORK_API TCustomMessageBoxCtrl : public TObject {
public:
    ~TCustomMessageBoxCtrl() override;
    static TCustomMessageBoxCtrl& GetInstance();
    static TCustomMessageBoxCtrl* SetInstance(TCustomMessageBoxCtrl* Service);

    // Shows a translated text. The last three arguments are reserved.
    virtual void ShowMessageText(TObject* Owner, const Text& Message, int Kind = 0, int Buttons = 0,
                                 int Default = 0) = 0;
    // Shows the host's message of a code ("DC10013001").
    virtual void ShowMessageCode(TObject* Owner, const Text& Code, void* Reserved1 = nullptr, void* Reserved2 = nullptr,
                                 void* Reserved3 = nullptr) = 0;
};

}  // namespace fw
