#include "testsupport.h"

#include "model/itemtypemimecodec.h"

#include <QtCore/qdatastream.h>
#include <QtCore/qmimedata.h>

using namespace Velmora::Framework;

namespace {

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

    void encodeAccumulatesInOrderOfContribution();
    void decodeReadsQtStreams_data();
    void decodeReadsQtStreams();
};

void tst_ItemTypeMimeCodec::encodeAccumulatesInOrderOfContribution()
{
    QMimeData mime;
    const QString a = QStringLiteral("A\u00e9");
    const QString b = QStringLiteral("ITypeB.Types.Velmora.Orvane");
    QStringList ids;
    QVERIFY(ItemTypeMimeCodec::encode(&mime, ids, a));
    QCOMPARE(ids, QStringList{a}); // the caller's list grows
    QCOMPARE(mime.formats(), QStringList{"application/vnd.framework.itemtype.iid"});
    // Count, then per string its UTF-16 byte length and big-endian code units.
    QCOMPARE(mime.data(ItemTypeMimeCodec::mimeType()),
             QByteArray::fromHex("00000001" "00000004" "0041" "00e9"));
    // What each item type does when it joins a copy: read what is there, add itself.
    for (const QString &id : {b, a}) {
        QStringList read;
        QVERIFY(ItemTypeMimeCodec::decode(&mime, read));
        QVERIFY(ItemTypeMimeCodec::encode(&mime, read, id));
    }
    QStringList decoded{QStringLiteral("stale")};
    QVERIFY(ItemTypeMimeCodec::decode(&mime, decoded));
    QCOMPARE(decoded, QStringList({a, b, a}));

    // Without the entry the list is left as it was.
    QMimeData text;
    text.setText(QStringLiteral("text"));
    QVERIFY(!ItemTypeMimeCodec::decode(&text, decoded));
    QVERIFY(!ItemTypeMimeCodec::decode(nullptr, decoded));
    QCOMPARE(decoded, QStringList({a, b, a}));
}

void tst_ItemTypeMimeCodec::decodeReadsQtStreams_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QStringList>("expected");
    const QStringList two{QStringLiteral("AB"), QStringLiteral("C")};
    const QByteArray good = streamed(two);
    const QStringList none;

    QTest::newRow("whole list") << good << two;
    const QStringList emptyAndNull{QStringLiteral(""), QString()};
    QTest::newRow("empty and null strings") << streamed(emptyAndNull) << emptyAndNull;
    QTest::newRow("surrogate pair") << streamed({"x\U0001F600y"}) << QStringList{"x\U0001F600y"};
    // A damaged payload still counts as present, and reads as an empty list.
    QTest::newRow("empty payload") << QByteArray() << none;
    QTest::newRow("last byte missing") << good.left(good.size() - 1) << none;
    QTest::newRow("odd byte length") << QByteArray::fromHex("00000001" "00000003" "004100") << none;
    // Counts that a trusting reader would reserve gigabytes for.
    QTest::newRow("huge count") << QByteArray::fromHex("fffffffd" "00000000") << none;
    QTest::newRow("negative 64-bit count")
        << QByteArray::fromHex("fffffffe" "ffffffffffffffff" "00000000") << none;
}

void tst_ItemTypeMimeCodec::decodeReadsQtStreams()
{
    QFETCH(QByteArray, payload);
    QFETCH(QStringList, expected);
    QMimeData mime;
    mime.setData(ItemTypeMimeCodec::mimeType(), payload);
    QStringList ids{QStringLiteral("stale")};
    QVERIFY(ItemTypeMimeCodec::decode(&mime, ids));
    QCOMPARE(ids, expected);
    for (qsizetype i = 0; i < ids.size(); ++i)
        QCOMPARE(ids.at(i).isNull(), expected.at(i).isNull());
}

VELMORA_TEST(tst_ItemTypeMimeCodec);
#include "tst_itemtypemimecodec.moc"
