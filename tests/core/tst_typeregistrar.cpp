#include "testsupport.h"
#include "testtypes.h"

#include "core/identifiers.h"
#include "core/typeregistrar.h"
#include "model/viewitem.h"

#include <QtTest/qsignalspy.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using namespace Velmora::Tests;

static const QString testTypeClass = u"Velmora::Tests::TestType"_s;
static const QString derivedClass = u"Velmora::Tests::DerivedTestType"_s;

class tst_TypeRegistrar : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_registrar = std::make_unique<TypeRegistrar>(nullptr);
    }
    void cleanup()
    {
        m_registrar->deallocateAll();
        m_registrar.reset();
    }
    void registerAndUnregister();
    void registerOverwritesSameId();
    void findAll_data();
    void findAll();
    void deallocateAllUnregistersThenDeletes();

private:
    std::unique_ptr<TypeRegistrar> m_registrar;
};

void tst_TypeRegistrar::registerAndUnregister()
{
    QSignalSpy registered(m_registrar.get(), &TypeRegistrar::typeRegistered);
    QSignalSpy unregistered(m_registrar.get(), &TypeRegistrar::typeUnregistered);
    QSignalSpy requested(m_registrar.get(), &TypeRegistrar::propertyWindowRequested);
    TestType nameless{QString()};
    QVERIFY(!m_registrar->registerType(nullptr, u"tools"_s));
    QVERIFY(!m_registrar->registerType(&nameless, u"tools"_s));
    QCOMPARE(nameless.registrar(), nullptr);
    auto *type = new TestType(u"a"_s);
    auto *derived = new DerivedTestType(u"b"_s);
    QVERIFY(m_registrar->registerType(type, u"tools"_s));
    QVERIFY(m_registrar->registerType(derived));
    QCOMPARE(registered.size(), 2);
    QCOMPARE(registered.at(0).at(0).toString(), u"a"_s);
    QCOMPARE(type->scope(), u"tools"_s);
    // The class name exactly as the meta-object gives it, namespace included.
    QCOMPARE(m_registrar->lookupByClassName(derivedClass), derived);
    QCOMPARE(m_registrar->lookupId(testTypeClass), u"a"_s);
    QCOMPARE(m_registrar->lookupByClassName(u"TestType"_s), nullptr);
    emit type->propertyWindowRequested();
    QCOMPARE(requested.size(), 1);
    QCOMPARE(m_registrar->createItem(u"unknown"_s, u"x"_s), nullptr);
    // The parent is the creation context of the data, not a Qt parent: the caller owns the item.
    std::unique_ptr<ViewItem> item(m_registrar->createItem(u"b"_s, u"first"_s, this));
    QVERIFY(item->getType() == derived && item->getItemName() == u"first"_s && !item->parent());

    QTest::ignoreMessage(QtWarningMsg, "Type ghost not registered.");
    QCOMPARE(m_registrar->unregisterType(u"ghost"_s), nullptr);
    QCOMPARE(unregistered.size(), 0);

    std::unique_ptr<ItemType> back(m_registrar->unregisterType(u"a"_s));
    QCOMPARE(back.get(), type);
    QCOMPARE(unregistered.at(0).at(0).toString(), u"a"_s);
    QCOMPARE(type->registrar(), nullptr);
    QVERIFY(m_registrar->lookupId(testTypeClass).isEmpty());
    QVERIFY(m_registrar->findAll(testTypeClass, u"tools"_s).isEmpty());
    emit type->propertyWindowRequested();
    QCOMPARE(requested.size(), 1);
}

void tst_TypeRegistrar::registerOverwritesSameId()
{
    // The replaced type stays alive and is no longer the registrar's to delete.
    auto first = std::make_unique<TestType>(u"dup"_s);
    auto *second = new DerivedTestType(u"dup"_s);
    QVERIFY(m_registrar->registerType(first.get(), u"old"_s));
    QSignalSpy registered(m_registrar.get(), &TypeRegistrar::typeRegistered);
    QTest::ignoreMessage(QtWarningMsg,
                         "Type , dup, already registered. Previous type is overwritten.");
    QVERIFY(m_registrar->registerType(second, u"new"_s));
    QCOMPARE(registered.size(), 1);
    QCOMPARE(m_registrar->lookup(u"dup"_s), second);
    QCOMPARE(m_registrar->scope(u"dup"_s), u"new"_s);
    QCOMPARE(m_registrar->findAll(testTypeClass, QString()), QList<ItemType *>{second});
}

void tst_TypeRegistrar::findAll_data()
{
    QTest::addColumn<QString>("iid");
    QTest::addColumn<QString>("scope");
    QTest::addColumn<QStringList>("expected");

    const QString aggregatable = QString::fromLatin1(Iid::IAggregatable);
    const QStringList all{u"a"_s, u"b"_s, u"c"_s, u"d"_s};
    QTest::newRow("interface, no scope: every type") << aggregatable << QString() << all;
    QTest::newRow("interface in a scope") << aggregatable << u"s1"_s << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("interface in an unknown scope") << aggregatable << u"s3"_s << QStringList();
    QTest::newRow("class name in a scope") << derivedClass << u"s2"_s << QStringList{u"c"_s};
    QTest::newRow("base class name matches derived types") << testTypeClass << QString() << all;
}

void tst_TypeRegistrar::findAll()
{
    QFETCH(QString, iid);
    QFETCH(QString, scope);
    QFETCH(QStringList, expected);

    m_registrar->registerType(new TestType(u"a"_s), u"s1"_s);
    m_registrar->registerType(new DerivedTestType(u"b"_s), u"s1"_s);
    m_registrar->registerType(new DerivedTestType(u"c"_s), u"s2"_s);
    m_registrar->registerType(new TestType(u"d"_s));
    QStringList ids;
    for (const ItemType *type : m_registrar->findAll(iid, scope))
        ids.append(type->getId());
    ids.sort(); // hash order is no promise
    QCOMPARE(ids, expected);
}

void tst_TypeRegistrar::deallocateAllUnregistersThenDeletes()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QStringList events;
    QObject recorder; // ends the recording connections with the test
    const QStringList ids{u"a"_s, u"b"_s};
    for (const QString &id : ids) {
        auto *type = new TestType(id);
        QVERIFY(m_registrar->registerType(type, u"s"_s));
        connect(type, &QObject::destroyed, &recorder, [&events, id] { events << u"gone "_s + id; });
    }
    connect(m_registrar.get(), &TypeRegistrar::typeUnregistered, &recorder,
            [&events](const QString &id) { events << u"unregistered "_s + id; });

    QTest::ignoreMessage(QtDebugMsg, "Deallocating...");
    for (const QString &id : ids)
        QTest::ignoreMessage(QtDebugMsg, qPrintable(id));
    m_registrar->deallocateAll();
    QCOMPARE(events.size(), 4);
    for (const QString &id : ids) {
        // Withdrawn before it is deleted.
        QCOMPARE(events.indexOf(u"gone "_s + id), events.indexOf(u"unregistered "_s + id) + 1);
        QVERIFY(!m_registrar->isRegistered(id));
        QVERIFY(m_registrar->scope(id).isEmpty());
    }

    // The scopes were dropped; a new registration builds its scope again.
    auto *again = new TestType(u"a"_s);
    QVERIFY(m_registrar->registerType(again, u"s"_s));
    QCOMPARE(m_registrar->findAll(testTypeClass, u"s"_s), QList<ItemType *>{again});
}

VELMORA_TEST(tst_TypeRegistrar);
#include "tst_typeregistrar.moc"
