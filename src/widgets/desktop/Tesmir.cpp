// SPDX-License-Identifier: MIT
#include <zolt/Tesmir.h>
#include <zolt/clsSearch.h>

#include "core/base/Conversions.h"
#include "core/database/Database.h"
#include "core/platform/IniFile.h"
#include "widgets/platform/KeyDelivery.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSysInfo>
#include <QUrl>

#include <cmath>

#include <pwd.h>
#include <unistd.h>

namespace zolt {

namespace {

// Names and profile values come back through 255-character buffers, of which
// the last holds the terminating zero.
constexpr int BufferLength = 254;

constexpr qint32 HelpQuit = 2;

bool copyContents(QFile &from, QSaveFile &to)
{
    constexpr qint64 chunk = 1 << 20;
    while (!from.atEnd()) {
        const QByteArray block = from.read(chunk);
        if (block.isEmpty() || to.write(block) != block.size())
            return false;
    }
    return from.error() == QFileDevice::NoError;
}

qint32 modifierKey(qint32 shift)
{
    switch (shift) {
    case 1: return VkShift;
    case 2: return VkControl;
    case 3: return VkMenu;
    default: return 0;   // no real key
    }
}

} // namespace

struct Tesmir::Private {};

Tesmir::Tesmir()
    : d(std::make_unique<Private>())
{
}

Tesmir::~Tesmir() = default;

QString Tesmir::GetUSName() const
{
    const passwd *entry = getpwuid(getuid());
    const QString name = entry ? QString::fromLocal8Bit(entry->pw_name) : QString();
    return name.left(BufferLength);
}

QString Tesmir::GetPCName() const
{
    return QSysInfo::machineHostName().left(BufferLength);
}

qint32 Tesmir::BackUpData(const QString &PathData, const QString &FileName) const
{
    return CopyFile(PathData, FileName, 0);
}

qint32 Tesmir::CopyFile(const QString &lpExistingFileName, const QString &lpNewFileName,
                        qint32 bFailIfExists) const
{
    const QFileInfo source(lpExistingFileName);
    const QFileInfo target(lpNewFileName);
    if (!source.isFile() || target.isDir())
        return 0;
    if (target.exists() && (bFailIfExists != 0 || target.canonicalFilePath() == source.canonicalFilePath()))
        return 0;
    QFile from(lpExistingFileName);
    QSaveFile to(lpNewFileName);
    if (!from.open(QIODevice::ReadOnly) || !to.open(QIODevice::WriteOnly))
        return 0;
    if (!copyContents(from, to)) {
        to.cancelWriting();
        return 0;
    }
    return to.commit() ? 1 : 0;
}

void Tesmir::ESendKey(qint32 Key, qint32 Key_Event) const
{
    SendKeyStroke(Key, Key_Event);
}

void Tesmir::Gui_Phim(qint32 Key, qint32 Shift) const
{
    const qint32 modifier = modifierKey(Shift);
    if (Shift > 0)
        ESendKey(modifier, KeyStrokeDown);
    ESendKey(Key, KeyStrokeDown);
    ESendKey(Key, KeyStrokeUp);
    if (Shift > 0)
        ESendKey(modifier, KeyStrokeUp);
}

qint32 Tesmir::WinHelp(qint32 /*hWnd*/, const QString &lpHelpFile, qint32 wCommand,
                       qint32 /*dwData*/) const
{
    if (wCommand == HelpQuit)
        return 1;   // the desktop's viewer closes on its own
    if (!QFileInfo(lpHelpFile).isFile())
        return 0;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(lpHelpFile).absoluteFilePath()))
               ? 1 : 0;
}

void Tesmir::WriteRegA(const QString &UserName, const QString &VlName, const QString &Vl,
                       const QString &Path) const
{
    WriteProfileString(UserName, VlName, Vl, Path);
}

QString Tesmir::ReadRegVlA(const QString &UserName, const QString &VlName,
                           const QString &Path) const
{
    return ReadProfileString(UserName, VlName, QString(), Path).left(BufferLength);
}

QString Tesmir::FindShow(const QSqlDatabase &Connection, const QString &TblName, QString *Words, QWidget *parent) const
{
    UseConnection(Connection);
    clsSearch search;
    search.SetTableSearch(TblName);
    search.Show(1, parent);
    if (Words)
        *Words = search.ResultWords();
    return search.Result();
}

QString Tesmir::Sign(const QString &St) const
{
    if (St.isEmpty())
        return QString();
    const QChar first = St.front();
    return (first == QLatin1Char('-') || first == QLatin1Char('+')) ? QString(first) : QString();
}

QString Tesmir::CvNStr(const QVariant &Inp) const
{
    QString s = Trim(VariantToText(Inp));
    const QString sign = Sign(s);
    if (!sign.isEmpty())
        s.remove(0, 1);

    QString decimals;
    const int p = InStr(s, QStringLiteral(","));
    if (p > 0) {
        decimals = s.mid(p);
        s = s.left(p - 1);
    }

    QString grouped;
    while (s.size() >= 3) {
        const QString group = s.right(3);
        grouped = grouped.isEmpty() ? group : group + QLatin1Char('.') + grouped;
        s.chop(3);
    }
    if (!s.isEmpty())
        grouped = grouped.isEmpty() ? s : s + QLatin1Char('.') + grouped;
    if (!decimals.isEmpty())
        grouped += QLatin1Char(',') + decimals;
    return sign + grouped;
}

QString Tesmir::Mid1(const QString &St, qint32 Ps) const
{
    return (Ps > 0 && Ps <= St.size()) ? QString(St.at(Ps - 1)) : QString();
}

double Tesmir::CvTextToN(const QString &Inp) const
{
    QString s = Inp;
    double sign = 1.0;
    double fraction = 0.0;
    double whole = 0.0;
    QString decimals;

    const int p = InStr(s, QStringLiteral(","));
    if (p > 0) {
        if (Mid1(s, 1) == QLatin1String("-"))
            sign = -1.0;
        decimals = Trim(s.mid(p));
        s = Trim(s.left(p - 1));
        if (sign < 0)
            s.remove(0, 1);
    }
    s.remove(QLatin1Char('.'));

    if (!decimals.isEmpty() && IsNumeric(decimals))
        fraction = ToDouble(decimals) * std::pow(10.0, -double(decimals.size()));
    if (IsNumeric(s))
        whole = ToDouble(s);
    return (whole + fraction) * sign;
}

} // namespace zolt
