// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

namespace ws {

enum class ECallPut { Call, Put };

// What an exchange's code says: a letter C or P in front, or one of the exchanges' numbers. Nothing for any other text.
std::optional<ECallPut> CallOrPut(std::string_view Code);

}  // namespace ws
