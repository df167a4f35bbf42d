#include "testsupport.h"
#include "testtypes.h"

#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "model/viewitemref.h"

#include <QtCore/qpointer.h>
#include <QtWidgets/qwidget.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Velmora::Tests;

namespace {

class TargetType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;

    ItemData *createDataInstance(QObject *parent) override { return new ItemData(parent); }
    QWidget *createItemEditor(const QString &id, ViewItem *item,
                              const QList<EditorInstruction> &) override
    {
        requests << qMakePair(id, item);
        return &editor;
    }

    QList<QPair<QString, ViewItem *>> requests;
    QWidget editor;
};

} // namespace

class tst_ViewItemRef : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarnings();
        m_tree = std::make_unique<TestTree>();
        m_tree->registrar.registerType(m_type = new TargetType(QStringLiteral("target")));
        m_tree->folder->addChildType(QStringLiteral("target"), false);
    }
    void cleanup() { m_tree.reset(); }

    void forwardsToTargetWhileItLives();
    void comparesAndAssignsTargets();
    void referenceNeverOwnsItsTarget();

private:
    std::unique_ptr<TestTree> m_tree;
    TargetType *m_type = nullptr;
};

void tst_ViewItemRef::forwardsToTargetWhileItLives()
{
    std::unique_ptr<ViewItem> target(m_tree->make("target", "t.m"));
    ViewItemRef ref(target.get());
    QCOMPARE(ref.getItemData(), target->getItemData());
    QCOMPARE(ref.getPropertyBag(), target->getPropertyBag());
    // The reference has no bag of its own.
    QCOMPARE(m_type->getPropertyBagMap().keys(), QList<ViewItem *>{target.get()});
    QCOMPARE(ref.getEditor(QStringLiteral("text"), {}), &m_type->editor);
    const QList<QPair<QString, ViewItem *>> asked{{"text", target.get()}};
    QCOMPARE(m_type->requests, asked);

    target.reset();
    QVERIFY(ref.isNull());
    QCOMPARE(ref.getPropertyBag(), nullptr);
    QCOMPARE(ref.getEditor(QStringLiteral("text"), {}), nullptr);
    QCOMPARE(m_type->requests, asked);
    // The snapshot outlives the target.
    QCOMPARE(ref.getItemName(), QStringLiteral("t.m"));
    QCOMPARE(ref.getType(), m_type);
}

void tst_ViewItemRef::comparesAndAssignsTargets()
{
    std::unique_ptr<ViewItem> first(m_tree->make("target", "a"));
    std::unique_ptr<ViewItem> second(m_tree->make("target", "a"));
    std::unique_ptr<ViewItem> live(m_tree->make("target", "live"));
    ViewItemRef toFirst(first.get()), toSecond(second.get()), none(nullptr);

    QVERIFY(toFirst == ViewItemRef(first.get()));
    QVERIFY(!(toFirst == toSecond)); // same name and type, another node
    QVERIFY(toFirst == *first);

    first.reset();
    second.reset();
    QVERIFY(toFirst == toSecond);
    QVERIFY(toFirst == none);
    QVERIFY(!(toFirst == *live));

    std::unique_ptr<ViewItem> target(m_tree->make("target", "old"));
    std::unique_ptr<ViewItem> folder(m_tree->folderItem("dir"));
    ViewItemRef ref(target.get());

    // A rename is not followed until the reference is assigned again.
    target->setItemName(QStringLiteral("new"));
    QCOMPARE(ref.getItemName(), QStringLiteral("old"));
    ref = *target;
    QCOMPARE(ref.getItemName(), QStringLiteral("new"));
    ref = *folder;
    QCOMPARE(ref.getType(), m_tree->folder);

    // A null or gone target empties the reference but keeps the snapshot.
    ViewItemRef stale(target.get());
    target.reset();
    ref = stale;
    QVERIFY(ref.isNull());
    QCOMPARE(ref.getItemName(), QStringLiteral("dir"));
    QCOMPARE(ref.getType(), m_tree->folder);
}

void tst_ViewItemRef::referenceNeverOwnsItsTarget()
{
    std::unique_ptr<ViewItem> links(m_tree->folderItem("links"));
    QPointer<ViewItem> target = m_tree->make("target", "t.m");
    links->addChildItem(new ViewItemRef(target));
    QCOMPARE(target->getParentItem(), nullptr);
    // Its holder destroys the reference, never the node it stands for.
    links.reset();
    QVERIFY(target);
    QVERIFY(target->getItemData());
    delete target;
}

VELMORA_TEST(tst_ViewItemRef);
#include "tst_viewitemref.moc"
