#pragma once

#include "velmoraframework_global.h"
#include "types/itemtypefile.h"
#include "types/itypeproject.h"

namespace Velmora::Framework {

// Base of the project kinds that plug-ins contribute. It reads and writes the project file
// for all of them: an XML "project" element named after the project, holding one "item"
// element per child (type id, name and path), nested as the tree is. Each kind states its
// id, extension, filter and which paths it handles.
class VELMORA_FRAMEWORK_EXPORT ItemTypeProject : public ItemTypeFile, public ITypeProject
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::ITypeProject)

public:
    explicit ItemTypeProject(QObject *parent = nullptr);
    ~ItemTypeProject() override;

    bool queryInterface(const char *iid, IBase **out) override;

    QString getId() const override = 0;
    bool isPrincipal() const override;
    bool newItemWizard(ViewItem *parent, ViewItem *item) override;
    ItemData *createDataInstance(QObject *parent) override;

    bool serialize(ViewItem *project, QIODevice *device) override;
    // Items are read without their paths (the "path" attributes are written, not applied):
    // a project type whose items map to files must set each loaded item's path itself,
    // typically from the device's file name and the item's chain of folders, or saving the
    // project loses where its files are.
    // The result is whether the document parsed. A document whose root is not "project"
    // loads nothing and still succeeds; one beyond the reader's limits (size, nesting,
    // attributes, entity expansion, value length; see the README) is refused with a warning.
    // Items whose type id is empty or unknown are skipped with everything inside them, and an
    // item naming a mandatory child that already exists is read into that child.
    bool deserialize(ViewItem *project, QIODevice *device) override;

protected:
    // Both dispose of every child; clearing then restores the mandatory children.
    bool close_routine(const QList<ViewItem *> &items) override;
    bool clear_routine(const QList<ViewItem *> &items) override;
};

} // namespace Velmora::Framework
