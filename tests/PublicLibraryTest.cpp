// Links only the installed shape of the library: the public headers and the
// shared object.
#include <zolt/Enums.h>
#include <zolt/Error.h>
#include <zolt/Tesmir.h>

#include <gtest/gtest.h>

#include <dlfcn.h>

TEST(PublicLibrary, OffersItsPublicClasses)
{
    zolt::Tesmir tesmir;
    EXPECT_EQ(tesmir.CvNStr(QStringLiteral("1234567,5")), "1.234.567,5");
    EXPECT_DOUBLE_EQ(tesmir.CvTextToN(QStringLiteral("1.234.567,5")), 1234567.5);
    EXPECT_EQ(zolt::Error(13).description(), "Type mismatch");
    EXPECT_EQ(zolt::HK_LOCAL_MACHINE, qint32(0x80000002u));
    EXPECT_EQ(zolt::vbYesNo, 4);
}

TEST(PublicLibrary, HidesEverythingThatIsNotPublic)
{
    // Public symbols are exported...
    EXPECT_NE(dlsym(RTLD_DEFAULT, "_ZNK4zolt6Tesmir6CvNStrERK8QVariant"), nullptr);
    // ...internal modules are not.
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "_ZN4zolt8FixQuoteERK8QVariant"), nullptr);
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "_ZN4zolt13DoubleToTextEd"), nullptr);
}
