// SPDX-License-Identifier: MIT
#include "core/platform/IniFile.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/platform/StoreLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>

#include <optional>

namespace zolt {

namespace {

// A line as it stands in the file: its bytes, kept exactly while the line is
// not changed (an 8-bit legacy text included), and its own line ending.
struct Line {
    QString text;
    QByteArray bytes;    // null once the library has made or changed the line
    QByteArray ending;   // "\r\n", "\n", "\r", or "" for a last line without one
};

struct Lines {
    QList<Line> lines;
    QByteArray newline = "\n";   // for the lines the library adds: the file's first ending

    // A line made by the library.
    Line made(const QString &text) const { return {text, QByteArray(), newline}; }
    // Lines are about to follow the last one: it ends as the file's lines do.
    void endLastLine()
    {
        if (!lines.isEmpty() && lines.last().ending.isEmpty())
            lines.last().ending = newline;
    }
};

std::optional<Lines> readLines(const QString &path)
{
    QFile file(path);
    if (!file.exists())
        return Lines{};
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray data = file.readAll();
    Lines result;
    qsizetype start = 0;
    while (start < data.size()) {
        qsizetype end = start;
        while (end < data.size() && data[end] != '\n' && data[end] != '\r')
            ++end;
        const qsizetype next = end + (data.mid(end, 2) == "\r\n" ? 2 : (end < data.size() ? 1 : 0));
        const QByteArray bytes = data.mid(start, end - start);
        result.lines.append({QString::fromUtf8(bytes), bytes, data.mid(end, next - end)});
        start = next;
    }
    if (!result.lines.isEmpty() && !result.lines.first().ending.isEmpty())
        result.newline = result.lines.first().ending;
    return result;
}

QByteArray fileBytes(const Lines &file)
{
    QByteArray data;
    for (const Line &line : file.lines)
        data += (line.bytes.isNull() ? line.text.toUtf8() : line.bytes) + line.ending;
    return data;
}

// The name of a "[Section]" line, or nothing for any other line.
std::optional<QString> sectionName(const QString &line)
{
    const QString t = line.trimmed();
    if (!t.startsWith(QLatin1Char('[')))
        return std::nullopt;
    const qsizetype close = t.indexOf(QLatin1Char(']'));
    if (close < 0)
        return std::nullopt;
    return t.mid(1, close - 1).trimmed();
}

bool hasLineBreak(const QString &text)
{
    return text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r'));
}

// Names and values that would change the file's structure are refused.
// (Names are taken without the blanks around them, as the file shows them.)
bool writable(const QString &section, const QString &key, const QString &value)
{
    return !section.isEmpty() && !key.isEmpty() && !section.contains(QLatin1Char(']'))
           && !key.contains(QLatin1Char('=')) && !key.startsWith(QLatin1Char('['))   // it would read as a header
           && !hasLineBreak(section) && !hasLineBreak(key) && !hasLineBreak(value);
}

bool isKeyLine(const QString &line, const QString &key)
{
    const qsizetype eq = line.indexOf(QLatin1Char('='));
    return eq > 0 && SameText(line.left(eq).trimmed(), key);
}

// Rows [begin, end) of the section's body, or nothing when the section is absent.
std::optional<std::pair<qsizetype, qsizetype>> sectionBody(const QList<Line> &lines,
                                                           const QString &section)
{
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto name = sectionName(lines[i].text);
        if (!name || !SameText(*name, section))
            continue;
        qsizetype end = i + 1;
        while (end < lines.size() && !sectionName(lines[end].text))
            ++end;
        return std::make_pair(i + 1, end);
    }
    return std::nullopt;
}

QString unquoted(const QString &value)
{
    if (value.size() >= 2) {
        const QChar first = value.front();
        if ((first == QLatin1Char('"') || first == QLatin1Char('\'')) && value.back() == first)
            return value.mid(1, value.size() - 2);
    }
    return value;
}

void putKey(Lines &file, const QString &section, const QString &key, const QString &value)
{
    QList<Line> &lines = file.lines;
    const QString keyLine = key + QLatin1Char('=') + value;
    const auto body = sectionBody(lines, section);
    if (!body) {
        file.endLastLine();
        lines << file.made(QLatin1Char('[') + section + QLatin1Char(']')) << file.made(keyLine);
        return;
    }
    auto [begin, end] = *body;
    for (qsizetype i = begin; i < end; ++i) {
        if (isKeyLine(lines[i].text, key)) {
            lines[i] = {keyLine, QByteArray(), lines[i].ending};
            return;
        }
    }
    // A new key goes after the section's last non-blank line.
    qsizetype at = end;
    while (at > begin && lines[at - 1].text.trimmed().isEmpty())
        --at;
    if (at == lines.size())
        file.endLastLine();
    lines.insert(at, file.made(keyLine));
}

} // namespace

QString ProfilePath(const QString &fileName)
{
    if (fileName.contains(QLatin1Char('/')))
        return fileName;
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(fileName);
}

QString ReadProfileString(const QString &section, const QString &key,
                          const QString &defaultValue, const QString &fileName)
{
    const auto file = readLines(ProfilePath(fileName));
    if (!file)
        return defaultValue;
    const auto body = sectionBody(file->lines, section.trimmed());
    if (!body)
        return defaultValue;
    for (qsizetype i = body->first; i < body->second; ++i) {
        const QString &line = file->lines[i].text;
        if (isKeyLine(line, key.trimmed()))
            return unquoted(line.mid(line.indexOf(QLatin1Char('=')) + 1).trimmed());
    }
    return defaultValue;
}

bool ProfileSectionExists(const QString &section, const QString &fileName)
{
    const auto file = readLines(ProfilePath(fileName));
    return file && sectionBody(file->lines, section.trimmed()).has_value();
}

bool WriteProfileString(const QString &sectionText, const QString &keyText, const QString &value,
                        const QString &fileName)
{
    const QString path = ProfilePath(fileName);
    const QString section = sectionText.trimmed();
    const QString key = keyText.trimmed();
    if (!writable(section, key, value))
        return false;
    QDir().mkpath(QFileInfo(path).absolutePath());
    // Read, change and replace under a lock, so that two writers of the same
    // file never lose each other's keys.
    const auto lock = LockForWrite(path + QStringLiteral(".lock"));
    if (!lock)
        return false;
    auto file = readLines(path);
    if (!file)
        return false;
    putKey(*file, section, key, value);

    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly))
        return false;
    out.write(fileBytes(*file));
    const bool written = out.commit();
    qCDebug(zoltStore) << (written ? "written:" : "not written:") << path << section << key;
    return written;
}

} // namespace zolt
