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

    void payloadsAreUnparentedDistinctClasses();
    void bagSetNotifiesAndGettersFallBackOnlyForMissingKeys();
};

void tst_ItemData::payloadsAreUnparentedDistinctClasses()
{
    QObject context;
    ItemDataProject project(&context);
    ItemDataSolution solution(&context);
    // A Qt parent would delete the payload behind its node's back.
    QCOMPARE(project.parent(), nullptr);
    QVERIFY(context.children().isEmpty());
    QCOMPARE(solution.getCreationContext(), &context);

    solution.setLoaded(true);
    solution.setDirty(true);
    solution.reset();
    QVERIFY(!solution.isLoaded() && !solution.isDirty());
}

void tst_ItemData::bagSetNotifiesAndGettersFallBackOnlyForMissingKeys()
{
    ItemPropertyBag bag;
    QSignalSpy notified(&bag, &ItemPropertyBag::NotifyBagSet);
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

    for (const char *later : {"delta", "Zulu"}) // the map sorts them by code unit
        bag.set(QString::fromLatin1(later), 0);
    bag.remove(QStringLiteral("absent"));
    bag.remove(key);
    QCOMPARE(bag.propertyMap().keys(), QStringList({"Zulu", "delta", "literal"}));
    QCOMPARE(notified.size(), 5);

    const QString word = QStringLiteral("word"), number = QStringLiteral("number");
    bag.set(word, QStringLiteral("not a number"));
    bag.set(number, QStringLiteral("42"));
    const QVariant defaultValue(5);
    QVERIFY(!bag.get(number, nullptr, defaultValue));

    QVariant out(QStringLiteral("before"));
    QVERIFY(!bag.get(QString(), &out, defaultValue)); // an empty key leaves the output alone
    QCOMPARE(out, QVariant(QStringLiteral("before")));
    QVERIFY(!bag.get(QStringLiteral("absent"), &out, defaultValue));
    QCOMPARE(out, defaultValue);
    QVERIFY(bag.get(number, &out, defaultValue));
    QCOMPARE(out, QVariant(QStringLiteral("42")));

    // A present value converts, even when the conversion fails; the default is for absence.
    QCOMPARE(bag.getInt(word, 7), 0);
    QCOMPARE(bag.getInt(number, 7), 42);
    QCOMPARE(bag.getInt(QStringLiteral("absent"), 7), 7);
    QCOMPARE(bag.getBool(number, false), true);
    QCOMPARE(bag.getString(number, QStringLiteral("d")), QStringLiteral("42"));
}

VELMORA_TEST(tst_ItemData);
#include "tst_itemdata.moc"
