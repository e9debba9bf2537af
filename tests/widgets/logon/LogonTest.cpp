// SPDX-License-Identifier: MIT
#include "core/base/Conversions.h"
#include "core/logon/MdlLogon.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Error.h>
#include <zolt/clsLogon.h>

#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::child;

namespace {

const QString LongPassword = u"MatKhauRatDaiChoKeToan24"_s;   // 24 characters: a digest in exponent form
const QString Refused = u"Login|Mật khẩu hoặc người sử dụng không hợp lệ"_s;

class LogonTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        db.createLibraryTables();
        db.exec(u"Insert Into [User] Values(1, 'admin', '', 26209, 1), (7, 'Nguyễn Văn An', '', %1, 1)"_s
                    .arg(DoubleToText(EncodePassword(LongPassword))));
    }
    // Shows the logon and acts on it with real keys and clicks once it is up.
    qint32 logon(const std::function<void(QWidget &)> &act)
    {
        test::whenModalShows([act](QWidget *dialog) { act(*dialog); });
        return clsLogon().ShowLogon(db.db());
    }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, LogonTest, ::testing::ValuesIn(test::Engines), test::EngineName);

QLineEdit *field(QWidget &form, const char *name) { return child<QLineEdit>(&form, name); }
void click(QWidget &form, const char *button) { test::click(&form, button); }

// Types into the focused field and presses Enter, which moves on like Tab.
void typeAndEnter(QWidget &form, const QString &text)
{
    test::typeText(form.focusWidget(), text);
    QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    QTest::qWait(1);   // the Tab that Enter sends arrives after the Enter
}

// Clicks Đồng ý and answers the message it brings; returns that message.
QString clickOkAndReadRefusal(QWidget &form)
{
    QStringList shown;
    test::answerMessages(&shown);
    click(form, "CmdOk");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));   // back to the logon
    return shown.value(0);
}

} // namespace

TEST_P(LogonTest, TheRightPasswordReturnsTheUsersCodeByEnterAlone)
{
    EXPECT_EQ(logon([](QWidget &form) {
        EXPECT_EQ(form.windowTitle(), "Login");
        // Centred at the size its layout gave it.
        EXPECT_EQ(form.frameGeometry().center().x(), form.screen()->geometry().center().x());
        typeAndEnter(form, u"admin"_s);
        typeAndEnter(form, u"ADMIN"_s);   // passwords are case-blind
        EXPECT_TRUE(child(&form, "CmdOk")->hasFocus());
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);   // Enter on the button logs on
    }), 1);
    if (db.traced()) {
        EXPECT_TRUE(db.statements().contains(u"SELECT  *  FROM [User] WHERE ([Name]='admin') And ( [Password]=26209)"_s));
    }

    EXPECT_EQ(logon([](QWidget &form) {
        typeAndEnter(form, u"  Nguyễn Văn An  "_s);   // names are trimmed
        test::typeText(field(form, "TxtPass"), u" "_s + LongPassword.toLower());
        click(form, "CmdOk");
    }), 7);
    if (db.traced()) {
        EXPECT_TRUE(db.statements().last().contains(u"[Name]='Nguyễn Văn An') And ( [Password]="_s));
        EXPECT_TRUE(db.statements().last().contains(u"E+"_s));
    }
}

TEST_P(LogonTest, AWrongPasswordIsRefusedAndTheNameSelectedForAnotherTry)
{
    EXPECT_EQ(logon([](QWidget &form) {
        typeAndEnter(form, u"admin"_s);
        test::typeText(field(form, "TxtPass"), u"sai"_s);
        EXPECT_EQ(clickOkAndReadRefusal(form), Refused + u' ');   // this message ends in a blank
        EXPECT_EQ(field(form, "Txtuser")->selectedText(), "admin");
        EXPECT_TRUE(field(form, "Txtuser")->hasFocus());
        field(form, "TxtPass")->selectAll();
        test::typeText(field(form, "TxtPass"), u"admin"_s);
        click(form, "CmdOk");
    }), 1);
}

TEST_P(LogonTest, FailuresTakeTheErrorBranchAndQuotesNeverReachTheDatabase)
{
    EXPECT_EQ(logon([this](QWidget &form) {
        test::typeText(field(form, "Txtuser"), u"x') Or ('1'='1"_s);
        EXPECT_EQ(clickOkAndReadRefusal(form), Refused);
        EXPECT_FALSE(db.statements().join(u'\n').contains(u"'1'='1"_s));
        // The error branch leaves the first character out of the selection.
        EXPECT_EQ(field(form, "Txtuser")->selectedText(), "') Or ('1'='1");
        click(form, "CmdCan");
    }), 0);
    db.exec(u"Drop Table [User]"_s);
    EXPECT_EQ(logon([](QWidget &form) {
        test::typeText(field(form, "Txtuser"), u"admin"_s);
        EXPECT_EQ(clickOkAndReadRefusal(form), Refused);
        form.close();   // the close box cancels
    }), 0);
}

TEST_P(LogonTest, OkWaitsForANameAndEscapeCancels)
{
    EXPECT_EQ(logon([](QWidget &form) {
        QWidget *ok = child(&form, "CmdOk");
        test::typeText(field(form, "Txtuser"), u"   "_s);
        EXPECT_FALSE(ok->isEnabled());
        test::typeText(field(form, "Txtuser"), u"a"_s);
        EXPECT_TRUE(ok->isEnabled());
        click(form, "CmdHelp");   // does nothing
        QTest::keyClick(form.focusWidget(), Qt::Key_Escape);
    }), 0);
    // A QSqlDatabase without a driver is refused before a dialog would wait for ever.
    EXPECT_EQ(test::errorNumberOf([] { clsLogon().ShowLogon(QSqlDatabase()); }), Error::TypeMismatch);
}
