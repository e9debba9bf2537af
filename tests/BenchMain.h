// SPDX-License-Identifier: MIT
#pragma once

// Every benchmark runs beside its baseline, the same work done the plainest
// way; after the run each declared ratio is printed as "ratio <name> <value>",
// the benchmark's time over its baseline's.

namespace zolt::bench {

struct Ratio {
    Ratio(const char *name, const char *measured, const char *baseline);
};

} // namespace zolt::bench
