// SPDX-License-Identifier: MIT
// A host built against the installed library: its headers, its package and
// its shared object, and nothing of its internals.
#include <zolt/Error.h>
#include <zolt/Tesmir.h>

#include <QFileInfo>

#include <cstdio>

#include <dlfcn.h>

int main()
{
    int failures = 0;
    const auto check = [&failures](bool ok, const char *what) {
        if (!ok)
            std::fprintf(stderr, "host: %s\n", what), ++failures;
    };
    check(QFileInfo(QStringLiteral(ZOLT_SCHEMA)).isFile(), "the table script is where the package says");
    check(zolt::Tesmir().CvNStr(QStringLiteral("1234567,5")) == QStringLiteral("1.234.567,5"), "CvNStr");
    check(zolt::Error(13).description() == QStringLiteral("Type mismatch"), "Error");
    check(dlsym(RTLD_DEFAULT, "_ZNK4zolt6Tesmir6CvNStrERK8QVariant"), "public classes are exported");
    check(!dlsym(RTLD_DEFAULT, "_ZN4zolt8FixQuoteERK8QVariant"), "internal modules are hidden");
    return failures;
}
