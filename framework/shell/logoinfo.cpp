#include "shell/logoinfo.h"

#include "core/logging_p.h"
#include "core/prompts.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qpointer.h>
#include <QtCore/qurl.h>
#include <QtGui/qdesktopservices.h>
#include <QtGui/qevent.h>
#include <QtWidgets/qdialog.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qpushbutton.h>
#include <QtXml/qdom.h>

#include <memory>

namespace Velmora::Framework {

namespace {

const QString trueText = QStringLiteral("true");
const char improperRect[] = "ERROR: improper rect attribute value in XML";
const char shortRect[] = "ERROR: not enough elements in attribute rect in XML";
// A button's file is shown in a message box; anything longer is not an about text.
constexpr qint64 maxButtonFileSize = 1 << 20;

QList<int> rectNumbers(const QDomElement &element)
{
    QList<int> numbers;
    const QStringList parts = element.attribute(QStringLiteral("rect")).split(QLatin1Char(','));
    for (const QString &part : parts) {
        bool ok = false;
        const int number = part.trimmed().toInt(&ok);
        if (ok)
            numbers.append(number);
    }
    return numbers;
}

// Places a link or button by its rect; false (after the warning) ends that element kind.
bool placeWidget(QWidget *widget, const QDomElement &element)
{
    const QList<int> numbers = rectNumbers(element);
    if (numbers.size() < 2) {
        qCWarning(Internal::lcShell, improperRect);
        return false;
    }
    widget->move(numbers.at(0), numbers.at(1));
    if (numbers.size() == 4) {
        widget->resize(numbers.at(2), numbers.at(3));
    } else {
        qCWarning(Internal::lcShell, shortRect);
        widget->adjustSize();
    }
    return true;
}

// Opens its label's link when the label is clicked.
class LinkOpener : public QObject
{
public:
    LinkOpener(const QUrl &url, QObject *parent)
        : QObject(parent), m_url(url)
    {
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonRelease
            && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
            QDesktopServices::openUrl(m_url);
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QUrl m_url;
};

} // namespace

class LogoInfoPrivate
{
public:
    // The child elements of the layout's root with the given tag, in document order.
    QList<QDomElement> elements(const QString &tag) const;
    QString resolve(const QString &path) const;
    const QPixmap &secondImage();

    QPointer<QDialog> aboutBox;
    QPixmap splashImage;
    // Decoded when the about box first needs it, not while the workbench starts.
    QPixmap second;
    QString secondPath;
    QDomDocument layout;
    bool border = false;
    QString version = QStringLiteral("0.0.0");
    QString build;
    // Relative paths in the layout are relative to its file.
    QDir layoutFolder;
};

QList<QDomElement> LogoInfoPrivate::elements(const QString &tag) const
{
    QList<QDomElement> found;
    for (QDomElement element = layout.documentElement().firstChildElement(tag);
         !element.isNull(); element = element.nextSiblingElement(tag))
        found.append(element);
    return found;
}

QString LogoInfoPrivate::resolve(const QString &path) const
{
    return path.isEmpty() ? path : layoutFolder.absoluteFilePath(path);
}

const QPixmap &LogoInfoPrivate::secondImage()
{
    if (!secondPath.isEmpty()) {
        second.load(secondPath);
        secondPath.clear();
    }
    return second;
}

LogoInfo::LogoInfo(QObject *parent)
    : QObject(parent), d(std::make_unique<LogoInfoPrivate>())
{
}

LogoInfo::~LogoInfo() = default;

bool LogoInfo::isValid() const
{
    return !d->splashImage.isNull() || d->aboutBox;
}

QPixmap LogoInfo::getSplashImage() const
{
    return d->splashImage;
}

QPixmap LogoInfo::getSecondImage() const
{
    return d->secondImage();
}

bool LogoInfo::hasBorder() const
{
    return d->border;
}

QString LogoInfo::getVersion() const
{
    return d->version;
}

QString LogoInfo::getBuild() const
{
    return d->build;
}

void LogoInfo::setVersion(const QString &version)
{
    d->version = version;
}

void LogoInfo::setBuild(const QString &build)
{
    d->build = build;
}

void LogoInfo::setLogoConfigPath(const QString &path)
{
    d->layout.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qCCritical(Internal::lcShell, "ERROR Cannot read file %s:\n%s.\n", qPrintable(path),
                   qPrintable(file.errorString()));
        return;
    }
    d->layoutFolder = QFileInfo(path).absoluteDir();
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    const QDomDocument::ParseResult result = d->layout.setContent(&file);
    if (!result) {
        qCCritical(Internal::lcShell, "ERROR %s\n line: %d, column: %d\n",
                   qPrintable(result.errorMessage), int(result.errorLine), int(result.errorColumn));
        d->layout.clear();
        return;
    }
#else
    QString message;
    int line = 0;
    int column = 0;
    if (!d->layout.setContent(&file, &message, &line, &column)) {
        qCCritical(Internal::lcShell, "ERROR %s\n line: %d, column: %d\n", qPrintable(message),
                   line, column);
        d->layout.clear();
        return;
    }
#endif
    const QDomElement root = d->layout.documentElement();
    if (root.tagName() != QLatin1String("aboutlayout"))
        qCWarning(Internal::lcShell, "ERROR aboutlayout not found.\n");
    const QString image = root.attribute(QStringLiteral("image"));
    if (!image.isEmpty())
        d->splashImage.load(d->resolve(image));
    d->second = QPixmap();
    d->secondPath = d->resolve(root.attribute(QStringLiteral("splash")));
    d->border = root.attribute(QStringLiteral("border"), QStringLiteral("off"))
        != QLatin1String("off");
}

void LogoInfo::setLogoImagePath(const QString &path, bool overwrite)
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return;
    if (overwrite || d->splashImage.isNull())
        d->splashImage.load(path);
}

void LogoInfo::setAboutBox(QDialog *dialog)
{
    d->aboutBox = dialog;
}

void LogoInfo::showAboutBox()
{
    // The executable's own dialog when it gave one; otherwise a plain one owned here.
    std::unique_ptr<QDialog> own;
    QDialog *dialog = d->aboutBox;
    if (!dialog) {
        own = std::make_unique<QDialog>();
        dialog = own.get();
        dialog->setWindowTitle(tr("About"));
        if (!d->border)
            dialog->setWindowFlag(Qt::FramelessWindowHint);
        const QPixmap &background = d->secondImage();
        if (!background.isNull()) {
            dialog->setFixedSize(background.size());
            QPalette palette = dialog->palette();
            palette.setBrush(QPalette::Window, background);
            dialog->setPalette(palette);
            dialog->setAutoFillBackground(true);
        }
    }
    if (!d->layout.isNull()) {
        processText(dialog, false);
        processButton(dialog);
        processLink(dialog, false);
    }
    Prompts::exec(dialog);
}

QString LogoInfo::substituteText(const QString &text) const
{
    // Unconditional on purpose: layouts write the plain name.
    QString result = text;
    result.replace(QStringLiteral("Velmora"), QStringLiteral("Velmora64"));
    result.replace(QStringLiteral("$$version_str"), d->version);
    result.replace(QStringLiteral("$$build_str"), d->build);
    return result;
}

void LogoInfo::processText(QWidget *widget, bool splash)
{
    for (const QDomElement &element : d->elements(QStringLiteral("text"))) {
        // The splash shows the leading run of marked texts only.
        if (splash && element.attribute(QStringLiteral("splash")) != trueText)
            return;
        const QList<int> numbers = rectNumbers(element);
        if (numbers.size() != 4) {
            qCWarning(Internal::lcShell, improperRect);
            continue;
        }
        auto *label = new QLabel(substituteText(element.text()), widget);
        label->setGeometry(numbers.at(0), numbers.at(1), numbers.at(2), numbers.at(3));
        label->setStyleSheet(QStringLiteral("color: white; font-size: 12pt;"));
        label->setWordWrap(element.attribute(QStringLiteral("wrap")) == trueText);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label->show();
    }
}

void LogoInfo::processLink(QWidget *widget, bool splash)
{
    for (const QDomElement &element : d->elements(QStringLiteral("link"))) {
        if (splash && element.attribute(QStringLiteral("splash")) != trueText)
            return;
        const QString url = element.attribute(QStringLiteral("url")).trimmed();
        if (url.isEmpty() || url.contains(QLatin1Char(' ')))
            return;
        QString text = element.attribute(QStringLiteral("label"));
        auto *label = new QLabel(substituteText(text.isEmpty() ? url : text), widget);
        // Styled first: the natural size depends on the font.
        label->setStyleSheet(
            QStringLiteral("color: white; font-size: 12pt; text-decoration: underline;"));
        if (!placeWidget(label, element)) {
            delete label;
            return;
        }
        label->setCursor(Qt::PointingHandCursor);
        label->setToolTip(url);
        label->installEventFilter(new LinkOpener(QUrl::fromUserInput(url), label));
        label->show();
    }
}

void LogoInfo::processButton(QWidget *widget)
{
    for (const QDomElement &element : d->elements(QStringLiteral("button"))) {
        const QString title = element.attribute(QStringLiteral("label"));
        auto *button = new QPushButton(title, widget);
        if (!placeWidget(button, element)) {
            delete button;
            return;
        }
        QString content = element.text().trimmed();
        QFile file(d->resolve(element.attribute(QStringLiteral("file"))));
        if (!file.fileName().isEmpty() && file.size() <= maxButtonFileSize
            && file.open(QIODevice::ReadOnly | QIODevice::Text))
            content = QString::fromUtf8(file.readAll());
        connect(button, &QPushButton::clicked, button, [button, title, content] {
            Prompts::information(button->window(), title, content);
        });
        button->show();
    }
}

} // namespace Velmora::Framework
