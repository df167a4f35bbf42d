#include "types/itemtypesolution.h"

#include "core/applicationhooks.h"
#include "core/hubinterfaces.h"
#include "core/lazyicon.h"
#include "core/logging_p.h"
#include "core/typeregistrar.h"
#include "model/itemdata.h"
#include "model/viewitem.h"
#include "types/dialogaddnewproject.h"
#include "types/itemtypeproject.h"
#include "types/xmltree_p.h"

#include <QtCore/qdir.h>
#include <QtCore/qfiledevice.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qregularexpression.h>
#include <QtCore/qsignalmapper.h>
#include <QtGui/qaction.h>

namespace Velmora::Framework {

namespace {

namespace Xml = Internal::XmlName;

// Projects a solution may list: each is opened and read in turn.
constexpr int maxProjects = 4096;

ItemTypeProject *projectTypeOf(const ViewItem *item)
{
    return item ? qobject_cast<ItemTypeProject *>(item->getType()) : nullptr;
}

// The cleaned folder of the file behind device (read directly, or saved through a QSaveFile);
// empty for any other device.
QString baseDirectory(QIODevice *device)
{
    const auto *file = qobject_cast<QFileDevice *>(device);
    return file ? QDir::cleanPath(QFileInfo(file->fileName()).path()) : QString();
}

} // namespace

class ItemTypeSolutionPrivate
{
public:
    // Compiled once: every open and save asks.
    QRegularExpression extension{QStringLiteral("\\.sln-qel$"),
                                 QRegularExpression::CaseInsensitiveOption};
};

ItemTypeSolution::ItemTypeSolution(QObject *parent)
    : ItemTypeFile(parent)
    , d(std::make_unique<ItemTypeSolutionPrivate>())
{
    setIcon(lazyIcon(QStringLiteral(":/qelshared/images/16/solution.svg")));
    setDefMenus(DefMenus());
    setFileMenus(FileMenus());

    GenericActionHandler *handler = genericHandler();
    const auto addCommand = [&](int order, const QString &text, const QString &icon,
                                const QString &toolTip, const QString &statusTip,
                                const QString &command) {
        auto *action = new QAction(lazyIcon(icon), text, this);
        action->setToolTip(toolTip);
        action->setStatusTip(statusTip);
        handler->hookupHandler(action, command);
        addMenuItem(action, order);
    };
    addMenuSeperator(16);
    addCommand(17, tr("&New Project..."), QStringLiteral(":/qelshared/images/16/newProject.svg"),
               tr("New Project"), tr("Add a new project"), QStringLiteral("cmdAddNew"));
    addCommand(18, tr("&Existing Project..."),
               QStringLiteral(":/qelshared/images/16/openProject.svg"), tr("Existing Project"),
               tr("Open an existing project"), QStringLiteral("cmdAddExisting"));
    addChildType(QString::fromLatin1(Iid::ITypeProject), true);
}

ItemTypeSolution::~ItemTypeSolution() = default;

bool ItemTypeSolution::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

QString ItemTypeSolution::getId() const
{
    return QString::fromLatin1(Iid::ITypeSolution);
}

QString ItemTypeSolution::getDescription() const
{
    return tr("Solution");
}

QString ItemTypeSolution::getDefaultPrefix() const
{
    return getDescription();
}

QString ItemTypeSolution::getDefaultName() const
{
    return QStringLiteral("default");
}

QString ItemTypeSolution::composeItemDispName(ViewItemBase *) const
{
    return tr("Solution");
}

ItemData *ItemTypeSolution::createDataInstance(QObject *parent)
{
    return new ItemDataSolution(parent);
}

QString ItemTypeSolution::defaultExtension() const
{
    return QStringLiteral(".sln-qel");
}

QString ItemTypeSolution::filter() const
{
    return tr("Solution Files (*.sln-qel)");
}

bool ItemTypeSolution::canHandle(const QString &path) const
{
    return d->extension.match(path).hasMatch();
}

QList<ItemType *> ItemTypeSolution::addCandidates(ViewItem *parent) const
{
    QList<ItemType *> candidates = childTypes(parent);
    candidates.removeIf([](ItemType *type) {
        const auto *project = interfaceCast<ITypeProject>(type);
        return project && !project->isPrincipal();
    });
    return candidates;
}

QString ItemTypeSolution::solutionRelativePath(const QString &path, const QString &base)
{
    if (path.isEmpty())
        return QString();
    const QFileInfo info(path);
    const QString folder = info.path();
    QString relative = folder;
    // Every occurrence goes, also one in the middle of the folder: kept on purpose.
    if (!base.isEmpty())
        relative.remove(base, Qt::CaseInsensitive);
    if (relative != folder)
        relative.prepend(QLatin1Char('.'));
    return QDir::fromNativeSeparators(relative + QDir::separator() + info.fileName());
}

bool ItemTypeSolution::serialize(ViewItem *solution, QIODevice *device)
{
    if (!solution || !device)
        return false;
    Internal::XmlWriter writer(Xml::solution);
    writer.startElement(Xml::solution, {{Xml::name, solution->getItemName()}});
    const QString base = baseDirectory(device);
    const int count = solution->getChildItemCount();
    for (int row = 0; row < count; ++row) {
        ViewItem *child = solution->getChildItemAt(row);
        ItemTypeProject *type = projectTypeOf(child);
        if (!type || !type->save(child, QString()))
            continue;
        writer.startElement(Xml::project,
                            {{Xml::typeId, type->getId()},
                             {Xml::name, child->getItemName()},
                             {Xml::path, solutionRelativePath(child->getItemPath(), base)}});
        writer.endElement();
    }
    writer.endElement();
    return device->write(writer.bytes()) == writer.bytes().size();
}

bool ItemTypeSolution::deserialize(ViewItem *solution, QIODevice *device)
{
    TypeRegistrar *registrar = this->registrar();
    if (!solution || !device || !registrar)
        return false;
    const QString base = baseDirectory(device);
    Internal::XmlReader reader(device, "ItemTypeSolution::deserialize()");
    if (!reader.readRoot(Xml::solution))
        return reader.finish(); // another root loads nothing and still succeeds
    const QString name = reader.rootName();
    // Project elements of registered project types, with their full paths; their contents
    // are never read.
    struct Entry
    {
        QString typeId;
        QString name;
        QString path;
    };
    std::vector<Entry> entries;
    const QDir baseDir(base);
    while (reader.readNextChild()) {
        const QString typeId =
            reader.tag() == Xml::project ? reader.attribute(Xml::typeId) : QString();
        if (!typeId.isEmpty() && qobject_cast<ItemTypeProject *>(registrar->lookup(typeId))) {
            const QString path = reader.attribute(Xml::path);
            const QString fullPath = path.isEmpty()
                ? QString()
                : QDir::cleanPath(baseDir.absoluteFilePath(QDir::toNativeSeparators(path)));
            entries.push_back({typeId, reader.attribute(Xml::name), fullPath});
            if (entries.size() > std::size_t(maxProjects)) {
                qCWarning(Internal::lcTypes,
                          "ItemTypeSolution::deserialize(): the solution lists more than %d "
                          "projects; nothing is loaded",
                          maxProjects);
                return false;
            }
        }
        reader.skipElement();
    }
    // Nothing is touched unless the whole document reads.
    if (!reader.finish())
        return false;
    solution->setItemName(name);
    for (const Entry &entry : entries) {
        ViewItem *item = registrar->createItem(entry.typeId, entry.name, solution);
        ItemTypeProject *type = projectTypeOf(item);
        if (type && type->open(item, entry.path))
            adoptChild(solution, item);
        else
            delete item;
    }
    solution->refresh(true);
    return true;
}

QDialog *ItemTypeSolution::createAddNewDialog(ViewItem *parent, QList<ItemType *> candidates,
                                              QWidget *dialogParent)
{
    return new DialogAddNewProject(parent, candidates, dialogParent);
}

bool ItemTypeSolution::performAddNew(ViewItem *solution, QDialog *dialog)
{
    const auto *addNew = qobject_cast<DialogAddNewProject *>(dialog);
    ItemType *selected = addNew ? addNew->selectedType() : nullptr;
    auto *projectType = qobject_cast<ItemTypeProject *>(selected);
    const TypeRegistrar *registrar = this->registrar();
    const QString name = addNew ? addNew->itemName() : QString();
    if (!projectType || !registrar || !solution || name.isEmpty())
        return false;
    ViewItem *item = registrar->createItem(projectType->getId(), name, solution);
    if (!item)
        return false;
    const QString location = addNew->location();
    if (!location.isEmpty()) {
        QDir::setCurrent(location);
        QString path = QStringLiteral("%1/%2").arg(location, name);
        if (!canHandle(path))
            path += projectType->defaultExtension();
        item->setItemPath(path);
    }
    if (auto *project = interfaceCast<IProject>(ApplicationHooks::facilities()))
        project->setProject(name, location, solution->getChildItemCount());
    if (!projectType->newItemWizard(solution, item)) {
        delete item;
        return false;
    }
    return true;
}

bool ItemTypeSolution::performAddExisting(ViewItem *solution, QList<ItemType *> candidates,
                                          const QStringList &paths)
{
    const int before = solution ? solution->getChildItemCount() : 0;
    if (!ItemTypeFile::performAddExisting(solution, candidates, paths))
        return false;
    // The project service hears of every project that came in.
    if (auto *project = interfaceCast<IProject>(ApplicationHooks::facilities())) {
        for (int row = before; row < solution->getChildItemCount(); ++row) {
            const QFileInfo file(solution->getChildItemAt(row)->getItemPath());
            project->setProject(file.baseName(), file.filePath(), row);
        }
    }
    return true;
}

bool ItemTypeSolution::close_routine(const QList<ViewItem *> &items)
{
    ViewItem *solution = items.value(0);
    if (!solution)
        return true;
    for (int row = solution->getChildItemCount() - 1; row >= 0; --row) {
        ViewItem *child = solution->getChildItemAt(row);
        ItemTypeProject *type = projectTypeOf(child);
        if (type && !type->remove(child, true))
            return false;
    }
    return ItemTypeFile::close_routine(items);
}

} // namespace Velmora::Framework
