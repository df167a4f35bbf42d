#include "testsupport.h"
#include "testtypes.h"

#include "core/editorfactory.h"

#include <QtCore/qpointer.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qwidget.h>

#include <memory>

using namespace Velmora::Framework;
using Velmora::Tests::TestEditor;

namespace {

// The factory only uses items as map keys, so fake addresses stand in for nodes.
ViewItem *fakeItem(quintptr n)
{
    return reinterpret_cast<ViewItem *>(n * 0x1000);
}

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
    QList<QPointer<QWidget>> built;

protected:
    QWidget *createEditor(ViewItem *, const QList<EditorInstruction> &) override
    {
        ++hookCalls;
        if (fixed || make == MakeNothing)
            return fixed;
        built.append(make == MakeEditor ? new TestEditor : new QWidget);
        return built.last();
    }
};

} // namespace

class tst_EditorFactory : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_factory = std::make_unique<TestFactory>();
    }
    void cleanup()
    {
        // The factory deletes no editor on its own. Dropping it first also proves that its
        // surviving editors no longer call back into it.
        const QList<QPointer<QWidget>> built = m_factory->built;
        m_factory.reset();
        qDeleteAll(built);
    }
    void reusesTrackedEditorsAndRebuildsOthers();
    void editorIsForgottenWhenDisposedOrDeleted();

private:
    std::unique_ptr<TestFactory> m_factory;
};

void tst_EditorFactory::reusesTrackedEditorsAndRebuildsOthers()
{
    QWidget *first = m_factory->createInstance(fakeItem(1), {{QStringLiteral("first"), {}}});
    QCOMPARE(m_factory->createInstance(fakeItem(1), {{QStringLiteral("other"), {}}}), first);
    QCOMPARE(m_factory->hookCalls, 1);
    QVERIFY(first && m_factory->createInstance(fakeItem(2), {}) != first);
    QCOMPARE(m_factory->createInstance(fakeItem(1), {}), first);
    QCOMPARE(m_factory->hookCalls, 2);
    QCOMPARE(m_factory->createInstance(nullptr, {}), nullptr);
    QCOMPARE(m_factory->hookCalls, 2);

    // Widgets that are no editors are built anew each time.
    m_factory->make = TestFactory::MakePlainWidget;
    QWidget *plain = m_factory->createInstance(fakeItem(3), {});
    QVERIFY(plain && m_factory->createInstance(fakeItem(3), {}) != plain);
    m_factory->disposeInstance(fakeItem(3));
    QCOMPARE(m_factory->built.size(), 4);
    QVERIFY(m_factory->built.at(2) && m_factory->built.at(3)); // not the factory's to delete
    m_factory->make = TestFactory::MakeNothing;
    QCOMPARE(m_factory->createInstance(fakeItem(4), {}), nullptr);
    QCOMPARE(m_factory->createInstance(fakeItem(4), {}), nullptr);
    QCOMPARE(m_factory->hookCalls, 6);
}

void tst_EditorFactory::editorIsForgottenWhenDisposedOrDeleted()
{
    QPointer<QWidget> a = m_factory->createInstance(fakeItem(1), {});
    QWidget *b = m_factory->createInstance(fakeItem(2), {});
    m_factory->disposeInstance(fakeItem(3));
    m_factory->disposeInstance(nullptr);
    QSignalSpy destroyed(a.data(), &QObject::destroyed);
    m_factory->disposeInstance(fakeItem(1));
    QCOMPARE(destroyed.size(), 1);
    m_factory->disposeInstance(fakeItem(1)); // nothing left to delete twice
    QWidget *rebuilt = m_factory->createInstance(fakeItem(1), {});
    delete b; // as a closed tab does
    QVERIFY(m_factory->createInstance(fakeItem(2), {}));
    QCOMPARE(m_factory->createInstance(fakeItem(1), {}), rebuilt);
    QCOMPARE(m_factory->hookCalls, 4);

    // One widget handed out for two items is forgotten for both, or one would dangle. Count
    // hook calls: the allocator may reuse the freed address.
    auto *shared = new TestEditor;
    m_factory->fixed = shared;
    QCOMPARE(m_factory->createInstance(fakeItem(3), {}), shared);
    QCOMPARE(m_factory->createInstance(fakeItem(4), {}), shared);
    delete shared;
    m_factory->fixed = nullptr;
    m_factory->createInstance(fakeItem(3), {});
    m_factory->createInstance(fakeItem(4), {});
    QCOMPARE(m_factory->hookCalls, 8);
}

VELMORA_TEST(tst_EditorFactory);
#include "tst_editorfactory.moc"
