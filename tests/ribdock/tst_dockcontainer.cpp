#include <ribdock/dockcontainer.h>
#include <ribdock/dockcontentwidget.h>
#include <ribdock/dockpanelwidget.h>
#include <ribdock/ribbonbar.h>
#include <ribdock/ribdockagent.h>

#include "testsupport.h"

#include <QtCore/qdatastream.h>
#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qmainwindow.h>
#include <QtWidgets/qtabbar.h>
#include <QtWidgets/qtabwidget.h>

#include <memory>

using namespace Velmora::Ribdock;

class tst_DockContainer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Keep the user's settings out of reach.
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
    }
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_window = std::make_unique<QMainWindow>();
        // Never shown: the offscreen platform warns about the docks' size hints.
        m_docks = new DockContainer(m_window.get());
    }
    void cleanup()
    {
        m_window.reset();
        QSettings().clear();
    }
    void viewsAnswerTheirIndex_data();
    void viewsAnswerTheirIndex();
    void layoutRoundTripsThroughSettings();
    void corruptLayoutIsIgnored_data();
    void corruptLayoutIsIgnored();
    void pagesRestoreTheirWorkspace();

private:
    bool leftShown() const { return !m_docks->panel(DockContainer::Left)->isHidden(); }

    QTemporaryDir m_settings;
    std::unique_ptr<QMainWindow> m_window;
    DockContainer *m_docks = nullptr;
};

void tst_DockContainer::viewsAnswerTheirIndex_data()
{
    QTest::addColumn<int>("partition");
    QTest::addColumn<QString>("warning");
    QTest::newRow("left") << 0 << QString();
    QTest::newRow("right") << 1 << QString();
    QTest::newRow("bottom") << 2 << QString();
    QTest::newRow("past the last") << 3 << QStringLiteral("no partition 3");
    QTest::newRow("negative") << -1 << QStringLiteral("no partition -1");
}

void tst_DockContainer::viewsAnswerTheirIndex()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QFETCH(int, partition);
    QFETCH(QString, warning);
    auto *first = new QLabel;
    auto *second = new QLabel;
    if (!warning.isEmpty()) {
        for (const char *operation : {"addView", "tabifyView"})
            QTest::ignoreMessage(QtWarningMsg, qPrintable(QStringLiteral("DockContainer::%1(): %2")
                                                              .arg(QLatin1String(operation), warning)));
        QCOMPARE(m_docks->addView(partition, first, QStringLiteral("Projects")), -1);
        QCOMPARE(m_docks->tabifyView(partition, second, QStringLiteral("Outline")), -1);
        QVERIFY(!first->parent() && !second->parent());
        delete first;
        delete second;
        return;
    }
    auto *third = new QLabel;
    QCOMPARE(m_docks->addView(partition, first, QStringLiteral("Projects")), 0);
    QCOMPARE(m_docks->tabifyView(partition, second, QStringLiteral("Outline")), 1);
    QCOMPARE(m_docks->addView(partition, third, QStringLiteral("Property")), 2);
    // A view already there keeps its index.
    QCOMPARE(m_docks->tabifyView(partition, first, QStringLiteral("Projects")), 0);
    DockContentWidget *content = m_docks->panel(partition)->content();
    QCOMPARE(content->sectionOf(second), 0);
    QCOMPARE(content->sectionOf(third), 1);
    // A section past the end is the last one: no empty sections in between.
    auto *fourth = new QWidget;
    QCOMPARE(content->tabifyView(fourth, QStringLiteral("Editor"), QIcon(), 5), 3);
    QCOMPARE(content->sectionOf(fourth), 1);
    QCOMPARE(content->sectionCount(), 2);
    // A view that must stay keeps no close button beside closable tabs.
    content->setTabsClosable(true);
    content->setViewClosable(fourth, false);
    const auto closeButton = [content](QWidget *view) -> QWidget * {
        for (QTabWidget *section : content->findChildren<QTabWidget *>()) {
            if (const int index = section->indexOf(view); index >= 0) {
                QTabBar *bar = section->tabBar();
                QWidget *left = bar->tabButton(index, QTabBar::LeftSide);
                return left ? left : bar->tabButton(index, QTabBar::RightSide);
            }
        }
        return nullptr;
    };
    QVERIFY(!closeButton(fourth));
    QVERIFY(closeButton(third));
    QTest::ignoreMessage(QtWarningMsg, "DockContentWidget::addView(): null view");
    QCOMPARE(m_docks->addView(partition, nullptr, QStringLiteral("none")), -1);

    // A view deleted by its owner leaves, and the indexes close up.
    delete second;
    QCOMPARE(content->indexOf(third), 1);
    QCOMPARE(content->viewCount(), 3);
}

void tst_DockContainer::layoutRoundTripsThroughSettings()
{
    QVERIFY(!m_docks->updateState()); // nothing stored yet: the default layout stays
    QVERIFY(leftShown());
    m_docks->panel(DockContainer::Left)->hide();
    m_docks->saveState();
    QVERIFY(!QSettings().contains(QStringLiteral("IDE/geometry")));

    m_docks->restoreDefaultLayout();
    QVERIFY(leftShown());
    QVERIFY(m_docks->updateState());
    QVERIFY(!leftShown());
    QVERIFY(!m_docks->panel(DockContainer::Right)->isHidden());
}

void tst_DockContainer::corruptLayoutIsIgnored_data()
{
    QTest::addColumn<QByteArray>("layout");
    const QByteArray good = [] {
        QMainWindow other;
        DockContainer docks(&other);
        return docks.saveLayout();
    }();
    QByteArray newer = good;
    QDataStream(&newer, QIODevice::ReadWrite) << quint32(0x52444c59) << qint32(2);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("garbage") << QByteArray("not a layout at all");
    QTest::newRow("truncated") << good.left(good.size() / 2);
    QTest::newRow("trailing bytes") << good + QByteArray("x");
    QTest::newRow("newer version") << newer;
    QTest::newRow("bare window state") << QMainWindow().saveState(1);
}

void tst_DockContainer::corruptLayoutIsIgnored()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QFETCH(QByteArray, layout);
    m_docks->panel(DockContainer::Left)->hide();
    QSettings().setValue(DockContainer::settingsKey(), layout);
    QTest::ignoreMessage(QtWarningMsg, "DockContainer::restoreLayout(): ignoring a corrupt or foreign layout");
    QVERIFY(!m_docks->updateState());
    QVERIFY(!leftShown());
}

void tst_DockContainer::pagesRestoreTheirWorkspace()
{
    m_window.reset();
    m_window = std::make_unique<QMainWindow>();
    auto *agent = new RibdockAgent(m_window.get()); // the window's child
    m_docks = agent->dockContainer();
    RibbonBar *ribbon = agent->ribbonBar();
    for (const char *title : {"Main", "Plot", "App"})
        ribbon->addPage(QString::fromLatin1(title));
    agent->bindRibbonPagesAndDockWorkspace(ribbon->page(0), 0);
    agent->bindRibbonPagesAndDockWorkspace(ribbon->page(1), 1);

    m_docks->panel(DockContainer::Left)->hide();
    ribbon->setCurrentIndex(1); // nothing kept for workspace 1 yet: the layout stays
    QVERIFY(!leftShown());
    m_docks->panel(DockContainer::Left)->show();
    ribbon->setCurrentIndex(2); // unbound: leaves the layout alone
    QVERIFY(leftShown());
    ribbon->setCurrentIndex(0);
    QVERIFY(!leftShown());
    ribbon->setCurrentIndex(1);
    QVERIFY(leftShown());
}

VELMORA_TEST(tst_DockContainer);
#include "tst_dockcontainer.moc"
