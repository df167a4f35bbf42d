#include "core/augmentableregistrar.h"

#include "core/ibase.h"
#include "core/logging_p.h"
#include "core/orderedif.h"

#include <QtCore/qmap.h>

#include <algorithm>

namespace Velmora::Framework {

class AugmentableRegistrarPrivate
{
public:
    QMap<QString, AugmentableRegistrar::IFaceList *> interfaces;
};

AugmentableRegistrar::IFaceList::~IFaceList()
{
    qDeleteAll(entries);
}

AugmentableRegistrar::AugmentableRegistrar()
    : d(std::make_unique<AugmentableRegistrarPrivate>())
{
}

AugmentableRegistrar::~AugmentableRegistrar()
{
    // The entries only point at interfaces, so freeing them here is always safe.
    deallocateAll();
}

bool AugmentableRegistrar::registerInterface(const QString &id, IBase *iface, int order)
{
    if (id.isEmpty() || !iface)
        return false;
    IBase *implemented = nullptr;
    if (!iface->queryInterface(id.toUtf8().constData(), &implemented)) {
        qCWarning(Internal::lcCore,
                  "ActionHandler::registerInterface() - Interface type mismatch!");
        return false;
    }
    IFaceList *&list = d->interfaces[id];
    if (!list)
        list = new IFaceList;
    // The list is sorted, so inserting after the last entry of lower or equal order is the
    // stable sort of the appended list.
    auto *entry = new OrderedIf(iface, order);
    const auto position = std::upper_bound(list->entries.begin(), list->entries.end(), entry,
                                           &OrderedIf::ascendingSort);
    list->entries.insert(position, entry);
    return true;
}

bool AugmentableRegistrar::unregisterInterface(const QString &id, IBase *iface)
{
    if (id.isEmpty() || !iface)
        return false;
    IFaceList *list = d->interfaces.value(id);
    if (!list)
        return false;
    const auto it = std::find_if(list->entries.begin(), list->entries.end(),
                                 [iface](const OrderedIf *entry) {
                                     return entry && entry->iface() == iface;
                                 });
    if (it == list->entries.end())
        return false;
    delete *it;
    list->entries.erase(it);
    return true;
}

QList<IBase *> AugmentableRegistrar::getIfList(const QString &id) const
{
    QList<IBase *> result;
    if (id.isEmpty())
        return result;
    const IFaceList *list = d->interfaces.value(id);
    if (!list)
        return result;
    result.reserve(list->entries.size());
    for (const OrderedIf *entry : list->entries) {
        if (entry && entry->iface())
            result.append(entry->iface());
    }
    return result;
}

void AugmentableRegistrar::deallocateAll()
{
    qDeleteAll(d->interfaces);
    d->interfaces.clear();
}

} // namespace Velmora::Framework
