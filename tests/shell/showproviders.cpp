// Loads the fixture providers from a scratch "plugins" folder and shows the provider dialog,
// so that it can be looked at (scripts/screenshot-providers.sh).
#include "shell/facilities.h"
#include "shell/providermanager.h"
#include "shell/qelprovidermanagerdialog.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qtemporarydir.h>
#include <QtWidgets/qapplication.h>

using namespace Velmora::Framework;

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QTemporaryDir scratch;
    const QDir fixtures(QStringLiteral(VELMORA_FIXTURE_DIR));
    const QString plugins = scratch.filePath(QStringLiteral("plugins"));
    if (!scratch.isValid() || !QDir().mkpath(plugins))
        return 1;
    for (const QString &file : fixtures.entryList(QDir::Files))
        QFile::copy(fixtures.filePath(file), plugins + QLatin1Char('/') + file);

    Facilities facilities(nullptr);
    ProviderManager manager(&facilities);
    manager.loadAll(plugins);
    QelProviderManagerDialog dialog(&manager);
    dialog.show();
    const int status = app.exec();
    manager.shutdownAll();
    return status;
}
