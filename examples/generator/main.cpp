// Writes the example solution: "example.sln-qel" with the projects "alpha/alpha.qprj" and
// "beta/beta.qprj", built as item trees and saved by the framework's own file types.
//
//     example_generator <folder>

#include "exampletypes.h"

#include "core/typeregistrar.h"
#include "model/viewitem.h"
#include "types/itemtypesolution.h"

#include <QtCore/qdir.h>
#include <QtWidgets/qapplication.h>

#include <cstdio>
#include <initializer_list>
#include <memory>

using namespace Velmora::Framework;

namespace {

// Adds a child of the type to parent; returns it for further nesting.
ViewItem *add(const TypeRegistrar &registrar, ViewItem *parent, const char *typeId,
              const QString &name, const QString &path = QString())
{
    ViewItem *item = registrar.createItem(QString::fromLatin1(typeId), name);
    item->setItemPath(path);
    parent->addChildItem(item);
    return item;
}

void addFiles(const TypeRegistrar &registrar, ViewItem *parent, const QString &folder,
              std::initializer_list<const char *> names)
{
    for (const char *name : names) {
        const QString fileName = QString::fromLatin1(name);
        add(registrar, parent, "example.file", fileName,
            folder.isEmpty() ? fileName : folder + QLatin1Char('/') + fileName);
    }
}

ViewItem *alphaProject(const TypeRegistrar &registrar, ViewItem *solution, const QDir &root)
{
    ViewItem *project = add(registrar, solution, "example.project", QStringLiteral("alpha"),
                            root.filePath(QStringLiteral("alpha/alpha.qprj")));
    ViewItem *src = add(registrar, project, "example.folder", QStringLiteral("src"));
    ViewItem *model = add(registrar, src, "example.folder", QStringLiteral("model"));
    addFiles(registrar, model, QStringLiteral("src/model"), {"state.h", "state.cpp"});
    addFiles(registrar, src, QStringLiteral("src"), {"main.cpp"});
    ViewItem *docs = add(registrar, project, "example.folder", QStringLiteral("docs"));
    addFiles(registrar, docs, QStringLiteral("docs"), {"overview.md"});
    addFiles(registrar, project, QString(), {"alpha.ini"});
    return project;
}

ViewItem *betaProject(const TypeRegistrar &registrar, ViewItem *solution, const QDir &root)
{
    ViewItem *project = add(registrar, solution, "example.project", QStringLiteral("beta"),
                            root.filePath(QStringLiteral("beta/beta.qprj")));
    ViewItem *scripts = add(registrar, project, "example.folder", QStringLiteral("scripts"));
    ViewItem *setup = add(registrar, scripts, "example.folder", QStringLiteral("setup"));
    addFiles(registrar, setup, QStringLiteral("scripts/setup"), {"init.m"});
    addFiles(registrar, scripts, QStringLiteral("scripts"), {"run.m"});
    addFiles(registrar, project, QString(), {"readme.txt"});
    return project;
}

} // namespace

int main(int argc, char **argv)
{
    // Item types build icons and actions, which want a GUI application but no screen.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: example_generator <folder>\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QDir root(QDir::cleanPath(QDir::current().absoluteFilePath(folder)));
    for (const char *project : {"alpha", "beta"}) {
        const QString name = QString::fromLatin1(project);
        if (!root.mkpath(name)) {
            std::fprintf(stderr, "cannot create %s\n", qPrintable(root.filePath(name)));
            return 1;
        }
    }

    TypeRegistrar registrar;
    auto *solutionType = new ItemTypeSolution;
    registrar.registerType(solutionType);
    Velmora::Examples::registerExampleTypes(&registrar);

    int result = 0;
    {
        std::unique_ptr<ViewItem> solution(
            registrar.createItem(solutionType->getId(), QStringLiteral("Example")));
        alphaProject(registrar, solution.get(), root);
        betaProject(registrar, solution.get(), root);

        // Saving the solution saves each project into its own file first.
        const QString file = root.filePath(QStringLiteral("example.sln-qel"));
        if (!solutionType->save(solution.get(), file)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
            result = 1;
        }
    }
    registrar.deallocateAll();
    return result;
}
