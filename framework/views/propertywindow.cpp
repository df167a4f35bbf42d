#include "views/propertywindow.h"

#include "core/typeregistrar.h"
#include "model/viewitem.h"
#include "types/itemtype.h"
#include "views/propertydelegate.h"
#include "views/propertymodel.h"

#include <QtCore/qpointer.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qheaderview.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qtreeview.h>

namespace Velmora::Framework {

class PropertyWindowPrivate
{
public:
    void updateTitle();

    PropertyModel *model = nullptr;
    QTreeView *tree = nullptr;
    QLabel *icon = nullptr;
    QLabel *title = nullptr;
    QPointer<TypeRegistrar> registrar;
};

void PropertyWindowPrivate::updateTitle()
{
    ViewItem *item = model->item();
    if (!item) {
        icon->clear();
        title->setText(PropertyWindow::tr("No item selected"));
        return;
    }
    icon->setPixmap(item->getIcon(0).pixmap(QSize(16, 16), title->devicePixelRatioF()));
    const ItemType *type = item->getType();
    title->setText(type ? PropertyWindow::tr("<b>%1</b> %2")
                              .arg(item->getDispName().toHtmlEscaped(),
                                   type->getDescription().toHtmlEscaped())
                        : QStringLiteral("<b>%1</b>").arg(item->getDispName().toHtmlEscaped()));
}

PropertyWindow::PropertyWindow(QWidget *parent)
    : QWidget(parent)
    , d(new PropertyWindowPrivate)
{
    setObjectName(QStringLiteral("PropertyWindow"));
    setWindowTitle(tr("Properties"));
    d->model = new PropertyModel(this);
    d->tree = new QTreeView(this);
    d->tree->setModel(d->model);
    d->tree->setItemDelegate(new PropertyDelegate(d->tree));
    d->tree->setAlternatingRowColors(true);
    d->tree->setUniformRowHeights(true);
    d->tree->setEditTriggers(QAbstractItemView::CurrentChanged | QAbstractItemView::SelectedClicked
                             | QAbstractItemView::DoubleClicked
                             | QAbstractItemView::EditKeyPressed);
    d->tree->header()->setSectionResizeMode(QHeaderView::Interactive);
    d->tree->header()->setStretchLastSection(true);
    d->tree->header()->resizeSection(PropertyModel::NameColumn, 140);
    d->icon = new QLabel(this);
    d->title = new QLabel(this);
    d->title->setTextFormat(Qt::RichText);

    auto *heading = new QHBoxLayout;
    heading->setContentsMargins(6, 4, 6, 4);
    heading->addWidget(d->icon);
    heading->addWidget(d->title, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(heading);
    layout->addWidget(d->tree, 1);

    connect(d->model, &PropertyModel::propertyChanged, this,
            [this](const QString &key) { emit propertyChanged(d->model->item(), key); });
    // The item may go away under the window; the model lets go of it, the title follows.
    connect(d->model, &QAbstractItemModel::modelReset, this, [this] { d->updateTitle(); });
    d->updateTitle();
}

PropertyWindow::~PropertyWindow() = default;

ViewItem *PropertyWindow::item() const
{
    return d->model->item();
}

PropertyModel *PropertyWindow::model() const
{
    return d->model;
}

QTreeView *PropertyWindow::treeView() const
{
    return d->tree;
}

void PropertyWindow::watch(TypeRegistrar *registrar)
{
    if (d->registrar)
        disconnect(d->registrar.data(), nullptr, this, nullptr);
    d->registrar = registrar;
    if (registrar)
        connect(registrar, &TypeRegistrar::propertyWindowRequested, this, &PropertyWindow::open);
}

void PropertyWindow::setItem(ViewItem *item)
{
    if (item == d->model->item())
        return;
    d->model->setItem(item);
}

void PropertyWindow::open()
{
    emit openRequested();
    show();
    raise();
}

} // namespace Velmora::Framework
