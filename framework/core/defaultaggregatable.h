#pragma once

#include "velmoraframework_global.h"
#include "core/iaggregatable.h"

#include <QtCore/qobject.h>

namespace Velmora::Framework {

class ItemType;
class ViewItem;

// Base for aggregatables that plug-ins attach to an item type: no icon, no menu entries.
class VELMORA_FRAMEWORK_EXPORT DefaultAggregatable
    : public QObject, public IAggregatable, public virtual IBase
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IAggregatable Velmora::Framework::IBase)

public:
    explicit DefaultAggregatable(QObject *parent = nullptr);
    ~DefaultAggregatable() override;

    bool queryInterface(const char *iid, IBase **out) override;

    QIcon getIcon(ViewItem *item, int state) override;
    bool contextMenu(ViewItem *item, const QList<ViewItem *> &selection,
                     QList<OrderedItem *> &out) override;

protected:
    // Remembers the type this aggregatable is attached to (borrowed); true when non-null.
    bool setPopulated(ItemType *type);
    ItemType *populated() const { return m_populated; }
    // The stored type's context item; null without a type.
    ViewItem *contextItem() const;
    // Whether type implements the interface with identifier id, or is of that class.
    bool isType(ItemType *type, const QString &id) const;

private:
    ItemType *m_populated = nullptr;
};

} // namespace Velmora::Framework
