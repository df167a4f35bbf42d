#include "fixturejournal.h"

#include <utility>

namespace {
QStringList &entries()
{
    static QStringList list;
    return list;
}
} // namespace

void FixtureJournal::record(const QString &entry)
{
    entries().append(entry);
}

QStringList FixtureJournal::take()
{
    return std::exchange(entries(), QStringList());
}
