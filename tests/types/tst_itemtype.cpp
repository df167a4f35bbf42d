#include "testsupport.h"
#include "testtypes.h"

#include "core/editorfactory.h"
#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "model/ordereditem.h"
#include "types/itempropertysheet.h"

#include <QtCore/qpointer.h>
#include <QtGui/qaction.h>
#include <QtGui/qpixmap.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qmenu.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using namespace Velmora::Tests;
using Items = QList<ViewItem *>;
using Types = QList<ItemType *>;
using Entries = QList<OrderedItem *>;

namespace {

const QString derivedClass = u"Velmora::Tests::DerivedTestType"_s;

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
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_registrar = std::make_unique<TypeRegistrar>(nullptr);
    }
    void cleanup() { m_registrar->deallocateAll(); }
    void menuEntries();
    void childPermission();
    void createItemInstanceMakesChildrenDataSheetAndBags();
    void editorFactories();
    void deletingTypeFreesWhatItOwns();

private:
    RecordingType *addType(const QString &id, const QString &description = {},
                           const QString &scope = {})
    {
        auto *type = new RecordingType(id, description);
        m_registrar->registerType(type, scope);
        return type;
    }
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
};

void tst_ItemType::menuEntries()
{
    RecordingType *type = addType(u"node"_s);
    QCOMPARE(type->itemTypeAttributes().toInt(), 0x63);
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
    QCOMPARE(menuTexts(type, item.get(), {item.get()}),
             (QStringList{u"-"_s, u"-"_s, u"First"_s, u"Shown"_s, u"-"_s, u"-"_s, u"Cu&t"_s,
                          u"Rena&me"_s}));
}

void tst_ItemType::childPermission()
{
    RecordingType *parent = addType(u"parent"_s, {}, u"tools"_s);
    RecordingType *a = addType(u"a"_s, u"Delta"_s);
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

void tst_ItemType::createItemInstanceMakesChildrenDataSheetAndBags()
{
    RecordingType *parent = addType(u"parent"_s);
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
    QObject context;
    std::unique_ptr<ViewItem> first(parent->createItemInstance(u"first"_s, &context));
    QCOMPARE(outline(first.get()), u"first[a1,b2,b1]"_s);

    std::unique_ptr<ViewItem> second(parent->createItemInstance(nullptr));
    QCOMPARE(first->getItemData()->getCreationContext(), &context);
    // One sheet for all items of the type.
    QCOMPARE(parent->propertySheet(second.get()), parent->propertySheet(first.get()));
    // A bag is made on request, one per item, and freed on request.
    ItemPropertyBag *bag = parent->getPropertyBag(first.get());
    QVERIFY(bag && second->getPropertyBag() && second->getPropertyBag() != bag);
    QSignalSpy bagGone(bag, &QObject::destroyed);
    parent->disposePropertyBagFor(first.get());
    QCOMPARE(bagGone.size(), 1);
    QCOMPARE(parent->getPropertyBagMap().keys(), Items{second.get()});
}

void tst_ItemType::editorFactories()
{
    RecordingType *type = addType(u"node"_s);
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

void tst_ItemType::deletingTypeFreesWhatItOwns()
{
    TestEditorFactory one(u"One"_s), two(u"Two"_s);
    auto type = std::make_unique<RecordingType>(u"loose"_s);
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
