#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

#include <QtCore/qlist.h>
#include <QtCore/qvariant.h>

namespace Velmora::Framework {

class ViewItem;

// Hooks around the file operations of an item type. For each operation every registered
// augmentable is asked whether it can, told before, and told after; a false answer to a
// can- or before-call stops the operation.
class VELMORA_FRAMEWORK_EXPORT IAugmentableFile : public virtual IBase
{
public:
    virtual bool canOpen(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforeOpen(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterOpen(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool canSave(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforeSave(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterSave(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool canClose(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforeClose(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterClose(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool canClear(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforeClear(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterClear(const QList<ViewItem *> &items, const QVariant &argument) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IAugmentableFile, VELMORA_IID_IAUGMENTABLEFILE)
