#include "shell/application.h"

#include "core/applicationhooks.h"
#include "shell/environment.h"
#include "shell/logoinfo.h"

#include <QtCore/qtimer.h>
#include <QtCore/qtranslator.h>
#include <QtWidgets/qmainwindow.h>
#include <QtWidgets/qsplashscreen.h>

namespace Velmora::Framework {

class ApplicationPrivate
{
public:
    std::unique_ptr<Environment> environment;
    QString version;
    QTranslator qtTranslator;
    QTranslator frameworkTranslator;
    // Kept for the executable's own translations.
    QTranslator applicationTranslator;
    QTranslator extraTranslator;
    // What Qt answers for a name nobody gave (the executable's name), so run() can tell.
    QString fallbackName;
};

Application::Application(int &argc, char **argv, QString organizationDomain,
                         QString organizationName, QString applicationName)
    : QApplication(argc, argv), d(std::make_unique<ApplicationPrivate>())
{
    setOrganizationDomain(organizationDomain);
    setOrganizationName(organizationName);
    setApplicationName(applicationName);
    if (applicationName.isEmpty())
        d->fallbackName = QCoreApplication::applicationName();
    // A missing translation leaves the source language, silently.
    const QString folder = applicationDirPath() + QStringLiteral("/translations/");
    (void)d->qtTranslator.load(QStringLiteral("qt_zh_CN.qm"), folder);
    installTranslator(&d->qtTranslator);
    (void)d->frameworkTranslator.load(QStringLiteral("qelshared_zh.qm"), folder);
    installTranslator(&d->frameworkTranslator);
    d->environment = std::make_unique<Environment>();
}

Application::~Application()
{
    d->environment.reset();
}

QString Application::defaultOrganization()
{
    return QStringLiteral("velmora.org");
}

int Application::run()
{
    if (organizationDomain().isEmpty())
        setOrganizationDomain(defaultOrganization());
    if (organizationName().isEmpty())
        setOrganizationName(defaultOrganization());
    if (applicationName().isEmpty() || applicationName() == d->fallbackName)
        setApplicationName(QStringLiteral("Tessaly"));
    addLibraryPath(applicationDirPath());

    Environment *environment = d->environment.get();
    QMainWindow *window = environment->mainWindow();
    if (!window)
        return -1;
    LogoInfo *logo = environment->logoInfo();
    if (logo && logo->isValid()) {
        auto splash = std::make_unique<QSplashScreen>(logo->getSplashImage());
        splash->show();
        QFont font = splash->font();
        font.setPointSize(12);
        splash->setFont(font);
        connect(environment, &Environment::progressChanged, splash.get(),
                [&splash](const QString &text) { splash->showMessage(text); });
        environment->start(this);
        window->show();
        splash->finish(window);
    } else {
        environment->start(this);
        window->show();
    }
    environment->afterShow(this);
    QTimer::singleShot(0, environment, &Environment::processArguments);
    return exec();
}

void Application::setLogoImagePath(const QString &path, bool overwrite)
{
    if (LogoInfo *logo = d->environment->logoInfo())
        logo->setLogoImagePath(path, overwrite);
}

void Application::setLogoConfigPath(const QString &path)
{
    if (LogoInfo *logo = d->environment->logoInfo())
        logo->setLogoConfigPath(path);
}

void Application::setAboutBox(QDialog *dialog)
{
    if (LogoInfo *logo = d->environment->logoInfo())
        logo->setAboutBox(dialog);
}

void Application::setIDEWindowTitle(const QString &title)
{
    d->environment->setIDEWindowTitle(title);
}

void Application::setVersionString(const QString &version)
{
    if (LogoInfo *logo = d->environment->logoInfo())
        logo->setVersion(version);
}

void Application::setBuildString(const QString &build)
{
    if (LogoInfo *logo = d->environment->logoInfo())
        logo->setBuild(build);
}

void Application::setVersion(const QString &version)
{
    d->version = version;
}

QString Application::version() const
{
    return d->version;
}

Environment *Application::environment() const
{
    return d->environment.get();
}

QMimeData *Application::createClipboardMimeData()
{
    return ApplicationHooks::createClipboardMimeData();
}

void Application::deleteClipboardMimeData(QMimeData *mime)
{
    ApplicationHooks::deleteClipboardMimeData(mime);
}

} // namespace Velmora::Framework
