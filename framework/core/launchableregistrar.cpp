#include "core/launchableregistrar.h"

#include "core/ilaunchable.h"

#include <QtCore/qmap.h>

namespace Velmora::Framework {

namespace {

using Table = QMap<QString, ILaunchable *>;

// The first launchable to claim a key keeps it.
void claim(Table &table, const QList<QString> &keys, ILaunchable *launchable)
{
    for (const QString &key : keys) {
        const QString lower = key.toLower();
        if (!table.contains(lower))
            table.insert(lower, launchable);
    }
}

bool forget(Table &table, ILaunchable *launchable)
{
    return table.removeIf([launchable](Table::iterator it) { return it.value() == launchable; })
        > 0;
}

} // namespace

class LaunchableRegistrarPrivate
{
public:
    Table byExtension;
    Table byOption;
};

LaunchableRegistrar::LaunchableRegistrar(QObject *parent)
    : QObject(parent), d(std::make_unique<LaunchableRegistrarPrivate>())
{
}

LaunchableRegistrar::~LaunchableRegistrar() = default;

bool LaunchableRegistrar::registerLaunchable(ILaunchable *launchable)
{
    if (!launchable)
        return false;
    if (!getLaunchables().contains(launchable)) {
        claim(d->byExtension, launchable->getExtensions(), launchable);
        claim(d->byOption, launchable->getOptionNames(), launchable);
    }
    return true;
}

bool LaunchableRegistrar::unregisterLaunchable(ILaunchable *launchable)
{
    const bool byExtension = forget(d->byExtension, launchable);
    const bool byOption = forget(d->byOption, launchable);
    return byExtension || byOption;
}

QList<ILaunchable *> LaunchableRegistrar::getLaunchables() const
{
    QList<ILaunchable *> launchables;
    for (const Table *table : {&d->byExtension, &d->byOption}) {
        for (ILaunchable *launchable : *table) {
            if (!launchables.contains(launchable))
                launchables.append(launchable);
        }
    }
    return launchables;
}

void LaunchableRegistrar::unregisterAll()
{
    d->byExtension.clear();
    d->byOption.clear();
}

bool LaunchableRegistrar::launch(const QList<QString> &arguments)
{
    // Ordered by launchable, so the dispatch below always picks the same one.
    QMap<ILaunchable *, QList<QString>> claimed;
    for (const QString &argument : arguments) {
        ILaunchable *launchable = nullptr;
        if (argument.startsWith(QLatin1Char('-'))) {
            // Matched as written: option names were registered in lower case.
            const qsizetype equals = argument.indexOf(QLatin1Char('='));
            const QString name = argument.mid(1, equals < 0 ? -1 : equals - 1);
            launchable = d->byOption.value(name);
        } else {
            const qsizetype dot = argument.lastIndexOf(QLatin1Char('.'));
            if (dot < 0 || dot == argument.size() - 1)
                continue;
            launchable = d->byExtension.value(argument.mid(dot + 1).toLower());
        }
        if (launchable)
            claimed[launchable].append(argument);
    }
    if (claimed.isEmpty())
        return false;
    // One launchable per call, even when the arguments named files for several.
    return claimed.firstKey()->launch(claimed.first());
}

} // namespace Velmora::Framework
