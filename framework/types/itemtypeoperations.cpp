#include "types/itemtype.h"
#include "types/itemtype_p.h"

#include "core/applicationhooks.h"
#include "core/hubinterfaces.h"
#include "core/iaugmentablegeneric.h"
#include "core/logging_p.h"
#include "core/prompts.h"
#include "core/typeregistrar.h"
#include "model/itemtypemimecodec.h"
#include "model/itemutils.h"
#include "model/viewitem.h"
#include "model/viewmodel.h"
#include "types/augmentation_p.h"
#include "types/dialogaddnew.h"

#include <QtCore/qdir.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qmimedata.h>
#include <QtGui/qclipboard.h>
#include <QtGui/qguiapplication.h>

#include <algorithm>

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

// What both add routines need first: exactly one item, the parent, a registry, and at least
// one candidate type. Warns in the words of routine; null when the routine cannot go on.
ViewItem *addTarget(const ItemType *type, const QList<ViewItem *> &items, const char *routine,
                    QList<ItemType *> &candidates)
{
    if (items.size() != 1)
        return nullptr;
    ViewItem *parent = items.first();
    candidates = type->addCandidates(parent);
    if (!type->registrar()) {
        qCWarning(Internal::lcTypes, "ItemType::%s() : null registrar pointer", routine);
        return nullptr;
    }
    if (candidates.isEmpty()) {
        qCWarning(Internal::lcTypes, "ItemType::%s() : no type of child allowed.", routine);
        return nullptr;
    }
    return parent;
}

} // namespace

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

bool ItemType::dispatch(const QString &command)
{
    return d->genericHandler.handleCommand(command, {}, QVariant());
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
        // Only the first candidate that handles the path tries it; a path none handles, or
        // one that fails to read, is skipped.
        const auto handler = std::find_if(candidates.cbegin(), candidates.cend(),
                                          [&path](const ItemType *candidate) {
                                              return candidate->canOpenFile(path);
                                          });
        if (handler == candidates.cend())
            continue;
        if (ViewItem *item = (*handler)->createItemFromFile(path))
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
    QList<ItemType *> candidates;
    ViewItem *parent = addTarget(this, items, "add_new_routine", candidates);
    if (!parent)
        return false;
    QWidget *widget = d->registrar->widgetParent();
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
    QList<ItemType *> candidates;
    ViewItem *parent = addTarget(this, items, "add_existing_routine", candidates);
    if (!parent)
        return false;
    auto *addressBar = interfaceCast<IAddressBar>(ApplicationHooks::facilities());
    QString path = argument.toString();
    if (path.isEmpty()) {
        QString filters;
        for (const ItemType *candidate : std::as_const(candidates)) {
            const QString filter = candidate->existingFileFilter();
            if (!filter.isEmpty())
                filters += filter + QLatin1Char('\n');
        }
        const QString folder = addressBar ? addressBar->path() : QString();
        path = Prompts::getOpenFileName(d->registrar->widgetParent(), tr("Open A Project File"),
                                        folder.isEmpty() ? QDir::homePath() : folder, filters);
    }
    if (path.isEmpty())
        return false;
    const bool hadChildren = parent->getChildItemCount() > 0;
    if (!performAddExisting(parent, candidates, {path}))
        return false;
    if (!hadChildren && parent->getChildItemCount() > 0)
        parent->setExpanded(true);
    // A project opened into the solution takes the address bar to its folder.
    if (addressBar && parent->getType() && parent->getType()->getId() == QLatin1String(Iid::ITypeSolution))
        addressBar->setPath(QFileInfo(path).absolutePath());
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
        qCDebug(Internal::lcTypes, "Properties menu item selected");
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
