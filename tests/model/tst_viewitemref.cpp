#include "testsupport.h"
#include "testtypes.h"

#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "model/viewitemref.h"

#include <QtCore/qpointer.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qwidget.h>

#include <memory>

using namespace Velmora::Framework;
using Velmora::Tests::TestTree;
using Velmora::Tests::TestType;

namespace {

// Gives its nodes a payload and records which node each editor was asked for.
class TargetType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;

    ItemData *createDataInstance(QObject *parent) override { return new ItemData(parent); }
    QWidget *createItemEditor(const QString &factoryId, ViewItem *item,
                              const QList<EditorInstruction> &) override
    {
        requests << qMakePair(factoryId, item);
        return &editor;
    }
    QWidget *createItemEditor(ViewItem *item, const QList<EditorInstruction> &) override
    {
        requests << qMakePair(QStringLiteral("<default>"), item);
        return &editor;
    }

    QList<QPair<QString, ViewItem *>> requests;
    QWidget editor;
};

struct RefFixture
{
    RefFixture()
    {
        tree.registrar.registerType(type);
        tree.folder->addChildType(QStringLiteral("target"), false);
    }

    ViewItem *make(const QString &name) const
    {
        return tree.make(QStringLiteral("target"), name);
    }

    TestTree tree;
    TargetType *type = new TargetType(QStringLiteral("target"));
};

} // namespace

class tst_ViewItemRef : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void forwardsToLiveTarget();
    void goneTargetReadsNullAndKeepsSnapshot();
    void comparisons();
    void assignmentCopiesOnlyFromLiveTargets();
    void referenceIsANodeOfItsOwn();
};

void tst_ViewItemRef::forwardsToLiveTarget()
{
    RefFixture f;
    std::unique_ptr<ViewItem> target(f.make(QStringLiteral("t.m")));
    ViewItemRef ref(target.get());

    QCOMPARE(ref.item(), target.get());
    QVERIFY(!ref.isNull());
    QCOMPARE(ref.getType(), f.type);
    QCOMPARE(ref.getItemName(), QStringLiteral("t.m"));
    QVERIFY(ref.getItemData());
    QCOMPARE(ref.getItemData(), target->getItemData());
    QCOMPARE(ref.getPropertyBag(), target->getPropertyBag());
    // The reference has no bag of its own.
    QCOMPARE(f.type->getPropertyBagMap().keys(), QList<ViewItem *>{target.get()});

    QCOMPARE(ref.getEditor(QString(), {}), &f.type->editor);
    QCOMPARE(ref.getEditor(QStringLiteral("text"), {}), &f.type->editor);
    const QList<QPair<QString, ViewItem *>> expected = {
        {QStringLiteral("<default>"), target.get()}, {QStringLiteral("text"), target.get()}};
    QCOMPARE(f.type->requests, expected);
}

void tst_ViewItemRef::goneTargetReadsNullAndKeepsSnapshot()
{
    RefFixture f;
    std::unique_ptr<ViewItem> target(f.make(QStringLiteral("t.m")));
    ViewItemRef ref(target.get());
    QPointer<ItemData> data = target->getItemData();
    target.reset();
    QVERIFY(data.isNull());

    QVERIFY(ref.isNull());
    QCOMPARE(ref.item(), nullptr);
    QCOMPARE(ref.getItemData(), nullptr);
    QCOMPARE(ref.getPropertyBag(), nullptr);
    QCOMPARE(ref.getEditor(QString(), {}), nullptr);
    QCOMPARE(ref.getEditor(QStringLiteral("text"), {}), nullptr);
    QVERIFY(f.type->requests.isEmpty());
    QVERIFY(f.type->getPropertyBagMap().isEmpty());
    QCOMPARE(ref.getItemName(), QStringLiteral("t.m"));
    QCOMPARE(ref.getType(), f.type);

    ViewItemRef empty(nullptr);
    QVERIFY(empty.isNull());
    QCOMPARE(empty.getType(), nullptr);
    QVERIFY(empty.getItemName().isEmpty());
    QCOMPARE(empty.getItemData(), nullptr);
}

void tst_ViewItemRef::comparisons()
{
    RefFixture f;
    std::unique_ptr<ViewItem> first(f.make(QStringLiteral("a")));
    std::unique_ptr<ViewItem> second(f.make(QStringLiteral("a")));
    std::unique_ptr<ViewItem> live(f.make(QStringLiteral("live")));
    ViewItemRef toFirst(first.get()), alsoFirst(first.get()), toSecond(second.get());
    ViewItemRef toLive(live.get());
    ViewItemRef none(nullptr);

    QVERIFY(toFirst == alsoFirst);
    // Same name and type, different node.
    QVERIFY(!(toFirst == toSecond));
    QVERIFY(toFirst == *first);
    QVERIFY(!(toFirst == *second));
    QVERIFY(!(toFirst == none));

    first.reset();
    second.reset();
    QVERIFY(toFirst == toSecond);
    QVERIFY(toFirst == none);
    QVERIFY(!(toFirst == toLive));
    QVERIFY(!(toLive == toFirst));
    QVERIFY(!(toFirst == *live));
}

void tst_ViewItemRef::assignmentCopiesOnlyFromLiveTargets()
{
    RefFixture f;
    std::unique_ptr<ViewItem> target(f.make(QStringLiteral("old")));
    std::unique_ptr<ViewItem> folder(f.tree.folderItem(QStringLiteral("dir")));
    ViewItemRef ref(target.get());

    // A rename is not followed until the reference is assigned again.
    target->setItemName(QStringLiteral("new"));
    QCOMPARE(ref.getItemName(), QStringLiteral("old"));
    ref = *target;
    QCOMPARE(ref.getItemName(), QStringLiteral("new"));

    ref = *folder;
    QCOMPARE(ref.item(), folder.get());
    QCOMPARE(ref.getType(), f.tree.folder);
    QCOMPARE(ref.getItemName(), QStringLiteral("dir"));

    ViewItemRef other(target.get());
    ref = other;
    QCOMPARE(ref.item(), target.get());
    QCOMPARE(ref.getType(), f.type);
    ref = ref;
    QCOMPARE(ref.item(), target.get());

    // A null target empties the reference but keeps the snapshot.
    ref = ViewItemRef(nullptr);
    QVERIFY(ref.isNull());
    QCOMPARE(ref.getItemName(), QStringLiteral("new"));
    QCOMPARE(ref.getType(), f.type);

    // So does taking the target of a reference whose node is gone.
    ref = *folder;
    ViewItemRef stale(target.get());
    target.reset();
    ref = stale;
    QVERIFY(ref.isNull());
    QCOMPARE(ref.getItemName(), QStringLiteral("dir"));
    QCOMPARE(ref.getType(), f.tree.folder);
}

void tst_ViewItemRef::referenceIsANodeOfItsOwn()
{
    RefFixture f;
    ViewItem *home = f.tree.folderItem(QStringLiteral("home"));
    ViewItem *target = f.make(QStringLiteral("t.m"));
    home->addChildItem(target);
    std::unique_ptr<ViewItem> home2(f.tree.folderItem(QStringLiteral("links")));
    std::unique_ptr<ViewItem> homeOwner(home);

    auto *ref = new ViewItemRef(target);
    home2->addChildItem(ref);
    QCOMPARE(ref->getParentItem(), home2.get());
    QCOMPARE(target->getParentItem(), home);
    QCOMPARE(home->getChildItemCount(), 1);

    QPointer<ItemPropertyBag> bag = target->getPropertyBag();
    QPointer<ItemData> data = target->getItemData();
    QSignalSpy targetGone(target, &QObject::destroyed);
    QSignalSpy refGone(ref, &QObject::destroyed);
    // Its holder destroys the reference, never the node it stands for.
    home2.reset();
    QCOMPARE(refGone.size(), 1);
    QCOMPARE(targetGone.size(), 0);
    QVERIFY(bag);
    QVERIFY(data);
    QCOMPARE(target->getPropertyBag(), bag.data());
}

VELMORA_TEST(tst_ViewItemRef);
#include "tst_viewitemref.moc"
