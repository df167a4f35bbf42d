#include "types/dialogaddnew.h"

#include "model/viewitem.h"
#include "types/itemtype.h"
#include "types/typeselectmodel.h"

#include <QtCore/qpointer.h>
#include <QtCore/qitemselectionmodel.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qgridlayout.h>
#include <QtWidgets/qgroupbox.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qlistview.h>
#include <QtWidgets/qpushbutton.h>

namespace Velmora::Framework {

namespace {

// The prefix itself, else the prefix numbered from 1 upwards: the first that no child of
// parent carries. Without a parent there is nothing to clash with.
QString firstFreeName(const ViewItem *parent, const QString &prefix)
{
    if (!parent || parent->isChildNameUnique(prefix))
        return prefix;
    for (int number = 1;; ++number) {
        const QString candidate = QStringLiteral("%1 %2").arg(prefix).arg(number);
        if (parent->isChildNameUnique(candidate))
            return candidate;
    }
}

} // namespace

class DialogAddNewBasePrivate
{
public:
    QPointer<ViewItem> parentItem;
    TypeSelectModel *model = nullptr;
    QListView *listView = nullptr;
    QLineEdit *nameEdit = nullptr;
    QPushButton *okButton = nullptr;
    QGridLayout *fields = nullptr;
};

DialogAddNewBase::DialogAddNewBase(ViewItem *parentItem, const QList<ItemType *> &candidates,
                                   const QString &objectName, const QString &title,
                                   const QString &groupTitle, QWidget *parent)
    : QDialog(parent)
    , d(std::make_unique<DialogAddNewBasePrivate>())
{
    setObjectName(objectName);
    setWindowTitle(title);
    d->parentItem = parentItem;
    d->model = new TypeSelectModel(candidates, this);

    auto *group = new QGroupBox(groupTitle, this);
    group->setObjectName(QStringLiteral("selectItemGroupBox"));
    d->listView = new QListView(group);
    d->listView->setObjectName(QStringLiteral("selectItemListView"));
    d->listView->setSelectionMode(QAbstractItemView::SingleSelection);
    d->listView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    d->listView->setModel(d->model);
    auto *groupLayout = new QVBoxLayout(group);
    groupLayout->addWidget(d->listView);

    auto *nameLabel = new QLabel(tr("Name:"), this);
    nameLabel->setObjectName(QStringLiteral("nameLabel"));
    d->nameEdit = new QLineEdit(this);
    d->nameEdit->setObjectName(QStringLiteral("nameLineEdit"));
    nameLabel->setBuddy(d->nameEdit);
    d->fields = new QGridLayout;
    d->fields->addWidget(nameLabel, 0, 0);
    d->fields->addWidget(d->nameEdit, 0, 1, 1, 2);
    d->fields->setColumnStretch(1, 1);

    d->okButton = new QPushButton(tr("OK"), this);
    d->okButton->setObjectName(QStringLiteral("okPushButton"));
    d->okButton->setDefault(true);
    auto *cancelButton = new QPushButton(tr("Cancel"), this);
    cancelButton->setObjectName(QStringLiteral("cancelPushButton"));
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(d->okButton);
    buttons->addWidget(cancelButton);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(group, 1);
    layout->addLayout(d->fields);
    layout->addLayout(buttons);

    connect(d->okButton, &QPushButton::clicked, this, &DialogAddNewBase::accept);
    connect(cancelButton, &QPushButton::clicked, this, &DialogAddNewBase::reject);
    connect(d->listView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &DialogAddNewBase::applyCurrentType);
}

DialogAddNewBase::~DialogAddNewBase() = default;

ItemType *DialogAddNewBase::selectedType() const
{
    return d->model->typeAt(d->listView->currentIndex());
}

QString DialogAddNewBase::itemName() const
{
    return d->nameEdit->text();
}

ViewItem *DialogAddNewBase::parentItem() const
{
    return d->parentItem.data();
}

TypeSelectModel *DialogAddNewBase::model() const
{
    return d->model;
}

bool DialogAddNewBase::setSelectedType(ItemType *type)
{
    for (int row = 0; type && row < d->model->rowCount(); ++row) {
        const QModelIndex index = d->model->index(row, 0);
        if (d->model->typeAt(index) == type) {
            d->listView->setCurrentIndex(index);
            return true;
        }
    }
    return false;
}

void DialogAddNewBase::setItemName(const QString &name)
{
    d->nameEdit->setText(name);
}

void DialogAddNewBase::accept()
{
    const QString name = itemName();
    const ViewItem *parent = parentItem();
    if (selectedType() && !name.isEmpty() && (!parent || parent->isChildNameUnique(name))) {
        QDialog::accept();
        return;
    }
    // A beep rather than a message box: the user corrects the name in place.
    QApplication::beep();
}

QGridLayout *DialogAddNewBase::fieldLayout() const
{
    return d->fields;
}

void DialogAddNewBase::selectFirstCandidate()
{
    const QModelIndex first = d->model->index(0, 0);
    if (d->listView->currentIndex() != first)
        d->listView->setCurrentIndex(first); // applies the type through currentChanged
    else
        applyCurrentType();
}

void DialogAddNewBase::typeChanged(ItemType *)
{
}

void DialogAddNewBase::applyCurrentType()
{
    ItemType *type = selectedType();
    if (!type) {
        d->nameEdit->clear();
        d->nameEdit->setValidator(nullptr);
        d->okButton->setEnabled(false);
    } else {
        QString prefix = type->getDefaultPrefix();
        if (prefix.isEmpty())
            prefix = tr("New Item");
        d->nameEdit->setText(firstFreeName(parentItem(), prefix));
        // The type owns its validator; the line edit only watches it.
        d->nameEdit->setValidator(type->nameValidator(nullptr));
        d->okButton->setEnabled(true);
    }
    typeChanged(type);
}

DialogAddNew::DialogAddNew(ViewItem *parentItem, const QList<ItemType *> &candidates,
                           QWidget *parent)
    : DialogAddNew(parentItem, candidates, QStringLiteral("QelDialogAddNew"),
                   tr("Add New Item"), tr("Select Item Type:"), parent)
{
}

DialogAddNew::DialogAddNew(ViewItem *parentItem, const QList<ItemType *> &candidates,
                           const QString &objectName, const QString &title,
                           const QString &groupTitle, QWidget *parent)
    : DialogAddNewBase(parentItem, candidates, objectName, title, groupTitle, parent)
{
    selectFirstCandidate();
}

DialogAddNew::~DialogAddNew() = default;

DialogAddNewProjectItem::DialogAddNewProjectItem(ViewItem *parentItem,
                                                 const QList<ItemType *> &candidates,
                                                 QWidget *parent)
    : DialogAddNew(parentItem, candidates, QStringLiteral("QelDialogAddNewProjectItem"),
                   tr("Add New Project Item"), tr("Select Project Item Type:"), parent)
{
}

DialogAddNewProjectItem::~DialogAddNewProjectItem() = default;

} // namespace Velmora::Framework
