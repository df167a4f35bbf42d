#pragma once

// What every fuzz target shares: a Qt application (item types own menus and actions) and a
// registrar with small types. The project type only ever opens files of its own sandbox, so
// paths in an input cannot make the solution reader wander through the file system; the
// sandbox is the current folder, against which a solution read from memory resolves them.

#include "core/prompts.h"
#include "core/typeregistrar.h"
#include "model/viewitem.h"
#include "types/itemtypefolder.h"
#include "types/itemtypeproject.h"
#include "types/itemtypesolution.h"

#include <QtCore/qbuffer.h>
#include <QtCore/qdir.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qtemporarydir.h>
#include <QtWidgets/qapplication.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace Velmora::Fuzz {

class FuzzFolder : public Framework::ItemTypeFolder
{
public:
    QString getId() const override { return QStringLiteral("fuzz.folder"); }
};

class FuzzProject : public Framework::ItemTypeProject
{
public:
    explicit FuzzProject(const QString &sandbox)
        : m_sandbox(sandbox)
    {
    }
    QString getId() const override { return QStringLiteral("fuzz.project"); }
    QString defaultExtension() const override { return QStringLiteral(".qprj"); }
    QString filter() const override { return QStringLiteral("Project files(*.qprj)"); }
    bool canHandle(const QString &path) const override
    {
        return path.endsWith(QLatin1String(".qprj"))
            && QFileInfo(path).absolutePath() == m_sandbox;
    }

private:
    QString m_sandbox;
};

struct Harness
{
    Harness()
    {
        registrar.registerType(folder);
        registrar.registerType(project);
        registrar.registerType(solution);
        folder->addChildType(folder->getId(), false);
        project->addChildType(folder->getId(), false);
        QFile file(sandbox.filePath(QStringLiteral("p.qprj")));
        if (file.open(QIODevice::WriteOnly))
            file.write("<project name=\"p\"><item typeid=\"fuzz.folder\" name=\"f\"/></project>");
        QDir::setCurrent(sandbox.path());
    }
    ~Harness() { registrar.deallocateAll(); }

    QTemporaryDir sandbox;
    Framework::TypeRegistrar registrar;
    FuzzFolder *folder = new FuzzFolder;
    FuzzProject *project = new FuzzProject(sandbox.path());
    Framework::ItemTypeSolution *solution = new Framework::ItemTypeSolution;
};

// Made once per process, before the first input.
inline Harness &harness()
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The targets' warnings are expected noise for hostile input.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static QApplication application(argc, argv);
    // A project listed without a path is opened by asking for its file: nobody is there to
    // answer, so every dialog is cancelled.
    Framework::Prompts::setResponder([](const Framework::PromptRequest &) {
        return Framework::PromptAnswer();
    });
    static Harness instance;
    return instance;
}

// Reads the input from memory into a new item of the type, as the type's file reader does.
inline void readFromMemory(Framework::ItemTypeSerializable *type, const QString &name,
                           const uint8_t *data, size_t size)
{
    QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const std::unique_ptr<Framework::ViewItem> item(
        harness().registrar.createItem(type->getId(), name));
    type->deserialize(item.get(), &buffer);
}

} // namespace Velmora::Fuzz

// Builds the application and the types before the first input, so that the fuzzer's leak
// check does not take them for leaks of that input. Each reader target includes this header
// from its one source file.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    Velmora::Fuzz::harness();
    return 0;
}
