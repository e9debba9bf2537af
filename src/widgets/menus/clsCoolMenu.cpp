// SPDX-License-Identifier: MIT
#include <zolt/clsCoolMenu.h>

#include "core/base/Conversions.h"
#include "widgets/menus/mCoolMenu.h"
#include "widgets/menus/WndCoolMenu.h"

#include <zolt/Error.h>

namespace zolt {

namespace {

// A Variant as the setting's type, as the classic runtime converted it;
// nothing when it does not convert.
std::optional<QString> AsText(const QVariant &value)
{
    return VariantToText(value);
}

std::optional<qint32> AsLong(const QVariant &value)
{
    try {
        return IsNumeric(value) ? std::optional<qint32>(RoundToLong(ToDouble(value))) : std::nullopt;
    } catch (const Error &) {
        return std::nullopt;   // beyond 32 bits
    }
}

std::optional<bool> AsBoolean(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    if (IsNumeric(value))
        return ToDouble(value) != 0;
    const QString text = Trim(value.toString());
    if (SameText(text, QStringLiteral("True")) || SameText(text, QStringLiteral("False")))
        return SameText(text, QStringLiteral("True"));
    return std::nullopt;
}

// Reads a window's setting, or stores Value in it and gives its menus the new look.
template <typename T>
T Setting(QWidget *hWnd, const std::optional<QVariant> &Value, T WndCoolMenu::*field,
          std::optional<T> (*convert)(const QVariant &))
{
    WndCoolMenu *wnd = InstalledWindow(hWnd);
    if (!wnd)
        return T();
    if (!Value)
        return wnd->*field;
    const std::optional<T> converted = convert(*Value);
    if (!converted)
        return T();
    wnd->*field = *converted;
    wnd->ApplySettings();
    return *converted;
}

} // namespace

clsCoolMenu::clsCoolMenu() = default;
clsCoolMenu::~clsCoolMenu() = default;

bool clsCoolMenu::Install(QWidget *wndHandle, HelpCallBack *HelpObj, const QList<QIcon> &ilHandle)
{
    return zolt::Install(wndHandle, HelpObj, ilHandle);
}

bool clsCoolMenu::Uninstall(QWidget *wndHandle)
{
    return zolt::Uninstall(wndHandle);
}

QString clsCoolMenu::FontName(QWidget *hWnd, const std::optional<QVariant> &Value)
{
    return Setting(hWnd, Value, &WndCoolMenu::FontName, AsText);
}

qint32 clsCoolMenu::FontSize(QWidget *hWnd, const std::optional<QVariant> &Value)
{
    return Setting(hWnd, Value, &WndCoolMenu::FontSize, AsLong);
}

qint32 clsCoolMenu::ForeColor(QWidget *hWnd, const std::optional<QVariant> &Value)
{
    return Setting(hWnd, Value, &WndCoolMenu::ForeColor, AsLong);
}

qint32 clsCoolMenu::SelectColor(QWidget *hWnd, const std::optional<QVariant> &Value)
{
    return Setting(hWnd, Value, &WndCoolMenu::SelectColor, AsLong);
}

bool clsCoolMenu::ComplexChecks(QWidget *hWnd, const std::optional<QVariant> &Value)
{
    return Setting(hWnd, Value, &WndCoolMenu::ComplexChecks, AsBoolean);
}

bool clsCoolMenu::ColorEmbossed(QWidget *hWnd, const std::optional<QVariant> &Value)
{
    return Setting(hWnd, Value, &WndCoolMenu::ColorEmbossed, AsBoolean);
}

bool clsCoolMenu::RightToLeft(QWidget *hWnd, const std::optional<QVariant> &Value)
{
    return Setting(hWnd, Value, &WndCoolMenu::RightToLeft, AsBoolean);
}

bool clsCoolMenu::FullSelect(QWidget *hWnd, const std::optional<QVariant> &Value)
{
    return Setting(hWnd, Value, &WndCoolMenu::FullSelect, AsBoolean);
}

void clsCoolMenu::MDIChildMenu(QWidget *hWnd)
{
    zolt::MDIChildMenu(hWnd);
}

} // namespace zolt
