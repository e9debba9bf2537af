// SPDX-License-Identifier: MIT
// DataCombo1 in Qt Designer: the plugin loads and makes the control, whose
// design-time properties are Q_PROPERTYs; a form using it compiles by uic.
#include "ui_SearchRow.h"

#include <zolt/DataCombo1.h>

#include <QPluginLoader>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <gtest/gtest.h>

using namespace zolt;

TEST(DesignerPlugin, LoadsAndMakesTheControlWithItsProperties)
{
    QPluginLoader loader(QStringLiteral(ZOLT_DESIGNER_PLUGIN));
    auto *plugin = qobject_cast<QDesignerCustomWidgetInterface *>(loader.instance());
    ASSERT_NE(plugin, nullptr) << loader.errorString().toStdString();
    EXPECT_EQ(plugin->name(), QStringLiteral("zolt::DataCombo1"));
    EXPECT_EQ(plugin->group(), QStringLiteral("ZOLT"));
    EXPECT_TRUE(plugin->domXml().contains(plugin->name()));
    QWidget form;
    QWidget *control = plugin->createWidget(&form);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->property("BackColor").toUInt(), 0x80000005u);   // the system colour of a control's background
    EXPECT_EQ(control->property("BackStyle").toInt(), 0);
    EXPECT_TRUE(control->setProperty("BorderStyle", 1));
    EXPECT_EQ(control->property("BorderStyle").toInt(), 1);
    EXPECT_EQ(control->property("ListIndex").toInt(), -1);
}

TEST(DesignerPlugin, AFormUsingTheControlCompilesAndSetsItsProperties)
{
    QWidget form;
    Ui::SearchRow ui;
    ui.setupUi(&form);
    EXPECT_EQ(ui.field->BackStyle(), 1);
    EXPECT_EQ(ui.field->BackColor(), 255);
}
