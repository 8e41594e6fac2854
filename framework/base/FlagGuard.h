// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace fw {

// What becomes of the flag when the guard ends: its former value again, or false whatever it was before.
enum class EGuardEnd { Restore, Clear };

// Sets a flag for a scope; the end of the scope holds on errors too.
class TFlagGuard {
public:
    TFlagGuard(bool& Flag, EGuardEnd End) : FFlag(Flag), FAfter(End == EGuardEnd::Restore && Flag) { FFlag = true; }
    ~TFlagGuard() { FFlag = FAfter; }
    TFlagGuard(const TFlagGuard&) = delete;
    TFlagGuard& operator=(const TFlagGuard&) = delete;

private:
    bool& FFlag;
    bool FAfter;
};

}  // namespace fw
