// SPDX-License-Identifier: MIT
#pragma once

// Initialisation files with the private-profile rules: "[Section]" headers and
// "Key=Value" lines, sections and keys matched without regard to case and to
// the blanks around them, every other line and comment kept byte for byte with
// its own line ending (CRLF, LF or CR; an 8-bit legacy text too).

#include <QString>

namespace zolt {

// The file a profile name means: a bare file name lives in the user's
// configuration folder, as it lived in the system folder before.
QString ProfilePath(const QString &fileName);

// The value of key in section, blanks around it trimmed and one pair of
// enclosing quotes dropped; defaultValue when the file, section or key is missing.
QString ReadProfileString(const QString &section, const QString &key,
                          const QString &defaultValue, const QString &fileName);

// True when the file has the section.
bool ProfileSectionExists(const QString &section, const QString &fileName);

// Writes key=value into section, creating the file and the section as needed;
// text that would change the file's structure (a line break, "]" in a
// section, "=" in a key, a key that reads as a header) is refused.
// The file is replaced whole and at once, so a crash leaves the old or the new
// file, never part of one. False when the file could not be written.
bool WriteProfileString(const QString &section, const QString &key, const QString &value,
                        const QString &fileName);

} // namespace zolt
