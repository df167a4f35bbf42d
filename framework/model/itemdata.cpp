#include "model/itemdata.h"

#include <QtCore/qpointer.h>

namespace Velmora::Framework {

class ItemDataPrivate
{
public:
    explicit ItemDataPrivate(QObject *context)
        : creationContext(context)
    {
    }

    bool loaded = false;
    bool dirty = false;
    // Guarded: the context may well go before the payload does.
    QPointer<QObject> creationContext;
};

// Deliberately no Qt parent, even though a context is given: the node owns the payload and a
// parent would delete it a second time.
ItemData::ItemData(QObject *creationContext)
    : QObject(nullptr)
    , d(std::make_unique<ItemDataPrivate>(creationContext))
{
}

ItemData::~ItemData() = default;

bool ItemData::isLoaded() const
{
    return d->loaded;
}

void ItemData::setLoaded(bool loaded)
{
    d->loaded = loaded;
}

bool ItemData::isDirty() const
{
    return d->dirty;
}

void ItemData::setDirty(bool dirty)
{
    d->dirty = dirty;
}

QObject *ItemData::getCreationContext() const
{
    return d->creationContext.data();
}

void *ItemData::getInstanceData() const
{
    return nullptr;
}

void ItemData::reset()
{
    d->loaded = false;
    d->dirty = false;
}

void ItemData::constructPropertyDisplayNames(QList<QPair<QString, QString>> &)
{
}

void ItemData::constructPropertyTooltips(QList<QPair<QString, QString>> &)
{
}

ItemDataProject::ItemDataProject(QObject *creationContext)
    : ItemData(creationContext)
{
}

ItemDataProject::~ItemDataProject() = default;

ItemDataSolution::ItemDataSolution(QObject *creationContext)
    : ItemData(creationContext)
{
}

ItemDataSolution::~ItemDataSolution() = default;

} // namespace Velmora::Framework
