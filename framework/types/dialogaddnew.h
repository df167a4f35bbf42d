#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtWidgets/qdialog.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QGridLayout;
QT_END_NAMESPACE

namespace Velmora::Framework {

class DialogAddNewBasePrivate;
class ItemType;
class TypeSelectModel;
class ViewItem;

// What the add-new dialogs share: the list of candidate types, the name field with its
// proposed free name and validator, and the checks made before accepting. The dialog only
// collects the choice; the parent's type creates the item from selectedType() and itemName().
class VELMORA_FRAMEWORK_EXPORT DialogAddNewBase : public QDialog
{
    Q_OBJECT

public:
    ~DialogAddNewBase() override;

    // The type at the list's current row; null when none is chosen.
    ItemType *selectedType() const;
    // The name field's text as entered.
    QString itemName() const;
    // The node that receives the new item (borrowed); null once it is gone.
    ViewItem *parentItem() const;
    TypeSelectModel *model() const;

    // What a user would do, for tests and scripted runs that answer the dialog through
    // Prompts: choosing a type proposes its free name as a click would; false when type is
    // not a candidate. setItemName() then replaces the proposal.
    bool setSelectedType(ItemType *type);
    void setItemName(const QString &name);

public Q_SLOTS:
    // Closes with Accepted only with a chosen type and a non-empty name that no child of the
    // parent has; otherwise beeps and stays open.
    void accept() override;

protected:
    // The candidate types are borrowed.
    DialogAddNewBase(ViewItem *parentItem, const QList<ItemType *> &candidates,
                     const QString &objectName, const QString &title, const QString &groupTitle,
                     QWidget *parent);

    // The label/field rows under the type list: the name is row 0, its label in column 0 and
    // its field spanning columns 1 and 2.
    QGridLayout *fieldLayout() const;
    // Makes the first candidate current, or applies "no type" when there is none. Concrete
    // dialogs call it at the end of their constructor, when typeChanged() reaches them.
    void selectFirstCandidate();
    // Called after the shared reaction to a change of the current type (null: none).
    virtual void typeChanged(ItemType *type);

private:
    void applyCurrentType();

    std::unique_ptr<DialogAddNewBasePrivate> const d;
};

// Asks for the type and name of a new item under parentItem.
class VELMORA_FRAMEWORK_EXPORT DialogAddNew : public DialogAddNewBase
{
    Q_OBJECT

public:
    DialogAddNew(ViewItem *parentItem, const QList<ItemType *> &candidates,
                 QWidget *parent = nullptr);
    ~DialogAddNew() override;

protected:
    DialogAddNew(ViewItem *parentItem, const QList<ItemType *> &candidates,
                 const QString &objectName, const QString &title, const QString &groupTitle,
                 QWidget *parent);
};

// DialogAddNew worded for items inside a project.
class VELMORA_FRAMEWORK_EXPORT DialogAddNewProjectItem : public DialogAddNew
{
    Q_OBJECT

public:
    DialogAddNewProjectItem(ViewItem *parentItem, const QList<ItemType *> &candidates,
                            QWidget *parent = nullptr);
    ~DialogAddNewProjectItem() override;
};

} // namespace Velmora::Framework
