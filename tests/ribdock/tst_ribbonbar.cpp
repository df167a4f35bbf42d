#include <ribdock/ribbonbar.h>
#include <ribdock/ribbongroup.h>
#include <ribdock/ribbonpage.h>

#include "testsupport.h"

#include <QtGui/qaction.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qmenu.h>
#include <QtWidgets/qtabbar.h>

using namespace Velmora::Ribdock;

class tst_RibbonBar : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }
    void contextualPagesHideAndShowByIndex();
    void buttonsFollowTheirAction();
    void doubleClickFoldsTheRibbon();
};

void tst_RibbonBar::contextualPagesHideAndShowByIndex()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    RibbonBar bar;
    for (const char *title : {"Main", "Plot", "App"})
        bar.addPage(QString::fromLatin1(title));
    for (const char *title : {"Tidekit Script", "Tidekit Variant", "Flowdeck Diagram"})
        bar.addContextualPage(QString::fromLatin1(title));
    QCOMPARE(bar.pageCount(), 6);
    QVERIFY(!bar.page(2)->isContextual());
    QVERIFY(bar.page(3)->isContextual());

    // Hiding the current page hands the tab over to a visible one.
    bar.setCurrentIndex(3);
    QSignalSpy current(&bar, &RibbonBar::currentPageChanged);
    for (int index : {3, 4, 5})
        bar.setPageVisible(index, false);
    QVERIFY(!bar.isPageVisible(3) && !bar.isPageVisible(4) && !bar.isPageVisible(5));
    QCOMPARE(bar.currentIndex(), 2);
    QCOMPARE(current.size(), 1);

    // Shown again, a page keeps its index and groups; hidden ones stay hidden.
    bar.page(4)->addGroup(QStringLiteral("Run"));
    bar.setPageVisible(4, true);
    QVERIFY(bar.isPageVisible(4) && !bar.isPageVisible(3));
    QCOMPARE(bar.page(4)->groups().size(), 1);
    bar.setCurrentIndex(4);
    QCOMPARE(bar.currentIndex(), 4);

    QTest::ignoreMessage(QtWarningMsg, "RibbonBar::setPageVisible(): no page 6");
    bar.setPageVisible(6, true);
    QTest::ignoreMessage(QtWarningMsg, "RibbonBar::setCurrentIndex(): no visible page 3");
    bar.setCurrentIndex(3);
    QCOMPARE(bar.currentIndex(), 4);
    QVERIFY(!bar.page(6) && !bar.isPageVisible(-1));
}

void tst_RibbonBar::buttonsFollowTheirAction()
{
    RibbonBar bar;
    RibbonGroup *group = bar.addPage(QStringLiteral("Main"))->addGroup(QStringLiteral("File"));
    QAction open(QStringLiteral("Open"));
    QMenu menu;
    open.setMenu(&menu);
    QAction find(QStringLiteral("Find File"));
    const QList<QToolButton *> buttons = {group->addLargeAction(&open, QToolButton::MenuButtonPopup),
                                          group->addSmallAction(&find)};
    // The caller's popup mode wins over the split button Qt picks for a menu.
    QCOMPARE(buttons.at(0)->popupMode(), QToolButton::MenuButtonPopup);
    QCOMPARE(QMenu::menuInAction(buttons.at(0)->defaultAction()), &menu);

    for (QToolButton *button : buttons) {
        QAction *action = button->defaultAction();
        action->setEnabled(false);
        QVERIFY(!button->isEnabled());
        action->setEnabled(true);
        QVERIFY(button->isEnabled());
        action->setText(QStringLiteral("New\nScript"));
        QCOMPARE(button->text(), QStringLiteral("New\nScript"));
        // The shortcut lives on the bar too, so it works while the page is hidden.
        QVERIFY(bar.actions().contains(action));
    }
}

void tst_RibbonBar::doubleClickFoldsTheRibbon()
{
    // No layout: one taking the bar's fixed height as its limits makes the platform warn.
    QWidget window;
    window.resize(600, 200);
    RibbonBar bar(&window);
    bar.addPage(QStringLiteral("Main"));
    bar.addPage(QStringLiteral("Plot"));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const int unfolded = bar.sizeHint().height();
    auto *tabs = bar.findChild<QTabBar *>();
    QSignalSpy folded(&bar, &RibbonBar::minimizedChanged);

    QTest::mouseDClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    QVERIFY(bar.isMinimized());
    QVERIFY(bar.sizeHint().height() < unfolded);
    QTest::mouseDClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
    QVERIFY(!bar.isMinimized());
    QCOMPARE(bar.sizeHint().height(), unfolded);
    QCOMPARE(folded.size(), 2);
}

VELMORA_TEST(tst_RibbonBar);
#include "tst_ribbonbar.moc"
