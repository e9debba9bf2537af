// SPDX-License-Identifier: MIT
#include "widgets/desktop/General.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Error.h>

#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

class GeneralTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        db.createLibraryTables();
        (new QVBoxLayout(&form))->addWidget(edit);   // the layout, not the code, gives the form its size
        form.layout()->setSizeConstraint(QLayout::SetFixedSize);
    }
    void setFont(const char *name, const char *size)
    {
        db.exec(u"Delete From Options"_s);
        db.exec(u"Insert Into Options Values('Config','DefaultFont','%1',Null), ('Config','DefaultFontSize','%2',Null)"_s
                    .arg(QLatin1String(name), QLatin1String(size)));
    }
    test::TempDatabase db{GetParam()};
    QDialog form;
    QLineEdit *edit = new QLineEdit(&form);
};

INSTANTIATE_TEST_SUITE_P(Engines, GeneralTest, ::testing::ValuesIn(test::Engines), test::EngineName);

} // namespace

TEST_P(GeneralTest, AShownDialogIsCentredAtTheSizeItsLayoutGaveIt)
{
    setFont("DejaVu Serif", "10");
    ApplyFormSettings(&form);
    test::showActive(&form);
    const QRect screen = form.screen()->geometry();
    EXPECT_EQ(form.frameGeometry().center().x(), screen.center().x());
    EXPECT_LE(std::abs(form.frameGeometry().center().y() - screen.center().y()), 1);
    EXPECT_EQ(edit->font(), QFont(u"DejaVu Serif"_s, 10));
}

// Centred when its settings are applied and again when shown: on its owner's
// window when it has one on show, else on the screen, and never beyond the
// screen's edges.
TEST_P(GeneralTest, ADialogIsCentredOnItsOwnerOrTheScreenAndNeverLeavesIt)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QWidget owner;
    owner.setGeometry(40, 50, 300, 200);
    test::showActive(&owner);
    const struct {
        QWidget *owner;
        QSize minimum;
    } cases[] = {{nullptr, {}}, {&owner, {}}, {&owner, screen.size() * 2}, {nullptr, screen.size() + QSize(0, 300)}};
    for (const auto &[parent, minimum] : cases) {
        QDialog dialog(parent);
        (new QVBoxLayout(&dialog))->addWidget(new QLineEdit(&dialog));
        if (minimum.isValid())
            dialog.setMinimumSize(minimum);
        ApplyFormSettings(&dialog);
        const QRect around = parent ? owner.frameGeometry() : screen;
        // Before it shows, at the size its layout asks for.
        const auto expectPlaced = [&](const char *when) {
            const QRect frame = dialog.isVisible() ? dialog.frameGeometry()
                                                   : QRect(dialog.pos(), dialog.size().expandedTo(dialog.sizeHint()));
            if (frame.width() <= screen.width()) {
                EXPECT_LE(std::abs(frame.center().x() - around.center().x()), 1) << when;
            }
            if (frame.height() <= screen.height()) {
                EXPECT_LE(std::abs(frame.center().y() - around.center().y()), 1) << when;
            }
            EXPECT_TRUE(screen.contains(frame.topLeft())) << when;
        };
        expectPlaced("when its settings are applied");
        test::showActive(&dialog);
        expectPlaced("when shown");
    }
}

TEST_P(GeneralTest, SmallOrInvalidSizesLeaveTheSizeAndAMissingFontTakesTheDefault)
{
    const int before = edit->font().pointSize();
    for (const char *size : {"8", "abc"}) {
        setFont("", size);
        ApplyFormSettings(&form);
        EXPECT_EQ(edit->font().pointSize(), before) << size;
        EXPECT_EQ(edit->font().family(), "VK Sans Serif");
    }
}

TEST_P(GeneralTest, AFailedSaveShowsItsMessageAndReturnsTheError)
{
    QString shown;
    test::whenModalShows([&](QWidget *box) {
        shown = box->windowTitle() + u'|' + qobject_cast<QMessageBox *>(box)->text();
        QTest::keyClick(box, Qt::Key_Return);
    });
    db.exec(u"Drop Table Options"_s);
    EXPECT_EQ(WriteOption(u"Config"_s, u"Font"_s, u"Arial"_s, {}, 0), Error::DatabaseFailure);
    EXPECT_TRUE(shown.startsWith(u"ZOLT Tests|Không thể lưu được khoáConfig-Font. Lỗi là "_s));
    EXPECT_TRUE(shown.contains(u"options"_s, Qt::CaseInsensitive)) << shown.toStdString();   // the engine's own words
}
