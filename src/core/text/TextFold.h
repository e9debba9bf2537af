// SPDX-License-Identifier: MIT
#pragma once

// How text is compared for a clerk, in one place: case never matters, and
// typed text without any diacritic matches text with or without them
// ("banh" finds "Bánh", "d" finds "Đ"), while typed marks must match. Text
// stored decomposed (NFD) compares as if composed.

#include <QStringView>

namespace zolt {

// The fold of every UTF-16 code unit: CaseFold() without regard to case,
// BareFold() also without diacritics, where a combining mark folds to 0 (no
// character at all). Built once, so that a million names are only looked up.
const char16_t *CaseFold();
const char16_t *BareFold();

// A combining diacritical mark, as decomposed text carries its marks.
constexpr bool IsCombiningMark(char32_t c) { return c >= 0x300 && c <= 0x36F; }

// True when the text holds a letter with a diacritic (a Vietnamese tone or
// vowel mark, "đ"), or a combining mark.
bool HasDiacritics(QStringView text);

// Whether typed text matches without regard to diacritics: it has none and
// the setting is on.
inline bool AccentBlindFor(QStringView typed, bool settingOn) { return settingOn && !HasDiacritics(typed); }

} // namespace zolt
