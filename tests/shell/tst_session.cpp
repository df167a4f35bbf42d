// A user's session with the real workbench and the sample text provider, in two processes
// that CTest runs in order: "create" builds a project through the ribbon, the project view
// and an editor, then closes the window; "reopen" starts again with the saved solution on
// the command line and finds the tree and the files as they were left.

#include "offscreenwindows.h"
#include "scriptedprompts.h"
#include "testsupport.h"
#include "testtypes.h"

#include "core/typeregistrar.h"
#include "dialogs/quickstartwindow.h"
#include "ribdock/ribbonbar.h"
#include "ribdock/ribboncorner.h"
#include "shell/application.h"
#include "shell/environment.h"
#include "shell/idewindow.h"
#include "types/dialogaddnewproject.h"
#include "views/projectview.h"

#include <QtCore/qdir.h>
#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qtimer.h>
#include <QtGui/qtextdocument.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qmainwindow.h>
#include <QtWidgets/qmenu.h>
#include <QtWidgets/qplaintextedit.h>
#include <QtWidgets/qtoolbutton.h>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using Velmora::Tests::readFile;

namespace {

// Kept between the two processes: the project, the solution and the settings.
const QString sessionDir = QStringLiteral(VELMORA_SESSION_DIR);
const QString projectFile = sessionDir + u"/work/Notes.qprj"_s;
const QString planFile = sessionDir + u"/work/Papers/Plan.txt"_s;
// The solution's tree; the solution item itself has no name.
const QString expectedTree = u"[Notes[Papers[Plan],Todo]]"_s;
const QByteArray typed = "Hello";

} // namespace

class tst_Session : public QObject
{
    Q_OBJECT

private slots:
    void create();
    void reopen();

private:
    // Runs the workbench with a file argument (or none), playing session once its window is up.
    void runWorkbench(const QString &argument, void (tst_Session::*session)());
    void play(void (tst_Session::*session)());
    void createSession();
    void reopenSession();

    // What a user does with the mouse and keyboard.
    void chooseFromNextMenu(const QString &entry);
    void ribbonMenu(int action, const QString &entry);
    void contextMenu(const QModelIndex &index, const QString &entry);
    void doubleClick(const QModelIndex &index);
    QModelIndex find(const QString &path) const;
    QPlainTextEdit *currentEditor() const;
    QToolButton *buttonOf(QWidget *area, QAction *action) const;

    Environment *m_environment = nullptr;
    ProjectView *m_view = nullptr;
    Velmora::Ribdock::RibbonBar *m_ribbon = nullptr;
    // The next add-new dialog's answer.
    QString m_type;
    QString m_name;
    bool m_menuChosen = false;
};

void tst_Session::runWorkbench(const QString &argument, void (tst_Session::*session)())
{
    Velmora::Tests::failOnUnexpectedWarnings();
    QTemporaryDir runtime;
    // The platform warns without a private runtime folder; a temporary one is private.
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
    qputenv("HOME", QFile::encodeName(sessionDir + u"/home"_s));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, sessionDir + u"/settings"_s);

    QByteArray program("tst_session");
    QByteArray file = argument.toLocal8Bit();
    char *argv[] = {program.data(), file.data(), nullptr};
    int argc = argument.isEmpty() ? 1 : 2;

    Velmora::Tests::OffscreenWindowNotices notices;
    Application app(argc, argv, QString(), QString(), QString());
    m_environment = app.environment();
    QTimer::singleShot(0, &app, [&] {
        play(session);
        // Whatever the session did, the application ends: a failed step leaves the window open.
        if (m_environment->mainWindow() && m_environment->mainWindow()->isVisible())
            QCoreApplication::quit();
    });
    QCOMPARE(app.run(), 0);
    m_environment = nullptr;
}

void tst_Session::play(void (tst_Session::*session)())
{
    QMainWindow *window = m_environment->mainWindow();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    m_view = m_environment->projectView();
    m_ribbon = qobject_cast<IDEWindow *>(window)->ribbonBar();
    QVERIFY(m_view && m_ribbon);
    // The quick-start window opens at every start; the user closes it.
    if (QuickStartWindow *quickStart = m_environment->quickStartWindow())
        quickStart->close();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    // The offscreen screen squeezes the project tree: enlarge and lay the docks out again.
    window->resize(1280, 800);
    ribbonMenu(Environment::LayoutAction, u"Restore Default Layout"_s);
    QTRY_VERIFY(m_view->viewport()->width() > 200);
    (this->*session)();
}

void tst_Session::create()
{
    QDir(sessionDir).removeRecursively();
    QVERIFY(QDir().mkpath(sessionDir + u"/work"_s));
    runWorkbench(QString(), &tst_Session::createSession); // reopen finds what it left
}

void tst_Session::reopen()
{
    if (!QFileInfo::exists(projectFile))
        QSKIP("Runs after create, in a process of its own");
    runWorkbench(projectFile, &tst_Session::reopenSession);
    QCOMPARE(readFile(planFile), typed);
    QCOMPARE(readFile(sessionDir + u"/work/Todo.txt"_s), QByteArray());
}

void tst_Session::createSession()
{
    TypeRegistrar *types = m_environment->typeRegistrar();
    Velmora::Tests::ScriptedPrompts prompts([&](const PromptRequest &request) {
        PromptAnswer answer;
        if (auto *project = qobject_cast<DialogAddNewProject *>(request.dialog)) {
            project->setSelectedType(types->lookup(u"sample.project"_s));
            project->setItemName(u"Notes"_s);
            project->setLocation(sessionDir + u"/work"_s);
            answer.code = QDialog::Accepted;
        } else if (auto *item = qobject_cast<DialogAddNewBase *>(request.dialog)) {
            item->setSelectedType(types->lookup(m_type));
            item->setItemName(m_name);
            answer.code = QDialog::Accepted;
        } else if (request.kind == PromptRequest::Text) {
            answer = {QDialog::Accepted, m_name}; // the rename dialog of F2
        } else {
            qWarning("unexpected prompt %d: %s", int(request.kind), qPrintable(request.title));
        }
        return answer;
    });

    ribbonMenu(Environment::NewAction, u"Project"_s);
    QTRY_VERIFY(find(u"Notes"_s).isValid());

    // A folder and two files through the context menu of the project and of the folder.
    m_type = u"sample.folder"_s;
    m_name = u"Docs"_s;
    contextMenu(find(u"Notes"_s), u"Add New Item..."_s);
    QTRY_VERIFY(find(u"Notes/Docs"_s).isValid());
    m_type = u"sample.text"_s;
    m_name = u"Readme"_s;
    contextMenu(find(u"Notes"_s), u"Add New Item..."_s);
    QTRY_VERIFY(find(u"Notes/Readme"_s).isValid());
    m_name = u"Plan"_s;
    contextMenu(find(u"Notes/Docs"_s), u"Add New Item..."_s);
    QTRY_VERIFY(find(u"Notes/Docs/Plan"_s).isValid());

    // Save the new file from its menu, then rename it in place: the file follows the name.
    contextMenu(find(u"Notes/Readme"_s), u"Save 'Readme'"_s);
    QTRY_VERIFY(QFileInfo::exists(sessionDir + u"/work/Readme.txt"_s));
    contextMenu(find(u"Notes/Readme"_s), u"Rename"_s);
    QLineEdit *nameEditor = nullptr;
    QTRY_VERIFY((nameEditor = m_view->viewport()->findChild<QLineEdit *>()));
    QTest::keyClick(nameEditor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(nameEditor, u"Todo"_s);
    QTest::keyClick(nameEditor, Qt::Key_Return);
    QTRY_VERIFY(find(u"Notes/Todo"_s).isValid());
    QVERIFY(QFileInfo::exists(sessionDir + u"/work/Todo.txt"_s));
    QVERIFY(!QFileInfo::exists(sessionDir + u"/work/Readme.txt"_s));

    // Edit a file: type, undo and redo from the ribbon's corner, save with Ctrl+S.
    doubleClick(find(u"Notes/Docs/Plan"_s));
    QPlainTextEdit *editor = nullptr;
    QTRY_VERIFY((editor = currentEditor()));
    QTest::mouseClick(editor->viewport(), Qt::LeftButton);
    QTRY_VERIFY(editor->hasFocus());
    QTest::keyClicks(editor, QString::fromUtf8(typed));
    QCOMPARE(editor->toPlainText().toUtf8(), typed);
    QWidget *corner = m_ribbon->cornerWidget();
    QToolButton *undo = buttonOf(corner, m_environment->findAction(Environment::UndoAction));
    QToolButton *redo = buttonOf(corner, m_environment->findAction(Environment::RedoAction));
    QVERIFY(undo && redo);
    QTRY_VERIFY(undo->isEnabled());
    QTest::mouseClick(undo, Qt::LeftButton);
    QCOMPARE(editor->toPlainText(), QString());
    QTRY_VERIFY(redo->isEnabled());
    QTest::mouseClick(redo, Qt::LeftButton);
    QCOMPARE(editor->toPlainText().toUtf8(), typed);
    QTest::keyClick(editor, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(readFile(sessionDir + u"/work/Docs/Plan.txt"_s), typed);
    QCOMPARE(editor->document()->isModified(), false);

    // F2 renames through the rename dialog; the folder moves with the file inside.
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {},
                      m_view->visualRect(find(u"Notes/Docs"_s)).center());
    QTRY_VERIFY(m_view->hasFocus());
    m_name = u"Papers"_s;
    QTest::keyClick(m_view, Qt::Key_F2);
    QTRY_VERIFY(find(u"Notes/Papers/Plan"_s).isValid());
    QCOMPARE(readFile(planFile), typed);

    // Closing the window drops what is unsaved: the user saves the project first.
    contextMenu(find(u"Notes"_s), u"Save 'Notes'"_s);
    QTRY_VERIFY(QFileInfo::exists(projectFile));
    QCOMPARE(Velmora::Tests::outline(m_environment->solutionItem()), expectedTree);
    QVERIFY(m_environment->mainWindow()->close());
}

void tst_Session::reopenSession()
{
    QTRY_COMPARE(Velmora::Tests::outline(m_environment->solutionItem()), expectedTree);
    // The reopened file shows what was saved.
    doubleClick(find(u"Notes/Papers/Plan"_s));
    QPlainTextEdit *editor = nullptr;
    QTRY_VERIFY((editor = currentEditor()));
    QCOMPARE(editor->toPlainText().toUtf8(), typed);
    QVERIFY(m_environment->mainWindow()->close());
}

void tst_Session::chooseFromNextMenu(const QString &entry)
{
    m_menuChosen = false;
    auto *poll = new QTimer(this);
    int ticks = 0;
    connect(poll, &QTimer::timeout, this, [this, poll, entry, ticks]() mutable {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu || !menu->isVisible()) {
            if (++ticks > 250) {
                poll->stop();
                poll->deleteLater();
            }
            return;
        }
        // Stopped at once: a nested event loop would not delete it yet.
        poll->stop();
        poll->deleteLater();
        const QList<QAction *> actions = menu->actions();
        for (QAction *action : actions) {
            if (action->isVisible() && action->text().remove(u'&') == entry) {
                m_menuChosen = true;
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
                return;
            }
        }
        menu->close(); // not offered: the step fails on m_menuChosen
    });
    poll->start(20);
}

void tst_Session::ribbonMenu(int action, const QString &entry)
{
    QToolButton *button = buttonOf(m_ribbon, m_environment->findAction(action));
    QVERIFY(button);
    chooseFromNextMenu(entry);
    // The lower part of a large button opens its menu.
    QTest::mouseClick(button, Qt::LeftButton, {},
                      QPoint(button->width() / 2, button->height() - 4));
    QTRY_VERIFY(m_menuChosen);
}

void tst_Session::contextMenu(const QModelIndex &index, const QString &entry)
{
    QVERIFY(index.isValid());
    const QPoint pos = m_view->visualRect(index).center();
    QTest::mouseClick(m_view->viewport(), Qt::RightButton, {}, pos);
    chooseFromNextMenu(entry);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, m_view->viewport()->mapToGlobal(pos));
    QApplication::sendEvent(m_view->viewport(), &event);
    QTRY_VERIFY(m_menuChosen);
}

void tst_Session::doubleClick(const QModelIndex &index)
{
    QVERIFY(index.isValid());
    const QPoint pos = m_view->visualRect(index).center();
    // The test library sends the second press alone; the first click comes before it.
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, pos);
    QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, pos);
}

QModelIndex tst_Session::find(const QString &path) const
{
    // Paths start below the solution, the tree's one root.
    const QAbstractItemModel *model = m_view->model();
    QModelIndex index = model->index(0, 0);
    for (const QString &name : path.split(u'/')) {
        if (model->rowCount(index) == 0)
            return QModelIndex();
        const QModelIndexList found =
            model->match(model->index(0, 0, index), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        if (found.isEmpty())
            return QModelIndex();
        index = found.first();
        m_view->expand(index);
    }
    return index;
}

QPlainTextEdit *tst_Session::currentEditor() const
{
    const QList<QPlainTextEdit *> editors =
        m_environment->mainWindow()->findChildren<QPlainTextEdit *>();
    for (QPlainTextEdit *editor : editors) {
        if (editor->isVisible() && editor->inherits("TextProvider::TextEditor"))
            return editor;
    }
    return nullptr;
}

QToolButton *tst_Session::buttonOf(QWidget *area, QAction *action) const
{
    const QList<QToolButton *> buttons = area->findChildren<QToolButton *>();
    for (QToolButton *button : buttons) {
        if (button->defaultAction() == action && button->isVisible())
            return button;
    }
    return nullptr;
}

QTEST_APPLESS_MAIN(tst_Session)
#include "tst_session.moc"
