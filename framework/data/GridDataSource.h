// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>

#include "framework/data/DataControl.h"

namespace fw {

// Binds a grid view to a data control, which it creates from a factory and owns. Views that show it forget it when it
// is destroyed (OnDestroyed).
class FRAMEWORK_API TCustomGridDataSource : public TObject {
public:
    using TFactory = std::function<std::unique_ptr<TCustomDataControl>()>;
    explicit TCustomGridDataSource(const TFactory& Factory);
    ~TCustomGridDataSource() override;

    TCustomDataControl* GetDataControl() const { return FDataControl.get(); }

    TSignal<> OnDestroyed;

private:
    std::unique_ptr<TCustomDataControl> FDataControl;
};

}  // namespace fw
