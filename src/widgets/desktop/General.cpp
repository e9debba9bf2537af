// SPDX-License-Identifier: MIT
#include "widgets/desktop/General.h"

#include "core/base/Conversions.h"
#include "core/database/Options.h"

#include <zolt/Error.h>
#include <zolt/Tesmir.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QMessageBox>
#include <QScreen>

#include <algorithm>

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
                        QCoreApplication::translate("zolt::WriteOption", "Không thể lưu được khoá%1-%2. Lỗi là %3")
                            .arg(section, key, e.description()),
                        QMessageBox::Ok, QApplication::activeWindow());
        box.exec();
        return e.number();
    }
}

void CentreOnScreen(QWidget *form)
{
    const QWidget *owner = form->parentWidget() ? form->parentWidget()->window() : nullptr;
    const bool onOwner = owner && owner->isVisible();
    const QScreen *screen = onOwner ? owner->screen() : form->screen();
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect area = screen->availableGeometry();
    const QRect around = onOwner ? owner->frameGeometry() : area;
    // Before it first shows, a dialog's size is what its layout asks for.
    const QSize frame = form->frameGeometry().size() - form->size();
    const QSize size = (form->testAttribute(Qt::WA_WState_Created) || !form->sizeHint().isValid()
                            ? form->size() : form->size().expandedTo(form->sizeHint())) + frame;
    // Whole on the screen, its title bar first where it cannot be whole.
    const int left = std::clamp(around.left() + (around.width() - size.width()) / 2, area.left(),
                                std::max(area.left(), area.right() + 1 - size.width()));
    const int top = std::clamp(around.top() + (around.height() - size.height()) / 2, area.top(),
                               std::max(area.top(), area.bottom() + 1 - size.height()));
    form->move(left, top);
}

void ApplyFormSettings(QWidget *form)
{
    if (!form)
        return;
    if (!form->property("zoltCentredWhenShown").toBool()) {   // a dialog loaded again keeps its one
        form->installEventFilter(new CentreWhenShown(form));
        form->setProperty("zoltCentredWhenShown", true);
    }
    CentreOnScreen(form);
    DefaultFontName = ReadOption(QStringLiteral("Config"), QStringLiteral("DefaultFont"), QString());
    const QString sizeText = ReadOption(QStringLiteral("Config"), QStringLiteral("DefaultFontSize"),
                                        QStringLiteral("9"));
    const int size = IsNumeric(sizeText) ? LngVal(sizeText) : 0;
    if (DefaultFontName.isEmpty())
        DefaultFontName = FallbackFont;
    const auto settled = [&](QFont font) {
        font.setFamily(DefaultFontName);
        if (size > 8)
            font.setPointSize(size);
        return font;
    };
    // The form's font reaches every control at once; a control with a font
    // of its own (a bold caption) is given the name and size beside it. A
    // control set one by one would tell its inner widgets again each time.
    form->setFont(settled(form->font()));
    for (QWidget *control : form->findChildren<QWidget *>()) {
        if (const QFont font = settled(control->font()); font != control->font())
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
