#include "testsupport.h"

#include "core/lazyicon.h"

#include <QtGui/qimage.h>
#include <QtGui/qpixmap.h>

using namespace Velmora::Framework;

class tst_LazyIcon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drawsAsTheIconOfItsFile();
};

void tst_LazyIcon::drawsAsTheIconOfItsFile()
{
    const QString path = QStringLiteral(":/qelshared/images/16/undo.svg");
    const QIcon lazy = lazyIcon(path);
    const QIcon plain(path);
    QVERIFY(!lazy.isNull());
    QCOMPARE(lazy.pixmap(16).toImage(), plain.pixmap(16).toImage());
    QCOMPARE(lazy.actualSize(QSize(24, 24)), plain.actualSize(QSize(24, 24)));
    // On a high-density screen the pixels follow the ratio, as a plain icon's do.
    const QPixmap sharp = lazy.pixmap(QSize(16, 16), 2.0);
    QCOMPARE(sharp.size(), QSize(32, 32));
    QCOMPARE(sharp.devicePixelRatio(), 2.0);
    QCOMPARE(sharp.toImage(), plain.pixmap(QSize(16, 16), 2.0).toImage());

    QVERIFY(lazyIcon(QStringLiteral(":/no/such/icon.svg")).isNull());
    QVERIFY(lazyIcon(QString()).isNull());
}

VELMORA_TEST(tst_LazyIcon);
#include "tst_lazyicon.moc"
