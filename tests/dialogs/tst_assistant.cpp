#include "testsupport.h"
#include "offscreenwindows.h"
#include "testtypes.h"

#include "dialogs/assistant.h"
#include "dialogs/guidemenu.h"
#include "dialogs/termsofusedialog.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qstandardpaths.h>
#include <QtCore/qtemporarydir.h>
#include <QtHelp/qhelpsearchengine.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qtextbrowser.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

class tst_Assistant : public QObject
{
    Q_OBJECT

    // Installed inside QtTest's own handler, so pinned and failing warnings still work.
    std::unique_ptr<Velmora::Tests::OffscreenWindowNotices> m_notices;

private slots:
    void initTestCase()
    {
        m_notices = std::make_unique<Velmora::Tests::OffscreenWindowNotices>();
        // The search index goes to the user's cache; keep it out of the real one.
        QStandardPaths::setTestModeEnabled(true);
#ifdef VELMORA_HELP_DIR
        // A copy, so the build's collection stays as generated.
        for (const char *name : {"velmora.qhc", "velmora.qch"})
            QVERIFY(QFile::copy(QDir(QStringLiteral(VELMORA_HELP_DIR)).filePath(QLatin1String(name)),
                                m_dir.filePath(QLatin1String(name))));
        m_collection = m_dir.filePath(u"velmora.qhc"_s);
#endif
    }
    void cleanupTestCase() { m_notices.reset(); }
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }
    void showsPageForKey_data();
    void showsPageForKey();
    void searchFindsPages();
    void missingCollectionStillWorks();
    void guideMenuListsPdfs();
    void termsOfUseShowsItsText();

private:
    QTemporaryDir m_dir;
    QString m_collection;
};

void tst_Assistant::showsPageForKey_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("page"); // empty: none

    QTest::newRow("no key: home page") << QString() << u"index.html"_s;
    QTest::newRow("keyword") << u"project tree"_s << u"projecttree.html"_s;
    QTest::newRow("identifier") << u"Velmora::Solution"_s << u"solutions.html"_s;
    QTest::newRow("page name") << u"plugins.html"_s << u"plugins.html"_s;
    QTest::newRow("help URL") << u"qthelp://org.velmora.framework/doc/solutions.html"_s
                              << u"solutions.html"_s;
    QTest::newRow("unknown") << u"warp drive"_s << QString();
}

void tst_Assistant::showsPageForKey()
{
    if (m_collection.isEmpty())
        QSKIP("The help collection was not built (no qhelpgenerator)");
    QFETCH(QString, key);
    QFETCH(QString, page);

    Assistant assistant(m_collection);
    QCOMPARE(assistant.showAssistant(key), !page.isEmpty());
    QVERIFY(assistant.isVisible());
    if (page.isEmpty()) {
        // Nothing matched: the index is offered, filtered by the key.
        QCOMPARE(assistant.findChild<QLineEdit *>(u"IndexFilter"_s)->text(), key);
        QCOMPARE(assistant.currentUrl().fileName(), u"index.html"_s);
        return;
    }
    QCOMPARE(assistant.currentUrl().fileName(), page);
    const QString text = assistant.findChild<QTextBrowser *>(u"HelpBrowser"_s)->toPlainText();
    QVERIFY2(text.size() > 200, qPrintable(text));
}

void tst_Assistant::searchFindsPages()
{
    if (m_collection.isEmpty())
        QSKIP("The help collection was not built (no qhelpgenerator)");
    Assistant assistant(m_collection);
    auto *search = assistant.findChild<QHelpSearchEngine *>();
    QSignalSpy indexed(search, &QHelpSearchEngine::indexingFinished);
    QVERIFY(indexed.wait(20000));
    QSignalSpy searched(search, &QHelpSearchEngine::searchingFinished);
    search->search(u"siblings"_s);
    QVERIFY(searched.wait(20000));
    QCOMPARE(searched.at(0).at(0).toInt(), 1);
    QCOMPARE(search->searchResults(0, 1).at(0).url().fileName(), u"projecttree.html"_s);
}

void tst_Assistant::missingCollectionStillWorks()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    const QString missing = m_dir.filePath(u"nothing.qhc"_s);
    QTest::ignoreMessage(QtWarningMsg,
                         ("Assistant: the help collection " + missing.toUtf8() + " is missing")
                             .constData());
    Assistant assistant(missing);
    QVERIFY(!assistant.isReady());
    QVERIFY(!assistant.showAssistant(u"project tree"_s));
    QVERIFY(assistant.isVisible());
    QVERIFY(!QFile::exists(missing));
    const QString text = assistant.findChild<QTextBrowser *>(u"HelpBrowser"_s)->toPlainText();
    QVERIFY(text.contains(u"Help is not available"_s));
}

void tst_Assistant::guideMenuListsPdfs()
{
    QTemporaryDir help;
    for (const QString &name : {u"b-guide.pdf"_s, u"a-guide.pdf"_s, u"notes.txt"_s})
        QVERIFY(Velmora::Tests::writeFile(help.filePath(name), QByteArray()));
    QDir(help.path()).mkdir(u"folder.pdf"_s);
    GuideMenu menu(help.path());
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts.append(action->text());
    QCOMPARE(texts, QStringList({u"a-guide.pdf"_s, u"b-guide.pdf"_s}));

    GuideMenu empty(help.filePath(u"none"_s));
    QCOMPARE(empty.actions().size(), 1);
    QVERIFY(!empty.actions().first()->isEnabled());
}

void tst_Assistant::termsOfUseShowsItsText()
{
    TermsOfUseDialog dialog;
    const auto *text = dialog.findChild<QTextBrowser *>(u"TermsText"_s);
    QVERIFY(text->toPlainText().contains(u"Terms of Use"_s));
}

VELMORA_TEST(tst_Assistant);
#include "tst_assistant.moc"
