// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ViewRegistry.h"

#include <algorithm>

#include "framework/base/ClassRegistry.h"
#include "framework/base/Dispatch.h"

namespace ws {

TViewRegistry::TViewRegistry() {
    for (const auto& Name : fw::TClassRegistry::ClassNames())
        fw::Dispatch(Name, [&] {
            auto Object = fw::TClassRegistry::Create(Name);
            auto* View = dynamic_cast<fw::TIBaseView*>(Object.get());
            if (!View) return;
            Object.release();
            FViews.emplace_back(View);
        });
}

fw::TIBaseView* TViewRegistry::FindById(int ViewId) const {
    const auto It = std::find_if(FViews.begin(), FViews.end(), [&](const auto& View) { return View->GetViewID() == ViewId; });
    return It == FViews.end() ? nullptr : It->get();
}

}  // namespace ws
