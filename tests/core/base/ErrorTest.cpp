// SPDX-License-Identifier: MIT
#include <zolt/Error.h>

#include "core/base/Conversions.h"

#include "TestSupport.h"

#include <limits>

using namespace zolt;

// A host switches on the kind; ported code still reads the classic number.
TEST(Error, EachClassicNumberHasItsKind)
{
    const std::pair<qint32, ErrorCode> cases[] = {
        {0, ErrorCode::NoError},
        {Error::InvalidArgument, ErrorCode::InvalidArgument},
        {Error::Overflow, ErrorCode::Overflow},
        {Error::OutOfMemory, ErrorCode::OutOfMemory},
        {Error::TypeMismatch, ErrorCode::TypeMismatch},
        {Error::InvalidPropertyValue, ErrorCode::InvalidPropertyValue},
        {Error::InvalidPropertyIndex, ErrorCode::InvalidPropertyIndex},
        {Error::NoCurrentRecord, ErrorCode::NoCurrentRecord},
        {Error::ItemNotFound, ErrorCode::ItemNotFound},
        {Error::DuplicateKey, ErrorCode::DuplicateKey},
        {Error::DatabaseFailure, ErrorCode::DatabaseFailure},
        {Error::ServerUnreachable, ErrorCode::ServerUnreachable},
        {1000, ErrorCode::Other},   // a number of the host's own
    };
    for (const auto &[number, kind] : cases) {
        const Error e(number);
        EXPECT_EQ(e.code(), kind) << number;
        EXPECT_EQ(e.number(), number);
        EXPECT_FALSE(e.description().isEmpty()) << number;
    }
    try {
        DoubleToText(std::numeric_limits<double>::infinity());
        ADD_FAILURE() << "no error raised";
    } catch (const Error &e) {
        EXPECT_EQ(e.code(), ErrorCode::Overflow);
        EXPECT_STREQ(e.what(), "Overflow");
    }
}
