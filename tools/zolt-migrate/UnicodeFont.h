// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zolt::migrate {

// A font this desk has that draws Vietnamese in Unicode, as fontconfig knows
// the desk's fonts: a common sans family when there is one.
QString UnicodeFont();

} // namespace zolt::migrate
