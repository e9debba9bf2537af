// SPDX-License-Identifier: MIT
#include <zolt/DataCombo1.h>

#include "core/base/Conversions.h"
#include "core/search/ItemDataList.h"
#include "widgets/controls/AccessibleNames.h"
#include "widgets/controls/ComboSelection.h"
#include "widgets/platform/KeyDelivery.h"
#include "widgets/platform/OleColor.h"

#include <zolt/Error.h>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>

namespace zolt {

namespace {

int shiftState(Qt::KeyboardModifiers modifiers)
{
    return ((modifiers & Qt::ShiftModifier) ? 1 : 0) | ((modifiers & Qt::ControlModifier) ? 2 : 0)
           | ((modifiers & Qt::AltModifier) ? 4 : 0);
}

int buttonState(Qt::MouseButtons buttons)
{
    return ((buttons & Qt::LeftButton) ? 1 : 0) | ((buttons & Qt::RightButton) ? 2 : 0)
           | ((buttons & Qt::MiddleButton) ? 4 : 0);
}

// Stores a value the way a property bag does: a value equal to its default is left out.
void put(QVariantMap &bag, const QString &key, const QVariant &value, const QVariant &defaultValue)
{
    if (value == defaultValue)
        bag.remove(key);
    else
        bag.insert(key, value);
}

} // namespace

DataCombo1::DataCombo1(QWidget *parent)
    : QFrame(parent)
    , m_cmb1(new QComboBox(this))
    , m_cmb2(new QComboBox(this))
    , m_backColor(SystemWindowColor)
    , m_foreColor(SystemWindowTextColor)
{
    m_cmb1->setObjectName(QStringLiteral("Cmb1"));
    m_cmb2->setObjectName(QStringLiteral("Cmb2"));
    m_cmb2->hide();
    m_cmb1->setMouseTracking(true);
    m_cmb1->installEventFilter(this);
    setFocusProxy(m_cmb1);
    KeepAccessibleName(m_cmb1);   // named by the control's name (its focus proxy), not by the item shown
    setFrameStyle(QFrame::NoFrame);
    connect(m_cmb1, &QComboBox::currentIndexChanged, this, &DataCombo1::Click);
    applyColors();
    fitHeight();
}

// The control is as high as its visible combo.
void DataCombo1::fitHeight()
{
    setFixedHeight(m_cmb1->sizeHint().height() + 2 * frameWidth());
}

DataCombo1::~DataCombo1() = default;

void DataCombo1::SetBackColor(qint32 color)
{
    m_backColor = color;
    applyColors();
}

void DataCombo1::SetForeColor(qint32 color)
{
    m_foreColor = color;
    applyColors();
}

void DataCombo1::applyColors()
{
    QPalette palette = m_cmb1->palette();
    const QColor back = OleColorToQColor(m_backColor, QApplication::palette());
    const QColor fore = OleColorToQColor(m_foreColor, QApplication::palette());
    for (QPalette::ColorRole role : {QPalette::Base, QPalette::Button, QPalette::Window})
        palette.setColor(role, back);
    for (QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        palette.setColor(role, fore);
    m_cmb1->setPalette(palette);
}

bool DataCombo1::Enabled() const
{
    return m_cmb1->isEnabled();
}

void DataCombo1::SetEnabled(bool enabled)
{
    m_cmb1->setEnabled(enabled);
}

QFont DataCombo1::Font() const
{
    return m_cmb1->font();
}

void DataCombo1::SetFont(const QFont &font)
{
    m_cmb1->setFont(font);
    fitHeight();
}

void DataCombo1::SetBackStyle(int style)
{
    m_backStyle = style;
    setAutoFillBackground(style != 0);
}

void DataCombo1::SetBorderStyle(int style)
{
    m_borderStyle = style;
    setFrameStyle(style != 0 ? (QFrame::Box | QFrame::Plain) : QFrame::NoFrame);
    fitHeight();
}

int DataCombo1::ListIndex() const
{
    return m_cmb1->currentIndex();
}

void DataCombo1::SetListIndex(int index)
{
    if (index < -1 || index >= ListCount())
        throw Error(Error::InvalidPropertyValue);
    m_cmb1->setCurrentIndex(index);
    Q_EMIT PropertyChanged(QStringLiteral("ListIndex"));
}

int DataCombo1::ListIndex1() const
{
    return m_cmb2->currentIndex();
}

void DataCombo1::SetListIndex1(int index)
{
    if (index < -1 || index >= m_cmb2->count())
        throw Error(Error::InvalidPropertyValue);
    m_cmb2->setCurrentIndex(index);
    Q_EMIT PropertyChanged(QStringLiteral("ListIndex1"));
}

QString DataCombo1::Text() const
{
    return m_cmb1->currentText();
}

void DataCombo1::SetText(const QString &text)
{
    m_cmb1->setCurrentIndex(m_cmb1->findText(text, Qt::MatchFixedString));
    Q_EMIT PropertyChanged(QStringLiteral("Text"));
}

QString DataCombo1::Value() const
{
    const int index = ListIndex();
    return index >= 0 ? m_cmb2->itemText(index) : QString();
}

void DataCombo1::SetValue(const QString &value)
{
    m_cmb2->setCurrentIndex(m_cmb2->findText(value, Qt::MatchFixedString));
    // Its text may hold a value no item carries; it takes text only then,
    // since an editable box costs a line edit for each of a dialog's lists.
    if (m_cmb2->currentIndex() < 0 && !value.isEmpty())
        m_cmb2->setEditable(true);
    m_cmb2->setEditText(value);
    m_cmb1->setCurrentIndex(m_cmb2->currentIndex());
    Q_EMIT PropertyChanged(QStringLiteral("Value"));
}

QString DataCombo1::ItemData(int index) const
{
    CheckItemIndex(index, ListCount());
    return m_cmb2->itemText(index);
}

void DataCombo1::SetItemData(int index, const QString &data)
{
    CheckItemIndex(index, ListCount());
    m_cmb2->setItemText(index, data);
    Q_EMIT PropertyChanged(QStringLiteral("ItemData"));
}

QString DataCombo1::List(int index) const
{
    CheckItemIndex(index, ListCount());
    return m_cmb1->itemText(index);
}

void DataCombo1::SetList(int index, const QString &text)
{
    CheckItemIndex(index, ListCount());
    m_cmb1->setItemText(index, text);
    Q_EMIT PropertyChanged(QStringLiteral("List"));
}

int DataCombo1::ListCount() const
{
    return m_cmb1->count();
}

void DataCombo1::AddItem(const QString &item, std::optional<int> index)
{
    const int at = index.value_or(ListCount());
    InsertKeepingSelection(m_cmb1, at, item);
    InsertKeepingSelection(m_cmb2, at, QString());
    m_newIndex = at;
}

void DataCombo1::AppendItems(const QStringList &texts, const QStringList &data)
{
    AppendKeepingSelection(m_cmb1, texts);
    AppendKeepingSelection(m_cmb2, data);
    m_newIndex = ListCount() - 1;
}

void DataCombo1::RemoveItem(int index)
{
    if (index < 0)
        return;
    RemoveKeepingSelection(m_cmb1, index);
    RemoveKeepingSelection(m_cmb2, index);
}

void DataCombo1::Clear()
{
    const QSignalBlocker block1(m_cmb1);
    const QSignalBlocker block2(m_cmb2);
    m_cmb1->clear();
    m_cmb2->clear();
    m_newIndex = -1;
}

void DataCombo1::Refresh()
{
    m_cmb1->update();
}

void DataCombo1::ReadProperties(const QVariantMap &bag)
{
    const QFont ambient = parentWidget() ? parentWidget()->font() : QApplication::font();
    SetBackColor(bag.value(QStringLiteral("BackColor"), SystemWindowColor).toInt());
    SetForeColor(bag.value(QStringLiteral("ForeColor"), SystemWindowTextColor).toInt());
    SetEnabled(bag.value(QStringLiteral("Enabled"), true).toBool());
    SetFont(bag.value(QStringLiteral("Font"), ambient).value<QFont>());
    SetBackStyle(bag.value(QStringLiteral("BackStyle"), 0).toInt());
    SetBorderStyle(bag.value(QStringLiteral("BorderStyle"), 0).toInt());
}

void DataCombo1::WriteProperties(QVariantMap &bag) const
{
    const QFont ambient = parentWidget() ? parentWidget()->font() : QApplication::font();
    put(bag, QStringLiteral("BackColor"), m_backColor, SystemWindowColor);
    put(bag, QStringLiteral("ForeColor"), m_foreColor, SystemWindowTextColor);
    put(bag, QStringLiteral("Enabled"), Enabled(), true);
    put(bag, QStringLiteral("Font"), Font(), ambient);
    put(bag, QStringLiteral("BackStyle"), m_backStyle, 0);
    // BorderStyle is read on load but never saved; Text, Value and ItemData
    // are saved but never read back.
    put(bag, QStringLiteral("Text"), m_cmb1->currentText(), QString());
    put(bag, QStringLiteral("Value"), m_cmb2->currentText(), QString());
    put(bag, QStringLiteral("ItemData"), m_cmb2->currentText(), QStringLiteral("Combo1"));
}

bool DataCombo1::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_cmb1)
        return QFrame::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return handleKey(event);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        handleMouse(event);
        break;
    case QEvent::MouseButtonDblClick:
        Q_EMIT DblClick();
        break;
    case QEvent::FontChange:
        // The combo measures its new font only after this event has passed.
        QMetaObject::invokeMethod(this, &DataCombo1::fitHeight, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return false;
}

// Raises the key events; true when a handler swallowed the key by setting it to 0.
bool DataCombo1::handleKey(QEvent *event)
{
    auto *key = static_cast<QKeyEvent *>(event);
    const int original = VirtualKeyOf(key->key());
    const int shift = shiftState(key->modifiers());
    int code = original;
    if (event->type() == QEvent::KeyRelease) {
        Q_EMIT KeyUp(code, shift);
        return original != 0 && code == 0;
    }
    if (code == VkDelete && shift == 0)
        SetListIndex(-1);
    Q_EMIT KeyDown(code, shift);
    if (original != 0 && code == 0)
        return true;
    const QString text = key->text();
    if (!text.isEmpty() && text.at(0) != QChar(0x7f)) {
        int ascii = text.at(0).unicode();
        Q_EMIT KeyPress(ascii);
        return ascii == 0;
    }
    return false;
}

void DataCombo1::handleMouse(QEvent *event)
{
    auto *mouse = static_cast<QMouseEvent *>(event);
    const int shift = shiftState(mouse->modifiers());
    const float x = float(mouse->position().x()) * TwipsPerPixel;
    const float y = float(mouse->position().y()) * TwipsPerPixel;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        Q_EMIT MouseDown(buttonState(mouse->button()), shift, x, y);
        break;
    case QEvent::MouseButtonRelease:
        Q_EMIT MouseUp(buttonState(mouse->button()), shift, x, y);
        break;
    default:
        Q_EMIT MouseMove(buttonState(mouse->buttons()), shift, x, y);
        break;
    }
}

void DataCombo1::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    const QRect area = contentsRect();
    m_cmb1->setGeometry(area.left(), area.top(), area.width(), m_cmb1->sizeHint().height());
}

} // namespace zolt
