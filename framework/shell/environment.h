#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtCore/qobject.h>

#include <memory>

namespace Velmora::Framework {

class EnvironmentPrivate;
class IAggregatable;

// The single object that owns the running workbench. So far it holds the aggregatables that
// contribute to every node's icon and context menu; the windows, registries and start-up
// arrive with the application shell. The environment becomes current by installing itself
// in ApplicationHooks (core), through which the item tree reads its aggregatables; until
// one does, currentEnvironment() answers null and the item tree works without one.
class VELMORA_FRAMEWORK_EXPORT Environment : public QObject
{
    Q_OBJECT

public:
    Environment();
    ~Environment() override;

    // The environment between start and stop; null otherwise.
    static Environment *currentEnvironment();

    // Borrowed aggregatables, in the order in which they contribute.
    QList<IAggregatable *> *aggregatables();

private:
    std::unique_ptr<EnvironmentPrivate> const d;
};

} // namespace Velmora::Framework
