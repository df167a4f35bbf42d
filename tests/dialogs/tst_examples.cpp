#include "testsupport.h"
#include "scriptedprompts.h"
#include "testtypes.h"

#include "dialogs/exampledialog.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qtemporarydir.h>
#include <QtGui/qimage.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qlineedit.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using namespace Velmora::Tests;

namespace {

QByteArray meta(const QByteArray &category, const QByteArray &open = "demo.qprj",
                const QByteArray &picture = QByteArray())
{
    QByteArray text = "[Example]\nName=Demo " + category + "\nDescription=Shows how, step by step.\nCategory="
        + category + "\nOpen=" + open + "\n";
    if (!picture.isEmpty())
        text += "Picture=" + picture + "\n";
    return text;
}

void writeExample(const QString &folder, const QByteArray &metaText)
{
    QVERIFY(QDir().mkpath(folder + u"/data"_s));
    QVERIFY(writeFile(folder + u"/demo.qprj"_s, "<project/>"));
    QVERIFY(writeFile(folder + u"/data/input.csv"_s, "1,2\n"));
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QVERIFY(image.save(folder + u"/picture.png"_s));
    QVERIFY(writeFile(folder + u"/meta.ini"_s, metaText));
}

} // namespace

class tst_ExampleDialog : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_dir = std::make_unique<QTemporaryDir>();
    }
    void cleanup() { m_dir.reset(); }
    void refusedFolders_data();
    void refusedFolders();
    void galleryGroupsAndOpensCopy();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_ExampleDialog::refusedFolders_data()
{
    QTest::addColumn<QByteArray>("metaText"); // empty: no meta.ini at all
    QTest::addColumn<QString>("reason");

    QTest::newRow("no meta.ini") << QByteArray() << u"meta.ini is missing"_s;
    QTest::newRow("huge meta.ini")
        << meta("Tidekit Script") + "; " + QByteArray(70 * 1024, 'x') + "\n"
        << u"meta.ini is larger than 65536 bytes"_s;
    QTest::newRow("binary garbage") << QByteArray("\x00\x01\xff[[[\x02", 8)
                                   << u"meta.ini lacks Name, Category or Open in [Example]"_s;
    QTest::newRow("no open file") << QByteArray("[Example]\nName=A\nCategory=Tidekit Script\n")
                                  << u"meta.ini lacks Name, Category or Open in [Example]"_s;
    QTest::newRow("keys in a nested group")
        << QByteArray("[Example/Deeper/Still]\nName=A\nCategory=Tidekit Script\nOpen=demo.qprj\n")
        << u"meta.ini lacks Name, Category or Open in [Example]"_s;
    QTest::newRow("open file missing") << meta("Tidekit Script", "gone.qprj")
                                       << u"\"gone.qprj\" does not exist"_s;
    QTest::newRow("open file outside") << meta("Tidekit Script", "../outside.qprj")
                                       << u"\"../outside.qprj\" points outside the folder"_s;
    QTest::newRow("open file a link leading outside")
        << meta("Tidekit Script", "link.qprj")
        << u"\"link.qprj\" points outside the folder"_s;
    QTest::newRow("open file absolute")
        << meta("Tidekit Script", "/etc/hostname")
        << u"\"/etc/hostname\" is not a path inside the folder"_s;
    QTest::newRow("open file not a project")
        << meta("Tidekit Script", "data/input.csv")
        << u"\"data/input.csv\" is neither a solution nor a project"_s;
    QTest::newRow("picture outside") << meta("Tidekit Script", "demo.qprj", "../outside.qprj")
                                     << u"\"../outside.qprj\" points outside the folder"_s;
    QTest::newRow("picture not a picture")
        << meta("Tidekit Script", "demo.qprj", "data/input.csv")
        << u"\"data/input.csv\" is not a picture of at most 4096 pixels a side"_s;
}

void tst_ExampleDialog::refusedFolders()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QFETCH(QByteArray, metaText);
    QFETCH(QString, reason);
    const QString folder = m_dir->filePath(u"examples/bad"_s);
    writeExample(folder, metaText);
    QVERIFY(writeFile(m_dir->filePath(u"examples/outside.qprj"_s), "<project/>"));
    QVERIFY(QFile::link(m_dir->filePath(u"examples/outside.qprj"_s), folder + u"/link.qprj"_s));
    if (metaText.isEmpty())
        QFile::remove(folder + u"/meta.ini"_s);

    // The dialog opens without it, once warned.
    const QByteArray warning =
        "ExampleDialog: skipping example folder " + folder.toUtf8() + ": " + reason.toUtf8();
    QTest::ignoreMessage(QtWarningMsg, warning.constData());
    ExampleDialog dialog({m_dir->filePath(u"examples"_s)}, ExampleDialog::defaultGroups());
    QVERIFY(dialog.examples(u"Tidekit Script"_s).isEmpty());
}

void tst_ExampleDialog::galleryGroupsAndOpensCopy()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    const QString tidekit = m_dir->filePath(u"tidekit"_s);
    const QString flowdeck = m_dir->filePath(u"flowdeck"_s);
    writeExample(tidekit + u"/b_variant"_s, meta("Tidekit Variant"));
    writeExample(tidekit + u"/a_script"_s, meta("Tidekit Script", "demo.qprj", "picture.png"));
    writeExample(flowdeck + u"/diagram"_s, meta("Flowdeck Diagram", "demo.qprj"));
    writeExample(flowdeck + u"/stray"_s, meta("Other Things"));

    QTest::ignoreMessage(QtWarningMsg,
                         ("ExampleDialog: skipping example folder " + flowdeck.toUtf8()
                          + "/stray: unknown category \"Other Things\"")
                             .constData());
    ExampleDialog dialog({tidekit, flowdeck}, ExampleDialog::defaultGroups());
    for (const QString &group : ExampleDialog::defaultGroups()) {
        const QList<ExampleDialog::Example> examples = dialog.examples(group);
        QCOMPARE(examples.size(), 1);
        QCOMPARE(examples.first().name, u"Demo "_s + group);
    }
    const ExampleDialog::Example script = dialog.examples(u"Tidekit Script"_s).first();
    QVERIFY(script.picture.endsWith(u"/picture.png"_s));
    QCOMPARE(script.description, u"Shows how, step by step."_s);

    // Opening copies the folder and asks for the copy's project.
    const QString target = m_dir->filePath(u"mine"_s);
    QDir().mkpath(target);
    ScriptedPrompts prompts;
    prompts.answer(QDialog::Accepted, target);
    QSignalSpy opened(&dialog, &ExampleDialog::openRequested);
    dialog.setCurrentExample(u"Tidekit Script"_s, 0);
    dialog.openCurrent();
    QCOMPARE(opened.size(), 1);
    QCOMPARE(opened.at(0).at(0).toString(), target + u"/a_script/demo.qprj"_s);
    QVERIFY(QFile::exists(target + u"/a_script/data/input.csv"_s));
    QCOMPARE(prompts.requests.at(0).kind, Velmora::Framework::PromptRequest::ExistingDirectory);

    // A second copy to the same place is refused and leaves the first untouched.
    prompts.answer(QDialog::Accepted, target);
    dialog.openCurrent();
    QCOMPARE(opened.size(), 1);
    QCOMPARE(prompts.requests.size(), 3);
    QCOMPARE(prompts.requests.at(2).kind, Velmora::Framework::PromptRequest::Critical);
    QCOMPARE(prompts.requests.at(2).title, u"Error"_s);
    QVERIFY(prompts.requests.at(2).text.contains(u"exists already"_s));

    // Into its own folder would copy forever.
    QString error;
    QVERIFY(ExampleDialog::copyExample(script, script.folder, &error).isEmpty());
    QVERIFY(!error.isEmpty());
    QVERIFY(!QFile::exists(script.folder + u"/a_script"_s));

    // Cancelling the folder choice does nothing.
    dialog.openCurrent();
    QCOMPARE(opened.size(), 1);

    // A search that hides every example leaves nothing to open.
    auto *filter = dialog.findChild<QLineEdit *>(u"ExampleFilter"_s);
    filter->setText(u"no such example"_s);
    dialog.openCurrent();
    QCOMPARE(prompts.requests.size(), 4);
    filter->setText(u"STEP BY"_s);
    dialog.openCurrent();
    QCOMPARE(prompts.requests.size(), 5);
}

VELMORA_TEST(tst_ExampleDialog);
#include "tst_examples.moc"
