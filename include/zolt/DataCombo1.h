// SPDX-License-Identifier: MIT
#pragma once

// A drop-down list whose every item carries a string of item data beside its
// shown text: the visible combo Cmb1 holds the texts, the hidden combo Cmb2
// the item data, item by item at the same index.

#include <zolt/ItemDataList.h>
#include <zolt/zolt_export.h>

#include <QFrame>
#include <QVariantMap>

class QComboBox;

namespace zolt {

class ZOLT_EXPORT DataCombo1 : public QFrame, public ItemDataList {
    Q_OBJECT
    Q_CLASSINFO("ProgId", "ZOLT.DataCombo1")
    // The design-time property bag, as Qt Designer and .ui files set it
    // (colours as 0x00BBGGRR numbers, system colours with the high bit); its
    // Enabled and Font are the widget's own enabled and font there.
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(int BackStyle READ BackStyle WRITE setBackStyle)
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled DESIGNABLE false)
    Q_PROPERTY(QFont Font READ Font WRITE SetFont DESIGNABLE false)
    // What only running code sets.
    Q_PROPERTY(int ListIndex READ ListIndex WRITE SetListIndex DESIGNABLE false)
    Q_PROPERTY(QString Text READ Text WRITE SetText DESIGNABLE false)
    Q_PROPERTY(QString Value READ Value WRITE SetValue DESIGNABLE false)

public:
    explicit DataCombo1(QWidget *parent = nullptr);
    ~DataCombo1() override;

    qint32 BackColor() const { return m_backColor; }
    void SetBackColor(qint32 color);
    qint32 ForeColor() const { return m_foreColor; }
    void SetForeColor(qint32 color);
    bool Enabled() const;
    void SetEnabled(bool enabled);
    QFont Font() const;
    void SetFont(const QFont &font);
    int BackStyle() const { return m_backStyle; }
    void SetBackStyle(int style);
    int BorderStyle() const { return m_borderStyle; }
    void SetBorderStyle(int style);
    // The setters by the names uic calls for the properties of a .ui form.
    void setBackColor(qint32 color) { SetBackColor(color); }
    void setForeColor(qint32 color) { SetForeColor(color); }
    void setBackStyle(int style) { SetBackStyle(style); }
    void setBorderStyle(int style) { SetBorderStyle(style); }

    int ListIndex() const override;
    void SetListIndex(int index) override;
    int ListIndex1() const;
    void SetListIndex1(int index);
    QString Text() const;
    void SetText(const QString &text);
    // The item data of the selected item; setting it selects the item that
    // carries it (without regard to case), or none.
    QString Value() const;
    void SetValue(const QString &value);
    QString ItemData(int index) const override;
    void SetItemData(int index, const QString &data) override;
    QString List(int index) const;
    void SetList(int index, const QString &text);
    int NewIndex() const override { return m_newIndex; }
    int ListCount() const override;

    void AddItem(const QString &item, std::optional<int> index = std::nullopt) override;
    void AppendItems(const QStringList &texts, const QStringList &data) override;
    // Removes the item and its data; a negative index does nothing.
    void RemoveItem(int index);
    void Clear() override;
    void Refresh();

    // The design-time properties, by the keys of the property bag.
    void ReadProperties(const QVariantMap &bag);
    void WriteProperties(QVariantMap &bag) const;

    QComboBox *Cmb1() const { return m_cmb1; }

Q_SIGNALS:
    // Whenever the selection changes, by the user or by code.
    void Click();
    void DblClick();
    // KeyCode and KeyAscii may be set to 0 by a handler to swallow the key.
    void KeyDown(int &KeyCode, int Shift);
    void KeyPress(int &KeyAscii);
    void KeyUp(int &KeyCode, int Shift);
    // Button 1 left, 2 right, 4 middle; X and Y in twips.
    void MouseDown(int Button, int Shift, float X, float Y);
    void MouseMove(int Button, int Shift, float X, float Y);
    void MouseUp(int Button, int Shift, float X, float Y);
    // A property set in code, by its property-bag name.
    void PropertyChanged(const QString &name);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void applyColors();
    void fitHeight();
    bool handleKey(QEvent *event);
    void handleMouse(QEvent *event);

    QComboBox *m_cmb1;
    QComboBox *m_cmb2;
    int m_newIndex = -1;
    qint32 m_backColor;
    qint32 m_foreColor;
    int m_backStyle = 0;
    int m_borderStyle = 0;
};

} // namespace zolt
