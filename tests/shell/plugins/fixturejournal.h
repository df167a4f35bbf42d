#pragma once

#include <QtCore/qglobal.h>
#include <QtCore/qstringlist.h>

#if defined(FIXTUREJOURNAL_LIBRARY)
#  define FIXTUREJOURNAL_EXPORT Q_DECL_EXPORT
#else
#  define FIXTUREJOURNAL_EXPORT Q_DECL_IMPORT
#endif

// Shared by the fixture plug-ins and the test that loads them: one list of calls, in order.
namespace FixtureJournal {
FIXTUREJOURNAL_EXPORT void record(const QString &entry);
// The entries since the last take(), oldest first.
FIXTUREJOURNAL_EXPORT QStringList take();
} // namespace FixtureJournal
