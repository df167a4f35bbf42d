#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace Velmora::Framework {

class ViewItem;

// Item types that write an item to a device and read it back.
class VELMORA_FRAMEWORK_EXPORT ITypeSerializable : public virtual IBase
{
public:
    virtual bool serialize(ViewItem *item, QIODevice *device) = 0;
    virtual bool deserialize(ViewItem *item, QIODevice *device) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::ITypeSerializable, VELMORA_IID_ITYPESERIALIZABLE)
