#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qdialog.h>

#include <memory>

namespace Velmora::Framework {

class AppInstallDialogPrivate;

// Asks for the folder of an app to install and shows what its manifest ("app.ini") says;
// OK is enabled only for a folder whose manifest is valid.
class VELMORA_FRAMEWORK_EXPORT AppInstallDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AppInstallDialog(QWidget *parent = nullptr);
    ~AppInstallDialog() override;

    QString folder() const;
    void setFolder(const QString &folder);

private:
    void browse();
    void inspect();

    std::unique_ptr<AppInstallDialogPrivate> const d;
};

} // namespace Velmora::Framework
