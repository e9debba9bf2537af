// SPDX-License-Identifier: MIT
#include "widgets/logon/QuoteGuard.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/clsLogon.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::child;
using test::click;
using test::clickRow;
using test::retype;

namespace {

class FmGrpTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        db.createLibraryTables();
        db.exec(u"Alter Table Groups Add Column DanhMuc Integer"_s);
        db.exec(u"Alter Table Groups Add Column ChungTu Integer"_s);
        db.exec(u"Insert Into Groups Values(1, 'Quản trị', 'Mọi quyền', 7, 7), (5, 'Kho', 'Thủ kho', 0, 2),"
                " (8, 'Bán hàng', 'Quầy', 1, Null)"_s);
        db.exec(u"Insert Into [User] Values(1, 'admin', 'Quản trị viên', 26209, 1), (2, 'thu', 'Thủ kho', 1065, 5)"_s);
        db.exec(u"Insert Into Menu Values(1, 'Danh mục'), (2, 'Chứng từ')"_s);
        db.exec(u"Insert Into SubMenu Values(1, 'Hàng hoá', 1), (2, 'Khách hàng', 1), (3, 'Nhà cung cấp', 1),"
                " (6, 'Hoá đơn', 2), (4, 'Phiếu nhập', 2), (5, 'Phiếu xuất', 2)"_s);
    }
    // Opens the groups dialog and acts on it with real keys and clicks.
    void groups(const std::function<void(QWidget *)> &act)
    {
        test::whenModalShows(act, 5000, "FmGrp");
        clsLogon().ShowGroup(db.db());
    }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, FmGrpTest, ::testing::ValuesIn(test::Engines), test::EngineName);

// The groups' list (a view over the groups read so far) and the rights lists.
QAbstractItemView *list(QWidget *form, const char *name = "Lv1") { return child<QAbstractItemView>(form, name); }
QModelIndex rowOf(const QAbstractItemView *list, int row) { return list->model()->index(row, 0); }
int count(const QAbstractItemView *list) { return list->model()->rowCount(); }
QLineEdit *box(QWidget *form, const char *name) { return child<QLineEdit>(form, name); }

QStringList texts(const QAbstractItemView *list)
{
    QStringList out;
    for (int row = 0; row < count(list); ++row)
        out << rowOf(list, row).data().toString();
    return out;
}

// Clicks the group of that code (PostgreSQL lists a row it rewrote last).
void clickGroup(QAbstractItemView *list, qint32 code)
{
    for (int row = 0; row < count(list); ++row) {
        if (rowOf(list, row).data(Qt::UserRole).toInt() == code)
            return clickRow(list, row);
    }
    ADD_FAILURE() << "no group " << code;
}

// Opens the rights of the selected group and acts on them.
void rights(QWidget *form, const std::function<void(QWidget *)> &act)
{
    test::whenModalShows(act, 5000, "FrPms");
    click(form, "CmdPms");
}

} // namespace

TEST_P(FmGrpTest, DeletingTakesTheRowsButNeverGroupsOneAndEight)
{
    groups([](QWidget *form) {
        EXPECT_EQ(texts(list(form)), (QStringList{u"Quản trị-Mọi quyền"_s, u"Kho-Thủ kho"_s, u"Bán hàng-Quầy"_s}));
        list(form)->setFocus();
        QTest::keyClick(list(form), Qt::Key_A, Qt::ControlModifier);
        QStringList shown;
        test::answerMessages(&shown, {Qt::Key_C, Qt::Key_Return});
        QTest::keyClick(list(form), Qt::Key_Delete);
        EXPECT_EQ(shown, (QStringList{u"Delete|Bạn có chắc chắn xoá các nhóm đã chọn không?"_s,
                                      u"Delete|3 danh mục đã bị xoá"_s}));
        EXPECT_EQ(count(list(form)), 0);
        EXPECT_EQ(box(form, "TxtName")->text(), "1");   // a new group is proposed
        click(form, "CmdExit");
    });
    if (db.traced()) {
        EXPECT_TRUE(db.statements().contains(u"Delete From [Groups] Where Code In (1,5,8) and (Code Not In (1,8))"_s));
    }
    groups([](QWidget *form) {
        EXPECT_EQ(texts(list(form)), (QStringList{u"Quản trị-Mọi quyền"_s, u"Bán hàng-Quầy"_s}));
        click(form, "CmdExit");
    });
}

TEST_P(FmGrpTest, AddingLocksTheRightsAndWritingNeedsAName)
{
    groups([this](QWidget *form) {
        auto *users = child<QTreeWidget>(form, "lvUser");
        EXPECT_EQ(users->topLevelItem(0)->text(0), "admin");
        click(form, "CmdAdd");
        EXPECT_EQ(child<QPushButton>(form, "CmdAdd")->text(), "&Huỷ thêm");
        EXPECT_FALSE(child(form, "CmdPms")->isEnabled());
        box(form, "TxtName")->selectAll();
        QTest::keyClick(box(form, "TxtName"), Qt::Key_Delete);
        EXPECT_FALSE(child(form, "CmdWrite")->isEnabled());
        test::typeText(box(form, "TxtName"), u"O'Hara"_s);
        QStringList shown;
        test::answerMessages(&shown);
        click(form, "CmdWrite");
        EXPECT_EQ(shown, QStringList{u"Save Error|"_s + QuoteRefused()});
        retype(box(form, "TxtName"), u"Kế toán"_s);
        test::typeText(box(form, "TxtDesc"), u"Sổ sách"_s);
        click(form, "CmdWrite");
        EXPECT_EQ(texts(list(form)).last(), "Kế toán-Sổ sách");
        EXPECT_EQ(rowOf(list(form), 3).data(Qt::UserRole).toInt(), 9);
        EXPECT_EQ(box(form, "TxtName")->text(), "1");   // ready for the next group
        click(form, "CmdAdd");
        EXPECT_TRUE(child(form, "CmdPms")->isEnabled());

        clickRow(list(form), 1);
        EXPECT_EQ(users->topLevelItem(0)->text(1), "Thủ kho");
        retype(box(form, "TxtName"), u"Kho hàng"_s);
        click(form, "CmdWrite");
        EXPECT_EQ(rowOf(list(form), 1).data().toString(), "Kho hàng-Thủ kho");
        click(form, "CmdExit");
    });
    if (db.traced()) {
        EXPECT_TRUE(db.statements().contains(u"Insert Into [Groups]([Name],[Des]) Values('Kế toán','Sổ sách ')"_s));
        // Renamed only while the group holds what the boxes showed.
        EXPECT_TRUE(db.statements().contains(
            u"Update [Groups] Set [Des]='Thủ kho ',[Name]='Kho hàng' Where [Code]=5 And [Name]='Kho' And [Des]='Thủ kho'"_s))
            << db.statements().filter(u"Update"_s).join(u'\n').toStdString();
    }
    EXPECT_FALSE(db.statements().join(u'\n').contains(u"O'Hara"_s));
}

TEST_P(FmGrpTest, RightsOfEachBarGoToItsColumnInOneStatement)
{
    groups([](QWidget *form) {
        clickRow(list(form), 1);
        rights(form, [](QWidget *pms) {
            EXPECT_EQ(child<QLabel>(pms, "LblTitle")->text(), "Tên nhóm là:Kho - Thủ kho");
            clickRow(list(pms, "LstMenuBar"), 1);
            auto *subs = child<QListWidget>(pms, "LstSubMenu");
            EXPECT_EQ(texts(subs), (QStringList{u"Phiếu nhập"_s, u"Phiếu xuất"_s, u"Hoá đơn"_s}));   // by ID
            EXPECT_EQ(subs->selectedItems(), QList{subs->item(1)});   // rights 2
            clickRow(subs, 1);
            clickRow(subs, 0);
            clickRow(subs, 2);
            clickRow(list(pms, "LstMenuBar"), 0);
            clickRow(subs, 1);
            click(pms, "CmdOk");
        });
        rights(form, [](QWidget *pms) {   // Bỏ qua forgets the changes
            clickRow(list(pms, "LstMenuBar"), 0);
            clickRow(list(pms, "LstSubMenu"), 0);
            click(pms, "Command1");
        });
        click(form, "CmdExit");
    });
    if (db.traced()) {
        // Each bar changed here, while it holds what was read.
        EXPECT_EQ(db.statements().filter(u"Update Groups"_s),
                  QStringList{u"Update Groups Set DanhMuc=2,ChungTu=5 Where Code=5 And Coalesce(DanhMuc,0)=0 And Coalesce(ChungTu,0)=2"_s});
    }
}

TEST_P(FmGrpTest, AGroupsTableWithoutRightsColumnsWritesNothing)
{
    db.exec(u"Alter Table Groups Drop Column DanhMuc"_s);
    db.exec(u"Alter Table Groups Drop Column ChungTu"_s);
    groups([](QWidget *form) {
        rights(form, [](QWidget *pms) {
            clickRow(list(pms, "LstMenuBar"), 0);
            clickRow(list(pms, "LstSubMenu"), 0);
            click(pms, "CmdOk");   // its statement fails unreported, and the dialog closes
        });
        click(form, "CmdExit");
    });
    EXPECT_TRUE(db.statements().filter(u"Update"_s).isEmpty());
}

// Another desk writes group 5 while this desk's rights dialog is open: a
// menu bar it did not touch here is kept, one it changed too is told and
// shown before anything is written, a group deleted meanwhile is never
// written back.
TEST_P(FmGrpTest, AnotherDesksChangesMeanwhileAreKeptOrTold)
{
    struct Case {
        const char *meanwhile;   // another desk's statement after the dialog read the rights
        const char *told;        // what this desk is told on Ghi ("" for nothing)
        int danhMuc, chungTu;    // the rights afterwards (-1: no group); Phiếu nhập 1, Phiếu xuất 2, Hoá đơn 4
    };
    const Case cases[] = {
        {"Update Groups Set DanhMuc=3 Where Code=5", "", 3, 3},
        {"Update Groups Set ChungTu=6 Where Code=5", "Quyền của nhóm này vừa được thay đổi ở máy khác. Quyền hiện tại "
                                                     "đã được hiện lại; hãy chọn lại rồi ghi.", 0, 6},
        {"Delete From Groups Where Code=5", "Nhóm này vừa bị xoá ở máy khác.", -1, -1},
    };
    for (const Case &c : cases) {
        db.exec(u"Delete From Groups Where Code=5"_s);
        db.exec(u"Insert Into Groups Values(5, 'Kho', 'Thủ kho', 0, 2)"_s);
        QStringList told;
        groups([&](QWidget *form) {
            clickGroup(list(form), 5);
            rights(form, [&](QWidget *pms) {
                clickRow(list(pms, "LstMenuBar"), 1);
                clickRow(list(pms, "LstSubMenu"), 0);   // Phiếu nhập: rights 2 become 3
                db.exec(QString::fromUtf8(c.meanwhile));
                test::answerMessages(&told);
                click(pms, "CmdOk");
                if (pms->isVisible()) {   // told, and showing the rights as they are now
                    EXPECT_EQ(child<QListWidget>(pms, "LstSubMenu")->selectedItems().size(), 2);
                    click(pms, "Command1");
                }
            });
            click(form, "CmdExit");
        });
        EXPECT_EQ(told.value(0).section(u'|', 1), QString::fromUtf8(c.told)) << c.meanwhile;
        EXPECT_EQ(db.scalar(u"Select Coalesce(Max(DanhMuc), -1) From Groups Where Code=5"_s).toInt(), c.danhMuc) << c.meanwhile;
        EXPECT_EQ(db.scalar(u"Select Coalesce(Max(ChungTu), -1) From Groups Where Code=5"_s).toInt(), c.chungTu) << c.meanwhile;
    }
}

TEST_P(FmGrpTest, RenamingAGroupChangedOrDeletedElsewhereIsToldAndWritesNothing)
{
    for (const char *meanwhile : {"Update Groups Set Des='Kho chính' Where Code=5", "Delete From Groups Where Code=5"}) {
        QStringList told;
        groups([&](QWidget *form) {
            clickGroup(list(form), 5);
            db.exec(QString::fromUtf8(meanwhile));
            retype(box(form, "TxtName"), u"Kho hàng"_s);
            test::answerMessages(&told);
            click(form, "CmdWrite");
            click(form, "CmdExit");
        });
        EXPECT_EQ(told.value(0).section(u'|', 1), u"Nhóm này vừa được sửa hoặc xoá ở máy khác. Danh sách nhóm đã được đọc lại."_s);
        EXPECT_EQ(db.scalar(u"Select Count(*) From Groups Where [Name]='Kho hàng'"_s).toInt(), 0) << meanwhile;
    }
}

// Many groups are read as the list shows them; selecting all reads every one,
// so that the count told is that of all groups, as a whole list would tell.
TEST_P(FmGrpTest, ManyGroupsAreReadAsShownAndSelectingAllTakesEveryOne)
{
    QString values;
    for (int code = 10; code < 1010; ++code)
        values += u"%1(%2, 'Nhóm %2', 'Quầy %2')"_s.arg(values.isEmpty() ? u""_s : u","_s).arg(code);
    db.exec(u"Insert Into Groups(Code, [Name], Des) Values"_s + values);
    groups([&](QWidget *form) {
        EXPECT_LT(count(list(form)), 1003);
        if (db.traced()) {
            const QString read = db.statements().filter(u"Offset"_s).join(u'\n');
            EXPECT_TRUE(read.contains(u"Offset 0"_s)) << read.toStdString();
            EXPECT_FALSE(read.contains(u"Offset 768"_s)) << read.toStdString();
        }
        // A clerk's End reaches the end read so far; pressed again, the pages
        // after it, until the last group, whose boxes then show it.
        list(form)->setFocus();
        for (int press = 0; press < 40 && list(form)->currentIndex().row() + 1 < 1003; ++press)
            QTest::keyClick(list(form), Qt::Key_End);
        EXPECT_EQ(list(form)->currentIndex().data().toString(), u"Nhóm 1009-Quầy 1009"_s);
        EXPECT_EQ(box(form, "TxtName")->text(), u"Nhóm 1009"_s);
        QTest::keyClick(list(form), Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(count(list(form)), 1003);
        QStringList shown;
        test::answerMessages(&shown, {Qt::Key_C, Qt::Key_Return});
        QTest::keyClick(list(form), Qt::Key_Delete);
        EXPECT_EQ(shown.value(1), u"Delete|1003 danh mục đã bị xoá"_s);
        click(form, "CmdExit");
    });
    EXPECT_EQ(db.scalar(u"Select Count(*) From Groups"_s).toInt(), 2);   // groups 1 and 8 stay
}

// One clerk saves the same group again and again: each save compares against
// what the one before wrote, and the description keeps the one blank its
// statement adds, shown as typed. Another desk's change after a save is still told.
TEST_P(FmGrpTest, TheSameGroupSavedAgainAndAgainIsStoredAsTyped)
{
    QStringList told;
    groups([&](QWidget *form) {
        clickGroup(list(form), 5);
        test::answerMessages(&told);
        retype(box(form, "TxtName"), u"Kho hàng"_s);
        click(form, "CmdWrite");
        retype(box(form, "TxtName"), u"Kho hàng chính"_s);
        click(form, "CmdWrite");
        click(form, "CmdWrite");   // at once, unchanged
        retype(box(form, "TxtDesc"), u"Thủ kho và kế toán"_s);
        test::pressMnemonic(form, "CmdWrite", Qt::Key_G);
        EXPECT_TRUE(texts(list(form)).contains(u"Kho hàng chính-Thủ kho và kế toán"_s));
        click(form, "CmdExit");
    });
    EXPECT_EQ(told, QStringList());
    EXPECT_EQ(db.scalar(u"Select [Name] From Groups Where Code=5"_s).toString(), u"Kho hàng chính"_s);
    EXPECT_EQ(db.scalar(u"Select Des From Groups Where Code=5"_s).toString(), u"Thủ kho và kế toán "_s);

    groups([&](QWidget *form) {
        EXPECT_TRUE(texts(list(form)).contains(u"Kho hàng chính-Thủ kho và kế toán"_s)) << texts(list(form)).join(u',').toStdString();
        clickGroup(list(form), 5);
        EXPECT_EQ(box(form, "TxtDesc")->text(), u"Thủ kho và kế toán"_s);
        click(form, "CmdWrite");
        click(form, "CmdWrite");
        db.exec(u"Update Groups Set Des='Kho tổng' Where Code=5"_s);   // another desk, after this desk's saves
        test::answerMessages(&told);
        retype(box(form, "TxtName"), u"Kho lẻ"_s);
        click(form, "CmdWrite");
        click(form, "CmdExit");
    });
    EXPECT_EQ(told, QStringList{u"Save Error|Nhóm này vừa được sửa hoặc xoá ở máy khác. Danh sách nhóm đã được đọc lại."_s});
    EXPECT_EQ(db.scalar(u"Select [Name] From Groups Where Code=5"_s).toString(), u"Kho hàng chính"_s);
    EXPECT_EQ(db.scalar(u"Select Des From Groups Where Code=5"_s).toString(), u"Kho tổng"_s);
}
