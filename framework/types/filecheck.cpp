#include "types/filecheck.h"

#include "types/xmltree_p.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qset.h>

namespace Velmora::Framework {

namespace {

namespace Xml = Internal::XmlName;

class Checker
{
public:
    QList<FileProblem> problems;

    void checkFile(const QString &path);

private:
    void report(const QString &file, const Internal::XmlReader *reader, const QString &message)
    {
        problems.append({file, reader ? reader->lineNumber() : 0,
                         reader ? reader->columnNumber() : 0, message});
    }
    // The current element's attribute, reported when missing or empty.
    QString required(const QString &file, Internal::XmlReader &reader, QLatin1String name);
    void checkItems(const QString &file, Internal::XmlReader &reader);

    // Project files already checked, so one listed twice is reported once.
    QSet<QString> m_seen;
};

QString Checker::required(const QString &file, Internal::XmlReader &reader, QLatin1String name)
{
    const QString value = reader.attribute(name);
    if (value.isEmpty())
        report(file, &reader, QStringLiteral("<%1> lacks the attribute \"%2\"")
                                  .arg(reader.tag(), name));
    return value;
}

void Checker::checkItems(const QString &file, Internal::XmlReader &reader)
{
    while (reader.readNextChild()) {
        if (reader.tag() != Xml::item) {
            report(file, &reader, QStringLiteral("unexpected element <%1>").arg(reader.tag()));
            reader.skipElement();
            continue;
        }
        required(file, reader, Xml::typeId);
        required(file, reader, Xml::name);
        checkItems(file, reader);
    }
}

void Checker::checkFile(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    if (!canonical.isEmpty() && m_seen.contains(canonical))
        return;
    m_seen.insert(canonical);

    const QString suffix = QFileInfo(path).suffix();
    const bool isSolution = suffix == QLatin1String("sln-qel");
    if (!isSolution && suffix != QLatin1String("qprj")) {
        report(path, nullptr, QStringLiteral("neither a solution (.sln-qel) nor a project (.qprj)"));
        return;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        report(path, nullptr, QStringLiteral("cannot be read: %1").arg(file.errorString()));
        return;
    }
    Internal::XmlReader reader(&file, "FileCheck::check()");
    const QLatin1String root = isSolution ? Xml::solution : Xml::project;
    QStringList projects;
    if (!reader.readRoot(root)) {
        if (reader.errorString().isEmpty())
            report(path, &reader, reader.tag().isEmpty()
                       ? QStringLiteral("no <%1> element").arg(root)
                       : QStringLiteral("the root element is <%1>, not <%2>").arg(reader.tag(), root));
    } else if (isSolution) {
        const QDir base = QFileInfo(path).absoluteDir();
        while (reader.readNextChild()) {
            if (reader.tag() != Xml::project) {
                report(path, &reader, QStringLiteral("unexpected element <%1>").arg(reader.tag()));
            } else {
                required(path, reader, Xml::typeId);
                required(path, reader, Xml::name);
                const QString project = required(path, reader, Xml::path);
                if (!project.isEmpty()) {
                    const QString full = QDir::cleanPath(base.absoluteFilePath(project));
                    if (QFileInfo(full).isFile())
                        projects.append(full);
                    else
                        report(path, &reader,
                               QStringLiteral("the project file %1 does not exist").arg(project));
                }
            }
            reader.skipElement();
        }
    } else {
        checkItems(path, reader);
    }
    if (!reader.finish())
        report(path, &reader, reader.errorString());
    for (const QString &project : std::as_const(projects))
        checkFile(project);
}

} // namespace

QList<FileProblem> FileCheck::check(const QString &path)
{
    Checker checker;
    checker.checkFile(path);
    return checker.problems;
}

} // namespace Velmora::Framework
