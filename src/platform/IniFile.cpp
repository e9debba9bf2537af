// SPDX-License-Identifier: MIT
#include "platform/IniFile.h"

#include "data/Conversions.h"
#include "platform/StoreLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>

#include <optional>

namespace zolt {

namespace {

struct Lines {
    QStringList lines;
    QString newline = QStringLiteral("\n");
};

std::optional<Lines> readLines(const QString &path)
{
    QFile file(path);
    if (!file.exists())
        return Lines{};
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QString text = QString::fromUtf8(file.readAll());
    Lines result;
    if (text.contains(QLatin1String("\r\n")))
        result.newline = QStringLiteral("\r\n");
    result.lines = text.split(result.newline);
    if (!result.lines.isEmpty() && result.lines.last().isEmpty())
        result.lines.removeLast();   // the file's final line break
    return result;
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
bool writable(const QString &section, const QString &key, const QString &value)
{
    return !section.trimmed().isEmpty() && !key.trimmed().isEmpty()
           && !section.contains(QLatin1Char(']')) && !key.contains(QLatin1Char('='))
           && !hasLineBreak(section) && !hasLineBreak(key) && !hasLineBreak(value);
}

bool isKeyLine(const QString &line, const QString &key)
{
    const qsizetype eq = line.indexOf(QLatin1Char('='));
    return eq > 0 && SameText(line.left(eq).trimmed(), key);
}

// Rows [begin, end) of the section's body, or nothing when the section is absent.
std::optional<std::pair<qsizetype, qsizetype>> sectionBody(const QStringList &lines,
                                                           const QString &section)
{
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto name = sectionName(lines[i]);
        if (!name || !SameText(*name, section))
            continue;
        qsizetype end = i + 1;
        while (end < lines.size() && !sectionName(lines[end]))
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

void putKey(QStringList &lines, const QString &section, const QString &key, const QString &value)
{
    const QString keyLine = key + QLatin1Char('=') + value;
    const auto body = sectionBody(lines, section);
    if (!body) {
        lines << QLatin1Char('[') + section + QLatin1Char(']') << keyLine;
        return;
    }
    auto [begin, end] = *body;
    for (qsizetype i = begin; i < end; ++i) {
        if (isKeyLine(lines[i], key)) {
            lines[i] = keyLine;
            return;
        }
    }
    // A new key goes after the section's last non-blank line.
    qsizetype at = end;
    while (at > begin && lines[at - 1].trimmed().isEmpty())
        --at;
    lines.insert(at, keyLine);
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
    const auto body = sectionBody(file->lines, section);
    if (!body)
        return defaultValue;
    for (qsizetype i = body->first; i < body->second; ++i) {
        const QString &line = file->lines[i];
        if (isKeyLine(line, key))
            return unquoted(line.mid(line.indexOf(QLatin1Char('=')) + 1).trimmed());
    }
    return defaultValue;
}

bool ProfileSectionExists(const QString &section, const QString &fileName)
{
    const auto file = readLines(ProfilePath(fileName));
    return file && sectionBody(file->lines, section).has_value();
}

bool WriteProfileString(const QString &section, const QString &key, const QString &value,
                        const QString &fileName)
{
    const QString path = ProfilePath(fileName);
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
    putKey(file->lines, section, key, value);

    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly))
        return false;
    out.write((file->lines.join(file->newline) + file->newline).toUtf8());
    return out.commit();
}

} // namespace zolt
