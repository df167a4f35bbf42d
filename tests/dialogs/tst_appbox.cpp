#include "testsupport.h"
#include "scriptedprompts.h"
#include "testtypes.h"

#include "dialogs/appbox.h"
#include "dialogs/appinstalldialog.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qtemporarydir.h>
#include <QtWidgets/qdialogbuttonbox.h>
#include <QtWidgets/qpushbutton.h>
#include <QtWidgets/qtoolbutton.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using namespace Velmora::Tests;

namespace {

// An app folder whose program leaves a mark in its working folder when it runs.
void writeApp(const QString &folder, const QByteArray &name, const QByteArray &program = "run.sh")
{
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(writeFile(folder + u"/run.sh"_s, "#!/bin/sh\ntouch started\n"));
    QVERIFY(QFile::setPermissions(folder + u"/run.sh"_s,
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(writeFile(folder + u"/app.ini"_s, "[App]\nName=" + name + "\nProgram=" + program
                                                  + "\nDescription=Fits curves.\n"));
}

// Answers the install dialog by choosing folder, and tells whether it would accept.
ScriptedPrompts::Script installFrom(const QString &folder, bool *acceptable)
{
    return [folder, acceptable](const ScriptedPrompts::Request &request) {
        auto *dialog = qobject_cast<AppInstallDialog *>(request.dialog);
        if (!dialog)
            return ScriptedPrompts::Answer{};
        dialog->setFolder(folder);
        *acceptable = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled();
        return ScriptedPrompts::Answer{*acceptable ? int(QDialog::Accepted) : int(QDialog::Rejected), {}};
    };
}

} // namespace

class tst_AppBox : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_dir = std::make_unique<QTemporaryDir>();
    }
    void cleanup() { m_dir.reset(); }
    void installWritesAndStarts();
    void unreachableEntryHiddenButKept();
    void manifestRefused_data();
    void manifestRefused();
    void hostileCustomFileLeftUntouched_data();
    void hostileCustomFileLeftUntouched();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    QString customFile() const { return m_dir->filePath(u"customApp.xml"_s); }
};

void tst_AppBox::installWritesAndStarts()
{
    const QString folder = m_dir->filePath(u"fitter"_s);
    writeApp(folder, "Fitter");
    AppBox box(customFile());
    QVERIFY(box.isUsable());

    bool acceptable = false;
    {
        ScriptedPrompts prompts(installFrom(folder, &acceptable));
        box.installApp();
        QCOMPARE(prompts.requests.size(), 1);
    }
    QCOMPARE(box.appNames(), QStringList(u"Fitter"_s));

    // The file written is the file read: a new box shows the same apps.
    const QByteArray written = readFile(customFile());
    AppBox reread(customFile());
    QCOMPARE(reread.appNames(), QStringList(u"Fitter"_s));

    // The same folder twice is refused without touching the file.
    {
        ScriptedPrompts prompts(installFrom(folder, &acceptable));
        box.installApp();
        QCOMPARE(prompts.requests.size(), 2);
        QCOMPARE(prompts.requests.at(1).title, u"Error"_s);
        QVERIFY(prompts.requests.at(1).text.contains(u"installed already"_s));
    }
    QCOMPARE(readFile(customFile()), written);

    // The button starts the program in its own folder.
    auto *button = box.findChild<QToolButton *>();
    QCOMPARE(button->text(), u"Fitter"_s);
    button->click();
    QTRY_VERIFY(QFile::exists(folder + u"/started"_s));
}

void tst_AppBox::unreachableEntryHiddenButKept()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    const QString away = m_dir->filePath(u"away"_s);
    QVERIFY(writeFile(customFile(), "<apps><app name=\"Away\" folder=\"" + away.toUtf8()
                                        + "\" program=\"../../bin/sh\"/></apps>"));
    const QByteArray warning = "AppBox: not showing app Away: \"../../bin/sh\" does not exist";
    QTest::ignoreMessage(QtWarningMsg, warning.constData());
    AppBox box(customFile());
    QVERIFY(box.isUsable());
    QVERIFY(box.appNames().isEmpty());

    // Adding another app rewrites the file without dropping the hidden entry.
    writeApp(m_dir->filePath(u"fitter"_s), "Fitter");
    QString error;
    QVERIFY2(box.addApp(m_dir->filePath(u"fitter"_s), &error), qPrintable(error));
    QCOMPARE(box.appNames(), QStringList(u"Fitter"_s));
    QVERIFY(readFile(customFile()).contains("name=\"Away\""));
}

void tst_AppBox::manifestRefused_data()
{
    QTest::addColumn<QByteArray>("program");
    QTest::newRow("program outside the folder") << QByteArray("../elsewhere/run.sh");
    QTest::newRow("program absolute") << QByteArray("/bin/sh");
    QTest::newRow("program missing") << QByteArray("gone.sh");
    QTest::newRow("no program") << QByteArray();
}

void tst_AppBox::manifestRefused()
{
    QFETCH(QByteArray, program);
    writeApp(m_dir->filePath(u"elsewhere"_s), "Elsewhere");
    const QString folder = m_dir->filePath(u"bad"_s);
    writeApp(folder, "Bad", program);
    AppBox box(customFile());

    bool acceptable = true;
    ScriptedPrompts prompts(installFrom(folder, &acceptable));
    box.installApp();
    QVERIFY(!acceptable);
    QString error;
    QVERIFY(!box.addApp(folder, &error));
    QVERIFY(error.startsWith(u"This folder holds no app that can be installed: "_s));
    QVERIFY(!QFile::exists(customFile()));
}

void tst_AppBox::hostileCustomFileLeftUntouched_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");

    QTest::newRow("not well-formed") << QByteArray("<apps><app name='a'") << u"Premature end of document. at line 1"_s;
    QTest::newRow("other root") << QByteArray("<programs/>")
                                << u"unexpected element <programs> at line 1"_s;
    QTest::newRow("nested below an app")
        << QByteArray("<apps><app name='a' folder='/x' program='p'><app/></app></apps>")
        << u"unexpected element <app> at line 1"_s;
    QByteArray deep;
    for (int i = 0; i < 5000; ++i)
        deep += "<apps>";
    QTest::newRow("deeply nested") << deep << u"unexpected element <apps> at line 1"_s;
    QTest::newRow("entity expansion")
        << QByteArray("<!DOCTYPE apps [<!ENTITY a \"aaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>"
                      "<apps><app name='&b;' folder='/x' program='p'/></apps>")
        << u"declarations and entities are not allowed"_s;
    QTest::newRow("app without program")
        << QByteArray("<apps>\n<app name='a' folder='/x'/></apps>")
        << u"an app at line 2 lacks name, folder or program"_s;
    QTest::newRow("huge") << "<apps>" + QByteArray(2 * 1024 * 1024, ' ') + "</apps>"
                          << u"customApp.xml is larger than 1048576 bytes"_s;
}

void tst_AppBox::hostileCustomFileLeftUntouched()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    QVERIFY(writeFile(customFile(), content));
    const QString folder = m_dir->filePath(u"fitter"_s);
    writeApp(folder, "Fitter");

    const QByteArray warning = "AppBox: " + customFile().toUtf8() + " cannot be read ("
        + reason.toUtf8() + "); it is left untouched";
    QTest::ignoreMessage(QtWarningMsg, warning.constData());
    AppBox box(customFile());
    QVERIFY(!box.isUsable());
    QVERIFY(box.appNames().isEmpty());

    // Reported once: installing afterwards tells the user, not the log again.
    bool acceptable = false;
    ScriptedPrompts prompts(installFrom(folder, &acceptable));
    box.installApp();
    QCOMPARE(prompts.requests.size(), 2);
    QCOMPARE(prompts.requests.at(1).kind, Velmora::Framework::PromptRequest::Critical);
    QVERIFY(prompts.requests.at(1).text.contains(u"cannot be read"_s));
    QCOMPARE(readFile(customFile()), content);
}

VELMORA_TEST(tst_AppBox);
#include "tst_appbox.moc"
