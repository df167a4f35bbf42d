#include "ribbongallery.h"

#include "ribbonbutton_p.h"
#include "ribdocklog_p.h"

#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qgridlayout.h>
#include <QtWidgets/qmenu.h>
#include <QtWidgets/qtoolbutton.h>

namespace Velmora::Ribdock {

using Internal::RibbonButton;

namespace {
constexpr int ItemWidth = 64;
} // namespace

class RibbonGalleryPrivate
{
public:
    QGridLayout *grid = nullptr;
    QList<RibbonButton *> buttons;
    QToolButton *up = nullptr;
    QToolButton *down = nullptr;
    QToolButton *more = nullptr;
    QMenu *menu = nullptr;
    int columns = 4;
    int firstRow = 0;

    int rowCount() const { return (int(buttons.size()) + columns - 1) / columns; }

    void update()
    {
        for (RibbonButton *button : std::as_const(buttons))
            grid->removeWidget(button);
        for (int i = 0; i < buttons.size(); ++i) {
            const int row = i / columns;
            buttons.at(i)->setVisible(row == firstRow);
            if (row == firstRow)
                grid->addWidget(buttons.at(i), 0, i % columns, Qt::AlignLeft | Qt::AlignTop);
        }
        up->setEnabled(firstRow > 0);
        down->setEnabled(firstRow < rowCount() - 1);
        more->setEnabled(!buttons.isEmpty());
    }
};

RibbonGallery::RibbonGallery(QWidget *parent)
    : QFrame(parent)
    , d(std::make_unique<RibbonGalleryPrivate>())
{
    setFrameShape(QFrame::StyledPanel);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    auto *items = new QWidget(this);
    d->grid = new QGridLayout(items);
    d->grid->setContentsMargins(1, 0, 1, 0);
    d->grid->setSpacing(1);
    d->grid->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(items, 1);

    // Up, down and the drop-down share the height of one row of items.
    auto *scroll = new QVBoxLayout;
    scroll->setContentsMargins(0, 0, 0, 0);
    scroll->setSpacing(0);
    const int third = RibbonButton::largeHeight(fontMetrics()) / 3;
    auto makeButton = [&](Qt::ArrowType arrow, const QString &tip) {
        auto *button = new QToolButton(this);
        button->setArrowType(arrow);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedSize(16, third);
        button->setToolTip(tip);
        scroll->addWidget(button);
        return button;
    };
    d->up = makeButton(Qt::UpArrow, tr("Previous row"));
    d->down = makeButton(Qt::DownArrow, tr("Next row"));
    d->more = makeButton(Qt::NoArrow, tr("All items"));
    d->more->setIcon(QIcon(QStringLiteral(":/qelshared/images/16/ribbonGalleryMore.svg")));
    d->menu = new QMenu(this);
    layout->addLayout(scroll);

    connect(d->up, &QToolButton::clicked, this, [this] { setFirstRow(d->firstRow - 1); });
    connect(d->down, &QToolButton::clicked, this, [this] { setFirstRow(d->firstRow + 1); });
    connect(d->more, &QToolButton::clicked, this, [this] {
        d->menu->popup(mapToGlobal(rect().bottomLeft()));
    });
    d->update();
}

RibbonGallery::~RibbonGallery() = default;

QToolButton *RibbonGallery::addItem(QAction *action)
{
    if (!action) {
        qCWarning(Internal::lcRibdock, "RibbonGallery::addItem(): null action");
        return nullptr;
    }
    auto *button = new RibbonButton(action, RibbonButton::Size::Large, QToolButton::InstantPopup, this);
    button->setMinimumWidth(ItemWidth);
    d->buttons.append(button);
    d->menu->addAction(action);
    d->update();
    return button;
}

QList<QAction *> RibbonGallery::items() const
{
    return d->menu->actions();
}

int RibbonGallery::columnCount() const
{
    return d->columns;
}

void RibbonGallery::setColumnCount(int columns)
{
    if (columns < 1 || columns == d->columns)
        return;
    d->columns = columns;
    d->firstRow = qMin(d->firstRow, qMax(0, d->rowCount() - 1));
    d->update();
}

int RibbonGallery::firstRow() const
{
    return d->firstRow;
}

void RibbonGallery::setFirstRow(int row)
{
    row = qBound(0, row, qMax(0, d->rowCount() - 1));
    if (row == d->firstRow)
        return;
    d->firstRow = row;
    d->update();
}

} // namespace Velmora::Ribdock
