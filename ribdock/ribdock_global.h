#pragma once

#include <QtCore/qglobal.h>

#if defined(RIBDOCK_LIBRARY)
#  define RIBDOCK_EXPORT Q_DECL_EXPORT
#elif defined(RIBDOCK_STATIC)
#  define RIBDOCK_EXPORT
#else
#  define RIBDOCK_EXPORT Q_DECL_IMPORT
#endif
