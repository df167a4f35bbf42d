#include "appbox.h"

#include "core/lazyicon.h"
#include "core/logging_p.h"
#include "core/prompts.h"
#include "dialogs/appinstalldialog.h"
#include "dialogs/appmanifest_p.h"

#include <QtCore/qdir.h>
#include <QtCore/qprocess.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qscrollarea.h>
#include <QtWidgets/qtoolbutton.h>

namespace Velmora::Framework {

class AppBoxPrivate
{
public:
    QString customFile;
    bool usable = false;
    QList<Internal::AppEntry> apps; // every entry of the file, shown or not
    QList<int> shown; // indexes into apps of the entries with a button
    QWidget *strip = nullptr;
    QHBoxLayout *buttons = nullptr;
};

AppBox::AppBox(const QString &customFile, QWidget *parent)
    : QWidget(parent), d(std::make_unique<AppBoxPrivate>())
{
    setObjectName(QStringLiteral("AppBox"));
    d->customFile = customFile;

    d->strip = new QWidget;
    d->buttons = new QHBoxLayout(d->strip);
    d->buttons->setContentsMargins(2, 2, 2, 2);
    d->buttons->setSpacing(2);
    auto *scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(d->strip);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll);

    reload();
}

AppBox::~AppBox() = default;

QString AppBox::customFile() const
{
    return d->customFile;
}

bool AppBox::isUsable() const
{
    return d->usable;
}

QStringList AppBox::appNames() const
{
    QStringList names;
    for (int index : std::as_const(d->shown))
        names.append(d->apps.at(index).name);
    return names;
}

void AppBox::reload()
{
    QString reason;
    d->usable = Internal::readAppList(d->customFile, &d->apps, &reason);
    if (!d->usable)
        qCWarning(Internal::lcDialogs, "AppBox: %s cannot be read (%s); it is left untouched",
                  qPrintable(d->customFile), qPrintable(reason));
    d->shown.clear();
    for (int i = 0; i < d->apps.size(); ++i) {
        const Internal::AppEntry &app = d->apps.at(i);
        if (app.programPath(&reason).isEmpty()) {
            // Kept in the file: the folder may be on a drive that is away for now.
            qCWarning(Internal::lcDialogs, "AppBox: not showing app %s: %s", qPrintable(app.name),
                      qPrintable(reason));
            continue;
        }
        d->shown.append(i);
    }
    rebuildButtons();
}

void AppBox::rebuildButtons()
{
    while (QLayoutItem *item = d->buttons->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (int shownIndex = 0; shownIndex < d->shown.size(); ++shownIndex) {
        const Internal::AppEntry &app = d->apps.at(d->shown.at(shownIndex));
        auto *button = new QToolButton;
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setAutoRaise(true);
        button->setIconSize(QSize(32, 32));
        const QString icon = app.iconPath();
        button->setIcon(lazyIcon(icon.isEmpty() ? QStringLiteral(":/framework/dialogs/images/app.svg")
                                                : icon));
        button->setText(app.name);
        button->setToolTip(app.description.isEmpty() ? app.name : app.description);
        connect(button, &QToolButton::clicked, this, [this, shownIndex] { startApp(shownIndex); });
        d->buttons->addWidget(button);
    }
    if (d->shown.isEmpty()) {
        auto *label = new QLabel(d->usable ? tr("No apps installed")
                                           : tr("The app list cannot be read"));
        label->setEnabled(false);
        d->buttons->addWidget(label);
    }
    d->buttons->addStretch(1);
}

bool AppBox::addApp(const QString &folder, QString *error)
{
    if (!d->usable) {
        *error = tr("The app list %1 cannot be read, so no app can be added to it.")
                     .arg(QDir::toNativeSeparators(d->customFile));
        return false;
    }
    QString reason;
    const std::optional<Internal::AppEntry> app = Internal::readAppManifest(folder, &reason);
    if (!app) {
        *error = tr("This folder holds no app that can be installed: %1.").arg(reason);
        return false;
    }
    for (const Internal::AppEntry &installed : std::as_const(d->apps)) {
        if (installed.folder == app->folder) {
            *error = tr("The app in %1 is installed already.")
                         .arg(QDir::toNativeSeparators(app->folder));
            return false;
        }
    }
    QList<Internal::AppEntry> apps = d->apps;
    apps.append(*app);
    if (!Internal::writeAppList(d->customFile, apps, &reason)) {
        *error = tr("The app list %1 could not be written: %2.")
                     .arg(QDir::toNativeSeparators(d->customFile), reason);
        return false;
    }
    d->apps = apps;
    d->shown.append(apps.size() - 1);
    rebuildButtons();
    return true;
}

bool AppBox::startApp(int index)
{
    if (index < 0 || index >= d->shown.size())
        return false;
    const Internal::AppEntry &app = d->apps.at(d->shown.at(index));
    QString reason;
    const QString program = app.programPath(&reason);
    if (program.isEmpty() || !QProcess::startDetached(program, {}, app.folder)) {
        Prompts::critical(this, tr("Error"), tr("The app %1 could not be started.").arg(app.name));
        return false;
    }
    return true;
}

void AppBox::installApp()
{
    AppInstallDialog dialog(this);
    if (Prompts::exec(&dialog) != QDialog::Accepted)
        return;
    QString error;
    if (!addApp(dialog.folder(), &error))
        Prompts::critical(this, tr("Error"), error);
}

} // namespace Velmora::Framework
