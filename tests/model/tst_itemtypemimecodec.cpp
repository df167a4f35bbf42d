#include "testsupport.h"

#include "model/itemtypemimecodec.h"

#include <QtCore/qdatastream.h>
#include <QtCore/qmimedata.h>

using namespace Velmora::Framework;

namespace {

QMimeData *mimeWith(const QByteArray &payload)
{
    auto *mime = new QMimeData;
    mime->setData(ItemTypeMimeCodec::mimeType(), payload);
    return mime;
}

QByteArray streamed(const QStringList &list)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << list;
    return bytes;
}

} // namespace

class tst_ItemTypeMimeCodec : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void wireFormat();
    void accumulatesInOrderOfContribution();
    void decodeWithoutEntryLeavesList();
    void decodeReadsQtStreams_data();
    void decodeReadsQtStreams();
    void damagedPayloadGivesEmptyList_data();
    void damagedPayloadGivesEmptyList();
};

void tst_ItemTypeMimeCodec::wireFormat()
{
    QCOMPARE(ItemTypeMimeCodec::mimeType(),
             QStringLiteral("application/vnd.framework.itemtype.iid"));

    QMimeData mime;
    QStringList ids;
    QVERIFY(ItemTypeMimeCodec::encode(&mime, ids, QStringLiteral("A\u00e9")));
    QCOMPARE(ids, QStringList{QStringLiteral("A\u00e9")}); // the caller's list grows
    QCOMPARE(mime.formats(), QStringList{ItemTypeMimeCodec::mimeType()});
    // Count, then per string its UTF-16 byte length and big-endian code units.
    QCOMPARE(mime.data(ItemTypeMimeCodec::mimeType()),
             QByteArray::fromHex("00000001" "00000004" "0041" "00e9"));

    QVERIFY(!ItemTypeMimeCodec::encode(nullptr, ids, QStringLiteral("B")));
    QCOMPARE(ids.size(), 1);
}

void tst_ItemTypeMimeCodec::accumulatesInOrderOfContribution()
{
    QMimeData mime;
    const QString a = QStringLiteral("ITypeA.Types.Velmora.Orvane");
    const QString b = QStringLiteral("ITypeB.Types.Velmora.Orvane");
    // What each item type does when it joins a copy: read what is there, add itself.
    for (const QString &id : {a, b, a}) {
        QStringList ids;
        ItemTypeMimeCodec::decode(&mime, ids);
        QVERIFY(ItemTypeMimeCodec::encode(&mime, ids, id));
    }
    QStringList decoded{QStringLiteral("stale")};
    QVERIFY(ItemTypeMimeCodec::decode(&mime, decoded));
    QCOMPARE(decoded, (QStringList{a, b, a}));
    QCOMPARE(mime.data(ItemTypeMimeCodec::mimeType()), streamed({a, b, a}));
}

void tst_ItemTypeMimeCodec::decodeWithoutEntryLeavesList()
{
    QMimeData mime;
    mime.setText(QStringLiteral("text"));
    QStringList ids{QStringLiteral("keep")};
    QVERIFY(!ItemTypeMimeCodec::decode(&mime, ids));
    QVERIFY(!ItemTypeMimeCodec::decode(nullptr, ids));
    QCOMPARE(ids, QStringList{QStringLiteral("keep")});
}

void tst_ItemTypeMimeCodec::decodeReadsQtStreams_data()
{
    QTest::addColumn<QStringList>("list");
    QTest::newRow("empty list") << QStringList();
    QTest::newRow("empty and null strings") << QStringList{QStringLiteral(""), QString()};
    QTest::newRow("surrogate pair") << QStringList{QStringLiteral("x\U0001F600y")};
    QTest::newRow("repeated ids") << QStringList{QStringLiteral("a"), QStringLiteral("a")};
}

void tst_ItemTypeMimeCodec::decodeReadsQtStreams()
{
    QFETCH(QStringList, list);
    std::unique_ptr<QMimeData> mime(mimeWith(streamed(list)));
    QStringList ids{QStringLiteral("stale")};
    QVERIFY(ItemTypeMimeCodec::decode(mime.get(), ids));
    QCOMPARE(ids, list);
    for (qsizetype i = 0; i < list.size(); ++i)
        QCOMPARE(ids.at(i).isNull(), list.at(i).isNull());
}

void tst_ItemTypeMimeCodec::damagedPayloadGivesEmptyList_data()
{
    QTest::addColumn<QByteArray>("payload");
    const QByteArray good = streamed({QStringLiteral("AB"), QStringLiteral("C")});

    QTest::newRow("empty payload") << QByteArray();
    QTest::newRow("short count") << QByteArray::fromHex("000001");
    QTest::newRow("last byte missing") << good.left(good.size() - 1);
    QTest::newRow("second string missing") << good.left(good.size() - 6);
    QTest::newRow("odd byte length") << QByteArray::fromHex("00000001" "00000003" "004100");
    QTest::newRow("string longer than payload") << QByteArray::fromHex("00000001" "7ffffffe" "0041");
    // Counts that a trusting reader would reserve room for up front: gigabytes.
    QTest::newRow("huge count") << QByteArray::fromHex("fffffffd" "00000000");
    QTest::newRow("huge 64-bit count")
        << QByteArray::fromHex("fffffffe" "7fffffffffffffff" "00000000");
    QTest::newRow("negative 64-bit count")
        << QByteArray::fromHex("fffffffe" "ffffffffffffffff" "00000000");
    QTest::newRow("null count") << QByteArray::fromHex("ffffffff");
}

void tst_ItemTypeMimeCodec::damagedPayloadGivesEmptyList()
{
    QFETCH(QByteArray, payload);
    std::unique_ptr<QMimeData> mime(mimeWith(payload));
    QStringList ids{QStringLiteral("stale")};
    QVERIFY(ItemTypeMimeCodec::decode(mime.get(), ids));
    QVERIFY(ids.isEmpty());
}

VELMORA_TEST(tst_ItemTypeMimeCodec);
#include "tst_itemtypemimecodec.moc"
