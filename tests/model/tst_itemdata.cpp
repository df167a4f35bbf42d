#include "testsupport.h"

#include "model/itemdata.h"
#include "model/itempropertybag.h"

#include <QtTest/qsignalspy.h>

using namespace Velmora::Framework;

class tst_ItemData : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void resetClearsBothFlags();
    void payloadsAreUnparentedDistinctClasses();
    void setNotifiesEveryTimeRemoveNever();
    void getLeavesOutputAloneForEmptyKey();
    void typedGettersUseConversionNotDefault();
    void propertyMapIsSorted();
};

void tst_ItemData::resetClearsBothFlags()
{
    ItemData data(nullptr);
    data.setLoaded(true);
    data.setDirty(true);
    data.reset();
    QVERIFY(!data.isLoaded());
    QVERIFY(!data.isDirty());
}

void tst_ItemData::payloadsAreUnparentedDistinctClasses()
{
    QObject context;
    ItemDataProject project(&context);
    ItemDataSolution solution(&context);
    // A Qt parent would delete the payload behind its node's back.
    QCOMPARE(project.parent(), nullptr);
    QVERIFY(context.children().isEmpty());
    QCOMPARE(solution.getCreationContext(), &context);

    QObject *asObject = &project;
    QVERIFY(!qobject_cast<ItemDataSolution *>(asObject));
    asObject = &solution;
    QVERIFY(!qobject_cast<ItemDataProject *>(asObject));
    QVERIFY(qobject_cast<ItemData *>(asObject));
}

void tst_ItemData::setNotifiesEveryTimeRemoveNever()
{
    ItemPropertyBag bag;
    QSignalSpy notified(&bag, &ItemPropertyBag::NotifyBagSet);
    bag.set(QString(), 1);
    bag.set(QString(), QVariant(2));
    QVERIFY(bag.propertyMap().isEmpty());
    QCOMPARE(notified.size(), 0);

    const QString key = QStringLiteral("k");
    bag.set(key, 1);
    bag.set(key, 1); // unchanged, still announced
    QCOMPARE(notified.size(), 2);
    QCOMPARE(notified.at(1).at(0).toString(), key);
    bag.set(QStringLiteral("literal"), "text"); // must not decay to the bool overload
    QCOMPARE(bag.propertyMap().value(QStringLiteral("literal")), QVariant(QStringLiteral("text")));

    bag.remove(QStringLiteral("absent"));
    bag.remove(key);
    QCOMPARE(bag.propertyMap().keys(), QStringList{"literal"});
    QCOMPARE(notified.size(), 3);
}

void tst_ItemData::getLeavesOutputAloneForEmptyKey()
{
    ItemPropertyBag bag;
    bag.set(QStringLiteral("present"), QStringLiteral("p"));
    const QVariant defaultValue(5);
    QVERIFY(!bag.get(QStringLiteral("present"), nullptr, defaultValue));

    QVariant out(QStringLiteral("before"));
    QVERIFY(!bag.get(QString(), &out, defaultValue));
    QCOMPARE(out, QVariant(QStringLiteral("before")));
    QVERIFY(!bag.get(QStringLiteral("absent"), &out, defaultValue));
    QCOMPARE(out, defaultValue);
    QVERIFY(bag.get(QStringLiteral("present"), &out, defaultValue));
    QCOMPARE(out, QVariant(QStringLiteral("p")));
}

void tst_ItemData::typedGettersUseConversionNotDefault()
{
    ItemPropertyBag bag;
    const QString word = QStringLiteral("word"), number = QStringLiteral("number");
    bag.set(word, QStringLiteral("not a number"));
    bag.set(number, QStringLiteral("42"));

    QCOMPARE(bag.getInt(word, 7), 0);
    QCOMPARE(bag.getInt(number, 7), 42);
    QCOMPARE(bag.getInt(QStringLiteral("absent"), 7), 7);
    QCOMPARE(bag.getInt(QString(), 7), 7);
    QCOMPARE(bag.getBool(number, false), true);
    QCOMPARE(bag.getString(number, QStringLiteral("d")), QStringLiteral("42"));
    QCOMPARE(bag.getString(QString(), QStringLiteral("d")), QStringLiteral("d"));
}

void tst_ItemData::propertyMapIsSorted()
{
    ItemPropertyBag bag;
    for (const char *key : {"delta", "alpha", "Zulu", "charlie"})
        bag.set(QString::fromLatin1(key), 0);
    QCOMPARE(bag.propertyMap().keys(), QStringList({"Zulu", "alpha", "charlie", "delta"}));
}

VELMORA_TEST(tst_ItemData);
#include "tst_itemdata.moc"
