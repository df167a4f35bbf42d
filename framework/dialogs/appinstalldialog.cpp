#include "appinstalldialog.h"

#include "core/prompts.h"
#include "dialogs/appmanifest_p.h"

#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qdialogbuttonbox.h>
#include <QtWidgets/qformlayout.h>
#include <QtWidgets/qgroupbox.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qpushbutton.h>

namespace Velmora::Framework {

class AppInstallDialogPrivate
{
public:
    QLineEdit *folder = nullptr;
    QLabel *icon = nullptr;
    QLabel *name = nullptr;
    QLabel *description = nullptr;
    QLabel *status = nullptr;
    QPushButton *okButton = nullptr;
};

AppInstallDialog::AppInstallDialog(QWidget *parent)
    : QDialog(parent), d(std::make_unique<AppInstallDialogPrivate>())
{
    setObjectName(QStringLiteral("AppInstallDialog"));
    setWindowTitle(tr("Install App"));

    d->folder = new QLineEdit;
    d->folder->setObjectName(QStringLiteral("AppFolder"));
    d->folder->setPlaceholderText(tr("Folder that holds the app and its app.ini"));
    auto *browse = new QPushButton(tr("Browse..."));
    auto *folderRow = new QHBoxLayout;
    folderRow->addWidget(d->folder, 1);
    folderRow->addWidget(browse);

    d->icon = new QLabel;
    d->icon->setFixedSize(48, 48);
    d->icon->setAlignment(Qt::AlignCenter);
    d->name = new QLabel;
    QFont bold = d->name->font();
    bold.setBold(true);
    d->name->setFont(bold);
    d->description = new QLabel;
    d->description->setWordWrap(true);
    d->status = new QLabel;
    d->status->setObjectName(QStringLiteral("AppStatus"));
    d->status->setWordWrap(true);

    auto *texts = new QVBoxLayout;
    texts->addWidget(d->name);
    texts->addWidget(d->description);
    texts->addStretch(1);
    auto *preview = new QGroupBox(tr("App"));
    auto *previewLayout = new QHBoxLayout(preview);
    previewLayout->addWidget(d->icon, 0, Qt::AlignTop);
    previewLayout->addLayout(texts, 1);

    auto *form = new QFormLayout;
    form->addRow(tr("Folder:"), folderRow);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    d->okButton = buttons->button(QDialogButtonBox::Ok);
    d->okButton->setText(tr("Install"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(preview);
    layout->addWidget(d->status);
    layout->addStretch(1);
    layout->addWidget(buttons);
    resize(520, 300);

    connect(browse, &QPushButton::clicked, this, &AppInstallDialog::browse);
    connect(d->folder, &QLineEdit::textChanged, this, &AppInstallDialog::inspect);
    inspect();
}

AppInstallDialog::~AppInstallDialog() = default;

QString AppInstallDialog::folder() const
{
    return d->folder->text().trimmed();
}

void AppInstallDialog::setFolder(const QString &folder)
{
    d->folder->setText(folder);
}

void AppInstallDialog::browse()
{
    const QString chosen = Prompts::getExistingDirectory(this, tr("Choose the app's folder"),
                                                         folder(), QFileDialog::ShowDirsOnly);
    if (!chosen.isEmpty())
        setFolder(chosen);
}

void AppInstallDialog::inspect()
{
    QString reason;
    const std::optional<Internal::AppEntry> app =
        folder().isEmpty() ? std::nullopt : Internal::readAppManifest(folder(), &reason);
    d->okButton->setEnabled(app.has_value());
    d->name->setText(app ? app->name : tr("No app chosen"));
    d->description->setText(app ? app->description : QString());
    const QIcon icon(app && !app->iconPath().isEmpty()
                         ? app->iconPath()
                         : QStringLiteral(":/framework/dialogs/images/app.svg"));
    d->icon->setPixmap(icon.pixmap(32, 32));
    d->icon->setEnabled(app.has_value());
    // The manifest's own words are English diagnostics; the sentence around them is ours.
    d->status->setText(app || folder().isEmpty()
                           ? QString()
                           : tr("This folder holds no app that can be installed: %1.").arg(reason));
}

} // namespace Velmora::Framework
