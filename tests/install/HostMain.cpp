// SPDX-License-Identifier: MIT
// A host built against the installed library: its headers, its package and
// its shared object, and nothing of its internals; a form made in Qt
// Designer holds the library's DataCombo1, filled and read through its
// properties, offscreen.
#include "ui_SearchForm.h"

#include <zolt/DataCombo1.h>
#include <zolt/Error.h>
#include <zolt/MessageBox.h>
#include <zolt/Tesmir.h>

#include <QApplication>
#include <QFileInfo>
#include <QTranslator>

#include <cstdio>

#include <dlfcn.h>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    int failures = 0;
    const auto check = [&failures](bool ok, const char *what) {
        if (!ok)
            std::fprintf(stderr, "host: %s\n", what), ++failures;
    };
    check(QFileInfo(QStringLiteral(ZOLT_SCHEMA)).isFile(), "the table script is where the package says");
    QTranslator english;
    check(english.load(QStringLiteral("zolt_en"), QStringLiteral(ZOLT_TRANSLATIONS)) && QCoreApplication::installTranslator(&english),
          "the English catalogue is where the package says");
    check(zolt::MessageBox::tr("&Không") == QStringLiteral("&No"), "the catalogue translates the library's texts");
    check(zolt::Tesmir().CvNStr(QStringLiteral("1234567,5")) == QStringLiteral("1.234.567,5"), "CvNStr");
    check(zolt::Error(13).description() == QStringLiteral("Type mismatch"), "Error");
    check(dlsym(RTLD_DEFAULT, "_ZNK4zolt6Tesmir6CvNStrERK8QVariant"), "public classes are exported");
    check(!dlsym(RTLD_DEFAULT, "_ZN4zolt8FixQuoteERK8QVariant"), "internal modules are hidden");

    QWidget form;
    Ui::SearchForm ui;
    ui.setupUi(&form);
    zolt::DataCombo1 *field = ui.field;
    check(field->property("BackColor").toInt() == 255 && field->property("BorderStyle").toInt() == 1,
          "the form's properties reach the DataCombo1");
    field->AddItem(QStringLiteral("Tên hàng"));
    field->SetItemData(field->NewIndex(), QStringLiteral("TenHang"));
    field->AddItem(QStringLiteral("Giá bán"));
    field->SetItemData(field->NewIndex(), QStringLiteral("GiaBan"));
    check(field->setProperty("Value", QStringLiteral("giaban")), "the Value property is written");
    check(field->property("Text").toString() == QStringLiteral("Giá bán") && field->property("ListIndex").toInt() == 1,
          "the item chosen by its data is shown and read back");
    form.show();
    check(field->isVisible() && field->height() > 0, "the form shows the DataCombo1");
    return failures;
}
