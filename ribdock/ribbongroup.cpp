#include "ribbongroup.h"

#include "ribbonbutton_p.h"
#include "ribbongallery.h"
#include "ribbonsubgroup.h"
#include "ribdocklog_p.h"

#include <QtGui/qpainter.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qlabel.h>

namespace Velmora::Ribdock {

using Internal::RibbonButton;

class RibbonGroupPrivate
{
public:
    QHBoxLayout *content = nullptr;
    QLabel *title = nullptr;
    // The column that small buttons fill; any other item closes it.
    RibbonSubgroup *smallColumn = nullptr;
};

RibbonGroup::RibbonGroup(const QString &title, QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<RibbonGroupPrivate>())
{
    auto *layout = new QVBoxLayout(this);
    // Room on the right for the separator line that paintEvent draws.
    layout->setContentsMargins(4, 3, 6, 2);
    layout->setSpacing(2);
    d->content = new QHBoxLayout;
    d->content->setContentsMargins(0, 0, 0, 0);
    d->content->setSpacing(2);
    d->content->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addLayout(d->content, 1);
    d->title = new QLabel(title, this);
    d->title->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    d->title->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(d->title);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

RibbonGroup::~RibbonGroup() = default;

QString RibbonGroup::title() const
{
    return d->title->text();
}

void RibbonGroup::setTitle(const QString &title)
{
    if (title == d->title->text())
        return;
    d->title->setText(title);
    emit titleChanged(title);
}

QToolButton *RibbonGroup::addLargeAction(QAction *action, QToolButton::ToolButtonPopupMode mode)
{
    if (!action) {
        qCWarning(Internal::lcRibdock, "RibbonGroup::addLargeAction(): null action");
        return nullptr;
    }
    auto *button = new RibbonButton(action, RibbonButton::Size::Large, mode, this);
    addWidget(button);
    return button;
}

QToolButton *RibbonGroup::addSmallAction(QAction *action, QToolButton::ToolButtonPopupMode mode)
{
    if (!action) {
        qCWarning(Internal::lcRibdock, "RibbonGroup::addSmallAction(): null action");
        return nullptr;
    }
    if (!d->smallColumn)
        d->smallColumn = addSubgroup();
    return d->smallColumn->addSmallAction(action, mode);
}

RibbonSubgroup *RibbonGroup::addSubgroup()
{
    auto *subgroup = new RibbonSubgroup(this);
    addWidget(subgroup);
    return subgroup;
}

RibbonGallery *RibbonGroup::addGallery()
{
    auto *gallery = new RibbonGallery(this);
    addWidget(gallery);
    return gallery;
}

void RibbonGroup::addWidget(QWidget *widget)
{
    if (!widget) {
        qCWarning(Internal::lcRibdock, "RibbonGroup::addWidget(): null widget");
        return;
    }
    d->smallColumn = nullptr;
    widget->setParent(this);
    d->content->addWidget(widget, 0, Qt::AlignTop);
    widget->show();
}

void RibbonGroup::addSeparator()
{
    auto *line = new QFrame(this);
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    line->setFixedHeight(RibbonButton::largeHeight(fontMetrics()));
    addWidget(line);
}

void RibbonGroup::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QColor line = palette().color(QPalette::Mid);
    line.setAlpha(140);
    painter.setPen(line);
    const int x = width() - 2;
    painter.drawLine(x, 6, x, height() - 6);
}

} // namespace Velmora::Ribdock
