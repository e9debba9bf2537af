// SPDX-License-Identifier: MIT
// The registry store's key paths: whatever a key is called, its value reads
// back from it, and no file lands outside the store's folder.
#include "FuzzInput.h"

#include "core/platform/Registry.h"

#include <zolt/Enums.h>

#include <QDirIterator>
#include <QTemporaryDir>

using namespace zolt;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static QTemporaryDir dir;
    static const bool configured = qputenv("ZOLT_USER_REGISTRY", QFile::encodeName(dir.filePath(QStringLiteral("store"))));
    (void)configured;
    static int runs = 0;
    if (++runs % 500 == 0)
        QDir(dir.filePath(QStringLiteral("store"))).removeRecursively();   // keeps each check quick
    const QStringList in = fuzz::texts(data, size, 2);
    const QString key = QStringLiteral("Software\\") + in[0];
    const QString text = in[1].left(200).remove(QChar(0));
    if (RegSetValue(HK_CURRENT_USER, key, QStringLiteral("v"), RegText(text)) == RegSuccess) {
        RegValue value;
        fuzz::check(RegQueryValue(HK_CURRENT_USER, key, QStringLiteral("v"), 1 << 20, value) == RegSuccess
                        && QString::fromUtf8(value.data).remove(QChar(0)) == text,
                    "a value written does not read back from its key");
    }
    QDirIterator files(dir.path(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (files.hasNext())
        fuzz::check(files.next().startsWith(dir.filePath(QStringLiteral("store/"))), "a file outside the store");
    return 0;
}
