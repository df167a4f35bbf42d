#include "core/defaultaggregatable.h"

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

} // namespace Velmora::Framework
