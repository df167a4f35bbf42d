#include "types/itemtype.h"

#include "core/applicationhooks.h"
#include "core/augmentableregistrar.h"
#include "core/iaugmentablegeneric.h"
#include "core/ieditorfactory.h"
#include "core/ipreviewerfactory.h"
#include "core/prompts.h"
#include "core/typeregistrar.h"
#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "model/itemtypemimecodec.h"
#include "model/itemutils.h"
#include "model/ordereditem.h"
#include "model/viewitem.h"
#include "model/viewmodel.h"
#include "types/augmentation_p.h"
#include "types/dialogaddnew.h"
#include "types/itempropertysheet.h"
#include "types/itemtypefile.h"

#include <QtCore/qcoreapplication.h>
#include <QtCore/qdir.h>
#include <QtCore/qmetaobject.h>
#include <QtCore/qmimedata.h>
#include <QtCore/qmutex.h>
#include <QtCore/qpointer.h>
#include <QtCore/qsignalmapper.h>
#include <QtGui/qaction.h>
#include <QtGui/qclipboard.h>
#include <QtGui/qevent.h>
#include <QtGui/qguiapplication.h>
#include <QtWidgets/qmenu.h>

#include <algorithm>
#include <atomic>
#include <optional>

namespace Velmora::Framework {

namespace {

using Hook = bool (IAugmentableGeneric::*)(const QList<ViewItem *> &, const QVariant &);

// One generic operation: its command and what the protocol calls for it.
struct Operation
{
    const char *command;
    Hook can;
    Hook before;
    Hook after;
};

const Operation operations[] = {
    {"cmdAddNew", &IAugmentableGeneric::canAddNew, &IAugmentableGeneric::beforeAddNew,
     &IAugmentableGeneric::afterAddNew},
    {"cmdAddExisting", &IAugmentableGeneric::canAddExisting,
     &IAugmentableGeneric::beforeAddExisting, &IAugmentableGeneric::afterAddExisting},
    {"cmdCut", &IAugmentableGeneric::canCut, &IAugmentableGeneric::beforeCut,
     &IAugmentableGeneric::afterCut},
    {"cmdCopy", &IAugmentableGeneric::canCopy, &IAugmentableGeneric::beforeCopy,
     &IAugmentableGeneric::afterCopy},
    {"cmdPaste", &IAugmentableGeneric::canPaste, &IAugmentableGeneric::beforePaste,
     &IAugmentableGeneric::afterPaste},
    {"cmdRemove", &IAugmentableGeneric::canRemove, &IAugmentableGeneric::beforeRemove,
     &IAugmentableGeneric::afterRemove},
    {"cmdRename", &IAugmentableGeneric::canRename, &IAugmentableGeneric::beforeRename,
     &IAugmentableGeneric::afterRename},
};

enum OperationIndex { AddNew, AddExisting, Cut, Copy, Paste, Remove, Rename };

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

QAction *makeAction(ItemType *owner, const QString &text, const QString &icon,
                    const QString &toolTip, const QString &statusTip)
{
    auto *action = new QAction(text, owner);
    if (!icon.isEmpty())
        action->setIcon(QIcon(icon));
    action->setToolTip(toolTip);
    action->setStatusTip(statusTip);
    return action;
}

// The action for a factory being registered under id: the id's existing action, or a new one
// (parented to owner) from the factory's name, icon and description, asked in that order.
// Warns, in the words of caller, when the id is taken or factories and actions disagree;
// null only when an unknown id already has an action.
template <typename Factory>
QAction *factoryAction(ItemType *owner, const char *caller, const QString &id, Factory *factory,
                       const QMap<QString, Factory *> &factories,
                       const QMap<QString, QAction *> &actions)
{
    QAction *action = actions.value(id);
    if (factories.contains(id)) {
        qWarning("%s: Id %s already exists, overwrite with new factory", caller, qPrintable(id));
        if (!action)
            qWarning("%s: factory and action out of sync", caller);
        return action;
    }
    if (action) {
        qWarning("%s: factory and action out of sync", caller);
        return nullptr;
    }
    const QString name = factory->name();
    const QIcon icon = factory->icon();
    const QString description = factory->description();
    action = new QAction(icon, name, owner);
    if (!description.isEmpty())
        action->setStatusTip(description);
    return action;
}

} // namespace

class ItemTypePrivate
{
public:
    explicit ItemTypePrivate(ItemType *type)
        : genericHandler(type)
    {
    }

    void invalidateChildTypes()
    {
        QMutexLocker locker(&typeLock);
        childTypesCache.reset();
    }

    // Called with typeLock held after childTypes changed.
    void childTypesChanged()
    {
        childTypesCache.reset();
        hasChildTypes.store(!childTypes.isEmpty(), std::memory_order_release);
    }

    QIcon icon;
    ItemType::GenericActionHandler genericHandler;
    QPointer<TypeRegistrar> registrar;
    QList<OrderedItem *> menuItems;
    QMap<QString, ItemType::ChildType *> childTypes;
    QMap<QString, ItemType::ExcludedType *> excludedTypes;
    ItemType::DefMenus defMenus = ItemType::DefMenus::fromInt(0xFFF);
    QPointer<ViewItem> contextItem;
    ItemPropertySheet *propertySheet = nullptr;
    // Recursive: subclass overrides call back into the base while holding them.
    mutable QRecursiveMutex menuLock;
    mutable QRecursiveMutex typeLock;
    // What childTypes() answered last; reset whenever the registry or the tables change.
    mutable std::optional<QList<ItemType *>> childTypesCache;
    // Whether childTypes is not empty, kept with every change of it.
    std::atomic<bool> hasChildTypes{false};
    // Set by the first mandatory child ever named, so that making a node of a type without
    // any skips the lock.
    std::atomic<bool> mayHaveMandatoryChildren{false};
    ItemType::ItemTypeAttributes attributes = ItemType::ItemTypeAttributes::fromInt(0x63);
    QMap<QString, IEditorFactory *> editorFactories;
    QMap<QString, QAction *> editorActions;
    QString defaultEditorId;
    QPointer<QMenu> editWithMenu;
    QPointer<QAction> editAction;
    QSignalMapper editorMapper;
    QMap<ViewItem *, ItemPropertyBag *> propertyBags;
    QMap<QString, IPreviewerFactory *> previewerFactories;
    QMap<QString, QAction *> previewerActions;
    QString defaultPreviewerId;
    QAction *propertiesAction = nullptr;
};

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
    auto addCommand = [&](int order, const QString &text, const QString &icon,
                          const QString &toolTip, const QString &statusTip, const char *command,
                          uint flag) {
        QAction *action = makeAction(this, text, icon, toolTip, statusTip);
        handler->hookupHandler(action, QString::fromLatin1(command));
        addMenuItem(action, order, menus, flag);
    };

    addMenuSeperator(16);
    addCommand(17, tr("Add Ne&w Item..."), noIcon, tr("Add New"), tr("Add a new item to this item"),
               "cmdAddNew", AddNewMenu);
    addCommand(18, tr("Add Existin&g Item..."), noIcon, tr("Add Existing"),
               tr("Add an existing item to this item"), "cmdAddExisting", AddExistingMenu);
    addMenuSeperator(32);

    d->editAction = makeAction(this, tr("&Edit"), QString(), tr("Edit"), tr("Edit this item"));
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
    addCommand(65521, tr("Cu&t"), QStringLiteral(":/qelshared/images/16/cut.svg"), tr("Cut"),
               tr("Cut the item to the clipboard"), "cmdCut", CutMenu);
    addCommand(65522, tr("Cop&y"), QStringLiteral(":/qelshared/images/16/copy.svg"), tr("Copy"),
               tr("Copy the item to the clipboard"), "cmdCopy", CopyMenu);
    addCommand(65523, tr("&Paste"), QStringLiteral(":/qelshared/images/16/paste.svg"),
               tr("Paste"), tr("Paste from the clipboard to the item"), "cmdPaste", PasteMenu);
    addCommand(65524, tr("Remo&ve"), QStringLiteral(":/qelshared/images/16/remove.svg"),
               tr("Remove"), tr("Remove the item"), "cmdRemove", RemoveMenu);
    addCommand(65525, tr("Rena&me"), QStringLiteral(":/qelshared/images/16/rename.svg"),
               tr("Rename"), tr("Rename the item"), "cmdRename", RenameMenu);

    d->propertiesAction = makeAction(this, tr("P&roperties"), QString(), tr("Properties"),
                                     tr("Show the property window"));
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
        qWarning("addMandatoryChild(): cannot add item of the same type as mandatory child, or "
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

bool ItemType::constructMimeData(QMimeData *mime, QList<ViewItem *>, MimeDataHint)
{
    if (!mime)
        return false;
    QStringList ids;
    ItemTypeMimeCodec::decode(mime, ids);
    return ItemTypeMimeCodec::encode(mime, ids, getId());
}

bool ItemType::performDropAction(ViewItem *, const QMimeData *, Qt::DropAction)
{
    return true;
}

void ItemType::acceptDragEnter(ViewItem *, QDragEnterEvent *)
{
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

QWidget *ItemType::createItemEditor(const QString &factoryId, ViewItem *item,
                                    const QList<EditorInstruction> &instructions)
{
    IEditorFactory *factory = d->editorFactories.value(factoryId);
    return factory ? factory->createInstance(item, instructions) : nullptr;
}

QWidget *ItemType::createItemEditor(ViewItem *item, const QList<EditorInstruction> &instructions)
{
    IEditorFactory *factory = getDefaultEditorFactory();
    return factory ? factory->createInstance(item, instructions) : nullptr;
}

void ItemType::disposeEditorFor(ViewItem *item)
{
    for (IEditorFactory *factory : std::as_const(d->editorFactories)) {
        if (factory)
            factory->disposeInstance(item);
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

bool ItemType::canChange(ViewItem *, const QVariant &value, ChangeAspects aspects) const
{
    return editable() && aspects == ChangeAspects(NameAspect)
        && value.typeId() == QMetaType::QString && !value.toString().isEmpty();
}

const QValidator *ItemType::nameValidator(ViewItem *) const
{
    return nullptr;
}

bool ItemType::doNameChange(ViewItem *item, const QString &name)
{
    if (!item)
        return false;
    item->setItemName(name);
    return true;
}

void ItemType::nameChanged(ViewItem *item, const QString &)
{
    // Renaming only starts the editing, so the after-call waits for the name to change.
    if (!item)
        return;
    const QList<ViewItem *> items{item};
    const QVariant name(item->getItemName());
    for (IAugmentableGeneric *augmentable : Internal::augmentablesFor<IAugmentableGeneric>(this))
        augmentable->afterRename(items, name);
}

bool ItemType::existName(ViewItem *, const QString &) const
{
    return false;
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

QWidget *ItemType::createItemPreviewer(const QString &factoryId, ViewItem *item,
                                       const QPoint &at, QWidget *parent)
{
    IPreviewerFactory *factory = d->previewerFactories.value(factoryId);
    return factory ? factory->createPreviewer(item, at, parent) : nullptr;
}

QWidget *ItemType::createItemPreviewer(ViewItem *item, const QPoint &at, QWidget *parent)
{
    IPreviewerFactory *factory = getDefaultPreviewerFactory();
    return factory ? factory->createPreviewer(item, at, parent) : nullptr;
}

void ItemType::disposePreviewerFor(ViewItem *item)
{
    for (IPreviewerFactory *factory : std::as_const(d->previewerFactories)) {
        if (factory)
            factory->disposePreviewer(item);
    }
}

void ItemType::edit(ViewItem *item, const QList<EditorInstruction> &instructions,
                    const QString &factoryId)
{
    if (!item)
        return;
    // The editor is made either way; showing it as a document tab needs a running
    // environment with its dock container, which the shell provides.
    item->getEditor(factoryId, instructions);
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

bool ItemType::addNew(ViewItem *parent)
{
    return d->genericHandler.handleCommand(QStringLiteral("cmdAddNew"), {parent}, QVariant());
}

bool ItemType::addExisting(ViewItem *parent, const QString &path)
{
    return d->genericHandler.handleCommand(QStringLiteral("cmdAddExisting"), {parent}, path);
}

bool ItemType::cut(const QList<ViewItem *> &items)
{
    return d->genericHandler.handleCommand(QStringLiteral("cmdCut"), items, QVariant());
}

bool ItemType::cut(ViewItem *item)
{
    return cut(QList<ViewItem *>{item});
}

bool ItemType::copy(const QList<ViewItem *> &items)
{
    return d->genericHandler.handleCommand(QStringLiteral("cmdCopy"), items, QVariant());
}

bool ItemType::copy(ViewItem *item)
{
    return copy(QList<ViewItem *>{item});
}

bool ItemType::paste(ViewItem *target)
{
    return d->genericHandler.handleCommand(QStringLiteral("cmdPaste"), {target}, QVariant());
}

bool ItemType::remove(const QList<ViewItem *> &items, bool flag)
{
    return d->genericHandler.handleCommand(QStringLiteral("cmdRemove"), items, flag);
}

bool ItemType::remove(ViewItem *item, bool flag)
{
    return remove(QList<ViewItem *>{item}, flag);
}

bool ItemType::rename(ViewItem *item, const QString &name)
{
    return d->genericHandler.handleCommand(QStringLiteral("cmdRename"), {item}, name);
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

void ItemType::registerEditorFactory(const QString &id, IEditorFactory *factory)
{
    if (id.isEmpty() || !factory)
        return;
    QAction *action = factoryAction(this, "ItemType::registerEditorFactory()", id, factory,
                                    d->editorFactories, d->editorActions);
    d->editorFactories.insert(id, factory);
    if (action) {
        d->editorActions.insert(id, action);
        disconnect(action, &QAction::triggered, &d->editorMapper,
                   qOverload<>(&QSignalMapper::map));
        connect(action, &QAction::triggered, &d->editorMapper, qOverload<>(&QSignalMapper::map));
        d->editorMapper.setMapping(action, id);
        if (QMenu *menu = d->editWithMenu.data()) {
            menu->clear();
            menu->addActions(d->editorActions.values());
        }
    }
    if (d->editorFactories.size() == 1) {
        d->defaultEditorId = d->editorFactories.firstKey();
        if (QAction *edit = d->editAction.data())
            edit->setIcon(d->editorFactories.first()->icon());
    }
}

void ItemType::unregisterEditorFactory(const QString &id)
{
    if (!d->editorFactories.remove(id))
        return;
    if (QAction *action = d->editorActions.take(id)) {
        disconnect(action, &QAction::triggered, &d->editorMapper,
                   qOverload<>(&QSignalMapper::map));
        d->editorMapper.removeMappings(action);
        delete action;
    }
    if (id != d->defaultEditorId)
        return;
    if (d->editorFactories.isEmpty()) {
        d->defaultEditorId.clear();
        return;
    }
    d->defaultEditorId = d->editorFactories.firstKey();
    QAction *next = d->editorActions.value(d->defaultEditorId);
    if (next && d->editAction)
        d->editAction->setIcon(next->icon());
}

void ItemType::setDefaultEditorFactory(const QString &id)
{
    if (id.isEmpty()) {
        d->defaultEditorId.clear();
        return;
    }
    if (!d->editorFactories.contains(id) || !d->editorActions.contains(id)) {
        qWarning("ItemType::setDefaultEditorFactory(): factory and action out-of-sync");
        return;
    }
    d->defaultEditorId = id;
    if (QMenu *menu = d->editWithMenu.data())
        menu->setDefaultAction(d->editorActions.value(id));
}

IEditorFactory *ItemType::getDefaultEditorFactory() const
{
    return d->defaultEditorId.isEmpty() ? nullptr : d->editorFactories.value(d->defaultEditorId);
}

int ItemType::getEditorFactoryCount() const
{
    return int(d->editorFactories.size());
}

void ItemType::registerPreviewerFactory(const QString &id, IPreviewerFactory *factory)
{
    if (id.isEmpty() || !factory)
        return;
    QAction *action = factoryAction(this, "ItemType::registerPreviewerFactory()", id, factory,
                                    d->previewerFactories, d->previewerActions);
    d->previewerFactories.insert(id, factory);
    if (action)
        d->previewerActions.insert(id, action);
    // Previewers follow editors: the only factory is the default one.
    if (d->previewerFactories.size() == 1)
        d->defaultPreviewerId = d->previewerFactories.firstKey();
}

void ItemType::unregisterPreviewerFactory(const QString &id)
{
    if (!d->previewerFactories.remove(id))
        return;
    delete d->previewerActions.take(id);
    if (id == d->defaultPreviewerId)
        d->defaultPreviewerId = d->previewerFactories.isEmpty()
            ? QString() : d->previewerFactories.firstKey();
}

void ItemType::setDefaultPreviewerFactory(const QString &id)
{
    if (id.isEmpty())
        d->defaultPreviewerId.clear();
    else if (d->previewerFactories.contains(id))
        d->defaultPreviewerId = id;
}

IPreviewerFactory *ItemType::getDefaultPreviewerFactory() const
{
    return d->defaultPreviewerId.isEmpty() ? nullptr
                                           : d->previewerFactories.value(d->defaultPreviewerId);
}

int ItemType::getPreviewerFactoryCount() const
{
    return int(d->previewerFactories.size());
}

ViewItem *ItemType::contextItem() const
{
    return d->contextItem.data();
}

bool ItemType::dispatch(const QString &command)
{
    return d->genericHandler.handleCommand(command, {}, QVariant());
}

void ItemType::edit(const QString &factoryId)
{
    const QList<ViewItem *> items = ItemUtils::getSelectedItems(contextItem());
    for (ViewItem *item : items)
        edit(item, {}, factoryId);
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

QDialog *ItemType::createAddNewDialog(ViewItem *parent, QList<ItemType *> candidates,
                                     QWidget *dialogParent)
{
    return new DialogAddNew(parent, candidates, dialogParent);
}

bool ItemType::performAddNew(ViewItem *parent, QDialog *dialog)
{
    const auto *addNew = qobject_cast<DialogAddNew *>(dialog);
    const TypeRegistrar *registrar = d->registrar.data();
    ItemType *type = addNew ? addNew->selectedType() : nullptr;
    const QString name = addNew ? addNew->itemName() : QString();
    if (!registrar || !parent || !type || name.isEmpty())
        return false;
    return adoptChild(parent, registrar->createItem(type->getId(), name, parent));
}

bool ItemType::performAddExisting(ViewItem *parent, QList<ItemType *> candidates,
                                  const QStringList &paths)
{
    bool added = false;
    for (const QString &path : paths) {
        ItemTypeFile *fileType = nullptr;
        for (ItemType *candidate : std::as_const(candidates)) {
            auto *file = qobject_cast<ItemTypeFile *>(candidate);
            if (file && file->canHandle(path)) {
                fileType = file;
                break;
            }
        }
        if (!fileType)
            continue;
        ViewItem *item = fileType->createItemInstance(QString(), nullptr);
        if (!fileType->open(item, path)) {
            delete item;
            continue;
        }
        added = adoptChild(parent, item) || added;
    }
    return added;
}

bool ItemType::adoptChild(ViewItem *parent, ViewItem *child)
{
    if (!parent || !child)
        return false;
    parent->addChildItem(child);
    if (child->getParentItem() == parent)
        return true;
    // Refused by the parent's type: nobody else would free it.
    delete child;
    return false;
}

bool ItemType::add_new_routine(const QList<ViewItem *> &items, const QVariant &)
{
    if (items.size() != 1)
        return false;
    ViewItem *parent = items.first();
    const QList<ItemType *> candidates = addCandidates(parent);
    const TypeRegistrar *registrar = d->registrar.data();
    if (!registrar) {
        qWarning("ItemType::add_new_routine() : null registrar pointer");
        return false;
    }
    if (candidates.isEmpty()) {
        qWarning("ItemType::add_new_routine() : no type of child allowed.");
        return false;
    }
    QWidget *widget = registrar->widgetParent();
    const std::unique_ptr<QDialog> dialog(
        createAddNewDialog(parent, candidates, widget ? widget->window() : nullptr));
    if (!dialog || Prompts::exec(dialog.get()) != QDialog::Accepted
        || !performAddNew(parent, dialog.get())) {
        return false;
    }
    if (parent->getChildItemCount() == 1)
        parent->setExpanded(true);
    return true;
}

bool ItemType::add_existing_routine(const QList<ViewItem *> &items, const QVariant &argument)
{
    if (items.size() != 1)
        return false;
    ViewItem *parent = items.first();
    const QList<ItemType *> candidates = addCandidates(parent);
    const TypeRegistrar *registrar = d->registrar.data();
    if (!registrar) {
        qWarning("ItemType::add_existing_routine() : null registrar pointer");
        return false;
    }
    if (candidates.isEmpty()) {
        qWarning("ItemType::add_existing_routine() : no type of child allowed.");
        return false;
    }
    QString path = argument.toString();
    if (path.isEmpty()) {
        QString filters;
        for (ItemType *candidate : candidates) {
            const auto *file = qobject_cast<ItemTypeFile *>(candidate);
            if (file && !file->filter().isEmpty())
                filters += file->filter() + QLatin1Char('\n');
        }
        // The address bar's folder would be the better start; it arrives with the shell.
        path = Prompts::getOpenFileName(registrar->widgetParent(), tr("Open A Project File"),
                                        QDir::homePath(), filters);
    }
    if (path.isEmpty())
        return false;
    const bool hadChildren = parent->getChildItemCount() > 0;
    if (!performAddExisting(parent, candidates, {path}))
        return false;
    if (!hadChildren && parent->getChildItemCount() > 0)
        parent->setExpanded(true);
    return true;
}

bool ItemType::cut_routine(const QList<ViewItem *> &, const QVariant &)
{
    return false;
}

bool ItemType::copy_routine(const QList<ViewItem *> &, const QVariant &)
{
    return false;
}

bool ItemType::paste_routine(const QList<ViewItem *> &, const QVariant &)
{
    return false;
}

bool ItemType::remove_routine(const QList<ViewItem *> &items, const QVariant &)
{
    bool removed = true;
    for (ViewItem *item : items) {
        if (ViewItem *parent = item ? item->getParentItem() : nullptr)
            removed = parent->removeChildItemAt(item->getItemIndex()) && removed;
    }
    return removed;
}

bool ItemType::rename_routine(const QList<ViewItem *> &items, const QVariant &)
{
    if (items.size() != 1 || !items.first())
        return false;
    ViewModel *model = items.first()->viewModel();
    if (!model)
        return false;
    model->modify(items.first()->modelIndex());
    return true;
}

ItemType::GenericActionHandler *ItemType::genericHandler() const
{
    return &d->genericHandler;
}

ItemType::GenericActionHandler::GenericActionHandler(ItemType *type)
{
    setContext(type);
}

ItemType::GenericActionHandler::~GenericActionHandler() = default;

ItemType *ItemType::GenericActionHandler::type() const
{
    return static_cast<ItemType *>(context());
}

QString ItemType::GenericActionHandler::augmentInterfaceId()
{
    return QString::fromLatin1(Iid::IAugmentableGeneric);
}

bool ItemType::GenericActionHandler::handleCommand(const QString &command,
                                                   const QList<ViewItem *> &items,
                                                   const QVariant &argument)
{
    ItemType *type = this->type();
    if (command == QLatin1String("cmdProperties")) {
        qDebug("Properties menu item selected");
        emit type->propertyWindowRequested();
        return true;
    }
    const auto found = std::find_if(std::begin(operations), std::end(operations),
                                    [&command](const Operation &operation) {
                                        return command == QLatin1String(operation.command);
                                    });
    if (found == std::end(operations))
        return false;
    const int which = int(found - std::begin(operations));
    const Operation &operation = *found;

    QList<ViewItem *> list = items.isEmpty() ? ItemUtils::getSelectedItems(type->contextItem())
                                             : items;
    QVariant arg = argument;
    QMimeData *ownMime = nullptr;
    if (which == Remove)
        list = ItemUtils::getSelectionWithoutChildren(list);
    if (which == Paste) {
        const QClipboard *clipboard = QGuiApplication::clipboard();
        arg = QVariant::fromValue(const_cast<QMimeData *>(clipboard ? clipboard->mimeData()
                                                                    : nullptr));
    }
    QMimeData *mime = nullptr;
    if (which == Cut || which == Copy) {
        mime = arg.value<QMimeData *>();
        if (!mime)
            mime = ownMime = ApplicationHooks::createClipboardMimeData();
        arg = QVariant::fromValue(mime);
    }
    auto routine = [&] {
        switch (which) {
        case AddNew: return type->add_new_routine(list, arg);
        case AddExisting: return type->add_existing_routine(list, arg);
        case Cut: return type->cut_routine(list, arg);
        case Copy: return type->copy_routine(list, arg);
        case Paste: return type->paste_routine(list, arg);
        case Remove: return type->remove_routine(list, arg);
        default: return type->rename_routine(list, arg);
        }
    };
    auto toClipboard = [&] {
        if (which != Cut && which != Copy)
            return;
        if (QClipboard *clipboard = QGuiApplication::clipboard()) {
            clipboard->setMimeData(mime); // the clipboard takes it
            ownMime = nullptr;
        }
    };
    // The after-rename call waits for the name to change (nameChanged).
    const bool done = Internal::runAugmented(
        Internal::augmentablesFor<IAugmentableGeneric>(type), operation.can, operation.before,
        which == Rename ? nullptr : operation.after, list, arg, routine, toClipboard);
    // A mime data made here and not handed to the clipboard is ours to free.
    ApplicationHooks::deleteClipboardMimeData(ownMime);
    if (!done)
        return false;
    if (which == Remove)
        qDeleteAll(list);
    return true;
}

} // namespace Velmora::Framework
