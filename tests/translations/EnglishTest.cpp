// SPDX-License-Identifier: MIT
// The library with its English catalogue loaded, as a host loads it: no
// dialog shows a Vietnamese word of its own. The database holds English
// words only, so that every Vietnamese letter on screen would be the
// library's.
#include "core/logon/LogonGuard.h"
#include "widgets/controls/FmSelHang.h"
#include "widgets/logon/FmGrp.h"
#include "widgets/logon/FrPms.h"
#include "widgets/logon/FrmInput.h"
#include "widgets/logon/FrmLogon.h"
#include "widgets/logon/FrmMenu.h"
#include "widgets/logon/QuoteGuard.h"
#include "widgets/search/FrmFind.h"

#include "TestSupport.h"

#include <zolt/DataCombo1.h>
#include <zolt/MessageBox.h>
#include <zolt/Schema.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QRegularExpression>
#include <QTranslator>
#include <QTreeView>
#include <QTreeWidget>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

// The letters of Vietnamese that English has not.
const QRegularExpression Vietnamese(u"[àáảãạăằắẳẵặâầấẩẫậđèéẻẽẹêềếểễệìíỉĩịòóỏõọôồốổỗộơờớởỡợùúủũụưừứửữựỳýỷỹỵ]"_s,
                                    QRegularExpression::CaseInsensitiveOption);

// Every text the dialog shows or tells a screen reader of its own: its title,
// captions, headings, tips and the controls' names.
QStringList textsOf(QWidget *dialog)
{
    QStringList texts{dialog->windowTitle()};
    QList<QWidget *> widgets = dialog->findChildren<QWidget *>();
    widgets.prepend(dialog);
    for (QWidget *w : widgets) {
        texts << w->accessibleName() << w->accessibleDescription() << w->toolTip() << w->statusTip();
        if (auto *label = qobject_cast<QLabel *>(w))
            texts << label->text();
        if (auto *button = qobject_cast<QAbstractButton *>(w))
            texts << button->text();
        if (auto *box = qobject_cast<QGroupBox *>(w))
            texts << box->title();
        if (auto *header = qobject_cast<QHeaderView *>(w); header && header->model()) {
            for (int section = 0; section < header->count(); ++section)
                texts << header->model()->headerData(section, header->orientation()).toString();
        }
        if (auto *tree = qobject_cast<QTreeWidget *>(w)) {
            for (int column = 0; column < tree->columnCount(); ++column)
                texts << tree->headerItem()->text(column);
        }
    }
    for (DataCombo1 *combo : dialog->findChildren<DataCombo1 *>(QRegularExpression(u"^cmbLg"_s))) {
        for (int item = 0; item < combo->ListCount(); ++item)
            texts << combo->List(item);
    }
    texts.removeAll(QString());
    return texts;
}

QStringList vietnamese(const QStringList &texts)
{
    return texts.filter(Vietnamese);
}

class EnglishTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(english.load(u"zolt_en"_s, QStringLiteral(ZOLT_TRANSLATIONS_BUILD_DIR)));
        QCoreApplication::installTranslator(&english);
        CreateTables(db.db());
        db.exec(u"Insert Into Groups(Code, [Name], Des) Values(1, 'Admins', 'All rights'), (8, 'Sales', 'Counter')"_s);
        db.exec(u"Insert Into [User](Code, [Name], [Dec], [Password], IdGroup) Values(1, 'admin', 'Manager', 26209, 1)"_s);
        db.exec(u"Insert Into Menu Values(1, 'Catalogue')"_s);
        db.exec(u"Insert Into SubMenu Values(1, 'Goods', 1)"_s);
        db.exec(u"Alter Table Groups Add Column Catalogue Integer"_s);
        db.exec(u"Insert Into LstFld Values(1, 'Name', 'Name', 'Staff', 'Teams', 10)"_s);
        db.exec(u"Insert Into Operator Values(1, 'LIKE', 'Starts with', 10)"_s);
        db.exec(u"Create Table Teams(Code Text, [Name] Text)"_s);
        db.exec(u"Insert Into Options Values('Config', 'LogonAttempts', '3', Null)"_s);
    }
    void TearDown() override { QCoreApplication::removeTranslator(&english); }
    QTranslator english;
    test::TempDatabase db;
};

} // namespace

TEST_F(EnglishTest, EveryDialogSpeaksEnglish)
{
    const struct {
        const char *dialog;
        std::function<std::unique_ptr<QWidget>()> make;
    } dialogs[] = {
        {"logon", [] { return std::make_unique<FrmLogon>(); }},
        {"user list", [] { return std::make_unique<FrmMenu>(); }},
        {"user editor", [] {
             auto editor = std::make_unique<FrmInput>();
             editor->PreLoad();
             return editor;
         }},
        {"groups", [] { return std::make_unique<FmGrp>(); }},
        {"rights", [] { return std::make_unique<FrPms>(8); }},
        {"search", [] {
             auto find = std::make_unique<FrmFind>();
             find->TableName = u"Staff"_s;
             find->Load();
             return find;
         }},
        {"pick list", [] { return std::make_unique<FmSelHang>(); }},
    };
    for (const auto &d : dialogs) {
        const std::unique_ptr<QWidget> dialog = d.make();
        dialog->show();
        const QStringList texts = textsOf(dialog.get());
        EXPECT_GT(texts.size(), 3) << d.dialog;
        EXPECT_EQ(vietnamese(texts), QStringList()) << d.dialog;
    }
    for (qint32 set = 0; set <= 5; ++set) {
        MessageBox box;
        box.SetButtons(set);
        for (const qint32 icon : {16, 32, 48, 64}) {
            box.SetIcon(icon);
            EXPECT_EQ(vietnamese(textsOf(&box)), QStringList()) << set << " " << icon;
        }
    }
    EXPECT_EQ(WaitMessage(125), u"Too many wrong attempts. Wait 2 minutes 5 seconds, then log on again."_s);
    EXPECT_EQ(WaitMessage(1), u"Too many wrong attempts. Wait 1 second, then log on again."_s);
    EXPECT_EQ(QuoteRefused(), u"Names and descriptions cannot contain an apostrophe (')."_s);
}
