// SPDX-License-Identifier: MIT
#include "widgets/controls/AccessibleNames.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

namespace zolt {

namespace {

// Properties that mark the widgets these interfaces are for.
constexpr char KeepsName[] = "zoltKeepsAccessibleName";
constexpr char Heading[] = "zoltAccessibleHeading";
constexpr char Alert[] = "zoltAlert";

QLabel *headingOf(const QWidget *widget)
{
    return widget ? qobject_cast<QLabel *>(widget->property(Heading).value<QPointer<QObject>>().data()) : nullptr;
}

class NamedComboBox : public QAccessibleWidget {
public:
    explicit NamedComboBox(QComboBox *combo)
        : QAccessibleWidget(combo, QAccessible::ComboBox)
    {
    }

    QString text(QAccessible::Text t) const override
    {
        if (t == QAccessible::Value)
            return combo()->currentText();
        const QString text = QAccessibleWidget::text(t);   // the accessible name, else the buddy label's text
        if (t == QAccessible::Name && text.isEmpty() && wrapper())
            return wrapper()->text(QAccessible::Name);
        return text;
    }

    QList<QPair<QAccessibleInterface *, QAccessible::Relation>> relations(QAccessible::Relation match) const override
    {
        auto related = QAccessibleWidget::relations(match);
        if (!(match & QAccessible::Label))
            return related;
        if (QLabel *heading = headingOf(combo()))
            related.append({QAccessible::queryAccessibleInterface(heading), QAccessible::Label});
        if (QAccessibleInterface *outer = wrapper()) {
            related += outer->relations(QAccessible::Label);
            if (QLabel *heading = headingOf(static_cast<QWidget *>(outer->object())))
                related.append({QAccessible::queryAccessibleInterface(heading), QAccessible::Label});
        }
        return related;
    }

    // The list that drops down, and the edit box of an editable combo.
    int childCount() const override { return combo()->isEditable() ? 2 : 1; }
    QAccessibleInterface *child(int index) const override
    {
        if (index == 0)
            return QAccessible::queryAccessibleInterface(combo()->view());
        if (index == 1 && combo()->isEditable())
            return QAccessible::queryAccessibleInterface(combo()->lineEdit());
        return nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        if (!child)
            return -1;
        if (child->object() == combo()->view())
            return 0;
        return combo()->isEditable() && child->object() == combo()->lineEdit() ? 1 : -1;
    }

    QStringList actionNames() const override
    {
        return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString &action) override
    {
        if (action != showMenuAction() && action != pressAction())
            return QAccessibleWidget::doAction(action);
        if (combo()->view()->isVisible())
            combo()->hidePopup();
        else
            combo()->showPopup();
    }

private:
    QComboBox *combo() const { return static_cast<QComboBox *>(widget()); }
    // The control the combo box is the keyboard of, if any.
    QAccessibleInterface *wrapper() const
    {
        QWidget *parent = combo()->parentWidget();
        return parent && parent->focusProxy() == combo() ? QAccessible::queryAccessibleInterface(parent) : nullptr;
    }
};

// Qt asks the factories from the last installed, class by class from the
// most derived: these come before Qt's own for the widgets they mark.
QAccessibleInterface *factory(const QString &className, QObject *object)
{
    if (className == QLatin1String("QComboBox") && object->property(KeepsName).toBool())
        return new NamedComboBox(static_cast<QComboBox *>(object));
    if (object->isWidgetType() && object->property(Alert).toBool())   // asked first for the most derived class
        return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::AlertMessage);
    return nullptr;
}

void installFactory()
{
    static const bool installed = [] {
        QAccessible::installFactory(&factory);
        return true;
    }();
    Q_UNUSED(installed);
}

} // namespace

void KeepAccessibleName(QComboBox *combo)
{
    installFactory();
    combo->setProperty(KeepsName, true);
}

void SetAccessibleHeading(QWidget *control, QLabel *heading)
{
    control->setProperty(Heading, QVariant::fromValue(QPointer<QObject>(heading)));
}

void AnnounceAsAlert(QDialog *dialog)
{
    installFactory();
    dialog->setProperty(Alert, true);
}

} // namespace zolt
