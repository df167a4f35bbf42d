// Tessaly, the Velmora workbench.

#include "shell/application.h"

int main(int argc, char **argv)
{
    Velmora::Framework::Application app(argc, argv, QString(), QString(),
                                        QStringLiteral("Tessaly"));
    app.setVersionString(QStringLiteral(VELMORA_VERSION));
    app.setIDEWindowTitle(QStringLiteral("Tessaly"));
    return app.run();
}
