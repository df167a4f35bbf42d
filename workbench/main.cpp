// Tessaly, the Velmora workbench: the framework's application with our names and branding.

#include "shell/application.h"

#include <QtCore/qdir.h>

int main(int argc, char **argv)
{
    Velmora::Framework::Application app(argc, argv, QStringLiteral("velmora.invalid"),
                                        QStringLiteral("Velmora"), QStringLiteral("Tessaly"));
    app.setVersion(QStringLiteral(VELMORA_VERSION));
    app.setVersionString(QStringLiteral(VELMORA_VERSION));
    app.setBuildString(QStringLiteral(VELMORA_BUILD));
    app.setIDEWindowTitle(QStringLiteral("Tessaly"));
    // The about layout names its pictures; they lie beside it.
    const QDir branding(QCoreApplication::applicationDirPath() + QStringLiteral("/branding"));
    app.setLogoConfigPath(branding.filePath(QStringLiteral("aboutlayout.xml")));
    return app.run();
}
