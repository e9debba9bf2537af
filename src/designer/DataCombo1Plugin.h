// SPDX-License-Identifier: MIT
#pragma once

// Qt Designer's view of DataCombo1: a widget of the group "ZOLT" whose
// design-time properties are its Q_PROPERTYs.

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace zolt {

class DataCombo1Plugin : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit DataCombo1Plugin(QObject *parent = nullptr);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget *createWidget(QWidget *parent) override;
    QString domXml() const override;
};

} // namespace zolt
