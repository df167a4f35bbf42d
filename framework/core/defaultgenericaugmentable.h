#pragma once

#include "velmoraframework_global.h"
#include "core/iaugmentablegeneric.h"

#include <QtCore/qobject.h>

namespace Velmora::Framework {

// Base for generic augmentables that override only the hooks they need: every hook answers
// true.
class VELMORA_FRAMEWORK_EXPORT DefaultGenericAugmentable
    : public QObject, public IAugmentableGeneric, public virtual IBase
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IAugmentableGeneric Velmora::Framework::IBase)

public:
    explicit DefaultGenericAugmentable(QObject *parent = nullptr);
    ~DefaultGenericAugmentable() override;

    bool queryInterface(const char *iid, IBase **out) override;

    bool canAddNew(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeAddNew(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterAddNew(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool canAddExisting(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeAddExisting(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterAddExisting(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool canRename(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeRename(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterRename(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool canCopy(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeCopy(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterCopy(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool canCut(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeCut(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterCut(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool canRemove(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeRemove(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterRemove(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool canPaste(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforePaste(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterPaste(const QList<ViewItem *> &items, const QVariant &argument) override;
};

} // namespace Velmora::Framework
