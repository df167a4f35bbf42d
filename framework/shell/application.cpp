#include "shell/application.h"

#include <QtCore/qmimedata.h>

namespace Velmora::Framework {

QMimeData *Application::createClipboardMimeData()
{
    return new QMimeData;
}

void Application::deleteClipboardMimeData(QMimeData *mime)
{
    delete mime;
}

} // namespace Velmora::Framework
