#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qpointer.h>
#include <QtCore/qstring.h>

namespace Velmora::Framework {

// One context-menu entry under construction: an action or a sub-menu with its sort key, or
// a separator when the object is null. Entries are shown in ascending order.
class VELMORA_FRAMEWORK_EXPORT OrderedItem
{
public:
    // Takes ownership of object (may be null). Captures the action's text or the menu's
    // title now, as the template in which "_name_" is later replaced.
    OrderedItem(int order, QObject *object, const QString &tag = QString(), int flags = 0);
    // Deletes the object, unless somebody deleted it already.
    virtual ~OrderedItem();

    int order() const { return m_order; }
    // Flags and tag belong to whoever made the entry; they are carried unchanged.
    int flags() const { return m_flags; }
    QString tag() const { return m_tag; }
    // Null for a separator, or once the object was deleted elsewhere.
    QObject *object() const { return m_object.data(); }
    // Empty for a separator or an object that is neither an action nor a menu.
    QString text() const { return m_text; }

    // Comparator for std::stable_sort: equal orders keep the order of contribution.
    static bool ascendingSort(const OrderedItem *a, const OrderedItem *b);

private:
    Q_DISABLE_COPY_MOVE(OrderedItem)

    int m_order;
    int m_flags;
    QString m_tag;
    // Guarded, since a Qt parent of the action may delete it before the entry goes.
    QPointer<QObject> m_object;
    QString m_text;
};

} // namespace Velmora::Framework
