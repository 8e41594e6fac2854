// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "framework/base/Text.h"

namespace support {

// Compares lines with the approved text tests/<Name>.txt ("view/golden/construction"):
//   EXPECT_TRUE(MatchesGolden("view/golden/construction", Host.Journal.Take()));
// With VENTIQ_UPDATE_GOLDEN=1 in the environment the file is written instead; the change is reviewed in the diff.
testing::AssertionResult MatchesGolden(const fw::Text& Name, const std::vector<fw::Text>& Lines);

}  // namespace support
