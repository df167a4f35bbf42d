#include "types/itemtypeproject.h"

#include "core/typeregistrar.h"
#include "model/itemdata.h"
#include "model/viewitem.h"
#include "types/xmltree_p.h"

#include <QtCore/qiodevice.h>

namespace Velmora::Framework {

namespace {

const QString projectTag = QStringLiteral("project");
const QString itemTag = QStringLiteral("item");
const QString typeIdAttribute = QStringLiteral("typeid");
const QString nameAttribute = QStringLiteral("name");
const QString pathAttribute = QStringLiteral("path");

void serializeChildren(const ViewItem *item, Internal::XmlWriter &writer)
{
    const int count = item->getChildItemCount();
    for (int row = 0; row < count; ++row) {
        const ViewItem *child = item->getChildItemAt(row);
        const ItemType *type = child ? child->getType() : nullptr;
        if (!type)
            continue;
        writer.startElement(itemTag, {{typeIdAttribute, type->getId()},
                                      {nameAttribute, child->getItemName()},
                                      {pathAttribute, child->getItemPath()}});
        serializeChildren(child, writer);
        writer.endElement();
    }
}

// The mandatory child of parent with that type and name, made when parent was created.
ViewItem *existingMandatoryChild(ViewItem *parent, const QString &typeId, const QString &name)
{
    const ItemType *parentType = parent->getType();
    if (!parentType || !parentType->isMandatoryChild(typeId, name))
        return nullptr;
    const int count = parent->getChildItemCount();
    for (int row = 0; row < count; ++row) {
        ViewItem *child = parent->getChildItemAt(row);
        const ItemType *type = child->getType();
        if (type && type->getId() == typeId && child->getItemName() == name)
            return child;
    }
    return nullptr;
}

} // namespace

ItemTypeProject::ItemTypeProject(QObject *parent)
    : ItemTypeFile(parent)
{
    setIcon(QIcon(QStringLiteral(":/qelshared/images/16/project.svg")));
    setDefMenus(DefMenus::fromInt(0xF3));
    setFileMenus(FileMenus::fromInt(6));
}

ItemTypeProject::~ItemTypeProject() = default;

bool ItemTypeProject::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

bool ItemTypeProject::isPrincipal() const
{
    return true;
}

bool ItemTypeProject::newItemWizard(ViewItem *parent, ViewItem *item)
{
    if (!parent || !item)
        return false;
    parent->addChildItem(item);
    return true;
}

ItemData *ItemTypeProject::createDataInstance(QObject *parent)
{
    return new ItemDataProject(parent);
}

bool ItemTypeProject::serialize(ViewItem *project, QIODevice *device)
{
    if (!project || !device)
        return false;
    Internal::XmlWriter writer(projectTag);
    writer.startElement(projectTag, {{nameAttribute, project->getItemName()}});
    serializeChildren(project, writer);
    writer.endElement();
    return device->write(writer.bytes()) == writer.bytes().size();
}

bool ItemTypeProject::deserialize(ViewItem *project, QIODevice *device)
{
    TypeRegistrar *registrar = this->registrar();
    if (!project || !device || !registrar)
        return false;
    Internal::XmlElement root;
    const Internal::RootReading reading =
        Internal::readRoot(device, "ItemTypeProject::deserialize()", projectTag, root);
    if (reading != Internal::RootReading::Read)
        return reading == Internal::RootReading::OtherRoot; // another root loads nothing
    project->setItemName(Internal::rootName(root));
    deserializeChildren(project, root, registrar);
    return true;
}

void ItemTypeProject::deserializeChildren(ViewItem *item, const Internal::XmlElement &element,
                                          TypeRegistrar *registrar)
{
    for (const Internal::XmlElement &child : element.children) {
        if (child.tag != itemTag)
            continue;
        const QString typeId = child.attribute(typeIdAttribute);
        if (typeId.isEmpty())
            continue;
        const QString name = child.attribute(nameAttribute);
        // The path is written for every item but deliberately not applied: a loaded item has
        // no path until its own type sets one.
        ViewItem *node = existingMandatoryChild(item, typeId, name);
        if (!node) {
            node = registrar->createItem(typeId, name, item);
            if (!node)
                continue;
            item->addChildItem(node);
            if (node->getParentItem() != item) {
                delete node; // refused by item's type
                continue;
            }
        }
        deserializeChildren(node, child, registrar);
    }
}

bool ItemTypeProject::close_routine(const QList<ViewItem *> &items)
{
    if (items.isEmpty())
        return false;
    for (ViewItem *item : items) {
        if (item)
            item->removeAndDisposeAllChildItems();
    }
    return ItemTypeFile::close_routine(items);
}

bool ItemTypeProject::clear_routine(const QList<ViewItem *> &items)
{
    if (items.isEmpty())
        return false;
    for (ViewItem *item : items) {
        if (!item)
            continue;
        item->removeAndDisposeAllChildItems();
        createItemMandatoryChildren(item);
    }
    return ItemTypeFile::clear_routine(items);
}

} // namespace Velmora::Framework
