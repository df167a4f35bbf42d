#pragma once

#include "velmoraframework_global.h"
#include "core/identifiers.h"

#include <QtCore/qfactoryinterface.h>
#include <QtCore/qlist.h>
#include <QtCore/qobject.h>
#include <QtCore/qstring.h>

namespace Velmora::Framework {

class Provider;

// The entry object of a plug-in, as the plug-in loader's factory protocol sees it.
class VELMORA_FRAMEWORK_EXPORT IProviderFactory : public QFactoryInterface
{
public:
    // The keys create() answers to.
    QList<QString> keys() const override = 0;
    // The provider for key, owned by its plug-in; null for a key not in keys().
    virtual Provider *create(const QString &key) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IProviderFactory, VELMORA_IID_IPROVIDERFACTORY)
