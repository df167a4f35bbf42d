#include "types/itemtypefile.h"

#include "core/iaugmentablefile.h"
#include "core/lazyicon.h"
#include "core/prompts.h"
#include "core/savefile_p.h"
#include "core/typeregistrar.h"
#include "model/itemdata.h"
#include "model/itemutils.h"
#include "model/viewitem.h"
#include "types/augmentation_p.h"
#include "types/itemtype_p.h"
#include "types/viewaction.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qsignalmapper.h>
#include <QtGui/qaction.h>

namespace Velmora::Framework {

namespace {

const QString fileMenusProperty = QStringLiteral("fileMenus");

// Entry i of paths when the lists match and it is set; else the item's own path.
QString pathOf(const QList<ViewItem *> &items, const QStringList &paths, int i)
{
    if (paths.size() == items.size() && !paths.at(i).isEmpty())
        return paths.at(i);
    return items.at(i)->getItemPath();
}

QWidget *dialogParent(const ItemType *type)
{
    const TypeRegistrar *registrar = type->registrar();
    return registrar ? registrar->widgetParent() : nullptr;
}

} // namespace

class ItemTypeFilePrivate
{
public:
    explicit ItemTypeFilePrivate(ItemTypeFile *type)
        : fileHandler(type)
    {
    }

    ItemTypeFile::FileActionHandler fileHandler;
    ItemTypeFile::FileMenus fileMenus = ItemTypeFile::FileMenus::fromInt(14);
};

ItemTypeFile::FileActionHandler::FileActionHandler(ItemTypeFile *type)
{
    setContext(type);
}

ItemTypeFile::FileActionHandler::~FileActionHandler() = default;

ItemTypeFile *ItemTypeFile::FileActionHandler::type() const
{
    return static_cast<ItemTypeFile *>(context());
}

QString ItemTypeFile::FileActionHandler::augmentInterfaceId()
{
    return QString::fromLatin1(Iid::IAugmentableFile);
}

bool ItemTypeFile::FileActionHandler::isFileCommand(const QString &command)
{
    static const QStringList commands{QStringLiteral("cmdOpen"), QStringLiteral("cmdSave"),
                                      QStringLiteral("cmdSaveAs"), QStringLiteral("cmdClose"),
                                      QStringLiteral("cmdClear")};
    return commands.contains(command);
}

bool ItemTypeFile::FileActionHandler::handleCommand(const QString &command,
                                                    const QList<ViewItem *> &items,
                                                    const QVariant &argument)
{
    ItemTypeFile *type = this->type();
    QList<ViewItem *> list = items.isEmpty() ? ItemUtils::getSelectedItems(type->contextItem())
                                             : items;
    const QStringList paths = argument.toStringList();
    const QList<IAugmentableFile *> augmentables =
        Internal::augmentablesFor<IAugmentableFile>(type);
    const auto run = [&](Internal::AugmentHook<IAugmentableFile> can,
                         Internal::AugmentHook<IAugmentableFile> before,
                         Internal::AugmentHook<IAugmentableFile> after, auto routine) {
        return Internal::runAugmented(augmentables, can, before, after, list, argument, routine,
                                      [] {});
    };

    if (command == QLatin1String("cmdOpen")) {
        return run(&IAugmentableFile::canOpen, &IAugmentableFile::beforeOpen,
                   &IAugmentableFile::afterOpen, [&] { return type->open_routine(list, paths); });
    }
    if (command == QLatin1String("cmdSave") || command == QLatin1String("cmdSaveAs")) {
        int mode = SaveNormal;
        if (command == QLatin1String("cmdSaveAs")) {
            list = ItemUtils::getSelectedItemsHaving(list, fileMenusProperty, SaveAsMenu);
            mode = SaveAs;
        }
        return run(&IAugmentableFile::canSave, &IAugmentableFile::beforeSave,
                   &IAugmentableFile::afterSave,
                   [&] { return type->save_routine(list, paths, mode); });
    }
    if (command == QLatin1String("cmdClose")) {
        return run(&IAugmentableFile::canClose, &IAugmentableFile::beforeClose,
                   &IAugmentableFile::afterClose, [&] { return type->close_routine(list); });
    }
    if (command == QLatin1String("cmdClear")) {
        return run(&IAugmentableFile::canClear, &IAugmentableFile::beforeClear,
                   &IAugmentableFile::afterClear, [&] { return type->clear_routine(list); });
    }
    return false;
}

ItemTypeFile::ItemTypeFile(QObject *parent)
    : ItemTypeSerializable(parent)
    , d(std::make_unique<ItemTypeFilePrivate>(this))
{
    setIcon(lazyIcon(QStringLiteral(":/qelshared/images/16/script.svg")));
    setDefMenus(DefMenus::fromInt(0xAC));
    connect(d->fileHandler.mapper(), &QSignalMapper::mappedString, this,
            [this](const QString &command) { dispatch(command); });

    // File commands show for files only and enable themselves by the files' menus.
    const auto addCommand = [this](int order, const QString &text, const QString &icon,
                                   const QString &toolTip, const QString &statusTip,
                                   const QString &command, FileMenu flag) {
        auto *action = describeAction(new FileAction(flag, text, this), icon, toolTip, statusTip);
        d->fileHandler.hookupHandler(action, command);
        addMenuItem(action, order, fileMenusProperty, flag);
    };
    addCommand(81, tr("&Open..."), QStringLiteral(":/qelshared/images/16/noicon.svg"), tr("Open"),
               tr("Open from file"), QStringLiteral("cmdOpen"), OpenMenu);
    addCommand(82, tr("&Save _name_"), QStringLiteral(":/qelshared/images/16/save.svg"),
               tr("Save"), tr("Save to file"), QStringLiteral("cmdSave"), SaveMenu);
    addCommand(83, tr("Save _name_ &As..."), QString(), tr("Save As"),
               tr("Save this item to file with a different name"), QStringLiteral("cmdSaveAs"),
               SaveAsMenu);
    addCommand(84, tr("&Close _name_"), QString(), tr("Close"), tr("Close the selected item(s)"),
               QStringLiteral("cmdClose"), CloseMenu);
}

ItemTypeFile::~ItemTypeFile() = default;

bool ItemTypeFile::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

QString ItemTypeFile::getId() const
{
    return QString::fromLatin1(Iid::ITypeFile);
}

QString ItemTypeFile::getDescription() const
{
    return tr("File");
}

QString ItemTypeFile::getDefaultPrefix() const
{
    return tr("New File");
}

bool ItemTypeFile::open(const QList<ViewItem *> &items)
{
    return d->fileHandler.handleCommand(QStringLiteral("cmdOpen"), items, QStringList());
}

bool ItemTypeFile::open(ViewItem *item, const QString &path)
{
    return d->fileHandler.handleCommand(QStringLiteral("cmdOpen"), {item}, QStringList{path});
}

bool ItemTypeFile::save(const QList<ViewItem *> &items)
{
    return d->fileHandler.handleCommand(QStringLiteral("cmdSave"), items, QStringList());
}

bool ItemTypeFile::save(ViewItem *item, const QString &path)
{
    return d->fileHandler.handleCommand(QStringLiteral("cmdSave"), {item}, QStringList{path});
}

bool ItemTypeFile::close(const QList<ViewItem *> &items)
{
    return d->fileHandler.handleCommand(QStringLiteral("cmdClose"), items, QVariant());
}

bool ItemTypeFile::close(ViewItem *item)
{
    return close(QList<ViewItem *>{item});
}

bool ItemTypeFile::clear(const QList<ViewItem *> &items)
{
    return d->fileHandler.handleCommand(QStringLiteral("cmdClear"), items, QVariant());
}

bool ItemTypeFile::clear(ViewItem *item)
{
    return clear(QList<ViewItem *>{item});
}

bool ItemTypeFile::mapToFile(ViewItem *item) const
{
    return item && !item->getItemPath().isEmpty();
}

QString ItemTypeFile::existingFileFilter() const
{
    return filter();
}

bool ItemTypeFile::canOpenFile(const QString &path) const
{
    return canHandle(path);
}

ViewItem *ItemTypeFile::createItemFromFile(const QString &path)
{
    ViewItem *item = createItemInstance(QString(), nullptr);
    if (open(item, path))
        return item;
    delete item;
    return nullptr;
}

bool ItemTypeFile::sourceCodeControllable() const
{
    return true;
}

ItemTypeFile::FileMenus ItemTypeFile::fileMenus() const
{
    return d->fileMenus;
}

void ItemTypeFile::setFileMenus(FileMenus menus)
{
    d->fileMenus = menus;
}

uint ItemTypeFile::fileMenusValue() const
{
    return uint(d->fileMenus.toInt());
}

void ItemTypeFile::setFileMenusValue(uint menus)
{
    d->fileMenus = FileMenus::fromInt(int(menus));
}

bool ItemTypeFile::dispatch(const QString &command)
{
    if (FileActionHandler::isFileCommand(command))
        return d->fileHandler.handleCommand(command, {}, QVariant());
    return ItemTypeSerializable::dispatch(command);
}

ItemTypeFile::FileActionHandler *ItemTypeFile::fileHandler() const
{
    return &d->fileHandler;
}

bool ItemTypeFile::open_routine(const QList<ViewItem *> &items, const QStringList &paths)
{
    bool result = false;
    for (int i = 0; i < items.size(); ++i) {
        ViewItem *item = items.at(i);
        if (!item)
            break;
        QString path = pathOf(items, paths, i);
        if (path.isEmpty()) {
            path = Prompts::getOpenFileName(dialogParent(this), tr("Choose a file to open from"),
                                            QDir::homePath(), filter());
        }
        if (path.isEmpty() || !canHandle(path))
            continue;
        // A FIFO would block the open until some writer came; devices and sockets hold no
        // item either.
        QFile file(path);
        if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
            continue;
        // Deliberately the last answer: an earlier failure is hidden by a later success.
        result = deserialize(item, &file);
        if (result) {
            if (ItemData *data = item->getItemData()) {
                data->setLoaded(true);
                data->setDirty(false);
            }
            item->setItemPath(file.fileName());
        }
    }
    return result;
}

bool ItemTypeFile::save_routine(const QList<ViewItem *> &items, const QStringList &paths, int mode)
{
    bool saved = !items.isEmpty();
    for (int i = 0; i < items.size(); ++i) {
        ViewItem *item = items.at(i);
        saved = item && saveItem(item, pathOf(items, paths, i), mode) && saved;
    }
    return saved;
}

bool ItemTypeFile::saveItem(ViewItem *item, QString path, int mode)
{
    const bool ask = mode == SaveAs || (mode != SaveWithoutAsking && path.isEmpty());
    if (ask) {
        path = Prompts::getSaveFileName(dialogParent(this), tr("Choose a file to save to"),
                                        path.isEmpty() ? QDir::currentPath() : path, filter());
    }
    if (path.isEmpty())
        return false;
    if (!canHandle(path)) {
        const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
        path = (dot < 0 ? path : path.left(dot)) + defaultExtension();
        if (!canHandle(path))
            return false;
    }
    if (!Internal::saveFile(path, [&](QIODevice *device) { return serialize(item, device); }))
        return false;
    if (ItemData *data = item->getItemData())
        data->setDirty(false);
    item->setItemPath(path);
    return true;
}

bool ItemTypeFile::close_routine(const QList<ViewItem *> &items)
{
    for (ViewItem *item : items) {
        if (item)
            item->reset();
    }
    return true;
}

bool ItemTypeFile::clear_routine(const QList<ViewItem *> &items)
{
    for (ViewItem *item : items) {
        if (ItemData *data = item ? item->getItemData() : nullptr)
            data->reset();
    }
    return !items.isEmpty();
}

} // namespace Velmora::Framework
