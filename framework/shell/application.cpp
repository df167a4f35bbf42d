#include "shell/application.h"

#include "core/applicationhooks.h"

namespace Velmora::Framework {

QMimeData *Application::createClipboardMimeData()
{
    return ApplicationHooks::createClipboardMimeData();
}

void Application::deleteClipboardMimeData(QMimeData *mime)
{
    ApplicationHooks::deleteClipboardMimeData(mime);
}

} // namespace Velmora::Framework
