#pragma once

#include "core/validators.h"
#include "ui/qt_text.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>

namespace qv {

// Returns the user to a refused value: the box gets the focus and the offending character is selected
// (the whole value when the fault is the value as a whole).
inline void select_refusal(QLineEdit* box, const Refusal& refusal)
{
    box->setFocus();
    if (refusal.position < 0) {
        box->selectAll();
        return;
    }
    const int from = utf16_offset(box->text(), refusal.position);
    box->setSelection(from, utf16_offset(box->text(), refusal.position + 1) - from);
}

inline void select_refusal(QPlainTextEdit* box, const Refusal& refusal)
{
    box->setFocus();
    QTextCursor cursor(box->document());
    if (refusal.position < 0) {
        cursor.select(QTextCursor::Document);
    } else {
        const QString text = box->toPlainText();
        cursor.setPosition(utf16_offset(text, refusal.position));
        cursor.setPosition(utf16_offset(text, refusal.position + 1), QTextCursor::KeepAnchor);
    }
    box->setTextCursor(cursor);
}

} // namespace qv
