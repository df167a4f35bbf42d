#pragma once

#include "velmoraframework_global.h"
#include "types/itemtypefile.h"
#include "types/itypesolution.h"

#include <memory>

namespace Velmora::Framework {

class ItemTypeSolutionPrivate;

// The root of the tree, whose children are projects. It reads and writes the solution file:
// an XML "solution" element named after the solution, with one "project" element per project
// (type id, name, and the project file's path relative to the solution's folder).
class VELMORA_FRAMEWORK_EXPORT ItemTypeSolution : public ItemTypeFile, public ITypeSolution
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::ITypeSolution)

public:
    explicit ItemTypeSolution(QObject *parent = nullptr);
    ~ItemTypeSolution() override;

    bool queryInterface(const char *iid, IBase **out) override;

    QString getId() const override;
    QString getDescription() const override;
    QString getDefaultPrefix() const override;
    QString getDefaultName() const override;
    // Always "Solution": the tree shows no solution's own name.
    QString composeItemDispName(ViewItemBase *item) const override;
    ItemData *createDataInstance(QObject *parent) override;
    QString defaultExtension() const override;
    QString filter() const override;
    bool canHandle(const QString &path) const override;
    // The child types without the project types that keep out of the new-project dialog.
    QList<ItemType *> addCandidates(ViewItem *parent) const override;

    // Saves every project first; a project whose save fails is left out of the file.
    bool serialize(ViewItem *solution, QIODevice *device) override;
    // Opens every listed project and appends those that open. The result is whether the
    // document parsed; a root other than "solution" loads nothing and still succeeds, and a
    // document beyond the reader's limits is refused with a warning, as for projects.
    bool deserialize(ViewItem *solution, QIODevice *device) override;

    // How a project path is written into a solution file in the folder base: "./" and the
    // rest for a project below base, the absolute path otherwise.
    static QString solutionRelativePath(const QString &path, const QString &base);

protected:
    QDialog *createAddNewDialog(ViewItem *parent, QList<ItemType *> candidates,
                                QWidget *dialogParent) override;
    bool performAddNew(ViewItem *solution, QDialog *dialog) override;
    bool performAddExisting(ViewItem *solution, QList<ItemType *> candidates,
                            const QStringList &paths) override;
    // Removes the projects from the last to the first; the first refusal fails the close.
    bool close_routine(const QList<ViewItem *> &items) override;

private:
    std::unique_ptr<ItemTypeSolutionPrivate> const d;
};

} // namespace Velmora::Framework
