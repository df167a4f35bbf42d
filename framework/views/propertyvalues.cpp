#include "views/propertyvalues.h"

#include <QtCore/qdatetime.h>
#include <QtCore/qlocale.h>
#include <QtCore/qrect.h>
#include <QtGui/qcolor.h>
#include <QtGui/qcursor.h>
#include <QtGui/qfont.h>
#include <QtGui/qpainter.h>
#include <QtGui/qpixmap.h>
#include <QtWidgets/qsizepolicy.h>

namespace Velmora::Framework::Internal {

namespace {
template<typename E>
QString keyOf(E value)
{
    return QString::fromLatin1(QMetaEnum::fromType<E>().valueToKey(int(value)));
}

QStringList sortedKeys(const QVariant &value)
{
    // QVariantHash keeps no order; sorting gives the rows a stable one.
    QStringList keys = value.toHash().keys();
    keys.sort();
    return keys;
}
} // namespace

QMetaEnum PropertyValues::metaEnum(QMetaType type)
{
    if (!(type.flags() & QMetaType::IsEnumeration) || !type.metaObject())
        return QMetaEnum();
    // "Qt::CursorShape" names the enumerator, "QFlags<Qt::AlignmentFlag>" the enum behind
    // the flags.
    QString name = QString::fromLatin1(type.name());
    if (name.startsWith(QLatin1String("QFlags<")))
        name = name.mid(7).chopped(1);
    name = name.section(QStringLiteral("::"), -1);
    const QMetaObject *owner = type.metaObject();
    for (int at = 0; at < owner->enumeratorCount(); ++at) {
        const QMetaEnum meta = owner->enumerator(at);
        if (QLatin1String(meta.name()) == name || QLatin1String(meta.enumName()) == name)
            return meta;
    }
    return QMetaEnum();
}

QList<int> PropertyValues::flagBits(const QMetaEnum &meta)
{
    QList<int> bits;
    for (int at = 0; at < meta.keyCount(); ++at) {
        const int bit = meta.value(at);
        if (bit != 0 && (bit & (bit - 1)) == 0 && !bits.contains(bit))
            bits.append(bit);
    }
    return bits;
}

PropertyValues::Kind PropertyValues::kind(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return List;
    case QMetaType::QVariantMap:
        return Map;
    case QMetaType::QVariantHash:
        return Hash;
    case QMetaType::QSizePolicy:
        return SizePolicy;
    default:
        break;
    }
    const QMetaEnum meta = metaEnum(value.metaType());
    return meta.isValid() && meta.isFlag() ? Flags : Leaf;
}

QStringList PropertyValues::componentLabels(const QVariant &value)
{
    QStringList labels;
    switch (kind(value)) {
    case List:
        for (int at = 0; at < value.toList().size(); ++at)
            labels.append(QStringLiteral("[%1]").arg(at));
        break;
    case Map:
        labels = value.toMap().keys();
        break;
    case Hash:
        labels = sortedKeys(value);
        break;
    case SizePolicy:
        labels = {tr("Horizontal Policy"), tr("Vertical Policy"), tr("Horizontal Stretch"),
                  tr("Vertical Stretch")};
        break;
    case Flags: {
        const QMetaEnum meta = metaEnum(value.metaType());
        for (int bit : flagBits(meta))
            labels.append(QString::fromLatin1(meta.valueToKey(bit)));
        break;
    }
    case Leaf:
        break;
    }
    return labels;
}

QVariant PropertyValues::component(const QVariant &value, int position)
{
    switch (kind(value)) {
    case List:
        return value.toList().value(position);
    case Map:
        return value.toMap().value(value.toMap().keys().value(position));
    case Hash:
        return value.toHash().value(sortedKeys(value).value(position));
    case SizePolicy: {
        const QSizePolicy policy = value.value<QSizePolicy>();
        switch (position) {
        case 0: return QVariant::fromValue(policy.horizontalPolicy());
        case 1: return QVariant::fromValue(policy.verticalPolicy());
        case 2: return policy.horizontalStretch();
        default: return policy.verticalStretch();
        }
    }
    case Flags: {
        const int bit = flagBits(metaEnum(value.metaType())).value(position);
        return bit != 0 && (value.toInt() & bit) == bit;
    }
    case Leaf:
        break;
    }
    return QVariant();
}

QVariant PropertyValues::withComponent(const QVariant &value, int position, const QVariant &part)
{
    switch (kind(value)) {
    case List: {
        QVariantList list = value.toList();
        if (position < 0 || position >= list.size())
            return value;
        list[position] = part;
        return value.userType() == QMetaType::QStringList ? QVariant(QVariant(list).toStringList())
                                                           : QVariant(list);
    }
    case Map: {
        QVariantMap map = value.toMap();
        map.insert(map.keys().value(position), part);
        return map;
    }
    case Hash: {
        QVariantHash hash = value.toHash();
        hash.insert(sortedKeys(value).value(position), part);
        return hash;
    }
    case SizePolicy: {
        QSizePolicy policy = value.value<QSizePolicy>();
        switch (position) {
        case 0: policy.setHorizontalPolicy(QSizePolicy::Policy(part.toInt())); break;
        case 1: policy.setVerticalPolicy(QSizePolicy::Policy(part.toInt())); break;
        case 2: policy.setHorizontalStretch(part.toInt()); break;
        default: policy.setVerticalStretch(part.toInt()); break;
        }
        return QVariant::fromValue(policy);
    }
    case Flags: {
        const int bit = flagBits(metaEnum(value.metaType())).value(position);
        int raw = part.toBool() ? (value.toInt() | bit) : (value.toInt() & ~bit);
        return QVariant(value.metaType(), &raw);
    }
    case Leaf:
        break;
    }
    return value;
}

QString PropertyValues::displayText(const QVariant &value)
{
    const QLocale locale;
    switch (value.userType()) {
    case QMetaType::UnknownType:
        return QString();
    case QMetaType::Bool:
        return value.toBool() ? tr("True") : tr("False");
    case QMetaType::QColor: {
        const QColor color = value.value<QColor>();
        return color.name(color.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb);
    }
    case QMetaType::QFont: {
        const QFont font = value.value<QFont>();
        return font.pointSize() > 0 ? tr("%1, %2 pt").arg(font.family()).arg(font.pointSize())
                                    : tr("%1, %2 px").arg(font.family()).arg(font.pixelSize());
    }
    case QMetaType::QPoint: {
        const QPoint point = value.toPoint();
        return QStringLiteral("(%1, %2)").arg(point.x()).arg(point.y());
    }
    case QMetaType::QSize: {
        const QSize size = value.toSize();
        return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
    }
    case QMetaType::QRect: {
        const QRect rect = value.toRect();
        return QStringLiteral("[(%1, %2), %3 x %4]")
            .arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
    }
    case QMetaType::QSizePolicy: {
        const QSizePolicy policy = value.value<QSizePolicy>();
        return QStringLiteral("[%1, %2, %3, %4]")
            .arg(keyOf(policy.horizontalPolicy()), keyOf(policy.verticalPolicy()))
            .arg(policy.horizontalStretch()).arg(policy.verticalStretch());
    }
    case QMetaType::QCursor:
        return keyOf(value.value<QCursor>().shape());
    case QMetaType::QDate:
        return locale.toString(value.toDate(), QLocale::ShortFormat);
    case QMetaType::QTime:
        return locale.toString(value.toTime(), QLocale::ShortFormat);
    case QMetaType::QDateTime:
        return locale.toString(value.toDateTime(), QLocale::ShortFormat);
    default:
        break;
    }
    switch (kind(value)) {
    case List: {
        const qsizetype count = value.toList().size();
        return count == 1 ? tr("[1 item]") : tr("[%1 items]").arg(count);
    }
    case Map:
    case Hash: {
        const qsizetype count = componentLabels(value).size();
        return count == 1 ? tr("{1 entry}") : tr("{%1 entries}").arg(count);
    }
    case Flags: {
        // The names of the rows below, not Qt's choice among aliases (AlignLeading).
        QStringList set;
        const QStringList labels = componentLabels(value);
        for (int at = 0; at < labels.size(); ++at) {
            if (component(value, at).toBool())
                set.append(labels.at(at));
        }
        return set.isEmpty() ? QStringLiteral("0") : set.join(QLatin1Char('|'));
    }
    default:
        break;
    }
    const QMetaEnum meta = metaEnum(value.metaType());
    if (meta.isValid())
        return QString::fromLatin1(meta.valueToKey(value.toInt()));
    return value.toString();
}

QIcon PropertyValues::swatch(const QColor &color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    // A checkerboard behind shows how transparent the colour is.
    painter.fillRect(1, 1, 14, 14, Qt::white);
    painter.fillRect(1, 1, 7, 7, Qt::lightGray);
    painter.fillRect(8, 8, 7, 7, Qt::lightGray);
    painter.fillRect(1, 1, 14, 14, color);
    painter.setPen(QColor(0, 0, 0, 110));
    painter.drawRect(0, 0, 15, 15);
    return QIcon(pixmap);
}

} // namespace Velmora::Framework::Internal
