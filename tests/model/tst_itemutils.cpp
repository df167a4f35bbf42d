#include "testsupport.h"
#include "testtypes.h"

#include "model/itemutils.h"
#include "model/viewitem.h"
#include "model/viewmodel.h"
#include "types/itemtype.h"

#include <QtTest/qabstractitemmodeltester.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Velmora::Tests;

namespace {

QStringList namesOf(const QList<ViewItem *> &items)
{
    QStringList result;
    for (const ViewItem *item : items)
        result << item->getItemName();
    return result;
}

const QString testType = QString::fromLatin1(TestType::staticMetaObject.className());
const QString derivedType = QString::fromLatin1(DerivedTestType::staticMetaObject.className());

} // namespace

class tst_ItemUtils : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarnings();
        // root { src { main.c, util { x.c } }, derived }
        m_tree = std::make_unique<TestTree>();
        m_tree->registrar.registerType(new DerivedTestType(QStringLiteral("derived")));
        m_tree->folder->addChildType(QStringLiteral("derived"), false);
        m_root.reset(add(nullptr, m_tree->folderItem("root")));
        ViewItem *src = add(m_root.get(), m_tree->folderItem("src"));
        add(src, m_tree->leafItem("main.c"));
        add(add(src, m_tree->folderItem("util")), m_tree->leafItem("x.c"));
        add(m_root.get(), m_tree->make("derived", "derived"));
    }
    void cleanup()
    {
        m_root.reset();
        m_nodes.clear();
        m_tree.reset();
    }

    void selectedItemsDetachedAndAttached();
    void selectionWithoutChildren_data();
    void selectionWithoutChildren();
    void filtersByType();
    void commonBaseType_data();
    void commonBaseType();

private:
    ViewItem *add(ViewItem *parent, ViewItem *node)
    {
        m_nodes.insert(node->getItemName(), node);
        if (parent)
            parent->addChildItem(node);
        return node;
    }
    QList<ViewItem *> nodes(const QStringList &names) const
    {
        QList<ViewItem *> result;
        for (const QString &name : names)
            result << m_nodes.value(name);
        return result;
    }

    std::unique_ptr<TestTree> m_tree;
    std::unique_ptr<ViewItem> m_root;
    QHash<QString, ViewItem *> m_nodes;
};

void tst_ItemUtils::selectedItemsDetachedAndAttached()
{
    QVERIFY(ItemUtils::getSelectedItems(nullptr).isEmpty());
    ViewItem *src = m_nodes.value("src");
    QCOMPARE(ItemUtils::getSelectedItems(src), QList<ViewItem *>{src});

    ViewModel model(nullptr, m_root.release());
    QAbstractItemModelTester tester(&model,
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    // Attached, the node itself does not count: only what the views selected.
    QVERIFY(ItemUtils::getSelectedItems(src).isEmpty());
    const QModelIndex derived = m_nodes.value("derived")->modelIndex();
    model.handleSelectionChanged(QItemSelection(src->modelIndex(), src->modelIndex()), {});
    // The model deselects before it selects.
    model.handleSelectionChanged(QItemSelection(derived, derived),
                                 QItemSelection(src->modelIndex(), derived));
    QCOMPARE(namesOf(ItemUtils::getSelectedItems(src)), QStringList{"derived"});
}

void tst_ItemUtils::selectionWithoutChildren_data()
{
    QTest::addColumn<QStringList>("selection");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("folder and its file") << QStringList{"src", "main.c"} << QStringList{"src"};
    QTest::newRow("file before its folder") << QStringList{"main.c", "src"} << QStringList{"src"};
    QTest::newRow("two siblings") << QStringList{"util", "main.c"} << QStringList{"util", "main.c"};
    QTest::newRow("grandchild under grandparent")
        << QStringList{"x.c", "derived", "src"} << QStringList{"derived", "src"};
}

void tst_ItemUtils::selectionWithoutChildren()
{
    QFETCH(QStringList, selection);
    QTEST(namesOf(ItemUtils::getSelectionWithoutChildren(nodes(selection))), "expected");
}

void tst_ItemUtils::filtersByType()
{
    ViewItem *derived = m_nodes.value("derived");
    QVERIFY(ItemUtils::isType(derived, derivedType));
    QVERIFY(!ItemUtils::isType(m_nodes.value("src"), derivedType));
    QVERIFY(!ItemUtils::isType(nullptr, testType));
    // The full class name, namespace included.
    QVERIFY(!ItemUtils::isType(derived, QStringLiteral("DerivedTestType")));

    const QList<ViewItem *> all = nodes({"src", "derived", "main.c"});
    QCOMPARE(namesOf(ItemUtils::getSelectedItemsInheritFrom(all, derivedType)),
             QStringList{"derived"});
    QCOMPARE(ItemUtils::getSelectedItemsInheritFrom(all, testType), all);

    // The folder type shows only "add new"; the leaf type keeps the default menus.
    m_tree->folder->setDefMenus(ItemType::AddNewMenu);
    const QString menus = QStringLiteral("defaultMenus");
    QCOMPARE(ItemUtils::getSelectedItemsHaving(all, menus, ItemType::AddNewMenu), all);
    QCOMPARE(namesOf(ItemUtils::getSelectedItemsHaving(all, menus, ItemType::RemoveMenu)),
             QStringList({"derived", "main.c"}));

    const QMultiMap<ItemType *, ViewItem *> collated = ItemUtils::collateItemTypes(all);
    QCOMPARE(collated.size(), 3);
    QCOMPARE(collated.values(m_tree->leaf), nodes({"main.c"}));
}

void tst_ItemUtils::commonBaseType_data()
{
    QTest::addColumn<QStringList>("nodes");
    QTest::addColumn<QString>("expected");
    QTest::newRow("one node") << QStringList{"derived"} << derivedType;
    QTest::newRow("derived then base") << QStringList{"derived", "src"} << testType;
    QTest::newRow("base then derived") << QStringList{"src", "derived"} << testType;
    QTest::newRow("narrowed, then same again") << QStringList{"derived", "src", "derived"}
                                               << testType;
    QTest::newRow("no nodes") << QStringList() << QString();
}

void tst_ItemUtils::commonBaseType()
{
    QFETCH(QStringList, nodes);
    QTEST(ItemUtils::getCommonBaseType(this->nodes(nodes)), "expected");
}

VELMORA_TEST(tst_ItemUtils);
#include "tst_itemutils.moc"
