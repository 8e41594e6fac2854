// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Const.h"
#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// Translations. Tags: Const::ResourceStringTag for captions and messages, "Exchange" and "Currency" with a code as key.
class FRAMEWORK_API TCustomLanguageManager : public TObject {
public:
    ~TCustomLanguageManager() override;
    static TCustomLanguageManager& GetInstance();
    static TCustomLanguageManager* SetInstance(TCustomLanguageManager* Service);

    // Fills Out with the text of Key in the current language; a key without text gives the key itself.
    virtual void GetResourceString(Text& Out, const Text& Tag, const Text& Key, int Kind = 3, int Reserved = 0,
                                   void* Extra = nullptr) = 0;
    virtual int GetLanguage() = 0;  // index of the current language; 1 and 2 have series names of their own
};

}  // namespace fw
