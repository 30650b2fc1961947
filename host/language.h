// The language of the program's texts.
// Not here: the texts (translations/).
#pragma once

#include <QStringList>

/// Codes of the languages that there are texts in; English always is.
QStringList languages();

/// Installs the texts of a language, such as "de" or "de_AT", into the application; empty means the
/// system's, or English where there are none. False when there are no texts in the one asked for.
bool installLanguage(const QString &code);
