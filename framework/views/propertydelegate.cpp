#include "views/propertydelegate.h"

#include "views/propertyeditors.h"
#include "views/propertyvalues.h"

#include <QtWidgets/qitemeditorfactory.h>

namespace Velmora::Framework {

namespace {
// Qt's own factory answers every type this one has no creator for.
class PropertyEditorFactory : public QItemEditorFactory
{
public:
    PropertyEditorFactory()
    {
        registerEditor(QMetaType::QColor, new QStandardItemEditorCreator<Internal::ColorEditor>);
        registerEditor(QMetaType::QFont, new QStandardItemEditorCreator<Internal::FontEditor>);
        registerEditor(QMetaType::QPoint, new QStandardItemEditorCreator<Internal::PointEditor>);
        registerEditor(QMetaType::QSize, new QStandardItemEditorCreator<Internal::SizeEditor>);
        registerEditor(QMetaType::QRect, new QStandardItemEditorCreator<Internal::RectEditor>);
    }

    QWidget *createEditor(int userType, QWidget *parent) const override
    {
        // Every enumeration is its own type, so no table could list them.
        if (Internal::PropertyValues::metaEnum(QMetaType(userType)).isValid())
            return new Internal::EnumEditor(parent);
        return QItemEditorFactory::createEditor(userType, parent);
    }

    QByteArray valuePropertyName(int userType) const override
    {
        if (Internal::PropertyValues::metaEnum(QMetaType(userType)).isValid())
            return QByteArrayLiteral("value");
        return QItemEditorFactory::valuePropertyName(userType);
    }
};
} // namespace

class PropertyDelegatePrivate
{
public:
    PropertyEditorFactory factory;
};

PropertyDelegate::PropertyDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
    , d(new PropertyDelegatePrivate)
{
    setItemEditorFactory(&d->factory);
}

PropertyDelegate::~PropertyDelegate() = default;

QSize PropertyDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    // Editors with spin boxes and combo boxes need more than a line of text.
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(qMax(size.height(), 24));
    return size;
}

} // namespace Velmora::Framework
