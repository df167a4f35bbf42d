#include "testsupport.h"
#include "testtypes.h"

#include "core/editorfactory.h"
#include "views/multiplewindow.h"
#include "views/projectfrontpage.h"

#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qcommandlinkbutton.h>
#include <QtWidgets/qtabwidget.h>

#include <memory>

using namespace Velmora::Framework;

namespace {

class Factory : public EditorFactory
{
    Q_OBJECT

public:
    QString name() const override { return QStringLiteral("Text"); }
    QIcon icon() const override { return {}; }
    QString description() const override { return {}; }
    bool supportsEmptyInstance() const override { return false; }

protected:
    QWidget *createEditor(ViewItem *item, const QList<EditorInstruction> &) override
    {
        auto *editor = new Velmora::Tests::TestEditor;
        editor->setWindowTitle(item->getItemName() + QStringLiteral("[*]"));
        return editor;
    }
};

QTabWidget *tabsOf(const MultipleWindow &window)
{
    return window.findChild<QTabWidget *>();
}

} // namespace

class tst_MultipleWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_settings.isValid());
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
        QCoreApplication::setOrganizationName(QStringLiteral("VelmoraTests"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_views"));
    }
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void viewsKeepTheirIndexWhileHidden();
    void frontPageAsksForProjects();
    void itemOpensOnceInItsEditor();
    void recentSolutionsAreKeptNewestFirst();

private:
    QTemporaryDir m_settings;
};

void tst_MultipleWindow::viewsKeepTheirIndexWhileHidden()
{
    MultipleWindow window;
    QTabWidget *tabs = tabsOf(window);
    QCOMPARE(window.addView(nullptr, QIcon(), QStringLiteral("none")), -1);
    auto *a = new QWidget;
    auto *b = new QWidget;
    auto *c = new QWidget;
    QCOMPARE(window.addView(a, QIcon(), QStringLiteral("A")), 0);
    QCOMPARE(window.addView(b, QIcon(), QStringLiteral("B")), 1);
    QCOMPARE(window.addView(c, QIcon(), QStringLiteral("C")), 2);
    QCOMPARE(window.addView(b, QIcon(), QStringLiteral("again")), 1);
    QCOMPARE(window.viewCount(), 3);
    QCOMPARE(tabs->currentWidget(), b);

    window.setViewVisible(0, false);
    QVERIFY(!window.isViewVisible(0));
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(window.indexOf(a), 0);
    window.setCurrentIndex(0); // shows it again, in its place
    QVERIFY(window.isViewVisible(0));
    QCOMPARE(tabs->indexOf(a), 0);
    QCOMPARE(tabs->currentWidget(), a);
    QCOMPARE(tabs->tabText(2), QStringLiteral("C"));

    QCOMPARE(window.removeView(1), b);
    QVERIFY(!b->parent());
    QCOMPARE(window.indexOf(c), 1);
    QVERIFY(!window.view(2) && !window.removeView(-1) && !window.isViewVisible(7));
    delete b;

    delete c; // deleted elsewhere: the list closes up
    QCOMPARE(window.viewCount(), 1);
    QCOMPARE(window.view(0), a);

    // Disposing deletes every view, hidden ones too.
    QPointer<QWidget> first(a), hidden(new QWidget);
    window.addView(hidden, QIcon(), QStringLiteral("Hidden"));
    window.setViewVisible(1, false);
    window.disposeAllViews();
    QCOMPARE(window.viewCount(), 0);
    QCOMPARE(tabs->count(), 0);
    QTRY_VERIFY(!first && !hidden);
}

void tst_MultipleWindow::frontPageAsksForProjects()
{
    MultipleWindow window;
    window.addView(new QWidget, QIcon(), QStringLiteral("Projects"));
    QSignalSpy newProject(&window, &MultipleWindow::signalNewProject);
    QSignalSpy openProject(&window, &MultipleWindow::signalOpenProject);

    window.setFrontPageVisible(true);
    QCOMPARE(tabsOf(window)->widget(0), window.frontPage());
    QCOMPARE(tabsOf(window)->currentIndex(), 0);
    QCOMPARE(window.indexOf(window.frontPage()), -1);
    QCOMPARE(window.viewCount(), 1);

    const QList<QCommandLinkButton *> buttons = window.frontPage()->findChildren<QCommandLinkButton *>();
    QStringList texts;
    for (QCommandLinkButton *button : buttons)
        texts.append(button->text());
    QCOMPARE(texts, QStringList({QStringLiteral("New Project"), QStringLiteral("Open Project")}));
    buttons.at(0)->click();
    buttons.at(1)->click();
    QCOMPARE(newProject.size(), 1);
    QCOMPARE(openProject.size(), 1);
    QCOMPARE(openProject.first().first().toString(), QString());

    window.setFrontPageVisible(false);
    QCOMPARE(tabsOf(window)->count(), 1);
    QCOMPARE(tabsOf(window)->indexOf(window.frontPage()), -1);
}

void tst_MultipleWindow::itemOpensOnceInItsEditor()
{
    Velmora::Tests::TestTree tree;
    Factory factory;
    tree.leaf->registerEditorFactory(factory.name(), &factory);
    std::unique_ptr<ViewItem> leaf(tree.leafItem(QStringLiteral("notes")));
    std::unique_ptr<ViewItem> folder(tree.folderItem(QStringLiteral("plain")));

    MultipleWindow window;
    QTabWidget *tabs = tabsOf(window);
    window.addView(new QWidget, QIcon(), QStringLiteral("Projects"));
    QSignalSpy current(&window, &MultipleWindow::currentItemChanged);
    QSignalSpy status(&window, &MultipleWindow::statusChanged);

    QWidget *editor = window.editItem(leaf.get());
    QVERIFY(qobject_cast<Velmora::Tests::TestEditor *>(editor));
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->currentWidget(), editor);
    QCOMPARE(tabs->tabText(1), QStringLiteral("notes"));
    QCOMPARE(window.currentItem(), leaf.get());
    QCOMPARE(current.last().first().value<ViewItem *>(), leaf.get());

    window.setCurrentIndex(0);
    QCOMPARE(window.editItem(leaf.get()), editor);
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->currentWidget(), editor);

    editor->setWindowModified(true);
    editor->setWindowTitle(QStringLiteral("renamed[*]"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("renamed*"));

    // Closing the tab hands the editor back to its factory, which opens it again.
    emit tabs->tabCloseRequested(1);
    QCOMPARE(window.viewCount(), 1);
    QVERIFY(!editor->parent());
    QCOMPARE(window.editItem(leaf.get()), editor);
    QCOMPARE(window.viewCount(), 2);

    QVERIFY(!window.editItem(folder.get()));
    QCOMPARE(status.last().first().toString(), QStringLiteral("No editor can open plain"));
    QVERIFY(!window.editItem(nullptr));
}

void tst_MultipleWindow::recentSolutionsAreKeptNewestFirst()
{
    QSettings().setValue(ProjectFrontPage::recentKey(), 42);
    QTest::ignoreMessage(QtWarningMsg, "ProjectFrontPage::recentSolutions(): ignoring the "
                                       "unreadable value of IDE/RecentSolutions");
    QVERIFY(ProjectFrontPage::recentSolutions().isEmpty());
    QVERIFY(ProjectFrontPage::recentSolutions().isEmpty()); // told once

    QSettings().remove(ProjectFrontPage::recentKey());
    const QString first = QDir(m_settings.path()).filePath(QStringLiteral("first.sln-qel"));
    const QString second = QDir(m_settings.path()).filePath(QStringLiteral("second.sln-qel"));
    ProjectFrontPage::addRecentSolution(first);
    ProjectFrontPage::addRecentSolution(second);
    ProjectFrontPage::addRecentSolution(first + QStringLiteral("/../first.sln-qel/"));
    QCOMPARE(ProjectFrontPage::recentSolutions(), QStringList({first, second}));
    for (int at = 0; at < 20; ++at)
        ProjectFrontPage::addRecentSolution(QStringLiteral("/s%1.sln-qel").arg(at));
    QCOMPARE(ProjectFrontPage::recentSolutions().size(), ProjectFrontPage::maxRecent());
    QCOMPARE(ProjectFrontPage::recentSolutions().first(), QStringLiteral("/s19.sln-qel"));
    QSettings().remove(ProjectFrontPage::recentKey());
}

VELMORA_TEST(tst_MultipleWindow);
#include "tst_multiplewindow.moc"
