#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qobject.h>

namespace Velmora::Framework {

class Provider;

// Told when providers unload, so that it can withdraw what they contributed.
class VELMORA_FRAMEWORK_EXPORT UnloadListener : public QObject
{
    Q_OBJECT

public:
    explicit UnloadListener(QObject *parent = nullptr);

    // A null provider means every provider is going. Does nothing by default.
    virtual void onUnload(Provider *provider);
};

} // namespace Velmora::Framework
