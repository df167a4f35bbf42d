#pragma once

#include "velmoraframework_global.h"
#include "types/itemtype.h"
#include "types/itypeserializable.h"

namespace Velmora::Framework {

// Base of the item types that load and save. The base reads and writes nothing.
class VELMORA_FRAMEWORK_EXPORT ItemTypeSerializable : public ItemType, public ITypeSerializable
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::ITypeSerializable)

public:
    explicit ItemTypeSerializable(QObject *parent = nullptr);
    ~ItemTypeSerializable() override;

    bool queryInterface(const char *iid, IBase **out) override;

    bool serialize(ViewItem *item, QIODevice *device) override;
    bool deserialize(ViewItem *item, QIODevice *device) override;
};

} // namespace Velmora::Framework
