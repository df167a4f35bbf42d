#include "core/lazyicon.h"

#include <QtCore/qfileinfo.h>
#include <QtGui/qiconengine.h>

namespace Velmora::Framework {

namespace {

// Answers through the icon Qt makes of the file, once something needs its pixels or sizes.
class LazyIconEngine : public QIconEngine
{
public:
    explicit LazyIconEngine(const QString &fileName) : m_fileName(fileName) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        icon().paint(painter, rect, Qt::AlignCenter, mode, state);
    }

    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return icon().actualSize(size, mode, state);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return icon().pixmap(size, 1.0, mode, state);
    }

    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override
    {
        return icon().pixmap(size / scale, scale, mode, state);
    }

    void addPixmap(const QPixmap &pixmap, QIcon::Mode mode, QIcon::State state) override
    {
        icon().addPixmap(pixmap, mode, state);
    }

    void addFile(const QString &fileName, const QSize &size, QIcon::Mode mode,
                 QIcon::State state) override
    {
        icon().addFile(fileName, size, mode, state);
    }

    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override
    {
        return icon().availableSizes(mode, state);
    }

    // Widgets ask this while they lay out; whether the file is there is enough until drawn.
    bool isNull() override
    {
        return m_loaded ? m_icon.isNull() : !QFileInfo::exists(m_fileName);
    }

    QString key() const override { return QStringLiteral("VelmoraLazyIcon"); }

    QIconEngine *clone() const override { return new LazyIconEngine(*this); }

private:
    QIcon &icon()
    {
        if (!m_loaded) {
            m_icon = QIcon(m_fileName);
            m_loaded = true;
        }
        return m_icon;
    }

    QString m_fileName;
    QIcon m_icon;
    bool m_loaded = false;
};

} // namespace

QIcon lazyIcon(const QString &fileName)
{
    return fileName.isEmpty() ? QIcon() : QIcon(new LazyIconEngine(fileName));
}

} // namespace Velmora::Framework
