#include "exampledialog.h"

#include "core/logging_p.h"
#include "core/prompts.h"
#include "dialogs/contentfile_p.h"

#include <QtCore/qdir.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qsettings.h>
#include <QtGui/qimagereader.h>
#include <QtGui/qpainter.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qdialogbuttonbox.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qlistwidget.h>
#include <QtWidgets/qpushbutton.h>
#include <QtWidgets/qsplitter.h>

namespace Velmora::Framework {

namespace {

const qint64 metaLimit = 64 * 1024;
const int pictureLimit = 4096; // pixels per side
const QSize thumbnailSize(160, 120);
// Copies stop at this depth; nothing an example needs is deeper, a link loop always is.
const int copyDepthLimit = 32;

QPixmap thumbnail(const QString &picture)
{
    QImage image;
    if (!picture.isEmpty())
        image.load(picture);
    if (image.isNull())
        image.load(QStringLiteral(":/framework/dialogs/images/example.svg"));
    // Centred on a canvas of one size, so the gallery's grid stays even.
    QPixmap canvas(thumbnailSize);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QImage scaled =
        image.scaled(thumbnailSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    painter.drawImage((thumbnailSize.width() - scaled.width()) / 2,
                      (thumbnailSize.height() - scaled.height()) / 2, scaled);
    painter.setPen(QColor(0xb8, 0xc4, 0xd2));
    painter.drawRect(QRect(QPoint(0, 0), thumbnailSize).adjusted(0, 0, -1, -1));
    return canvas;
}

bool copyFolder(const QString &from, const QString &to, int depth, QString *error)
{
    if (depth > copyDepthLimit) {
        *error = ExampleDialog::tr("The example's folders are nested too deeply.");
        return false;
    }
    if (!QDir().mkpath(to)) {
        *error = ExampleDialog::tr("The folder %1 could not be created.").arg(to);
        return false;
    }
    const QFileInfoList entries = QDir(from).entryInfoList(
        QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
    for (const QFileInfo &entry : entries) {
        if (entry.isSymLink())
            continue; // a link may lead anywhere; an example never needs one
        const QString target = QDir(to).filePath(entry.fileName());
        if (entry.isDir()) {
            if (!copyFolder(entry.filePath(), target, depth + 1, error))
                return false;
        } else if (!QFile::copy(entry.filePath(), target)) {
            *error = ExampleDialog::tr("The file %1 could not be copied.").arg(entry.fileName());
            return false;
        }
    }
    return true;
}

} // namespace

class ExampleDialogPrivate
{
public:
    QStringList groups;
    QList<QList<ExampleDialog::Example>> examples; // one list per group
    QListWidget *groupList = nullptr;
    QListWidget *gallery = nullptr;
    QLineEdit *filter = nullptr;
    QLabel *description = nullptr;
    QPushButton *openButton = nullptr;

    const ExampleDialog::Example *current() const
    {
        const int group = groupList->currentRow();
        const int row = gallery->currentRow();
        if (group < 0 || group >= examples.size() || row < 0 || row >= examples[group].size())
            return nullptr;
        return &examples[group][row];
    }
};

ExampleDialog::ExampleDialog(const QStringList &roots, const QStringList &groups, QWidget *parent)
    : QDialog(parent), d(std::make_unique<ExampleDialogPrivate>())
{
    setObjectName(QStringLiteral("ExampleDialog"));
    setWindowTitle(tr("Examples"));
    d->groups = groups;
    d->examples.resize(groups.size());

    for (const QString &root : roots) {
        const QFileInfoList folders =
            QDir(root).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        for (const QFileInfo &folder : folders) {
            std::optional<Example> example = readExample(folder.filePath());
            if (!example)
                continue;
            const int group = groups.indexOf(example->category);
            if (group < 0) {
                qCWarning(Internal::lcDialogs,
                          "ExampleDialog: skipping example folder %s: unknown category \"%s\"",
                          qPrintable(folder.filePath()), qPrintable(example->category));
                continue;
            }
            d->examples[group].append(*example);
        }
    }

    d->groupList = new QListWidget;
    d->groupList->setObjectName(QStringLiteral("ExampleGroups"));
    d->groupList->setMaximumWidth(220);
    d->groupList->setSpacing(2);
    for (int i = 0; i < groups.size(); ++i)
        d->groupList->addItem(tr("%1 (%2)").arg(groups.at(i)).arg(d->examples.at(i).size()));

    d->gallery = new QListWidget;
    d->gallery->setObjectName(QStringLiteral("ExampleGallery"));
    d->gallery->setViewMode(QListView::IconMode);
    d->gallery->setIconSize(thumbnailSize);
    d->gallery->setGridSize(thumbnailSize + QSize(36, 48));
    d->gallery->setResizeMode(QListView::Adjust);
    d->gallery->setMovement(QListView::Static);
    d->gallery->setWordWrap(true);
    d->gallery->setUniformItemSizes(true);

    d->description = new QLabel;
    d->description->setObjectName(QStringLiteral("ExampleDescription"));
    d->description->setWordWrap(true);
    d->description->setTextFormat(Qt::RichText);
    d->description->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    d->description->setMinimumHeight(64);

    d->filter = new QLineEdit;
    d->filter->setObjectName(QStringLiteral("ExampleFilter"));
    d->filter->setPlaceholderText(tr("Search in examples"));
    d->filter->setClearButtonEnabled(true);

    auto *right = new QWidget;
    auto *rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->addWidget(d->filter);
    rightLayout->addWidget(d->gallery, 1);
    rightLayout->addWidget(d->description);

    auto *splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(d->groupList);
    splitter->addWidget(right);
    splitter->setStretchFactor(1, 1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    d->openButton = buttons->addButton(tr("Open"), QDialogButtonBox::AcceptRole);
    d->openButton->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(d->openButton, &QPushButton::clicked, this, &ExampleDialog::openCurrent);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addWidget(buttons);
    resize(860, 600);

    connect(d->groupList, &QListWidget::currentRowChanged, this, &ExampleDialog::showGroup);
    connect(d->gallery, &QListWidget::currentRowChanged, this, &ExampleDialog::showDescription);
    connect(d->gallery, &QListWidget::itemActivated, this, &ExampleDialog::openCurrent);
    connect(d->filter, &QLineEdit::textChanged, this, &ExampleDialog::applyFilter);
    d->groupList->setCurrentRow(groups.isEmpty() ? -1 : 0);
    showDescription();
}

ExampleDialog::~ExampleDialog() = default;

QStringList ExampleDialog::defaultGroups()
{
    return {QStringLiteral("Tidekit Script"), QStringLiteral("Tidekit Variant"),
            QStringLiteral("Flowdeck Diagram")};
}

std::optional<ExampleDialog::Example> ExampleDialog::readExample(const QString &folder)
{
    const QString metaPath = QDir(folder).filePath(QStringLiteral("meta.ini"));
    QString reason;
    std::optional<Example> example;
    if (Internal::fitsReadLimit(metaPath, metaLimit, &reason)) {
        QSettings meta(metaPath, QSettings::IniFormat);
        meta.beginGroup(QStringLiteral("Example"));
        Example read;
        read.folder = QFileInfo(folder).canonicalFilePath();
        read.name = Internal::iniText(meta, QStringLiteral("Name"));
        read.description = Internal::iniText(meta, QStringLiteral("Description"));
        read.category = Internal::iniText(meta, QStringLiteral("Category"));
        const QString picture = Internal::iniText(meta, QStringLiteral("Picture"));
        const QString open = Internal::iniText(meta, QStringLiteral("Open"));
        if (meta.status() != QSettings::NoError) {
            reason = QStringLiteral("meta.ini is malformed");
        } else if (read.name.isEmpty() || read.category.isEmpty() || open.isEmpty()) {
            reason = QStringLiteral("meta.ini lacks Name, Category or Open in [Example]");
        } else if (read.openFile = Internal::resolveInside(folder, open, &reason);
                   read.openFile.isEmpty()) {
            // reason says why
        } else if (const QString suffix = QFileInfo(read.openFile).suffix();
                   suffix != QLatin1String("sln-qel") && suffix != QLatin1String("qprj")) {
            reason = QStringLiteral("\"%1\" is neither a solution nor a project").arg(open);
        } else if (!picture.isEmpty()
                   && (read.picture = Internal::resolveInside(folder, picture, &reason)).isEmpty()) {
            // reason says why
        } else if (!read.picture.isEmpty()) {
            const QSize size = QImageReader(read.picture).size();
            if (!size.isValid() || size.width() > pictureLimit || size.height() > pictureLimit)
                reason = QStringLiteral("\"%1\" is not a picture of at most %2 pixels a side")
                             .arg(picture)
                             .arg(pictureLimit);
            else
                example = read;
        } else {
            example = read;
        }
    }
    if (!example)
        qCWarning(Internal::lcDialogs, "ExampleDialog: skipping example folder %s: %s",
                  qPrintable(folder), qPrintable(reason));
    return example;
}

QStringList ExampleDialog::groups() const
{
    return d->groups;
}

QList<ExampleDialog::Example> ExampleDialog::examples(const QString &group) const
{
    const int index = d->groups.indexOf(group);
    return index < 0 ? QList<Example>() : d->examples.at(index);
}

void ExampleDialog::setCurrentExample(const QString &group, int index)
{
    d->groupList->setCurrentRow(d->groups.indexOf(group));
    d->gallery->setCurrentRow(index);
}

QString ExampleDialog::copyExample(const Example &example, const QString &targetParent,
                                   QString *error)
{
    const QString target = QDir(targetParent).filePath(QFileInfo(example.folder).fileName());
    if (target.startsWith(example.folder + QLatin1Char('/'))) {
        *error = tr("An example cannot be copied into its own folder.");
        return QString();
    }
    if (QFileInfo::exists(target)) {
        *error = tr("The folder %1 exists already; choose another place for the example.")
                     .arg(QDir::toNativeSeparators(target));
        return QString();
    }
    if (!copyFolder(example.folder, target, 0, error)) {
        QDir(target).removeRecursively();
        return QString();
    }
    return QDir(target).filePath(QDir(example.folder).relativeFilePath(example.openFile));
}

void ExampleDialog::openCurrent()
{
    const Example *example = d->current();
    if (!example)
        return;
    const QString targetParent =
        Prompts::getExistingDirectory(this, tr("Choose a folder for the example"), QString(),
                                      QFileDialog::ShowDirsOnly);
    if (targetParent.isEmpty())
        return;
    QString error;
    const QString path = copyExample(*example, targetParent, &error);
    if (path.isEmpty()) {
        Prompts::critical(this, tr("Error"), error);
        return;
    }
    Q_EMIT openRequested(path);
    accept();
}

void ExampleDialog::showGroup(int group)
{
    d->gallery->clear();
    if (group >= 0 && group < d->examples.size()) {
        for (const Example &example : std::as_const(d->examples[group])) {
            auto *item = new QListWidgetItem(QIcon(thumbnail(example.picture)), example.name);
            item->setToolTip(example.description);
            item->setTextAlignment(Qt::AlignHCenter | Qt::AlignTop);
            d->gallery->addItem(item);
        }
    }
    applyFilter();
}

void ExampleDialog::applyFilter()
{
    const int group = d->groupList->currentRow();
    const QString text = d->filter->text().trimmed();
    int firstShown = -1;
    for (int row = 0; row < d->gallery->count(); ++row) {
        const Example &example = d->examples.at(group).at(row);
        const bool shown = example.name.contains(text, Qt::CaseInsensitive)
            || example.description.contains(text, Qt::CaseInsensitive);
        d->gallery->item(row)->setHidden(!shown);
        if (shown && firstShown < 0)
            firstShown = row;
    }
    // Keep the current example while it is shown; never describe a hidden one.
    const QListWidgetItem *current = d->gallery->currentItem();
    if (!current || current->isHidden())
        d->gallery->setCurrentRow(firstShown);
    showDescription();
}

void ExampleDialog::showDescription()
{
    const Example *example = d->current();
    d->openButton->setEnabled(example);
    d->description->setText(example ? QStringLiteral("<b>%1</b><br>%2")
                                          .arg(example->name.toHtmlEscaped(),
                                               example->description.toHtmlEscaped())
                                    : tr("No example is selected."));
}

} // namespace Velmora::Framework
