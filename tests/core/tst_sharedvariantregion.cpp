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

    void singleInstance();
    void registration();
    void triggering();
    void focusedTriggerIgnoresTheFlag();
    void invalidValueDiffersFromUnknownName();

private:
    SharedVariantRegion *region = nullptr;
    const QString name = QStringLiteral("selection");
};

void tst_SharedVariantRegion::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    region = SharedVariantRegion::instanse();
}

void tst_SharedVariantRegion::cleanup()
{
    // The region lives for the process; every test leaves it as it found it.
    region->unregisterVariant(name);
}

void tst_SharedVariantRegion::singleInstance()
{
    QVERIFY(region);
    QCOMPARE(SharedVariantRegion::instanse(), region);
}

void tst_SharedVariantRegion::registration()
{
    QVERIFY(region->registerVariant(name, 1, true));
    QVERIFY(!region->registerVariant(name, 2, false));
    QCOMPARE(region->variantValue(name), std::optional<QVariant>(1));
    QVERIFY(region->canTriggered(name));
    QVERIFY(region->containsVariant(name));

    QVERIFY(region->unregisterVariant(name));
    QVERIFY(!region->unregisterVariant(name));
    QVERIFY(!region->containsVariant(name));
    QVERIFY(!region->canTriggered(name));
}

void tst_SharedVariantRegion::triggering()
{
    QSignalSpy changed(region, &SharedVariantRegion::signalVariantChanged);
    QVERIFY(region->registerVariant(name, 1, false));

    QVERIFY(region->setVariantValue(name, 1));   // equal: true, silent
    QVERIFY(region->setVariantValue(name, 2));   // not triggering: stored, silent
    QCOMPARE(region->variantValue(name), std::optional<QVariant>(2));
    QCOMPARE(changed.size(), 0);

    QVERIFY(!region->setCanTriggered(name, true)); // answers false although it worked
    QVERIFY(region->canTriggered(name));
    region->slotSetVariant(name, 3);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), name);
    QCOMPARE(changed.at(0).at(1).value<QVariant>(), QVariant(3));

    const QString unknown = QStringLiteral("unknown");
    QVERIFY(!region->setVariantValue(unknown, 1));
    QVERIFY(!region->setCanTriggered(unknown, true));
    QVERIFY(!region->containsVariant(unknown));
    QCOMPARE(region->variantValue(unknown), std::nullopt);
}

void tst_SharedVariantRegion::focusedTriggerIgnoresTheFlag()
{
    QSignalSpy changed(region, &SharedVariantRegion::signalVariantChanged);
    QVERIFY(!region->focusdTriggerSignal(name));
    QVERIFY(region->registerVariant(name, QStringLiteral("v"), false));
    QVERIFY(region->focusdTriggerSignal(name));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(1).value<QVariant>(), QVariant(QStringLiteral("v")));
}

void tst_SharedVariantRegion::invalidValueDiffersFromUnknownName()
{
    QVERIFY(region->registerVariant(name, QVariant(), false));
    const std::optional<QVariant> value = region->variantValue(name);
    QVERIFY(value.has_value());
    QVERIFY(!value->isValid());
    QVERIFY(!region->variantValue(QStringLiteral("unknown")).has_value());
}

VELMORA_TEST(tst_SharedVariantRegion);
#include "tst_sharedvariantregion.moc"
