#pragma once

#include "velmoraframework_global.h"
#include "core/iavailable.h"

#include <QtWidgets/qmenu.h>

namespace Velmora::Framework {

// A submenu of item commands that enables itself for the current selection, as ViewAction
// does; an empty selection always disables it.
class VELMORA_FRAMEWORK_EXPORT ViewMenu : public QMenu, public IAvailable
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IAvailable)

public:
    ViewMenu(const QString &title, QWidget *parent);
    explicit ViewMenu(QWidget *parent);

    bool evaluateAvailability(const ViewItem *item,
                              const QList<ViewItem *> &selection) const override;
    bool evaluateState(const ViewItem *item, const QList<ViewItem *> &selection) override;

protected:
    virtual bool isEnabled(const ViewItem *item, const QList<ViewItem *> &selection) const;
};

} // namespace Velmora::Framework
