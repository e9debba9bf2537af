// SPDX-License-Identifier: MIT
#pragma once

// Which encoding a text of the old platform most likely holds, judged by how
// Vietnamese each reading of it looks.

#include <zolt/LegacyText.h>

#include <QList>
#include <QMap>
#include <QVariant>

namespace zolt {

struct EncodingGuess {
    TextEncoding encoding = TextEncoding::Ascii;
    // The share of the reading's words (those with a letter outside ASCII)
    // that are Vietnamese syllables, a byte without meaning counting as a
    // wrong word: 1 reads as Vietnamese throughout, 0 not at all.
    double score = 1;
    // A legacy encoding whose reading looks just as Vietnamese as the Unicode
    // one ("hép" is a syllable, and TCVN3 for "hộp"): the value alone cannot
    // tell. Equal to encoding when there is no such tie.
    TextEncoding tiedWith = TextEncoding::Ascii;
};

// The most likely encoding of one database value: a text (Unicode, or the
// Windows-1252 reading of TCVN3 or VNI bytes) or bytes (UTF-8, TCVN3, VNI).
// Where readings look equally Vietnamese, Unicode wins (nothing changes),
// then TCVN3, then VNI; a legacy reading is taken only when at least half its
// words are Vietnamese. Bytes that no reading makes text of are Binary.
ZOLT_EXPORT EncodingGuess GuessEncoding(const QVariant &value);

struct ColumnGuess {
    // Ascii when no value has a character outside ASCII; Mixed when more than
    // one encoding holds a fair share of the others. Values that read equally
    // well as Unicode and as a legacy encoding side with the legacy one when
    // other values are of it, and with Unicode otherwise.
    TextEncoding encoding = TextEncoding::Ascii;
    double score = 1;   // the mean score of the values of that encoding
    QMap<TextEncoding, int> counts;   // values of each encoding; Null and empty ones not counted
};

ZOLT_EXPORT ColumnGuess GuessColumn(const QList<QVariant> &sample);

} // namespace zolt
