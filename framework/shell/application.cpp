#include "shell/application.h"

#include "core/applicationhooks.h"
#include "dialogs/optionpagegeneral.h"
#include "shell/environment.h"
#include "shell/logoinfo.h"

#include <QtCore/qsettings.h>
#include <QtCore/qtimer.h>
#include <QtCore/qtranslator.h>
#include <QtWidgets/qmainwindow.h>
#include <QtWidgets/qsplashscreen.h>

namespace Velmora::Framework {

namespace {

QString orDefault(const QString &name, const QString &fallback)
{
    return name.isEmpty() ? fallback : name;
}

QString defaultApplicationName()
{
    return QStringLiteral("Tessaly");
}

} // namespace

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
    // Both translators are installed; they hold the Chinese texts only when the user chose
    // Chinese (or chose nothing on a Chinese system). A missing file leaves the source
    // language, silently. The settings are those run() will use once it fills in the names.
    const QSettings settings(orDefault(organizationName, defaultOrganization()),
                             orDefault(applicationName, defaultApplicationName()));
    if (OptionPageGeneral::chosenLanguage(settings) == QLatin1String("zh_CN")) {
        const QString folder = applicationDirPath() + QStringLiteral("/translations/");
        (void)d->qtTranslator.load(QStringLiteral("qt_zh_CN.qm"), folder);
        (void)d->frameworkTranslator.load(QStringLiteral("qelshared_zh.qm"), folder);
    }
    installTranslator(&d->qtTranslator);
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
    setOrganizationDomain(orDefault(organizationDomain(), defaultOrganization()));
    setOrganizationName(orDefault(organizationName(), defaultOrganization()));
    // Qt answers the executable's name for a name nobody gave, so it is never empty here.
    if (applicationName() == d->fallbackName)
        setApplicationName(defaultApplicationName());
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
