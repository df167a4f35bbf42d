#include "types/itemtype.h"
#include "types/itemtype_p.h"

#include "core/applicationhooks.h"
#include "core/hubinterfaces.h"
#include "core/ieditorfactory.h"
#include "core/ipreviewerfactory.h"
#include "core/logging_p.h"
#include "model/itemutils.h"
#include "model/viewitem.h"
#include "ribdock/dockcontentwidget.h"

#include <QtGui/qaction.h>

namespace Velmora::Framework {

namespace {

// The document area's section that holds the editors.
constexpr int editorSection = 2;

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
        qCWarning(Internal::lcTypes, "%s: Id %s already exists, overwrite with new factory", caller,
                  qPrintable(id));
        if (!action)
            qCWarning(Internal::lcTypes, "%s: factory and action out of sync", caller);
        return action;
    }
    if (action) {
        qCWarning(Internal::lcTypes, "%s: factory and action out of sync", caller);
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
    QWidget *editor = item->getEditor(factoryId, instructions);
    auto *dock = interfaceCast<IDockContainer>(ApplicationHooks::facilities());
    Ribdock::DockContentWidget *content = dock ? dock->contentWidget() : nullptr;
    if (!editor || !content)
        return;
    if (content->indexOf(editor) >= 0) {
        content->setCurrentView(editor);
        return;
    }
    // Editors share the document section; the tab follows the editor's title.
    content->tabifyView(editor, editor->windowTitle(), editor->windowIcon(), editorSection);
    // Once per tabbing: a lambda cannot be a unique connection.
    QObject::connect(editor, &QWidget::windowTitleChanged, content,
                     [content, editor](const QString &title) { content->setViewTitle(editor, title); });
    content->setCurrentView(editor);
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
        qCWarning(Internal::lcTypes,
                  "ItemType::setDefaultEditorFactory(): factory and action out-of-sync");
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

void ItemType::edit(const QString &factoryId)
{
    const QList<ViewItem *> items = ItemUtils::getSelectedItems(contextItem());
    for (ViewItem *item : items)
        edit(item, {}, factoryId);
}

} // namespace Velmora::Framework
