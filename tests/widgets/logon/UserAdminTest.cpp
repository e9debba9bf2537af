// SPDX-License-Identifier: MIT
#include "core/base/Conversions.h"
#include "core/logon/MdlLogon.h"
#include "widgets/logon/QuoteGuard.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/clsLogon.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::child;
using test::click;
using test::retype;

namespace {

QString digestOf(const QString &password) { return DoubleToText(EncodePassword(password)); }

class UserAdminTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        db.createLibraryTables();
        db.exec(u"Insert Into Groups Values(1, 'Quản trị', 'Mọi quyền'), (8, 'Bán hàng', 'Quầy')"_s);
        db.exec(u"Insert Into [User] Values(1, 'admin', 'Quản trị viên', 26209, 1), (3, 'ketoan', 'Kế toán', 1065, 8),"
                " (5, 'thu', 'Thủ kho', 1065, 8)"_s);
    }
    // Opens the user list and acts on it with real keys and clicks.
    void users(const std::function<void(QTreeView *)> &act)
    {
        test::whenModalShows([act](QWidget *form) { act(child<QTreeView>(form, "Lv")); }, 5000, "FrmMenu");
        clsLogon().UserManager(db.db());
    }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, UserAdminTest, ::testing::ValuesIn(test::Engines), test::EngineName);

QString text(const QTreeView *list, int row, int column) { return list->model()->index(row, column).data().toString(); }

QStringList rows(const QTreeView *list)
{
    QStringList out;
    for (int row = 0; row < list->model()->rowCount(); ++row)
        out << text(list, row, 0) + u'|' + text(list, row, 1) + u'|' + text(list, row, 2);
    return out;
}

QLineEdit *box(QWidget *form, const char *name) { return child<QLineEdit>(form, name); }

// The centre of the user's row, found by code.
QPoint rowOf(const QTreeView *list, const QString &code)
{
    const auto found = list->model()->match(list->model()->index(0, 2), Qt::DisplayRole, code, 1, Qt::MatchExactly);
    EXPECT_EQ(found.size(), 1) << code.toStdString();
    return found.isEmpty() ? QPoint() : list->visualRect(found.first()).center();
}

void select(QTreeView *list, const QString &code) { QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rowOf(list, code)); }

// Clicks OK in the editor and reads the message it brings ("" when none came).
QString okAndRead(QWidget *editor)
{
    QStringList shown;
    const QPointer<QTimer> waiting = test::answerMessages(&shown);
    click(editor, "CMDOK");
    delete waiting;   // no message came: the editor has closed
    return shown.value(0);
}

} // namespace

TEST_P(UserAdminTest, DeleteRefusesUserThreeThenTheLastUserThenAsks)
{
    const struct {
        const char *setup;   // a change to the users before the list opens
        const char *code;
        Qt::Key answer;
        QString message;
        int left;
    } cases[] = {
        {"", "3", Qt::Key_Return, u"Thông báo|Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên."_s, 3},
        {"", "5", Qt::Key_Return /* Không has the focus */, u"Thông báo|Bạn chắc chắn xoá người sử dụng này"_s, 3},
        {"", "5", Qt::Key_C, u"Thông báo|Bạn chắc chắn xoá người sử dụng này"_s, 2},
        {"Delete From [User] Where Code=1", "3", Qt::Key_Return,
         u"Thông báo|Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên."_s, 1},
        {"Update [User] Set Code=1 Where Code=3", "1", Qt::Key_Return, u"Thông báo|Bạn không thể xoá người sử dụng còn lại cuối cùng của chương trình"_s, 1},
    };
    for (const auto &c : cases) {
        if (*c.setup)
            db.exec(QLatin1String(c.setup));
        users([&](QTreeView *list) {
            select(list, QLatin1String(c.code));
            QStringList shown;
            test::answerMessages(&shown, {c.answer});
            click(list->window(), "CmdDel");
            EXPECT_EQ(shown.value(0), c.message) << c.code;
            EXPECT_EQ(list->model()->rowCount(), c.left) << c.code;
            click(list->window(), "CmdExit");
        });
    }
    if (db.traced()) {
        EXPECT_TRUE(db.statements().contains(u"Delete from [user] Where [Name]='thu'"_s));
    }
}

TEST_P(UserAdminTest, AddAppendsTheUsersAddedMeanwhileAndRefusesDuplicatesAndBadPasswords)
{
    users([this](QTreeView *list) {
        EXPECT_EQ(rows(list), (QStringList{u"admin|Quản trị viên|1"_s, u"ketoan|Kế toán|3"_s, u"thu|Thủ kho|5"_s}));
        test::whenModalShows([this](QWidget *editor) {
            EXPECT_EQ(editor->windowTitle(), "User Infomation");
            EXPECT_FALSE(child(editor, "CMDOK")->isEnabled());
            test::typeText(box(editor, "Txtuser"), u"admin"_s);
            test::typeText(box(editor, "TxtPass"), u"abc"_s);
            test::typeText(box(editor, "txtConfirm"), u"ABD"_s);
            auto *group = child<QComboBox>(editor, "TxtIdGroup");
            EXPECT_EQ(group->itemText(1), "Bán hàng-Quầy");
            group->setFocus();
            QTest::keyClick(group, Qt::Key_End);
            EXPECT_EQ(okAndRead(editor), "User Infomation|Người sử dụng đã tồn tại");
            EXPECT_EQ(box(editor, "Txtuser")->selectedText(), "admin");
            test::typeText(box(editor, "Txtuser"), u"O'Hara"_s);
            EXPECT_EQ(okAndRead(editor), u"User Infomation|"_s + QuoteRefused());
            retype(box(editor, "Txtuser"), u"Nguyễn Thu"_s);
            EXPECT_EQ(okAndRead(editor), "User Infomation|Mật khẩu không hợp lệ");
            retype(box(editor, "txtConfirm"), u"ABC"_s);   // passwords are compared upper-cased
            db.exec(u"Insert Into [User] Values(6, 'ban2', 'Quầy 2', 1065, 8)"_s);   // another desk, meanwhile
            EXPECT_EQ(okAndRead(editor), "");
        });
        click(list->window(), "CmdAdd");
        EXPECT_EQ(rows(list).mid(3), (QStringList{u"ban2|Quầy 2|6"_s, u"Nguyễn Thu||7"_s}));
        test::whenModalShows([](QWidget *editor) { click(editor, "CMDCAN"); });
        click(list->window(), "CmdAdd");
        EXPECT_EQ(list->model()->rowCount(), 5);
        click(list->window(), "CmdExit");
    });
    if (db.traced()) {
        EXPECT_TRUE(db.statements().contains(
            u"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values('Nguyễn Thu','',8,"_s + digestOf(u"abc"_s)
            + u") ON CONFLICT DO NOTHING"_s));
    }
    EXPECT_FALSE(db.statements().join(u'\n').contains(u"O'Hara"_s));
}

TEST_P(UserAdminTest, EditWritesThePasswordOnlyWhenItChanged)
{
    users([this](QTreeView *list) {
        test::whenModalShows([](QWidget *editor) {
            EXPECT_EQ(box(editor, "TxtPass")->text(), "1065");   // the stored digest
            EXPECT_EQ(child<QComboBox>(editor, "TxtIdGroup")->currentText(), "Bán hàng-Quầy");
            retype(box(editor, "TxtDes"), u"Kế toán trưởng"_s);
            EXPECT_EQ(okAndRead(editor), "");   // keeping one's own name is no duplicate
        });
        select(list, u"3"_s);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, rowOf(list, u"3"_s));
        EXPECT_EQ(text(list, 1, 1), "Kế toán trưởng");

        test::whenModalShows([](QWidget *editor) {
            retype(box(editor, "Txtuser"), u"admin"_s);
            EXPECT_EQ(okAndRead(editor), "User Information|Người sử dụng đã tồn tại");
            retype(box(editor, "Txtuser"), u"thukho"_s);
            retype(box(editor, "TxtPass"), u"kho"_s);
            retype(box(editor, "txtConfirm"), u"kho"_s);
            EXPECT_EQ(okAndRead(editor), "");
        });
        select(list, u"5"_s);
        click(list->window(), "CmdEdit");
        EXPECT_EQ(rows(list).last(), "thukho|Thủ kho|5");
        click(list->window(), "CmdExit");
    });
    if (!db.traced())
        return;
    const QStringList statements = db.statements();
    // Each edit goes through only while the row holds what the boxes were filled from.
    const auto updates = statements.filter(u"UPDATE [User]"_s).join(u'\n').toStdString();
    EXPECT_TRUE(statements.contains(u"UPDATE [User] Set [Name]='ketoan',[Dec]='Kế toán trưởng',IdGroup=8 Where [Name]='ketoan'"
                                    " And [Name]='ketoan' And [Dec]='Kế toán' And [Password]=1065 And [IdGroup]=8"_s)) << updates;
    EXPECT_TRUE(statements.contains(u"UPDATE [User] Set [Name]='thukho',[Dec]='Thủ kho',IdGroup=8,[Password]="_s
                                    + digestOf(u"kho"_s) + u" Where [Name]='thu' And [Name]='thu' And [Dec]='Thủ kho'"
                                    " And [Password]=1065 And [IdGroup]=8"_s)) << updates;
    EXPECT_TRUE(statements.contains(u"Select  * From [User] Where [Name]='admin' And [Name] <> 'thu'"_s));
}

TEST_P(UserAdminTest, AUserMayChangeOnlyHisOwnPassword)
{
    test::whenModalShows([](QWidget *editor) {
        for (const char *locked : {"Txtuser", "TxtDes", "TxtIdGroup"})
            EXPECT_FALSE(child(editor, locked)->isEnabled()) << locked;
        EXPECT_EQ(box(editor, "Txtuser")->text(), "thu");
        retype(box(editor, "TxtPass"), u"moi"_s);
        QTest::keyClick(editor->focusWidget(), Qt::Key_Return);   // Enter moves on like Tab
        QTest::qWait(1);
        EXPECT_TRUE(box(editor, "txtConfirm")->hasFocus());
        retype(box(editor, "txtConfirm"), u"MOI"_s);
        EXPECT_EQ(okAndRead(editor), "");
    });
    clsLogon().ShowUser(db.db(), u"thu"_s);
    EXPECT_EQ(db.scalar(u"Select [Password] From [User] Where Code=5"_s).toDouble(), EncodePassword(u"moi"_s));
}

TEST_P(UserAdminTest, AMissingTableIsToldAndNothingBreaks)
{
    db.exec(u"Drop Table [User]"_s);
    QStringList shown;
    test::answerMessages(&shown);
    users([](QTreeView *list) {
        EXPECT_EQ(list->model()->rowCount(), 0);
        click(list->window(), "CmdExit");
    });
    EXPECT_TRUE(shown.value(0).startsWith(u"Thông báo|"_s) && shown.value(0).contains(u"user"_s, Qt::CaseInsensitive))
        << shown.value(0).toStdString();   // the engine's own words
}

// Another desk changes or deletes the user while this desk's editor is open:
// the editor is told and writes nothing; a deleted user is never written back.
TEST_P(UserAdminTest, AnEditMeetsAnotherDesksChangeAndIsTold)
{
    const struct {
        const char *meanwhile;
        QString told;
        const char *description;   // thu's afterwards, "" when thu is gone
    } cases[] = {
        {"Update [User] Set [Dec]='Thủ kho chính' Where Code=5",
         u"User Information|Người sử dụng này vừa được sửa ở máy khác. Thông tin hiện tại đã được hiện lại; hãy sửa lại rồi ghi."_s,
         "Thủ kho chính"},
        {"Delete From [User] Where Code=5", u"User Information|Người sử dụng này vừa bị xoá ở máy khác."_s, ""},
    };
    for (const auto &c : cases) {
        users([&](QTreeView *list) {
            select(list, u"5"_s);
            test::whenModalShows([&](QWidget *editor) {
                db.exec(QString::fromUtf8(c.meanwhile));
                retype(box(editor, "TxtDes"), u"Kho lạnh"_s);
                EXPECT_EQ(okAndRead(editor), c.told);
                if (editor->isVisible()) {
                    EXPECT_EQ(box(editor, "TxtDes")->text(), QString::fromUtf8(c.description));   // as it is now
                    click(editor, "CMDCAN");
                }
            }, 5000, "FrmInput");
            click(list->window(), "CmdEdit");
            click(list->window(), "CmdExit");
        });
        EXPECT_EQ(db.scalar(u"Select Coalesce(Max([Dec]), '') From [User] Where Code=5"_s).toString(), QString::fromUtf8(c.description));
    }
}

// A list of many users reads the pages it shows, as a view over a query
// model does, and gives every row as the whole list would when scrolled to
// its end; a deleted user's place is taken by the next.
TEST_P(UserAdminTest, AListOfManyUsersReadsWhatItShowsAndGivesEveryRow)
{
    db.exec(u"Delete From [User]"_s);
    QStringList expected;
    QString values;
    for (int code = 1; code <= 1000; ++code) {
        values += u"%1(%2, 'nv%2', 'Nhân viên %2', 1065, 8)"_s.arg(values.isEmpty() ? u""_s : u","_s).arg(code);
        expected << u"nv%1|Nhân viên %1|%1"_s.arg(code);
    }
    db.exec(u"Insert Into [User] Values"_s + values);
    users([&](QTreeView *list) {
        EXPECT_LT(list->model()->rowCount(), 1000);
        if (db.traced()) {
            const QString read = db.statements().filter(u"Offset"_s).join(u'\n');
            EXPECT_TRUE(read.contains(u"Offset 0"_s)) << read.toStdString();
            EXPECT_FALSE(read.contains(u"Offset 768"_s)) << read.toStdString();   // the last page is not read yet
        }
        select(list, u"5"_s);
        while (list->model()->rowCount() < 1000)
            QTest::keyClick(list, Qt::Key_End);   // each End reads on at the end...
        QTest::keyClick(list, Qt::Key_End);       // ...and the last reaches the last user
        EXPECT_EQ(text(list, list->currentIndex().row(), 2), u"1000"_s);
        EXPECT_EQ(rows(list), expected);
        list->setCurrentIndex(list->model()->index(500, 0));
        QStringList asked;
        test::answerMessages(&asked, {Qt::Key_C});
        click(list->window(), "CmdDel");
        EXPECT_EQ(asked.size(), 1);
        expected.removeAt(500);
        EXPECT_EQ(rows(list), expected);
        click(list->window(), "CmdExit");
    });
}
