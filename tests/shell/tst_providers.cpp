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
    StubProvider(const QString &name, int type, quint32 version = 0x01000000, quint32 order = 0)
        : m_name(name), m_type(type), m_version(version), m_order(order)
    {
    }

    QString name() const override { return m_name; }
    QString author() const override { return u"Stub author"_s; }
    QString description() const override { return u"Built by the test"_s; }
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

// Drops the toolkit's own report of a plug-in built for another toolkit version (its wording
// and level differ between toolkit releases) and passes every other message on.
class IncompatiblePluginReportFilter
{
public:
    IncompatiblePluginReportFilter() { s_previous = qInstallMessageHandler(&handle); }
    ~IncompatiblePluginReportFilter() { qInstallMessageHandler(s_previous); }

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        if (type != QtDebugMsg && text.contains(u"Plugin uses incompatible Qt library"_s))
            return;
        s_previous(type, context, text);
    }

    static inline QtMessageHandler s_previous = nullptr;
};

const QMap<QString, QString> &fixtureNames()
{
    static const QMap<QString, QString> names{
        {u"alpha"_s, u"Alpha"_s}, {u"beta"_s, u"Beta"_s}, {u"gamma"_s, u"Gamma"_s}};
    return names;
}

} // namespace

class tst_Providers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void lifeRunsInOrder();
    void candidateFiles_data();
    void candidateFiles();
    void firstOfANameWins();
    void faultsAreSurvived();
    void refusedUnloadIsReported();
    void factoryAndOrder();
    void dialogVersionText_data();
    void dialogVersionText();
    void dialogRowsSortedByName();

private:
    // Copies the fixture plug-in of tag into the scratch "plugins" folder; answers its path.
    QString place(const QString &tag, const QString &fileName = QString());
    // The tags of the placed fixtures, in the order in which the folder lists them.
    QStringList discovered(const QStringList &tags) const;

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_plugins;
    QMap<QString, QString> m_tagOfFile;
    std::unique_ptr<Facilities> m_facilities;
    std::unique_ptr<ProviderManager> m_manager;
};

void tst_Providers::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_plugins = m_dir->filePath(u"plugins"_s);
    QVERIFY(QDir().mkpath(m_plugins));
    m_tagOfFile.clear();
    m_facilities = std::make_unique<Facilities>(nullptr);
    m_manager = std::make_unique<ProviderManager>(m_facilities.get());
    FixtureJournal::take();
}

void tst_Providers::cleanup()
{
    m_manager.reset();
    m_facilities.reset();
    m_dir.reset();
}

QString tst_Providers::place(const QString &tag, const QString &fileName)
{
    const QDir fixtures(QStringLiteral(VELMORA_FIXTURE_DIR));
    const QStringList built = fixtures.entryList({u"*fixture_"_s + tag + u".*"_s}, QDir::Files);
    if (built.size() != 1)
        return QString();
    const QString name = fileName.isEmpty() ? built.first() : fileName;
    const QString target = m_plugins + u'/' + name;
    if (!QFile::copy(fixtures.filePath(built.first()), target))
        return QString();
    m_tagOfFile.insert(name, tag);
    return target;
}

QStringList tst_Providers::discovered(const QStringList &tags) const
{
    QStringList order;
    for (const QString &file : QDir(m_plugins).entryList(QDir::Files, QDir::Unsorted)) {
        const QString tag = m_tagOfFile.value(file);
        if (tags.contains(tag))
            order.append(tag);
    }
    return order;
}

// Every provider is initialised before any starts, primary before secondary; shutdown runs
// the exact reverse, and the manager's destructor deletes them last first.
void tst_Providers::lifeRunsInOrder()
{
    const QString alpha = place(u"alpha"_s);
    QVERIFY(!alpha.isEmpty());
    QVERIFY(!place(u"beta"_s).isEmpty());
    QVERIFY(!place(u"gamma"_s, u"tool.so.2"_s).isEmpty());
    QVERIFY(!place(u"delta"_s).isEmpty());
    // Were it tried, a second "Alpha" would warn.
    QVERIFY(QFile::copy(alpha, m_plugins + u"/readme.txt"_s));
    const QStringList primaries = discovered({u"alpha"_s, u"beta"_s});
    const QStringList started = primaries + QStringList{u"gamma"_s};
    QStringList stopped = started;
    std::reverse(stopped.begin(), stopped.end());

    QSignalSpy status(m_manager.get(), &ProviderManager::statusChanged);
    m_manager->loadAll(m_plugins);

    QStringList expectedCalls, expectedStatus;
    for (const char *call : {"init", "start"}) {
        for (const QString &tag : started)
            expectedCalls.append(QLatin1String(call) + u' ' + tag);
    }
    for (const char *step : {"Initializing ", "Starting "}) {
        for (const QString &tag : started)
            expectedStatus.append(QLatin1String(step) + fixtureNames().value(tag) + u"..."_s);
    }
    expectedStatus.append(QString());
    QCOMPARE(FixtureJournal::take(), expectedCalls);
    QStringList texts;
    for (const QList<QVariant> &signal : std::as_const(status))
        texts.append(signal.at(0).toString());
    QCOMPARE(texts, expectedStatus);
    QCOMPARE(m_manager->getPrimaryProviders().size(), 2);
    QCOMPARE(m_manager->getSecondaryProviders().size(), 1);
    QCOMPARE(m_manager->getPrimaryProviders().at(0).provider->name(),
             fixtureNames().value(primaries.first()));

    status.clear();
    m_manager->shutdownAll();
    expectedCalls.clear();
    expectedStatus.clear();
    for (const char *call : {"stop", "shutdown"}) {
        for (const QString &tag : stopped)
            expectedCalls.append(QLatin1String(call) + u' ' + tag);
    }
    for (const char *step : {"Stopping ", "Unloading "}) {
        for (const QString &tag : stopped)
            expectedStatus.append(QLatin1String(step) + fixtureNames().value(tag) + u"..."_s);
    }
    expectedStatus.append(QString());
    QCOMPARE(FixtureJournal::take(), expectedCalls);
    texts.clear();
    for (const QList<QVariant> &signal : std::as_const(status))
        texts.append(signal.at(0).toString());
    QCOMPARE(texts, expectedStatus);

    // The disabled provider is never deleted: its library stays as it is.
    m_manager.reset();
    expectedCalls.clear();
    for (const QString &tag : stopped)
        expectedCalls.append(u"delete "_s + tag);
    QCOMPARE(FixtureJournal::take(), expectedCalls);
}

void tst_Providers::candidateFiles_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<bool>("loaded");

    QTest::newRow("dll") << u"alpha.dll"_s << true;
    QTest::newRow("dotted name ending in dll") << u"alpha.core.dll"_s << true;
    QTest::newRow("so") << u"libalpha.so"_s << true;
    QTest::newRow("versioned so") << u"libalpha.so.1"_s << true;
    QTest::newRow("suffix containing so") << u"alpha.sox"_s << true;
    QTest::newRow("upper-case DLL") << u"alpha.DLL"_s << false;
    QTest::newRow("upper-case SO") << u"alpha.SO"_s << false;
    QTest::newRow("dll inside a longer suffix") << u"alpha.dllx"_s << false;
    QTest::newRow("no suffix") << u"alpha"_s << false;
    QTest::newRow("text") << u"readme.txt"_s << false;
}

void tst_Providers::candidateFiles()
{
    QFETCH(QString, fileName);
    QFETCH(bool, loaded);

    QVERIFY(!place(u"alpha"_s, fileName).isEmpty());
    m_manager->loadAll(m_plugins);
    QCOMPARE(m_manager->getPrimaryProviders().size(), loaded ? 1 : 0);
    FixtureJournal::take();
}

void tst_Providers::firstOfANameWins()
{
    QVERIFY(!place(u"twin1"_s).isEmpty());
    QVERIFY(!place(u"twin2"_s).isEmpty());
    const QString first = discovered({u"twin1"_s, u"twin2"_s}).first();

    QTest::ignoreMessage(QtWarningMsg, "ProviderManager::load() : Provider Twin already loaded.");
    m_manager->loadAll(m_plugins);
    QCOMPARE(FixtureJournal::take(), QStringList({u"init "_s + first, u"start "_s + first}));
    QCOMPARE(m_manager->getPrimaryProviders().size(), 1);
}

// A library that is no provider, one built for a newer toolkit, a file that is no library,
// a missing folder and a missing hub: loading goes on with what is left.
void tst_Providers::faultsAreSurvived()
{
    QSignalSpy status(m_manager.get(), &ProviderManager::statusChanged);
    m_manager->loadAll(m_dir->filePath(u"absent"_s));
    QVERIFY(!place(u"beta"_s).isEmpty());
    ProviderManager withoutHub(nullptr);
    QSignalSpy quiet(&withoutHub, &ProviderManager::statusChanged);
    withoutHub.loadAll(m_plugins);
    QCOMPARE(status.size(), 0);
    QCOMPARE(quiet.size(), 0);
    QCOMPARE(FixtureJournal::take(), QStringList());

    QVERIFY(!place(u"notprovider"_s).isEmpty());
    QFile garbage(m_plugins + u"/libbroken.so"_s);
    QVERIFY(garbage.open(QIODevice::WriteOnly));
    QVERIFY(garbage.write("not a library") > 0);
    garbage.close();

    // Claim one minor version more than the toolkit the fixture was built with, in the
    // header that follows the metadata note's owner name.
    const QString newer = place(u"alpha"_s);
    QFile library(newer);
    QVERIFY(library.open(QIODevice::ReadWrite));
    QByteArray bytes = library.readAll();
    const QByteArray owner("qt-project!\0", 12);
    const qsizetype header = bytes.indexOf(owner) + owner.size();
    QVERIFY(header >= owner.size());
    QCOMPARE(int(bytes.at(header + 1)), QT_VERSION_MAJOR);
    bytes[header + 2] = char(bytes.at(header + 2) + 1);
    QVERIFY(library.seek(0));
    QCOMPARE(library.write(bytes), bytes.size());
    library.close();

    for (int i = 0; i < 3; ++i)
        QTest::ignoreMessage(QtDebugMsg, "====================");
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(u"libbroken\\.so"_s));
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(u"uses incompatible Qt library"_s));
    QTest::ignoreMessage(QtDebugMsg, "Unknown error");
    {
        const IncompatiblePluginReportFilter filter;
        m_manager->loadAll(m_plugins);
    }
    QCOMPARE(FixtureJournal::take(), QStringList({u"init beta"_s, u"start beta"_s}));
    QCOMPARE(m_manager->getPrimaryProviders().size(), 1);
}

void tst_Providers::refusedUnloadIsReported()
{
    const QString path = place(u"alpha"_s);
    QVERIFY(!path.isEmpty());
    // A second loader of the same library keeps it mapped, so the manager's unload fails.
    QPluginLoader holder(path);
    QVERIFY(holder.load());
    m_manager->loadAll(m_plugins);
    FixtureJournal::take();

    QTest::ignoreMessage(QtWarningMsg, "Cannot unload proivder 'Alpha'");
    m_manager.reset();
    QCOMPARE(FixtureJournal::take(), QStringList{u"delete alpha"_s});
    QVERIFY(holder.unload());
}

void tst_Providers::factoryAndOrder()
{
    auto provider = std::make_unique<StubProvider>(u"Stub"_s, 0, 0, 0x80000000u);
    const StubProvider low(u"Low"_s, 0, 0, 1);
    QVERIFY(low < *provider);
    QVERIFY(*provider > low);
    QVERIFY(!(*provider < low));

    auto *factory = qobject_cast<IProviderFactory *>(provider.get());
    QVERIFY(factory);
    QCOMPARE(provider->qt_metacast(VELMORA_IID_IPROVIDERFACTORY), static_cast<void *>(factory));
    QCOMPARE(factory->keys(), QList<QString>{u"provider"_s});
    QCOMPARE(factory->create(u"provider"_s), provider.get());
    QVERIFY(!factory->create(u"other"_s));

    QPointer<QWidget> widget = provider->widget();
    QVERIFY(widget && !widget->parent() && widget->isHidden());
    provider.reset();
    QVERIFY(!widget);
}

void tst_Providers::dialogVersionText_data()
{
    QTest::addColumn<quint32>("version");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("debugLine");

    QTest::newRow("major and minor") << 0x01020000u << u"1.2"_s << u"mxPMD: <1020000> <1/2>"_s;
    QTest::newRow("patch") << 0x01020300u << u"1.2.3"_s << u"mxPMD: <1020300> <1/2>"_s;
    QTest::newRow("build without patch") << 0x01020004u << u"1.2 (4)"_s
                                         << u"mxPMD: <1020004> <1/2>"_s;
    QTest::newRow("every part, two digits") << 0x0a0b0c0du << u"10.11.12 (13)"_s
                                            << u"mxPMD: <a0b0c0d> <a/b>"_s;
    QTest::newRow("all zero") << 0u << u"0.0"_s << u"mxPMD: <0> <0/0>"_s;
}

void tst_Providers::dialogVersionText()
{
    QFETCH(quint32, version);
    QFETCH(QString, text);
    QFETCH(QString, debugLine);

    // The manager deletes the providers it holds with state 0.
    m_manager->getPrimaryProviders().append({0, new StubProvider(u"Stub"_s, 0, version)});
    QTest::ignoreMessage(QtDebugMsg, qPrintable(debugLine));
    const QelProviderManagerDialog dialog(m_manager.get());
    auto *table = dialog.findChild<QAbstractItemView *>(u"ui_providerInfo"_s);
    QVERIFY(table);
    QCOMPARE(table->model()->index(0, 2).data().toString(), text);
}

void tst_Providers::dialogRowsSortedByName()
{
    // Entries not in state 0 are never deleted by the manager: the test owns every stub.
    StubProvider gamma(u"Gamma"_s, 0), alpha(u"Alpha"_s, 1), beta(u"Beta"_s, 0);
    m_manager->getPrimaryProviders() << ProviderManager::ProviderInfo{0, &gamma}
                                     << ProviderManager::ProviderInfo{7, &beta};
    m_manager->getSecondaryProviders() << ProviderManager::ProviderInfo{1, &alpha}
                                       << ProviderManager::ProviderInfo{0, nullptr};

    for (int i = 0; i < 3; ++i)
        QTest::ignoreMessage(QtDebugMsg, "mxPMD: <1000000> <1/0>");
    QelProviderManagerDialog dialog(m_manager.get());
    m_manager->getPrimaryProviders().clear();
    m_manager->getSecondaryProviders().clear();

    QCOMPARE(dialog.objectName(), u"QelProviderManagerDialog"_s);
    QCOMPARE(dialog.windowTitle(), u"Provider Information"_s);
    for (const char *name : {"vboxLayout", "hboxLayout", "ui_closeButton"})
        QVERIFY2(dialog.findChild<QObject *>(QLatin1String(name)), name);
    auto *table = dialog.findChild<QAbstractItemView *>(u"ui_providerInfo"_s);
    QVERIFY(table);
    QAbstractItemModel *model = table->model();
    QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);

    QStringList headers;
    for (int column = 0; column < model->columnCount(); ++column)
        headers.append(model->headerData(column, Qt::Horizontal).toString());
    QCOMPARE(headers, QStringList({u"Provider Name"_s, u"Author"_s, u"Version"_s,
                                   u"Description"_s, u"Type"_s, u"State"_s}));
    const QList<QStringList> expected{
        {u"Alpha"_s, u"Secondary"_s, u"Disabled"_s},
        {u"Beta"_s, u"Primary"_s, u"Unknown"_s},
        {u"Gamma"_s, u"Primary"_s, u"OK"_s}};
    QCOMPARE(model->rowCount(), expected.size());
    for (int row = 0; row < model->rowCount(); ++row) {
        const QStringList cells{model->index(row, 0).data().toString(),
                                model->index(row, 4).data().toString(),
                                model->index(row, 5).data().toString()};
        QCOMPARE(cells, expected.at(row));
    }
}

VELMORA_TEST(tst_Providers);

#include "tst_providers.moc"
