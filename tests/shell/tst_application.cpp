// The whole application, started and stopped once: its own executable, since the application
// object is the process's one QApplication.

#include "offscreenwindows.h"
#include "testsupport.h"
#include "testtypes.h"

#include "model/viewitem.h"
#include "shell/application.h"
#include "shell/environment.h"
#include "shell/logoinfo.h"

#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtCore/qtimer.h>
#include <QtGui/qimage.h>
#include <QtWidgets/qmainwindow.h>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using Velmora::Tests::writeFile;

class tst_Application : public QObject
{
    Q_OBJECT

private slots:
    void runsAndStops();
};

void tst_Application::runsAndStops()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    QTemporaryDir dir;
    // The platform warns without a private runtime folder; a temporary one is private.
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(dir.path()));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, dir.filePath(u"settings"_s));
    QImage logo(64, 32, QImage::Format_RGB32);
    logo.fill(Qt::darkBlue);
    QVERIFY(logo.save(dir.filePath(u"logo.png"_s)));
    QVERIFY(writeFile(dir.filePath(u"about.xml"_s),
                      R"(<aboutlayout image="logo.png"><text rect="0,0,60,20" splash="true">)"
                      R"(Velmora $$version_str</text></aboutlayout>)"));
    const QString solution = dir.filePath(u"work.sln-qel"_s);
    QVERIFY(writeFile(solution, R"(<?xml version="1.0" encoding="UTF-8"?><solution name="S"/>)"));

    QByteArray program("tst_application");
    QByteArray argument = solution.toLocal8Bit();
    char *argv[] = {program.data(), argument.data(), nullptr};
    int argc = 2;
    Velmora::Tests::OffscreenWindowNotices notices;
    Application app(argc, argv, QString(), QString(), QString());
    app.setLogoConfigPath(dir.filePath(u"about.xml"_s));
    app.setVersionString(u"1.2"_s);
    Environment *environment = app.environment();
    QVERIFY(environment->logoInfo()->isValid());
    QCOMPARE(Environment::currentEnvironment(), nullptr);

    // The command line is handled once the window is up; quit when it has been.
    bool shownFirst = false;
    int ticks = 0;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &app, [&] {
        ViewItem *item = environment->solutionItem();
        if (item && item->getItemName() == u"S"_s) {
            shownFirst = environment->mainWindow()->isVisible();
            app.quit();
        } else if (++ticks > 200) {
            app.quit();
        }
    });
    poll.start(25);
    QCOMPARE(app.run(), 0);

    QVERIFY(shownFirst);
    QCOMPARE(QCoreApplication::organizationDomain(), Application::defaultOrganization());
    QCOMPARE(QCoreApplication::organizationName(), Application::defaultOrganization());
    QCOMPARE(QCoreApplication::applicationName(), u"Tessaly"_s);
    // Quitting stopped the environment, which remembered the solution.
    QCOMPARE(Environment::currentEnvironment(), nullptr);
    QCOMPARE(QSettings().value(u"IDE/LastSolutionPath"_s).toString(), solution);
}

QTEST_APPLESS_MAIN(tst_Application)
#include "tst_application.moc"
