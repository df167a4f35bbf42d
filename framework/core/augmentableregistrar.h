#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtCore/qobject.h>

#include <memory>

namespace Velmora::Framework {

class IBase;
class OrderedIf;
class AugmentableRegistrarPrivate;

// Any number of interfaces per identifier, each with a priority, handed out in ascending
// order (equal orders in registration order). Interfaces are borrowed, never deleted.
class VELMORA_FRAMEWORK_EXPORT AugmentableRegistrar : public QObject
{
    Q_OBJECT

public:
    // The entries registered under one identifier, kept sorted. Owns its OrderedIf entries.
    class VELMORA_FRAMEWORK_EXPORT IFaceList
    {
    public:
        IFaceList() = default;
        IFaceList(const IFaceList &) = delete;
        IFaceList &operator=(const IFaceList &) = delete;
        virtual ~IFaceList();

        QList<OrderedIf *> entries;
    };

    AugmentableRegistrar();
    ~AugmentableRegistrar() override;

    // False for an empty id, a null iface, or an iface whose query does not answer id.
    // The same interface may be registered twice; it then occurs twice.
    bool registerInterface(const QString &id, IBase *iface, int order);
    // Removes the first entry for iface; an emptied list stays.
    bool unregisterInterface(const QString &id, IBase *iface);
    QList<IBase *> getIfList(const QString &id) const;
    // Drops every list and entry; the interfaces themselves stay alive.
    void deallocateAll();

private:
    std::unique_ptr<AugmentableRegistrarPrivate> const d;
};

} // namespace Velmora::Framework
