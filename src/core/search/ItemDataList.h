// SPDX-License-Identifier: MIT
#pragma once

// The library's side of a list whose rows carry item data (the contract is
// public: <zolt/ItemDataList.h>). It needs no widget: the catalogue queries
// fill such lists from the core. (Lists whose rows carry a whole number
// follow MdGrid.)

#include <zolt/ItemDataList.h>

namespace zolt {

// Raises error 381 unless index names one of count rows.
void CheckItemIndex(int index, int count);

} // namespace zolt
