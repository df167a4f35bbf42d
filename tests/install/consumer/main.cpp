// A plug-in author's view: only the installed package and its umbrella headers.
#include <velmoraframework/velmoraframework.h>
#include <ribdock/ribdock.h>

#include <QtCore/qcoreapplication.h>
#include <QtCore/qfile.h>

#include <cstdio>
#include <cstring>

using namespace Velmora::Framework;
namespace Ribdock = Velmora::Ribdock;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);

    DefaultGenericAugmentable augmentable;
    AugmentableRegistrar registrar;
    if (!registrar.registerInterface(QString::fromLatin1(Iid::IAugmentableGeneric), &augmentable, 0)) {
        std::puts("consumer: registration through the installed library failed");
        return 1;
    }
    auto *generic = interfaceCast<IAugmentableGeneric>(&augmentable);
    if (generic != static_cast<IAugmentableGeneric *>(&augmentable) || !generic->canAddNew({}, {})) {
        std::puts("consumer: the query did not answer the generic hooks");
        return 1;
    }
    if (!QFile::exists(QStringLiteral(":/qelshared/images/16/noicon.svg"))) {
        std::puts("consumer: the qelshared resources are missing");
        return 1;
    }
    // The ribbon library's own resources share the root, and its key is not the window's.
    if (!QFile::exists(QStringLiteral(":/qelshared/images/16/backword.svg"))
        || Ribdock::DockContainer::settingsKey() == QLatin1String("IDE/geometry")) {
        std::puts("consumer: the ribdock library is missing or wrong");
        return 1;
    }
    std::puts("consumer: ok");
    return 0;
}
