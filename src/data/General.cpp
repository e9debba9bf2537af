// SPDX-License-Identifier: MIT
#include "data/General.h"

#include "data/Conversions.h"
#include "data/Options.h"

#include <zolt/Error.h>
#include <zolt/Tesmir.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QMessageBox>
#include <QScreen>

namespace zolt {

QString DefaultFontName;

namespace {

const QString FallbackFont = QStringLiteral("VK Sans Serif");

// A dialog has its final size only when it shows, once its layout has run.
class CentreWhenShown : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            CentreOnScreen(static_cast<QWidget *>(watched));
        return false;
    }
};

} // namespace

qint32 WriteOption(const QString &section, const QString &key, const QString &value,
                   const QString &description, qint32 isNew)
{
    try {
        SaveOption(section, key, value, description, isNew);
        return 0;
    } catch (const Error &e) {
        QMessageBox box(QMessageBox::NoIcon, QGuiApplication::applicationDisplayName(),
                        QStringLiteral("Không thể lưu được khoá") + section + QLatin1Char('-') + key
                            + QStringLiteral(". Lỗi là ") + e.description(),
                        QMessageBox::Ok, QApplication::activeWindow());
        box.exec();
        return e.number();
    }
}

void CentreOnScreen(QWidget *form)
{
    const QScreen *screen = form->screen() ? form->screen() : QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect area = screen->geometry();
    const QSize size = form->frameGeometry().size();
    form->move(area.left() + (area.width() - size.width()) / 2,
               area.top() + (area.height() - size.height()) / 2);
}

void ApplyFormSettings(QWidget *form)
{
    if (!form)
        return;
    form->installEventFilter(new CentreWhenShown(form));
    DefaultFontName = ReadOption(QStringLiteral("Config"), QStringLiteral("DefaultFont"), QString());
    const QString sizeText = ReadOption(QStringLiteral("Config"), QStringLiteral("DefaultFontSize"),
                                        QStringLiteral("9"));
    const int size = IsNumeric(sizeText) ? LngVal(sizeText) : 0;
    if (DefaultFontName.isEmpty())
        DefaultFontName = FallbackFont;
    for (QWidget *control : form->findChildren<QWidget *>()) {
        QFont font = control->font();
        font.setFamily(DefaultFontName);
        if (size > 8)
            font.setPointSize(size);
        control->setFont(font);
    }
}

QHBoxLayout *ButtonRow(std::initializer_list<QPushButton *> buttons)
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton *button : buttons) {
        button->setMinimumWidth(90);
        row->addWidget(button);
    }
    return row;
}

void SetPasswordChar(QLineEdit *box)
{
    box->setEchoMode(QLineEdit::Password);
    box->setStyleSheet(QStringLiteral("QLineEdit { lineedit-password-character: 42; }"));
}

void PressKey(qint32 Key, qint32 Shift)
{
    Tesmir().Gui_Phim(Key, Shift);
}

} // namespace zolt
