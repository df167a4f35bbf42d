#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

#include <QtCore/qlist.h>
#include <QtCore/qvariant.h>

namespace Velmora::Framework {

class ViewItem;

// Hooks around the seven generic item operations, asked and told as IAugmentableFile's are.
// Callers reach the hooks by name; the slot order is fixed for plug-ins built elsewhere.
class VELMORA_FRAMEWORK_EXPORT IAugmentableGeneric : public virtual IBase
{
public:
    virtual bool canAddNew(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforeAddNew(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterAddNew(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool canAddExisting(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforeAddExisting(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterAddExisting(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool canRename(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforeRename(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterRename(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool canCopy(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforeCopy(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterCopy(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool canCut(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforeCut(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterCut(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool canRemove(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforeRemove(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterRemove(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool canPaste(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool beforePaste(const QList<ViewItem *> &items, const QVariant &argument) = 0;
    virtual bool afterPaste(const QList<ViewItem *> &items, const QVariant &argument) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IAugmentableGeneric, VELMORA_IID_IAUGMENTABLEGENERIC)
