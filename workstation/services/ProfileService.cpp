// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/ProfileService.h"

#include <algorithm>

namespace ws {

namespace {
bool Holds(const std::vector<std::string>& List, const std::string& Entry) {
    return std::find(List.begin(), List.end(), Entry) != List.end();
}
}  // namespace

bool TProfileService::IsFunctionEnabled(const fw::Text& FunctionCode) { return Holds(FUser.Functions, FunctionCode); }
bool TProfileService::HasRight(const fw::Text& Right) { return Holds(FUser.Rights, Right); }

}  // namespace ws
