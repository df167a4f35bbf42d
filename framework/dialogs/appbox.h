#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qstringlist.h>
#include <QtWidgets/qwidget.h>

#include <memory>

namespace Velmora::Framework {

class AppBoxPrivate;

// The installed apps, listed in the custom app file, as a gallery of buttons that start them.
// A custom file that cannot be read is reported once and never written over.
class VELMORA_FRAMEWORK_EXPORT AppBox : public QWidget
{
    Q_OBJECT

public:
    explicit AppBox(const QString &customFile, QWidget *parent = nullptr);
    ~AppBox() override;

    QString customFile() const;
    // false while the custom file is unreadable: nothing is shown and nothing is written.
    bool isUsable() const;
    // The names of the apps shown, in the file's order.
    QStringList appNames() const;

    // Adds the app whose manifest folder holds and rewrites the custom file; false, with a
    // user-readable reason in *error, when the manifest or the file refuses.
    bool addApp(const QString &folder, QString *error);
    // Starts the app at index in its own folder; false when it cannot be started.
    bool startApp(int index);

public Q_SLOTS:
    // Asks for an app folder through the install dialog and adds it.
    void installApp();
    // Reads the custom file again.
    void reload();

private:
    void rebuildButtons();

    std::unique_ptr<AppBoxPrivate> const d;
};

} // namespace Velmora::Framework
