#include "data/General.h"

#include "data/Database.h"
#include "TestSupport.h"

#include <zolt/Error.h>

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

using namespace zolt;

namespace {

class OptionsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db.exec(QStringLiteral("Create Table Options([Section] Text, KeyName Text, KeyValue Text, "
                               "Description Text)"));
    }
    int rows() const { return db.scalar(QStringLiteral("Select Count(*) From Options")).toInt(); }
    QString column(const QString &name, const QString &key) const
    {
        return db.scalar(QStringLiteral("Select ") + name
                         + QStringLiteral(" From Options Where KeyName='") + key + QLatin1Char('\''))
            .toString();
    }
    test::TempDatabase db;
};

} // namespace

TEST_F(OptionsTest, ReadsTheStoredValueOrTheDefault)
{
    db.exec(QStringLiteral("Insert Into Options Values('Config','DefaultFont','Tahoma',Null)"));
    db.exec(QStringLiteral("Insert Into Options Values('Config','Null',Null,Null)"));
    db.exec(QStringLiteral("Insert Into Options Values('Config','Empty','',Null)"));
    EXPECT_EQ(ReadOption(QStringLiteral("Config"), QStringLiteral("DefaultFont"), QStringLiteral("x")), "Tahoma");
    EXPECT_EQ(ReadOption(QStringLiteral("Config"), QStringLiteral("Null"), QStringLiteral("d")), "d");
    EXPECT_EQ(ReadOption(QStringLiteral("Config"), QStringLiteral("Empty"), QStringLiteral("d")), "d");
    EXPECT_EQ(ReadOption(QStringLiteral("Config"), QStringLiteral("Missing"), QStringLiteral("d")), "d");
    EXPECT_EQ(ReadOption(QStringLiteral("O'Brien"), QStringLiteral("k"), QStringLiteral("d")), "d");
    db.exec(QStringLiteral("Drop Table Options"));
    EXPECT_EQ(ReadOption(QStringLiteral("Config"), QStringLiteral("DefaultFont"), QStringLiteral("d")), "d");
}

TEST_F(OptionsTest, UpdatesAnExistingKeyAndInsertsANewOne)
{
    EXPECT_EQ(WriteOption(QStringLiteral("Kho"), QStringLiteral("Mặc định"), QStringLiteral("Kho 'A'"),
                          QString(), 0), 0);
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(column(QStringLiteral("KeyValue"), QStringLiteral("Mặc định")), "Kho 'A'");
    EXPECT_TRUE(db.scalar(QStringLiteral("Select Description From Options")).isNull());

    EXPECT_EQ(WriteOption(QStringLiteral("Kho"), QStringLiteral("Mặc định"), QStringLiteral("Kho B"),
                          QStringLiteral("kho chính"), 0), 0);
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(column(QStringLiteral("KeyValue"), QStringLiteral("Mặc định")), "Kho B");
    EXPECT_EQ(column(QStringLiteral("Description"), QStringLiteral("Mặc định")), "kho chính ");

    // Without a description only the value changes.
    EXPECT_EQ(WriteOption(QStringLiteral("Kho"), QStringLiteral("Mặc định"), QStringLiteral("Kho C"),
                          QString(), 0), 0);
    EXPECT_EQ(column(QStringLiteral("Description"), QStringLiteral("Mặc định")), "kho chính ");
    EXPECT_EQ(ReadOption(QStringLiteral("Kho"), QStringLiteral("Mặc định"), QString()), "Kho C");

    EXPECT_EQ(WriteOption(QStringLiteral("Kho"), QStringLiteral("Khác"), QStringLiteral("1"),
                          QStringLiteral("d"), 0), 0);
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(column(QStringLiteral("Description"), QStringLiteral("Khác")), "d ");
}

TEST_F(OptionsTest, IsNewInsertsEvenWhenTheRowExists)
{
    EXPECT_EQ(WriteOption(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("1"), QString(), 1), 0);
    EXPECT_EQ(WriteOption(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("2"), QString(), 1), 0);
    EXPECT_EQ(rows(), 2);
}

TEST_F(OptionsTest, AFailedSaveShowsItsMessageAndReturnsTheError)
{
    QString shown;
    test::whenModalShows([&](QWidget *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        ASSERT_NE(box, nullptr);
        shown = box->windowTitle() + QLatin1Char('|') + box->text();
        EXPECT_EQ(box->buttons().size(), 1);
        test::saveScreenshot(box, QStringLiteral("write-option-failed"));
        QTest::keyClick(box, Qt::Key_Return);
    });
    db.exec(QStringLiteral("Create Trigger NoSave Before Insert On Options "
                           "Begin Select Raise(Abort, 'đĩa đầy'); End"));
    const qint32 result = WriteOption(QStringLiteral("Config"), QStringLiteral("Font"),
                                      QStringLiteral("Arial"), QString(), 0);
    EXPECT_EQ(result, Error::DatabaseFailure);
    EXPECT_TRUE(shown.startsWith(QStringLiteral("ZOLT Tests|Không thể lưu được khoáConfig-Font. Lỗi là ")))
        << shown.toStdString();
    EXPECT_TRUE(shown.contains(QStringLiteral("đĩa đầy")));
    EXPECT_EQ(rows(), 0);
}

TEST_F(OptionsTest, AMissingTableFailsTheExistenceQueryAndInserts)
{
    db.exec(QStringLiteral("Drop Table Options"));
    bool shown = false;
    test::whenModalShows([&](QWidget *dialog) {
        shown = true;
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(WriteOption(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("v"), QString(), 0),
              Error::DatabaseFailure);
    EXPECT_TRUE(shown);
}

TEST(GetMaxValue, LargestValueOrZero)
{
    test::TempDatabase db;
    db.exec(QStringLiteral("Create Table Groups(Code Integer, [Name] Text)"));
    EXPECT_EQ(GetMaxValue(QStringLiteral("Groups"), QStringLiteral("Code"), db.db()), 0);
    for (int code : {8, 1, 12, 3})
        db.exec(QStringLiteral("Insert Into Groups Values(%1, 'g')").arg(code));
    EXPECT_EQ(GetMaxValue(QStringLiteral("Groups"), QStringLiteral("Code"), db.db()), 12);
    EXPECT_EQ(GetMaxValue(QStringLiteral("Missing"), QStringLiteral("Code"), db.db()), 0);
    EXPECT_EQ(GetMaxValue(QStringLiteral("Groups"), QStringLiteral("Code"), QSqlDatabase()), 0);
}

TEST(ListHelpers, FindAndReadWholeNumberItemData)
{
    QListWidget list;
    QComboBox combo;
    EXPECT_EQ(FindItemData(&list, 1), -1);
    EXPECT_EQ(SelectedItemData(&list), 0);
    for (int key : {10, 20, 30, 20}) {
        auto *item = new QListWidgetItem(QStringLiteral("Nhóm %1").arg(key), &list);
        item->setData(Qt::UserRole, key);
        combo.addItem(QStringLiteral("Nhóm %1").arg(key), key);
    }
    EXPECT_EQ(FindItemData(&list, 20), 1);
    EXPECT_EQ(FindItemData(&combo, 30), 2);
    EXPECT_EQ(FindItemData(&combo, 99), -1);
    list.setCurrentRow(2);
    combo.setCurrentIndex(3);
    EXPECT_EQ(SelectedItemData(&list), 30);
    EXPECT_EQ(SelectedItemData(&combo), 20);
    combo.setCurrentIndex(-1);
    EXPECT_EQ(SelectedItemData(&combo), 0);
}

TEST(Conversions, NullToStrAndLngVal)
{
    EXPECT_EQ(NullToStr(QVariant()), "");
    EXPECT_EQ(NullToStr(QVariant(12)), "12");
    EXPECT_EQ(LngVal(QStringLiteral("12.5")), 12);
    EXPECT_EQ(LngVal(QStringLiteral("abc")), 0);
    EXPECT_EQ(LngVal(QVariant()), 0);
    EXPECT_EQ(NumVal(QStringLiteral("13.5")), 14.0);
}

namespace {

class SettingsForm : public QDialog {
public:
    SettingsForm()
    {
        resize(300, 120);
        label = new QLabel(QStringLiteral("Người sử dụng"), this);
        edit = new QLineEdit(this);
        edit->move(0, 30);
        button = new QPushButton(QStringLiteral("Đồng ý"), this);
        button->move(0, 70);
    }
    QLabel *label;
    QLineEdit *edit;
    QPushButton *button;
};

} // namespace

TEST_F(OptionsTest, ApplyFormSettingsCentresAndSetsFonts)
{
    db.exec(QStringLiteral("Insert Into Options Values('Config','DefaultFont','DejaVu Serif',Null)"));
    db.exec(QStringLiteral("Insert Into Options Values('Config','DefaultFontSize','10',Null)"));
    SettingsForm form;
    ApplyFormSettings(&form);
    const QRect screen = form.screen()->geometry();
    EXPECT_EQ(form.x(), (screen.width() - form.frameGeometry().width()) / 2);
    EXPECT_EQ(form.y(), (screen.height() - form.frameGeometry().height()) / 2);
    EXPECT_EQ(DefaultFontName, "DejaVu Serif");
    for (QWidget *w : {static_cast<QWidget *>(form.label), static_cast<QWidget *>(form.edit),
                       static_cast<QWidget *>(form.button)}) {
        EXPECT_EQ(w->font().family(), "DejaVu Serif");
        EXPECT_EQ(w->font().pointSize(), 10);
    }
    form.show();
    test::saveScreenshot(&form, QStringLiteral("apply-form-settings"));
}

TEST_F(OptionsTest, SmallOrInvalidSizesLeaveTheSizeAlone)
{
    for (const char *size : {"8", "abc", "-3"}) {
        db.exec(QStringLiteral("Delete From Options"));
        db.exec(QStringLiteral("Insert Into Options Values('Config','DefaultFontSize','%1',Null)")
                    .arg(QLatin1String(size)));
        SettingsForm form;
        const int before = form.edit->font().pointSize();
        ApplyFormSettings(&form);
        EXPECT_EQ(form.edit->font().pointSize(), before) << size;
        EXPECT_EQ(form.edit->font().family(), "VK Sans Serif");
        EXPECT_EQ(DefaultFontName, "VK Sans Serif");
    }
}

TEST(ApplyFormSettingsWithoutDatabase, UsesTheDefaults)
{
    SetCurrentConnection(QSqlDatabase());
    SettingsForm form;
    ApplyFormSettings(&form);
    EXPECT_EQ(form.label->font().family(), "VK Sans Serif");
    EXPECT_EQ(form.label->font().pointSize(), 9);
}
