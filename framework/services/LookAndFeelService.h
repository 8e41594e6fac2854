// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Color.h"
#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// The current skin. Its name is also the configuration section that holds its colours.
class FRAMEWORK_API TCustomLookAndFeelService : public TObject {
public:
    ~TCustomLookAndFeelService() override;
    static TCustomLookAndFeelService& GetInstance();
    static TCustomLookAndFeelService* SetInstance(TCustomLookAndFeelService* Service);

    virtual Text GetSkinName() = 0;
    virtual TColor GetSkinColor(int Index, const Text& Key) = 0;
    virtual void AddLookAndFeelChangedEvent(TDataEvent Handler, TObject* Owner) = 0;
    virtual void RemoveLookAndFeelChangedEvent(TObject* Owner) = 0;
};

}  // namespace fw
