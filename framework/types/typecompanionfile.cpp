#include "types/typecompanionfile.h"

#include "core/prompts.h"
#include "model/itemdata.h"
#include "model/viewitem.h"
#include "types/itemtypefile.h"

#include <QtCore/qdir.h>
#include <QtCore/qfileinfo.h>

namespace Velmora::Framework {

namespace {

ItemTypeFile *fileTypeOf(const ViewItem *item)
{
    return item ? qobject_cast<ItemTypeFile *>(item->getType()) : nullptr;
}

// The loaded items with children: what closing or clearing has work to do on.
QList<ViewItem *> loadedParents(const QList<ViewItem *> &items)
{
    QList<ViewItem *> result;
    for (ViewItem *item : items) {
        if (!item || item->getChildItemCount() < 1)
            continue;
        const ItemData *data = item->getItemData();
        if (!data || data->isLoaded())
            result.append(item);
    }
    return result;
}

bool changeToFolderOf(const QList<ViewItem *> &items)
{
    return items.size() == 1 && items.first()
        && QDir::setCurrent(QFileInfo(items.first()->getItemPath()).absoluteDir().path());
}

} // namespace

TypeCompanionFile::TypeCompanionFile(QObject *parent)
    : DefaultFileAugmentable(parent)
{
}

TypeCompanionFile::~TypeCompanionFile() = default;

bool TypeCompanionFile::beforeOpen(const QList<ViewItem *> &items, const QVariant &)
{
    return clear_items(items);
}

bool TypeCompanionFile::afterOpen(const QList<ViewItem *> &items, const QVariant &)
{
    return changeToFolderOf(items);
}

bool TypeCompanionFile::afterSave(const QList<ViewItem *> &items, const QVariant &)
{
    changeToFolderOf(items);
    return true;
}

bool TypeCompanionFile::beforeClose(const QList<ViewItem *> &items, const QVariant &)
{
    return save_items(items);
}

bool TypeCompanionFile::change_dir(const QString &path)
{
    const QDir folder = QFileInfo(path).absoluteDir();
    return folder.exists() && QDir::setCurrent(folder.path());
}

bool TypeCompanionFile::save_items(const QList<ViewItem *> &items)
{
    QList<ViewItem *> unsaved;
    for (ViewItem *item : items) {
        const ItemData *data = item ? item->getItemData() : nullptr;
        if (data && data->isDirty())
            unsaved.append(item);
    }
    if (unsaved.size() <= 1) {
        // A single unsaved item closes without a question and without saving: intended.
        return true;
    }
    const QMessageBox::StandardButton answer = Prompts::question(
        nullptr, tr("Save multiple changes?"),
        tr("%1 unsaved files. Save all before closing?").arg(unsaved.size()),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::No)
        return true;
    if (answer != QMessageBox::Yes)
        return false;
    bool saved = true;
    for (ViewItem *item : std::as_const(unsaved)) {
        if (ItemTypeFile *type = fileTypeOf(item))
            saved = type->save(item, QString()) && saved;
    }
    return saved;
}

bool TypeCompanionFile::close_items(const QList<ViewItem *> &items)
{
    const QList<ViewItem *> parents = loadedParents(items);
    if (ItemTypeFile *type = parents.isEmpty() ? nullptr : fileTypeOf(parents.first()))
        type->close(parents);
    return true;
}

bool TypeCompanionFile::clear_items(const QList<ViewItem *> &items)
{
    const QList<ViewItem *> parents = loadedParents(items);
    if (ItemTypeFile *type = parents.isEmpty() ? nullptr : fileTypeOf(parents.first()))
        type->clear(parents);
    return true;
}

} // namespace Velmora::Framework
