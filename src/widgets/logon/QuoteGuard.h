// SPDX-License-Identifier: MIT
#pragma once

// Names and descriptions go into the administration dialogs' statements
// between apostrophes, as they were typed. Text that would end its literal
// early is refused before any statement is sent.

#include <QString>

class QLineEdit;

namespace zolt {

// What the user is told when a box holds such text.
QString QuoteRefused();

// When the box's text would end its literal early:
// tells the user under title, focuses the box with its text selected and
// returns true. Otherwise returns false and does nothing.
bool RefuseQuote(QLineEdit *box, const QString &title);

// Raises the database failure with QuoteRefused when text would end its
// literal: for text that comes from the database rather than from a box.
void CheckQuotable(const QString &text);

} // namespace zolt
