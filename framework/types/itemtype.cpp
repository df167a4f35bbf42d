#include "types/itemtype.h"
#include "types/itemtype_p.h"
#include "types/viewaction.h"

#include "core/logging_p.h"
#include "core/typeregistrar.h"
#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "model/ordereditem.h"
#include "model/viewitem.h"
#include "types/itempropertysheet.h"

#include <QtCore/qcoreapplication.h>
#include <QtCore/qmetaobject.h>
#include <QtGui/qaction.h>
#include <QtGui/qevent.h>

#include <algorithm>

namespace Velmora::Framework {

namespace {

// The types a child-type entry stands for when it includes derived types: those that
// implement the interface named by the id, and those derived from the class of the type
// registered under it.
QList<ItemType *> derivedTypes(const TypeRegistrar *registrar, const QString &typeId,
                               const QString &scope)
{
    QList<ItemType *> found = registrar->findAll(typeId, scope);
    if (const ItemType *registered = registrar->lookup(typeId)) {
        const QString className = QString::fromLatin1(registered->metaObject()->className());
        for (ItemType *type : registrar->findAll(className, scope)) {
            if (!found.contains(type))
                found.append(type);
        }
    }
    return found;
}

} // namespace

ItemType::ChildType::ChildType(const QString &typeId, bool includeDerived)
    : typeId(typeId)
    , includeDerived(includeDerived)
{
}

ItemType::ChildType::~ChildType() = default;

ItemType::ExcludedType::ExcludedType(const QString &typeId, bool includeDerived)
    : typeId(typeId)
    , includeDerived(includeDerived)
{
}

ItemType::ExcludedType::~ExcludedType() = default;

ItemType::ItemType(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<ItemTypePrivate>(this))
{
    GenericActionHandler *handler = &d->genericHandler;
    connect(handler->mapper(), &QSignalMapper::mappedString, this,
            [this](const QString &command) { dispatch(command); });
    connect(&d->editorMapper, &QSignalMapper::mappedString, this,
            qOverload<const QString &>(&ItemType::edit));

    const QString noIcon = QStringLiteral(":/qelshared/images/16/noicon.svg");
    const QString menus = QStringLiteral("defaultMenus");
    // The commands enable themselves for the selection (see ViewAction).
    auto addCommand = [&](int order, QAction *action, const QString &icon,
                          const QString &toolTip, const QString &statusTip, const char *command,
                          uint flag) {
        describeAction(action, icon, toolTip, statusTip);
        handler->hookupHandler(action, QString::fromLatin1(command));
        addMenuItem(action, order, menus, flag);
    };

    addMenuSeperator(16);
    addCommand(17, new AddAction(tr("Add Ne&w Item..."), this), noIcon, tr("Add New"),
               tr("Add a new item to this item"), "cmdAddNew", AddNewMenu);
    addCommand(18, new AddAction(tr("Add Existin&g Item..."), this), noIcon, tr("Add Existing"),
               tr("Add an existing item to this item"), "cmdAddExisting", AddExistingMenu);
    addMenuSeperator(32);

    d->editAction = describeAction(new QAction(tr("&Edit"), this), QString(), tr("Edit"),
                                   tr("Edit this item"));
    connect(d->editAction.data(), &QAction::triggered, &d->editorMapper,
            qOverload<>(&QSignalMapper::map));
    d->editorMapper.setMapping(d->editAction.data(), QString());
    addMenuItem(d->editAction.data(), 33, menus, EditMenu);

    d->editWithMenu = new QMenu(tr("&Edit with..."));
    d->editWithMenu->menuAction()->setToolTip(tr("Edit with"));
    d->editWithMenu->menuAction()->setStatusTip(
        tr("Edit this item with one of the available editor"));
    addMenuItem(d->editWithMenu.data(), 34, menus, EditWithMenu);

    addMenuSeperator(65520);
    addCommand(65521, new QAction(tr("Cu&t"), this),
               QStringLiteral(":/qelshared/images/16/cut.svg"), tr("Cut"),
               tr("Cut the item to the clipboard"), "cmdCut", CutMenu);
    addCommand(65522, new QAction(tr("Cop&y"), this),
               QStringLiteral(":/qelshared/images/16/copy.svg"), tr("Copy"),
               tr("Copy the item to the clipboard"), "cmdCopy", CopyMenu);
    addCommand(65523, new PasteAction(tr("&Paste"), this),
               QStringLiteral(":/qelshared/images/16/paste.svg"), tr("Paste"),
               tr("Paste from the clipboard to the item"), "cmdPaste", PasteMenu);
    addCommand(65524, new RemoveAction(tr("Remo&ve"), this),
               QStringLiteral(":/qelshared/images/16/remove.svg"), tr("Remove"),
               tr("Remove the item"), "cmdRemove", RemoveMenu);
    addCommand(65525, new RenameAction(tr("Rena&me"), this),
               QStringLiteral(":/qelshared/images/16/rename.svg"), tr("Rename"),
               tr("Rename the item"), "cmdRename", RenameMenu);

    d->propertiesAction = describeAction(new QAction(tr("P&roperties"), this), QString(),
                                         tr("Properties"), tr("Show the property window"));
    handler->hookupHandler(d->propertiesAction, QStringLiteral("cmdProperties"));
}

ItemType::~ItemType()
{
    resetChildTypes();
    resetExcludeChildTypes();
    delete d->propertySheet;
    d->propertySheet = nullptr;
    cleanAllPropertyBags();
    {
        QMutexLocker locker(&d->menuLock);
        // The entries own their actions and the edit-with menu.
        qDeleteAll(d->menuItems);
        d->menuItems.clear();
        delete d->editWithMenu.data();
    }
    d->editorFactories.clear();
    qDeleteAll(d->editorActions);
    d->editorActions.clear();
    d->previewerFactories.clear();
    qDeleteAll(d->previewerActions);
    d->previewerActions.clear();
}

bool ItemType::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

QString ItemType::getDefaultName() const
{
    return QString();
}

QString ItemType::composeItemDispName(ViewItemBase *item) const
{
    return item ? item->getItemName() : QString();
}

bool ItemType::canParent() const
{
    // Every row count asks; the answer follows the table without taking its lock.
    return d->hasChildTypes.load(std::memory_order_acquire);
}

bool ItemType::allowedAsChild(ViewItem *parent, const QString &typeId) const
{
    const TypeRegistrar *registrar = d->registrar.data();
    ItemType *type = registrar ? registrar->lookup(typeId) : nullptr;
    return type && childTypes(parent).contains(type);
}

bool ItemType::testAttribute(ItemTypeAttributes attributes) const
{
    return d->attributes & attributes;
}

void ItemType::addChildType(const QString &typeId, bool includeDerived)
{
    QMutexLocker locker(&d->typeLock);
    if (typeId.isEmpty() || d->childTypes.contains(typeId))
        return;
    d->childTypes.insert(typeId, new ChildType(typeId, includeDerived));
    d->childTypesChanged();
}

void ItemType::removeChildType(const QString &typeId)
{
    QMutexLocker locker(&d->typeLock);
    delete d->childTypes.take(typeId);
    d->childTypesChanged();
}

void ItemType::resetChildTypes()
{
    QMutexLocker locker(&d->typeLock);
    qDeleteAll(d->childTypes);
    d->childTypes.clear();
    d->childTypesChanged();
}

void ItemType::addExcludeChildType(const QString &typeId, bool includeDerived)
{
    QMutexLocker locker(&d->typeLock);
    d->childTypesCache.reset();
    if (typeId.isEmpty())
        return;
    if (ExcludedType *excluded = d->excludedTypes.value(typeId))
        excluded->includeDerived = includeDerived;
    else
        d->excludedTypes.insert(typeId, new ExcludedType(typeId, includeDerived));
}

void ItemType::removeExcludeChildType(const QString &typeId)
{
    QMutexLocker locker(&d->typeLock);
    d->childTypesCache.reset();
    delete d->excludedTypes.take(typeId);
}

void ItemType::resetExcludeChildTypes()
{
    QMutexLocker locker(&d->typeLock);
    d->childTypesCache.reset();
    qDeleteAll(d->excludedTypes);
    d->excludedTypes.clear();
}

void ItemType::addMandatoryChild(const QString &typeId, const QString &name)
{
    if (typeId.isEmpty() || typeId == getId()) {
        qCWarning(Internal::lcTypes,
                  "addMandatoryChild(): cannot add item of the same type as mandatory child, or "
                  "the type id is empty");
        return;
    }
    if (name.isEmpty())
        return;
    QMutexLocker locker(&d->typeLock);
    ChildType *&entry = d->childTypes[typeId];
    if (!entry) {
        entry = new ChildType(typeId, false);
        d->childTypesChanged();
    }
    entry->mandatoryNames.append(name);
    d->mayHaveMandatoryChildren.store(true, std::memory_order_release);
}

void ItemType::removeMandatoryChild(const QString &typeId, const QString &name)
{
    QMutexLocker locker(&d->typeLock);
    if (ChildType *entry = d->childTypes.value(typeId))
        entry->mandatoryNames.removeAll(name);
}

void ItemType::resetMandatoryChild()
{
    QMutexLocker locker(&d->typeLock);
    for (ChildType *entry : std::as_const(d->childTypes))
        entry->mandatoryNames.clear();
}

bool ItemType::isMandatoryChild(const QString &typeId, const QString &name) const
{
    if (name.isEmpty())
        return false;
    QMutexLocker locker(&d->typeLock);
    const ChildType *entry = d->childTypes.value(typeId);
    return entry && entry->mandatoryNames.contains(name);
}

ViewItem *ItemType::createItemInstance(const QString &name, QObject *parent)
{
    auto *item = new ViewItem(this, name);
    item->setItemData(createDataInstance(parent));
    if (!d->propertySheet)
        d->propertySheet = new ItemPropertySheet(this);
    createItemMandatoryChildren(item);
    item->moveToThread(thread());
    return item;
}

ViewItem *ItemType::createItemInstance(QObject *parent)
{
    return createItemInstance(QString(), parent);
}

QString ItemType::existingFileFilter() const
{
    return QString();
}

bool ItemType::canOpenFile(const QString &) const
{
    return false;
}

ViewItem *ItemType::createItemFromFile(const QString &)
{
    return nullptr;
}

void ItemType::createItemMandatoryChildren(ViewItem *item)
{
    const TypeRegistrar *registrar = d->registrar.data();
    if (!registrar || !item || !d->mayHaveMandatoryChildren.load(std::memory_order_acquire))
        return;
    QMutexLocker locker(&d->typeLock);
    for (const ChildType *entry : std::as_const(d->childTypes)) {
        for (const QString &name : entry->mandatoryNames) {
            if (ViewItem *child = registrar->createItem(entry->typeId, name, item))
                item->addChildItem(child);
        }
    }
}

ItemPropertyBag *ItemType::getPropertyBag(ViewItem *item)
{
    if (!item)
        return nullptr;
    ItemPropertyBag *&bag = d->propertyBags[item];
    if (!bag)
        bag = new ItemPropertyBag(this);
    return bag;
}

void ItemType::disposePropertyBagFor(ViewItem *item)
{
    cleanPropertyBag(item);
}

void ItemType::aboutToDispose(ViewItem *)
{
}

bool ItemType::isItemModified(ViewItem *item) const
{
    const ItemData *data = item ? item->getItemData() : nullptr;
    return data && data->isDirty();
}

bool ItemType::isSet(const QString &property, unsigned int flag) const
{
    if (property.isEmpty())
        return false;
    const QVariant value = this->property(property.toUtf8().constData());
    return value.isValid() && (value.toUInt() & flag);
}

ItemData *ItemType::createDataInstance(QObject *)
{
    return nullptr;
}

QList<ItemType *> ItemType::childTypes(ViewItem *) const
{
    const TypeRegistrar *registrar = d->registrar.data();
    if (!registrar)
        return {};
    QMutexLocker locker(&d->typeLock);
    // Every insertion asks, so the answer is kept until the registry or the tables change.
    if (d->childTypesCache)
        return *d->childTypesCache;
    QList<ItemType *> result;
    const QString scope = this->scope();
    for (const ChildType *entry : std::as_const(d->childTypes)) {
        if (!entry->includeDerived) {
            ItemType *type = registrar->lookup(entry->typeId);
            if (type && !result.contains(type))
                result.append(type);
            continue;
        }
        for (ItemType *type : derivedTypes(registrar, entry->typeId, scope)) {
            if (!result.contains(type))
                result.append(type);
        }
    }
    for (const ExcludedType *entry : std::as_const(d->excludedTypes)) {
        if (!entry->includeDerived) {
            result.removeAll(registrar->lookup(entry->typeId));
            continue;
        }
        for (ItemType *type : derivedTypes(registrar, entry->typeId, scope))
            result.removeAll(type);
    }
    std::stable_sort(result.begin(), result.end(), &ItemType::ascendingSort);
    d->childTypesCache = result;
    return result;
}

QList<ItemType *> ItemType::addCandidates(ViewItem *parent) const
{
    return childTypes(parent);
}

QIcon ItemType::getIcon(ViewItem *, int)
{
    return d->icon;
}

void ItemType::setIcon(const QIcon &icon)
{
    d->icon = icon;
}

bool ItemType::contextMenu(ViewItem *item, const QList<ViewItem *> &selection,
                           QList<OrderedItem *> &out)
{
    QMutexLocker locker(&d->menuLock);
    DefMenus menus = d->defMenus & ~DefMenus(EditMenu | EditWithMenu);
    if (selection.size() == 1) {
        const qsizetype factories = d->editorFactories.size();
        if (factories == 1)
            menus |= EditMenu;
        else if (factories > 1)
            menus |= EditWithMenu;
    } else {
        const bool anyEditor = std::any_of(selection.cbegin(), selection.cend(), [](ViewItem *node) {
            const ItemType *type = node ? node->getType() : nullptr;
            return type && type->getEditorFactoryCount() > 0;
        });
        if (anyEditor)
            menus |= EditMenu;
    }
    d->defMenus = menus;
    d->contextItem = item;

    bool appended = false;
    for (OrderedItem *entry : std::as_const(d->menuItems)) {
        QObject *object = entry->object();
        if (object) {
            if (!entry->tag().isEmpty() && !isSet(entry->tag(), uint(entry->flags())))
                continue;
            if (!qobject_cast<QAction *>(object) && !qobject_cast<QMenu *>(object))
                continue;
        }
        out.append(entry);
        appended = true;
    }
    return appended;
}

TypeRegistrar *ItemType::registrar() const
{
    return d->registrar.data();
}

void ItemType::setRegistrar(TypeRegistrar *registrar)
{
    if (TypeRegistrar *previous = d->registrar.data())
        disconnect(previous, nullptr, this, nullptr);
    d->registrar = registrar;
    d->invalidateChildTypes();
    if (registrar) {
        const auto invalidate = [this] { d->invalidateChildTypes(); };
        connect(registrar, &TypeRegistrar::typeRegistered, this, invalidate);
        connect(registrar, &TypeRegistrar::typeUnregistered, this, invalidate);
    }
}

QString ItemType::scope() const
{
    const TypeRegistrar *registrar = d->registrar.data();
    return registrar ? registrar->scope(getId()) : QString();
}

QStringList ItemType::baseTypes() const
{
    QStringList chain;
    for (const QMetaObject *meta = metaObject(); meta; meta = meta->superClass())
        chain.append(QString::fromLatin1(meta->className()));
    return chain;
}

QString ItemType::commonBaseType(const QStringList &chain) const
{
    const QStringList own = baseTypes();
    for (const QString &name : own) {
        if (chain.contains(name))
            return name;
    }
    return QString();
}

QString ItemType::commonBaseType(ItemType *other) const
{
    return other ? commonBaseType(other->baseTypes()) : QString();
}

QStringList ItemType::childTypeIds() const
{
    QMutexLocker locker(&d->typeLock);
    return d->childTypes.keys();
}

bool ItemType::ascendingSort(const ItemType *a, const ItemType *b)
{
    return QString::localeAwareCompare(a->getDescription(), b->getDescription()) < 0;
}

ItemPropertySheet *ItemType::propertySheet(ViewItem *) const
{
    return d->propertySheet;
}

QMap<ViewItem *, ItemPropertyBag *> ItemType::getPropertyBagMap() const
{
    return d->propertyBags;
}

void ItemType::cleanPropertyBag(ViewItem *item)
{
    delete d->propertyBags.take(item);
}

void ItemType::cleanAllPropertyBags()
{
    qDeleteAll(d->propertyBags);
    d->propertyBags.clear();
}

void ItemType::addMenuItem(QAction *action, int order, const QString &property, unsigned int flag)
{
    insertAndSort(new OrderedItem(order, action, property, int(flag)));
}

void ItemType::addMenuItem(QMenu *menu, int order, const QString &property, unsigned int flag)
{
    insertAndSort(new OrderedItem(order, menu, property, int(flag)));
}

void ItemType::addMenuSeperator(int order)
{
    insertAndSort(new OrderedItem(order, nullptr, QString(), 0));
}

void ItemType::insertAndSort(OrderedItem *entry)
{
    QMutexLocker locker(&d->menuLock);
    // The list is sorted, so this is the stable sort of the appended list.
    const auto position = std::upper_bound(d->menuItems.begin(), d->menuItems.end(), entry,
                                           &OrderedItem::ascendingSort);
    d->menuItems.insert(position, entry);
}

ItemType::DefMenus ItemType::defMenus() const
{
    return d->defMenus;
}

void ItemType::setDefMenus(DefMenus menus)
{
    d->defMenus = menus;
}

uint ItemType::defaultMenus() const
{
    return uint(d->defMenus.toInt());
}

void ItemType::setDefaultMenus(uint menus)
{
    d->defMenus = DefMenus::fromInt(int(menus));
}

QAction *ItemType::propertiesAction() const
{
    return d->propertiesAction;
}

ItemType::ItemTypeAttributes ItemType::itemTypeAttributes() const
{
    return d->attributes;
}

void ItemType::setItemTypeAttributes(ItemTypeAttributes attributes)
{
    d->attributes = attributes;
}

ViewItem *ItemType::contextItem() const
{
    return d->contextItem.data();
}

bool ItemType::event(QEvent *event)
{
    if (event->type() != QEvent::StatusTip)
        return QObject::event(event);
    // Hovered menu entries report here; the status bar lives with the registry's widget.
    const TypeRegistrar *registrar = d->registrar.data();
    if (QWidget *widget = registrar ? registrar->widgetParent() : nullptr) {
        QStatusTipEvent copy(static_cast<QStatusTipEvent *>(event)->tip());
        QCoreApplication::sendEvent(widget, &copy);
    }
    event->accept();
    return true;
}

} // namespace Velmora::Framework
