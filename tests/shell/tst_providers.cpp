#include "testsupport.h"

#include "fixturejournal.h"
#include "shell/facilities.h"
#include "shell/provider.h"
#include "shell/providermanager.h"
#include "shell/qelprovidermanagerdialog.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qpluginloader.h>
#include <QtCore/qpointer.h>
#include <QtCore/qtemporarydir.h>
#include <QtTest/qabstractitemmodeltester.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qabstractitemview.h>
#include <QtWidgets/qwidget.h>

#include <algorithm>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

namespace {

// A provider built inside the test, for what needs no library.
class StubProvider : public Provider
{
public:
    StubProvider(const QString &name, int type, quint32 version, quint32 order = 0)
        : m_name(name), m_type(type), m_version(version), m_order(order)
    {
    }

    QString name() const override { return m_name; }
    QString author() const override { return u"Stub author"_s; }
    QString description() const override { return QString(); }
    quint32 version() const override { return m_version; }
    int type() const override { return m_type; }
    quint32 order() const override { return m_order; }
    void start() override {}
    void stop() override {}
    void shutdown() override {}

    using Provider::widget;

private:
    QString m_name;
    int m_type;
    quint32 m_version;
    quint32 m_order;
};

// {"init ", "start "} x {A, B} gives "init A", "init B", "start A", "start B".
QStringList steps(std::initializer_list<const char *> prefixes, const QStringList &items,
                  const QString &suffix = QString())
{
    QStringList all;
    for (const char *prefix : prefixes) {
        for (const QString &item : items)
            all.append(QLatin1String(prefix) + item + suffix);
    }
    return all;
}

QStringList takeTexts(QSignalSpy &spy)
{
    QStringList texts;
    for (const QList<QVariant> &signal : std::as_const(spy))
        texts.append(signal.at(0).toString());
    spy.clear();
    return texts;
}

} // namespace

class tst_Providers : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        VELMORA_SKIP_IF_MESSAGES_RESHAPED();
        m_dir = std::make_unique<QTemporaryDir>();
        m_plugins = m_dir->filePath(u"plugins"_s);
        QVERIFY(QDir().mkpath(m_plugins));
        m_tagOfFile.clear();
        m_facilities = std::make_unique<Facilities>(nullptr);
        m_manager = std::make_unique<ProviderManager>(m_facilities.get());
        FixtureJournal::take();
    }
    void cleanup()
    {
        m_manager.reset();
        m_facilities.reset();
        m_dir.reset();
    }
    void lifeRunsInOrder();
    void candidateFiles_data();
    void candidateFiles();
    void firstOfANameWins();
    void faultsAreSurvived();
    void refusedUnloadIsReported();
    void factoryOrderAndWidget();
    void dialogRows();

private:
    // Copies the fixture plug-in of tag into the scratch "plugins" folder; answers its path.
    QString place(const QString &tag, const QString &fileName = QString())
    {
        const QDir fixtures(QStringLiteral(VELMORA_FIXTURE_DIR));
        const QStringList built = fixtures.entryList({u"*fixture_"_s + tag + u".*"_s}, QDir::Files);
        const QString name = fileName.isEmpty() ? built.value(0) : fileName;
        const QString target = m_plugins + u'/' + name;
        if (built.size() != 1 || !QFile::copy(fixtures.filePath(built.first()), target))
            return QString();
        m_tagOfFile.insert(name, tag);
        return target;
    }
    // The given placed tags in the order in which the folder lists their files.
    QStringList discovered(const QStringList &tags) const
    {
        QStringList order;
        for (const QString &file : QDir(m_plugins).entryList(QDir::Files, QDir::Unsorted)) {
            if (tags.contains(m_tagOfFile.value(file)))
                order.append(m_tagOfFile.value(file));
        }
        return order;
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_plugins;
    QMap<QString, QString> m_tagOfFile;
    std::unique_ptr<Facilities> m_facilities;
    std::unique_ptr<ProviderManager> m_manager;
};

// Every provider is initialised before any starts, primary before secondary; shutdown runs
// the exact reverse, and the manager's destructor deletes the providers last first.
void tst_Providers::lifeRunsInOrder()
{
    // Alpha orders after Beta: rename until the folder lists Alpha first, so a sort would show.
    for (int i = 0; i < 16 && discovered({u"Alpha"_s, u"Beta"_s}).value(0) != u"Alpha"_s; ++i) {
        for (const QString &file : m_tagOfFile.keys())
            QVERIFY(QFile::remove(m_plugins + u'/' + file));
        m_tagOfFile.clear();
        QVERIFY(!place(u"Alpha"_s, u"liba"_s + QString::number(i) + u".so"_s).isEmpty());
        QVERIFY(!place(u"Beta"_s, u"libb"_s + QString::number(i) + u".so"_s).isEmpty());
    }
    const QString alpha = m_plugins + u'/' + m_tagOfFile.key(u"Alpha"_s);
    QVERIFY(!place(u"Gamma"_s, u"tool.so.2"_s).isEmpty());
    QVERIFY(!place(u"Delta"_s).isEmpty());
    // Were it tried, a second "Alpha" would warn.
    QVERIFY(QFile::copy(alpha, m_plugins + u"/readme.txt"_s));
    const QStringList started = discovered({u"Alpha"_s, u"Beta"_s}) << u"Gamma"_s;
    QStringList stopped = started;
    std::reverse(stopped.begin(), stopped.end());

    QSignalSpy status(m_manager.get(), &ProviderManager::statusChanged);
    m_manager->loadAll(m_plugins);
    QCOMPARE(FixtureJournal::take(), steps({"init ", "start "}, started));
    QCOMPARE(takeTexts(status),
             steps({"Initializing ", "Starting "}, started, u"..."_s) << QString());
    QCOMPARE(m_manager->getPrimaryProviders().size(), 2);
    QCOMPARE(m_manager->getSecondaryProviders().size(), 1);

    m_manager->shutdownAll();
    QCOMPARE(FixtureJournal::take(), steps({"stop ", "shutdown "}, stopped));
    QCOMPARE(takeTexts(status),
             steps({"Stopping ", "Unloading "}, stopped, u"..."_s) << QString());

    // The disabled provider is never deleted: its library stays as it is.
    m_manager.reset();
    QCOMPARE(FixtureJournal::take(), steps({"delete "}, stopped));
}

void tst_Providers::candidateFiles_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<bool>("loaded");

    // Plain and versioned ".so" names and a text file are in lifeRunsInOrder's folder.
    QTest::newRow("dotted name ending in dll") << u"alpha.core.dll"_s << true;
    QTest::newRow("upper-case SO") << u"alpha.SO"_s << false;
    QTest::newRow("dll inside a longer suffix") << u"alpha.dllx"_s << false;
}

void tst_Providers::candidateFiles()
{
    QFETCH(QString, fileName);
    QFETCH(bool, loaded);

    QVERIFY(!place(u"Alpha"_s, fileName).isEmpty());
    m_manager->loadAll(m_plugins);
    QCOMPARE(m_manager->getPrimaryProviders().size(), loaded ? 1 : 0);
}

void tst_Providers::firstOfANameWins()
{
    QVERIFY(!place(u"Twin1"_s).isEmpty());
    QVERIFY(!place(u"Twin2"_s).isEmpty());
    const QStringList first = discovered({u"Twin1"_s, u"Twin2"_s}).mid(0, 1);

    QTest::ignoreMessage(QtWarningMsg, "ProviderManager::load() : Provider Twin already loaded.");
    m_manager->loadAll(m_plugins);
    QCOMPARE(FixtureJournal::take(), steps({"init ", "start "}, first));
    QCOMPARE(m_manager->getPrimaryProviders().size(), 1);
}

// A library that is no provider, a file that is no library, a missing folder and a missing
// hub: loading goes on with what is left. A library for a newer toolkit fails to load as the
// file that is no library does.
void tst_Providers::faultsAreSurvived()
{
    QVERIFY(!place(u"Beta"_s).isEmpty());
    QSignalSpy status(m_manager.get(), &ProviderManager::statusChanged);
    m_manager->loadAll(m_dir->filePath(u"absent"_s));
    ProviderManager withoutHub(nullptr);
    QSignalSpy quiet(&withoutHub, &ProviderManager::statusChanged);
    withoutHub.loadAll(m_plugins);
    QCOMPARE(status.size() + quiet.size(), 0);
    QCOMPARE(FixtureJournal::take(), QStringList());

    QVERIFY(!place(u"NotProvider"_s).isEmpty());
    QFile garbage(m_plugins + u"/libbroken.so"_s);
    QVERIFY(garbage.open(QIODevice::WriteOnly) && garbage.write("not a library") > 0);
    garbage.close();

    for (int i = 0; i < 2; ++i)
        QTest::ignoreMessage(QtDebugMsg, "====================");
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(u"libbroken\\.so"_s));
    QTest::ignoreMessage(QtDebugMsg, "Unknown error");
    m_manager->loadAll(m_plugins);
    QCOMPARE(FixtureJournal::take(), QStringList({u"init Beta"_s, u"start Beta"_s}));
}

void tst_Providers::refusedUnloadIsReported()
{
    // A second loader of the same library keeps it mapped, so the manager's unload fails.
    QPluginLoader holder(place(u"Alpha"_s));
    QVERIFY(holder.load());
    m_manager->loadAll(m_plugins);
    FixtureJournal::take();

    QTest::ignoreMessage(QtWarningMsg, "Cannot unload proivder 'Alpha'");
    m_manager.reset();
    QCOMPARE(FixtureJournal::take(), QStringList{u"delete Alpha"_s});
    QVERIFY(holder.unload());
}

void tst_Providers::factoryOrderAndWidget()
{
    auto provider = std::make_unique<StubProvider>(u"Stub"_s, 0, 0, 0x80000000u);
    const StubProvider low(u"Low"_s, 0, 0, 1);
    QVERIFY(low < *provider && *provider > low && !(*provider < low));

    auto *factory = qobject_cast<IProviderFactory *>(provider.get());
    QCOMPARE(factory->keys(), QList<QString>{u"provider"_s});
    QCOMPARE(factory->create(u"provider"_s), provider.get());
    QVERIFY(!factory->create(u"other"_s));

    QPointer<QWidget> widget = provider->widget();
    QVERIFY(widget && !widget->parent() && widget->isHidden());
    provider.reset();
    QVERIFY(!widget);
}

void tst_Providers::dialogRows()
{
    // Entries not in state 0 are never deleted by the manager, so the test owns every stub.
    StubProvider gamma(u"Gamma"_s, 0, 0x0a0b0004), alpha(u"Alpha"_s, 1, 0x01020304),
        beta(u"Beta"_s, 0, 0x01020000), delta(u"Delta"_s, 0, 0x00010500);
    m_manager->getPrimaryProviders() << ProviderManager::ProviderInfo{0, &gamma}
                                     << ProviderManager::ProviderInfo{7, &beta};
    m_manager->getSecondaryProviders() << ProviderManager::ProviderInfo{1, &alpha}
                                       << ProviderManager::ProviderInfo{0, nullptr}
                                       << ProviderManager::ProviderInfo{0, &delta};
    for (const char *line : {"mxPMD: <a0b0004> <a/b>", "mxPMD: <1020000> <1/2>",
                             "mxPMD: <1020304> <1/2>", "mxPMD: <10500> <0/1>"}) {
        QTest::ignoreMessage(QtDebugMsg, line);
    }
    QelProviderManagerDialog dialog(m_manager.get());
    m_manager->getPrimaryProviders().clear();
    m_manager->getSecondaryProviders().clear();

    QCOMPARE(dialog.windowTitle(), u"Provider Information"_s);
    QAbstractItemModel *model = dialog.findChild<QAbstractItemView *>(u"ui_providerInfo"_s)->model();
    QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);

    const QList<QStringList> expected{
        {u"Provider Name"_s, u"Author"_s, u"Version"_s, u"Description"_s, u"Type"_s, u"State"_s},
        {u"Alpha"_s, u"Stub author"_s, u"1.2.3 (4)"_s, QString(), u"Secondary"_s, u"Disabled"_s},
        {u"Beta"_s, u"Stub author"_s, u"1.2"_s, QString(), u"Primary"_s, u"Unknown"_s},
        {u"Delta"_s, u"Stub author"_s, u"0.1.5"_s, QString(), u"Primary"_s, u"OK"_s},
        {u"Gamma"_s, u"Stub author"_s, u"10.11 (4)"_s, QString(), u"Primary"_s, u"OK"_s}};
    QCOMPARE(model->rowCount() + 1, expected.size());
    for (int row = -1; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column) {
            cells.append(row < 0 ? model->headerData(column, Qt::Horizontal).toString()
                                 : model->index(row, column).data().toString());
        }
        QCOMPARE(cells, expected.at(row + 1));
    }
}

VELMORA_TEST(tst_Providers);

#include "tst_providers.moc"
