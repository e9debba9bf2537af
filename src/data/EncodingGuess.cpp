// SPDX-License-Identifier: MIT
#include <zolt/EncodingGuess.h>

#include "data/VietnameseSyllable.h"

#include <algorithm>

namespace zolt {

namespace {

double scoreOf(const QString &reading, qint32 unconvertible)
{
    const SyllableCount count = CountSyllables(reading);
    const int words = count.words + unconvertible;
    return words == 0 ? 1.0 : double(count.valid) / words;
}

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

// Readings come in order of preference; a later one must look better, and a
// legacy reading must look Vietnamese in at least half its words to be taken.
EncodingGuess best(EncodingGuess chosen, const QList<EncodingGuess> &readings)
{
    chosen.tiedWith = chosen.encoding;
    for (const EncodingGuess &reading : readings) {
        if (reading.score > chosen.score && reading.score >= 0.5)
            chosen = {reading.encoding, reading.score, reading.encoding, reading.upper};
        else if (reading.score == chosen.score && chosen.tiedWith == chosen.encoding && reading.score > 0)
            chosen.tiedWith = reading.encoding;
    }
    return chosen;
}

// TCVN3 is read for a capitals font too: its capitals but Ă Â Ê Ô Ơ Ư Đ are
// lower-case bytes, which read as small letters inside capital words.
EncodingGuess reading(const QVariant &value, TextEncoding encoding)
{
    qint32 unconvertible = 0;
    const QString text = ToUnicode(value, encoding, false, &unconvertible);
    const EncodingGuess plain{encoding, scoreOf(text, unconvertible), encoding};
    if (encoding != TextEncoding::Tcvn3 && encoding != TextEncoding::Tcvn3Ansi)
        return plain;
    const double upperScore = scoreOf(text.toUpper(), unconvertible);
    return upperScore > plain.score ? EncodingGuess{encoding, upperScore, encoding, true} : plain;
}

} // namespace

EncodingGuess GuessEncoding(const QVariant &value)
{
    if (value.typeId() == QMetaType::QByteArray) {
        const QByteArray bytes = value.toByteArray();
        if (isAscii(bytes))
            return {};
        const QString utf8 = QString::fromUtf8(bytes);
        const EncodingGuess none{TextEncoding::Binary, 0};
        const EncodingGuess unicode =
            utf8.contains(QChar::ReplacementCharacter) ? none : EncodingGuess{TextEncoding::Unicode, scoreOf(utf8, 0)};
        return best(unicode, {reading(value, TextEncoding::Tcvn3), reading(value, TextEncoding::Vni)});
    }
    const QString text = value.toString();
    if (isAscii(text))
        return {};
    const EncodingGuess unicode{TextEncoding::Unicode, scoreOf(text.normalized(QString::NormalizationForm_C), 0)};
    QByteArray bytes;
    if (!AnsiBytes(text, &bytes))
        return unicode;
    return best(unicode, {reading(value, TextEncoding::Tcvn3Ansi), reading(value, TextEncoding::VniAnsi)});
}

ColumnGuess GuessColumn(const QList<QVariant> &sample)
{
    ColumnGuess column;
    QMap<TextEncoding, double> scores;
    QList<EncodingGuess> ties;
    int upper = 0;
    for (const QVariant &value : sample) {
        if (value.isNull() || (value.typeId() == QMetaType::QString && value.toString().isEmpty()))
            continue;
        const EncodingGuess guess = GuessEncoding(value);
        if (guess.tiedWith != guess.encoding) {
            ties << guess;
            continue;
        }
        ++column.counts[guess.encoding];
        scores[guess.encoding] += guess.score;
        upper += guess.upper;
    }
    // A tie sides with whichever of its two encodings more of the other values hold.
    for (const EncodingGuess &tie : ties) {
        const TextEncoding side =
            column.counts.value(tie.tiedWith) > column.counts.value(tie.encoding) ? tie.tiedWith : tie.encoding;
        ++column.counts[side];
        scores[side] += tie.score;
    }
    QList<std::pair<int, TextEncoding>> beyondAscii;
    for (auto count = column.counts.cbegin(); count != column.counts.cend(); ++count) {
        if (count.key() != TextEncoding::Ascii)
            beyondAscii += {count.value(), count.key()};
    }
    if (beyondAscii.isEmpty())
        return column;
    std::sort(beyondAscii.begin(), beyondAscii.end(), std::greater<>());
    int total = 0;
    for (const auto &[count, encoding] : beyondAscii)
        total += count;
    const auto [most, encoding] = beyondAscii.first();
    // One odd value among many is the guess being wrong; more is a column
    // that holds both.
    const bool mixed = beyondAscii.size() > 1 && beyondAscii[1].first >= std::max(2, total / 20);
    column.encoding = mixed ? TextEncoding::Mixed : encoding;
    column.score = scores[encoding] / most;
    column.upper = !mixed && upper * 2 > most;
    return column;
}

} // namespace zolt
