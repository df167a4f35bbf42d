#pragma once

#include "velmoraframework_global.h"
#include "types/dialogaddnew.h"

#include <memory>

namespace Velmora::Framework {

class DialogAddNewProjectPrivate;

// Asks for the type, name and location of a new project under the solution. The location
// can be chosen only for types with the LocationChoosable attribute.
class VELMORA_FRAMEWORK_EXPORT DialogAddNewProject : public DialogAddNewBase
{
    Q_OBJECT

public:
    // The candidate types are borrowed.
    DialogAddNewProject(ViewItem *solutionItem, const QList<ItemType *> &candidates,
                        QWidget *parent = nullptr);
    ~DialogAddNewProject() override;

    // The location field's text, as entered or browsed; empty when none was given.
    QString location() const;
    // As typed into the location field.
    void setLocation(const QString &location);

protected:
    void typeChanged(ItemType *type) override;

private:
    void browse();

    std::unique_ptr<DialogAddNewProjectPrivate> const d;
};

} // namespace Velmora::Framework
