#include "testsupport.h"
#include "testtypes.h"

#include "model/itemutils.h"
#include "model/viewitem.h"
#include "model/viewmodel.h"
#include "types/itemtype.h"

#include <QtTest/qabstractitemmodeltester.h>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Velmora::Framework;
using Velmora::Tests::DerivedTestType;
using Velmora::Tests::TestTree;
using Velmora::Tests::TestType;

namespace {

// A second class derived from TestType, beside DerivedTestType.
class SiblingTestType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;
};

QString classOf(const QMetaObject &meta)
{
    return QString::fromLatin1(meta.className());
}

QStringList namesOf(const QList<ViewItem *> &items)
{
    QStringList result;
    for (const ViewItem *item : items)
        result << item->getItemName();
    return result;
}

// One node of each type, named after its id: "derived" (DerivedTestType), "sibling"
// (SiblingTestType), "folder" and "leaf" (TestType).
struct ClassFixture
{
    ClassFixture()
    {
        tree.registrar.registerType(new DerivedTestType(QStringLiteral("derived")));
        tree.registrar.registerType(new SiblingTestType(QStringLiteral("sibling")));
        for (const char *id : {"derived", "sibling", "folder", "leaf"}) {
            const QString name = QString::fromLatin1(id);
            nodes.emplace_back(tree.make(name, name));
        }
    }

    ViewItem *node(const char *name) const
    {
        for (const auto &n : nodes) {
            if (n->getItemName() == QLatin1String(name))
                return n.get();
        }
        return nullptr;
    }

    TestTree tree;
    std::vector<std::unique_ptr<ViewItem>> nodes;
};

} // namespace

class tst_ItemUtils : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void selectedItemsDetachedAndAttached();
    void selectionWithoutChildren_data();
    void selectionWithoutChildren();
    void typeByClassName();
    void selectedItemsHavingPropertyBits_data();
    void selectedItemsHavingPropertyBits();
    void commonBaseType_data();
    void commonBaseType();
    void collateByType();
};

void tst_ItemUtils::selectedItemsDetachedAndAttached()
{
    TestTree tree;
    QVERIFY(ItemUtils::getSelectedItems(nullptr).isEmpty());
    ViewItem *root = tree.folderItem(QStringLiteral("root"));
    QCOMPARE(ItemUtils::getSelectedItems(root), QList<ViewItem *>{root});
    for (const char *name : {"a", "b", "c"})
        root->addChildItem(tree.leafItem(QString::fromLatin1(name)));
    ViewItem *a = root->getChildItemAt(0);
    ViewItem *c = root->getChildItemAt(2);

    ViewModel model(nullptr, root);
    QAbstractItemModelTester tester(&model,
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    // Attached, the node itself does not count: only what the views selected.
    QVERIFY(ItemUtils::getSelectedItems(a).isEmpty());

    QItemSelection selection(a->modelIndex(), a->modelIndex());
    selection.select(c->modelIndex(), c->modelIndex());
    model.handleSelectionChanged(selection, {});
    QList<ViewItem *> selected = ItemUtils::getSelectedItems(root);
    std::sort(selected.begin(), selected.end());
    QList<ViewItem *> expected = {a, c};
    std::sort(expected.begin(), expected.end());
    QCOMPARE(selected, expected);

    model.handleSelectionChanged({}, QItemSelection(a->modelIndex(), a->modelIndex()));
    QCOMPARE(ItemUtils::getSelectedItems(a), QList<ViewItem *>{c});
}

void tst_ItemUtils::selectionWithoutChildren_data()
{
    QTest::addColumn<QStringList>("selection");
    QTest::addColumn<QStringList>("expected");

    // root { src { main.c, util { x.c } }, doc { a.txt } }
    QTest::newRow("folder and its file") << QStringList{"src", "main.c"} << QStringList{"src"};
    QTest::newRow("file before its folder") << QStringList{"main.c", "src"} << QStringList{"src"};
    QTest::newRow("two siblings") << QStringList{"util", "main.c"}
                                  << QStringList{"util", "main.c"};
    QTest::newRow("grandchild under grandparent") << QStringList{"x.c", "doc", "src"}
                                                  << QStringList{"doc", "src"};
    QTest::newRow("cousins") << QStringList{"x.c", "a.txt"} << QStringList{"x.c", "a.txt"};
    QTest::newRow("root swallows all") << QStringList{"a.txt", "root", "util"}
                                       << QStringList{"root"};
    QTest::newRow("empty") << QStringList() << QStringList();
}

void tst_ItemUtils::selectionWithoutChildren()
{
    QFETCH(QStringList, selection);
    TestTree tree;
    QHash<QString, ViewItem *> byName;
    auto add = [&](ViewItem *parent, ViewItem *node) {
        byName.insert(node->getItemName(), node);
        if (parent)
            parent->addChildItem(node);
        return node;
    };
    std::unique_ptr<ViewItem> root(add(nullptr, tree.folderItem(QStringLiteral("root"))));
    ViewItem *src = add(root.get(), tree.folderItem(QStringLiteral("src")));
    add(src, tree.leafItem(QStringLiteral("main.c")));
    ViewItem *util = add(src, tree.folderItem(QStringLiteral("util")));
    add(util, tree.leafItem(QStringLiteral("x.c")));
    ViewItem *doc = add(root.get(), tree.folderItem(QStringLiteral("doc")));
    add(doc, tree.leafItem(QStringLiteral("a.txt")));

    QList<ViewItem *> items;
    for (const QString &name : selection)
        items << byName.value(name);
    QTEST(namesOf(ItemUtils::getSelectionWithoutChildren(items)), "expected");
}

void tst_ItemUtils::typeByClassName()
{
    ClassFixture f;
    const QString testType = classOf(TestType::staticMetaObject);
    const QString derivedType = classOf(DerivedTestType::staticMetaObject);
    ViewItem *derived = f.node("derived");
    ViewItem *plain = f.node("leaf");

    QVERIFY(ItemUtils::isType(derived, derivedType));
    QVERIFY(ItemUtils::isType(derived, testType));
    QVERIFY(ItemUtils::isType(derived, QStringLiteral("Velmora::Framework::ItemType")));
    QVERIFY(ItemUtils::isType(plain, testType));
    QVERIFY(!ItemUtils::isType(plain, derivedType));
    QVERIFY(!ItemUtils::isType(nullptr, testType));
    QVERIFY(!ItemUtils::isType(plain, QStringLiteral("TestType")));

    QList<ViewItem *> all;
    for (const auto &node : f.nodes)
        all << node.get();
    QCOMPARE(namesOf(ItemUtils::getSelectedItemsInheritFrom(all, derivedType)),
             QStringList{"derived"});
    QCOMPARE(namesOf(ItemUtils::getSelectedItemsInheritFrom(all, testType)),
             (QStringList{"derived", "sibling", "folder", "leaf"}));
    QCOMPARE(namesOf(ItemUtils::getSelectedItemsInheritFrom(all, QStringLiteral("QObject"))),
             (QStringList{"derived", "sibling", "folder", "leaf"}));
    QVERIFY(ItemUtils::getSelectedItemsInheritFrom(all, QStringLiteral("QWidget")).isEmpty());
}

void tst_ItemUtils::selectedItemsHavingPropertyBits_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<uint>("flags");
    QTest::addColumn<QStringList>("expected");

    // The folder type shows only "add new"; the leaf type keeps the default 0xFFF.
    QTest::newRow("bit both have") << "defaultMenus" << uint(ItemType::AddNewMenu)
                                   << QStringList{"f1", "l1", "f2"};
    QTest::newRow("bit only the leaf has") << "defaultMenus" << uint(ItemType::RemoveMenu)
                                           << QStringList{"l1"};
    QTest::newRow("any of several bits") << "defaultMenus"
                                         << uint(ItemType::RemoveMenu | ItemType::AddNewMenu)
                                         << QStringList{"f1", "l1", "f2"};
    QTest::newRow("bit off by default") << "defaultMenus" << uint(ItemType::EditMenu)
                                        << QStringList();
    QTest::newRow("unknown property") << "noSuchMenus" << 0xFFFFu << QStringList();
    QTest::newRow("empty key") << QString() << 0xFFFFu << QStringList();
}

void tst_ItemUtils::selectedItemsHavingPropertyBits()
{
    QFETCH(QString, key);
    QFETCH(uint, flags);
    TestTree tree;
    tree.folder->setDefMenus(ItemType::AddNewMenu);
    std::unique_ptr<ViewItem> f1(tree.folderItem(QStringLiteral("f1")));
    std::unique_ptr<ViewItem> l1(tree.leafItem(QStringLiteral("l1")));
    std::unique_ptr<ViewItem> f2(tree.folderItem(QStringLiteral("f2")));

    const QList<ViewItem *> items = {f1.get(), l1.get(), f2.get()};
    QTEST(namesOf(ItemUtils::getSelectedItemsHaving(items, key, flags)), "expected");
}

void tst_ItemUtils::commonBaseType_data()
{
    QTest::addColumn<QStringList>("nodes");
    QTest::addColumn<QString>("expected");

    const QString testType = classOf(TestType::staticMetaObject);
    const QString derivedType = classOf(DerivedTestType::staticMetaObject);
    QTest::newRow("one node") << QStringList{"derived"} << derivedType;
    QTest::newRow("same class twice") << QStringList{"derived", "derived"} << derivedType;
    QTest::newRow("derived then base") << QStringList{"derived", "leaf"} << testType;
    QTest::newRow("base then derived") << QStringList{"leaf", "derived"} << testType;
    QTest::newRow("two derived siblings") << QStringList{"derived", "sibling"} << testType;
    QTest::newRow("narrowed, then same again") << QStringList{"derived", "folder", "derived"}
                                               << testType;
    QTest::newRow("no nodes") << QStringList() << QString();
}

void tst_ItemUtils::commonBaseType()
{
    QFETCH(QStringList, nodes);
    ClassFixture f;
    QList<ViewItem *> items;
    for (const QString &name : nodes)
        items << f.node(qPrintable(name));
    QTEST(ItemUtils::getCommonBaseType(items), "expected");
}

void tst_ItemUtils::collateByType()
{
    ClassFixture f;
    std::unique_ptr<ViewItem> folder2(f.tree.folderItem(QStringLiteral("folder2")));
    const QList<ViewItem *> items = {f.node("folder"), f.node("leaf"), folder2.get(),
                                     f.node("derived")};
    const QMultiMap<ItemType *, ViewItem *> collated = ItemUtils::collateItemTypes(items);

    QCOMPARE(collated.size(), 4);
    QCOMPARE(collated.uniqueKeys().size(), 3);
    QStringList folders = namesOf(collated.values(f.tree.folder));
    folders.sort();
    QCOMPARE(folders, (QStringList{"folder", "folder2"}));
    QCOMPARE(namesOf(collated.values(f.tree.leaf)), QStringList{"leaf"});
    ItemType *derivedType = f.tree.registrar.lookup(QStringLiteral("derived"));
    QCOMPARE(collated.values(derivedType), QList<ViewItem *>{f.node("derived")});
    QVERIFY(ItemUtils::collateItemTypes({}).isEmpty());
}

VELMORA_TEST(tst_ItemUtils);
#include "tst_itemutils.moc"
