// The workbench's start-up and its largest open, each beside the plain Qt it is built on:
//  - start-up of a process to its main window shown (startupprobe), the workbench's
//    application with twenty providers in the "plugins" folder beside it (built there by
//    benchmarks/CMakeLists.txt), against a bare QApplication with a QMainWindow;
//  - opening a 100,000-item project into the project view (read, build, shown) in a started
//    environment, against a QStandardItemModel filled from the same file by QXmlStreamReader
//    and shown in a QTreeView.
#include "benchsupport.h"
#include "testtypes.h"

#include "core/hubinterfaces.h"
#include "core/typeregistrar.h"
#include "model/viewitem.h"
#include "shell/environment.h"
#include "shell/facilities.h"
#include "types/itemtypefolder.h"
#include "types/itemtypeproject.h"
#include "views/projectview.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qprocess.h>
#include <QtCore/qstandardpaths.h>
#include <QtCore/qtemporarydir.h>
#include <QtCore/qxmlstream.h>
#include <QtGui/qstandarditemmodel.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qmainwindow.h>
#include <QtWidgets/qtreeview.h>

#include <benchmark/benchmark.h>

#include <memory>

#include <ctime>

using namespace Velmora::Framework;
using namespace Velmora::Benchmarks;

namespace {

const QString projectId = QStringLiteral("bench.project");
const QString folderId = QStringLiteral("bench.folder");
const QString fileId = QStringLiteral("bench.file");
const QString solutionId = QStringLiteral("ITypeSolution.Types.Velmora.Orvane");

// Paints the window as the first frame on screen would.
void showAndPaint(QWidget *window)
{
    window->show();
    QCoreApplication::processEvents();
    benchmark::DoNotOptimize(window->grab());
}

// Wall-clock time from starting startupprobe in mode to its report that the main window is
// shown. The probe's shutdown is not timed.
void startup(benchmark::State &state, const char *mode, int providers)
{
    QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Settings and caches of a first start, kept out of the user's home.
    environment.insert(QStringLiteral("HOME"), home.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    const QString probe = QCoreApplication::applicationDirPath() + QStringLiteral("/startupprobe");
    for (auto _ : state) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setStandardErrorFile(QProcess::nullDevice());
        timespec started{};
        clock_gettime(CLOCK_MONOTONIC, &started);
        process.start(probe, {QString::fromLatin1(mode)});
        const bool finished = process.waitForFinished(60000);
        const QList<QByteArray> report = process.readAllStandardOutput().trimmed().split(' ');
        const qint64 shown = report.constFirst().toLongLong();
        if (!finished || process.exitCode() != 0 || shown == 0 || report.size() != 2
            || report.constLast().toInt() != providers) {
            state.SkipWithError("the probe did not report its window and providers");
            break;
        }
        const qint64 begin = qint64(started.tv_sec) * 1000000000LL + started.tv_nsec;
        state.SetIterationTime(double(shown - begin) * 1e-9);
    }
}

void startup_ours(benchmark::State &state)
{
    startup(state, "ours", 20);
}

void startup_anchor(benchmark::State &state)
{
    startup(state, "anchor", 0);
}

void startup_text(benchmark::State &state)
{
    startup(state, "text", 0);
}

class FolderType : public ItemTypeFolder
{
    Q_OBJECT
public:
    FolderType()
    {
        addChildType(folderId, false);
        addChildType(fileId, false);
    }
    QString getId() const override { return folderId; }
};

class ProjectType : public ItemTypeProject
{
    Q_OBJECT
public:
    ProjectType()
    {
        addChildType(folderId, false);
        addChildType(fileId, false);
    }
    QString getId() const override { return projectId; }
    QString getDescription() const override { return projectId; }
    QString defaultExtension() const override { return QStringLiteral(".qprj"); }
    QString filter() const override { return QStringLiteral("Project files(*.qprj)"); }
    bool canHandle(const QString &path) const override
    {
        return path.endsWith(QStringLiteral(".qprj"), Qt::CaseInsensitive);
    }
};

// A project of 100,000 items as the workbench writes one: ten folders of ten subfolders of
// 999 files each, plus the 110 folders.
QString writeProject(const QTemporaryDir &dir)
{
    const QString path = dir.filePath(QStringLiteral("large.qprj"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    QXmlStreamWriter xml(&file);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(4);
    xml.writeStartDocument();
    xml.writeDTD(QStringLiteral("<!DOCTYPE project>"));
    xml.writeStartElement(QStringLiteral("project"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("large"));
    auto item = [&xml](const QString &type, const QString &name, const QString &itemPath) {
        xml.writeStartElement(QStringLiteral("item"));
        xml.writeAttribute(QStringLiteral("typeid"), type);
        xml.writeAttribute(QStringLiteral("name"), name);
        xml.writeAttribute(QStringLiteral("path"), itemPath);
    };
    for (int f = 0; f < 10; ++f) {
        const QString folder = QStringLiteral("folder%1").arg(f);
        item(folderId, folder, QString());
        for (int s = 0; s < 10; ++s) {
            const QString sub = QStringLiteral("sub%1").arg(s);
            item(folderId, sub, QString());
            for (int i = 0; i < 999; ++i) {
                const QString name = QStringLiteral("file%1.cpp").arg(i);
                item(fileId, name, folder + QLatin1Char('/') + sub + QLatin1Char('/') + name);
                xml.writeEndElement();
            }
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }
    xml.writeEndElement();
    xml.writeEndDocument();
    return file.error() == QFile::NoError ? path : QString();
}

constexpr int projectItems = 100 * 999 + 110;

struct OpenFixture
{
    OpenFixture()
    {
        QStandardPaths::setTestModeEnabled(true);
        path = writeProject(dir);
        TypeRegistrar *registrar = environment.typeRegistrar();
        registrar->registerType(new ProjectType);
        registrar->registerType(new FolderType);
        registrar->registerType(new Velmora::Tests::TestType(fileId, QStringLiteral("File")));
        if (ItemType *solution = registrar->lookup(solutionId))
            solution->addChildType(projectId, false);
        environment.mainWindow()->resize(1200, 800);
        environment.mainWindow()->show();
        QCoreApplication::processEvents();
    }
    QList<ViewItem *> projects() const
    {
        auto *solution = interfaceCast<ISolution>(environment.facilities());
        return solution ? solution->projects() : QList<ViewItem *>();
    }

    QTemporaryDir dir;
    QString path;
    Environment environment;
};

OpenFixture &openFixture()
{
    static std::unique_ptr<OpenFixture> instance;
    if (!instance) {
        instance = std::make_unique<OpenFixture>();
        atEnd([] { instance.reset(); });
    }
    return *instance;
}

int countRows(const QAbstractItemModel *model, const QModelIndex &parent)
{
    int count = model->rowCount(parent);
    for (int row = model->rowCount(parent) - 1; row >= 0; --row)
        count += countRows(model, model->index(row, 0, parent));
    return count;
}

void open_ours(benchmark::State &state)
{
    OpenFixture &fixture = openFixture();
    ItemType *solutionType = fixture.environment.typeRegistrar()->lookup(solutionId);
    ProjectView *view = fixture.environment.projectView();
    int items = 0;
    for (auto _ : state) {
        // A private slot, reached as the ribbon's and the examples dialog's signals reach it.
        QMetaObject::invokeMethod(&fixture.environment, "openProject",
                                  Q_ARG(QString, fixture.path));
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(view->grab());
        state.PauseTiming();
        const QList<ViewItem *> projects = fixture.projects();
        items = projects.size() == 1 ? countRows(view->model(), view->model()->index(0, 0)) : -1;
        if (solutionType)
            solutionType->remove(projects, true);
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    // The project row and everything below it.
    if (items != projectItems + 1)
        state.SkipWithError("the project did not open whole");
    reportPerItem(state, projectItems);
}

void open_anchor(benchmark::State &state)
{
    OpenFixture &fixture = openFixture();
    for (auto _ : state) {
        QStandardItemModel model;
        QFile file(fixture.path);
        if (!file.open(QIODevice::ReadOnly))
            state.SkipWithError("cannot read the project");
        QXmlStreamReader xml(&file);
        QList<QStandardItem *> parents{model.invisibleRootItem()};
        while (!xml.atEnd()) {
            switch (xml.readNext()) {
            case QXmlStreamReader::StartElement: {
                auto *item = new QStandardItem(
                    xml.attributes().value(QLatin1String("name")).toString());
                item->setData(xml.attributes().value(QLatin1String("typeid")).toString(),
                              Qt::UserRole);
                parents.last()->appendRow(item);
                parents.append(item);
                break;
            }
            case QXmlStreamReader::EndElement:
                parents.removeLast();
                break;
            default:
                break;
            }
        }
        QTreeView view;
        view.setModel(&model);
        view.resize(300, 700);
        showAndPaint(&view);
        state.PauseTiming();
        if (xml.hasError() || countRows(&model, model.index(0, 0)) != projectItems)
            state.SkipWithError("the project did not read whole");
        state.ResumeTiming();
    }
    reportPerItem(state, projectItems);
}

} // namespace

BENCHMARK(startup_ours)->Name("startup/ours")->Unit(benchmark::kMillisecond)->UseManualTime()
    ->Repetitions(repetitions)->ReportAggregatesOnly(true)->Iterations(5);
BENCHMARK(startup_anchor)->Name("startup/anchor")->Unit(benchmark::kMillisecond)->UseManualTime()
    ->Repetitions(repetitions)->ReportAggregatesOnly(true)->Iterations(5);
BENCHMARK(startup_text)->Name("startup/text")->Unit(benchmark::kMillisecond)->UseManualTime()
    ->Repetitions(repetitions)->ReportAggregatesOnly(true)->Iterations(5);
BENCHMARK(open_ours)->Name("open/project/ours/100000")->Unit(benchmark::kMillisecond)
    ->Repetitions(repetitions)->ReportAggregatesOnly(true)->Iterations(2);
BENCHMARK(open_anchor)->Name("open/project/anchor/100000")->Unit(benchmark::kMillisecond)
    ->Repetitions(repetitions)->ReportAggregatesOnly(true)->Iterations(2);

#include "bench_startup.moc"
