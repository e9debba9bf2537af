// SPDX-License-Identifier: MIT
// SQL literals and the growing of statements: no crash, and a text literal
// never ends early, whatever the value.
#include "FuzzInput.h"

#include "core/database/SqlFunc.h"

#include <zolt/Error.h>

using namespace zolt;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QStringList in = fuzz::texts(data, size, 3);
    const QString literal = SqlValue(in[1], QStringLiteral("S"));
    // Between its apostrophes every apostrophe is doubled.
    fuzz::check(literal.mid(1, literal.size() - 2).count(u'\'') % 2 == 0, "text literal ends early");
    for (const char *code : {"N", "D", "LR", "LA"}) {
        try {
            SqlValue(in[1], QLatin1String(code));
        } catch (const Error &) {
        }
    }
    try {
        AddValues(in[0], in[2], in[1]);
    } catch (const Error &) {
    }
    AddSet(in[0], in[2], in[1]);
    return 0;
}
