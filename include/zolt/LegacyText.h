// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Vietnamese text of the old desktop platform: TCVN3 (VN3, the ABC layout)
/// and VNI-Windows bytes, to Unicode (composed, NFC) and back. Each codec reads
/// the bytes themselves or their Windows-1252 reading, the form in which a
/// Unicode program that took them for ordinary text ("Ng­êi sö dông") has
/// stored them. Guessing which encoding a text holds is in EncodingGuess.h.

#include <zolt/zolt_export.h>

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <QVariant>

namespace zolt {

/// The encodings a Vietnamese text of the old platform may be in.
enum class TextEncoding {
    Ascii,       ///< nothing outside ASCII: the same in every encoding
    Unicode,     ///< already Unicode (composed or not)
    Tcvn3,       ///< TCVN3 bytes (a BLOB, or a text column read as bytes)
    Tcvn3Ansi,   ///< TCVN3 bytes stored as their Windows-1252 reading
    Vni,         ///< VNI-Windows bytes
    VniAnsi,     ///< VNI-Windows bytes stored as their Windows-1252 reading
    Mixed,       ///< a column whose rows hold more than one of the above
    Binary,      ///< bytes that read as no text at all (a picture): left alone
};

/// Whether the encoding is one of the old platform's fonts: TCVN3 or VNI,
/// as bytes or as their Windows-1252 reading.
inline bool IsLegacyEncoding(TextEncoding e)
{
    return e == TextEncoding::Tcvn3 || e == TextEncoding::Tcvn3Ansi || e == TextEncoding::Vni
        || e == TextEncoding::VniAnsi;
}

/// The encoding's name as the migration tool takes and prints it ("tcvn3-ansi").
ZOLT_EXPORT QString EncodingName(TextEncoding encoding);
/// The encoding a name gives; false when there is none of that name.
ZOLT_EXPORT bool EncodingFromName(const QString &name, TextEncoding *encoding);

/// TCVN3 bytes to Unicode. TCVN3 has bytes for the capitals Ă Â Ê Ô Ơ Ư Đ only:
/// other capitals were typed as lower-case bytes and drawn by a capitals font,
/// so text meant for such a font is decoded with upper set. A tone byte
/// (0xB0-0xB4) after a vowel composes with it. A byte with no meaning in TCVN3
/// is kept as its Windows-1252 character and counted in *unconvertible.
ZOLT_EXPORT QString DecodeTcvn3(QByteArrayView bytes, bool upper = false, qint32 *unconvertible = nullptr);
/// Unicode to TCVN3: a capital TCVN3 has no byte for is written as its
/// lower-case byte (what a capitals font shows as the capital); a character
/// TCVN3 cannot hold becomes '?' and is counted in *unencodable.
ZOLT_EXPORT QByteArray EncodeTcvn3(QStringView text, qint32 *unencodable = nullptr);

/// VNI-Windows bytes to Unicode: a letter is a base byte and a mark byte
/// ("aø" is "à"), read as a pair first since some bases are letters of their
/// own ("ô" is "ơ", "ôø" is "ờ"). A mark byte without its base (a tone typed
/// before its vowel) marks nothing: it is dropped, the clerk having meant the
/// word without it, and counted in *unconvertible.
ZOLT_EXPORT QString DecodeVni(QByteArrayView bytes, qint32 *unconvertible = nullptr);
/// Unicode to VNI-Windows bytes, each marked letter as its base and mark
/// bytes; a character VNI cannot hold becomes '?' and is counted in *unencodable.
ZOLT_EXPORT QByteArray EncodeVni(QStringView text, qint32 *unencodable = nullptr);

/// The bytes whose Windows-1252 reading is text; false when text holds a
/// character that reading cannot give. The five bytes Windows-1252 leaves
/// undefined read as the control characters of the same number.
ZOLT_EXPORT bool AnsiBytes(QStringView text, QByteArray *bytes);
/// Whether text is the Windows-1252 reading of some bytes (AnsiBytes would
/// give them): false for a text holding a letter beyond that code page.
ZOLT_EXPORT bool IsAnsiText(QStringView text);
/// The Windows-1252 reading of bytes, the reverse of AnsiBytes.
ZOLT_EXPORT QString AnsiText(QByteArrayView bytes);

/// A database value in the given encoding as Unicode text, composed: text for
/// the *Ansi encodings, bytes (a BLOB) for Tcvn3 and Vni, text or UTF-8 bytes
/// for Unicode and Ascii. A text that cannot be the Windows-1252 reading of
/// bytes is Unicode already and is only composed, never converted twice.
ZOLT_EXPORT QString ToUnicode(const QVariant &value, TextEncoding from, bool upper = false,
                              qint32 *unconvertible = nullptr);

} // namespace zolt
