#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qobject.h>
#include <QtGui/qpixmap.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QDialog;
class QWidget;
QT_END_NAMESPACE

namespace Velmora::Framework {

class LogoInfoPrivate;

// The workbench's branding: version and build strings, the splash image, an about dialog of
// the executable's own and an "aboutlayout" XML file that lays out texts, links and buttons
// on the splash screen and in the about box.
class VELMORA_FRAMEWORK_EXPORT LogoInfo : public QObject
{
    Q_OBJECT

public:
    explicit LogoInfo(QObject *parent = nullptr);
    ~LogoInfo() override;

    // True with a splash image or an about box of the executable's own.
    bool isValid() const;
    QPixmap getSplashImage() const;
    // The layout root's "splash" image, drawn behind the about box's contents.
    QPixmap getSecondImage() const;
    // The layout root's "border" attribute: whether the about box keeps its window frame.
    bool hasBorder() const;
    QString getVersion() const;
    QString getBuild() const;
    void setVersion(const QString &version);
    void setBuild(const QString &build);

    // Reads the layout; an unreadable or malformed file leaves it empty, with a message.
    void setLogoConfigPath(const QString &path);
    // Loads the splash image when path names an existing file; with overwrite false, an image
    // already loaded is kept.
    void setLogoImagePath(const QString &path, bool overwrite = true);
    // The executable's own about dialog; borrowed. Its presence makes the branding valid.
    void setAboutBox(QDialog *dialog);
    void showAboutBox();

    // Replaces "Velmora", then "$$version_str" and "$$build_str".
    QString substituteText(const QString &text) const;

    // Each builds one kind of layout element as direct children of widget, in document
    // order; for the splash screen only the leading elements marked splash="true".
    void processText(QWidget *widget, bool splash);
    void processLink(QWidget *widget, bool splash);
    void processButton(QWidget *widget);

private:
    std::unique_ptr<LogoInfoPrivate> const d;
};

} // namespace Velmora::Framework
