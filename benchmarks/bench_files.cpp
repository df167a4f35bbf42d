// The project and solution files at scale: saving and loading projects of 10k and 100k items
// three levels deep, and a solution of 100 projects on disk. Beside each, the same bytes
// through the DOM (the anchor: parse and walk, or build and print with an indent of 4) and
// through Qt's stream reader and writer (the floor no reader or writer of this format beats).

#include "benchsupport.h"
#include "testtypes.h"

#include "core/augmentableregistrar.h"
#include "core/typeregistrar.h"
#include "model/viewitem.h"
#include "types/itemtypefolder.h"
#include "types/itemtypeproject.h"
#include "types/itemtypesolution.h"

#include <QtCore/qbuffer.h>
#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qsavefile.h>
#include <QtCore/qtemporarydir.h>
#include <QtCore/qxmlstream.h>
#include <QtXml/qdom.h>

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>

using namespace Velmora::Framework;
using namespace Velmora::Benchmarks;

namespace {

using Item = std::unique_ptr<ViewItem>;

const QString solutionId = QStringLiteral("ITypeSolution.Types.Velmora.Orvane");
const QString projectId = QStringLiteral("bench.project");
const QString folderId = QStringLiteral("bench.folder");
const QString fileId = QStringLiteral("bench.file");

void acceptFoldersAndFiles(ItemType *type)
{
    type->addChildType(folderId, false);
    type->addChildType(fileId, false);
}

class FolderType : public ItemTypeFolder
{
    Q_OBJECT

public:
    FolderType() { acceptFoldersAndFiles(this); }
    QString getId() const override { return folderId; }
};

class ProjectType : public ItemTypeProject
{
    Q_OBJECT

public:
    ProjectType() { acceptFoldersAndFiles(this); }
    QString getId() const override { return projectId; }
    QString getDescription() const override { return projectId; }
    QString getDefaultPrefix() const override { return QStringLiteral("Project"); }
    QString defaultExtension() const override { return QStringLiteral(".qprj"); }
    QString filter() const override { return QStringLiteral("Project files(*.qprj)"); }
    bool canHandle(const QString &path) const override
    {
        return path.endsWith(QStringLiteral(".qprj"), Qt::CaseInsensitive);
    }
};

// The registrars and types of every benchmark here, made on first use (they need the
// application) and dropped before it goes.
struct Types
{
    Types()
    {
        registrar.associate(&augments);
        registrar.registerType(solution);
        registrar.registerType(project);
        registrar.registerType(new FolderType);
        registrar.registerType(new Velmora::Tests::TestType(fileId, QStringLiteral("File")));
    }
    ~Types()
    {
        augments.deallocateAll();
        registrar.deallocateAll();
    }

    Item make(const QString &typeId, const QString &name) const
    {
        return Item(registrar.createItem(typeId, name));
    }

    AugmentableRegistrar augments;
    TypeRegistrar registrar;
    ItemTypeSolution *solution = new ItemTypeSolution;
    ProjectType *project = new ProjectType;
};

Types &types()
{
    static std::unique_ptr<Types> instance;
    if (!instance) {
        instance = std::make_unique<Types>();
        atEnd([] { instance.reset(); });
    }
    return *instance;
}

ViewItem *add(ViewItem *parent, const QString &typeId, const QString &name)
{
    ViewItem *child = types().registrar.createItem(typeId, name);
    parent->addChildItem(child);
    return child;
}

// folders, each with subfolders, each with files: every file has a path, as a project's do.
void fill(ViewItem *project, int folders, int subfolders, int files)
{
    for (int f = 0; f < folders; ++f) {
        const QString folder = QStringLiteral("folder%1").arg(f);
        ViewItem *outer = add(project, folderId, folder);
        for (int s = 0; s < subfolders; ++s) {
            const QString subfolder = QStringLiteral("sub%1").arg(s);
            ViewItem *inner = add(outer, folderId, subfolder);
            for (int i = 0; i < files; ++i) {
                const QString name = QStringLiteral("file%1.cpp").arg(i);
                add(inner, fileId, name)
                    ->setItemPath(folder + QLatin1Char('/') + subfolder + QLatin1Char('/') + name);
            }
        }
    }
}

int countBelow(const ViewItem *item)
{
    int count = 0;
    for (int row = 0; row < item->getChildItemCount(); ++row)
        count += 1 + countBelow(item->getChildItemAt(row));
    return count;
}

// A project of about count items: ten folders of ten subfolders and the files spread over them.
Item makeProject(int count, const QString &name = QStringLiteral("P"))
{
    Item project = types().make(projectId, name);
    fill(project.get(), 10, 10, std::max(1, (count - 110) / 100));
    return project;
}

QByteArray ourBytes(ViewItem *project)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    types().project->serialize(project, &buffer);
    return buffer.data();
}

// The DOM side.

void domChildren(QDomDocument &document, QDomElement &parent, const ViewItem *item)
{
    const int count = item->getChildItemCount();
    for (int row = 0; row < count; ++row) {
        const ViewItem *child = item->getChildItemAt(row);
        QDomElement element = document.createElement(QStringLiteral("item"));
        element.setAttribute(QStringLiteral("typeid"), child->getType()->getId());
        element.setAttribute(QStringLiteral("name"), child->getItemName());
        element.setAttribute(QStringLiteral("path"), child->getItemPath());
        parent.appendChild(element);
        domChildren(document, element, child);
    }
}

QDomDocument domDocument(const QString &tag, const QString &name, QDomElement &root)
{
    QDomDocument document(tag);
    document.appendChild(document.createProcessingInstruction(
        QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));
    root = document.createElement(tag);
    root.setAttribute(QStringLiteral("name"), name);
    document.appendChild(root);
    return document;
}

QByteArray domProject(const ViewItem *project)
{
    QDomElement root;
    QDomDocument document = domDocument(QStringLiteral("project"), project->getItemName(), root);
    domChildren(document, root, project);
    return document.toByteArray(4);
}

// Every element below element with the attributes a loader reads; the number of items.
qint64 domWalk(const QDomElement &element)
{
    qint64 count = 0;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() != QLatin1String("item"))
            continue;
        const QString typeId = child.attribute(QStringLiteral("typeid"));
        const QString name = child.attribute(QStringLiteral("name"));
        const QString path = child.attribute(QStringLiteral("path"));
        benchmark::DoNotOptimize(typeId.size() + name.size() + path.size());
        count += 1 + domWalk(child);
    }
    return count;
}

qint64 domLoad(const QByteArray &bytes)
{
    QDomDocument document;
    if (!document.setContent(bytes))
        return -1;
    const QDomElement root = document.documentElement();
    benchmark::DoNotOptimize(root.attribute(QStringLiteral("name")).size());
    return domWalk(root);
}

// The stream side.

void streamChildren(QXmlStreamWriter &writer, const ViewItem *item)
{
    const int count = item->getChildItemCount();
    for (int row = 0; row < count; ++row) {
        const ViewItem *child = item->getChildItemAt(row);
        writer.writeStartElement(QStringLiteral("item"));
        writer.writeAttribute(QStringLiteral("typeid"), child->getType()->getId());
        writer.writeAttribute(QStringLiteral("name"), child->getItemName());
        writer.writeAttribute(QStringLiteral("path"), child->getItemPath());
        streamChildren(writer, child);
        writer.writeEndElement();
    }
}

void streamStart(QXmlStreamWriter &writer, const QString &tag, const QString &name)
{
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(4);
    writer.writeStartDocument();
    writer.writeDTD(QStringLiteral("<!DOCTYPE %1>").arg(tag));
    writer.writeStartElement(tag);
    writer.writeAttribute(QStringLiteral("name"), name);
}

void streamProject(const ViewItem *project, QIODevice *device)
{
    QXmlStreamWriter writer(device);
    streamStart(writer, QStringLiteral("project"), project->getItemName());
    streamChildren(writer, project);
    writer.writeEndDocument();
}

// Every element read, with the attributes a loader reads; the number of items.
qint64 streamLoad(const QByteArray &bytes)
{
    QXmlStreamReader reader(bytes);
    qint64 count = -1;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        benchmark::DoNotOptimize(attributes.value(QLatin1String("typeid")).size()
                                 + attributes.value(QLatin1String("name")).size()
                                 + attributes.value(QLatin1String("path")).size());
        ++count;
    }
    return reader.hasError() ? -1 : count;
}

// Projects of a given size, built once: the trees saved and the bytes loaded.
struct ProjectFixture
{
    Item project;
    QByteArray bytes;
    int items = 0;
};

const ProjectFixture &projectFixture(int count)
{
    static std::map<int, ProjectFixture> fixtures;
    static const bool dropAtEnd = [] {
        atEnd([] { fixtures.clear(); });
        return true;
    }();
    Q_UNUSED(dropAtEnd);
    ProjectFixture &fixture = fixtures[count];
    if (!fixture.project) {
        fixture.project = makeProject(count);
        fixture.items = countBelow(fixture.project.get());
        fixture.bytes = ourBytes(fixture.project.get());
        // The anchor is only fair while it writes what we write; the DOM orders attributes
        // its own way, so the sizes are compared.
        if (domProject(fixture.project.get()).size() != fixture.bytes.size())
            qWarning("bench_files: the DOM writes another document than the project serializer");
    }
    return fixture;
}

enum class Side { Ours, Dom, Stream };

const char *sideName(Side side)
{
    switch (side) {
    case Side::Ours: return "ours";
    case Side::Dom: return "anchor";
    case Side::Stream: return "floor";
    }
    return "";
}

void saveProject(benchmark::State &state, Side side, int count)
{
    const ProjectFixture &fixture = projectFixture(count);
    ViewItem *project = fixture.project.get();
    for (auto _ : state) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        switch (side) {
        case Side::Ours:
            types().project->serialize(project, &buffer);
            break;
        case Side::Dom:
            buffer.write(domProject(project));
            break;
        case Side::Stream:
            streamProject(project, &buffer);
            break;
        }
        benchmark::DoNotOptimize(buffer.data().size());
    }
    reportPerItem(state, fixture.items);
}

void loadProject(benchmark::State &state, Side side, int count)
{
    const ProjectFixture &fixture = projectFixture(count);
    for (auto _ : state) {
        qint64 loaded = -1;
        switch (side) {
        case Side::Ours: {
            QBuffer buffer;
            buffer.setData(fixture.bytes);
            buffer.open(QIODevice::ReadOnly);
            Item project = types().make(projectId, QStringLiteral("loaded"));
            const bool parsed = types().project->deserialize(project.get(), &buffer);
            // The tree is what a load leaves behind; counting and freeing it is no part of it.
            state.PauseTiming();
            loaded = parsed ? countBelow(project.get()) : -1;
            project.reset();
            state.ResumeTiming();
            break;
        }
        case Side::Dom:
            loaded = domLoad(fixture.bytes);
            break;
        case Side::Stream:
            loaded = streamLoad(fixture.bytes);
            break;
        }
        if (loaded != fixture.items) {
            state.SkipWithError("the load did not read every item");
            break;
        }
    }
    reportPerItem(state, fixture.items);
}

// A solution of 100 projects of about 100 items each, saved into a folder of its own per side;
// the loads all read what our side saved.
constexpr int solutionProjects = 100;

struct SolutionFixture
{
    QTemporaryDir dir;
    Item solution;
    int items = 0;

    QString folder(Side side) const { return dir.filePath(QString::fromLatin1(sideName(side))); }
    QString solutionFile(Side side) const { return folder(side) + QStringLiteral("/s.sln-qel"); }
};

SolutionFixture &solutionFixture()
{
    static std::unique_ptr<SolutionFixture> fixture;
    if (fixture)
        return *fixture;
    fixture = std::make_unique<SolutionFixture>();
    atEnd([] { fixture.reset(); });
    fixture->solution = types().make(solutionId, QStringLiteral("S"));
    for (const Side side : {Side::Ours, Side::Dom, Side::Stream})
        QDir().mkpath(fixture->folder(side));
    for (int p = 0; p < solutionProjects; ++p) {
        const QString name = QStringLiteral("p%1").arg(p);
        ViewItem *project = add(fixture->solution.get(), projectId, name);
        fill(project, 3, 3, 10);
        project->setItemPath(fixture->folder(Side::Ours) + QLatin1Char('/') + name
                             + QStringLiteral(".qprj"));
    }
    fixture->items = countBelow(fixture->solution.get());
    types().solution->save(fixture->solution.get(), fixture->solutionFile(Side::Ours));
    return *fixture;
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Each project file, then the solution file listing them, in the solution's folder.
bool saveSolutionAs(Side side, const SolutionFixture &fixture)
{
    const ViewItem *solution = fixture.solution.get();
    const QString folder = fixture.folder(side);
    QDomElement root;
    QDomDocument document;
    QByteArray solutionBytes;
    std::unique_ptr<QXmlStreamWriter> writer;
    if (side == Side::Dom)
        document = domDocument(QStringLiteral("solution"), solution->getItemName(), root);
    else {
        writer = std::make_unique<QXmlStreamWriter>(&solutionBytes);
        streamStart(*writer, QStringLiteral("solution"), solution->getItemName());
    }
    bool saved = true;
    for (int row = 0; row < solution->getChildItemCount(); ++row) {
        const ViewItem *project = solution->getChildItemAt(row);
        const QString file = QFileInfo(project->getItemPath()).fileName();
        if (side == Side::Dom) {
            saved = writeFile(folder + QLatin1Char('/') + file, domProject(project)) && saved;
            QDomElement element = document.createElement(QStringLiteral("project"));
            element.setAttribute(QStringLiteral("typeid"), project->getType()->getId());
            element.setAttribute(QStringLiteral("name"), project->getItemName());
            element.setAttribute(QStringLiteral("path"), QStringLiteral("./") + file);
            root.appendChild(element);
        } else {
            QByteArray bytes;
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::WriteOnly);
            streamProject(project, &buffer);
            saved = writeFile(folder + QLatin1Char('/') + file, bytes) && saved;
            writer->writeEmptyElement(QStringLiteral("project"));
            writer->writeAttribute(QStringLiteral("typeid"), project->getType()->getId());
            writer->writeAttribute(QStringLiteral("name"), project->getItemName());
            writer->writeAttribute(QStringLiteral("path"), QStringLiteral("./") + file);
        }
    }
    if (side == Side::Dom) {
        solutionBytes = document.toByteArray(4);
    } else {
        writer->writeEndDocument();
    }
    return writeFile(folder + QStringLiteral("/s.sln-qel"), solutionBytes) && saved;
}

// The solution file, then every project file it lists; the number of items in the projects.
qint64 loadSolutionAs(Side side, const SolutionFixture &fixture)
{
    const QString folder = fixture.folder(Side::Ours);
    const QByteArray bytes = readFile(fixture.solutionFile(Side::Ours));
    QStringList paths;
    if (side == Side::Dom) {
        QDomDocument document;
        if (!document.setContent(bytes))
            return -1;
        for (QDomElement element = document.documentElement().firstChildElement();
             !element.isNull(); element = element.nextSiblingElement()) {
            paths.append(element.attribute(QStringLiteral("path")));
        }
    } else {
        QXmlStreamReader reader(bytes);
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement
                && reader.name() == QLatin1String("project")) {
                paths.append(reader.attributes().value(QLatin1String("path")).toString());
            }
        }
    }
    qint64 items = 0;
    for (const QString &path : std::as_const(paths)) {
        const QByteArray project = readFile(QDir::cleanPath(QDir(folder).absoluteFilePath(path)));
        const qint64 count = side == Side::Dom ? domLoad(project) : streamLoad(project);
        if (count < 0)
            return -1;
        items += 1 + count;
    }
    return items;
}

void saveSolution(benchmark::State &state, Side side, int)
{
    SolutionFixture &fixture = solutionFixture();
    for (auto _ : state) {
        const bool saved = side == Side::Ours
            ? types().solution->save(fixture.solution.get(), fixture.solutionFile(Side::Ours))
            : saveSolutionAs(side, fixture);
        if (!saved) {
            state.SkipWithError("the solution was not saved");
            break;
        }
    }
    reportPerItem(state, fixture.items);
}

void loadSolution(benchmark::State &state, Side side, int)
{
    SolutionFixture &fixture = solutionFixture();
    for (auto _ : state) {
        qint64 loaded = -1;
        if (side == Side::Ours) {
            Item solution = types().make(solutionId, QStringLiteral("loaded"));
            const bool opened =
                types().solution->open(solution.get(), fixture.solutionFile(Side::Ours));
            state.PauseTiming();
            loaded = opened ? countBelow(solution.get()) : -1;
            solution.reset();
            state.ResumeTiming();
        } else {
            loaded = loadSolutionAs(side, fixture);
        }
        if (loaded != fixture.items) {
            state.SkipWithError("the load did not read every item");
            break;
        }
    }
    reportPerItem(state, fixture.items);
}

using Function = void (*)(benchmark::State &, Side, int);

void add(const char *operation, const char *what, Function function, int count, int iterations)
{
    for (const Side side : {Side::Ours, Side::Dom, Side::Stream}) {
        const std::string name = std::string(operation) + '/' + what + '/' + sideName(side) + '/'
            + std::to_string(count);
        benchmark::internal::Benchmark *benchmark = benchmark::RegisterBenchmark(
            name.c_str(), [=](benchmark::State &state) { function(state, side, count); });
        repeated(benchmark->Unit(benchmark::kMillisecond)->Iterations(iterations));
    }
}

const bool registered = [] {
    for (const int count : {10000, 100000}) {
        const int iterations = std::max(1, 100000 / count);
        add("save", "project", &saveProject, count, iterations);
        add("load", "project", &loadProject, count, iterations);
    }
    add("save", "solution", &saveSolution, solutionProjects, 1);
    add("load", "solution", &loadSolution, solutionProjects, 1);
    return true;
}();

} // namespace

#include "bench_files.moc"
