// SPDX-License-Identifier: MIT
#include "core/base/Conversions.h"
#include "core/logon/MdlLogon.h"

#include "TestSupport.h"

using namespace zolt;

TEST(EncodePassword, WeighsUpperCasedCharactersByPowersOfFour)
{
    const std::pair<const char *, double> cases[] = {
        {"AB", 329}, {"BA", 326}, {"", 0}, {"admin", 26209}, {"ADMIN", 26209}, {"café", 0}, {"a\tb", 0}, {"ß", 0}, {"straße", 0}};
    for (const auto &[password, digest] : cases)
        EXPECT_EQ(EncodePassword(QString::fromUtf8(password)), digest) << password;
    EXPECT_TRUE(DoubleToText(EncodePassword(QString(24, QLatin1Char('A')))).contains(QStringLiteral("E+")));
    EXPECT_EQ(test::errorNumberOf([] { EncodePassword(QString(600, QLatin1Char('z'))); }), 6);
}
