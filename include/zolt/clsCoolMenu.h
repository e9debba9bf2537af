// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Owner-drawn menus with pictures and help (clsCoolMenu).

#include <zolt/zolt_export.h>

#include <QIcon>
#include <QList>
#include <QString>
#include <QVariant>

#include <optional>

class QWidget;

namespace zolt {

class HelpCallBack;

/// Owner-drawn menus for a host's top-level windows: the library's font and
/// colours, pictures beside the captions, three-dimensional check marks,
/// embossed pictures of disabled items, right-to-left menus, and the help of
/// the highlighted item raised through a HelpCallBack.
/// 
/// A window is the host's top-level widget (normally a QMainWindow); a null
/// pointer is no window. The menu bar's items and every popup opened from it
/// are drawn by the library until Uninstall, which gives each menu back its
/// own look. A QAction says what its item shows: its text ("&" marks the
/// mnemonic, a shortcut or a "\t" part is right-aligned), its statusTip as the
/// help, its icon, or the picture at index property "iButton" of the image
/// list given to Install, check marks for a checkable action, radio marks
/// within an exclusive QActionGroup.
class ZOLT_EXPORT clsCoolMenu {
public:
    clsCoolMenu();
    ~clsCoolMenu();
    clsCoolMenu(const clsCoolMenu &) = delete;
    clsCoolMenu &operator=(const clsCoolMenu &) = delete;

    /// True; a window already installed raises zolt::Error 457 and changes nothing.
    bool Install(QWidget *wndHandle, HelpCallBack *HelpObj = nullptr, const QList<QIcon> &ilHandle = {});
    /// False when the window is not installed.
    bool Uninstall(QWidget *wndHandle);

    ///@{
    /// Each style setting of an installed window. Given a Value, stores it and returns it converted;
    /// without one returns the setting. A window that is not installed, or a Value that does not
    /// convert, gives "", 0 or false and changes nothing. Colours are 0x00BBGGRR numbers.
    QString FontName(QWidget *hWnd, const std::optional<QVariant> &Value = std::nullopt);
    qint32 FontSize(QWidget *hWnd, const std::optional<QVariant> &Value = std::nullopt);
    qint32 ForeColor(QWidget *hWnd, const std::optional<QVariant> &Value = std::nullopt);
    qint32 SelectColor(QWidget *hWnd, const std::optional<QVariant> &Value = std::nullopt);
    bool ComplexChecks(QWidget *hWnd, const std::optional<QVariant> &Value = std::nullopt);
    bool ColorEmbossed(QWidget *hWnd, const std::optional<QVariant> &Value = std::nullopt);
    bool RightToLeft(QWidget *hWnd, const std::optional<QVariant> &Value = std::nullopt);
    bool FullSelect(QWidget *hWnd, const std::optional<QVariant> &Value = std::nullopt);
    ///@}

    /// hWnd's window has put a menu bar of its own in place of the one it had
    /// (a document window's menus): the library draws the next menu bar that
    /// replaces the current one. A window not installed is left alone.
    void MDIChildMenu(QWidget *hWnd);
};

} // namespace zolt
