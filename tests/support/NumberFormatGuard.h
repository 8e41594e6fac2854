// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>

#include "framework/base/NumberFormat.h"

namespace fw {

// Another number format for the length of a test.
class TScopedNumberFormat {
public:
    explicit TScopedNumberFormat(const TNumberFormat& Format) { SetNumberFormat(Format); }
    explicit TScopedNumberFormat(std::string_view Name) : TScopedNumberFormat(FindNumberFormat(Name).value()) {}
    ~TScopedNumberFormat() { SetNumberFormat(FFormer); }
    TScopedNumberFormat(const TScopedNumberFormat&) = delete;
    TScopedNumberFormat& operator=(const TScopedNumberFormat&) = delete;

private:
    TNumberFormat FFormer = NumberFormat();
};

}  // namespace fw
