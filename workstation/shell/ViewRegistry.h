// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "framework/view/BaseView.h"

namespace ws {

// The descriptors of every view that the loaded packages registered, one each, in order of registration.
class TViewRegistry {
public:
    // Asks the class registry; a class that is no view, or whose factory throws, is passed over.
    TViewRegistry();

    const std::vector<std::unique_ptr<fw::TIBaseView>>& Views() const { return FViews; }
    fw::TIBaseView* FindById(int ViewId) const;  // null when there is none

private:
    std::vector<std::unique_ptr<fw::TIBaseView>> FViews;
};

inline constexpr int kPayoffViewId = 620;

}  // namespace ws
