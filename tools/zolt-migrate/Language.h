// SPDX-License-Identifier: MIT
#pragma once

// zolt-migrate speaks Vietnamese where the locale is Vietnamese (LANG=vi_VN…)
// and English elsewhere.

#include <QString>

namespace zolt::migrate {

bool SpeaksVietnamese();
// The text in the language the tool speaks.
QString Say(const char *vietnamese, const char *english);

} // namespace zolt::migrate
