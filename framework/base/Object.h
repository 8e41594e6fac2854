// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

#include "framework/base/Export.h"

namespace fw {

// Root of everything that is passed through the host by identity (senders, owners, records).
class FRAMEWORK_API TObject {
public:
    TObject() = default;
    virtual ~TObject();
    TObject(const TObject&) = delete;
    TObject& operator=(const TObject&) = delete;
};

// One receiver, set by whoever builds the form. Sender is the control or service that fires.
using TNotifyEvent = std::function<void(TObject* Sender)>;
using TDataEvent = std::function<void(TObject* Sender, TObject* Data)>;

}  // namespace fw
