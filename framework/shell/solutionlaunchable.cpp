#include "shell/solutionlaunchable.h"

#include "model/viewitem.h"
#include "shell/environment.h"
#include "types/itemtypesolution.h"

namespace Velmora::Framework {

SolutionLaunchable::SolutionLaunchable(QObject *parent)
    : QObject(parent)
{
}

bool SolutionLaunchable::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

QList<QString> SolutionLaunchable::getExtensions()
{
    return {QStringLiteral("sln-qel")};
}

QList<QString> SolutionLaunchable::getOptionNames()
{
    return {};
}

bool SolutionLaunchable::launch(const QList<QString> &arguments)
{
    if (arguments.isEmpty())
        return false;
    Environment *environment = Environment::currentEnvironment();
    ViewItem *solution = environment ? environment->solutionItem() : nullptr;
    auto *type = solution ? qobject_cast<ItemTypeSolution *>(solution->getType()) : nullptr;
    if (!type)
        return false;
    type->open(solution, arguments.first());
    return true;
}

} // namespace Velmora::Framework
