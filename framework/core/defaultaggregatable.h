#pragma once

#include "velmoraframework_global.h"
#include "core/iaggregatable.h"

#include <QtCore/qobject.h>

namespace Velmora::Framework {

class ItemType;

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

private:
    ItemType *m_populated = nullptr;
};

} // namespace Velmora::Framework
