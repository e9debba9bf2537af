// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// A drop-down list whose every item carries a string of item data beside its
/// shown text: the visible combo Cmb1 holds the texts, the hidden combo Cmb2
/// the item data, item by item at the same index.

#include <zolt/ItemDataList.h>
#include <zolt/zolt_export.h>

#include <QFrame>
#include <QVariantMap>

class QComboBox;

namespace zolt {

/// A drop-down list whose every item carries a string of item data beside its
/// shown text (the search wizard's field and comparison lists). A host places
/// it on its own forms, in code or in Qt Designer ("ZOLT" in the widget box,
/// header <zolt/DataCombo1.h>), and fills it with AddItem and SetItemData or
/// through ItemDataList. Its design-time properties (BackColor, ForeColor,
/// BackStyle, BorderStyle) are Qt properties a .ui form sets; Text, Value and
/// ListIndex are Qt properties too, for running code.
class ZOLT_EXPORT DataCombo1 : public QFrame, public ItemDataList {
    Q_OBJECT
    Q_CLASSINFO("ProgId", "ZOLT.DataCombo1")
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(int BackStyle READ BackStyle WRITE setBackStyle)
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled DESIGNABLE false)
    Q_PROPERTY(QFont Font READ Font WRITE SetFont DESIGNABLE false)
    Q_PROPERTY(int ListIndex READ ListIndex WRITE SetListIndex DESIGNABLE false)
    Q_PROPERTY(QString Text READ Text WRITE SetText DESIGNABLE false)
    Q_PROPERTY(QString Value READ Value WRITE SetValue DESIGNABLE false)

public:
    explicit DataCombo1(QWidget *parent = nullptr);   ///< An empty list, enabled, in the system's window colours.
    ~DataCombo1() override;

    ///@{
    /// The design-time properties. Colours are 0x00BBGGRR numbers, system colours with the high bit
    /// set; BackStyle 0 is transparent and 1 opaque, BorderStyle 0 none and 1 a single line. Enabled
    /// and Font are the widget's own.
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
    ///@}
    ///@{
    /// The same setters by the names uic calls for a .ui form's properties.
    void setBackColor(qint32 color) { SetBackColor(color); }
    void setForeColor(qint32 color) { SetForeColor(color); }
    void setBackStyle(int style) { SetBackStyle(style); }
    void setBorderStyle(int style) { SetBorderStyle(style); }
    ///@}

    ///@{
    /// The selection and the items. ListIndex is the selected item (-1 for none) and ListIndex1 the
    /// same item's data row; Text the shown text of the selection; List and ItemData one item's text
    /// and data by index (error 381 out of range).
    int ListIndex() const override;
    void SetListIndex(int index) override;
    int ListIndex1() const;
    void SetListIndex1(int index);
    QString Text() const;
    void SetText(const QString &text);
    QString ItemData(int index) const override;
    void SetItemData(int index, const QString &data) override;
    QString List(int index) const;
    void SetList(int index, const QString &text);
    int NewIndex() const override { return m_newIndex; }
    int ListCount() const override;
    ///@}
    /// The item data of the selected item; setting it selects the item that
    /// carries it (without regard to case), or none.
    QString Value() const;
    void SetValue(const QString &value);   ///< \copydoc Value()

    void AddItem(const QString &item, std::optional<int> index = std::nullopt) override;
    void AppendItems(const QStringList &texts, const QStringList &data) override;
    /// Removes the item and its data; a negative index does nothing.
    void RemoveItem(int index);
    void Clear() override;   ///< Removes every item and its data.
    void Refresh();          ///< Paints the list again.

    ///@{
    /// The design-time properties, by the keys of a property bag.
    void ReadProperties(const QVariantMap &bag);
    void WriteProperties(QVariantMap &bag) const;
    ///@}

    /// The visible combo box that shows the texts.
    QComboBox *Cmb1() const { return m_cmb1; }

Q_SIGNALS:
    /// Whenever the selection changes, by the user or by code.
    void Click();
    /// A double click on the list.
    void DblClick();
    ///@{
    /// Keys. KeyCode and KeyAscii may be set to 0 by a handler to swallow the key; Shift is 1 Shift, 2
    /// Ctrl, 4 Alt, added.
    void KeyDown(int &KeyCode, int Shift);
    void KeyPress(int &KeyAscii);
    void KeyUp(int &KeyCode, int Shift);
    ///@}
    ///@{
    /// The mouse. Button 1 left, 2 right, 4 middle; X and Y in twips.
    void MouseDown(int Button, int Shift, float X, float Y);
    void MouseMove(int Button, int Shift, float X, float Y);
    void MouseUp(int Button, int Shift, float X, float Y);
    ///@}
    /// A property set in code, by its property-bag name.
    void PropertyChanged(const QString &name);

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
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
