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
    // Another encoding whose reading looks just as Vietnamese ("hép" is a
    // syllable, and TCVN3 for "hộp"; "Thuû" is VNI for "Thủ" and TCVN3 for
    // "Thuỷ"): the value alone cannot tell. Equal to encoding when there is
    // no such tie.
    TextEncoding tiedWith = TextEncoding::Ascii;
    // TCVN3 that reads as Vietnamese only in capitals: typed for a capitals
    // font, to be decoded with upper set.
    bool upper = false;
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
    // well two ways side with the one more of the other values hold, and
    // with the preferred one (Unicode, then TCVN3) when neither is held more.
    TextEncoding encoding = TextEncoding::Ascii;
    double score = 1;   // the mean score of the values of that encoding
    bool upper = false;  // most of them typed for a capitals font
    QMap<TextEncoding, int> counts;   // values of each encoding; Null and empty ones not counted
};

ZOLT_EXPORT ColumnGuess GuessColumn(const QList<QVariant> &sample);

} // namespace zolt
