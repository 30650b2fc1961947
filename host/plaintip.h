// plainTip(): a tool tip that shows its text as it is, whatever it looks like.
// Not here: tool tips of our own words, which need no care.
#pragma once

#include <QTextDocument>

/// Qt would take a file's name for markup where it has something like <b> in it.
inline QString plainTip(const QString &text)
{
    return Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}
