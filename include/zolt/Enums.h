// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The enumerations and the record of the library's public classes.

#include <QtGlobal>

namespace zolt {

/// Button sets of MgBox and MessageBox, by the classic numbers.
enum Buttons : qint32 {
    vbOKOnly = 0,            ///< "Đồ&ng ý"
    vbOKCancel = 1,          ///< "Đồ&ng ý", "&Bỏ qua"
    vbAbortRetryIgnore = 2,  ///< "Bỏ &dở", "&Thử lại", "&Bác bỏ"
    vbYesNoCancel = 3,       ///< "&Có", "&Không", "&Bỏ qua"
    vbYesNo = 4,             ///< "&Có", "&Không"
    vbRetryCancel = 5        ///< "&Thử lại", "&Bỏ qua"
};

/// Icons of MgBox, by the classic numbers.
enum IconValue : qint32 {
    vbCritical = 16,     ///< an error
    vbQuestion = 32,     ///< a question
    vbExclamation = 48,  ///< a warning
    vbInformation = 64   ///< a notice
};

/// The button a message box was left by (MgBox with Buttons and IconValue);
/// None when it was closed otherwise. The numbers are the classic answer codes.
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

/// The predefined registry roots, by their classic handle numbers.
enum REGToolRootTypes : qint32 {
    HK_CLASSES_ROOT = qint32(0x80000000u),
    HK_CURRENT_USER = qint32(0x80000001u),
    HK_LOCAL_MACHINE = qint32(0x80000002u),
    HK_USERS = qint32(0x80000003u),
    HK_PERFORMANCE_DATA = qint32(0x80000004u),
    HK_CURRENT_CONFIG = qint32(0x80000005u),
    HK_DYN_DATA = qint32(0x80000006u)
};

/// A rectangle by its edges, in pixels.
struct RECT {
    qint32 Left = 0;    ///< the left edge
    qint32 Top = 0;     ///< the top edge
    qint32 Right = 0;   ///< the right edge, past the last column
    qint32 Bottom = 0;  ///< the bottom edge, past the last row
};

} // namespace zolt
