#include "testsupport.h"

#include "core/augmentableregistrar.h"
#include "core/dataregistrar.h"
#include "core/defaultaggregatable.h"
#include "core/defaultfileaugmentable.h"
#include "core/defaultgenericaugmentable.h"
#include "core/ilaunchable.h"
#include "core/launchableregistrar.h"
#include "core/serviceregistrar.h"
#include "core/sharedvariantregion.h"

#include <QtTest/qsignalspy.h>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

namespace {

const QString genericId = QString::fromLatin1(Iid::IAugmentableGeneric);
const QString variant = u"selection"_s;

class RecordingLaunchable : public QObject, public ILaunchable
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::ILaunchable)

public:
    RecordingLaunchable(QList<QString> extensions, QList<QString> options)
        : m_extensions(std::move(extensions)), m_options(std::move(options))
    {
    }
    bool queryInterface(const char *iid, IBase **out) override
    {
        return queryByMetaCast(this, iid, out);
    }
    QList<QString> getExtensions() override { return m_extensions; }
    QList<QString> getOptionNames() override { return m_options; }
    bool launch(const QList<QString> &arguments) override
    {
        launched.append(arguments);
        return true;
    }

    QList<QList<QString>> launched;

private:
    QList<QString> m_extensions;
    QList<QString> m_options;
};

} // namespace

class tst_Registrars : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }
    // The region lives for the process; every test leaves it as it found it.
    void cleanup() { SharedVariantRegion::instanse()->unregisterVariant(variant); }

    void serviceLastRegistrationWins();
    void dataFirstRegistrationWins();
    void augmentablesInOrderUntilUnregistered();
    void launchableDispatch_data();
    void launchableDispatch();
    void launchableRegistration();
    void sharedVariants();
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
    DefaultFileAugmentable file;
    QVERIFY(!registrar.registerInterface(QString(), &file, 0));
    QVERIFY(!registrar.registerInterface(genericId, nullptr, 0));
    QTest::ignoreMessage(QtWarningMsg, "ActionHandler::registerInterface() - Interface type mismatch!");
    QVERIFY(!registrar.registerInterface(genericId, &file, 0));
    // Any name the query answers will do, and the interface passed in is the one stored.
    QVERIFY(registrar.registerInterface(QStringLiteral("IAugmentableFile"), &file, 0));
    QCOMPARE(registrar.getIfList(QStringLiteral("IAugmentableFile")), QList<IBase *>{&file});

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

void tst_Registrars::launchableDispatch_data()
{
    QTest::addColumn<QList<QString>>("arguments");
    QTest::addColumn<QString>("receiver"); // the launchable handed all of them, or none

    QTest::newRow("extension in capitals") << QList<QString>{u"/w/A.SLN-QEL"_s} << u"solution"_s;
    QTest::newRow("ends in a dot") << QList<QString>{u"/w/a."_s} << QString();
    QTest::newRow("no dot") << QList<QString>{u"README"_s} << QString();
    QTest::newRow("dot in a folder only") << QList<QString>{u"/w.sln-qel/readme"_s} << QString();
    QTest::newRow("option as registered") << QList<QString>{u"-open=a b"_s, u"-open"_s} << u"tool"_s;
    QTest::newRow("option in capitals") << QList<QString>{u"-Open=x"_s} << QString();
    QTest::newRow("unknown option") << QList<QString>{u"-close"_s} << QString();
}

void tst_Registrars::launchableDispatch()
{
    QFETCH(QList<QString>, arguments);
    QFETCH(QString, receiver);

    LaunchableRegistrar registrar;
    RecordingLaunchable solution({u"sln-qel"_s}, {});
    RecordingLaunchable tool({u"txt"_s}, {u"OPEN"_s});
    QVERIFY(registrar.registerLaunchable(&solution));
    QVERIFY(registrar.registerLaunchable(&tool));

    QCOMPARE(registrar.launch(arguments), !receiver.isEmpty());
    const QList<QList<QString>> handed{arguments}, nothing;
    QCOMPARE(solution.launched, receiver == u"solution"_s ? handed : nothing);
    QCOMPARE(tool.launched, receiver == u"tool"_s ? handed : nothing);
}

void tst_Registrars::launchableRegistration()
{
    LaunchableRegistrar registrar;
    RecordingLaunchable first({u"txt"_s, u"md"_s}, {u"open"_s});
    RecordingLaunchable second({u"TXT"_s}, {});
    RecordingLaunchable empty({}, {});

    QVERIFY(!registrar.registerLaunchable(nullptr));
    QVERIFY(registrar.registerLaunchable(&first));
    QVERIFY(registrar.registerLaunchable(&first));
    QVERIFY(registrar.registerLaunchable(&second));
    QVERIFY(registrar.registerLaunchable(&empty));
    // The empty one leaves no trace; the second keeps nothing the first claimed.
    QCOMPARE(registrar.getLaunchables(), QList<ILaunchable *>{&first});

    // Files for two launchables: only one of them is started per call.
    QVERIFY(registrar.launch({u"a.txt"_s, u"b.md"_s}));
    QCOMPARE(first.launched, (QList<QList<QString>>{{u"a.txt"_s, u"b.md"_s}}));

    QVERIFY(registrar.unregisterLaunchable(&first));
    QVERIFY(!registrar.unregisterLaunchable(&first));
    QVERIFY(!registrar.launch({u"a.txt"_s}));
    QVERIFY(registrar.registerLaunchable(&second));
    registrar.unregisterAll();
    QVERIFY(registrar.getLaunchables().isEmpty());
}

void tst_Registrars::sharedVariants()
{
    SharedVariantRegion *region = SharedVariantRegion::instanse();
    const QString unknown = u"unknown"_s;
    QSignalSpy changed(region, &SharedVariantRegion::signalVariantChanged);
    QVERIFY(!region->focusdTriggerSignal(variant));
    QVERIFY(region->registerVariant(variant, QVariant(), true));
    QVERIFY(!region->registerVariant(variant, 2, false));
    // An invalid value is still a value; only an unknown name has none.
    const std::optional<QVariant> value = region->variantValue(variant);
    QVERIFY(value.has_value() && !value->isValid());
    QCOMPARE(region->variantValue(unknown), std::nullopt);
    QVERIFY(region->canTriggered(variant));
    QVERIFY(region->unregisterVariant(variant));
    QVERIFY(!region->unregisterVariant(variant));
    QVERIFY(!region->containsVariant(variant));

    QVERIFY(region->registerVariant(variant, 1, false));
    QVERIFY(region->setVariantValue(variant, 1));   // equal: true, silent
    QVERIFY(region->setVariantValue(variant, 2));   // not triggering: stored, silent
    QCOMPARE(region->variantValue(variant), std::optional<QVariant>(2));
    QCOMPARE(changed.size(), 0);
    // A focused trigger ignores the flag.
    QVERIFY(region->focusdTriggerSignal(variant));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(1).value<QVariant>(), QVariant(2));

    QVERIFY(!region->setCanTriggered(variant, true)); // answers false although it worked
    QVERIFY(region->canTriggered(variant));
    region->slotSetVariant(variant, 3);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed.at(1).at(0).toString(), variant);
    QCOMPARE(changed.at(1).at(1).value<QVariant>(), QVariant(3));
    QVERIFY(!region->setVariantValue(unknown, 1));
    QVERIFY(!region->setCanTriggered(unknown, true));
}

VELMORA_TEST(tst_Registrars);
#include "tst_registrars.moc"
