#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtCore/qstring.h>

namespace Velmora::Framework {

// One problem found in a solution or project file. Line and column count from 1; both are 0
// when the problem concerns the file as a whole (it cannot be read, say).
struct FileProblem
{
    QString file;
    qint64 line = 0;
    qint64 column = 0;
    QString message;
};

// Checks solution (".sln-qel") and project (".qprj") files with the same reader and limits
// that open them in the workbench, without item types, a model or a window, so that files can
// be checked in a build or a CI job. Type ids are not looked up: which are known depends on
// the providers that a workbench loads.
class VELMORA_FRAMEWORK_EXPORT FileCheck
{
public:
    // The problems of the file at path; a solution's listed project files are checked too.
    // Empty when the file is sound.
    static QList<FileProblem> check(const QString &path);
};

} // namespace Velmora::Framework
