// SPDX-License-Identifier: MIT
#include "core/platform/StoreLock.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QThread>

namespace zolt {

namespace {

// A live writer names itself in the lock file as soon as it has made it.
bool ownerless(const QLockFile &lock, const QString &path)
{
    qint64 pid = 0;
    QString host, application;
    return !lock.getLockInfo(&pid, &host, &application)
           && QFileInfo(path).lastModified().msecsTo(QDateTime::currentDateTime()) > 100;
}

} // namespace

std::unique_ptr<QLockFile> LockForWrite(const QString &path)
{
    auto lock = std::make_unique<QLockFile>(path);
    // Writes take milliseconds: a lock older than a second is left over.
    lock->setStaleLockTime(1000);
    const QDeadlineTimer deadline(2000);
    while (!lock->tryLock(0)) {
        if (deadline.hasExpired())
            return nullptr;
        if (ownerless(*lock, path))
            lock->removeStaleLockFile();
        else
            QThread::msleep(10);
    }
    return lock;
}

} // namespace zolt
