#include "testsupport.h"
#include "testtypes.h"

#include "../../examples/generator/exampletypes.h"

#include "types/itemtypesolution.h"

#include <QtCore/qdir.h>
#include <QtCore/qtemporarydir.h>

#include <memory>

#ifdef Q_OS_LINUX
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#endif

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using namespace Velmora::Tests;
using Item = std::unique_ptr<ViewItem>;

namespace {

const QString solutionId = u"ITypeSolution.Types.Velmora.Orvane"_s;
const QString projectId = u"example.project"_s;
const QByteArray oldBytes = "old bytes";

} // namespace

class tst_FileSafety : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void faultsLeaveFilesAlone_data();
    void faultsLeaveFilesAlone();

private:
    QString path(const QString &relative) const { return m_dir->filePath(relative); }
    ItemTypeFile *type(const QString &id) const
    {
        return qobject_cast<ItemTypeFile *>(m_registrar->lookup(id));
    }
    // A small real file system at path(u"mnt"_s), or an empty string when none can be mounted.
    QString mountSmallDisk();

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<TypeRegistrar> m_registrar;
    QString m_mounted;
};

void tst_FileSafety::init()
{
    failOnUnexpectedWarnings();
    m_registrar = std::make_unique<TypeRegistrar>();
    Velmora::Examples::registerExampleTypes(m_registrar.get());
    m_registrar->registerType(new ItemTypeSolution);
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void tst_FileSafety::cleanup()
{
#ifdef Q_OS_LINUX
    if (!m_mounted.isEmpty())
        umount2(QFile::encodeName(m_mounted).constData(), MNT_DETACH);
#endif
    m_mounted.clear();
    m_registrar->deallocateAll();
    m_registrar.reset();
    m_dir.reset();
}

QString tst_FileSafety::mountSmallDisk()
{
#ifdef Q_OS_LINUX
    const QString target = path(u"mnt"_s);
    if (QDir().mkpath(target)
        && mount("tmpfs", QFile::encodeName(target).constData(), "tmpfs", 0, "size=256k") == 0) {
        m_mounted = target;
        return target;
    }
#endif
    return QString();
}

void tst_FileSafety::faultsLeaveFilesAlone_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("solution");
    QTest::addColumn<bool>("save");

    QTest::newRow("save project, disk full") << u"full"_s << false << true;
    QTest::newRow("save solution, disk full") << u"full"_s << true << true;
    QTest::newRow("save project, read-only disk") << u"read-only"_s << false << true;
    QTest::newRow("save project over a FIFO") << u"fifo"_s << false << true;
    QTest::newRow("save project over a device") << u"device"_s << false << true;
    QTest::newRow("open project from a FIFO") << u"fifo"_s << false << false;
    QTest::newRow("open project from a device") << u"device"_s << false << false;
    QTest::newRow("open project from a folder") << u"folder"_s << false << false;
    QTest::newRow("open solution listing a FIFO") << u"fifo"_s << true << false;
    QTest::newRow("open project of 64 MiB and a byte") << u"oversized"_s << false << false;
}

// No failed save may change a byte of what was there, and no path that is not a regular
// file may block or feed an open.
void tst_FileSafety::faultsLeaveFilesAlone()
{
    QFETCH(QString, fault);
    QFETCH(bool, solution);
    QFETCH(bool, save);

    QString folder = m_dir->path();
    if (fault == u"full" || fault == u"read-only") {
        folder = mountSmallDisk();
        if (folder.isEmpty())
            QSKIP("Mounting a small tmpfs needs root on Linux; the disk faults are not tried");
    }
    const QString project = folder + u"/p.qprj"_s;
    const QString solutionFile = folder + u"/s.sln-qel"_s;
    bool special = false;
#ifdef Q_OS_LINUX
    const QByteArray projectName = QFile::encodeName(project);
    if (fault == u"fifo")
        special = mkfifo(projectName.constData(), 0600) == 0;
    else if (fault == u"device") // the zero device: an open would read for ever
        special = mknod(projectName.constData(), S_IFCHR | 0600, makedev(1, 5)) == 0;
#endif
    if ((fault == u"fifo" || fault == u"device") && !special)
        QSKIP("Cannot make a FIFO or a device node here");
    const qint64 oversized = 64 * 1024 * 1024 + 1;
    if (fault == u"folder") {
        QVERIFY(QDir().mkpath(project));
    } else if (fault == u"oversized") { // sparse: refused before a byte is read
        QFile huge(project);
        QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(oversized));
        QTest::ignoreMessage(QtWarningMsg, "ItemTypeProject::deserialize(): the document is "
                                           "larger than 67108864 bytes; nothing is loaded");
    } else if (!special) {
        QVERIFY(writeFile(project, oldBytes));
    }
    QVERIFY(writeFile(solutionFile,
                      save ? oldBytes
                           : "<solution name=\"S\"><project typeid=\"example.project\" "
                             "name=\"p\" path=\"./p.qprj\"/></solution>"));
#ifdef Q_OS_LINUX
    const QByteArray mountPoint = QFile::encodeName(folder);
    if (fault == u"full") {
        QFile filler(folder + u"/filler"_s);
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray block(4096, 'x');
        while (filler.write(block) == block.size()) {
        }
    } else if (fault == u"read-only") {
        QCOMPARE(mount("tmpfs", mountPoint.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY,
                       "size=256k"),
                 0);
    }
#endif
    const QStringList entries = QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);

    Item item(m_registrar->createItem(solution ? solutionId : projectId, u"orig"_s));
    if (solution && save) {
        item->addChildItem(m_registrar->createItem(projectId, u"p"_s));
        item->getChildItemAt(0)->setItemPath(project);
    }
    ItemTypeFile *itemType = type(solution ? solutionId : projectId);
    if (save) {
        QVERIFY(!itemType->save(item.get(), solution ? solutionFile : project));
    } else {
        // A solution still loads, without the project that cannot be opened.
        QCOMPARE(itemType->open(item.get(), solution ? solutionFile : project), solution);
        QCOMPARE(outline(item.get()), solution ? u"S"_s : u"orig"_s);
    }
    QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), entries);
    if (special || fault == u"folder")
        QVERIFY(QFileInfo::exists(project) && !QFileInfo(project).isFile());
    else if (fault == u"oversized")
        QCOMPARE(QFileInfo(project).size(), oversized);
    else
        QCOMPARE(readFile(project), oldBytes);
    if (save && solution)
        QCOMPARE(readFile(solutionFile), oldBytes);
}

VELMORA_TEST(tst_FileSafety);
#include "tst_filesafety.moc"
