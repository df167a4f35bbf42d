#pragma once

#include "velmoraframework_global.h"
#include "core/actionhandler.h"
#include "core/iaggregatable.h"
#include "model/editorinstruction.h"
#include "types/itypegeneric.h"

#include <QtCore/qflags.h>
#include <QtCore/qlist.h>
#include <QtCore/qmap.h>
#include <QtCore/qobject.h>
#include <QtCore/qpoint.h>
#include <QtCore/qstringlist.h>
#include <QtCore/qvariant.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QAction;
class QDialog;
class QDragEnterEvent;
class QMenu;
class QMimeData;
class QValidator;
class QWidget;
QT_END_NAMESPACE

namespace Velmora::Framework {

class IEditorFactory;
class IPreviewerFactory;
class ItemData;
class ItemPropertyBag;
class ItemPropertySheet;
class ItemTypePrivate;
class OrderedItem;
class TypeRegistrar;
class ViewItem;
class ViewItemBase;

// What every node of one kind shares: identity, icon, item flags, which children it accepts,
// the children every new node is born with, context-menu entries and the commands behind
// them, editors, previewers and the nodes' property bags. One instance per kind, registered
// with the TypeRegistrar under the identifier getId() answers. Every subclass needs Q_OBJECT:
// derived types are found through the meta-object's class names.
class VELMORA_FRAMEWORK_EXPORT ItemType
    : public QObject, public IAggregatable, public ITypeGeneric, public virtual IBase
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IAggregatable Velmora::Framework::ITypeGeneric
                 Velmora::Framework::IBase)
    Q_PROPERTY(uint defaultMenus READ defaultMenus WRITE setDefaultMenus)

public:
    enum ItemTypeAttribute : uint {
        Selectable = 0x01,
        Editable = 0x02,
        DragEnabled = 0x04,
        DropEnabled = 0x08,
        Checkable = 0x10,
        ItemEnabled = 0x20,
        // Lets the new-project dialog offer a location for items of the type.
        LocationChoosable = 0x40
    };
    Q_DECLARE_FLAGS(ItemTypeAttributes, ItemTypeAttribute)

    enum DefMenu : uint {
        AddNewMenu = 0x1,
        AddExistingMenu = 0x2,
        CutMenu = 0x4,
        CopyMenu = 0x8,
        PasteMenu = 0x10,
        RemoveMenu = 0x20,
        RenameMenu = 0x40,
        EditMenu = 0x1000,
        EditWithMenu = 0x2000
    };
    Q_DECLARE_FLAGS(DefMenus, DefMenu)

    enum MimeDataHint { CopyHint, CutHint, DragHint };

    enum ChangeAspect : uint { NameAspect = 1 };
    Q_DECLARE_FLAGS(ChangeAspects, ChangeAspect)

    // A kind of child the type accepts, with the names of the children of that kind that
    // every new item is born with.
    class VELMORA_FRAMEWORK_EXPORT ChildType
    {
    public:
        ChildType(const QString &typeId, bool includeDerived);
        virtual ~ChildType();

        QString typeId;
        bool includeDerived;
        QStringList mandatoryNames;
    };

    // A kind of child the type refuses even when ChildType entries admit it.
    class VELMORA_FRAMEWORK_EXPORT ExcludedType
    {
    public:
        ExcludedType(const QString &typeId, bool includeDerived);
        virtual ~ExcludedType();

        QString typeId;
        bool includeDerived;
    };

    // Turns command strings into the item operations, run under the augmentation protocol.
    class VELMORA_FRAMEWORK_EXPORT GenericActionHandler : public ActionHandler
    {
    public:
        explicit GenericActionHandler(ItemType *type);
        ~GenericActionHandler() override;

        QString augmentInterfaceId() override;
        // An empty item list means the selection around the type's context item.
        bool handleCommand(const QString &command, const QList<ViewItem *> &items,
                           const QVariant &argument) override;

    private:
        ItemType *type() const;
    };

    explicit ItemType(QObject *parent = nullptr);
    ~ItemType() override;

    bool queryInterface(const char *iid, IBase **out) override;

    // Identity.
    // The identifier the type is registered under; project files name types by it.
    virtual QString getId() const = 0;
    virtual QString getDescription() const = 0;
    virtual QString getDefaultPrefix() const = 0;
    virtual QString getDefaultName() const;
    virtual QString composeItemDispName(ViewItemBase *item) const;

    // Children.
    virtual bool canParent() const;
    virtual bool allowedAsChild(ViewItem *parent, const QString &typeId) const;
    virtual bool testAttribute(ItemTypeAttributes attributes) const;
    // typeId is a registered identifier, not a class name. With includeDerived the entry also
    // admits the types of the same scope that implement the interface of that identifier or
    // derive from the class of the type registered under it.
    virtual void addChildType(const QString &typeId, bool includeDerived);
    virtual void removeChildType(const QString &typeId);
    virtual void resetChildTypes();
    virtual void addExcludeChildType(const QString &typeId, bool includeDerived);
    virtual void removeExcludeChildType(const QString &typeId);
    virtual void resetExcludeChildTypes();
    virtual void addMandatoryChild(const QString &typeId, const QString &name);
    virtual void removeMandatoryChild(const QString &typeId, const QString &name);
    virtual void resetMandatoryChild();
    virtual bool isMandatoryChild(const QString &typeId, const QString &name) const;

    // Clipboard and drag and drop. The base adds its id to the ids already in mime.
    virtual bool constructMimeData(QMimeData *mime, QList<ViewItem *> items, MimeDataHint hint);
    virtual bool performDropAction(ViewItem *target, const QMimeData *mime,
                                   Qt::DropAction action);
    virtual void acceptDragEnter(ViewItem *target, QDragEnterEvent *event);

    // A new detached item with its data and mandatory children; the caller owns it.
    virtual ViewItem *createItemInstance(const QString &name, QObject *parent);
    // Adding existing files: the open dialog's filter for this type's files, whether this
    // type reads path, and a new item read from it (owned by the caller; null when reading
    // fails). Types not kept in files answer empty, false and null.
    virtual QString existingFileFilter() const;
    virtual bool canOpenFile(const QString &path) const;
    virtual ViewItem *createItemFromFile(const QString &path);

    // Editors. Null for an unknown factory id or when no factory makes one.
    virtual QWidget *createItemEditor(const QString &factoryId, ViewItem *item,
                                      const QList<EditorInstruction> &instructions);
    virtual QWidget *createItemEditor(ViewItem *item,
                                      const QList<EditorInstruction> &instructions);
    virtual void disposeEditorFor(ViewItem *item);

    // The item's bag, made on first request and owned by the type.
    virtual ItemPropertyBag *getPropertyBag(ViewItem *item);
    virtual void disposePropertyBagFor(ViewItem *item);
    virtual void aboutToDispose(ViewItem *item);

    // Renaming.
    virtual bool canChange(ViewItem *item, const QVariant &value, ChangeAspects aspects) const;
    virtual const QValidator *nameValidator(ViewItem *item) const;
    virtual bool doNameChange(ViewItem *item, const QString &name);
    virtual void nameChanged(ViewItem *item, const QString &oldName);
    virtual bool existName(ViewItem *item, const QString &name) const;

    virtual bool isItemModified(ViewItem *item) const;
    // Whether the type's property named property holds any bit of flag.
    virtual bool isSet(const QString &property, unsigned int flag) const;

    // Previewers.
    virtual QWidget *createItemPreviewer(const QString &factoryId, ViewItem *item,
                                         const QPoint &at, QWidget *parent);
    virtual QWidget *createItemPreviewer(ViewItem *item, const QPoint &at, QWidget *parent);
    virtual void disposePreviewerFor(ViewItem *item);

    // Opens item in an editor of the factory (empty: the default one) and shows it.
    virtual void edit(ViewItem *item, const QList<EditorInstruction> &instructions,
                      const QString &factoryId);

    // The payload of a new item (owned by the item); null in the base.
    virtual ItemData *createDataInstance(QObject *parent);
    // The registered types allowed under parent, sorted by description.
    virtual QList<ItemType *> childTypes(ViewItem *parent) const;
    virtual QList<ItemType *> addCandidates(ViewItem *parent) const;

    // IAggregatable
    QIcon getIcon(ViewItem *item, int state) override;
    bool contextMenu(ViewItem *item, const QList<ViewItem *> &selection,
                     QList<OrderedItem *> &out) override;

    // ITypeGeneric
    bool addNew(ViewItem *parent) override;
    bool addExisting(ViewItem *parent, const QString &path) override;
    bool cut(const QList<ViewItem *> &items) override;
    bool cut(ViewItem *item) override;
    bool copy(const QList<ViewItem *> &items) override;
    bool copy(ViewItem *item) override;
    bool paste(ViewItem *target) override;
    bool remove(const QList<ViewItem *> &items, bool flag) override;
    bool remove(ViewItem *item, bool flag) override;
    bool rename(ViewItem *item, const QString &name) override;

    TypeRegistrar *registrar() const;
    // The registry's scope for this type; empty without a registry.
    QString scope() const;
    // The class names of the type's meta-object chain, most derived first.
    QStringList baseTypes() const;
    // The first of this type's class names that chain also holds; empty when none.
    QString commonBaseType(const QStringList &chain) const;
    QString commonBaseType(ItemType *other) const;
    QStringList childTypeIds() const;
    static bool ascendingSort(const ItemType *a, const ItemType *b);

    ViewItem *createItemInstance(QObject *parent);
    void createItemMandatoryChildren(ViewItem *item);
    ItemPropertySheet *propertySheet(ViewItem *item) const;
    QMap<ViewItem *, ItemPropertyBag *> getPropertyBagMap() const;
    void cleanPropertyBag(ViewItem *item);
    void cleanAllPropertyBags();

    // Menu entries; the type takes ownership of action and menu.
    void addMenuItem(QAction *action, int order, const QString &property = QString(),
                     unsigned int flag = 0);
    void addMenuItem(QMenu *menu, int order, const QString &property = QString(),
                     unsigned int flag = 0);
    void addMenuSeperator(int order);
    DefMenus defMenus() const;
    void setDefMenus(DefMenus menus);
    // The "P&roperties" action, which the base does not place in the menu.
    QAction *propertiesAction() const;

    ItemTypeAttributes itemTypeAttributes() const;
    void setItemTypeAttributes(ItemTypeAttributes attributes);
    bool selectable() const { return testAttribute(Selectable); }
    bool editable() const { return testAttribute(Editable); }
    bool dragEnabled() const { return testAttribute(DragEnabled); }
    bool dropEnabled() const { return testAttribute(DropEnabled); }
    bool checkable() const { return testAttribute(Checkable); }
    bool itemEnabled() const { return testAttribute(ItemEnabled); }

    // Factories are borrowed; the type owns the action it makes for each.
    void registerEditorFactory(const QString &id, IEditorFactory *factory);
    void unregisterEditorFactory(const QString &id);
    void setDefaultEditorFactory(const QString &id);
    IEditorFactory *getDefaultEditorFactory() const;
    int getEditorFactoryCount() const;
    void registerPreviewerFactory(const QString &id, IPreviewerFactory *factory);
    void unregisterPreviewerFactory(const QString &id);
    void setDefaultPreviewerFactory(const QString &id);
    IPreviewerFactory *getDefaultPreviewerFactory() const;
    int getPreviewerFactoryCount() const;

    // The item on which the current context menu was opened.
    ViewItem *contextItem() const;

Q_SIGNALS:
    void propertyWindowRequested();

protected Q_SLOTS:
    virtual bool dispatch(const QString &command);
    void edit(const QString &factoryId);

protected:
    bool event(QEvent *event) override;
    void setIcon(const QIcon &icon);

    // The operation bodies; see GenericActionHandler.
    virtual QDialog *createAddNewDialog(ViewItem *parent, QList<ItemType *> candidates,
                                        QWidget *dialogParent);
    virtual bool performAddNew(ViewItem *parent, QDialog *dialog);
    virtual bool performAddExisting(ViewItem *parent, QList<ItemType *> candidates,
                                    const QStringList &paths);
    virtual bool add_new_routine(const QList<ViewItem *> &items, const QVariant &argument);
    virtual bool add_existing_routine(const QList<ViewItem *> &items, const QVariant &argument);
    virtual bool cut_routine(const QList<ViewItem *> &items, const QVariant &argument);
    virtual bool copy_routine(const QList<ViewItem *> &items, const QVariant &argument);
    virtual bool paste_routine(const QList<ViewItem *> &items, const QVariant &argument);
    virtual bool remove_routine(const QList<ViewItem *> &items, const QVariant &argument);
    virtual bool rename_routine(const QList<ViewItem *> &items, const QVariant &argument);

    GenericActionHandler *genericHandler() const;
    // Appends child to parent; a child the parent refuses is deleted. True when appended.
    static bool adoptChild(ViewItem *parent, ViewItem *child);

private:
    friend class TypeRegistrar;
    void setRegistrar(TypeRegistrar *registrar);
    void insertAndSort(OrderedItem *entry);
    uint defaultMenus() const;
    void setDefaultMenus(uint menus);

    std::unique_ptr<ItemTypePrivate> const d;
};

} // namespace Velmora::Framework

Q_DECLARE_OPERATORS_FOR_FLAGS(Velmora::Framework::ItemType::ItemTypeAttributes)
Q_DECLARE_OPERATORS_FOR_FLAGS(Velmora::Framework::ItemType::DefMenus)
Q_DECLARE_OPERATORS_FOR_FLAGS(Velmora::Framework::ItemType::ChangeAspects)
