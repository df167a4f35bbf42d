#include "types/dialogaddnewproject.h"

#include "core/prompts.h"
#include "types/itemtype.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtWidgets/qgridlayout.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qpushbutton.h>

namespace Velmora::Framework {

class DialogAddNewProjectPrivate
{
public:
    QLineEdit *locationEdit = nullptr;
    QPushButton *browseButton = nullptr;
};

DialogAddNewProject::DialogAddNewProject(ViewItem *solutionItem,
                                         const QList<ItemType *> &candidates, QWidget *parent)
    : DialogAddNewBase(solutionItem, candidates, QStringLiteral("QelDialogAddNewProject"),
                       tr("Add New Project"), tr("Select Project Type:"), parent)
    , d(std::make_unique<DialogAddNewProjectPrivate>())
{
    QFile styleSheet(QStringLiteral(":/qelshared/styles/newProjectDialog.css"));
    if (styleSheet.open(QIODevice::ReadOnly | QIODevice::Text))
        setStyleSheet(QString::fromUtf8(styleSheet.readAll()));

    auto *locationLabel = new QLabel(tr("Location:"), this);
    locationLabel->setObjectName(QStringLiteral("locationLabel"));
    d->locationEdit = new QLineEdit(this);
    d->locationEdit->setObjectName(QStringLiteral("locationLineEdit"));
    locationLabel->setBuddy(d->locationEdit);
    d->browseButton = new QPushButton(tr("Browse..."), this);
    d->browseButton->setObjectName(QStringLiteral("browsePushButton"));
    // Browsing must not steal Return from OK.
    d->browseButton->setAutoDefault(false);
    fieldLayout()->addWidget(locationLabel, 1, 0);
    fieldLayout()->addWidget(d->locationEdit, 1, 1);
    fieldLayout()->addWidget(d->browseButton, 1, 2);

    connect(d->browseButton, &QPushButton::clicked, this, &DialogAddNewProject::browse);

    // Only now can typeChanged() reach the location controls.
    selectFirstCandidate();
}

DialogAddNewProject::~DialogAddNewProject() = default;

QString DialogAddNewProject::location() const
{
    return d->locationEdit->text();
}

void DialogAddNewProject::setLocation(const QString &location)
{
    d->locationEdit->setText(location);
}

void DialogAddNewProject::typeChanged(ItemType *type)
{
    const bool choosable = type && type->testAttribute(ItemType::LocationChoosable);
    d->locationEdit->setEnabled(choosable);
    d->browseButton->setEnabled(choosable);
}

void DialogAddNewProject::browse()
{
    QString start = d->locationEdit->text();
    if (start.isEmpty())
        start = QDir::currentPath();
    const QString chosen = Prompts::getExistingDirectory(
        this, tr("Choose a location for the project"), start, QFileDialog::ShowDirsOnly);
    if (!chosen.isEmpty())
        d->locationEdit->setText(chosen);
}

} // namespace Velmora::Framework
