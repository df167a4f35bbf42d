#include "model/ordereditem.h"

#include <QtGui/qaction.h>
#include <QtWidgets/qmenu.h>

namespace Velmora::Framework {

namespace {

QString captureText(QObject *object)
{
    if (const auto *action = qobject_cast<QAction *>(object))
        return action->text();
    if (const auto *menu = qobject_cast<QMenu *>(object))
        return menu->title();
    return QString();
}

} // namespace

OrderedItem::OrderedItem(int order, QObject *object, const QString &tag, int flags)
    : m_order(order)
    , m_flags(flags)
    , m_tag(tag)
    , m_object(object)
    , m_text(captureText(object))
{
}

OrderedItem::~OrderedItem()
{
    delete m_object.data();
}

bool OrderedItem::ascendingSort(const OrderedItem *a, const OrderedItem *b)
{
    return a->order() < b->order();
}

} // namespace Velmora::Framework
