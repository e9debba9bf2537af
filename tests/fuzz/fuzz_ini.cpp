// SPDX-License-Identifier: MIT
// Initialisation files: a value written is read back as written (apart from
// the blanks and the enclosing quotes that the format drops), and a write
// keeps the bytes of every line it does not own.
#include "FuzzInput.h"

#include "core/platform/IniFile.h"

#include <QFile>
#include <QTemporaryDir>

using namespace zolt;

namespace {

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("fuzz.ini"));
    const QStringList in = fuzz::texts(data, size, 4);
    const QString value = in[2].trimmed();
    const bool quoted = value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'')
                        && value.back() == value.front();

    QFile::remove(path);
    if (WriteProfileString(in[0], in[1], value, path) && !quoted)
        fuzz::check(ReadProfileString(in[0], in[1], QStringLiteral("\x01"), path) == value,
                    "a value written does not read back");

    // Someone else's file gains a section of ours at its end, and keeps the rest.
    const QByteArray theirs = in[3].toUtf8();
    if (!in[3].contains(QStringLiteral("zzfuzz"), Qt::CaseInsensitive)) {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(theirs);
        file.close();
        if (WriteProfileString(QStringLiteral("zzfuzz"), QStringLiteral("k"), QStringLiteral("v"), path))
            fuzz::check(bytesOf(path).startsWith(theirs.endsWith('\n') || theirs.endsWith('\r') || theirs.isEmpty()
                                                     ? theirs : theirs + '\n')
                            || bytesOf(path).startsWith(theirs + '\r'),
                        "a line the write does not own changed");
    }
    return 0;
}
