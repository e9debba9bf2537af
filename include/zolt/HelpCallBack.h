// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The help of highlighted menu items, for the host (HelpCallBack).

#include <zolt/zolt_export.h>

#include <QObject>
#include <QString>

namespace zolt {

/// Receives the help of the menu item a user highlights in a window given to
/// clsCoolMenu::Install, by mouse or by keyboard, disabled items included. An
/// item without help raises the event with an empty help text: the host
/// decides what its status bar shows then.
class ZOLT_EXPORT HelpCallBack : public QObject {
    Q_OBJECT

public:
    explicit HelpCallBack(QObject *parent = nullptr);   ///< An object to hand to clsCoolMenu::Install.
    ~HelpCallBack() override;

    /// Emits MenuHelp with the three values.
    void RaiseHelpEvent(const QString &MenuText, const QString &MenuHelp, bool Enabled);

Q_SIGNALS:
    /// MenuText is the item's caption as a user reads it (without "&").
    void MenuHelp(const QString &MenuText, const QString &MenuHelp, bool Enabled);
};

} // namespace zolt
