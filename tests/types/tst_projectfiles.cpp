#include "testsupport.h"
#include "scriptedprompts.h"
#include "testtypes.h"

#include "../../examples/generator/exampletypes.h"

#include "types/dialogaddnewproject.h"
#include "types/itemtypesolution.h"

#include <QtCore/qdir.h>
#include <QtCore/qpointer.h>
#include <QtCore/qtemporarydir.h>
#include <QtWidgets/qlineedit.h>

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
const QByteArray header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE ";
const QByteArray oldBytes = "old bytes";

// Hidden from the new-project dialog; it writes half a document and then fails, and its items
// refuse to be removed.
class FailingProjectType : public Velmora::Examples::ExampleProjectType
{
    Q_OBJECT

public:
    QString getId() const override { return u"test.failing"_s; }
    bool isPrincipal() const override { return false; }
    bool serialize(ViewItem *, QIODevice *device) override
    {
        device->write("<?xml version=\"1.0\"?>\n<project name=");
        return false;
    }

protected:
    bool remove_routine(const QList<ViewItem *> &, const QVariant &) override { return false; }
};

// Folders nested three deep, and a file with markup in its name.
const QByteArray projectBytes = header + "project>\n<project name=\"P\">\n"
    "    <item typeid=\"example.folder\" name=\"src\" path=\"\">\n"
    "        <item typeid=\"example.folder\" name=\"inner\" path=\"\">\n"
    "            <item typeid=\"example.file\" name=\"main.c\" path=\"src/inner/main.c\"/>\n"
    "        </item>\n"
    "    </item>\n"
    "    <item typeid=\"example.file\" name=\"a&amp;b &quot;c&quot; &lt;d>\" path=\"\"/>\n"
    "</project>\n";

} // namespace

class tst_ProjectFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        // New projects move the process into their folder.
        m_currentDir = QDir::currentPath();
        m_registrar = std::make_unique<TypeRegistrar>();
        Velmora::Examples::registerExampleTypes(m_registrar.get());
        m_registrar->registerType(new FailingProjectType);
        m_registrar->registerType(m_solution = new ItemTypeSolution);
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
    }
    void cleanup()
    {
    #ifdef Q_OS_LINUX
        if (!m_mounted.isEmpty())
            umount2(QFile::encodeName(m_mounted).constData(), MNT_DETACH);
    #endif
        m_mounted.clear();
        m_registrar->deallocateAll();
        m_registrar.reset();
        QDir::setCurrent(m_currentDir);
        m_dir.reset();
    }

    void projectFileRoundTrip();
    void solutionFileRoundTrip();
    void readersRefuseOrSkipBadInput_data();
    void readersRefuseOrSkipBadInput();
    void failedSaveKeepsOldFiles();
    void faultsLeaveFilesAlone_data();
    void faultsLeaveFilesAlone();
    void solutionFilesCloseAndCandidates();
    void newProjectThroughAddNew();
    void solutionRelativePath_data();
    void solutionRelativePath();
    void exampleSolutionLoads();

private:
    Item make(const QString &typeId, const QString &name) const
    {
        return Item(m_registrar->createItem(typeId, name));
    }
    ViewItem *add(ViewItem *parent, const QString &typeId, const QString &name) const
    {
        ViewItem *child = m_registrar->createItem(typeId, name);
        parent->addChildItem(child);
        return child;
    }
    QString path(const QString &relative) const { return m_dir->filePath(relative); }
    ItemTypeFile *type(const QString &id) const
    {
        return qobject_cast<ItemTypeFile *>(m_registrar->lookup(id));
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<TypeRegistrar> m_registrar;
    ItemTypeSolution *m_solution = nullptr;
    QString m_currentDir;
    QString m_mounted;
};

void tst_ProjectFiles::projectFileRoundTrip()
{
    Item project = make(projectId, u"P"_s);
    ViewItem *src = add(project.get(), u"example.folder"_s, u"src"_s);
    add(add(src, u"example.folder"_s, u"inner"_s), u"example.file"_s, u"main.c"_s)
        ->setItemPath(u"src/inner/main.c"_s);
    add(project.get(), u"example.file"_s, u"a&b \"c\" <d>"_s);

    const QString file = path(u"p.qprj"_s);
    QVERIFY(type(projectId)->save(project.get(), file));
    QCOMPARE(readFile(file), projectBytes);

    Item loaded = make(projectId, u"other"_s);
    QVERIFY(type(projectId)->open(loaded.get(), file));
    QCOMPARE(outline(loaded.get()), u"P[src[inner[main.c]],a&b \"c\" <d>]"_s);
    // The item paths are written but never applied, so only they differ when written again.
    QVERIFY(type(projectId)->save(loaded.get(), path(u"again.qprj"_s)));
    QCOMPARE(readFile(path(u"again.qprj"_s)),
             QByteArray(projectBytes).replace("src/inner/main.c", ""));
}

void tst_ProjectFiles::solutionFileRoundTrip()
{
    QVERIFY(QDir(m_dir->path()).mkpath(u"sol/sub"_s) && QDir(m_dir->path()).mkpath(u"other"_s));
    Item solution = make(solutionId, u"S"_s);
    ViewItem *p = add(solution.get(), projectId, u"p"_s);
    p->setItemPath(path(u"sol/sub/p.qprj"_s));
    add(add(p, u"example.folder"_s, u"f"_s), u"example.file"_s, u"x"_s);
    ViewItem *q = add(solution.get(), projectId, u"q"_s);
    q->setItemPath(path(u"other/q.qprj"_s));
    add(q, u"example.file"_s, u"y"_s);

    // Below the solution's folder a path starts with "./"; elsewhere it stays absolute.
    const QString file = path(u"sol/s.sln-qel"_s);
    const QByteArray expected = header + "solution>\n<solution name=\"S\">\n"
        "    <project typeid=\"example.project\" name=\"p\" path=\"./sub/p.qprj\"/>\n"
        "    <project typeid=\"example.project\" name=\"q\" path=\""
        + path(u"other"_s).toUtf8() + "/q.qprj\"/>\n</solution>\n";
    QVERIFY(m_solution->save(solution.get(), file));
    QCOMPARE(readFile(file), expected);
    const QByteArray pBytes = readFile(p->getItemPath()); // each project saved on the way
    QVERIFY(pBytes.contains("name=\"x\""));

    Item loaded = make(solutionId, u"other"_s);
    QVERIFY(m_solution->open(loaded.get(), file));
    QCOMPARE(outline(loaded.get()), u"S[p[f[x]],q[y]]"_s);
    QVERIFY(m_solution->save(loaded.get(), file));
    QCOMPARE(readFile(file), expected);
    QCOMPARE(readFile(p->getItemPath()), pBytes);
}

void tst_ProjectFiles::readersRefuseOrSkipBadInput_data()
{
    QTest::addColumn<bool>("solution");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("parsed");
    QTest::addColumn<QString>("tree"); // "orig": nothing was loaded
    QTest::addColumn<QByteArray>("warning");

    // Rows named "solution: ..." read a solution file, the others a project file.
    const auto row = [](const char *name, const QByteArray &bytes, bool parsed,
                        const QString &tree, const QByteArray &warning = {}) {
        QTest::newRow(name) << (qstrncmp(name, "solution", 8) == 0) << bytes << parsed << tree
                            << warning;
    };
    const auto doc = [](const QByteArray &b) { return "<project name=\"P\">" + b + "</project>"; };
    const auto sln = [](const QByteArray &b) {
        return "<solution name=\"S\">" + b + "</solution>";
    };
    const QByteArray a = "<item typeid=\"example.file\" name=\"a\"/>";
    const auto entry = [](const QByteArray &typeId, const QByteArray &path) {
        return "<project typeid=\"" + typeId + "\" name=\"x\" path=\"" + path + "\"/>";
    };
    // Beside the solution: p.qprj and q.qprj hold empty projects, broken.qprj is malformed.
    const QByteArray q = entry("example.project", "./q.qprj");
    const QByteArray tooDeep = "::deserialize(): the document is nested deeper than 512 levels; "
                               "nothing is loaded";

    row("project: wrong root", "<solution name=\"S\">" + a + "</solution>", true, u"orig"_s);
    row("project: empty and unknown typeids skipped with their subtrees",
        doc("<item typeid=\"\" name=\"x\">" + a + "</item><item typeid=\"test.none\" name=\"y\">"
            + a + "</item><folder typeid=\"example.folder\" name=\"z\">" + a + "</folder>" + a),
        true, u"P[a]"_s);
    row("project: malformed", doc("<item typeid=\"example.file\" name=\"a\">"), false, u"orig"_s);
    row("project: empty file", QByteArray(), false, u"orig"_s);
    row("project: non-UTF-8", doc("<item typeid=\"example.file\" name=\"\xff\xfe\"/>"), false,
        u"orig"_s);
    row("project: 513 levels refused",
        doc(QByteArray("<item typeid=\"example.folder\" name=\"d\">").repeated(512)
            + QByteArray("</item>").repeated(512)),
        false, u"orig"_s, "ItemTypeProject" + tooDeep);
    row("project: 100,000 nested items refused",
        doc(QByteArray("<item typeid=\"example.folder\" name=\"d\">").repeated(100000)
            + QByteArray("</item>").repeated(100000)),
        false, u"orig"_s, "ItemTypeProject" + tooDeep);
    row("project: 100,000 items", doc(a.repeated(100000)), true,
        u"P["_s + QStringList(100000, u"a"_s).join(u',') + u']');
    // Limits that keep hostile files cheap, each crossed by one: attributes per element,
    // characters that entity references may add, the document type, values, and attribute-list
    // declarations.
    const auto attributes = [](int count) {
        QByteArray bytes;
        for (int i = 0; i < count; ++i)
            bytes += " a" + QByteArray::number(i) + "=\"\"";
        return bytes;
    };
    const auto item = [](const QByteArray &name, const QByteArray &more = {}) {
        return "<item typeid=\"example.file\" name=\"" + name + "\" path=\"\"" + more + "/>";
    };
    const QByteArray entity = "<!DOCTYPE project [<!ENTITY e \"" + QByteArray(4000, 'e') + "\">]>";
    const QByteArray limit = "::deserialize(): ";
    const QByteArray nothing = "; nothing is loaded";
    row("project: 32 attributes", doc(item("a", attributes(29))), true, u"P[a]"_s);
    row("project: 33 attributes refused", doc(item("a", attributes(30))), false, u"orig"_s,
        "ItemTypeProject" + limit + "an element has more than 32 attributes" + nothing);
    row("project: markup in comments, sections and values is no attribute",
        doc("<!-- <x" + attributes(33) + "> -->" + "<![CDATA[<x" + attributes(33) + ">]]>"
            + item(QByteArray(33, '='))),
        true, u"P["_s + QString(33, u'=') + u']');
    row("project: 256 entity references", entity + doc(QByteArray("&e;").repeated(256) + a),
        true, u"P[a]"_s);
    row("project: 257 entity references refused",
        entity + doc(QByteArray("&e;").repeated(257) + a), false, u"orig"_s,
        "ItemTypeProject" + limit + "entity references may expand to more than 1048576 "
                                    "characters" + nothing);
    row("project: nested entities past 4096 characters",
        "<!DOCTYPE project [<!ENTITY a \"" + QByteArray(100, 'a') + "\"><!ENTITY b \""
            + QByteArray("&a;").repeated(41) + "\">]>" + doc(item("&b;")),
        false, u"orig"_s);
    row("project: document type over 64 KiB refused",
        "<!DOCTYPE project [<!-- " + QByteArray(64 * 1024, 'x') + " -->]>" + doc(a), false,
        u"orig"_s,
        "ItemTypeProject" + limit + "the document type is larger than 65536 bytes" + nothing);
    row("project: attribute-list declaration refused",
        "<!DOCTYPE project [<!ATTLIST item x CDATA \"x\">]>" + doc(a), false, u"orig"_s,
        "ItemTypeProject" + limit + "the document type declares attribute lists" + nothing);
    row("project: name of 32,767 characters", doc(item(QByteArray(32767, 'n'))), true,
        u"P["_s + QString(32767, u'n') + u']');
    row("project: name of 32,768 characters refused", doc(item(QByteArray(32768, 'n'))), false,
        u"orig"_s, "ItemTypeProject" + limit + "a value is longer than 32767 characters" + nothing);
    row("project: UTF-16", "\xff\xfe" + QByteArray("<\0p\0/\0>\0", 8), false, u"orig"_s);
    row("solution: path of 32,768 characters refused",
        sln(entry("example.project", "./" + QByteArray(32766, 'p'))), false, u"orig"_s,
        "ItemTypeSolution" + limit + "a value is longer than 32767 characters" + nothing);
    row("solution: 4,097 projects refused", sln(q.repeated(4097)), false, u"orig"_s,
        "ItemTypeSolution" + limit + "the solution lists more than 4096 projects" + nothing);
    row("solution: wrong root", "<project name=\"S\">" + q + "</project>", true, u"orig"_s);
    row("solution: empty, unknown and non-project typeids, broken projects skipped",
        sln(entry("", "./p.qprj") + entry("test.none", "./p.qprj")
            + entry("example.folder", "./p.qprj") + entry("example.project", "./none.qprj")
            + entry("example.project", "./broken.qprj") + q),
        true, u"S[Q]"_s);
    row("solution: malformed", "<solution name=\"S\">" + q, false, u"orig"_s);
    row("solution: deep nesting refused",
        sln(QByteArray("<project typeid=\"example.project\" name=\"x\" path=\"./q.qprj\">")
                .repeated(100000) + QByteArray("</project>").repeated(100000)),
        false, u"orig"_s, "ItemTypeSolution" + tooDeep);
}

void tst_ProjectFiles::readersRefuseOrSkipBadInput()
{
    QFETCH(bool, solution);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, parsed);
    QFETCH(QString, tree);
    QFETCH(QByteArray, warning);
    if (!warning.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, warning.constData());
    QVERIFY(writeFile(path(u"p.qprj"_s), "<project name=\"P\"/>"));
    QVERIFY(writeFile(path(u"q.qprj"_s), "<project name=\"Q\"/>"));
    QVERIFY(writeFile(path(u"broken.qprj"_s), "<project name=\"B\">"));
    const QString file = path(solution ? u"s.sln-qel"_s : u"read.qprj"_s);
    QVERIFY(writeFile(file, bytes));
    ScriptedPrompts prompts; // no row may ask

    Item item = make(solution ? solutionId : projectId, u"orig"_s);
    QCOMPARE(type(solution ? solutionId : projectId)->open(item.get(), file), parsed);
    QCOMPARE(outline(item.get()), tree);
    QVERIFY(prompts.requests.isEmpty());
}

void tst_ProjectFiles::failedSaveKeepsOldFiles()
{
    // In a solution the failing project is left out of the file, and its old file stays.
    const QString old = path(u"f.qprj"_s);
    QVERIFY(writeFile(old, oldBytes));
    Item solution = make(solutionId, u"S"_s);
    add(solution.get(), u"test.failing"_s, u"F"_s)->setItemPath(old);
    add(solution.get(), projectId, u"p"_s)->setItemPath(path(u"p.qprj"_s));
    QVERIFY(m_solution->save(solution.get(), path(u"s.sln-qel"_s)));
    QCOMPARE(readFile(old), oldBytes);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files),
             QStringList({u"f.qprj"_s, u"p.qprj"_s, u"s.sln-qel"_s}));
    QCOMPARE(readFile(path(u"s.sln-qel"_s)),
             header + "solution>\n<solution name=\"S\">\n    <project typeid=\"example.project\" "
                      "name=\"p\" path=\"./p.qprj\"/>\n</solution>\n");
}

void tst_ProjectFiles::faultsLeaveFilesAlone_data()
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
void tst_ProjectFiles::faultsLeaveFilesAlone()
{
    QFETCH(QString, fault);
    QFETCH(bool, solution);
    QFETCH(bool, save);

    QString folder = m_dir->path();
    if (fault == u"full" || fault == u"read-only") { // a small real file system
        folder = path(u"mnt"_s);
#ifdef Q_OS_LINUX
        if (QDir().mkpath(folder) && mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs",
                                           0, "size=256k") == 0)
            m_mounted = folder;
#endif
        if (m_mounted.isEmpty())
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
    if (fault == u"full") {
        QFile filler(folder + u"/filler"_s);
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray block(4096, 'x');
        while (filler.write(block) == block.size()) {
        }
    } else if (fault == u"read-only") {
        QCOMPARE(mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs",
                       MS_REMOUNT | MS_RDONLY, "size=256k"), 0);
    }
#endif
    const QStringList entries = QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);

    Item item = make(solution ? solutionId : projectId, u"orig"_s);
    if (solution && save)
        add(item.get(), projectId, u"p"_s)->setItemPath(project);
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

void tst_ProjectFiles::solutionFilesCloseAndCandidates()
{
    QVERIFY(m_solution->canHandle(u"A.SLN-QEL"_s));
    QVERIFY(!m_solution->canHandle(u"a.sln-qel.bak"_s));
    Item solution = make(solutionId, u"S"_s);
    add(solution.get(), projectId, u"p1"_s);
    add(solution.get(), u"test.failing"_s, u"p2"_s);
    const QPointer<ViewItem> p3 = add(solution.get(), projectId, u"p3"_s);
    // The last project goes first; the refusal leaves the rest in place.
    QVERIFY(!m_solution->close(solution.get()));
    QVERIFY(p3.isNull());
    QCOMPARE(outline(solution.get()), u"S[p1,p2]"_s);

    // The project type that is not principal is no candidate; types that are no projects pass.
    m_solution->addChildType(u"example.file"_s, false);
    QCOMPARE(m_solution->addCandidates(solution.get()),
             QList<ItemType *>({type(projectId), m_registrar->lookup(u"example.file"_s)}));
}

void tst_ProjectFiles::newProjectThroughAddNew()
{
    const QString location = QDir::cleanPath(m_dir->path());
    ScriptedPrompts prompts([&](const ScriptedPrompts::Request &request) {
        auto *dialog = qobject_cast<DialogAddNewProject *>(request.dialog);
        if (request.kind != ScriptedPrompts::Request::Dialog || !dialog)
            return ScriptedPrompts::Answer{};
        dialog->findChild<QLineEdit *>(u"nameLineEdit"_s)->setText(u"p1"_s);
        dialog->findChild<QLineEdit *>(u"locationLineEdit"_s)->setText(location);
        dialog->accept();
        return ScriptedPrompts::Answer{dialog->result(), {}};
    });
    Item solution = make(solutionId, u"S"_s);
    QVERIFY(m_solution->addNew(solution.get()));
    QCOMPARE(prompts.requests.size(), 1);
    QCOMPARE(outline(solution.get()), u"S[p1]"_s);
    QCOMPARE(solution->getChildItemAt(0)->getType()->getId(), projectId);
    QCOMPARE(solution->getChildItemAt(0)->getItemPath(), location + u"/p1.qprj"_s);
    QCOMPARE(QFileInfo(QDir::currentPath()).canonicalFilePath(),
             QFileInfo(location).canonicalFilePath());
}

void tst_ProjectFiles::solutionRelativePath_data()
{
    QTest::addColumn<QString>("path"); // of a project under a solution in /w/sol
    QTest::addColumn<QString>("written");

    QTest::newRow("other case") << u"/W/Sol/p1/p1.x"_s << u"./p1/p1.x"_s;
    QTest::newRow("base in the middle") << u"/x/w/sol/p1.x"_s << u"./x/p1.x"_s;
    QTest::newRow("empty") << QString() << QString();
}

void tst_ProjectFiles::solutionRelativePath()
{
    QFETCH(QString, path);
    QFETCH(QString, written);
    QCOMPARE(ItemTypeSolution::solutionRelativePath(path, u"/w/sol"_s), written);
}

void tst_ProjectFiles::exampleSolutionLoads()
{
    const QString folder = QStringLiteral(VELMORA_EXAMPLES_DIR "/solution");
    Item solution = make(solutionId, u"orig"_s);
    QVERIFY(m_solution->open(solution.get(), folder + u"/example.sln-qel"_s));
    QCOMPARE(outline(solution.get()),
             u"Example[alpha[src[model[state.h,state.cpp],main.cpp],docs[overview.md],"
             "alpha.ini],beta[scripts[setup[init.m],run.m],readme.txt]]"_s);
    QCOMPARE(solution->getChildItemAt(1)->getItemPath(),
             QDir::cleanPath(folder + u"/beta/beta.qprj"_s));
}

VELMORA_TEST(tst_ProjectFiles);
#include "tst_projectfiles.moc"
