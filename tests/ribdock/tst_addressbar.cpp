#include <ribdock/addressbar.h>

#include "testsupport.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qtemporarydir.h>
#include <QtGui/qfilesystemmodel.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qtreeview.h>

#include <memory>

using namespace Velmora::Ribdock;

class tst_AddressBar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup()
    {
        m_bar.reset();
        m_root.reset();
    }
    void refusesWhatIsNoFolder_data();
    void refusesWhatIsNoFolder();
    void historyGoesBackAndForth();
    void fileOpenOnlyForRegisteredSuffixes();

private:
    QString folder(const QString &name) const { return m_root->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_root;
    std::unique_ptr<AddressBar> m_bar;
};

void tst_AddressBar::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    m_root = std::make_unique<QTemporaryDir>();
    for (const char *name : {"a", "b", "c", "a/inner"})
        QVERIFY(QDir(m_root->path()).mkpath(QString::fromLatin1(name)));
    for (const char *name : {"model.qprj", "notes.txt", "upper.QPRJ", "archive.qprj.bak"}) {
        QFile file(folder(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    m_bar = std::make_unique<AddressBar>();
    QVERIFY(m_bar->setPath(m_root->path()));
}

void tst_AddressBar::refusesWhatIsNoFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing folder") << QStringLiteral("missing");
    QTest::newRow("a file") << QStringLiteral("notes.txt");
    QTest::newRow("empty path") << QString();
}

void tst_AddressBar::refusesWhatIsNoFolder()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QFETCH(QString, name);
    const QString path = name.isEmpty() ? QString() : folder(name);
    QSignalSpy changed(m_bar.get(), &AddressBar::pathChanged);
    QTest::ignoreMessage(QtWarningMsg, qPrintable(QStringLiteral("AddressBar::setPath(): not a folder: ") + path));
    QVERIFY(!m_bar->setPath(path));
    QCOMPARE(m_bar->path(), m_root->path());
    QCOMPARE(changed.size(), 0);
    QVERIFY(m_bar->canGoBack()); // the history is untouched too
    QVERIFY(!m_bar->canGoForward());
}

void tst_AddressBar::historyGoesBackAndForth()
{
    QSignalSpy changed(m_bar.get(), &AddressBar::pathChanged);
    for (const char *name : {"a", "b", "c"})
        QVERIFY(m_bar->setPath(folder(QString::fromLatin1(name))));
    QVERIFY(m_bar->setPath(folder(QStringLiteral("c")) + QStringLiteral("/../c/"))); // the same folder
    QCOMPARE(changed.size(), 3);

    QVERIFY(m_bar->back());
    QVERIFY(m_bar->back());
    QCOMPARE(m_bar->path(), folder(QStringLiteral("a")));
    QVERIFY(m_bar->forward());
    QCOMPARE(m_bar->path(), folder(QStringLiteral("b")));
    QCOMPARE(changed.last().constFirst().toString(), folder(QStringLiteral("b")));

    // A new folder drops what lay ahead; a vanished one is skipped on the way back.
    QVERIFY(m_bar->setPath(folder(QStringLiteral("a/inner"))));
    QVERIFY(!m_bar->canGoForward());
    QVERIFY(QDir(folder(QStringLiteral("b"))).removeRecursively());
    QVERIFY(m_bar->back());
    QCOMPARE(m_bar->path(), folder(QStringLiteral("a")));
    QVERIFY(m_bar->up());
    QCOMPARE(m_bar->path(), m_root->path());

    // The history keeps only the newest steps.
    const int steps = AddressBar::historyLimit() + 5;
    for (int i = 0; i < steps; ++i)
        QVERIFY(m_bar->setPath(folder(QLatin1String(i % 2 ? "a" : "c"))));
    int backs = 0;
    while (m_bar->back())
        ++backs;
    QCOMPARE(backs, AddressBar::historyLimit());
    int forwards = 0;
    while (m_bar->forward())
        ++forwards;
    QCOMPARE(forwards, AddressBar::historyLimit());
}

void tst_AddressBar::fileOpenOnlyForRegisteredSuffixes()
{
    m_bar->addSuffix(QStringLiteral("qprj"));
    m_bar->addSuffix(QStringLiteral(".qprj"));
    QCOMPARE(m_bar->suffixes(), QStringList{QStringLiteral("qprj")});
    QVERIFY(!m_bar->findChild<QFileSystemModel *>()); // made when the list is first opened
    QTreeView *tree = m_bar->treeView();
    auto *model = qobject_cast<QFileSystemModel *>(tree->model());
    QSignalSpy opened(m_bar.get(), &AddressBar::signalFileOpen);
    for (const char *name : {"notes.txt", "upper.QPRJ", "archive.qprj.bak", "model.qprj"}) {
        const QModelIndex index = model->index(folder(QString::fromLatin1(name)));
        QVERIFY(index.isValid());
        emit tree->activated(index);
    }
    QCOMPARE(opened.size(), 1);
    QCOMPARE(opened.constFirst().constFirst().toString(), folder(QStringLiteral("model.qprj")));

    // A folder activated in the tree becomes the bar's folder.
    emit tree->activated(model->index(folder(QStringLiteral("a"))));
    QCOMPARE(m_bar->path(), folder(QStringLiteral("a")));
    QCOMPARE(opened.size(), 1);
}

VELMORA_TEST(tst_AddressBar);
#include "tst_addressbar.moc"
