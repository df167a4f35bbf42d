#include "ribbonsubgroup.h"

#include "ribbonbutton_p.h"
#include "ribdocklog_p.h"

#include <QtWidgets/qgridlayout.h>

namespace Velmora::Ribdock {

using Internal::RibbonButton;

class RibbonSubgroupPrivate
{
public:
    QGridLayout *layout = nullptr;
    QList<QWidget *> items;
    int rows = 3;

    void place(int index)
    {
        layout->addWidget(items.at(index), index % rows, index / rows, Qt::AlignLeft | Qt::AlignTop);
    }
};

RibbonSubgroup::RibbonSubgroup(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<RibbonSubgroupPrivate>())
{
    d->layout = new QGridLayout(this);
    d->layout->setContentsMargins(0, 0, 0, 0);
    d->layout->setHorizontalSpacing(2);
    d->layout->setVerticalSpacing(2);
    d->layout->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

RibbonSubgroup::~RibbonSubgroup() = default;

QToolButton *RibbonSubgroup::addSmallAction(QAction *action, QToolButton::ToolButtonPopupMode mode)
{
    if (!action) {
        qCWarning(Internal::lcRibdock, "RibbonSubgroup::addSmallAction(): null action");
        return nullptr;
    }
    auto *button = new RibbonButton(action, RibbonButton::Size::Small, mode, this);
    addWidget(button);
    return button;
}

void RibbonSubgroup::addWidget(QWidget *widget)
{
    if (!widget) {
        qCWarning(Internal::lcRibdock, "RibbonSubgroup::addWidget(): null widget");
        return;
    }
    widget->setParent(this);
    d->items.append(widget);
    d->place(d->items.size() - 1);
    widget->show();
}

int RibbonSubgroup::rowCount() const
{
    return d->rows;
}

void RibbonSubgroup::setRowCount(int rows)
{
    if (rows < 1 || rows == d->rows)
        return;
    d->rows = rows;
    for (QWidget *item : std::as_const(d->items))
        d->layout->removeWidget(item);
    for (int i = 0; i < d->items.size(); ++i)
        d->place(i);
}

} // namespace Velmora::Ribdock
