#include "shell/environment.h"

#include <QtCore/qpointer.h>

namespace Velmora::Framework {

namespace {
QPointer<Environment> s_current;
} // namespace

class EnvironmentPrivate
{
public:
    QList<IAggregatable *> aggregatables;
};

Environment::Environment()
    : d(std::make_unique<EnvironmentPrivate>())
{
}

Environment::~Environment() = default;

Environment *Environment::currentEnvironment()
{
    return s_current.data();
}

QList<IAggregatable *> *Environment::aggregatables()
{
    return &d->aggregatables;
}

} // namespace Velmora::Framework
