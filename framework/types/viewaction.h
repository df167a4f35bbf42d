#pragma once

#include "velmoraframework_global.h"
#include "core/iavailable.h"
#include "types/itemtypefile.h"

#include <QtGui/qaction.h>

#include <memory>

namespace Velmora::Framework {

class FileActionPrivate;

// An item command that shows and enables itself for the current selection. Subclasses
// answer isEnabled(); evaluateState() applies the answer, and an empty selection always
// disables the action.
class VELMORA_FRAMEWORK_EXPORT ViewAction : public QAction, public IAvailable
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IAvailable)

public:
    ViewAction(const QIcon &icon, const QString &text, QObject *parent);
    ViewAction(const QString &text, QObject *parent);
    explicit ViewAction(QObject *parent);

    bool evaluateAvailability(const ViewItem *item,
                              const QList<ViewItem *> &selection) const override;
    bool evaluateState(const ViewItem *item, const QList<ViewItem *> &selection) override;

protected:
    virtual bool isEnabled(const ViewItem *item, const QList<ViewItem *> &selection) const;
};

// Adds a child to the one selected item whose type can parent children.
class VELMORA_FRAMEWORK_EXPORT AddAction : public ViewAction
{
    Q_OBJECT

public:
    using ViewAction::ViewAction;

    bool evaluateAvailability(const ViewItem *item,
                              const QList<ViewItem *> &selection) const override;

protected:
    bool isEnabled(const ViewItem *item, const QList<ViewItem *> &selection) const override;
};

// A file command (open, save, save as, close): shown for selections of files only, enabled
// when the files' types offer one of its commands.
class VELMORA_FRAMEWORK_EXPORT FileAction : public ViewAction
{
    Q_OBJECT

public:
    FileAction(ItemTypeFile::FileMenus menus, const QIcon &icon, const QString &text,
               QObject *parent);
    FileAction(ItemTypeFile::FileMenus menus, const QString &text, QObject *parent);
    FileAction(ItemTypeFile::FileMenus menus, QObject *parent);
    ~FileAction() override;

    ItemTypeFile::FileMenus fileMenus() const;

    bool evaluateAvailability(const ViewItem *item,
                              const QList<ViewItem *> &selection) const override;

protected:
    bool isEnabled(const ViewItem *item, const QList<ViewItem *> &selection) const override;

private:
    std::unique_ptr<FileActionPrivate> const d;
};

// Pastes into the one selected item whose type can parent children.
class VELMORA_FRAMEWORK_EXPORT PasteAction : public ViewAction
{
    Q_OBJECT

public:
    using ViewAction::ViewAction;

protected:
    bool isEnabled(const ViewItem *item, const QList<ViewItem *> &selection) const override;
};

// Removes the selection, unless it holds the solution or a child its parent must keep.
class VELMORA_FRAMEWORK_EXPORT RemoveAction : public ViewAction
{
    Q_OBJECT

public:
    using ViewAction::ViewAction;

protected:
    bool isEnabled(const ViewItem *item, const QList<ViewItem *> &selection) const override;
};

// Renames the one selected item, unless its parent must keep it under its name.
class VELMORA_FRAMEWORK_EXPORT RenameAction : public ViewAction
{
    Q_OBJECT

public:
    using ViewAction::ViewAction;

protected:
    bool isEnabled(const ViewItem *item, const QList<ViewItem *> &selection) const override;
};

} // namespace Velmora::Framework
