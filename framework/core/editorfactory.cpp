#include "core/editorfactory.h"

#include "core/ieditor.h"

#include <QtCore/qmap.h>
#include <QtWidgets/qwidget.h>

namespace Velmora::Framework {

class EditorFactoryPrivate
{
public:
    QMap<ViewItem *, QWidget *> instances;
};

EditorFactory::EditorFactory(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<EditorFactoryPrivate>())
{
}

EditorFactory::~EditorFactory() = default;

bool EditorFactory::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

QWidget *EditorFactory::createInstance(ViewItem *item, const QList<EditorInstruction> &instructions)
{
    if (!item)
        return nullptr;
    if (QWidget *editor = d->instances.value(item))
        return editor;

    QWidget *editor = createEditor(item, instructions);
    // Only editors can be handed out again safely: any other widget is the caller's alone.
    if (!editor || !editor->qt_metacast(Iid::IEditor))
        return editor;

    // One connection per tracked entry: a widget built for two items is then forgotten for
    // both when it goes.
    connect(editor, &QObject::destroyed, this, &EditorFactory::aboutToDestroy);
    d->instances.insert(item, editor);
    return editor;
}

void EditorFactory::disposeInstance(ViewItem *item)
{
    if (!item)
        return;
    const auto it = d->instances.find(item);
    if (it == d->instances.end())
        return;
    QWidget *editor = it.value();
    // Forget first, so the destroyed() that the deletion fires finds nothing to remove.
    d->instances.erase(it);
    delete editor;
}

QWidget *EditorFactory::createEmptyInstance(QVariant, const QList<EditorInstruction> &)
{
    return nullptr;
}

bool EditorFactory::queryExistingEditor(IQelProject *, const QString &) const
{
    return false;
}

void EditorFactory::aboutToDestroy(QObject *editor)
{
    // The widget part is already gone when destroyed() fires: compare addresses only.
    for (auto it = d->instances.begin(); it != d->instances.end(); ++it) {
        if (static_cast<QObject *>(it.value()) == editor) {
            d->instances.erase(it);
            return;
        }
    }
}

} // namespace Velmora::Framework
