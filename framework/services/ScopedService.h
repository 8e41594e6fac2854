// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

namespace fw {

// Installs a service for a scope and puts the former one back: TScopedService<TCustomFormatter>
// F(std::make_unique<...>()).
template <class TService>
class TScopedService {
public:
    explicit TScopedService(std::unique_ptr<TService> Service)
        : FService(std::move(Service)), FFormer(TService::SetInstance(FService.get())) {}
    ~TScopedService() { TService::SetInstance(FFormer); }
    TScopedService(const TScopedService&) = delete;
    TScopedService& operator=(const TScopedService&) = delete;

    TService* operator->() const { return FService.get(); }

private:
    std::unique_ptr<TService> FService;
    TService* FFormer;
};

}  // namespace fw
