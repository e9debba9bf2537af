// SPDX-License-Identifier: MIT
#include "data/General.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Error.h>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace zolt;

namespace {

// A form whose layout, not the code, gives it its size.
class SettingsForm : public QDialog {
public:
    SettingsForm()
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(label = new QLabel(QStringLiteral("Người sử dụng"), this));
        layout->addWidget(edit = new QLineEdit(this));
        layout->setSizeConstraint(QLayout::SetFixedSize);
    }
    QLabel *label;
    QLineEdit *edit;
};

class GeneralTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db.exec(QStringLiteral("Create Table Options([Section] Text, KeyName Text, KeyValue Text, Description Text)"));
    }
    void setFont(const char *name, const char *size)
    {
        db.exec(QStringLiteral("Delete From Options"));
        db.exec(QStringLiteral("Insert Into Options Values('Config','DefaultFont','%1',Null), "
                               "('Config','DefaultFontSize','%2',Null)").arg(QLatin1String(name), QLatin1String(size)));
    }
    test::TempDatabase db;
};

} // namespace

TEST_F(GeneralTest, AShownDialogIsCentredAtTheSizeItsLayoutGaveIt)
{
    setFont("DejaVu Serif", "10");
    SettingsForm form;
    ApplyFormSettings(&form);
    test::showActive(&form);
    const QRect screen = form.screen()->geometry();
    EXPECT_EQ(form.frameGeometry().center().x(), screen.center().x());
    EXPECT_LE(std::abs(form.frameGeometry().center().y() - screen.center().y()), 1);
    for (const QWidget *w : {static_cast<QWidget *>(form.label), static_cast<QWidget *>(form.edit)}) {
        EXPECT_EQ(w->font().family(), "DejaVu Serif");
        EXPECT_EQ(w->font().pointSize(), 10);
    }
}

TEST_F(GeneralTest, SmallOrInvalidSizesLeaveTheSizeAndAMissingFontTakesTheDefault)
{
    for (const char *size : {"8", "abc"}) {
        setFont("", size);
        SettingsForm form;
        const int before = form.edit->font().pointSize();
        ApplyFormSettings(&form);
        EXPECT_EQ(form.edit->font().pointSize(), before) << size;
        EXPECT_EQ(form.edit->font().family(), "VK Sans Serif");
    }
}

TEST_F(GeneralTest, AFailedSaveShowsItsMessageAndReturnsTheError)
{
    QString shown;
    test::whenModalShows([&](QWidget *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        ASSERT_NE(box, nullptr);
        shown = box->windowTitle() + QLatin1Char('|') + box->text();
        QTest::keyClick(box, Qt::Key_Return);
    });
    db.exec(QStringLiteral("Create Trigger NoSave Before Insert On Options Begin Select Raise(Abort, 'đĩa đầy'); End"));
    EXPECT_EQ(WriteOption(QStringLiteral("Config"), QStringLiteral("Font"), QStringLiteral("Arial"), QString(), 0),
              Error::DatabaseFailure);
    EXPECT_TRUE(shown.startsWith(QStringLiteral("ZOLT Tests|Không thể lưu được khoáConfig-Font. Lỗi là ")));
    EXPECT_TRUE(shown.contains(QStringLiteral("đĩa đầy"))) << shown.toStdString();
}
