// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <variant>

#include "framework/base/Text.h"

namespace fw {

// A cell or editor value: nothing (null), a whole number, a float or a text.
class FRAMEWORK_API Variant {
public:
    Variant() = default;
    Variant(int32_t V) : FValue(static_cast<int64_t>(V)) {}
    Variant(int64_t V) : FValue(V) {}
    Variant(double V) : FValue(V) {}
    Variant(Text V) : FValue(std::move(V)) {}
    Variant(const char* V) : FValue(Text(V)) {}
    Variant(bool) = delete;

    bool IsNull() const { return std::holds_alternative<std::monostate>(FValue); }
    bool IsText() const { return std::holds_alternative<Text>(FValue); }
    bool IsInteger() const { return std::holds_alternative<int64_t>(FValue); }
    bool IsFloat() const { return std::holds_alternative<double>(FValue); }

    // Null gives "", numbers their shortest C-form text.
    Text AsText() const;
    // Null and texts that are not a finite number give Default.
    double AsFloat(double Default = 0.0) const;
    // Numbers are cut off at the point; what does not fit 64 bits gives Default too.
    int64_t AsInteger(int64_t Default = 0) const;

    // Same kind and same value; 1 and 1.0 differ.
    friend bool operator==(const Variant&, const Variant&) = default;

private:
    std::variant<std::monostate, int64_t, double, Text> FValue;
};

}  // namespace fw
