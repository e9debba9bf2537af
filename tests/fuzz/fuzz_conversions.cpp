// SPDX-License-Identifier: MIT
// Numbers and dates from text: what IsNumeric accepts, ToDouble reads (or
// raises overflow); what IsDate accepts, ParseDayFirstDate reads.
#include "FuzzInput.h"

#include "core/base/Conversions.h"

#include <zolt/Error.h>

#include <cmath>

using namespace zolt;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = fuzz::texts(data, size, 1).first();
    if (IsNumeric(text)) {
        try {
            fuzz::check(std::isfinite(ToDouble(text)), "a numeric text reads as no finite number");
        } catch (const Error &e) {
            fuzz::check(e.number() == Error::Overflow, "a numeric text raises another error than overflow");
        }
    }
    fuzz::check(IsDate(text) == ParseDayFirstDate(text).has_value(), "IsDate and the date read disagree");
    try {   // errors are answers here; only a crash or undefined behaviour is a fault
        DoubleToText(ToDouble(QVariant(text)));
        RoundToLong(ToDouble(QVariant(text)));
    } catch (const Error &) {
    }
    try {
        Mid(text, int(size % 7), int(size % 5) - 1);
        InStr(int(size % 9), text, text.left(2));
    } catch (const Error &) {
    }
    return 0;
}
