#include "shell/unloadlistener.h"

namespace Velmora::Framework {

UnloadListener::UnloadListener(QObject *parent)
    : QObject(parent)
{
}

void UnloadListener::onUnload(Provider *)
{
}

} // namespace Velmora::Framework
