#include "testsupport.h"
#include "offscreenwindows.h"

#include "dialogs/quickstartwindow.h"

#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtWidgets/qcheckbox.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

class tst_QuickStartWindow : public QObject
{
    Q_OBJECT

    // Installed inside QtTest's own handler, so pinned and failing warnings still work.
    std::unique_ptr<Velmora::Tests::OffscreenWindowNotices> m_notices;

private slots:
    void initTestCase() { m_notices = std::make_unique<Velmora::Tests::OffscreenWindowNotices>(); }
    void cleanupTestCase() { m_notices.reset(); }
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }
    void pagesAndStartUpSetting();
};

void tst_QuickStartWindow::pagesAndStartUpSetting()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QTemporaryDir dir;
    QSettings settings(dir.filePath(u"quick.ini"_s), QSettings::IniFormat);
    const QString key = QuickStartWindow::onStartSettingPath();
    QuickStartWindow window;
    window.setSettings(&settings);

    auto *first = new QWidget;
    auto *second = new QWidget;
    QCOMPARE(window.addPage(first, u"Start"_s), 0);
    QCOMPARE(window.addPage(second, u"News"_s), 1);
    QTest::ignoreMessage(QtWarningMsg, "QuickStartWindow::addPage(): null page");
    QCOMPARE(window.addPage(nullptr, u"Nothing"_s), -1);
    QTest::ignoreMessage(QtWarningMsg, "QuickStartWindow::addPage(): page Again already added");
    QCOMPARE(window.addPage(first, u"Again"_s), -1);

    QCOMPARE(window.indexOf(nullptr), -1);
    QCOMPARE(window.removePage(5), nullptr);
    // Removal hands the page back: the caller decides whether it dies.
    std::unique_ptr<QWidget> removed(window.removePage(0));
    QCOMPARE(removed.get(), first);
    QCOMPARE(first->parent(), nullptr);
    QCOMPARE(window.count(), 1);
    QCOMPARE(window.indexOf(second), 0);

    auto *box = window.findChild<QCheckBox *>(u"ShowAtStartUp"_s);
    QVERIFY(box->isChecked()); // shown by default
    box->click();
    QCOMPARE(settings.value(key).toBool(), false);

    // A value changed elsewhere (the options dialog) shows when the window shows again.
    settings.setValue(key, true);
    window.show();
    QVERIFY(box->isChecked());
    window.hide();

    settings.setValue(key, u"often"_s);
    QTest::ignoreMessage(QtWarningMsg,
                         "QuickStartWindow::loadSetting(): unreadable value \"often\" for "
                         "IDE/ShowQuickStartOnStart, using true");
    window.show();
    QVERIFY(box->isChecked());
}

VELMORA_TEST(tst_QuickStartWindow);
#include "tst_quickstart.moc"
