#include "testsupport.h"
#include "testtypes.h"

#include "shell/logoinfo.h"

#include <QtCore/qtemporarydir.h>
#include <QtGui/qimage.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qpushbutton.h>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

class tst_LogoInfo : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_dir = std::make_unique<QTemporaryDir>();
    }
    void layoutElements();
    void badLayouts();
    void validityAndText();

private:
    QString write(const QString &name, const QByteArray &content)
    {
        const QString path = m_dir->filePath(name);
        return Velmora::Tests::writeFile(path, content) ? path : QString();
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

// Texts of the labels (or buttons) among widget's direct children, in creation order.
template <typename Widget>
QStringList texts(QWidget *widget)
{
    QStringList found;
    for (Widget *child : widget->findChildren<Widget *>(Qt::FindDirectChildrenOnly))
        found.append(child->text());
    return found;
}

void tst_LogoInfo::layoutElements()
{
    QVERIFY(!write(u"licence.txt"_s, "Licence text").isEmpty());
    const QString path = write(u"about.xml"_s, R"(<aboutlayout border="on">
        <text rect="0,0,200,20" splash="true">Velmora $$version_str ($$build_str)</text>
        <text rect="0,20,200,20">not on the splash</text>
        <text rect="0,40,200,20" splash="true">after the unmarked one</text>
        <link rect="10,20" url=" https://example.org/ " label="Site" splash="true"/>
        <link rect="0,0,50,20" url="two words" label="Never"/>
        <link rect="0,0,50,20" url="https://example.org/later" label="Later"/>
        <button rect="5,5,80,24,1" label="Licence" file="licence.txt">ignored</button>
        <button rect="x" label="Broken"/>
        <button rect="0,0,80,24" label="Not reached"/>
    </aboutlayout>)");
    LogoInfo logo;
    logo.setVersion(u"1.2"_s);
    logo.setBuild(u"b7"_s);
    logo.setLogoConfigPath(path);
    QVERIFY(logo.hasBorder());

    // The splash stops at the first element that is not marked for it.
    QWidget splash;
    logo.processText(&splash, true);
    QCOMPARE(texts<QLabel>(&splash), QStringList{u"Velmora64 1.2 (b7)"_s});
    QTest::ignoreMessage(QtWarningMsg, "ERROR: not enough elements in attribute rect in XML");
    logo.processLink(&splash, true);
    QCOMPARE(texts<QLabel>(&splash), (QStringList{u"Velmora64 1.2 (b7)"_s, u"Site"_s}));
    const QLabel *site = splash.findChildren<QLabel *>(Qt::FindDirectChildrenOnly).at(1);
    QCOMPARE(site->pos(), QPoint(10, 20));
    QCOMPARE(site->size(), site->sizeHint());

    // The box shows every text; a link with a blank in its url ends the links.
    QWidget box;
    logo.processText(&box, false);
    QCOMPARE(texts<QLabel>(&box).size(), 3);
    QTest::ignoreMessage(QtWarningMsg, "ERROR: not enough elements in attribute rect in XML");
    logo.processLink(&box, false);
    QCOMPARE(texts<QLabel>(&box).size(), 4);

    // Five numbers warn and keep the natural size; a rect without numbers ends the buttons.
    QTest::ignoreMessage(QtWarningMsg, "ERROR: not enough elements in attribute rect in XML");
    QTest::ignoreMessage(QtWarningMsg, "ERROR: improper rect attribute value in XML");
    logo.processButton(&box);
    QCOMPARE(texts<QPushButton>(&box), QStringList{u"Licence"_s});
}

void tst_LogoInfo::badLayouts()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    LogoInfo logo;
    const QString missing = m_dir->filePath(u"missing.xml"_s);
    QTest::ignoreMessage(QtCriticalMsg,
                         QRegularExpression(u"^ERROR Cannot read file "_s
                                            + QRegularExpression::escape(missing)
                                            + u":\n.+\\.\n$"_s));
    logo.setLogoConfigPath(missing);

    QTest::ignoreMessage(QtCriticalMsg,
                         QRegularExpression(u"^ERROR .+\n line: 2, column: \\d+\n$"_s));
    logo.setLogoConfigPath(write(u"broken.xml"_s, "<aboutlayout>\n<text></aboutlayout>"));
    QWidget empty;
    logo.processText(&empty, false);
    QVERIFY(empty.children().isEmpty());

    // A foreign root is reported but still read.
    QTest::ignoreMessage(QtWarningMsg, "ERROR aboutlayout not found.\n");
    logo.setLogoConfigPath(write(u"other.xml"_s, R"(<layout><text rect="0,0,9,9">t</text></layout>)"));
    logo.processText(&empty, false);
    QCOMPARE(texts<QLabel>(&empty), QStringList{u"t"_s});
}

void tst_LogoInfo::validityAndText()
{
    LogoInfo logo;
    QVERIFY(!logo.isValid());
    logo.setLogoImagePath(m_dir->filePath(u"none.png"_s));
    QVERIFY(!logo.isValid());

    QImage image(8, 4, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const QString png = m_dir->filePath(u"logo.png"_s);
    QVERIFY(image.save(png));
    logo.setLogoImagePath(png);
    QVERIFY(logo.isValid());
    QCOMPARE(logo.getSplashImage().size(), QSize(8, 4));
    // The layout's "splash" picture is the about box's, read when first asked for; a layout
    // without one leaves none of the previous layout's behind.
    image = image.scaled(6, 3);
    QVERIFY(image.save(m_dir->filePath(u"about.png"_s)));
    logo.setLogoConfigPath(write(u"pictures.xml"_s, R"(<aboutlayout image="logo.png" splash="about.png"/>)"));
    QCOMPARE(logo.getSecondImage().size(), QSize(6, 3));
    logo.setLogoConfigPath(write(u"nosecond.xml"_s, R"(<aboutlayout image="logo.png"/>)"));
    QVERIFY(logo.getSecondImage().isNull());

    // The name is replaced unconditionally, so an already suffixed name gains a second suffix.
    logo.setVersion(u"2.0"_s);
    QCOMPARE(logo.substituteText(u"Velmora64 $$version_str$$build_str"_s),
             u"Velmora6464 2.0"_s);
}

VELMORA_TEST(tst_LogoInfo);
#include "tst_logoinfo.moc"
