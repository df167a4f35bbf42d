#include "testsupport.h"

#include "model/editorinstruction.h"

using namespace Velmora::Framework;

class tst_Instructions : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void setName_data();
    void setName();
    void listAndMapPayloads();
};

void tst_Instructions::setName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expectedName");
    QTest::addColumn<bool>("payloadKept");

    QTest::newRow("same name keeps payload") << "files" << "files" << true;
    QTest::newRow("empty name is ignored") << "" << "files" << true;
    QTest::newRow("new name drops payload") << "lines" << "lines" << false;
    QTest::newRow("names are case-sensitive") << "Files" << "Files" << false;
}

void tst_Instructions::setName()
{
    QFETCH(QString, name);
    QFETCH(QString, expectedName);
    QFETCH(bool, payloadKept);

    EditorInstruction list{QStringLiteral("files"), QVariantList{1}};
    ListInstructionHelper::setName(list, name);
    QCOMPARE(list.name, expectedName);
    QCOMPARE(list.value.isValid(), payloadKept);

    EditorInstruction map{QStringLiteral("files"), QVariantMap{{QStringLiteral("k"), 1}}};
    MapInstructionHelper::setName(map, name);
    QCOMPARE(map.name, expectedName);
    QCOMPARE(map.value.isValid(), payloadKept);
}

void tst_Instructions::listAndMapPayloads()
{
    EditorInstruction list;
    for (const QVariant &value : {QVariant(1), QVariant(QStringLiteral("two")), QVariant(1)})
        ListInstructionHelper::addObject(list, value); // duplicates allowed
    ListInstructionHelper::removeObject(list, 1);      // the first equal one only
    ListInstructionHelper::removeObject(list, 3);
    QCOMPARE(list.value, QVariant(QVariantList{QStringLiteral("two"), 1}));
    ListInstructionHelper::clear(list);
    QVERIFY(list.name.isEmpty());
    QVERIFY(!list.value.isValid());

    EditorInstruction map;
    MapInstructionHelper::addValue(map, QStringLiteral("zeta"), 1);
    MapInstructionHelper::addValue(map, QStringLiteral("alpha"), 2);
    MapInstructionHelper::addValue(map, QStringLiteral("zeta"), 3); // replaces
    QCOMPARE(MapInstructionHelper::getKeys(map), QStringList({"alpha", "zeta"}));
    QCOMPARE(MapInstructionHelper::getValue(map, QStringLiteral("zeta")), QVariant(3));
    MapInstructionHelper::removeValue(map, QStringLiteral("zeta"));
    QCOMPARE(map.value, QVariant(QVariantMap{{QStringLiteral("alpha"), 2}}));

    // Each helper leaves the other's payload alone.
    const QVariant mapValue = QVariantMap{{QStringLiteral("k"), 1}};
    EditorInstruction mapped{QStringLiteral("map"), mapValue};
    ListInstructionHelper::addObject(mapped, 2);
    ListInstructionHelper::removeObject(mapped, 1);
    QCOMPARE(mapped.value, mapValue);
    QVERIFY(ListInstructionHelper::getObjects(mapped).isEmpty());

    const QVariant listValue = QVariantList{1};
    EditorInstruction listed{QStringLiteral("list"), listValue};
    MapInstructionHelper::addValue(listed, QStringLiteral("k"), 2);
    MapInstructionHelper::removeValue(listed, QStringLiteral("k"));
    QCOMPARE(listed.value, listValue);
    QVERIFY(!MapInstructionHelper::getValue(listed, QStringLiteral("k")).isValid());

    // Something that merely converts to a list is not one.
    const QVariant strings = QStringList{QStringLiteral("a")};
    EditorInstruction stringList{QStringLiteral("s"), strings};
    ListInstructionHelper::addObject(stringList, QStringLiteral("b"));
    QCOMPARE(stringList.value, strings);
}

VELMORA_TEST(tst_Instructions);
#include "tst_instructions.moc"
