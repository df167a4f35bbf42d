#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

#include <QtCore/qlist.h>
#include <QtCore/qstring.h>

namespace Velmora::Framework {

class ViewItem;

// The seven generic item operations. Each runs its command ("cmdAddNew", ...) through the
// type's handler, so the augmentables registered for the type may veto it and are told after.
class VELMORA_FRAMEWORK_EXPORT ITypeGeneric : public virtual IBase
{
public:
    // Both are asked of the parent's type, which decides what it accepts and creates the
    // child through the type registrar.
    virtual bool addNew(ViewItem *parent) = 0;
    virtual bool addExisting(ViewItem *parent, const QString &path) = 0;
    virtual bool cut(const QList<ViewItem *> &items) = 0;
    virtual bool cut(ViewItem *item) = 0;
    virtual bool copy(const QList<ViewItem *> &items) = 0;
    virtual bool copy(ViewItem *item) = 0;
    virtual bool paste(ViewItem *target) = 0;
    // Removed items are deleted once every augmentable was told.
    virtual bool remove(const QList<ViewItem *> &items, bool flag) = 0;
    virtual bool remove(ViewItem *item, bool flag) = 0;
    // Starts editing the item's name in the project view and answers at once; the rename
    // itself happens when the edit ends, in ViewModel::setData, through doNameChange() and
    // nameChanged() of the item's type. Rename programmatically with setData.
    virtual bool rename(ViewItem *item, const QString &name) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::ITypeGeneric, VELMORA_IID_ITYPEGENERIC)
