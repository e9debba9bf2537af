// SPDX-License-Identifier: MIT
#include "data/Conversions.h"
#include "logon/FrmLogon.h"
#include "logon/MdlLogon.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Error.h>
#include <zolt/clsLogon.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

using namespace zolt;
using test::child;

namespace {

const QString LongPassword = QStringLiteral("MatKhauRatDaiChoKeToan24");   // 24 characters: exponent form
const QString NotFound = QStringLiteral("Login|Mật khẩu hoặc người sử dụng không hợp lệ ");
const QString Failed = QStringLiteral("Login|Mật khẩu hoặc người sử dụng không hợp lệ");

class LogonTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db.exec(QStringLiteral("Create Table [User](Code Integer Primary Key, [Name] Text, Dec Text, "
                               "[Password] Double, IdGroup Integer)"));
        for (const auto &[code, name, password] : {std::tuple{1, "admin", QStringLiteral("admin")},
                                                   {7, "Nguyễn Văn An", LongPassword}})
            db.exec(QStringLiteral("Insert Into [User] Values(%1, '%2', '', %3, 1)")
                        .arg(code).arg(QString::fromUtf8(name), DoubleToText(EncodePassword(password))));
    }
    // Shows the logon and acts on it with real keys and clicks once it is up.
    qint32 logon(const std::function<void(QWidget &)> &act)
    {
        test::whenModalShows([act](QWidget *dialog) { act(*dialog); });
        return clsLogon().ShowLogon(db.db());
    }
    test::TempDatabase db;
};

QLineEdit *user(QWidget &form) { return child<QLineEdit>(&form, "Txtuser"); }
QLineEdit *password(QWidget &form) { return child<QLineEdit>(&form, "TxtPass"); }
void click(QWidget &form, const char *button) { QTest::mouseClick(child<QPushButton>(&form, button), Qt::LeftButton); }

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
    QString shown;
    test::whenModalShows([&shown](QWidget *box) {
        shown = child<QLabel>(box, "label4")->text() + QLatin1Char('|') + child<QLabel>(box, "Message")->text();
        QTest::keyClick(box->focusWidget(), Qt::Key_Return);
    });
    click(form, "CmdOk");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));   // back to the logon
    return shown;
}

} // namespace

TEST_F(LogonTest, TheRightPasswordReturnsTheUsersCodeByEnterAlone)
{
    EXPECT_EQ(logon([](QWidget &form) {
        EXPECT_EQ(form.windowTitle(), "Login");
        // Centred at the size its layout gave it.
        EXPECT_EQ(form.frameGeometry().center().x(), form.screen()->geometry().center().x());
        typeAndEnter(form, QStringLiteral("admin"));
        EXPECT_TRUE(password(form)->hasFocus());
        typeAndEnter(form, QStringLiteral("ADMIN"));   // passwords are case-blind
        EXPECT_TRUE(child(&form, "CmdOk")->hasFocus());
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);   // Enter on the button logs on
    }), 1);
    EXPECT_TRUE(db.statements().contains(QStringLiteral("SELECT  *  FROM [User] WHERE ([Name]='admin') And ( [Password]=26209)")));

    EXPECT_EQ(logon([](QWidget &form) {
        typeAndEnter(form, QStringLiteral("  Nguyễn Văn An  "));   // names are trimmed
        test::typeText(password(form), QStringLiteral(" ") + LongPassword.toLower());
        click(form, "CmdOk");
    }), 7);
    EXPECT_TRUE(db.statements().last().contains(QStringLiteral("[Name]='Nguyễn Văn An') And ( [Password]=")));
    EXPECT_TRUE(db.statements().last().contains(QStringLiteral("E+")));
}

TEST_F(LogonTest, AWrongPasswordIsRefusedAndTheNameSelectedForAnotherTry)
{
    EXPECT_EQ(logon([](QWidget &form) {
        typeAndEnter(form, QStringLiteral("admin"));
        test::typeText(password(form), QStringLiteral("sai"));
        EXPECT_EQ(clickOkAndReadRefusal(form), NotFound);
        EXPECT_TRUE(user(form)->hasFocus());
        EXPECT_EQ(user(form)->selectedText(), "admin");
        password(form)->selectAll();
        test::typeText(password(form), QStringLiteral("admin"));
        click(form, "CmdOk");
    }), 1);
}

TEST_F(LogonTest, FailuresTakeTheErrorBranchAndQuotesNeverReachTheDatabase)
{
    EXPECT_EQ(logon([this](QWidget &form) {
        test::typeText(user(form), QStringLiteral("x') Or ('1'='1"));
        const qsizetype before = db.statements().size();
        EXPECT_EQ(clickOkAndReadRefusal(form), Failed);
        EXPECT_EQ(db.statements().size(), before);
        // The error branch leaves the first character out of the selection.
        EXPECT_EQ(user(form)->selectedText(), "') Or ('1'='1");
        click(form, "CmdCan");
    }), 0);
    db.exec(QStringLiteral("Drop Table [User]"));
    EXPECT_EQ(logon([](QWidget &form) {
        test::typeText(user(form), QStringLiteral("admin"));
        EXPECT_EQ(clickOkAndReadRefusal(form), Failed);
        form.close();   // the close box cancels
    }), 0);
}

TEST_F(LogonTest, OkWaitsForANameAndEscapeCancels)
{
    EXPECT_EQ(logon([](QWidget &form) {
        QWidget *ok = child(&form, "CmdOk");
        EXPECT_FALSE(ok->isEnabled());
        test::typeText(user(form), QStringLiteral("   "));
        EXPECT_FALSE(ok->isEnabled());
        test::typeText(user(form), QStringLiteral("a"));
        EXPECT_TRUE(ok->isEnabled());
        click(form, "CmdHelp");   // does nothing
        QTest::keyClick(user(form), Qt::Key_Escape);
    }), 0);
    // A QSqlDatabase without a driver is refused before a dialog would wait for ever.
    EXPECT_EQ(test::errorNumberOf([] { clsLogon().ShowLogon(QSqlDatabase()); }), Error::TypeMismatch);
}
