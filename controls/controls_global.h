// What the controls need of the compiler and of the Qt version; no other library asks for it.
// Not here: any declaration of a class of ours.
#pragma once

#include <QtGlobal>

#if defined(PLAYWIDGET_BUILD)
#define CONTROLS_EXPORT Q_DECL_EXPORT
#else
#define CONTROLS_EXPORT Q_DECL_IMPORT
#endif

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QEnterEvent>
using EnterEvent = QEnterEvent;
#else
#include <QEvent>
using EnterEvent = QEvent;
#endif
