#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

#include <QtCore/qlist.h>
#include <QtCore/qstring.h>

namespace Velmora::Framework {

class ViewItem;

// Item types backed by files. Each operation runs its command through the type's file
// handler, so the file augmentables registered for the type may veto it and are told after.
class VELMORA_FRAMEWORK_EXPORT ITypeFile : public virtual IBase
{
public:
    virtual bool open(const QList<ViewItem *> &items) = 0;
    // An empty path asks the user.
    virtual bool open(ViewItem *item, const QString &path) = 0;
    virtual bool save(const QList<ViewItem *> &items) = 0;
    // An empty path saves to the item's own path, asking when it has none.
    virtual bool save(ViewItem *item, const QString &path) = 0;
    virtual bool close(const QList<ViewItem *> &items) = 0;
    virtual bool close(ViewItem *item) = 0;
    virtual bool clear(const QList<ViewItem *> &items) = 0;
    virtual bool clear(ViewItem *item) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::ITypeFile, VELMORA_IID_ITYPEFILE)
