// SPDX-License-Identifier: MIT
#include "TestSupport.h"

#include <zolt/Error.h>
#include <zolt/MenuRights.h>

using namespace zolt;

TEST(MenuRights, GetBitReadsOneBitOfAPositiveWholeNumber)
{
    const std::tuple<QVariant, qint32, quint8> cases[] = {
        {5, 0, 1}, {5, 1, 0}, {5, 2, 1}, {5, 3, 0}, {0, 4, 0}, {-1, 0, 0} /* negative: no bits */,
        {QVariant(), 0, 0}, {2.5, 0, 0} /* rounds half to even first */, {u"6"_qs, 1, 1}, {1 << 30, 30, 1}};
    for (const auto &[value, pos, bit] : cases)
        EXPECT_EQ(GetBit(value, pos), bit) << value.toString().toStdString() << " " << pos;
    EXPECT_EQ(test::errorNumberOf([] { GetBit(u"x"_qs, 0); }), Error::TypeMismatch);
    EXPECT_EQ(test::errorNumberOf([] { GetBit(1e10, 0); }), Error::Overflow);
}
