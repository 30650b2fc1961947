// The wording of the error lines. Hosts match these texts, so spelling mistakes stay.
// Not here: reading the list back as one text (playwidget.cpp).
#include "playwidget/errorlist.h"

void ErrorList::addError(const QString &text)
{
    append(text);
}

void ErrorList::addFunctionError(const QString &functionName)
{
    append(QStringLiteral("ERROR: %1 function failed.").arg(functionName));
}

void ErrorList::addFunctionErrorWithCode(const QString &functionName, int code)
{
    append(QStringLiteral("ERROR: %1 function failed. [Code: %2]").arg(functionName).arg(code));
}

void ErrorList::addFileNotExistsError(const QString &fileName)
{
    append(QStringLiteral("ERROR: The file '%1' does not exits, please reinstall program.")
               .arg(fileName));
}
