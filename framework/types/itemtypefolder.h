#pragma once

#include "velmoraframework_global.h"
#include "types/itemtype.h"
#include "types/itypefolder.h"

#include <memory>

namespace Velmora::Framework {

class ItemTypeFolderPrivate;

// Base of the folder kinds that plug-ins contribute; each states its own id.
class VELMORA_FRAMEWORK_EXPORT ItemTypeFolder : public ItemType, public ITypeFolder
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::ITypeFolder)

public:
    explicit ItemTypeFolder(QObject *parent = nullptr);
    ~ItemTypeFolder() override;

    bool queryInterface(const char *iid, IBase **out) override;

    QString getDescription() const override;
    QString getDefaultPrefix() const override;
    // The open folder for an expanded item (state not zero), the closed one otherwise.
    QIcon getIcon(ViewItem *item, int state) override;

private:
    std::unique_ptr<ItemTypeFolderPrivate> const d;
};

} // namespace Velmora::Framework
