#include "core/defaultaggregatable.h"

#include "types/itemtype.h"

namespace Velmora::Framework {

DefaultAggregatable::DefaultAggregatable(QObject *parent)
    : QObject(parent)
{
}

DefaultAggregatable::~DefaultAggregatable() = default;

bool DefaultAggregatable::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

QIcon DefaultAggregatable::getIcon(ViewItem *, int)
{
    return QIcon();
}

bool DefaultAggregatable::contextMenu(ViewItem *, const QList<ViewItem *> &, QList<OrderedItem *> &)
{
    return false;
}

bool DefaultAggregatable::setPopulated(ItemType *type)
{
    m_populated = type;
    return type != nullptr;
}

ViewItem *DefaultAggregatable::contextItem() const
{
    return m_populated ? m_populated->contextItem() : nullptr;
}

bool DefaultAggregatable::isType(ItemType *type, const QString &id) const
{
    return type && type->qt_metacast(id.toUtf8().constData());
}

} // namespace Velmora::Framework
