// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace zolt {

// Button sets of MgBox.
enum Buttons : qint32 {
    vbOKOnly = 0,
    vbOKCancel = 1,
    vbAbortRetryIgnore = 2,
    vbYesNoCancel = 3,
    vbYesNo = 4,
    vbRetryCancel = 5
};

// Icons of MgBox.
enum IconValue : qint32 {
    vbCritical = 16,
    vbQuestion = 32,
    vbExclamation = 48,
    vbInformation = 64
};

// The button a message box was left by (MgBox with Buttons and IconValue);
// None when it was closed otherwise. The numbers are the classic answer codes.
enum class Answer : qint32 {
    None = 0,
    OK = 1,
    Cancel = 2,
    Abort = 3,
    Retry = 4,
    Ignore = 5,
    Yes = 6,
    No = 7
};

// The predefined registry roots, by their classic handle numbers.
enum REGToolRootTypes : qint32 {
    HK_CLASSES_ROOT = qint32(0x80000000u),
    HK_CURRENT_USER = qint32(0x80000001u),
    HK_LOCAL_MACHINE = qint32(0x80000002u),
    HK_USERS = qint32(0x80000003u),
    HK_PERFORMANCE_DATA = qint32(0x80000004u),
    HK_CURRENT_CONFIG = qint32(0x80000005u),
    HK_DYN_DATA = qint32(0x80000006u)
};

struct RECT {
    qint32 Left = 0;
    qint32 Top = 0;
    qint32 Right = 0;
    qint32 Bottom = 0;
};

} // namespace zolt
