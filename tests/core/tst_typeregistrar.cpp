#include "testsupport.h"
#include "testtypes.h"

#include "core/identifiers.h"
#include "core/typeregistrar.h"
#include "model/viewitem.h"

#include <QtTest/qsignalspy.h>

#include <algorithm>
#include <memory>

using namespace Velmora::Framework;
using Velmora::Tests::DerivedTestType;
using Velmora::Tests::TestType;

namespace {

const QString testTypeClass = QStringLiteral("Velmora::Tests::TestType");
const QString derivedClass = QStringLiteral("Velmora::Tests::DerivedTestType");

// Debug lines, registry signals and deletions in the order they happen. A message handler
// sees the debug lines that QTest::ignoreMessage cannot order against signals.
QStringList *s_events = nullptr;
QtMessageHandler s_previousHandler = nullptr;

void recordingHandler(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtDebugMsg && s_events)
        s_events->append(QStringLiteral("debug ") + text);
    // Everything still reaches QTest, so unexpected warnings keep failing the test.
    s_previousHandler(type, context, text);
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

QStringList idsOf(const QList<ItemType *> &types)
{
    QStringList ids;
    for (const ItemType *type : types)
        ids.append(type->getId());
    return sorted(ids);
}

} // namespace

class tst_TypeRegistrar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void registerRefusesNullAndEmptyId();
    void registerSetsRegistrarScopeAndSignals();
    void registerOverwritesSameId();
    void unregisterUnknownWarns();
    void unregisterHandsTheTypeBack();
    void lookupByClassName();
    void findAll_data();
    void findAll();
    void createItemOfType();
    void deallocateAllUnregistersThenDeletes();
    void propertyWindowRequestForwarded();

private:
    std::unique_ptr<TypeRegistrar> m_registrar;
};

void tst_TypeRegistrar::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    m_registrar = std::make_unique<TypeRegistrar>(nullptr);
}

void tst_TypeRegistrar::cleanup()
{
    m_registrar->deallocateAll();
    m_registrar.reset();
}

void tst_TypeRegistrar::registerRefusesNullAndEmptyId()
{
    QSignalSpy registered(m_registrar.get(), &TypeRegistrar::typeRegistered);
    QVERIFY(!m_registrar->registerType(nullptr, QStringLiteral("scope")));

    TestType nameless{QString()};
    QVERIFY(!m_registrar->registerType(&nameless, QStringLiteral("scope")));
    QCOMPARE(registered.size(), 0);
    QCOMPARE(nameless.registrar(), nullptr);
    QVERIFY(!m_registrar->isRegistered(QString()));
    QCOMPARE(m_registrar->lookupByClassName(testTypeClass), nullptr);
    QVERIFY(m_registrar->findAll(QString::fromLatin1(Iid::IAggregatable), QString()).isEmpty());
    QVERIFY(m_registrar->findAll(QString::fromLatin1(Iid::IAggregatable),
                                 QStringLiteral("scope")).isEmpty());
}

void tst_TypeRegistrar::registerSetsRegistrarScopeAndSignals()
{
    QSignalSpy registered(m_registrar.get(), &TypeRegistrar::typeRegistered);
    auto *scoped = new TestType(QStringLiteral("a"));
    auto *unscoped = new DerivedTestType(QStringLiteral("b"));

    QVERIFY(m_registrar->registerType(scoped, QStringLiteral("tools")));
    QVERIFY(m_registrar->registerType(unscoped));

    QCOMPARE(registered.size(), 2);
    QCOMPARE(registered.at(0).at(0).toString(), QStringLiteral("a"));
    QCOMPARE(registered.at(1).at(0).toString(), QStringLiteral("b"));
    QCOMPARE(scoped->registrar(), m_registrar.get());
    QCOMPARE(unscoped->registrar(), m_registrar.get());
    QCOMPARE(m_registrar->scope(QStringLiteral("a")), QStringLiteral("tools"));
    QCOMPARE(scoped->scope(), QStringLiteral("tools"));
    QVERIFY(m_registrar->scope(QStringLiteral("b")).isEmpty());
    QCOMPARE(m_registrar->lookup(QStringLiteral("a")), scoped);
    QCOMPARE(m_registrar->lookup(QStringLiteral("unknown")), nullptr);
}

void tst_TypeRegistrar::registerOverwritesSameId()
{
    QSignalSpy registered(m_registrar.get(), &TypeRegistrar::typeRegistered);
    // The replaced type stays alive and is no longer the registrar's to delete.
    auto first = std::make_unique<TestType>(QStringLiteral("dup"));
    auto *second = new DerivedTestType(QStringLiteral("dup"));

    QVERIFY(m_registrar->registerType(first.get(), QStringLiteral("old")));
    QTest::ignoreMessage(QtWarningMsg,
                         "Type , dup, already registered. Previous type is overwritten.");
    QVERIFY(m_registrar->registerType(second, QStringLiteral("new")));

    QCOMPARE(m_registrar->lookup(QStringLiteral("dup")), second);
    QCOMPARE(registered.size(), 2);
    QCOMPARE(registered.at(1).at(0).toString(), QStringLiteral("dup"));
    QCOMPARE(m_registrar->scope(QStringLiteral("dup")), QStringLiteral("new"));
    QCOMPARE(m_registrar->lookupByClassName(derivedClass), second);
    QCOMPARE(idsOf(m_registrar->findAll(QString::fromLatin1(Iid::IAggregatable), QString())),
             QStringList{QStringLiteral("dup")});
}

void tst_TypeRegistrar::unregisterUnknownWarns()
{
    QSignalSpy unregistered(m_registrar.get(), &TypeRegistrar::typeUnregistered);
    QTest::ignoreMessage(QtWarningMsg, "Type ghost not registered.");
    QCOMPARE(m_registrar->unregisterType(QStringLiteral("ghost")), nullptr);
    QCOMPARE(unregistered.size(), 0);
}

void tst_TypeRegistrar::unregisterHandsTheTypeBack()
{
    QSignalSpy unregistered(m_registrar.get(), &TypeRegistrar::typeUnregistered);
    auto *type = new TestType(QStringLiteral("a"));
    QVERIFY(m_registrar->registerType(type, QStringLiteral("tools")));

    std::unique_ptr<ItemType> back(m_registrar->unregisterType(QStringLiteral("a")));
    QCOMPARE(back.get(), type);
    QCOMPARE(unregistered.size(), 1);
    QCOMPARE(unregistered.at(0).at(0).toString(), QStringLiteral("a"));
    QCOMPARE(type->registrar(), nullptr);
    QVERIFY(type->scope().isEmpty());
    QVERIFY(!m_registrar->isRegistered(QStringLiteral("a")));
    QVERIFY(m_registrar->scope(QStringLiteral("a")).isEmpty());
    QCOMPARE(m_registrar->lookupByClassName(testTypeClass), nullptr);
    QVERIFY(m_registrar->lookupId(testTypeClass).isEmpty());
    // The scope is known but empty now.
    QVERIFY(m_registrar->findAll(QString::fromLatin1(Iid::IAggregatable),
                                 QStringLiteral("tools")).isEmpty());
}

void tst_TypeRegistrar::lookupByClassName()
{
    auto *plain = new TestType(QStringLiteral("plain"));
    auto *derived = new DerivedTestType(QStringLiteral("derived"));
    QVERIFY(m_registrar->registerType(plain));
    QVERIFY(m_registrar->registerType(derived));

    QCOMPARE(m_registrar->lookupByClassName(testTypeClass), plain);
    QCOMPARE(m_registrar->lookupId(testTypeClass), QStringLiteral("plain"));
    QCOMPARE(m_registrar->lookupByClassName(derivedClass), derived);
    QCOMPARE(m_registrar->lookupId(derivedClass), QStringLiteral("derived"));
    // The class name exactly as the meta-object gives it, namespace included.
    QCOMPARE(m_registrar->lookupByClassName(QStringLiteral("TestType")), nullptr);
    QCOMPARE(m_registrar->lookupByClassName(QString()), nullptr);
    QVERIFY(m_registrar->lookupId(QStringLiteral("Velmora::Framework::ItemType")).isEmpty());
}

void tst_TypeRegistrar::findAll_data()
{
    QTest::addColumn<QString>("iid");
    QTest::addColumn<QString>("scope");
    QTest::addColumn<QStringList>("expected");

    const QString aggregatable = QString::fromLatin1(Iid::IAggregatable);
    const QStringList all{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                          QStringLiteral("d")};
    QTest::newRow("interface, no scope: every type") << aggregatable << QString() << all;
    QTest::newRow("interface in a scope")
        << aggregatable << QStringLiteral("s1") << QStringList{QStringLiteral("a"), QStringLiteral("b")};
    QTest::newRow("interface in an unknown scope") << aggregatable << QStringLiteral("s3")
                                                   << QStringList();
    QTest::newRow("interface nobody implements")
        << QString::fromLatin1(Iid::ITypeFile) << QString() << QStringList();
    QTest::newRow("class name, no scope")
        << derivedClass << QString() << QStringList{QStringLiteral("b"), QStringLiteral("c")};
    QTest::newRow("class name in a scope")
        << derivedClass << QStringLiteral("s2") << QStringList{QStringLiteral("c")};
    QTest::newRow("base class name matches derived types") << testTypeClass << QString() << all;
    QTest::newRow("class name in an unknown scope") << testTypeClass << QStringLiteral("nowhere")
                                                    << QStringList();
}

void tst_TypeRegistrar::findAll()
{
    QFETCH(QString, iid);
    QFETCH(QString, scope);
    QFETCH(QStringList, expected);

    QVERIFY(m_registrar->registerType(new TestType(QStringLiteral("a")), QStringLiteral("s1")));
    QVERIFY(m_registrar->registerType(new DerivedTestType(QStringLiteral("b")), QStringLiteral("s1")));
    QVERIFY(m_registrar->registerType(new DerivedTestType(QStringLiteral("c")), QStringLiteral("s2")));
    QVERIFY(m_registrar->registerType(new TestType(QStringLiteral("d"))));

    QCOMPARE(idsOf(m_registrar->findAll(iid, scope)), expected);
}

void tst_TypeRegistrar::createItemOfType()
{
    auto *type = new TestType(QStringLiteral("leaf"));
    QVERIFY(m_registrar->registerType(type));

    QCOMPARE(m_registrar->createItem(QStringLiteral("unknown"), QStringLiteral("x")), nullptr);
    std::unique_ptr<ViewItem> item(m_registrar->createItem(QStringLiteral("leaf"),
                                                           QStringLiteral("first"), this));
    QVERIFY(item);
    QCOMPARE(item->getType(), type);
    QCOMPARE(item->getItemName(), QStringLiteral("first"));
    // The parent is the creation context of the data, not a Qt parent: the caller owns it.
    QCOMPARE(item->parent(), nullptr);
    QCOMPARE(item->getParentItem(), nullptr);
}

void tst_TypeRegistrar::deallocateAllUnregistersThenDeletes()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QStringList events;
    QObject recorder; // ends the recording connections with the test
    const QStringList ids{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    for (const QString &id : ids) {
        auto *type = new TestType(id);
        QVERIFY(m_registrar->registerType(type, id == QLatin1String("c") ? QString()
                                                                         : QStringLiteral("s")));
        connect(type, &QObject::destroyed, &recorder,
                [&events, id] { events.append(QStringLiteral("destroyed ") + id); });
    }
    connect(m_registrar.get(), &TypeRegistrar::typeUnregistered, &recorder,
            [&events](const QString &id) { events.append(QStringLiteral("unregistered ") + id); });

    s_events = &events;
    s_previousHandler = qInstallMessageHandler(recordingHandler);
    m_registrar->deallocateAll();
    qInstallMessageHandler(s_previousHandler);
    s_events = nullptr;

    // "Deallocating..." first; then per type, in hash order: unregistered, its id, deleted.
    QCOMPARE(events.size(), 1 + 3 * ids.size());
    QCOMPARE(events.first(), QStringLiteral("debug Deallocating..."));
    QStringList seen;
    for (int i = 1; i < events.size(); i += 3) {
        const QString id = events.at(i).section(QLatin1Char(' '), 1);
        seen.append(id);
        QCOMPARE(events.at(i), QStringLiteral("unregistered ") + id);
        QCOMPARE(events.at(i + 1), QStringLiteral("debug ") + id);
        QCOMPARE(events.at(i + 2), QStringLiteral("destroyed ") + id);
    }
    QCOMPARE(sorted(seen), ids);

    for (const QString &id : ids) {
        QVERIFY(!m_registrar->isRegistered(id));
        QVERIFY(m_registrar->scope(id).isEmpty());
    }
    QVERIFY(m_registrar->findAll(testTypeClass, QString()).isEmpty());
    QVERIFY(m_registrar->findAll(testTypeClass, QStringLiteral("s")).isEmpty());

    // The scopes were dropped; a new registration builds its scope again.
    auto *again = new TestType(QStringLiteral("a"));
    QVERIFY(m_registrar->registerType(again, QStringLiteral("s")));
    QCOMPARE(m_registrar->findAll(testTypeClass, QStringLiteral("s")),
             QList<ItemType *>{again});
}

void tst_TypeRegistrar::propertyWindowRequestForwarded()
{
    QSignalSpy requested(m_registrar.get(), &TypeRegistrar::propertyWindowRequested);
    auto *first = new TestType(QStringLiteral("a"));
    auto *second = new TestType(QStringLiteral("b"));
    QVERIFY(m_registrar->registerType(first));
    QVERIFY(m_registrar->registerType(second, QStringLiteral("s")));

    emit first->propertyWindowRequested();
    emit second->propertyWindowRequested();
    QCOMPARE(requested.size(), 2);

    std::unique_ptr<ItemType> back(m_registrar->unregisterType(QStringLiteral("a")));
    emit first->propertyWindowRequested();
    QCOMPARE(requested.size(), 2);
    emit second->propertyWindowRequested();
    QCOMPARE(requested.size(), 3);
}

VELMORA_TEST(tst_TypeRegistrar);
#include "tst_typeregistrar.moc"
