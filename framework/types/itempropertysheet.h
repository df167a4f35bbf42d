#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qobject.h>
#include <QtCore/qpointer.h>

namespace Velmora::Framework {

class ItemType;

// What the property window needs to show the items of one type. A type makes one sheet, for
// the first item it creates, and shares it with all its items.
class VELMORA_FRAMEWORK_EXPORT ItemPropertySheet : public QObject
{
    Q_OBJECT

public:
    explicit ItemPropertySheet(ItemType *type);
    ~ItemPropertySheet() override;

    // Null once the type is gone.
    ItemType *type() const;

private:
    QPointer<ItemType> m_type;
};

} // namespace Velmora::Framework
