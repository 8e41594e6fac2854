// SPDX-License-Identifier: Apache-2.0
#pragma once

// Marks what leaves a shared library. Everything else is hidden; type information, exceptions and singletons that cross
// the border between program and packages carry this mark, so that both sides mean the same object.
#define FRAMEWORK_API __attribute__((visibility("default")))
