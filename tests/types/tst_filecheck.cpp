#include "testsupport.h"
#include "testtypes.h"

#include "types/filecheck.h"

#include <QtCore/qtemporarydir.h>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using Velmora::Tests::writeFile;

namespace {
const QByteArray header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
}

class tst_FileCheck : public QObject
{
    Q_OBJECT

private slots:
    void reportsWhereTheProblemIs_data();
    void reportsWhereTheProblemIs();
    void checksTheProjectsASolutionLists();
};

void tst_FileCheck::reportsWhereTheProblemIs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    // "line:column: message start" of each problem; the checker's own test runs sound files.
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("unclosed element") << u"p.qprj"_s
        << header + "<project name=\"P\">\n  <item typeid=\"t\" name=\"a\">\n</project>\n"
        << QStringList{u"4:10: Opening and ending tag mismatch."_s};
    QTest::newRow("empty file") << u"p.qprj"_s << QByteArray()
        << QStringList{u"1:0: Premature end of document."_s};
    QTest::newRow("wrong root") << u"p.qprj"_s << header + "<solution name=\"S\"/>\n"
        << QStringList{u"2:20: the root element is <solution>, not <project>"_s};
    QTest::newRow("missing attributes, stray element") << u"p.qprj"_s
        << header + "<project>\n  <item name=\"a\"/>\n  <note/>\n  <item typeid=\"t\"/>\n</project>\n"
        << QStringList{u"3:18: <item> lacks the attribute \"typeid\""_s,
                       u"4:9: unexpected element <note>"_s,
                       u"5:20: <item> lacks the attribute \"name\""_s};
    QTest::newRow("missing project file") << u"s.sln-qel"_s
        << header + "<solution name=\"S\">\n  <project typeid=\"t\" name=\"a\" path=\"./a/a.qprj\"/>\n"
                    "</solution>\n"
        << QStringList{u"3:50: the project file ./a/a.qprj does not exist"_s};
    QTest::newRow("attribute lists refused") << u"p.qprj"_s
        << header + "<!DOCTYPE project [<!ATTLIST item x CDATA \"y\">]>\n<project/>\n"
        << QStringList{u"the document type declares attribute lists"_s};
    QTest::newRow("not ours") << u"notes.txt"_s << QByteArray("text")
        << QStringList{u"0:0: neither a solution"_s};
}

void tst_FileCheck::reportsWhereTheProblemIs()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);
    QTemporaryDir dir;
    const QString path = dir.filePath(name);
    QVERIFY(writeFile(path, bytes));
    if (QTest::currentDataTag() == QLatin1String("attribute lists refused"))
        QTest::ignoreMessage(QtWarningMsg, "FileCheck::check(): the document type declares "
                                           "attribute lists; nothing is loaded");

    const QList<FileProblem> problems = FileCheck::check(path);
    QCOMPARE(problems.size(), expected.size());
    for (qsizetype i = 0; i < problems.size(); ++i) {
        const FileProblem &problem = problems.at(i);
        QCOMPARE(problem.file, path);
        const QString got = u"%1:%2: %3"_s.arg(problem.line).arg(problem.column).arg(problem.message);
        QVERIFY2(got.startsWith(expected.at(i)) || problem.message.startsWith(expected.at(i)),
                 qPrintable(got));
    }
}

void tst_FileCheck::checksTheProjectsASolutionLists()
{
    // A broken project is reported under its own name, once even when listed twice.
    QTemporaryDir dir;
    const QString project = dir.filePath(u"a/a.qprj"_s), solution = dir.filePath(u"s.sln-qel"_s);
    QVERIFY(QDir(dir.path()).mkpath(u"a"_s)
            && writeFile(project, header + "<project>\n<item>\n</project>\n")
            && writeFile(solution, header + "<solution>\n"
                         "<project typeid=\"t\" name=\"a\" path=\"a/a.qprj\"/>\n<project "
                         "typeid=\"t\" name=\"b\" path=\"./a/../a/a.qprj\"/>\n</solution>\n"));

    const QList<FileProblem> problems = FileCheck::check(solution);
    QStringList files;
    for (const FileProblem &problem : problems)
        files.append(problem.file);
    QCOMPARE(files, QStringList({project, project, project}));
    QCOMPARE(problems.last().line, 4);
}

VELMORA_TEST(tst_FileCheck);
#include "tst_filecheck.moc"
