// SPDX-License-Identifier: MIT
#pragma once

// What the fuzz targets share: the fuzzer's bytes as texts, and a check that
// stops the run when a property fails.

#include <QString>
#include <QStringList>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace zolt::fuzz {

// The input read as UTF-8 and cut into up to parts texts at NUL bytes.
inline QStringList texts(const uint8_t *data, size_t size, int parts)
{
    QStringList result = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size))
                             .split(QChar(0));
    while (result.size() < parts)
        result << QString();
    return result.mid(0, parts);
}

inline void check(bool property, const char *what)
{
    if (!property) {
        std::fprintf(stderr, "property failed: %s\n", what);
        std::abort();
    }
}

} // namespace zolt::fuzz
