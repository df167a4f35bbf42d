#include "testsupport.h"

#include "core/augmentableregistrar.h"
#include "core/dataregistrar.h"
#include "core/defaultaggregatable.h"
#include "core/defaultfileaugmentable.h"
#include "core/defaultgenericaugmentable.h"
#include "core/serviceregistrar.h"

#include <QtTest/qsignalspy.h>

using namespace Velmora::Framework;

namespace {
const QString genericId = QString::fromLatin1(Iid::IAugmentableGeneric);
}

class tst_Registrars : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void serviceLastRegistrationWins();
    void dataFirstRegistrationWins();
    void augmentablesInOrderUntilUnregistered();
    void augmentableMustImplementTheIdentifier();
};

void tst_Registrars::serviceLastRegistrationWins()
{
    ServiceRegistrar registrar;
    QSignalSpy registered(&registrar, &ServiceRegistrar::serviceRegistered);
    DefaultAggregatable first, second;
    const QString id = QStringLiteral("IProject.Facilities.Velmora.Orvane");

    QVERIFY(!registrar.registerService(QString(), &first));
    QVERIFY(registrar.registerService(id, &first));
    QTest::ignoreMessage(QtWarningMsg,
                         "The Service is already registered. Previous serivce is overwritten.\n");
    QVERIFY(registrar.registerService(id, &second));

    QCOMPARE(registrar.lookup(id), static_cast<IBase *>(&second));
    QCOMPARE(registered.size(), 2);
    QCOMPARE(registered.at(1).at(0).toString(), id);
    QCOMPARE(registrar.lookup(QStringLiteral("unknown")), nullptr);

    QSignalSpy unregistered(&registrar, &ServiceRegistrar::serviceUnregistered);
    const QString nullId = QStringLiteral("null");
    QTest::ignoreMessage(QtWarningMsg, "Service not registered.\n");
    QCOMPARE(registrar.unregisterService(nullId), nullptr);

    // A null service is stored like any other, but leaves without a signal.
    QVERIFY(registrar.registerService(nullId, nullptr));
    QVERIFY(registrar.isRegistered(nullId));
    QCOMPARE(registrar.unregisterService(nullId), nullptr);
    QVERIFY(!registrar.isRegistered(nullId));
    QCOMPARE(unregistered.size(), 0);

    QCOMPARE(registrar.unregisterService(id), static_cast<IBase *>(&second));
    QCOMPARE(unregistered.size(), 1);

    QVERIFY(registrar.registerService(id, &first));
    registrar.unregisterAll();
    QVERIFY(!registrar.isRegistered(id));
    QCOMPARE(unregistered.size(), 1);
}

void tst_Registrars::dataFirstRegistrationWins()
{
    DataRegistrar registrar;
    QSignalSpy registered(&registrar, &DataRegistrar::signalDataRegistered);
    QSignalSpy changed(&registrar, &DataRegistrar::signalDataValueChanged);
    QSignalSpy unregistered(&registrar, &DataRegistrar::signalDataUnregistered);
    const QString name = QStringLiteral("mode");

    QVERIFY(registrar.registerData(name, 1));
    QVERIFY(!registrar.registerData(name, 2));
    QCOMPARE(registrar.lookup(name), QVariant(1));
    QCOMPARE(registered.size(), 1);

    QVERIFY(!registrar.setDataValue(name, 1));
    QCOMPARE(changed.size(), 0);
    QVERIFY(registrar.setDataValue(name, 3));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(1).value<QVariant>(), QVariant(3));

    const QString unknown = QStringLiteral("unknown");
    QVERIFY(!registrar.setDataValue(unknown, 4));
    QVERIFY(!registrar.isRegistered(unknown));

    QVERIFY(registrar.unregisterData(name));
    QVERIFY(!registrar.unregisterData(name));
    QCOMPARE(unregistered.size(), 1);
    QVERIFY(registrar.registerData(name, 5));
    QCOMPARE(registrar.lookup(name), QVariant(5));
}

void tst_Registrars::augmentablesInOrderUntilUnregistered()
{
    AugmentableRegistrar registrar;
    DefaultGenericAugmentable a, b, c;

    QVERIFY(registrar.registerInterface(genericId, &a, 10));
    QVERIFY(registrar.registerInterface(genericId, &b, 0));
    QVERIFY(registrar.registerInterface(genericId, &c, 10));
    QVERIFY(registrar.registerInterface(genericId, &b, 10)); // twice: occurs twice
    QCOMPARE(registrar.getIfList(genericId), (QList<IBase *>{&b, &a, &c, &b}));

    QVERIFY(registrar.getIfList(QString()).isEmpty());
    QVERIFY(registrar.getIfList(QStringLiteral("unknown")).isEmpty());

    // Unregistering takes out the first entry of the interface, once per call.
    QVERIFY(!registrar.unregisterInterface(QString(), &a));
    QVERIFY(!registrar.unregisterInterface(genericId, nullptr));
    QVERIFY(!registrar.unregisterInterface(QStringLiteral("unknown"), &b));
    QVERIFY(registrar.unregisterInterface(genericId, &b));
    QCOMPARE(registrar.getIfList(genericId), (QList<IBase *>{&a, &c, &b}));
    QVERIFY(registrar.unregisterInterface(genericId, &b));
    QVERIFY(!registrar.unregisterInterface(genericId, &b));
    registrar.deallocateAll();
    QVERIFY(registrar.getIfList(genericId).isEmpty());
}

void tst_Registrars::augmentableMustImplementTheIdentifier()
{
    AugmentableRegistrar registrar;
    DefaultFileAugmentable file;

    QVERIFY(!registrar.registerInterface(QString(), &file, 0));
    QVERIFY(!registrar.registerInterface(genericId, nullptr, 0));
    QTest::ignoreMessage(QtWarningMsg, "ActionHandler::registerInterface() - Interface type mismatch!");
    QVERIFY(!registrar.registerInterface(genericId, &file, 0));
    QVERIFY(registrar.getIfList(genericId).isEmpty());

    // Any name the query answers will do, and the interface passed in is the one stored.
    QVERIFY(registrar.registerInterface(QStringLiteral("IAugmentableFile"), &file, 0));
    QCOMPARE(registrar.getIfList(QStringLiteral("IAugmentableFile")), QList<IBase *>{&file});
}

VELMORA_TEST(tst_Registrars);
#include "tst_registrars.moc"
