// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Which encoding a text of the old platform most likely holds, judged by how
/// Vietnamese each reading of it looks.

#include <zolt/LegacyText.h>

#include <QList>
#include <QMap>
#include <QVariant>

#include <optional>

namespace zolt {

/// What GuessEncoding makes of one value.
struct EncodingGuess {
    TextEncoding encoding = TextEncoding::Ascii;   ///< the most likely reading
    /// The share of the reading's words (those with a letter outside ASCII)
    /// that are Vietnamese syllables, a byte without meaning counting as a
    /// wrong word: 1 reads as Vietnamese throughout, 0 not at all.
    double score = 1;
    /// Another reading that makes Vietnamese syllables of the value as the
    /// chosen one does (in at least half its words): the value alone cannot
    /// tell ("hép" is a syllable, and TCVN3 for "hộp"; "Toát" is a word, and
    /// VNI for "Tốt"). Ascii when there is none: the guess is certain.
    TextEncoding alternative = TextEncoding::Ascii;
    /// TCVN3 that reads as Vietnamese only in capitals: typed for a capitals
    /// font, to be decoded with upper set.
    bool upper = false;

    /// Whether no other reading makes Vietnamese of the value as well.
    bool certain() const { return alternative == TextEncoding::Ascii; }
};

/// The most likely encoding of one database value: a text (Unicode, or the
/// Windows-1252 reading of TCVN3 or VNI bytes) or bytes (UTF-8, TCVN3, VNI).
/// Where readings look equally Vietnamese, Unicode wins (nothing changes),
/// then TCVN3, then VNI; a legacy reading is taken only when at least half its
/// words are Vietnamese, and never one that makes non-syllables where another
/// makes syllables. Bytes that no reading makes text of are Binary.
ZOLT_EXPORT EncodingGuess GuessEncoding(const QVariant &value);

/// What GuessColumn makes of a column's values.
struct ColumnGuess {
    /// The column's reading: the legacy encoding its certain values hold (a
    /// few values already Unicode beside it are kept as they are, not a mix);
    /// Mixed when certain values hold both TCVN3 and VNI in a fair share; else
    /// Unicode, or the reading most of its values share. Ascii when no value
    /// has a character outside ASCII.
    TextEncoding encoding = TextEncoding::Ascii;
    double score = 1;    ///< the mean score of the values of that encoding
    bool upper = false;  ///< most of them typed for a capitals font
    /// Values of each encoding, a value two readings make Vietnamese of
    /// counted under the column's reading where it is one of them; Null and
    /// empty values not counted.
    QMap<TextEncoding, int> counts;
    /// Values the guess is certain of, by encoding; and those two readings
    /// make Vietnamese of, and how many of those each reading does.
    QMap<TextEncoding, int> certain;
    int uncertain = 0;                    ///< values two readings make Vietnamese of
    QMap<TextEncoding, int> readableAs;   ///< of those, how many each reading makes Vietnamese of
};
/// The reading of a column, from a sample of its values (each guessed with
/// GuessEncoding); see ColumnGuess.
ZOLT_EXPORT ColumnGuess GuessColumn(const QList<QVariant> &sample);

/// Whether a reading of a value (its text, and the bytes that meant nothing
/// in its encoding) makes a Vietnamese syllable of every word it has.
ZOLT_EXPORT bool ReadsAsVietnamese(const QString &reading, qint32 unconvertible = 0);

/// A value that begins in one legacy encoding and goes on in the other (a
/// TCVN3 template's words, then what a clerk typed in VNI), read run by run
/// where no whole reading makes syllables of every word but each run's does:
/// its Unicode text; nothing otherwise.
ZOLT_EXPORT std::optional<QString> ReadRuns(const QVariant &value);

} // namespace zolt
