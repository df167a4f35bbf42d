#include "types/itemtypesolution.h"

#include "core/typeregistrar.h"
#include "model/itemdata.h"
#include "model/viewitem.h"
#include "types/dialogaddnewproject.h"
#include "types/itemtypeproject.h"
#include "types/xmltree_p.h"

#include <QtCore/qdir.h>
#include <QtCore/qfiledevice.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qsignalmapper.h>
#include <QtGui/qaction.h>

namespace Velmora::Framework {

namespace {

const QString solutionTag = QStringLiteral("solution");
const QString projectTag = QStringLiteral("project");
const QString typeIdAttribute = QStringLiteral("typeid");
const QString nameAttribute = QStringLiteral("name");
const QString pathAttribute = QStringLiteral("path");

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

ItemTypeSolution::ItemTypeSolution(QObject *parent)
    : ItemTypeFile(parent)
    , m_extension(QStringLiteral("\\.sln-qel$"), QRegularExpression::CaseInsensitiveOption)
{
    setIcon(QIcon(QStringLiteral(":/qelshared/images/16/solution.svg")));
    setDefMenus(DefMenus());
    setFileMenus(FileMenus());

    GenericActionHandler *handler = genericHandler();
    const auto addCommand = [&](int order, const QString &text, const QString &icon,
                                const QString &toolTip, const QString &statusTip,
                                const QString &command) {
        auto *action = new QAction(QIcon(icon), text, this);
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
    return m_extension.match(path).hasMatch();
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
    Internal::XmlWriter writer(solutionTag);
    writer.startElement(solutionTag, {{nameAttribute, solution->getItemName()}});
    const QString base = baseDirectory(device);
    const int count = solution->getChildItemCount();
    for (int row = 0; row < count; ++row) {
        ViewItem *child = solution->getChildItemAt(row);
        ItemTypeProject *type = projectTypeOf(child);
        if (!type || !type->save(child, QString()))
            continue;
        writer.startElement(projectTag,
                            {{typeIdAttribute, type->getId()},
                             {nameAttribute, child->getItemName()},
                             {pathAttribute, solutionRelativePath(child->getItemPath(), base)}});
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
    Internal::XmlElement root;
    const Internal::RootReading reading =
        Internal::readRoot(device, "ItemTypeSolution::deserialize()", solutionTag, root);
    if (reading != Internal::RootReading::Read)
        return reading == Internal::RootReading::OtherRoot; // another root loads nothing
    solution->setItemName(Internal::rootName(root));
    for (const Internal::XmlElement &element : root.children) {
        if (element.tag != projectTag)
            continue;
        const QString typeId = element.attribute(typeIdAttribute);
        const QString path = element.attribute(pathAttribute);
        if (typeId.isEmpty())
            continue;
        const QString fullPath = path.isEmpty()
            ? QString()
            : QDir::cleanPath(QDir(base).absoluteFilePath(QDir::toNativeSeparators(path)));
        ViewItem *item = registrar->createItem(typeId, element.attribute(nameAttribute), solution);
        ItemTypeProject *type = projectTypeOf(item);
        if (type && type->open(item, fullPath))
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
    // The project service hears of the new project once the shell provides one.
    if (!projectType->newItemWizard(solution, item)) {
        delete item;
        return false;
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
