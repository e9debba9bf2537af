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
    QStringList command = QStringList{QStringLiteral(ZOLT_WRITER_TOOL)} + args;
    if (asNobody)
        command = QStringList{QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"),
                              QStringLiteral("--regid=65534"), QStringLiteral("--clear-groups")} + command;
    process->start(command.first(), command.mid(1));
    EXPECT_TRUE(process->waitForStarted());
    return process;
}

// Runs the writer to its end; what it printed.
inline QString runWriter(const QStringList &args, bool asNobody = false)
{
    const auto process = startWriter(args, asNobody);
    EXPECT_TRUE(process->waitForFinished(120000));
    EXPECT_EQ(process->exitCode(), 0) << args.join(QLatin1Char(' ')).toStdString();
    return QString::fromUtf8(process->readAllStandardOutput()).trimmed();
}

} // namespace zolt::test
