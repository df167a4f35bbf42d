#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

#include <QtCore/qpoint.h>
#include <QtCore/qstring.h>
#include <QtGui/qicon.h>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora::Framework {

class ViewItem;

// Makes the small preview widgets shown for items. Item types keep factories under their
// name() and borrow them. Registration hands the typed pointer over, so the interface needs
// no identifier of its own.
class VELMORA_FRAMEWORK_EXPORT IPreviewerFactory : public virtual IBase
{
public:
    ~IPreviewerFactory() override = default;

    // The key under which an item type keeps this factory; also the text of its action.
    virtual QString name() const = 0;
    // Icon of the factory's action; may be null.
    virtual QIcon icon() const = 0;
    // Status tip of the factory's action; empty for none.
    virtual QString description() const = 0;

    // A previewer for item shown at `at` under parent; null when none can be made. The
    // factory disposes of it.
    virtual QWidget *createPreviewer(ViewItem *item, const QPoint &at, QWidget *parent) = 0;
    // Deletes item's previewer, if the factory keeps one.
    virtual void disposePreviewer(ViewItem *item) = 0;
};

} // namespace Velmora::Framework
