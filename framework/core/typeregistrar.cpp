#include "core/typeregistrar.h"

#include "core/augmentableregistrar.h"
#include "core/logging_p.h"
#include "types/itemtype.h"

#include <QtCore/qhash.h>
#include <QtCore/qpointer.h>
#include <QtWidgets/qwidget.h>

namespace Velmora::Framework {

class TypeRegistrarPrivate
{
public:
    QHash<QString, ItemType *> types;
    QHash<QString, QString> classNames;
    QHash<QString, QHash<QString, ItemType *> *> scopes;
    QHash<QString, QString> scopeOf;
    QPointer<QWidget> widgetParent;
    QPointer<AugmentableRegistrar> augmentRegistrar;
};

TypeRegistrar::TypeRegistrar(QWidget *widgetParent)
    : d(std::make_unique<TypeRegistrarPrivate>())
{
    d->widgetParent = widgetParent;
}

TypeRegistrar::~TypeRegistrar()
{
    qDeleteAll(d->scopes);
}

bool TypeRegistrar::registerType(ItemType *type, const QString &scope)
{
    if (!type)
        return false;
    const QString id = type->getId();
    if (id.isEmpty())
        return false;
    if (d->types.contains(id)) {
        qCWarning(Internal::lcCore, "%s",
                  qPrintable(QStringLiteral("Type , %1, already registered. Previous type is "
                                            "overwritten.").arg(id)));
    }
    d->types.insert(id, type);
    d->classNames.insert(QString::fromLatin1(type->metaObject()->className()), id);
    type->setRegistrar(this);
    if (!scope.isEmpty()) {
        QHash<QString, ItemType *> *&inner = d->scopes[scope];
        if (!inner)
            inner = new QHash<QString, ItemType *>;
        d->scopeOf.insert(id, scope);
        inner->insert(id, type);
    }
    connect(type, &ItemType::propertyWindowRequested, this,
            &TypeRegistrar::propertyWindowRequested, Qt::UniqueConnection);
    emit typeRegistered(id);
    return true;
}

ItemType *TypeRegistrar::unregisterType(const QString &id)
{
    const auto it = d->types.constFind(id);
    if (it == d->types.cend()) {
        qCWarning(Internal::lcCore, "%s",
                  qPrintable(QStringLiteral("Type %1 not registered.").arg(id)));
        return nullptr;
    }
    ItemType *type = it.value();
    const auto scope = d->scopeOf.constFind(id);
    if (scope != d->scopeOf.cend()) {
        if (QHash<QString, ItemType *> *inner = d->scopes.value(scope.value()))
            inner->remove(id);
        d->scopeOf.erase(scope);
    }
    d->types.erase(it);
    if (type) {
        d->classNames.remove(QString::fromLatin1(type->metaObject()->className()));
        type->setRegistrar(nullptr);
        disconnect(type, &ItemType::propertyWindowRequested, this,
                   &TypeRegistrar::propertyWindowRequested);
    }
    emit typeUnregistered(id);
    return type;
}

bool TypeRegistrar::isRegistered(const QString &id) const
{
    return d->types.contains(id);
}

ItemType *TypeRegistrar::lookup(const QString &id) const
{
    return d->types.value(id);
}

ItemType *TypeRegistrar::lookupByClassName(const QString &className) const
{
    const auto it = d->classNames.constFind(className);
    return it == d->classNames.cend() ? nullptr : lookup(it.value());
}

QString TypeRegistrar::lookupId(const QString &className) const
{
    return d->classNames.value(className);
}

QString TypeRegistrar::scope(const QString &id) const
{
    return d->scopeOf.value(id);
}

QList<ItemType *> TypeRegistrar::findAll(const QString &iid, const QString &scope) const
{
    QList<ItemType *> result;
    const QHash<QString, ItemType *> *candidates = &d->types;
    if (!scope.isEmpty()) {
        candidates = d->scopes.value(scope);
        if (!candidates)
            return result;
    }
    const QByteArray name = iid.toUtf8();
    for (ItemType *type : *candidates) {
        if (type && type->qt_metacast(name.constData()))
            result.append(type);
    }
    return result;
}

ViewItem *TypeRegistrar::createItem(const QString &id, const QString &name, QObject *parent) const
{
    ItemType *type = lookup(id);
    return type ? type->createItemInstance(name, parent) : nullptr;
}

void TypeRegistrar::deallocateAll()
{
    const QStringList ids = d->types.keys();
    qCDebug(Internal::lcCore, "Deallocating...");
    for (const QString &id : ids) {
        if (ItemType *type = unregisterType(id)) {
            qCDebug(Internal::lcCore, "%s", qPrintable(id));
            delete type;
        }
    }
    qDeleteAll(d->scopes);
    d->scopes.clear();
}

void TypeRegistrar::associate(AugmentableRegistrar *registrar)
{
    d->augmentRegistrar = registrar;
}

AugmentableRegistrar *TypeRegistrar::augmentRegistrar() const
{
    return d->augmentRegistrar.data();
}

QWidget *TypeRegistrar::widgetParent() const
{
    return d->widgetParent.data();
}

} // namespace Velmora::Framework
