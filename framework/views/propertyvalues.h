#pragma once

#include <QtCore/qcoreapplication.h>
#include <QtCore/qmetaobject.h>
#include <QtCore/qstringlist.h>
#include <QtCore/qvariant.h>
#include <QtGui/qicon.h>

// How the property window reads property values: their text, whether they open into
// sub-properties, and how a sub-property is read from and written into its parent's value.
namespace Velmora::Framework::Internal {

class PropertyValues
{
    Q_DECLARE_TR_FUNCTIONS(PropertyValues)

public:
    // Values that open into sub-properties; Leaf for the rest.
    enum Kind { Leaf, List, Map, Hash, SizePolicy, Flags };

    static Kind kind(const QVariant &value);
    // The sub-properties' labels, in order; the position in this list names each.
    static QStringList componentLabels(const QVariant &value);
    static QVariant component(const QVariant &value, int position);
    // value with the sub-property at position replaced; the type of value is kept.
    static QVariant withComponent(const QVariant &value, int position, const QVariant &part);

    static QString displayText(const QVariant &value);
    static QIcon swatch(const QColor &color);
    // The enumeration of an enum or flags type that Qt's meta-object system knows; an
    // invalid one otherwise.
    static QMetaEnum metaEnum(QMetaType type);
    // The single bits of a flags type, in declaration order.
    static QList<int> flagBits(const QMetaEnum &meta);
};

} // namespace Velmora::Framework::Internal
