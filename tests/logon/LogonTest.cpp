#include "data/Conversions.h"
#include "logon/FrmLogon.h"
#include "logon/MdlLogon.h"
#include "msgbox/MessageBox.h"

#include "TestSupport.h"

#include <zolt/Error.h>
#include <zolt/clsLogon.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace zolt;

TEST(EncodePassword, WeighsUpperCasedCharactersByPowersOfFour)
{
    EXPECT_EQ(EncodePassword(QStringLiteral("AB")), 329);
    EXPECT_EQ(EncodePassword(QStringLiteral("BA")), 326);
    EXPECT_EQ(EncodePassword(QStringLiteral("A")), 65);
    EXPECT_EQ(EncodePassword(QString()), 0);
    EXPECT_EQ(EncodePassword(QStringLiteral("admin")), EncodePassword(QStringLiteral("ADMIN")));
    EXPECT_EQ(EncodePassword(QStringLiteral("café")), 0);
    EXPECT_EQ(EncodePassword(QStringLiteral("a\tb")), 0);
    const double long24 = EncodePassword(QString(24, QLatin1Char('A')));
    EXPECT_GE(long24, 1e15);
    EXPECT_TRUE(DoubleToText(long24).contains(QStringLiteral("E+")));
    EXPECT_EQ(test::errorNumberOf([] { EncodePassword(QString(600, QLatin1Char('z'))); }), 6);
}

namespace {

const QString LongPassword = QStringLiteral("MatKhauRatDaiChoKeToan24");   // 24 characters

class LogonTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db.exec(QStringLiteral("Create Table [User](Code Integer Primary Key, [Name] Text, Dec Text, "
                               "[Password] Double, IdGroup Integer)"));
        addUser(1, QStringLiteral("admin"), QStringLiteral("admin"));
        addUser(7, QStringLiteral("Nguyễn Văn An"), LongPassword);
        addUser(9, QStringLiteral("khach"), QString());
    }
    void addUser(int code, const QString &name, const QString &password)
    {
        db.exec(QStringLiteral("Insert Into [User] Values(%1, '%2', '', %3, 1)")
                    .arg(code).arg(name, DoubleToText(EncodePassword(password))));
    }

    // Shows the logon and acts on it with real keys and clicks once it is up.
    qint32 logon(const std::function<void(FrmLogon &)> &act)
    {
        test::whenModalShows([act](QWidget *dialog) {
            auto *form = qobject_cast<FrmLogon *>(dialog);
            ASSERT_NE(form, nullptr);
            act(*form);
        });
        return clsLogon().ShowLogon(db.db());
    }

    test::TempDatabase db;
};

// Types into the focused field and presses Enter, which moves on like Tab.
void typeAndEnter(FrmLogon &form, const QString &text)
{
    test::typeText(form.focusWidget(), text);
    QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    QTest::qWait(1);   // the Tab that Enter sends arrives after the Enter
}

// Clicks Đồng ý and answers the message it brings; returns that message.
QString clickOkAndReadRefusal(FrmLogon &form)
{
    QString shown;
    test::whenModalShows([&shown](QWidget *dialog) {
        auto *box = qobject_cast<MessageBox *>(dialog);
        ASSERT_NE(box, nullptr);
        shown = box->label4->text() + QLatin1Char('|') + box->Message->text();
        test::saveScreenshot(box, QStringLiteral("logon-refused"));
        QTest::keyClick(box->focusWidget(), Qt::Key_Return);
    });
    QTest::mouseClick(form.CmdOk, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));   // back to the logon
    return shown;
}

void cancel(FrmLogon &form)
{
    QTest::mouseClick(form.CmdCan, Qt::LeftButton);
}

const QString NotFound = QStringLiteral("Login|Mật khẩu hoặc người sử dụng không hợp lệ ");
const QString Failed = QStringLiteral("Login|Mật khẩu hoặc người sử dụng không hợp lệ");

} // namespace

TEST_F(LogonTest, TheRightPasswordReturnsTheUsersCode)
{
    const qint32 code = logon([](FrmLogon &form) {
        EXPECT_EQ(form.windowTitle(), "Login");
        EXPECT_FALSE(form.Image1->pixmap().isNull());
        typeAndEnter(form, QStringLiteral("admin"));
        EXPECT_TRUE(form.TxtPass->hasFocus());
        typeAndEnter(form, QStringLiteral("ADMIN"));    // passwords are case-blind
        EXPECT_TRUE(form.CmdOk->hasFocus());
        test::saveScreenshot(&form, QStringLiteral("logon"));
        QTest::keyClick(form.CmdOk, Qt::Key_Return);     // Enter on the button logs on
    });
    EXPECT_EQ(code, 1);
    EXPECT_TRUE(db.statements().contains(
        QStringLiteral("SELECT  *  FROM [User] WHERE ([Name]='admin') And ( [Password]=%1)")
            .arg(DoubleToText(EncodePassword(QStringLiteral("admin"))))));
}

TEST_F(LogonTest, NamesAreTrimmedAndLongPasswordsCompareInExponentForm)
{
    EXPECT_EQ(logon([](FrmLogon &form) {
        typeAndEnter(form, QStringLiteral("  Nguyễn Văn An  "));
        test::typeText(form.TxtPass, QStringLiteral(" ") + LongPassword.toLower());
        QTest::mouseClick(form.CmdOk, Qt::LeftButton);
    }), 7);
    EXPECT_TRUE(db.statements().last().contains(QStringLiteral("[Name]='Nguyễn Văn An') And ( [Password]=")));
    EXPECT_TRUE(db.statements().last().contains(QStringLiteral("E+")));

    EXPECT_EQ(logon([](FrmLogon &form) {   // an empty password is allowed
        test::typeText(form.Txtuser, QStringLiteral("khach"));
        QTest::mouseClick(form.CmdOk, Qt::LeftButton);
    }), 9);
}

TEST_F(LogonTest, AWrongPasswordIsRefusedAndTheNameSelected)
{
    const qint32 code = logon([](FrmLogon &form) {
        typeAndEnter(form, QStringLiteral("admin"));
        test::typeText(form.TxtPass, QStringLiteral("sai"));
        EXPECT_EQ(clickOkAndReadRefusal(form), NotFound);
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(form.Txtuser->hasFocus());
        EXPECT_EQ(form.Txtuser->selectedText(), "admin");
        EXPECT_EQ(form.UserCode, 0);
        // Another try after the refusal succeeds.
        form.TxtPass->setFocus();
        form.TxtPass->selectAll();
        test::typeText(form.TxtPass, QStringLiteral("admin"));
        QTest::mouseClick(form.CmdOk, Qt::LeftButton);
    });
    EXPECT_EQ(code, 1);
}

TEST_F(LogonTest, ANameWithAQuoteNeverReachesTheDatabase)
{
    const qint32 code = logon([this](FrmLogon &form) {
        test::typeText(form.Txtuser, QStringLiteral("x') Or ('1'='1"));
        test::typeText(form.TxtPass, QStringLiteral("x"));
        const int before = int(db.statements().size());
        EXPECT_EQ(clickOkAndReadRefusal(form), Failed);
        EXPECT_EQ(db.statements().size(), before);
        // The error branch leaves the first character out of the selection.
        EXPECT_EQ(form.Txtuser->selectedText(), "') Or ('1'='1");
        cancel(form);
    });
    EXPECT_EQ(code, 0);
}

TEST_F(LogonTest, AMissingTableOrAClosedConnectionTakesTheErrorBranch)
{
    db.exec(QStringLiteral("Drop Table [User]"));
    EXPECT_EQ(logon([](FrmLogon &form) {
        test::typeText(form.Txtuser, QStringLiteral("admin"));
        EXPECT_EQ(clickOkAndReadRefusal(form), Failed);
        cancel(form);
    }), 0);

    db.db().close();
    EXPECT_EQ(logon([](FrmLogon &form) {
        test::typeText(form.Txtuser, QStringLiteral("admin"));
        EXPECT_EQ(clickOkAndReadRefusal(form), Failed);
        cancel(form);
    }), 0);
}

TEST_F(LogonTest, CancelEscapeAndTheCloseBoxReturnZero)
{
    EXPECT_EQ(logon([](FrmLogon &form) {
        test::typeText(form.Txtuser, QStringLiteral("admin"));
        cancel(form);
    }), 0);
    EXPECT_EQ(logon([](FrmLogon &form) { form.close(); }), 0);
    EXPECT_EQ(logon([](FrmLogon &form) { QTest::keyClick(form.Txtuser, Qt::Key_Escape); }), 0);
}

TEST_F(LogonTest, OkWaitsForANameAndHelpDoesNothing)
{
    logon([](FrmLogon &form) {
        EXPECT_FALSE(form.CmdOk->isEnabled());
        test::typeText(form.Txtuser, QStringLiteral("   "));
        EXPECT_FALSE(form.CmdOk->isEnabled());
        test::typeText(form.Txtuser, QStringLiteral("a"));
        EXPECT_TRUE(form.CmdOk->isEnabled());
        EXPECT_EQ(form.CmdOk->toolTip(), "Click here to Logon!");
        QTest::mouseClick(form.CmdHelp, Qt::LeftButton);
        QTest::qWait(50);
        EXPECT_TRUE(form.isVisible());
        cancel(form);
    });
}

TEST(LogonConnection, AQSqlDatabaseWithoutADriverIsATypeMismatch)
{
    // Raised before any dialog shows: a dialog would wait here for ever.
    EXPECT_EQ(test::errorNumberOf([] { clsLogon().ShowLogon(QSqlDatabase()); }), Error::TypeMismatch);
}
