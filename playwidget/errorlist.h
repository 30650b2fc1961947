// ErrorList: what went wrong in the engine, one line of text for each failure, oldest first.
// Not here: when a failure is recorded; that is decided where the engine is called.
#pragma once

#include <QStringList>

class ErrorList : public QStringList
{
public:
    /// Appends `text` as it is.
    void addError(const QString &text);

    /// Appends that the engine's function failed.
    void addFunctionError(const QString &functionName);

    /// Appends that the engine's function failed with `code`, written as a signed decimal number.
    void addFunctionErrorWithCode(const QString &functionName, int code);

    /// Appends that a file of the installation is missing.
    void addFileNotExistsError(const QString &fileName);
};
