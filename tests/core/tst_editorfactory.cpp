#include "testsupport.h"

#include "core/editorfactory.h"
#include "core/ieditor.h"

#include <QtCore/qpointer.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qwidget.h>

#include <memory>

using namespace Velmora::Framework;

namespace {

// The factory only uses items as map keys and never dereferences them, so fake addresses
// stand in for real nodes.
ViewItem *const itemA = reinterpret_cast<ViewItem *>(quintptr(0x1000));
ViewItem *const itemB = reinterpret_cast<ViewItem *>(quintptr(0x2000));

class TestEditor : public QWidget, public IEditor, public virtual IBase
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IEditor Velmora::Framework::IBase)

public:
    bool queryInterface(const char *iid, IBase **out) override
    {
        return queryByMetaCast(this, iid, out);
    }
};

class TestFactory : public EditorFactory
{
    Q_OBJECT

public:
    enum Make { MakeEditor, MakePlainWidget, MakeNothing };

    QString name() const override { return QStringLiteral("Test"); }
    QIcon icon() const override { return {}; }
    QString description() const override { return {}; }
    bool supportsEmptyInstance() const override { return false; }

    Make make = MakeEditor;
    QWidget *fixed = nullptr; // handed out instead of a new widget when set
    int hookCalls = 0;
    QList<EditorInstruction> lastInstructions;
    QList<QObject *> destroyedSeen;
    // Everything the hook built, so that the test can delete the survivors.
    QList<QPointer<QWidget>> built;

protected:
    QWidget *createEditor(ViewItem *, const QList<EditorInstruction> &instructions) override
    {
        ++hookCalls;
        lastInstructions = instructions;
        if (fixed)
            return fixed;
        QWidget *widget = nullptr;
        if (make == MakeEditor)
            widget = new TestEditor;
        else if (make == MakePlainWidget)
            widget = new QWidget;
        if (widget)
            built.append(widget);
        return widget;
    }

    void aboutToDestroy(QObject *editor) override
    {
        destroyedSeen.append(editor);
        EditorFactory::aboutToDestroy(editor);
    }
};

QList<EditorInstruction> instructions(const QString &name)
{
    return {EditorInstruction{name, QVariant()}};
}

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

class tst_EditorFactory : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void reusesTrackedEditor();
    void untrackedWidgetsAreRebuilt_data();
    void untrackedWidgetsAreRebuilt();
    void editorDeletedElsewhereIsForgotten();
    void widgetSharedByTwoItemsIsForgottenForBoth();
    void disposeInstance();
    void nullItemAndBaseDefaults();
    void editorOutlivesFactory();
    void queryAnswers_data();
    void queryAnswers();
    void interfaceCastsFindTheDeclaredParts();

private:
    std::unique_ptr<TestFactory> m_factory;
};

void tst_EditorFactory::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    m_factory = std::make_unique<TestFactory>();
}

void tst_EditorFactory::cleanup()
{
    // The factory never deletes editors on its own; drop it first, then whatever survived.
    const QList<QPointer<QWidget>> built = m_factory->built;
    m_factory.reset();
    for (const QPointer<QWidget> &widget : built)
        delete widget.data();
}

void tst_EditorFactory::reusesTrackedEditor()
{
    QWidget *first = m_factory->createInstance(itemA, instructions(QStringLiteral("first")));
    QVERIFY(first);
    QCOMPARE(m_factory->lastInstructions.at(0).name, QStringLiteral("first"));

    // The second call ignores its instructions and builds nothing.
    QCOMPARE(m_factory->createInstance(itemA, instructions(QStringLiteral("second"))), first);
    QCOMPARE(m_factory->hookCalls, 1);
    QCOMPARE(m_factory->lastInstructions.at(0).name, QStringLiteral("first"));

    QWidget *other = m_factory->createInstance(itemB, {});
    QVERIFY(other && other != first);
    QCOMPARE(m_factory->hookCalls, 2);
    QCOMPARE(m_factory->createInstance(itemA, {}), first);
    QCOMPARE(m_factory->createInstance(itemB, {}), other);
    QCOMPARE(m_factory->hookCalls, 2);
}

void tst_EditorFactory::untrackedWidgetsAreRebuilt_data()
{
    QTest::addColumn<int>("make");
    QTest::newRow("widget that is no editor") << int(TestFactory::MakePlainWidget);
    QTest::newRow("hook builds nothing") << int(TestFactory::MakeNothing);
}

void tst_EditorFactory::untrackedWidgetsAreRebuilt()
{
    QFETCH(int, make);
    m_factory->make = TestFactory::Make(make);

    QWidget *first = m_factory->createInstance(itemA, {});
    QWidget *second = m_factory->createInstance(itemA, {});
    QCOMPARE(m_factory->hookCalls, 2);
    QCOMPARE(first == nullptr, make == TestFactory::MakeNothing);
    if (first)
        QVERIFY(second && second != first);

    // Untracked widgets are not the factory's to delete.
    m_factory->disposeInstance(itemA);
    for (const QPointer<QWidget> &widget : std::as_const(m_factory->built))
        QVERIFY(widget);
    QVERIFY(m_factory->destroyedSeen.isEmpty());
}

void tst_EditorFactory::editorDeletedElsewhereIsForgotten()
{
    QWidget *a = m_factory->createInstance(itemA, {});
    QWidget *b = m_factory->createInstance(itemB, {});
    QVERIFY(a && b);

    delete a; // as a closed tab does
    QCOMPARE(m_factory->destroyedSeen, QList<QObject *>{a});

    QWidget *rebuilt = m_factory->createInstance(itemA, {});
    QVERIFY(rebuilt);
    QCOMPARE(m_factory->hookCalls, 3);
    // The other item's editor is kept.
    QCOMPARE(m_factory->createInstance(itemB, {}), b);
    QCOMPARE(m_factory->createInstance(itemA, {}), rebuilt);
    QCOMPARE(m_factory->hookCalls, 3);
}

void tst_EditorFactory::widgetSharedByTwoItemsIsForgottenForBoth()
{
    auto *shared = new TestEditor;
    m_factory->built.append(shared);
    m_factory->fixed = shared;
    QCOMPARE(m_factory->createInstance(itemA, {}), shared);
    QCOMPARE(m_factory->createInstance(itemB, {}), shared);

    // Otherwise one item would keep a dangling editor. Count hook calls rather than compare
    // addresses: the allocator may hand the freed address to the next editor.
    delete shared;
    m_factory->fixed = nullptr;
    QVERIFY(m_factory->createInstance(itemA, {}));
    QVERIFY(m_factory->createInstance(itemB, {}));
    QCOMPARE(m_factory->hookCalls, 4);
}

void tst_EditorFactory::disposeInstance()
{
    QPointer<QWidget> a = m_factory->createInstance(itemA, {});
    QVERIFY(a);
    QSignalSpy destroyed(a.data(), &QObject::destroyed);

    // Unknown and null items change nothing.
    m_factory->disposeInstance(itemB);
    m_factory->disposeInstance(nullptr);
    QVERIFY(a);
    QCOMPARE(m_factory->createInstance(itemA, {}), a.data());
    QCOMPARE(m_factory->hookCalls, 1);

    QWidget *const address = a.data();
    m_factory->disposeInstance(itemA);
    QVERIFY(!a);
    QCOMPARE(destroyed.size(), 1);
    // The deletion still reaches aboutToDestroy, which finds the entry already gone.
    QCOMPARE(m_factory->destroyedSeen, QList<QObject *>{address});

    m_factory->disposeInstance(itemA); // a second time: nothing left to delete
    QVERIFY(m_factory->createInstance(itemA, {}));
    QCOMPARE(m_factory->hookCalls, 2);
}

void tst_EditorFactory::nullItemAndBaseDefaults()
{
    QCOMPARE(m_factory->createInstance(nullptr, instructions(QStringLiteral("x"))), nullptr);
    QCOMPARE(m_factory->hookCalls, 0);

    IEditorFactory *factory = m_factory.get();
    QCOMPARE(factory->createEmptyInstance(QVariant(1), {}), nullptr);
    QVERIFY(!factory->queryExistingEditor(nullptr, QStringLiteral("a.qprj")));
}

void tst_EditorFactory::editorOutlivesFactory()
{
    auto factory = std::make_unique<TestFactory>();
    std::unique_ptr<QWidget> editor(factory->createInstance(itemA, {}));
    QVERIFY(editor);
    factory.reset();
    editor.reset(); // its destroyed() must no longer reach the factory
}

void tst_EditorFactory::queryAnswers_data()
{
    QTest::addColumn<QByteArray>("iid");
    QTest::addColumn<QString>("expected"); // "object", "interface", "base" or "none"

    QTest::newRow("class name") << QByteArray("Velmora::Framework::EditorFactory") << "object";
    QTest::newRow("bare interface name") << QByteArray("IEditorFactory") << "interface";
    QTest::newRow("identifier") << QByteArray(VELMORA_IID_IEDITORFACTORY) << "interface";
    QTest::newRow("bare IBase") << QByteArray("IBase") << "base";
    QTest::newRow("IBase identifier") << QByteArray(VELMORA_IID_IBASE) << "base";
    QTest::newRow("QObject falls through") << QByteArray("QObject") << "object";
    QTest::newRow("editor identifier") << QByteArray(VELMORA_IID_IEDITOR) << "none";
    QTest::newRow("identifier with another area")
        << QByteArray("IEditorFactory.Framework.Velmora.Orvane") << "none";
}

void tst_EditorFactory::queryAnswers()
{
    QFETCH(QByteArray, iid);
    QFETCH(QString, expected);

    EditorFactory *factory = m_factory.get();
    void *expectedPart = nullptr;
    if (expected == QLatin1String("object"))
        expectedPart = static_cast<QObject *>(factory);
    else if (expected == QLatin1String("interface"))
        expectedPart = static_cast<IEditorFactory *>(factory);
    else if (expected == QLatin1String("base"))
        expectedPart = static_cast<IBase *>(factory);
    QCOMPARE(answer(factory, iid.constData()), expectedPart);
}

void tst_EditorFactory::interfaceCastsFindTheDeclaredParts()
{
    EditorFactory *factory = m_factory.get();
    QCOMPARE(interfaceCast<IEditorFactory>(factory), static_cast<IEditorFactory *>(factory));
    QCOMPARE(interfaceCast<IEditor>(factory), nullptr);

    // The editor identifier is what decides whether a widget is tracked.
    TestEditor editor;
    QCOMPARE(interfaceCast<IEditor>(&editor), static_cast<IEditor *>(&editor));
    QCOMPARE(answer(&editor, "IEditor"), answer(&editor, VELMORA_IID_IEDITOR));
    QWidget plain;
    QCOMPARE(plain.qt_metacast(VELMORA_IID_IEDITOR), nullptr);
}

VELMORA_TEST(tst_EditorFactory);
#include "tst_editorfactory.moc"
