#include "ribbonpage.h"

#include "ribbongroup.h"

#include <QtWidgets/qboxlayout.h>

namespace Velmora::Ribdock {

class RibbonPagePrivate
{
public:
    QString title;
    QColor color;
    QHBoxLayout *layout = nullptr;
};

RibbonPage::RibbonPage(const QString &title, QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<RibbonPagePrivate>())
{
    d->title = title;
    d->layout = new QHBoxLayout(this);
    d->layout->setContentsMargins(2, 0, 2, 0);
    d->layout->setSpacing(0);
    d->layout->addStretch(1);
}

RibbonPage::~RibbonPage() = default;

QString RibbonPage::title() const
{
    return d->title;
}

void RibbonPage::setTitle(const QString &title)
{
    if (title == d->title)
        return;
    d->title = title;
    emit titleChanged(title);
}

bool RibbonPage::isContextual() const
{
    return d->color.isValid();
}

QColor RibbonPage::contextColor() const
{
    return d->color;
}

void RibbonPage::setContextColor(const QColor &color)
{
    if (color == d->color)
        return;
    d->color = color;
    emit contextColorChanged(color);
}

RibbonGroup *RibbonPage::addGroup(const QString &title)
{
    auto *group = new RibbonGroup(title, this);
    // Before the trailing stretch.
    d->layout->insertWidget(d->layout->count() - 1, group);
    return group;
}

QList<RibbonGroup *> RibbonPage::groups() const
{
    // Children keep their creation order, and a deleted group drops out by itself.
    return findChildren<RibbonGroup *>(Qt::FindDirectChildrenOnly);
}

} // namespace Velmora::Ribdock
