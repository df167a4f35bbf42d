// tessaly-check: checks solution and project files without a display, for scripts and CI.
// Prints each problem as "file:line:column: message" and exits with 0 only when every file is
// sound, 1 when some are not, 2 when it was given no file.

#include "types/filecheck.h"

#include <QtCore/qcoreapplication.h>
#include <QtCore/qtextstream.h>

using Velmora::Framework::FileCheck;
using Velmora::Framework::FileProblem;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QStringList files = QCoreApplication::arguments().mid(1);
    QTextStream out(stdout);
    QTextStream err(stderr);
    if (files.isEmpty() || files.contains(QLatin1String("--help"))) {
        err << "usage: tessaly-check FILE.sln-qel|FILE.qprj...\n"
               "Checks solution and project files (and the projects a solution lists); prints\n"
               "each problem as file:line:column: message.\n";
        return files.isEmpty() ? 2 : 0;
    }
    int unsound = 0;
    for (const QString &file : std::as_const(files)) {
        const QList<FileProblem> problems = FileCheck::check(file);
        for (const FileProblem &problem : problems)
            out << problem.file << ':' << problem.line << ':' << problem.column << ": "
                << problem.message << '\n';
        if (!problems.isEmpty())
            ++unsound;
    }
    out.flush();
    if (unsound)
        err << unsound << " of " << files.size() << " files have problems\n";
    return unsound ? 1 : 0;
}
