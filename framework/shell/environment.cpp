#include "shell/environment.h"

#include "core/applicationhooks.h"

namespace Velmora::Framework {

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

// The lower layers know the current environment only through the core hook; this reads it back.
Environment *Environment::currentEnvironment()
{
    return qobject_cast<Environment *>(ApplicationHooks::environment());
}

QList<IAggregatable *> *Environment::aggregatables()
{
    return &d->aggregatables;
}

} // namespace Velmora::Framework
