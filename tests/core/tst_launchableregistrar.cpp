#include "testsupport.h"

#include "core/ilaunchable.h"
#include "core/launchableregistrar.h"

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

namespace {

// Claims what it is told to and records what it was handed.
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

class tst_LaunchableRegistrar : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void dispatch_data();
    void dispatch();
    void registration();
};

void tst_LaunchableRegistrar::dispatch_data()
{
    QTest::addColumn<QList<QString>>("arguments");
    QTest::addColumn<QList<QString>>("toSolution");
    QTest::addColumn<QList<QString>>("toTool");

    const QList<QString> none;
    QTest::newRow("extension in capitals") << QList<QString>{u"/w/A.SLN-QEL"_s}
                                           << QList<QString>{u"/w/A.SLN-QEL"_s} << none;
    QTest::newRow("ends in a dot") << QList<QString>{u"/w/a."_s} << none << none;
    QTest::newRow("no dot") << QList<QString>{u"README"_s} << none << none;
    QTest::newRow("dot in a folder only") << QList<QString>{u"/w.sln-qel/readme"_s} << none
                                          << none;
    QTest::newRow("option as registered") << QList<QString>{u"-open=a b"_s, u"-open"_s}
                                          << none << QList<QString>{u"-open=a b"_s, u"-open"_s};
    QTest::newRow("option in capitals") << QList<QString>{u"-Open=x"_s} << none << none;
    QTest::newRow("unknown option") << QList<QString>{u"-close"_s} << none << none;
}

void tst_LaunchableRegistrar::dispatch()
{
    QFETCH(QList<QString>, arguments);
    QFETCH(QList<QString>, toSolution);
    QFETCH(QList<QString>, toTool);

    LaunchableRegistrar registrar;
    RecordingLaunchable solution({u"sln-qel"_s}, {});
    RecordingLaunchable tool({u"txt"_s}, {u"OPEN"_s});
    QVERIFY(registrar.registerLaunchable(&solution));
    QVERIFY(registrar.registerLaunchable(&tool));

    QCOMPARE(registrar.launch(arguments), !toSolution.isEmpty() || !toTool.isEmpty());
    QCOMPARE(solution.launched, toSolution.isEmpty() ? QList<QList<QString>>()
                                                     : QList<QList<QString>>{toSolution});
    QCOMPARE(tool.launched,
             toTool.isEmpty() ? QList<QList<QString>>() : QList<QList<QString>>{toTool});
}

void tst_LaunchableRegistrar::registration()
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

VELMORA_TEST(tst_LaunchableRegistrar);
#include "tst_launchableregistrar.moc"
