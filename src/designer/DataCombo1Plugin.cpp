// SPDX-License-Identifier: MIT
#include "designer/DataCombo1Plugin.h"

#include <zolt/DataCombo1.h>

#include <QIcon>

namespace zolt {

DataCombo1Plugin::DataCombo1Plugin(QObject *parent)
    : QObject(parent)
{
}

QString DataCombo1Plugin::name() const
{
    return QStringLiteral("zolt::DataCombo1");
}

QString DataCombo1Plugin::group() const
{
    return QStringLiteral("ZOLT");
}

QString DataCombo1Plugin::toolTip() const
{
    return QStringLiteral("Danh sách chọn mang dữ liệu chuỗi cho từng mục");
}

QString DataCombo1Plugin::whatsThis() const
{
    return QStringLiteral("A drop-down list whose every item carries a string of item data (ZOLT.DataCombo1).");
}

QString DataCombo1Plugin::includeFile() const
{
    return QStringLiteral("<zolt/DataCombo1.h>");
}

QIcon DataCombo1Plugin::icon() const
{
    return QIcon::fromTheme(QStringLiteral("view-list-details"));
}

bool DataCombo1Plugin::isContainer() const
{
    return false;
}

QWidget *DataCombo1Plugin::createWidget(QWidget *parent)
{
    return new DataCombo1(parent);
}

QString DataCombo1Plugin::domXml() const
{
    return QStringLiteral("<ui language=\"c++\"><widget class=\"zolt::DataCombo1\" name=\"dataCombo1\"/></ui>");
}

} // namespace zolt
