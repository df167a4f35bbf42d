#include "testsupport.h"

#include "model/itemdata.h"
#include "model/itempropertybag.h"

#include <QtTest/qsignalspy.h>

#include <memory>

using namespace Velmora::Framework;

class tst_ItemData : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void resetClearsBothFlags();
    void payloadHasNoParentAndGuardsContext();
    void subclassesAreDistinct();

    void setIgnoresEmptyKeyAndAlwaysNotifies();
    void setStoresOwnType();
    void get();
    void typedGettersUseConversionNotDefault();
    void removeIsSilent();
    void propertyMapIsSorted();
};

void tst_ItemData::resetClearsBothFlags()
{
    ItemData data(nullptr);
    QVERIFY(!data.isLoaded());
    QVERIFY(!data.isDirty());
    data.setLoaded(true);
    data.setDirty(true);
    data.reset();
    QVERIFY(!data.isLoaded());
    QVERIFY(!data.isDirty());
}

void tst_ItemData::payloadHasNoParentAndGuardsContext()
{
    auto context = std::make_unique<QObject>();
    ItemData data(context.get());
    // A Qt parent would delete the payload behind its node's back.
    QCOMPARE(data.parent(), nullptr);
    QVERIFY(context->children().isEmpty());
    QCOMPARE(data.getCreationContext(), context.get());
    context.reset();
    QCOMPARE(data.getCreationContext(), nullptr);
}

void tst_ItemData::subclassesAreDistinct()
{
    ItemDataProject project(nullptr);
    ItemDataSolution solution(nullptr);
    ItemData plain(nullptr);
    QObject *objects[] = {&project, &solution, &plain};

    QVERIFY(qobject_cast<ItemDataProject *>(objects[0]));
    QVERIFY(!qobject_cast<ItemDataSolution *>(objects[0]));
    QVERIFY(qobject_cast<ItemDataSolution *>(objects[1]));
    QVERIFY(!qobject_cast<ItemDataProject *>(objects[1]));
    QVERIFY(!qobject_cast<ItemDataProject *>(objects[2]));
    QVERIFY(qobject_cast<ItemData *>(objects[1]));
    QCOMPARE(objects[0]->metaObject()->className(), "Velmora::Framework::ItemDataProject");
}

void tst_ItemData::setIgnoresEmptyKeyAndAlwaysNotifies()
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
}

void tst_ItemData::setStoresOwnType()
{
    ItemPropertyBag bag;
    bag.set(QStringLiteral("flag"), true);
    bag.set(QStringLiteral("literal"), "text"); // must not decay to the bool overload
    QCOMPARE(bag.propertyMap().value(QStringLiteral("flag")).typeId(), QMetaType::Bool);
    QCOMPARE(bag.propertyMap().value(QStringLiteral("literal")), QVariant(QStringLiteral("text")));
}

void tst_ItemData::get()
{
    ItemPropertyBag bag;
    bag.set(QStringLiteral("present"), QStringLiteral("p"));
    const QVariant defaultValue(5);

    QVERIFY(!bag.get(QStringLiteral("present"), nullptr, defaultValue));

    QVariant out(QStringLiteral("before"));
    QVERIFY(!bag.get(QString(), &out, defaultValue));
    QCOMPARE(out, QVariant(QStringLiteral("before"))); // the default is not written here

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
    bag.set(QStringLiteral("list"), QVariant(QVariantList{1}));

    QCOMPARE(bag.getInt(word, 7), 0);
    QCOMPARE(bag.getInt(number, 7), 42);
    QCOMPARE(bag.getInt(QStringLiteral("absent"), 7), 7);
    QCOMPARE(bag.getInt(QString(), 7), 7);
    QCOMPARE(bag.getBool(number, false), true);
    QCOMPARE(bag.getBool(QStringLiteral("absent"), true), true);
    QCOMPARE(bag.getString(number, QStringLiteral("d")), QStringLiteral("42"));
    QCOMPARE(bag.getString(QStringLiteral("list"), QStringLiteral("d")), QString());
    QCOMPARE(bag.getString(QString(), QStringLiteral("d")), QStringLiteral("d"));
}

void tst_ItemData::removeIsSilent()
{
    ItemPropertyBag bag;
    const QString key = QStringLiteral("k");
    bag.set(key, 1);
    QSignalSpy notified(&bag, &ItemPropertyBag::NotifyBagSet);
    bag.remove(QString());
    bag.remove(QStringLiteral("absent"));
    QCOMPARE(bag.propertyMap().size(), 1);
    bag.remove(key);
    QVERIFY(bag.propertyMap().isEmpty());
    QCOMPARE(notified.size(), 0);
}

void tst_ItemData::propertyMapIsSorted()
{
    ItemPropertyBag bag;
    for (const char *key : {"delta", "alpha", "Zulu", "charlie", "bravo"})
        bag.set(QString::fromLatin1(key), 0);
    QCOMPARE(bag.propertyMap().keys(),
             (QStringList{QStringLiteral("Zulu"), QStringLiteral("alpha"), QStringLiteral("bravo"),
                          QStringLiteral("charlie"), QStringLiteral("delta")}));
}

VELMORA_TEST(tst_ItemData);
#include "tst_itemdata.moc"
