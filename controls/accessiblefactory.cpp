// AccessibleFactory: counts who needs a factory.
// Not here: any interface.
#include "controls/accessiblefactory.h"

#include <QHash>

namespace {

using Factory = QAccessible::InterfaceFactory;

int &holders(Factory factory)
{
    static QHash<quintptr, int> counts;
    return counts[reinterpret_cast<quintptr>(factory)];
}

}  // namespace

// Installed by each: Qt takes a factory once, and forgets all of them with the application.
AccessibleFactory::AccessibleFactory(QAccessible::InterfaceFactory factory)
    : m_factory(factory)
{
    ++holders(m_factory);
    QAccessible::installFactory(m_factory);
}

AccessibleFactory::~AccessibleFactory()
{
    if (--holders(m_factory) == 0)
        QAccessible::removeFactory(m_factory);
}
