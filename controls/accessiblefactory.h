// AccessibleFactory: keeps a factory of accessible interfaces installed for as long as it is needed.
// Not here: any interface.
#pragma once

#include <QAccessible>

/// The factory is asked while any object of this class holds it. It goes with the last of them, so
/// that a library which is unloaded leaves none behind. GUI thread only.
class AccessibleFactory
{
public:
    explicit AccessibleFactory(QAccessible::InterfaceFactory factory);
    ~AccessibleFactory();
    Q_DISABLE_COPY(AccessibleFactory)

private:
    QAccessible::InterfaceFactory m_factory;
};
