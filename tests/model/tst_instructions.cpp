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
    void listAddAndRemove();
    void mapAddAndRemove();
    void helpersLeaveForeignPayload();
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

    EditorInstruction list;
    ListInstructionHelper::setName(list, QStringLiteral("files"));
    ListInstructionHelper::addObject(list, 1);
    ListInstructionHelper::setName(list, name);
    QCOMPARE(list.name, expectedName);
    QCOMPARE(ListInstructionHelper::getObjects(list).size(), payloadKept ? 1 : 0);
    QCOMPARE(list.value.isValid(), payloadKept);

    EditorInstruction map;
    MapInstructionHelper::setName(map, QStringLiteral("files"));
    MapInstructionHelper::addValue(map, QStringLiteral("k"), 1);
    MapInstructionHelper::setName(map, name);
    QCOMPARE(map.name, expectedName);
    QCOMPARE(MapInstructionHelper::getKeys(map).size(), payloadKept ? 1 : 0);
    QCOMPARE(map.value.isValid(), payloadKept);
}

void tst_Instructions::listAddAndRemove()
{
    EditorInstruction instruction;
    ListInstructionHelper::setName(instruction, QStringLiteral("files"));
    ListInstructionHelper::addObject(instruction, 1);
    ListInstructionHelper::addObject(instruction, QStringLiteral("two"));
    ListInstructionHelper::addObject(instruction, 1); // duplicates allowed
    QCOMPARE(ListInstructionHelper::getObjects(instruction),
             (QVariantList{1, QStringLiteral("two"), 1}));

    ListInstructionHelper::removeObject(instruction, 1); // the first equal one only
    QCOMPARE(ListInstructionHelper::getObjects(instruction),
             (QVariantList{QStringLiteral("two"), 1}));
    ListInstructionHelper::removeObject(instruction, 3);
    QCOMPARE(ListInstructionHelper::getObjects(instruction).size(), 2);

    // The value is a plain list that editors can read without the helper.
    QCOMPARE(instruction.value.typeId(), QMetaType::QVariantList);

    ListInstructionHelper::clear(instruction);
    QVERIFY(instruction.name.isEmpty());
    QVERIFY(!instruction.value.isValid());
}

void tst_Instructions::mapAddAndRemove()
{
    EditorInstruction instruction;
    MapInstructionHelper::addValue(instruction, QStringLiteral("zeta"), 1);
    MapInstructionHelper::addValue(instruction, QStringLiteral("alpha"), 2);
    MapInstructionHelper::addValue(instruction, QStringLiteral("zeta"), 3); // replaces
    QCOMPARE(MapInstructionHelper::getKeys(instruction),
             (QStringList{QStringLiteral("alpha"), QStringLiteral("zeta")}));
    QCOMPARE(MapInstructionHelper::getValue(instruction, QStringLiteral("zeta")), QVariant(3));
    QVERIFY(!MapInstructionHelper::getValue(instruction, QStringLiteral("none")).isValid());

    MapInstructionHelper::removeValue(instruction, QStringLiteral("zeta"));
    MapInstructionHelper::removeValue(instruction, QStringLiteral("none"));
    QCOMPARE(MapInstructionHelper::getMap(instruction),
             (QVariantMap{{QStringLiteral("alpha"), 2}}));
    QCOMPARE(instruction.value.typeId(), QMetaType::QVariantMap);
}

void tst_Instructions::helpersLeaveForeignPayload()
{
    const QVariant map = QVariantMap{{QStringLiteral("k"), 1}};
    EditorInstruction mapped{QStringLiteral("map"), map};
    ListInstructionHelper::addObject(mapped, 2);
    ListInstructionHelper::removeObject(mapped, 1);
    QCOMPARE(mapped.value, map);
    QVERIFY(ListInstructionHelper::getObjects(mapped).isEmpty());

    const QVariant list = QVariantList{1};
    EditorInstruction listed{QStringLiteral("list"), list};
    MapInstructionHelper::addValue(listed, QStringLiteral("k"), 2);
    MapInstructionHelper::removeValue(listed, QStringLiteral("k"));
    QCOMPARE(listed.value, list);
    QVERIFY(!MapInstructionHelper::getValue(listed, QStringLiteral("k")).isValid());
    QVERIFY(MapInstructionHelper::getMap(listed).isEmpty());

    // Something that merely converts to a list is not one.
    const QVariant strings = QStringList{QStringLiteral("a")};
    EditorInstruction stringList{QStringLiteral("s"), strings};
    ListInstructionHelper::addObject(stringList, QStringLiteral("b"));
    QCOMPARE(stringList.value, strings);
}

VELMORA_TEST(tst_Instructions);
#include "tst_instructions.moc"
