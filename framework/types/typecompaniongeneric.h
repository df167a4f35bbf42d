#pragma once

#include "velmoraframework_global.h"
#include "core/defaultgenericaugmentable.h"

namespace Velmora::Framework {

// Keeps generic operations tidy: projects and the solution become dirty when their content
// changes, adding an existing file follows the current directory to it, and a removed item
// is closed first.
class VELMORA_FRAMEWORK_EXPORT TypeCompanionGeneric : public DefaultGenericAugmentable
{
    Q_OBJECT

public:
    explicit TypeCompanionGeneric(QObject *parent = nullptr);
    ~TypeCompanionGeneric() override;

    bool afterAddNew(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterAddExisting(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterRename(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterCopy(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterCut(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeRemove(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterPaste(const QList<ViewItem *> &items, const QVariant &argument) override;

    // Marks the project and solution items among items dirty. Always true.
    static bool mark_dirty(const QList<ViewItem *> &items, const QVariant &argument);
};

} // namespace Velmora::Framework
