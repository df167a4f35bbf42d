#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qapplication.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QDialog;
class QMimeData;
QT_END_NAMESPACE

namespace Velmora::Framework {

class ApplicationPrivate;
class Environment;

// The workbench's application object: installs the translations, builds the environment,
// shows the splash screen while the providers start, then the main window, and runs the
// event loop. Set the branding between construction and run().
class VELMORA_FRAMEWORK_EXPORT Application : public QApplication
{
    Q_OBJECT

public:
    // Names left empty are filled in by run().
    Application(int &argc, char **argv, QString organizationDomain, QString organizationName,
                QString applicationName);
    ~Application() override;

    // The event loop's exit code; -1 without a main window.
    virtual int run();
    virtual void setLogoImagePath(const QString &path, bool overwrite);
    virtual void setLogoConfigPath(const QString &path);
    // The executable's own about dialog; borrowed.
    virtual void setAboutBox(QDialog *dialog);
    virtual void setIDEWindowTitle(const QString &title);
    virtual void setVersionString(const QString &version);
    virtual void setBuildString(const QString &build);

    void setVersion(const QString &version);
    QString version() const;
    Environment *environment() const;

    // The name run() gives the organisation (domain and name) when none was given.
    static QString defaultOrganization();

    // A new, empty mime data, owned by the caller.
    static QMimeData *createClipboardMimeData();
    // Frees what createClipboardMimeData made; null is ignored.
    static void deleteClipboardMimeData(QMimeData *mime);

private:
    std::unique_ptr<ApplicationPrivate> const d;
};

} // namespace Velmora::Framework
