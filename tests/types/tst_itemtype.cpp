#include "testsupport.h"
#include "testtypes.h"

#include "core/augmentableregistrar.h"
#include "core/defaultaggregatable.h"
#include "core/defaultgenericaugmentable.h"
#include "core/editorfactory.h"
#include "core/identifiers.h"
#include "core/ipreviewerfactory.h"
#include "core/typeregistrar.h"
#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "model/ordereditem.h"
#include "model/viewitem.h"
#include "model/viewmodel.h"
#include "types/itempropertysheet.h"
#include "types/itemtype.h"

#include <QtCore/qmimedata.h>
#include <QtCore/qpointer.h>
#include <QtGui/qaction.h>
#include <QtGui/qclipboard.h>
#include <QtGui/qevent.h>
#include <QtGui/qguiapplication.h>
#include <QtGui/qpixmap.h>
#include <QtTest/qabstractitemmodeltester.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qmenu.h>
#include <QtWidgets/qwidget.h>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using Velmora::Tests::DerivedTestType;
using Velmora::Tests::TestType;
using Items = QList<ViewItem *>;
using Types = QList<ItemType *>;

namespace {

const QString derivedClass = u"Velmora::Tests::DerivedTestType"_s;

// One hook or routine call as the augmentation protocol made it.
struct Call
{
    QString hook;
    Items items;
    QVariant argument;
};
using Log = QList<Call>;

QStringList hooksOf(const Log &log)
{
    QStringList hooks;
    for (const Call &call : log)
        hooks.append(call.hook);
    return hooks;
}

// What the two recorders of protocolType() and the routine see for an operation ("Remove").
QStringList protocol(const QString &operation, bool withAfter = true)
{
    QStringList hooks;
    for (const char *stage : {"can", "before"}) {
        for (const char *who : {"first", "second"})
            hooks << u"%1:%2%3"_s.arg(QLatin1String(who), QLatin1String(stage), operation);
    }
    hooks << operation.toLower() + u"_routine"_s;
    if (withAfter)
        hooks << u"first:after"_s + operation << u"second:after"_s + operation;
    return hooks;
}

// Records every hook it is asked as "name:hook" and refuses the one named in veto.
class Recorder : public DefaultGenericAugmentable
{
public:
    Recorder(const QString &name, const QString &typeId, Log *log)
        : m_name(name), m_typeId(typeId), m_log(log) {}

    // Also answers the id of the type it augments: the registrar only takes an interface
    // under an id that it answers.
    bool queryInterface(const char *iid, IBase **out) override
    {
        if (m_typeId != QLatin1String(iid))
            return DefaultGenericAugmentable::queryInterface(iid, out);
        *out = static_cast<IAugmentableGeneric *>(this);
        return true;
    }

    QString veto;

#define RECORD(method)                                                                        \
    bool method(const Items &items, const QVariant &argument) override                        \
    {                                                                                         \
        m_log->append({m_name + u':' + QLatin1String(#method), items, argument});             \
        return m_log->last().hook != veto;                                                    \
    }
    RECORD(canAddNew) RECORD(beforeAddNew) RECORD(afterAddNew)
    RECORD(canAddExisting) RECORD(beforeAddExisting) RECORD(afterAddExisting)
    RECORD(canRename) RECORD(beforeRename) RECORD(afterRename)
    RECORD(canCopy) RECORD(beforeCopy) RECORD(afterCopy)
    RECORD(canCut) RECORD(beforeCut) RECORD(afterCut)
    RECORD(canRemove) RECORD(beforeRemove) RECORD(afterRemove)
    RECORD(canPaste) RECORD(beforePaste) RECORD(afterPaste)
#undef RECORD

private:
    QString m_name, m_typeId;
    Log *m_log;
};

// Items with data, routines that write to the log, a public dispatch.
class OpenType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;
    using ItemType::dispatch;
    Log *log = nullptr;
    ItemData *createDataInstance(QObject *parent) override { return new ItemData(parent); }

protected:
#define ROUTINE(routine)                                                                      \
    bool routine(const Items &items, const QVariant &argument) override                       \
    {                                                                                         \
        if (log)                                                                              \
            log->append({QLatin1String(#routine), items, argument});                          \
        return TestType::routine(items, argument);                                            \
    }
    ROUTINE(cut_routine) ROUTINE(copy_routine) ROUTINE(paste_routine)
    ROUTINE(remove_routine) ROUTINE(rename_routine)
#undef ROUTINE
};

class TestEditorFactory : public EditorFactory
{
    Q_OBJECT

public:
    explicit TestEditorFactory(const QString &name, const QIcon &icon = {},
                               const QString &description = {})
        : m_name(name), m_icon(icon), m_description(description) {}
    QString name() const override { return m_name; }
    QIcon icon() const override { return m_icon; }
    QString description() const override { return m_description; }
    bool supportsEmptyInstance() const override { return false; }
    Items asked;

protected:
    QWidget *createEditor(ViewItem *item, const QList<EditorInstruction> &) override
    {
        asked.append(item);
        return nullptr;
    }

private:
    QString m_name;
    QIcon m_icon;
    QString m_description;
};

class TestPreviewer : public IPreviewerFactory
{
public:
    bool queryInterface(const char *, IBase **out) override { *out = nullptr; return false; }
    QString name() const override { return u"Preview"_s; }
    QIcon icon() const override { return {}; }
    QString description() const override { return {}; }
    QWidget *createPreviewer(ViewItem *item, const QPoint &, QWidget *) override
    {
        asked.append(item);
        return nullptr;
    }
    void disposePreviewer(ViewItem *item) override { disposed.append(item); }
    Items asked, disposed;
};

// Stands in for the main window: keeps the status tips it is sent.
class StatusSink : public QWidget
{
public:
    QStringList tips;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::StatusTip)
            return QWidget::event(event);
        tips.append(static_cast<QStatusTipEvent *>(event)->tip());
        return true;
    }
};

class OpenAggregatable : public DefaultAggregatable
{
public:
    using DefaultAggregatable::contextItem;
    using DefaultAggregatable::isType;
    using DefaultAggregatable::setPopulated;
};

QIcon colourIcon(Qt::GlobalColor colour)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(colour);
    return QIcon(pixmap);
}

OrderedItem *entry(const QList<OrderedItem *> &entries, const QString &text)
{
    const auto it = std::find_if(entries.cbegin(), entries.cend(),
                                 [&text](const OrderedItem *e) { return e->text() == text; });
    return it == entries.cend() ? nullptr : *it;
}

QAction *action(const QList<OrderedItem *> &entries, const QString &text)
{
    OrderedItem *found = entry(entries, text);
    return found ? qobject_cast<QAction *>(found->object()) : nullptr;
}

QMenu *editWith(const QList<OrderedItem *> &entries)
{
    OrderedItem *found = entry(entries, u"&Edit with..."_s);
    return found ? qobject_cast<QMenu *>(found->object()) : nullptr;
}

QStringList textsOf(const QList<OrderedItem *> &entries)
{
    QStringList texts;
    for (const OrderedItem *e : entries)
        texts.append(e->object() ? e->text() : u"-"_s);
    return texts;
}

QStringList textsOf(const QList<QAction *> &actions)
{
    QStringList texts;
    for (const QAction *a : actions)
        texts.append(a->text());
    return texts;
}

} // namespace

class tst_ItemType : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void initialState();
    void defaultMenuEntries();
    void menuEntriesGatedByFlags();
    void editEntriesFollowSelection_data();
    void editEntriesFollowSelection();
    void canChangeOnlyNamesOfEditableTypes();
    void childPermission();
    void includeDerivedSearchesTheTypesScope();
    void mandatoryChildren();
    void createItemInstanceMakesDataAndOneSheet();
    void editorFactories();
    void previewerFactories();
    void propertyBags();
    void statusTipsGoToWidgetParent();
    void propertiesCommand();
    void removeRunsTheProtocolInOrder();
    void vetoStopsTheOperation_data();
    void vetoStopsTheOperation();
    void renameAfterCallComesFromNameChange();
    void baseTypeCannotCutCopyOrPaste();
    void dispatchFromHookedAction();
    void defaultAggregatable();
    void deletingTypeFreesActionsAndBags();

private:
    OpenType *addType(const QString &id, const QString &description = {},
                      const QString &scope = {});
    // A type "node" that accepts its own kind, with recorders "first" and "second" attached.
    OpenType *protocolType();
    ViewItem *make(const QString &name, const QString &typeId = u"node"_s) const
    {
        return m_registrar->createItem(typeId, name);
    }
    QList<OrderedItem *> menu(ItemType *type, ViewItem *item, const Items &selection)
    {
        QList<OrderedItem *> out;
        type->contextMenu(item, selection, out);
        return out;
    }

    std::unique_ptr<StatusSink> m_sink;
    std::unique_ptr<TypeRegistrar> m_registrar;
    std::unique_ptr<AugmentableRegistrar> m_augments;
    std::vector<std::unique_ptr<Recorder>> m_recorders;
    Log m_log;
};

void tst_ItemType::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    m_sink = std::make_unique<StatusSink>();
    m_registrar = std::make_unique<TypeRegistrar>(m_sink.get());
    m_augments = std::make_unique<AugmentableRegistrar>();
    m_registrar->associate(m_augments.get());
}

void tst_ItemType::cleanup()
{
    m_augments->deallocateAll();
    m_registrar->deallocateAll();
    m_registrar.reset();
    m_augments.reset();
    m_recorders.clear();
    m_sink.reset();
    m_log.clear();
}

OpenType *tst_ItemType::addType(const QString &id, const QString &description,
                                const QString &scope)
{
    auto *type = new OpenType(id, description);
    type->log = &m_log;
    m_registrar->registerType(type, scope);
    return type;
}

OpenType *tst_ItemType::protocolType()
{
    OpenType *type = addType(u"node"_s);
    type->addChildType(u"node"_s, false);
    // Registered out of turn: the priorities decide.
    for (const auto &[name, order] : {std::pair{"second", 2}, std::pair{"first", 1}}) {
        m_recorders.push_back(std::make_unique<Recorder>(QLatin1String(name), u"node"_s, &m_log));
        m_augments->registerInterface(u"node"_s, m_recorders.back().get(), order);
    }
    return type;
}

void tst_ItemType::initialState()
{
    OpenType type(u"node"_s);
    QCOMPARE(type.itemTypeAttributes().toInt(), 0x63);
    QVERIFY(type.selectable() && type.editable() && type.itemEnabled());
    QVERIFY(!type.dragEnabled() && !type.dropEnabled() && !type.checkable());
    QVERIFY(type.testAttribute(ItemType::DragEnabled | ItemType::ItemTypeAttribute(0x40)));
    QVERIFY(!type.testAttribute(ItemType::DragEnabled | ItemType::Checkable));

    QCOMPARE(type.defMenus().toInt(), 0xFFF);
    QCOMPARE(type.property("defaultMenus").toUInt(), 0xFFFu);
    QVERIFY(type.setProperty("defaultMenus", 0x20u));
    QCOMPARE(type.defMenus(), ItemType::DefMenus(ItemType::RemoveMenu));
    QVERIFY(!type.canParent());
}

void tst_ItemType::defaultMenuEntries()
{
    struct Expected
    {
        int order;
        const char *text, *toolTip, *statusTip;
        int flag;
    };
    const Expected expected[] = {
        {16, nullptr, nullptr, nullptr, 0},
        {17, "Add Ne&w Item...", "Add New", "Add a new item to this item", 0x1},
        {18, "Add Existin&g Item...", "Add Existing", "Add an existing item to this item", 0x2},
        {32, nullptr, nullptr, nullptr, 0},
        {65520, nullptr, nullptr, nullptr, 0},
        {65521, "Cu&t", "Cut", "Cut the item to the clipboard", 0x4},
        {65522, "Cop&y", "Copy", "Copy the item to the clipboard", 0x8},
        {65523, "&Paste", "Paste", "Paste from the clipboard to the item", 0x10},
        {65524, "Remo&ve", "Remove", "Remove the item", 0x20},
        {65525, "Rena&me", "Rename", "Rename the item", 0x40},
    };
    OpenType *type = addType(u"node"_s);
    std::unique_ptr<ViewItem> item(make(u"n"_s));
    QList<OrderedItem *> out;
    // No editor factory, so neither edit entry.
    QVERIFY(type->contextMenu(item.get(), {item.get()}, out));
    QCOMPARE(type->contextItem(), item.get());
    QCOMPARE(out.size(), int(std::size(expected)));
    for (int i = 0; i < out.size(); ++i) {
        const Expected &want = expected[i];
        QCOMPARE(out.at(i)->order(), want.order);
        auto *action = qobject_cast<QAction *>(out.at(i)->object());
        QCOMPARE(action == nullptr, want.text == nullptr);
        if (!action)
            continue;
        QCOMPARE(action->text(), QLatin1String(want.text));
        QCOMPARE(action->toolTip(), QLatin1String(want.toolTip));
        QCOMPARE(action->statusTip(), QLatin1String(want.statusTip));
        QVERIFY2(!action->icon().isNull(), want.text);
        QCOMPARE(out.at(i)->tag(), u"defaultMenus"_s);
        QCOMPARE(out.at(i)->flags(), want.flag);
    }
}

void tst_ItemType::menuEntriesGatedByFlags()
{
    OpenType *type = addType(u"node"_s);
    std::unique_ptr<ViewItem> item(make(u"n"_s));
    type->setDefMenus(ItemType::CutMenu | ItemType::RenameMenu);
    type->setProperty("fileMenus", 0x4u);
    // Equal order numbers keep the order in which the entries were added.
    type->addMenuItem(new QAction(u"First"_s), 40);
    type->addMenuItem(new QAction(u"Shown"_s), 40, u"fileMenus"_s, 0x4);
    type->addMenuItem(new QAction(u"Hidden"_s), 40, u"fileMenus"_s, 0x8);
    type->addMenuItem(new QAction(u"Unknown"_s), 40, u"noSuch"_s, 0x1);
    type->addMenuItem(new QMenu(u"Sub"_s), 39);
    type->addMenuSeperator(41);

    QCOMPARE(textsOf(menu(type, item.get(), {item.get()})),
             (QStringList{u"-"_s, u"-"_s, u"Sub"_s, u"First"_s, u"Shown"_s, u"-"_s, u"-"_s,
                          u"Cu&t"_s, u"Rena&me"_s}));

    QVERIFY(type->isSet(u"defaultMenus"_s, 0x1004)); // any bit of the flag
    QVERIFY(!type->isSet(u"defaultMenus"_s, 0x1000));
    QVERIFY(!type->isSet(QString(), ~0u));
    type->setObjectName(u"named"_s);
    QVERIFY(!type->isSet(u"objectName"_s, ~0u));
}

void tst_ItemType::editEntriesFollowSelection_data()
{
    QTest::addColumn<int>("factories");  // editor factories of the context item's type
    QTest::addColumn<int>("ownItems");   // selected items of that type
    QTest::addColumn<bool>("otherItem"); // also selected: an item of a type with a factory
    QTest::addColumn<int>("editBits");

    QTest::newRow("one item, no factory") << 0 << 1 << false << 0;
    QTest::newRow("one item, one factory") << 1 << 1 << false << 0x1000;
    QTest::newRow("one item, two factories") << 2 << 1 << false << 0x2000;
    QTest::newRow("two items, two factories") << 2 << 2 << false << 0x1000;
    QTest::newRow("two items, no factory anywhere") << 0 << 2 << false << 0;
    QTest::newRow("two items, only the other type has one") << 0 << 1 << true << 0x1000;
    QTest::newRow("one item of the other type: own count decides") << 0 << 0 << true << 0;
    QTest::newRow("empty selection") << 2 << 0 << false << 0;
}

void tst_ItemType::editEntriesFollowSelection()
{
    QFETCH(int, factories);
    QFETCH(int, ownItems);
    QFETCH(bool, otherItem);
    QFETCH(int, editBits);

    OpenType *type = addType(u"node"_s);
    TestEditorFactory one(u"One"_s), two(u"Two"_s), elsewhere(u"Elsewhere"_s);
    if (factories > 0)
        type->registerEditorFactory(u"one"_s, &one);
    if (factories > 1)
        type->registerEditorFactory(u"two"_s, &two);
    addType(u"other"_s)->registerEditorFactory(u"elsewhere"_s, &elsewhere);

    std::vector<std::unique_ptr<ViewItem>> items;
    Items selection;
    for (int i = 0; i < ownItems + int(otherItem); ++i) {
        items.emplace_back(make(u"n"_s, i < ownItems ? u"node"_s : u"other"_s));
        selection.append(items.back().get());
    }
    items.emplace_back(make(u"context"_s));

    // Bits left from an earlier menu must not survive.
    type->setDefMenus(ItemType::DefMenus::fromInt(0x3FFF));
    const QList<OrderedItem *> out = menu(type, items.back().get(), selection);
    QCOMPARE(type->defMenus().toInt(), 0xFFF | editBits);
    QCOMPARE(entry(out, u"&Edit"_s) != nullptr, bool(editBits & 0x1000));
    QCOMPARE(editWith(out) != nullptr, bool(editBits & 0x2000));
}

void tst_ItemType::canChangeOnlyNamesOfEditableTypes()
{
    OpenType type(u"node"_s);
    const QVariant name(u"new"_s);
    const auto aspects = [](int bits) { return ItemType::ChangeAspects::fromInt(bits); };
    QVERIFY(type.canChange(nullptr, name, ItemType::NameAspect));
    QVERIFY(!type.canChange(nullptr, QVariant(QString()), ItemType::NameAspect));
    QVERIFY(!type.canChange(nullptr, QVariant(42), ItemType::NameAspect));
    QVERIFY(!type.canChange(nullptr, QVariant(QByteArray("new")), ItemType::NameAspect));
    QVERIFY(!type.canChange(nullptr, name, aspects(0)));
    QVERIFY(!type.canChange(nullptr, name, aspects(3))); // exactly the name aspect
    type.setItemTypeAttributes(ItemType::Selectable | ItemType::ItemEnabled);
    QVERIFY(!type.canChange(nullptr, name, ItemType::NameAspect));
}

void tst_ItemType::childPermission()
{
    OpenType *parent = addType(u"parent"_s);
    OpenType *a = addType(u"a"_s, u"Delta"_s);
    // Registration, id and description orders all differ.
    auto *b = new DerivedTestType(u"b"_s, u"Alpha"_s);
    auto *c = new DerivedTestType(u"c"_s, u"Charlie"_s);
    auto *d = new DerivedTestType(u"d"_s, u"Bravo"_s);
    for (ItemType *type : Types{b, c, d})
        QVERIFY(m_registrar->registerType(type));

    parent->addExcludeChildType(u"a"_s, false);
    QVERIFY(!parent->canParent()); // exclusions alone admit nothing
    QVERIFY(parent->childTypes(nullptr).isEmpty());
    parent->resetExcludeChildTypes();

    parent->addChildType(derivedClass, true);
    parent->addChildType(u"a"_s, false);
    QCOMPARE(parent->childTypes(nullptr), (Types{b, d, c, a}));
    parent->addExcludeChildType(u"c"_s, false);
    QCOMPARE(parent->childTypes(nullptr), (Types{b, d, a}));
    QVERIFY(parent->allowedAsChild(nullptr, u"b"_s));
    QVERIFY(!parent->allowedAsChild(nullptr, u"c"_s));
    QVERIFY(!parent->allowedAsChild(nullptr, u"unknown"_s));

    // An exclusion given again takes the new flag; a class name names no single type.
    parent->addExcludeChildType(derivedClass, false);
    QCOMPARE(parent->childTypes(nullptr), (Types{b, d, a}));
    parent->addExcludeChildType(derivedClass, true);
    QCOMPARE(parent->childTypes(nullptr), (Types{a}));

    parent->removeExcludeChildType(derivedClass);
    parent->removeChildType(u"a"_s);
    QCOMPARE(parent->childTypes(nullptr), (Types{b, d}));
    parent->resetChildTypes();
    QVERIFY(!parent->canParent());

    // Without a registry no type can be named.
    OpenType loose(u"loose"_s);
    loose.addChildType(u"a"_s, false);
    QVERIFY(loose.canParent());
    QVERIFY(loose.childTypes(nullptr).isEmpty());
    QVERIFY(!loose.allowedAsChild(nullptr, u"a"_s));
}

void tst_ItemType::includeDerivedSearchesTheTypesScope()
{
    OpenType *parent = addType(u"parent"_s, {}, u"tools"_s);
    auto *inScope = new DerivedTestType(u"in"_s, u"In"_s);
    auto *unscoped = new DerivedTestType(u"none"_s, u"None"_s);
    QVERIFY(m_registrar->registerType(inScope, u"tools"_s));
    QVERIFY(m_registrar->registerType(new DerivedTestType(u"out"_s), u"other"_s));
    QVERIFY(m_registrar->registerType(unscoped));

    parent->addChildType(derivedClass, true);
    QCOMPARE(parent->childTypes(nullptr), Types{inScope});
    parent->addChildType(u"none"_s, false); // exact ids are looked up everywhere
    QCOMPARE(parent->childTypes(nullptr), (Types{inScope, unscoped}));
}

void tst_ItemType::mandatoryChildren()
{
    OpenType *parent = addType(u"parent"_s);
    addType(u"leafB"_s);
    addType(u"leafA"_s);
    const char *refused = "addMandatoryChild(): cannot add item of the same type as mandatory "
                          "child, or the type id is empty";
    QTest::ignoreMessage(QtWarningMsg, refused);
    parent->addMandatoryChild(u"parent"_s, u"self"_s);
    QTest::ignoreMessage(QtWarningMsg, refused);
    parent->addMandatoryChild(QString(), u"nameless"_s);
    parent->addMandatoryChild(u"leafA"_s, QString()); // silently ignored
    QVERIFY(parent->childTypeIds().isEmpty());

    parent->addMandatoryChild(u"leafB"_s, u"b2"_s);
    parent->addMandatoryChild(u"leafA"_s, u"a1"_s);
    parent->addMandatoryChild(u"leafB"_s, u"b1"_s);
    QCOMPARE(parent->childTypeIds(), (QStringList{u"leafA"_s, u"leafB"_s}));
    QVERIFY(parent->allowedAsChild(nullptr, u"leafA"_s));
    QVERIFY(parent->isMandatoryChild(u"leafB"_s, u"b1"_s));
    QVERIFY(!parent->isMandatoryChild(u"leafB"_s, u"B1"_s));
    QVERIFY(!parent->isMandatoryChild(u"leafA"_s, u"b1"_s));

    auto childrenOf = [parent] {
        std::unique_ptr<ViewItem> item(parent->createItemInstance(u"root"_s, nullptr));
        QStringList children;
        for (int row = 0; row < item->getChildItemCount(); ++row) {
            const ViewItem *child = item->getChildItemAt(row);
            children << child->getType()->getId() + u':' + child->getItemName();
        }
        return children;
    };
    // Entries in key order, names in the order given.
    QCOMPARE(childrenOf(), (QStringList{u"leafA:a1"_s, u"leafB:b2"_s, u"leafB:b1"_s}));
    parent->removeMandatoryChild(u"leafB"_s, u"b2"_s);
    QCOMPARE(childrenOf(), (QStringList{u"leafA:a1"_s, u"leafB:b1"_s}));
    parent->resetMandatoryChild();
    QVERIFY(childrenOf().isEmpty());
    QVERIFY(parent->canParent());
}

void tst_ItemType::createItemInstanceMakesDataAndOneSheet()
{
    OpenType *type = addType(u"node"_s);
    QCOMPARE(type->propertySheet(nullptr), nullptr);
    QObject context;
    std::unique_ptr<ViewItem> first(type->createItemInstance(u"first"_s, &context));
    QCOMPARE(first->getType(), type);
    QCOMPARE(first->getItemName(), u"first"_s);
    QVERIFY(first->getItemData());
    QCOMPARE(first->getItemData()->getCreationContext(), &context);
    ItemPropertySheet *sheet = type->propertySheet(first.get());
    QVERIFY(sheet);
    QCOMPARE(sheet->type(), type);

    std::unique_ptr<ViewItem> second(type->createItemInstance(nullptr));
    QVERIFY(second->getItemData() && second->getItemData() != first->getItemData());
    QCOMPARE(type->propertySheet(second.get()), sheet);
    QVERIFY(!type->isItemModified(first.get()));
    first->getItemData()->setDirty(true);
    QVERIFY(type->isItemModified(first.get()));
}

void tst_ItemType::editorFactories()
{
    OpenType *type = addType(u"node"_s);
    const QIcon iconB = colourIcon(Qt::green), iconC = colourIcon(Qt::blue);
    TestEditorFactory a(u"Alpha"_s, colourIcon(Qt::red), u"Edits alpha"_s), b(u"Beta"_s, iconB),
        c(u"Gamma"_s, iconC), a2(u"Alpha 2"_s);
    std::unique_ptr<ViewItem> item(make(u"n"_s));

    type->registerEditorFactory(QString(), &a);
    type->registerEditorFactory(u"a"_s, nullptr);
    QCOMPARE(type->getEditorFactoryCount(), 0);

    // The first factory becomes the default and lends "&Edit" its icon.
    type->registerEditorFactory(u"c"_s, &c);
    QCOMPARE(type->getDefaultEditorFactory(), &c);
    QAction *edit = action(menu(type, item.get(), {item.get()}), u"&Edit"_s);
    QVERIFY(edit);
    QCOMPARE(edit->toolTip(), u"Edit"_s);
    QCOMPARE(edit->statusTip(), u"Edit this item"_s);
    QCOMPARE(edit->icon().cacheKey(), iconC.cacheKey());

    type->registerEditorFactory(u"b"_s, &b);
    type->registerEditorFactory(u"a"_s, &a);
    QCOMPARE(type->getDefaultEditorFactory(), &c);
    QMenu *with = editWith(menu(type, item.get(), {item.get()}));
    QVERIFY(with);
    QCOMPARE(with->menuAction()->toolTip(), u"Edit with"_s);
    QCOMPARE(with->menuAction()->statusTip(), u"Edit this item with one of the available editor"_s);
    // One action per factory, in id order, named after it, its description as status tip.
    QCOMPARE(textsOf(with->actions()), (QStringList{u"Alpha"_s, u"Beta"_s, u"Gamma"_s}));
    QCOMPARE(with->actions().at(0)->statusTip(), u"Edits alpha"_s);
    QVERIFY(with->actions().at(1)->statusTip().isEmpty());
    // They open the context item, each with its factory; "&Edit" with the default one.
    with->actions().at(0)->trigger();
    edit->trigger();
    QCOMPARE(a.asked, Items{item.get()});
    QCOMPARE(c.asked, Items{item.get()});
    QVERIFY(b.asked.isEmpty());
    QCOMPARE(type->createItemEditor(u"unknown"_s, item.get(), {}), nullptr);

    QTest::ignoreMessage(QtWarningMsg, "ItemType::registerEditorFactory(): Id a already exists, "
                                       "overwrite with new factory");
    type->registerEditorFactory(u"a"_s, &a2);
    QCOMPARE(type->getEditorFactoryCount(), 3);
    QCOMPARE(with->actions().size(), 3); // the id's action is reused

    QTest::ignoreMessage(QtWarningMsg,
                         "ItemType::setDefaultEditorFactory(): factory and action out-of-sync");
    type->setDefaultEditorFactory(u"unknown"_s);
    QCOMPARE(type->getDefaultEditorFactory(), &c);
    type->setDefaultEditorFactory(u"a"_s);
    QCOMPARE(type->getDefaultEditorFactory(), &a2);
    QCOMPARE(with->defaultAction(), with->actions().at(0));

    // Losing the default hands over to the first id in key order, not registration order.
    QSignalSpy alphaGone(with->actions().at(0), &QObject::destroyed);
    type->unregisterEditorFactory(u"a"_s);
    QCOMPARE(alphaGone.size(), 1);
    QCOMPARE(type->getDefaultEditorFactory(), &b);
    QCOMPARE(edit->icon().cacheKey(), iconB.cacheKey());
    QCOMPARE(textsOf(with->actions()), (QStringList{u"Beta"_s, u"Gamma"_s}));

    type->setDefaultEditorFactory(QString());
    QCOMPARE(type->getDefaultEditorFactory(), nullptr);
    type->setDefaultEditorFactory(u"c"_s);
    type->unregisterEditorFactory(u"b"_s);
    type->unregisterEditorFactory(u"c"_s);
    QCOMPARE(type->getDefaultEditorFactory(), nullptr);
    QCOMPARE(type->getEditorFactoryCount(), 0);
}

void tst_ItemType::previewerFactories()
{
    OpenType *type = addType(u"node"_s);
    TestPreviewer p1, p2, q;
    std::unique_ptr<ViewItem> item(make(u"n"_s));

    type->registerPreviewerFactory(QString(), &p1);
    type->registerPreviewerFactory(u"p"_s, nullptr);
    QCOMPARE(type->getPreviewerFactoryCount(), 0);
    type->registerPreviewerFactory(u"p"_s, &p1);
    QTest::ignoreMessage(QtWarningMsg, "ItemType::registerPreviewerFactory(): Id p already "
                                       "exists, overwrite with new factory");
    type->registerPreviewerFactory(u"p"_s, &p2);
    type->registerPreviewerFactory(u"q"_s, &q);
    QCOMPARE(type->getPreviewerFactoryCount(), 2);

    type->setDefaultPreviewerFactory(u"p"_s);
    type->setDefaultPreviewerFactory(u"unknown"_s); // silently ignored
    QCOMPARE(type->getDefaultPreviewerFactory(), &p2);
    type->createItemPreviewer(u"q"_s, item.get(), {}, nullptr);
    type->createItemPreviewer(item.get(), {}, nullptr);
    QCOMPARE(q.asked, Items{item.get()});
    QCOMPARE(p2.asked, Items{item.get()});
    QVERIFY(p1.asked.isEmpty());
    type->disposePreviewerFor(item.get());
    QCOMPARE(p2.disposed, Items{item.get()});
    QCOMPARE(q.disposed, Items{item.get()});
    type->unregisterPreviewerFactory(u"p"_s);
    QCOMPARE(type->getPreviewerFactoryCount(), 1);
}

void tst_ItemType::propertyBags()
{
    OpenType *type = addType(u"node"_s);
    std::unique_ptr<ViewItem> first(make(u"a"_s)), second(make(u"b"_s));

    QCOMPARE(type->getPropertyBag(nullptr), nullptr);
    ItemPropertyBag *bag = type->getPropertyBag(first.get());
    QVERIFY(bag);
    QCOMPARE(first->getPropertyBag(), bag);
    ItemPropertyBag *other = second->getPropertyBag();
    QVERIFY(other && other != bag);
    QCOMPARE(type->getPropertyBagMap().size(), 2);

    QSignalSpy bagGone(bag, &QObject::destroyed), otherGone(other, &QObject::destroyed);
    type->disposePropertyBagFor(first.get());
    QCOMPARE(bagGone.size(), 1);
    second.reset(); // a node's bag goes with the node
    QCOMPARE(otherGone.size(), 1);
    QVERIFY(type->getPropertyBagMap().isEmpty());

    QSignalSpy againGone(type->getPropertyBag(first.get()), &QObject::destroyed);
    type->cleanAllPropertyBags();
    QCOMPARE(againGone.size(), 1);
    QVERIFY(type->getPropertyBagMap().isEmpty());
}

void tst_ItemType::statusTipsGoToWidgetParent()
{
    OpenType *type = addType(u"node"_s);
    std::unique_ptr<ViewItem> item(make(u"n"_s));
    // A hovered entry tells its parent, the type, which passes the tip on.
    QVERIFY(action(menu(type, item.get(), {item.get()}), u"Cu&t"_s)->showStatusText());
    QCOMPARE(m_sink->tips, QStringList{u"Cut the item to the clipboard"_s});

    // The tip is taken with or without a registry or its widget to pass it to.
    OpenType loose(u"loose"_s);
    for (QObject *receiver : {static_cast<QObject *>(type), static_cast<QObject *>(&loose)}) {
        QStatusTipEvent tip(u"direct"_s);
        tip.ignore();
        QVERIFY(QCoreApplication::sendEvent(receiver, &tip));
        QVERIFY(tip.isAccepted());
    }
    QCOMPARE(m_sink->tips.size(), 2);
    m_sink.reset();
    QStatusTipEvent orphan(u"orphan"_s);
    QVERIFY(QCoreApplication::sendEvent(type, &orphan));

    QEvent other(QEvent::ToolTip);
    QVERIFY(!QCoreApplication::sendEvent(type, &other));
}

void tst_ItemType::propertiesCommand()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    OpenType *type = protocolType();
    QSignalSpy typeRequested(type, &ItemType::propertyWindowRequested);
    QSignalSpy registrarRequested(m_registrar.get(), &TypeRegistrar::propertyWindowRequested);
    QAction *properties = type->propertiesAction();
    QCOMPARE(properties->text(), u"P&roperties"_s);
    QCOMPARE(properties->toolTip(), u"Properties"_s);
    QCOMPARE(properties->statusTip(), u"Show the property window"_s);
    std::unique_ptr<ViewItem> item(make(u"n"_s));
    QVERIFY(!entry(menu(type, item.get(), {item.get()}), u"P&roperties"_s)); // left to subclasses

    QTest::ignoreMessage(QtDebugMsg, "Properties menu item selected");
    properties->trigger();
    QCOMPARE(typeRequested.size(), 1);
    QCOMPARE(registrarRequested.size(), 1);
    QTest::ignoreMessage(QtDebugMsg, "Properties menu item selected");
    QVERIFY(type->dispatch(u"cmdProperties"_s));
    QCOMPARE(typeRequested.size(), 2);

    QVERIFY(!type->dispatch(u"cmdUnknown"_s));
    QVERIFY(!type->dispatch(QString()));
    QVERIFY(m_log.isEmpty());
}

void tst_ItemType::removeRunsTheProtocolInOrder()
{
    OpenType *type = protocolType();
    std::unique_ptr<ViewItem> root(make(u"root"_s));
    ViewItem *c1 = make(u"c1"_s), *g1 = make(u"g1"_s), *c2 = make(u"c2"_s);
    root->addChildItem(c1);
    c1->addChildItem(g1);
    root->addChildItem(c2);
    QObject recording; // ends the connections with the test
    for (ViewItem *item : {c1, g1, c2}) {
        connect(item, &QObject::destroyed, &recording,
                [this, name = item->getItemName()] { m_log.append({u"destroyed "_s + name}); });
    }

    // The grandchild goes with its listed parent and is not handled on its own.
    QVERIFY(type->remove(Items{g1, c1, c2}, true));
    const QStringList expected = protocol(u"Remove"_s);
    QStringList hooks = hooksOf(m_log);
    QCOMPARE(hooks.mid(0, expected.size()), expected);
    for (int i = 0; i < expected.size(); ++i) {
        QCOMPARE(m_log.at(i).items, (Items{c1, c2}));
        QCOMPARE(m_log.at(i).argument, QVariant(true));
    }
    // Deleted after everyone was told; among themselves in the tree's order.
    hooks = hooks.mid(expected.size());
    hooks.sort();
    QCOMPARE(hooks, (QStringList{u"destroyed c1"_s, u"destroyed c2"_s, u"destroyed g1"_s}));
    QCOMPARE(root->getChildItemCount(), 0);
}

void tst_ItemType::vetoStopsTheOperation_data()
{
    QTest::addColumn<int>("refusing"); // index in the protocol of the call that answers false

    QTest::newRow("first refuses at can") << 0;
    QTest::newRow("second refuses at can") << 1;
    QTest::newRow("first refuses before") << 2;
    QTest::newRow("second refuses before") << 3;
}

void tst_ItemType::vetoStopsTheOperation()
{
    QFETCH(int, refusing);
    OpenType *type = protocolType();
    const QStringList expected = protocol(u"Remove"_s).mid(0, refusing + 1);
    for (const auto &recorder : m_recorders)
        recorder->veto = expected.last();
    std::unique_ptr<ViewItem> root(make(u"root"_s));
    ViewItem *child = make(u"child"_s);
    root->addChildItem(child);
    QSignalSpy destroyed(child, &QObject::destroyed);

    QVERIFY(!type->remove(child, false));
    QCOMPARE(hooksOf(m_log), expected);
    QCOMPARE(m_log.first().argument, QVariant(false));
    QCOMPARE(root->getChildItemCount(), 1);
    QCOMPARE(destroyed.size(), 0);
}

void tst_ItemType::renameAfterCallComesFromNameChange()
{
    OpenType *type = protocolType();
    ViewItem *root = make(u"root"_s), *child = make(u"old"_s);
    root->addChildItem(child);
    ViewModel model(nullptr, root);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy editing(&model, &ViewModel::modificationRequested);

    QVERIFY(type->rename(child, u"renamed"_s));
    QCOMPARE(hooksOf(m_log), protocol(u"Rename"_s, false));
    // The routine only starts the editing.
    QCOMPARE(editing.size(), 1);
    QCOMPARE(editing.at(0).at(0).value<QModelIndex>(), child->modelIndex());
    QCOMPARE(child->getItemName(), u"old"_s);

    QVERIFY(model.setData(child->modelIndex(), u"renamed"_s, Qt::EditRole));
    QCOMPARE(hooksOf(m_log).mid(5), (QStringList{u"first:afterRename"_s, u"second:afterRename"_s}));
    for (const Call &call : std::as_const(m_log)) {
        QCOMPARE(call.items, Items{child});
        QCOMPARE(call.argument, QVariant(u"renamed"_s));
    }
}

void tst_ItemType::baseTypeCannotCutCopyOrPaste()
{
    OpenType *type = protocolType();
    std::unique_ptr<ViewItem> item(make(u"n"_s));
    QClipboard *clipboard = QGuiApplication::clipboard();
    auto *held = new QMimeData;
    held->setText(u"held"_s);
    clipboard->setMimeData(held);
    QCOMPARE(clipboard->mimeData(), held);

    QVERIFY(!type->cut(item.get()));
    QVERIFY(!type->copy(Items{item.get()}));
    QCOMPARE(clipboard->mimeData(), held);
    QCOMPARE(clipboard->text(), u"held"_s);
    QCOMPARE(hooksOf(m_log), protocol(u"Cut"_s, false) + protocol(u"Copy"_s, false));
    // Cut and copy hand everyone a fresh mime data to fill.
    for (const Call &call : std::as_const(m_log)) {
        QMimeData *mime = call.argument.value<QMimeData *>();
        QVERIFY2(mime && mime != held, qPrintable(call.hook));
    }

    m_log.clear();
    QVERIFY(!type->paste(item.get()));
    QCOMPARE(hooksOf(m_log), protocol(u"Paste"_s, false));
    for (const Call &call : std::as_const(m_log))
        QCOMPARE(call.argument.value<QMimeData *>(), held);
    QCOMPARE(clipboard->mimeData(), held);
    clipboard->clear();
}

void tst_ItemType::dispatchFromHookedAction()
{
    OpenType *type = protocolType();
    std::unique_ptr<ViewItem> root(make(u"root"_s));
    ViewItem *child = make(u"child"_s);
    root->addChildItem(child);
    QSignalSpy destroyed(child, &QObject::destroyed);
    // Without a context item there is no selection, and an empty list fails.
    QVERIFY(!type->dispatch(u"cmdRemove"_s));
    QVERIFY(!type->remove(Items{}, true));
    QVERIFY(!type->cut(Items{}));
    QVERIFY(m_log.isEmpty());

    action(menu(type, child, {child}), u"Remo&ve"_s)->trigger();
    QCOMPARE(hooksOf(m_log), protocol(u"Remove"_s));
    QCOMPARE(m_log.first().items, Items{child});
    QVERIFY(!m_log.first().argument.isValid());
    QCOMPARE(destroyed.size(), 1);
    QCOMPARE(root->getChildItemCount(), 0);
    QCOMPARE(type->contextItem(), nullptr);
}

void tst_ItemType::defaultAggregatable()
{
    OpenType *type = addType(u"node"_s);
    auto *derived = new DerivedTestType(u"derived"_s);
    QVERIFY(m_registrar->registerType(derived));
    OpenAggregatable aggregatable;

    QVERIFY(!aggregatable.isType(nullptr, QLatin1String(Iid::ITypeGeneric)));
    QVERIFY(aggregatable.isType(type, QLatin1String(Iid::ITypeGeneric)));
    QVERIFY(!aggregatable.isType(type, QLatin1String(Iid::ITypeFile)));
    QVERIFY(aggregatable.isType(derived, u"Velmora::Tests::TestType"_s));
    QVERIFY(!aggregatable.isType(type, derivedClass));

    QVERIFY(!aggregatable.setPopulated(nullptr));
    QCOMPARE(aggregatable.contextItem(), nullptr);
    QVERIFY(aggregatable.setPopulated(type));
    QCOMPARE(aggregatable.contextItem(), nullptr);
    std::unique_ptr<ViewItem> item(make(u"n"_s));
    menu(type, item.get(), {item.get()});
    QCOMPARE(aggregatable.contextItem(), item.get());
}

void tst_ItemType::deletingTypeFreesActionsAndBags()
{
    TestEditorFactory one(u"One"_s), two(u"Two"_s);
    TestPreviewer previewer;
    auto type = std::make_unique<OpenType>(u"loose"_s);
    type->registerEditorFactory(u"one"_s, &one);
    type->registerEditorFactory(u"two"_s, &two);
    type->registerPreviewerFactory(u"preview"_s, &previewer);
    type->addMenuItem(new QAction(u"Own"_s), 50);
    std::unique_ptr<ViewItem> item(type->createItemInstance(u"n"_s, nullptr));
    std::unique_ptr<ViewItem> other(type->createItemInstance(u"o"_s, nullptr));

    // Single and multiple selections between them show every entry.
    QList<QPointer<QObject>> owned{type->propertiesAction()};
    for (const Items &selection : {Items{item.get()}, Items{item.get(), other.get()}}) {
        for (const OrderedItem *e : menu(type.get(), item.get(), selection)) {
            if (e->object())
                owned.append(e->object());
            if (auto *with = qobject_cast<QMenu *>(e->object())) {
                for (QAction *editor : with->actions())
                    owned.append(editor);
            }
        }
    }
    QCOMPARE(owned.size(), 1 + 9 + 2 + 9); // properties, each menu's 9 objects, 2 editor actions
    QSignalSpy bagGone(type->getPropertyBag(item.get()), &QObject::destroyed);
    QSignalSpy sheetGone(type->propertySheet(item.get()), &QObject::destroyed);

    type.reset();
    for (const QPointer<QObject> &object : std::as_const(owned))
        QVERIFY(object.isNull());
    QCOMPARE(bagGone.size(), 1);
    QCOMPARE(sheetGone.size(), 1);
    QCOMPARE(item->getType(), nullptr); // the items outlive their type without reaching for it
}

VELMORA_TEST(tst_ItemType);
#include "tst_itemtype.moc"
