// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// Configuration options by section and key. Notifications come from the host's loop, never from inside a registering
// call.
class FRAMEWORK_API TCustomConfigManager : public TObject {
public:
    ~TCustomConfigManager() override;
    static TCustomConfigManager& GetInstance();  // raises EServiceMissing when none is installed
    static TCustomConfigManager* SetInstance(TCustomConfigManager* Service);  // borrowed; returns the former one

    virtual void AddConfigUpdateEvent(TDataEvent Handler, TObject* Owner) = 0;
    virtual void RemoveConfigUpdateEvent(TObject* Owner) = 0;
    virtual Text ReadString(const Text& Section, const Text& Key) = 0;  // missing: ""
    virtual int ReadInteger(const Text& Section, const Text& Key) = 0;  // missing or no number: 0
    virtual Text GetUserSection() = 0;                                  // section of the user who is logged in
    virtual bool GetKeepColumnLayout() = 0;
};

}  // namespace fw
