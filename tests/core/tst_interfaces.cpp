#include "testsupport.h"
#include "testtypes.h"

#include "core/actionhandler.h"
#include "core/deadlockfreelock.h"
#include "core/defaultaggregatable.h"
#include "core/defaultfileaugmentable.h"
#include "core/defaultgenericaugmentable.h"
#include "core/orderedif.h"

#include <QtCore/qhash.h>
#include <QtCore/qsignalmapper.h>
#include <QtGui/qaction.h>
#include <QtTest/qsignalspy.h>

#include <memory>

using namespace Velmora::Framework;

namespace {

class OpenAggregatable : public DefaultAggregatable
{
public:
    using DefaultAggregatable::contextItem;
    using DefaultAggregatable::isType;
    using DefaultAggregatable::setPopulated;
};

class RecordingHandler : public ActionHandler
{
public:
    QString augmentInterfaceId() override { return {}; }
    bool handleCommand(const QString &, const QList<ViewItem *> &, const QVariant &) override
    {
        return false;
    }
};

// What a query answers, as the raw address of the part it named.
void *answer(IBase *object, const char *iid)
{
    IBase *out = reinterpret_cast<IBase *>(quintptr(1)); // must be overwritten
    const bool found = object->queryInterface(iid, &out);
    if (found != (out != nullptr))
        return reinterpret_cast<void *>(quintptr(2)); // result and pointer disagree
    return out;
}

} // namespace

class tst_Interfaces : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void queryRule_data();
    void queryRule();
    void interfaceCastReturnsTheNamedPart();
    void orderedIfSortsStably();
    void hookupHandlerMapsCommands();
    void defaultAggregatableHelpers();
};

void tst_Interfaces::queryRule_data()
{
    QTest::addColumn<QByteArray>("iid");
    QTest::addColumn<QString>("expected"); // "object", "interface", "base" or "none"

    QTest::newRow("class name") << QByteArray("Velmora::Framework::DefaultAggregatable") << "object";
    QTest::newRow("bare interface name") << QByteArray("IAggregatable") << "interface";
    QTest::newRow("bare IBase, an indirect base") << QByteArray("IBase") << "base";
    QTest::newRow("identifier") << QByteArray("IAggregatable.Types.Velmora.Orvane") << "interface";
    QTest::newRow("IBase identifier") << QByteArray("IBase.Velmora.Orvane") << "base";
    QTest::newRow("QObject falls through") << QByteArray("QObject") << "object";
    QTest::newRow("identifier in other case") << QByteArray("iaggregatable.types.velmora.orvane") << "none";
    QTest::newRow("identifier without suffix") << QByteArray("IAggregatable.Types") << "none";
    QTest::newRow("unqualified class name") << QByteArray("DefaultAggregatable") << "none";
    QTest::newRow("another interface") << QByteArray("ITypeGeneric.Types.Velmora.Orvane") << "none";
    QTest::newRow("empty") << QByteArray("") << "none";
}

void tst_Interfaces::queryRule()
{
    QFETCH(QByteArray, iid);
    QFETCH(QString, expected);

    DefaultAggregatable object;
    const QHash<QString, void *> parts{
        {QStringLiteral("object"), static_cast<QObject *>(&object)},
        {QStringLiteral("interface"), static_cast<IAggregatable *>(&object)},
        {QStringLiteral("base"), static_cast<IBase *>(&object)}};
    QCOMPARE(answer(&object, iid.constData()), parts.value(expected));

    IBase *out = &object;
    QVERIFY(!object.queryInterface(nullptr, &out));
    QCOMPARE(out, nullptr);
}

void tst_Interfaces::interfaceCastReturnsTheNamedPart()
{
    // The lock answers QObject only.
    DeadlockFreeLock lock;
    QCOMPARE(answer(&lock, "QObject"), static_cast<QObject *>(&lock));
    for (const char *iid : {"IBase", "IBase.Velmora.Orvane", "IDeadlockFreeLock",
                            "Velmora::Framework::DeadlockFreeLock"}) {
        QCOMPARE(answer(&lock, iid), nullptr);
    }
    DefaultFileAugmentable file;
    DefaultGenericAugmentable generic;

    QCOMPARE(interfaceCast<IAugmentableFile>(&file), static_cast<IAugmentableFile *>(&file));
    QCOMPARE(interfaceCast<IAugmentableGeneric>(&generic),
             static_cast<IAugmentableGeneric *>(&generic));
    QCOMPARE(interfaceCast<IAugmentableGeneric>(&file), nullptr);
    QCOMPARE(interfaceCast<IBase>(&file), static_cast<IBase *>(&file));
    QCOMPARE(answer(&file, "IAugmentableFile"), answer(&file, VELMORA_IID_IAUGMENTABLEFILE));
    QCOMPARE(interfaceCast<IBase>(nullptr), nullptr);
}

void tst_Interfaces::orderedIfSortsStably()
{
    // Strictly less, so that a stable sort keeps equal orders in registration order.
    DefaultAggregatable a;
    const OrderedIf first(&a, 5), second(&a, 5), earlier(&a, -1);
    QVERIFY(OrderedIf::ascendingSort(&earlier, &first));
    QVERIFY(!OrderedIf::ascendingSort(&first, &earlier));
    QVERIFY(!OrderedIf::ascendingSort(&first, &second));
}

void tst_Interfaces::hookupHandlerMapsCommands()
{
    RecordingHandler handler;
    QSignalSpy commands(handler.mapper(), &QSignalMapper::mappedString);
    QAction first, second;

    QVERIFY(!handler.hookupHandler(nullptr, QStringLiteral("cmdCut")));
    QVERIFY(!handler.hookupHandler(&first, QString()));
    first.trigger();
    QCOMPARE(commands.size(), 0);

    QVERIFY(handler.hookupHandler(&first, QStringLiteral("cmdCut")));
    QVERIFY(handler.hookupHandler(&second, QStringLiteral("cmdCopy")));
    QVERIFY(handler.hookupHandler(&first, QStringLiteral("cmdPaste")));
    first.trigger();
    second.trigger();
    QCOMPARE(commands.size(), 2);
    QCOMPARE(commands.at(0).at(0).toString(), QStringLiteral("cmdPaste"));
    QCOMPARE(commands.at(1).at(0).toString(), QStringLiteral("cmdCopy"));
}

void tst_Interfaces::defaultAggregatableHelpers()
{
    OpenAggregatable aggregatable;
    Velmora::Tests::TestTree tree;
    QVERIFY(!aggregatable.isType(nullptr, QStringLiteral("IAggregatable")));
    QVERIFY(aggregatable.isType(tree.folder, QString::fromLatin1(Iid::ITypeGeneric)));
    QVERIFY(aggregatable.isType(tree.folder, QStringLiteral("Velmora::Framework::ItemType")));
    QVERIFY(!aggregatable.isType(tree.folder, QString::fromLatin1(Iid::ITypeFile)));

    QVERIFY(!aggregatable.setPopulated(nullptr));
    QCOMPARE(aggregatable.contextItem(), nullptr);
    QVERIFY(aggregatable.setPopulated(tree.folder));
    const std::unique_ptr<ViewItem> item(tree.folderItem(QStringLiteral("f")));
    QList<OrderedItem *> entries;
    tree.folder->contextMenu(item.get(), {item.get()}, entries);
    QCOMPARE(aggregatable.contextItem(), item.get());
}

VELMORA_TEST(tst_Interfaces);
#include "tst_interfaces.moc"
