// Loads a provider library as the workbench does and prints its name.
#include <shell/provider.h>

#include <QtCore/qpluginloader.h>
#include <QtWidgets/qapplication.h>

#include <cstdio>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (argc != 2) {
        std::puts("usage: loadprovider <library>");
        return 2;
    }
    QPluginLoader loader(QString::fromLocal8Bit(argv[1]));
    auto *provider = qobject_cast<Velmora::Framework::Provider *>(loader.instance());
    if (!provider) {
        std::printf("loadprovider: not a provider: %s\n", qPrintable(loader.errorString()));
        return 1;
    }
    std::printf("loadprovider: %s\n", qPrintable(provider->name()));
    return provider->name() == QLatin1String("Text Provider") ? 0 : 1;
}
