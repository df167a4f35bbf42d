#include "testsupport.h"

#include "dialogs/optionpagegeneral.h"

#include <QtCore/qfile.h>
#include <QtCore/qlocale.h>
#include <QtCore/qprocess.h>
#include <QtCore/qset.h>
#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtCore/qxmlstream.h>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

namespace {

const QString catalogue =
    QStringLiteral(VELMORA_SOURCE_DIR "/framework/resources/translations/qelshared_zh.ts");

// The key (context, source and comment) of every message of a .ts file, and in open those not
// finished: an empty translation, or one typed unfinished, vanished or obsolete. False when
// the file cannot be read or parsed.
bool readCatalogue(const QString &path, QStringList *keys, QStringList *open)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QXmlStreamReader xml(&file);
    QString context, key, type, translation;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement() && xml.name() == "message"_L1) {
            keys->append(key);
            if (!type.isEmpty() || translation.isEmpty())
                open->append(type + u' ' + key);
        }
        if (!xml.isStartElement())
            continue;
        const auto name = xml.name();
        if (name == "name"_L1) {
            context = xml.readElementText();
        } else if (name == "message"_L1) {
            key = context;
            type.clear();
            translation.clear();
        } else if (name == "source"_L1 || name == "comment"_L1) {
            key += u'\x1f' + xml.readElementText();
        } else if (name == "translation"_L1) {
            type = xml.attributes().value("type"_L1).toString();
            translation = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        }
    }
    return !xml.hasError();
}

QString readable(QStringList keys)
{
    keys.sort();
    return keys.join(u'\n').replace(u'\x1f', u'|');
}

} // namespace

class tst_Translations : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    // Every text of the committed catalogue is translated, and lupdate finds in the sources
    // exactly the texts that the catalogue holds.
    void catalogueIsFinishedAndCurrent()
    {
        QStringList committed, open;
        QVERIFY2(readCatalogue(catalogue, &committed, &open), qPrintable(catalogue));
        QVERIFY(!committed.isEmpty());
        QVERIFY2(open.isEmpty(), qPrintable(u"Unfinished or obsolete texts:\n"_s + readable(open)));

        QTemporaryDir scratch;
        const QString fresh = scratch.filePath(u"fresh_zh.ts"_s);
        QProcess lupdate;
        lupdate.setProcessChannelMode(QProcess::MergedChannels);
        lupdate.start(QStringLiteral(VELMORA_LUPDATE),
                      {QStringLiteral(VELMORA_SOURCE_DIR "/framework"),
                       QStringLiteral(VELMORA_SOURCE_DIR "/ribdock"), u"-locations"_s,
                       u"none"_s, u"-ts"_s, fresh});
        QVERIFY2(lupdate.waitForFinished(120000), "lupdate did not finish");
        QVERIFY2(lupdate.exitStatus() == QProcess::NormalExit && lupdate.exitCode() == 0,
                 lupdate.readAll().constData());

        QStringList found, unfinished;
        QVERIFY(readCatalogue(fresh, &found, &unfinished));
        const QSet<QString> inSources(found.begin(), found.end());
        const QSet<QString> inCatalogue(committed.begin(), committed.end());
        const QStringList missing = (inSources - inCatalogue).values();
        const QStringList stale = (inCatalogue - inSources).values();
        QVERIFY2(missing.isEmpty() && stale.isEmpty(),
                 qPrintable(u"Refresh the catalogue (target VelmoraFramework_lupdate).\n"
                            u"Not in the catalogue:\n"_s + readable(missing)
                            + u"\nNo longer in the sources:\n"_s + readable(stale)));
        QCOMPARE(found.size(), committed.size());
    }

    void chosenLanguage_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("chose Chinese") << QVariant(u"zh_CN"_s) << u"en_US"_s << u"zh_CN"_s;
        QTest::newRow("chose English") << QVariant(u"en"_s) << u"zh_CN"_s << u"en"_s;
        QTest::newRow("unknown value") << QVariant(u"fr"_s) << u"zh_CN"_s << u"en"_s;
        QTest::newRow("nothing, Chinese locale") << QVariant() << u"zh_TW"_s << u"zh_CN"_s;
        QTest::newRow("nothing, other locale") << QVariant() << u"de_DE"_s << u"en"_s;
    }

    void chosenLanguage()
    {
        QFETCH(QVariant, stored);
        QFETCH(QString, locale);
        QFETCH(QString, chosen);
        QTemporaryDir scratch;
        QSettings settings(scratch.filePath(u"settings.ini"_s), QSettings::IniFormat);
        if (stored.isValid())
            settings.setValue(OptionPageGeneral::languageSettingPath(), stored);
        const QLocale previous;
        QLocale::setDefault(QLocale(locale));
        const QString answer = OptionPageGeneral::chosenLanguage(settings);
        QLocale::setDefault(previous);
        QCOMPARE(answer, chosen);
    }
};

VELMORA_TEST(tst_Translations);

#include "tst_translations.moc"
