#pragma once

#include "velmoraframework_global.h"
#include "core/iaugmentablefile.h"

#include <QtCore/qobject.h>

namespace Velmora::Framework {

// Base for file augmentables that override only the hooks they need: every hook answers true.
class VELMORA_FRAMEWORK_EXPORT DefaultFileAugmentable
    : public QObject, public IAugmentableFile, public virtual IBase
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IAugmentableFile Velmora::Framework::IBase)

public:
    explicit DefaultFileAugmentable(QObject *parent = nullptr);
    ~DefaultFileAugmentable() override;

    bool queryInterface(const char *iid, IBase **out) override;

    bool canOpen(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeOpen(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterOpen(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool canSave(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeSave(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterSave(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool canClose(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeClose(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterClose(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool canClear(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeClear(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterClear(const QList<ViewItem *> &items, const QVariant &argument) override;
};

} // namespace Velmora::Framework
