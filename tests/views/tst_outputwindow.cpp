#include "testsupport.h"

#include "views/outputtab.h"
#include "views/outputtabbar.h"
#include "views/outputtabwidget.h"
#include "views/outputwindow.h"

#include <QtGui/qevent.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qmenu.h>

using namespace Velmora::Framework;

class tst_OutputWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void knownNameShowsItsFirstTabAgain();
    void closedTabKeepsItsPage();
    void outputAppendsPlainLines();
    void tabBarMenuOnlyOverEnabledTabs_data();
    void tabBarMenuOnlyOverEnabledTabs();
};

static QImage imageOf(const QIcon &icon)
{
    return icon.pixmap(QSize(16, 16)).toImage();
}

void tst_OutputWindow::knownNameShowsItsFirstTabAgain()
{
    OutputWindow window(nullptr);
    QCOMPARE(window.addTab(QStringLiteral("build"), QIcon(), QStringLiteral("Build"), nullptr), 0);
    QCOMPARE(imageOf(window.tabWidget()->tabIcon(0)),
             imageOf(QIcon(QStringLiteral(":/framework/images/output_tab.png"))));
    QVERIFY(!imageOf(window.tabWidget()->tabIcon(0)).isNull());
    QVERIFY(!window.isCustom(QStringLiteral("build")));

    auto *custom = new QWidget;
    QCOMPARE(window.addTab(QStringLiteral("log"), QStringLiteral("Log"), custom), 1);
    QVERIFY(window.isCustom(QStringLiteral("log")));
    QCOMPARE(window.activeTab(), QStringLiteral("log"));

    // The second call only shows the first tab again: title and page stay.
    auto *ignored = new QWidget;
    QCOMPARE(window.addTab(QStringLiteral("build"), QStringLiteral("Other"), ignored), 0);
    QCOMPARE(window.tabWidget()->tabText(0), QStringLiteral("Build"));
    QCOMPARE(window.activeTab(), QStringLiteral("build"));
    QVERIFY(qobject_cast<OutputTab *>(window.widgetOf(QStringLiteral("build"))));
    delete ignored;

    window.closeTab(0);
    QCOMPARE(window.addTab(QStringLiteral("build"), QStringLiteral("Build"), nullptr), 1);
    QCOMPARE(window.tabWidget()->count(), 2);
}

void tst_OutputWindow::closedTabKeepsItsPage()
{
    OutputWindow window(nullptr);
    OutputTabWidget *tabs = window.tabWidget();
    QVERIFY(!tabs->parent() && tabs->tabBar()->isHidden());
    const QList<QAction *> menu = tabs->findChild<QMenu *>()->actions();
    QCOMPARE(menu.size(), 1);
    QAction *close = menu.first();
    QCOMPARE(close->text(), QStringLiteral("&Close Tab"));

    for (const char *name : {"a", "b", "c"})
        window.addTab(QString::fromLatin1(name), QString::fromLatin1(name), nullptr);
    QWidget *page = window.widgetOf(QStringLiteral("a"));
    window.setTabToolTip(QStringLiteral("a"), QStringLiteral("shown"));
    QCOMPARE(tabs->tabToolTip(0), QStringLiteral("shown"));

    // The tab menu closes the current tab; closing is by name too.
    tabs->setCurrentIndex(0);
    close->trigger();
    QCOMPARE(window.findTab(QStringLiteral("a")), -1);
    QCOMPARE(window.widgetOf(QStringLiteral("a")), page);
    window.removeTab(QStringLiteral("b"));
    QCOMPARE(window.findTab(QStringLiteral("c")), 0);
    // Set while the tab is closed, shown when it opens again.
    QPixmap red(16, 16);
    red.fill(Qt::red);
    window.setTabIcon(QStringLiteral("a"), QIcon(red));
    window.setTabToolTip(QStringLiteral("a"), QStringLiteral("later"));
    window.closeTab(7); // out of range: nothing
    QCOMPARE(tabs->count(), 1);

    window.removeAllTabs();
    QCOMPARE(tabs->count(), 0);
    QVERIFY(tabs->tabBar()->isHidden());
    QCOMPARE(window.activeTab(), QString());

    QVERIFY(window.showTab(QStringLiteral("a")));
    QCOMPARE(window.findTab(QStringLiteral("a")), 0);
    QCOMPARE(window.activeTab(), QStringLiteral("a"));
    QCOMPARE(tabs->tabToolTip(0), QStringLiteral("later"));
    QCOMPARE(imageOf(tabs->tabIcon(0)), red.toImage());
    for (const QString &unknown : {QString(), QStringLiteral("nope")}) {
        QVERIFY(!window.showTab(unknown));
        QCOMPARE(window.findTab(unknown), -1);
        QVERIFY(!window.widgetOf(unknown));
        QVERIFY(!window.isCustom(unknown));
    }
}

void tst_OutputWindow::outputAppendsPlainLines()
{
    OutputWindow window(nullptr);
    window.addTab(QStringLiteral("log"), QStringLiteral("Log"), nullptr);
    auto *custom = new QTextEdit;
    window.addTab(QStringLiteral("custom"), QStringLiteral("Custom"), custom);
    auto *page = qobject_cast<OutputTab *>(window.widgetOf(QStringLiteral("log")));
    QVERIFY(page && page->isReadOnly());

    // The tab's own menu puts Clear before its last entry, enabled once there is text.
    std::unique_ptr<QMenu> empty(page->createContextMenu());
    const QList<QAction *> actions = empty->actions();
    QVERIFY(actions.size() >= 3);
    QAction *clear = actions.at(actions.size() - 3);
    QCOMPARE(clear->text(), QStringLiteral("Clear"));
    QVERIFY(actions.at(actions.size() - 2)->isSeparator());
    QVERIFY(!actions.last()->isSeparator());
    QVERIFY(!clear->isEnabled());

    window.output(QStringLiteral("log"), QStringLiteral("one"));
    window.output(QStringLiteral("log"), QString());
    window.output(QStringLiteral("log"), QStringLiteral("<b>two</b>"));
    window.output(QStringLiteral("nope"), QStringLiteral("lost"));
    window.output(QStringLiteral("custom"), QStringLiteral("lost"));
    QCOMPARE(page->toPlainText(), QStringLiteral("one\n<b>two</b>"));
    QCOMPARE(page->textCursor().position(), page->document()->characterCount() - 1);
    QVERIFY(custom->toPlainText().isEmpty());
    std::unique_ptr<QMenu> full(page->createContextMenu());
    QAction *enabled = full->actions().at(full->actions().size() - 3);
    QVERIFY(enabled->isEnabled());
    enabled->trigger();
    QVERIFY(page->document()->isEmpty());

    window.output(QStringLiteral("log"), QStringLiteral("three"));
    QCOMPARE(page->toPlainText(), QStringLiteral("three"));
    custom->setPlainText(QStringLiteral("kept"));
    window.clearTab(QStringLiteral("custom"));
    window.clearTab(QStringLiteral("log"));
    QVERIFY(page->document()->isEmpty());
    QCOMPARE(custom->toPlainText(), QStringLiteral("kept"));
}

void tst_OutputWindow::tabBarMenuOnlyOverEnabledTabs_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("disableIt");
    QTest::addColumn<int>("expected");
    QTest::newRow("over the second tab") << 1 << false << 1;
    QTest::newRow("over a disabled tab") << 1 << true << -1;
    QTest::newRow("beside the tabs") << -1 << false << -1;
}

void tst_OutputWindow::tabBarMenuOnlyOverEnabledTabs()
{
    QFETCH(int, tab);
    QFETCH(bool, disableIt);
    QFETCH(int, expected);

    OutputTabWidget tabs;
    tabs.resize(600, 200);
    tabs.addTab(new QWidget, QStringLiteral("First"));
    tabs.addTab(new QWidget, QStringLiteral("Second"));
    tabs.setCurrentIndex(0);
    tabs.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tabs));
    OutputTabBar *bar = tabs.outputTabBar();
    if (disableIt)
        bar->setTabEnabled(tab, false);
    QSignalSpy fromBar(bar, &OutputTabBar::contextMenuTriggered);
    QSignalSpy fromWidget(&tabs, &OutputTabWidget::contextMenuTriggered);

    const QPoint at = tab >= 0 ? bar->tabRect(tab).center()
                               : QPoint(bar->width() - 2, bar->height() / 2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, bar->mapToGlobal(at));
    QApplication::sendEvent(bar, &event);

    QCOMPARE(event.isAccepted(), expected >= 0);
    QCOMPARE(fromBar.size(), expected >= 0 ? 1 : 0);
    QCOMPARE(fromWidget.size(), fromBar.size());
    if (expected >= 0)
        QCOMPARE(fromWidget.first().first().toInt(), expected);
    QCOMPARE(tabs.currentIndex(), qMax(expected, 0));
}

VELMORA_TEST(tst_OutputWindow);
#include "tst_outputwindow.moc"
