#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qapplication.h>

QT_BEGIN_NAMESPACE
class QMimeData;
QT_END_NAMESPACE

namespace Velmora::Framework {

// The workbench's application object. So far it offers the pair through which every part of
// the framework makes and frees the mime data it hands to the clipboard; construction and
// start-up arrive with the application shell.
class VELMORA_FRAMEWORK_EXPORT Application : public QApplication
{
    Q_OBJECT

public:
    // A new, empty mime data, owned by the caller.
    static QMimeData *createClipboardMimeData();
    // Frees what createClipboardMimeData made; null is ignored.
    static void deleteClipboardMimeData(QMimeData *mime);
};

} // namespace Velmora::Framework
