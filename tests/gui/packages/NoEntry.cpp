// SPDX-License-Identifier: GPL-3.0-or-later
// A shared library that is no package.
extern "C" __attribute__((visibility("default"))) int SomethingElse() { return 1; }
