#include "types/itemtypeproject.h"

#include "core/lazyicon.h"
#include "core/typeregistrar.h"
#include "model/itemdata.h"
#include "model/viewitem.h"
#include "types/xmltree_p.h"

#include <QtCore/qiodevice.h>

namespace Velmora::Framework {

namespace {

namespace Xml = Internal::XmlName;

void serializeChildren(const ViewItem *parent, Internal::XmlWriter &writer)
{
    const int count = parent->getChildItemCount();
    for (int row = 0; row < count; ++row) {
        const ViewItem *child = parent->getChildItemAt(row);
        const ItemType *type = child ? child->getType() : nullptr;
        if (!type)
            continue;
        writer.startElement(Xml::item, {{Xml::typeId, type->getId()},
                                        {Xml::name, child->getItemName()},
                                        {Xml::path, child->getItemPath()}});
        serializeChildren(child, writer);
        writer.endElement();
    }
}

// An item element read from a project file, of a registered type.
struct ItemRecord
{
    QString typeId;
    QString name;
    std::vector<ItemRecord> children;
};

// Reads the item elements inside the reader's current element. Other elements, and items
// whose type id is empty or unknown, are skipped with everything inside them.
void readItems(Internal::XmlReader &reader, const TypeRegistrar &registrar,
               std::vector<ItemRecord> &items)
{
    while (reader.readNextChild()) {
        const QString id = reader.tag() == Xml::item ? reader.attribute(Xml::typeId) : QString();
        if (id.isEmpty() || !registrar.lookup(id)) {
            reader.skipElement();
            continue;
        }
        // The path is written for every item but deliberately not read: a loaded item has
        // no path until its own type sets one.
        ItemRecord &record = items.emplace_back(ItemRecord{id, reader.attribute(Xml::name), {}});
        readItems(reader, registrar, record.children);
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
    setIcon(lazyIcon(QStringLiteral(":/qelshared/images/16/project.svg")));
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
    Internal::XmlWriter writer(Xml::project);
    writer.startElement(Xml::project, {{Xml::name, project->getItemName()}});
    serializeChildren(project, writer);
    writer.endElement();
    return device->write(writer.bytes()) == writer.bytes().size();
}

bool ItemTypeProject::deserialize(ViewItem *project, QIODevice *device)
{
    TypeRegistrar *registrar = this->registrar();
    if (!project || !device || !registrar)
        return false;
    Internal::XmlReader reader(device, "ItemTypeProject::deserialize()");
    if (!reader.readRoot(Xml::project))
        return reader.finish(); // another root loads nothing and still succeeds
    const QString name = reader.rootName();
    std::vector<ItemRecord> items;
    readItems(reader, *registrar, items);
    // Nothing is touched unless the whole document reads.
    if (!reader.finish())
        return false;
    project->setItemName(name);

    // Depth first in document order, without recursion.
    struct Level
    {
        ViewItem *parent;
        const std::vector<ItemRecord> *records;
        std::size_t next;
    };
    std::vector<Level> levels{{project, &items, 0}};
    while (!levels.empty()) {
        Level &level = levels.back();
        if (level.next == level.records->size()) {
            levels.pop_back();
            continue;
        }
        const ItemRecord &record = level.records->at(level.next++);
        ViewItem *parent = level.parent;
        ViewItem *node = existingMandatoryChild(parent, record.typeId, record.name);
        if (!node) {
            node = registrar->createItem(record.typeId, record.name, parent);
            if (!adoptChild(parent, node))
                continue;
        }
        levels.push_back({node, &record.children, 0});
    }
    return true;
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
