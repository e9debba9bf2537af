// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>

namespace zolt::test {

// The writer tool in a process of its own; as root it can run as nobody, to
// be refused as a clerk would.
inline std::unique_ptr<QProcess> startWriter(const QStringList &args, bool asNobody = false)
{
    auto process = std::make_unique<QProcess>();
    const QStringList nobody = {QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"),
                                QStringLiteral("--regid=65534"), QStringLiteral("--clear-groups")};
    const QStringList command = (asNobody ? nobody : QStringList()) + QStringList{QStringLiteral(ZOLT_WRITER_TOOL)} + args;
    process->start(command.first(), command.mid(1));
    EXPECT_TRUE(process->waitForStarted());
    return process;
}

// Waits for writers to end well.
inline void finish(std::initializer_list<QProcess *> writers)
{
    for (QProcess *writer : writers)
        EXPECT_TRUE(writer->waitForFinished(120000) && writer->exitCode() == 0) << writer->arguments().join(u' ').toStdString();
}

// Runs the writer to its end; what it printed.
inline QString runWriter(const QStringList &args, bool asNobody = false)
{
    const auto process = startWriter(args, asNobody);
    finish({process.get()});
    return QString::fromUtf8(process->readAllStandardOutput()).trimmed();
}

} // namespace zolt::test
