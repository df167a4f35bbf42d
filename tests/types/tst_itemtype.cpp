#include "testsupport.h"
#include "testtypes.h"

#include "core/augmentableregistrar.h"
#include "core/defaultgenericaugmentable.h"
#include "core/editorfactory.h"
#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "model/ordereditem.h"
#include "model/viewmodel.h"
#include "types/itempropertysheet.h"

#include <QtCore/qmimedata.h>
#include <QtCore/qpointer.h>
#include <QtGui/qaction.h>
#include <QtGui/qclipboard.h>
#include <QtGui/qguiapplication.h>
#include <QtGui/qpixmap.h>
#include <QtTest/qabstractitemmodeltester.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qmenu.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using Velmora::Tests::DerivedTestType;
using Velmora::Tests::TestType;
using Items = QList<ViewItem *>;
using Types = QList<ItemType *>;
using Entries = QList<OrderedItem *>;

namespace {

const QString derivedClass = u"Velmora::Tests::DerivedTestType"_s;

// The augmentation protocol as it ran: "who:hook" or "routine", each with its arguments.
struct Log
{
    QStringList hooks;
    QList<Items> items;
    QVariantList arguments;
    void add(const QString &hook, const Items &list, const QVariant &argument)
    {
        hooks << hook;
        items << list;
        arguments << argument;
    }
};

// The calls of one operation ("Remove") with the recorders "first" and "second" attached.
QStringList protocol(const QString &op, bool withAfter = true)
{
    QStringList hooks{u"first:can"_s + op, u"second:can"_s + op, u"first:before"_s + op,
                      u"second:before"_s + op, op.toLower() + u"_routine"_s};
    if (withAfter)
        hooks << u"first:after"_s + op << u"second:after"_s + op;
    return hooks;
}

// Records every hook it is asked and refuses the one named in veto.
class Recorder : public DefaultGenericAugmentable
{
public:
    Recorder(const QString &name, Log *log) : m_name(name), m_log(log) {}
    QString veto;

    // The registrar only takes an interface under an id that it answers.
    bool queryInterface(const char *iid, IBase **out) override
    {
        if (qstrcmp(iid, "node") != 0)
            return DefaultGenericAugmentable::queryInterface(iid, out);
        *out = static_cast<IAugmentableGeneric *>(this);
        return true;
    }

#define RECORD(method)                                                                        \
    bool method(const Items &items, const QVariant &argument) override                        \
    {                                                                                         \
        m_log->add(m_name + u':' + QLatin1String(#method), items, argument);                  \
        return m_log->hooks.last() != veto;                                                   \
    }
    RECORD(canRename) RECORD(beforeRename) RECORD(afterRename)
    RECORD(canCopy) RECORD(beforeCopy) RECORD(afterCopy)
    RECORD(canCut) RECORD(beforeCut) RECORD(afterCut)
    RECORD(canRemove) RECORD(beforeRemove) RECORD(afterRemove)
    RECORD(canPaste) RECORD(beforePaste) RECORD(afterPaste)
#undef RECORD
    const QString m_name;
    Log *const m_log;
};

// Items with data, and routines that write to the log.
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
        log->add(QLatin1String(#routine), items, argument);                                   \
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
    TestEditorFactory(const QString &name, const QIcon &icon = {}, const QString &tip = {})
        : m_name(name), m_tip(tip), m_icon(icon) {}
    QString name() const override { return m_name; }
    QIcon icon() const override { return m_icon; }
    QString description() const override { return m_tip; }
    bool supportsEmptyInstance() const override { return false; }
    QWidget *createEditor(ViewItem *item, const QList<EditorInstruction> &) override
    {
        asked.append(item);
        return nullptr;
    }
    const QString m_name, m_tip;
    const QIcon m_icon;
    Items asked;
};

template <typename T = QAction>
T *find(const Entries &entries, const QString &text)
{
    for (OrderedItem *entry : entries) {
        if (entry->object() && entry->text() == text)
            return qobject_cast<T *>(entry->object());
    }
    return nullptr;
}

} // namespace

class tst_ItemType : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void menuEntries();
    void childPermission();
    void mandatoryChildren();
    void createItemInstanceMakesDataSheetAndBags();
    void editorFactories();
    void propertiesCommand();
    void removeRunsTheProtocolUnlessVetoed_data();
    void removeRunsTheProtocolUnlessVetoed();
    void renameAfterCallComesFromNameChange();
    void baseTypeCannotCutCopyOrPaste();
    void deletingTypeFreesWhatItOwns();

private:
    OpenType *addType(const QString &id, const QString &description = {},
                      const QString &scope = {});
    OpenType *protocolType();
    ViewItem *make(const QString &name, const QString &typeId = u"node"_s) const
    {
        return m_registrar->createItem(typeId, name);
    }
    static Entries menu(ItemType *type, ViewItem *item, const Items &selection)
    {
        Entries out;
        type->contextMenu(item, selection, out);
        return out;
    }

    std::unique_ptr<TypeRegistrar> m_registrar;
    std::unique_ptr<AugmentableRegistrar> m_augments;
    Log m_log;
    Recorder m_first{u"first"_s, &m_log}, m_second{u"second"_s, &m_log};
};

void tst_ItemType::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    m_registrar = std::make_unique<TypeRegistrar>(nullptr);
    m_augments = std::make_unique<AugmentableRegistrar>();
    m_registrar->associate(m_augments.get());
}

void tst_ItemType::cleanup()
{
    m_registrar->deallocateAll();
    m_first.veto = m_second.veto = QString();
    m_log = Log();
}

OpenType *tst_ItemType::addType(const QString &id, const QString &description,
                                const QString &scope)
{
    auto *type = new OpenType(id, description);
    type->log = &m_log;
    m_registrar->registerType(type, scope);
    return type;
}

// A type "node" that accepts its own kind, with the recorders "first" and "second" attached.
OpenType *tst_ItemType::protocolType()
{
    OpenType *type = addType(u"node"_s);
    type->addChildType(u"node"_s, false);
    m_augments->registerInterface(u"node"_s, &m_second, 2); // out of turn: the order decides
    m_augments->registerInterface(u"node"_s, &m_first, 1);
    return type;
}

void tst_ItemType::menuEntries()
{
    OpenType *type = addType(u"node"_s);
    QCOMPARE(type->itemTypeAttributes().toInt(), 0x63);
    QCOMPARE(type->property("defaultMenus").toUInt(), 0xFFFu);
    std::unique_ptr<ViewItem> item(make(u"n"_s));
    Entries out;
    QVERIFY(type->contextMenu(item.get(), {item.get()}, out));
    QStringList entries;
    for (const OrderedItem *entry : std::as_const(out)) {
        const auto *action = qobject_cast<QAction *>(entry->object());
        entries << (action ? u"%1 %2|%3|%4 %5 %6"_s.arg(entry->order()).arg(action->text(),
                        action->toolTip(), action->statusTip(), entry->tag()).arg(entry->flags())
                           : QString::number(entry->order()));
        QVERIFY(!action || !action->icon().isNull());
    }
    // No editor factory, so neither edit entry.
    QCOMPARE(entries, (QStringList{u"16"_s,
        u"17 Add Ne&w Item...|Add New|Add a new item to this item defaultMenus 1"_s,
        u"18 Add Existin&g Item...|Add Existing|Add an existing item to this item defaultMenus 2"_s,
        u"32"_s, u"65520"_s,
        u"65521 Cu&t|Cut|Cut the item to the clipboard defaultMenus 4"_s,
        u"65522 Cop&y|Copy|Copy the item to the clipboard defaultMenus 8"_s,
        u"65523 &Paste|Paste|Paste from the clipboard to the item defaultMenus 16"_s,
        u"65524 Remo&ve|Remove|Remove the item defaultMenus 32"_s,
        u"65525 Rena&me|Rename|Rename the item defaultMenus 64"_s}));

    type->setDefMenus(ItemType::CutMenu | ItemType::RenameMenu);
    type->setProperty("fileMenus", 0x4u);
    // Equal order numbers keep the order in which the entries were added.
    type->addMenuItem(new QAction(u"First"_s), 40);
    type->addMenuItem(new QAction(u"Shown"_s), 40, u"fileMenus"_s, 0x4);
    type->addMenuItem(new QAction(u"Hidden"_s), 40, u"fileMenus"_s, 0x8);
    type->addMenuSeperator(41);
    QCOMPARE(Velmora::Tests::menuTexts(type, item.get(), {item.get()}),
             (QStringList{u"-"_s, u"-"_s, u"First"_s, u"Shown"_s, u"-"_s, u"-"_s, u"Cu&t"_s,
                          u"Rena&me"_s}));
}

void tst_ItemType::childPermission()
{
    OpenType *parent = addType(u"parent"_s, {}, u"tools"_s);
    OpenType *a = addType(u"a"_s, u"Delta"_s);
    // Registration, id and description orders all differ.
    auto *b = new DerivedTestType(u"b"_s, u"Alpha"_s);
    auto *c = new DerivedTestType(u"c"_s, u"Charlie"_s);
    auto *d = new DerivedTestType(u"d"_s, u"Bravo"_s);
    for (ItemType *type : Types{b, c, d})
        m_registrar->registerType(type, u"tools"_s);
    m_registrar->registerType(new DerivedTestType(u"out"_s), u"other"_s);

    parent->addExcludeChildType(u"a"_s, false);
    QVERIFY(!parent->canParent()); // exclusions alone admit nothing
    QVERIFY(parent->childTypes(nullptr).isEmpty());
    // Derived classes are searched in the parent's own scope, exact ids everywhere.
    parent->addChildType(derivedClass, true);
    parent->addChildType(u"a"_s, false);
    parent->addExcludeChildType(u"c"_s, false);
    parent->removeExcludeChildType(u"a"_s);
    QCOMPARE(parent->childTypes(nullptr), (Types{b, d, a}));
    QVERIFY(parent->allowedAsChild(nullptr, u"b"_s));
    QVERIFY(!parent->allowedAsChild(nullptr, u"c"_s));
    parent->addExcludeChildType(derivedClass, true);
    QCOMPARE(parent->childTypes(nullptr), (Types{a}));
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
    QVERIFY(!parent->canParent());

    parent->addMandatoryChild(u"leafB"_s, u"b2"_s);
    parent->addMandatoryChild(u"leafA"_s, u"a1"_s);
    parent->addMandatoryChild(u"leafB"_s, u"b1"_s);
    // Entries in key order, names in the order given.
    std::unique_ptr<ViewItem> item(parent->createItemInstance(u"root"_s, nullptr));
    QStringList children;
    for (int row = 0; row < item->getChildItemCount(); ++row) {
        const ViewItem *child = item->getChildItemAt(row);
        children << child->getType()->getId() + u':' + child->getItemName();
    }
    QCOMPARE(children, (QStringList{u"leafA:a1"_s, u"leafB:b2"_s, u"leafB:b1"_s}));
}

void tst_ItemType::createItemInstanceMakesDataSheetAndBags()
{
    OpenType *type = addType(u"node"_s);
    QObject context;
    std::unique_ptr<ViewItem> first(type->createItemInstance(u"first"_s, &context));
    std::unique_ptr<ViewItem> second(type->createItemInstance(nullptr));
    QCOMPARE(first->getItemData()->getCreationContext(), &context);
    // One sheet for all items of the type.
    QCOMPARE(type->propertySheet(second.get()), type->propertySheet(first.get()));
    // A bag is made on request, one per item, and freed on request.
    ItemPropertyBag *bag = type->getPropertyBag(first.get());
    QVERIFY(bag && second->getPropertyBag() && second->getPropertyBag() != bag);
    QSignalSpy bagGone(bag, &QObject::destroyed);
    type->disposePropertyBagFor(first.get());
    QCOMPARE(bagGone.size(), 1);
    QCOMPARE(type->getPropertyBagMap().keys(), Items{second.get()});
}

void tst_ItemType::editorFactories()
{
    OpenType *type = addType(u"node"_s);
    const auto icon = [](Qt::GlobalColor c) { QPixmap p(8, 8); p.fill(c); return QIcon(p); };
    const QIcon iconB = icon(Qt::green), iconC = icon(Qt::blue);
    TestEditorFactory a(u"Alpha"_s, {}, u"Edits alpha"_s), b(u"Beta"_s, iconB),
        c(u"Gamma"_s, iconC), a2(u"Alpha 2"_s);
    std::unique_ptr<ViewItem> item(make(u"n"_s));
    type->registerEditorFactory(QString(), &a);
    type->registerEditorFactory(u"a"_s, nullptr);
    QCOMPARE(type->getEditorFactoryCount(), 0);

    // The first factory becomes the default and lends "&Edit" its icon.
    type->registerEditorFactory(u"c"_s, &c);
    QAction *edit = find(menu(type, item.get(), {item.get()}), u"&Edit"_s);
    QCOMPARE(edit->toolTip() + u'|' + edit->statusTip(), u"Edit|Edit this item"_s);
    QCOMPARE(edit->icon().cacheKey(), iconC.cacheKey());
    type->registerEditorFactory(u"b"_s, &b);
    type->registerEditorFactory(u"a"_s, &a);
    QCOMPARE(type->getDefaultEditorFactory(), &c);
    // Two factories: "&Edit with..." replaces "&Edit" for one item; several items get "&Edit".
    const Entries several = menu(type, item.get(), {item.get(), item.get()});
    QVERIFY(find(several, u"&Edit"_s) && !find<QMenu>(several, u"&Edit with..."_s));
    const Entries single = menu(type, item.get(), {item.get()});
    QVERIFY(!find(single, u"&Edit"_s));
    QMenu *with = find<QMenu>(single, u"&Edit with..."_s);
    QCOMPARE(with->menuAction()->toolTip() + u'|' + with->menuAction()->statusTip(),
             u"Edit with|Edit this item with one of the available editor"_s);
    // One action per factory, in id order, its description as status tip.
    const QList<QAction *> actions = with->actions();
    QCOMPARE(actions.size(), 3);
    QCOMPARE(actions.at(0)->text() + u'|' + actions.at(0)->statusTip(), u"Alpha|Edits alpha"_s);
    // They open the context item, each with its factory; "&Edit" with the default one.
    actions.at(0)->trigger();
    edit->trigger();
    QCOMPARE(a.asked, Items{item.get()});
    QCOMPARE(c.asked, Items{item.get()});

    QTest::ignoreMessage(QtWarningMsg, "ItemType::registerEditorFactory(): Id a already exists, "
                                       "overwrite with new factory");
    type->registerEditorFactory(u"a"_s, &a2);
    QCOMPARE(with->actions(), actions); // the id's action is reused
    QTest::ignoreMessage(QtWarningMsg,
                         "ItemType::setDefaultEditorFactory(): factory and action out-of-sync");
    type->setDefaultEditorFactory(u"unknown"_s);
    type->setDefaultEditorFactory(u"a"_s);
    QCOMPARE(type->getDefaultEditorFactory(), &a2);
    QCOMPARE(with->defaultAction(), actions.at(0));

    // Losing the default hands over to the first id in key order, not registration order.
    QSignalSpy alphaGone(actions.at(0), &QObject::destroyed);
    type->unregisterEditorFactory(u"a"_s);
    QCOMPARE(alphaGone.size(), 1);
    QCOMPARE(type->getDefaultEditorFactory(), &b);
    QCOMPARE(edit->icon().cacheKey(), iconB.cacheKey());
}

void tst_ItemType::propertiesCommand()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    OpenType *type = addType(u"node"_s);
    QSignalSpy requested(m_registrar.get(), &TypeRegistrar::propertyWindowRequested);
    QAction *properties = type->propertiesAction();
    QCOMPARE(properties->text() + u'|' + properties->toolTip() + u'|' + properties->statusTip(),
             u"P&roperties|Properties|Show the property window"_s);
    QTest::ignoreMessage(QtDebugMsg, "Properties menu item selected");
    properties->trigger();
    QCOMPARE(requested.size(), 1);
    QVERIFY(!type->dispatch(u"cmdUnknown"_s));
}

void tst_ItemType::removeRunsTheProtocolUnlessVetoed_data()
{
    QTest::addColumn<int>("refusing"); // index in the protocol of the call that answers false

    QTest::newRow("nobody refuses") << -1;
    QTest::newRow("first refuses at can") << 0;
    QTest::newRow("second refuses at can") << 1;
    QTest::newRow("first refuses before") << 2;
    QTest::newRow("second refuses before") << 3;
}

void tst_ItemType::removeRunsTheProtocolUnlessVetoed()
{
    QFETCH(int, refusing);
    OpenType *type = protocolType();
    std::unique_ptr<ViewItem> root(make(u"root"_s));
    ViewItem *child = make(u"child"_s);
    root->addChildItem(child);
    QObject recording; // ends the connection with the test
    connect(child, &QObject::destroyed, &recording, [this] { m_log.hooks << u"deleted"_s; });
    QStringList expected = protocol(u"Remove"_s) << u"deleted"_s;
    if (refusing >= 0)
        expected = expected.mid(0, refusing + 1);
    m_first.veto = m_second.veto = refusing >= 0 ? expected.last() : QString();
    // Without a context item there is no selection, and an empty list fails.
    QVERIFY(!type->dispatch(u"cmdRemove"_s));

    find(menu(type, child, {child}), u"Remo&ve"_s)->trigger();
    QCOMPARE(m_log.hooks, expected); // deleted only after everyone was told
    QCOMPARE(m_log.items.first(), Items{child});
    QCOMPARE(root->getChildItemCount(), refusing >= 0 ? 1 : 0);
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
    QCOMPARE(m_log.hooks, protocol(u"Rename"_s, false));
    // The routine only starts the editing; the after-calls follow the actual change.
    QCOMPARE(editing.size(), 1);
    QCOMPARE(editing.at(0).at(0).value<QModelIndex>(), child->modelIndex());
    QVERIFY(model.setData(child->modelIndex(), u"renamed"_s, Qt::EditRole));
    QCOMPARE(m_log.hooks, protocol(u"Rename"_s));
    QCOMPARE(m_log.items, QList<Items>(7, Items{child}));
    QCOMPARE(m_log.arguments, QVariantList(7, u"renamed"_s));
}

void tst_ItemType::baseTypeCannotCutCopyOrPaste()
{
    OpenType *type = protocolType();
    std::unique_ptr<ViewItem> item(make(u"n"_s));
    QClipboard *clipboard = QGuiApplication::clipboard();
    auto *held = new QMimeData;
    held->setText(u"held"_s);
    clipboard->setMimeData(held);
    QVERIFY(!type->cut(item.get()));
    QVERIFY(!type->copy(Items{item.get()}));
    QVERIFY(!type->paste(item.get()));
    QCOMPARE(m_log.hooks, protocol(u"Cut"_s, false) + protocol(u"Copy"_s, false)
                              + protocol(u"Paste"_s, false));
    // Cut and copy hand everyone a fresh mime data to fill, paste the clipboard's.
    for (int i = 0; i < m_log.hooks.size(); ++i) {
        QMimeData *mime = m_log.arguments.at(i).value<QMimeData *>();
        QVERIFY2(mime && (mime == held) == (i >= 10), qPrintable(m_log.hooks.at(i)));
    }
    // The base routines leave the clipboard alone.
    QCOMPARE(clipboard->mimeData(), held);
    QCOMPARE(clipboard->text(), u"held"_s);
    clipboard->clear();
}

void tst_ItemType::deletingTypeFreesWhatItOwns()
{
    TestEditorFactory one(u"One"_s), two(u"Two"_s);
    auto type = std::make_unique<OpenType>(u"loose"_s);
    type->registerEditorFactory(u"one"_s, &one);
    type->registerEditorFactory(u"two"_s, &two);
    type->addMenuItem(new QAction(u"Own"_s), 50);
    std::unique_ptr<ViewItem> item(type->createItemInstance(u"n"_s, nullptr));
    QList<QPointer<QObject>> owned{type->propertiesAction()};
    for (const OrderedItem *entry : menu(type.get(), item.get(), {item.get()})) {
        if (entry->object())
            owned.append(entry->object());
        if (auto *with = qobject_cast<QMenu *>(entry->object()))
            owned += QList<QPointer<QObject>>(with->actions().cbegin(), with->actions().cend());
    }
    QCOMPARE(owned.size(), 1 + 9 + 2); // properties, the menu's 9 objects, 2 editor actions
    QSignalSpy bagGone(type->getPropertyBag(item.get()), &QObject::destroyed);
    QSignalSpy sheetGone(type->propertySheet(item.get()), &QObject::destroyed);
    type.reset();
    for (const QPointer<QObject> &object : std::as_const(owned))
        QVERIFY(object.isNull());
    QCOMPARE(bagGone.size() + sheetGone.size(), 2);
    QCOMPARE(item->getType(), nullptr); // the items outlive their type without reaching for it
}

VELMORA_TEST(tst_ItemType);
#include "tst_itemtype.moc"
