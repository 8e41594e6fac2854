// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "framework/controls/Control.h"

namespace ws {

// A borrowed control model that may die before its renderer: null from then on. The constructor needs a living model.
template <class T>
class TModelRef {
public:
    explicit TModelRef(T& Model) : FModel(&Model), FLife(Model.GetLifetime()) {}

    T* Get() const { return FLife.expired() ? nullptr : FModel; }
    T* operator->() const { return Get(); }
    explicit operator bool() const { return !FLife.expired(); }

private:
    T* FModel;
    std::weak_ptr<const void> FLife;
};

}  // namespace ws
