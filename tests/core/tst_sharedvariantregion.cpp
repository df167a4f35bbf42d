#include "testsupport.h"

#include "core/sharedvariantregion.h"

#include <QtTest/qsignalspy.h>

using namespace Velmora::Framework;

class tst_SharedVariantRegion : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void registration();
    void triggering();

private:
    SharedVariantRegion *region = nullptr;
    const QString name = QStringLiteral("selection");
    const QString unknown = QStringLiteral("unknown");
};

void tst_SharedVariantRegion::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    region = SharedVariantRegion::instanse();
    QVERIFY(region);
}

void tst_SharedVariantRegion::cleanup()
{
    // The region lives for the process; every test leaves it as it found it.
    region->unregisterVariant(name);
}

void tst_SharedVariantRegion::registration()
{
    QVERIFY(region->registerVariant(name, QVariant(), true));
    QVERIFY(!region->registerVariant(name, 2, false));
    // An invalid value is still a value; only an unknown name has none.
    const std::optional<QVariant> value = region->variantValue(name);
    QVERIFY(value.has_value() && !value->isValid());
    QCOMPARE(region->variantValue(unknown), std::nullopt);
    QVERIFY(region->canTriggered(name));

    QVERIFY(region->unregisterVariant(name));
    QVERIFY(!region->unregisterVariant(name));
    QVERIFY(!region->containsVariant(name));
}

void tst_SharedVariantRegion::triggering()
{
    QSignalSpy changed(region, &SharedVariantRegion::signalVariantChanged);
    QVERIFY(!region->focusdTriggerSignal(name));
    QVERIFY(region->registerVariant(name, 1, false));

    QVERIFY(region->setVariantValue(name, 1));   // equal: true, silent
    QVERIFY(region->setVariantValue(name, 2));   // not triggering: stored, silent
    QCOMPARE(region->variantValue(name), std::optional<QVariant>(2));
    QCOMPARE(changed.size(), 0);
    // A focused trigger ignores the flag.
    QVERIFY(region->focusdTriggerSignal(name));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(1).value<QVariant>(), QVariant(2));

    QVERIFY(!region->setCanTriggered(name, true)); // answers false although it worked
    QVERIFY(region->canTriggered(name));
    region->slotSetVariant(name, 3);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed.at(1).at(0).toString(), name);
    QCOMPARE(changed.at(1).at(1).value<QVariant>(), QVariant(3));

    QVERIFY(!region->setVariantValue(unknown, 1));
    QVERIFY(!region->setCanTriggered(unknown, true));
}

VELMORA_TEST(tst_SharedVariantRegion);
#include "tst_sharedvariantregion.moc"
