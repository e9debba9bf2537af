// SPDX-License-Identifier: MIT
#pragma once

// How Vietnamese a text looks: the share of its words that are syllables the
// language has (an onset, a vowel group and a final that go together, one tone
// at most, and only a rising or heavy tone before a stop).

#include <QStringView>

namespace zolt {

// A word of Vietnamese letters, in either case, composed or not.
bool IsVietnameseSyllable(QStringView word);

struct SyllableCount {
    int words = 0;   // words holding a letter outside ASCII
    int valid = 0;   // of those, Vietnamese syllables
};

// Counts the words of text that hold a character outside ASCII and a letter
// (a sign alone is no word); words are split at blanks and at ASCII
// characters other than letters.
SyllableCount CountSyllables(QStringView text);

} // namespace zolt
