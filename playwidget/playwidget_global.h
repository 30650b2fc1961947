// PLAYWIDGET_EXPORT: marks what the library offers to its hosts.
// Not here: anything else.
#pragma once

#include <QtGlobal>

#if defined(PLAYWIDGET_BUILD)
#define PLAYWIDGET_EXPORT Q_DECL_EXPORT
#else
#define PLAYWIDGET_EXPORT Q_DECL_IMPORT
#endif
