#pragma once

// Private parts of a node. A ViewItem extends the base's part rather than keeping its own,
// so that each node costs one allocation besides its QObject.

#include "model/itemdata.h"
#include "types/itemtype.h"

#include <QtCore/qpointer.h>
#include <QtCore/qstring.h>

namespace Velmora::Framework {

class ViewItemBasePrivate
{
public:
    QPointer<ItemType> type;
    QString itemName;
    QString itemPath;
    QPointer<ItemData> itemData;
    int itemValue = 0;
};

} // namespace Velmora::Framework
